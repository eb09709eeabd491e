#pragma once

#include "VKT/shading/Specular.h"

namespace VKT {

// A glossy material whose highlight is given by its eccentricity. The shininess follows
// from it whenever a file is read or a binary one written: 90 times what the eccentricity
// lacks to 1. Eccentricity and roll-off are stored as they stand.
class XBlinn : public XNodeClass<XBlinn, XSpecular, kFnBlinn> {
public:
    using XNodeClass::XNodeClass;

    f32 GetEccentricity() const { return m_Eccentricity; }
    void SetEccentricity(f32 eccentricity) { m_Eccentricity = eccentricity; }
    f32 GetSpecularRollOff() const { return m_SpecularRollOff; }
    void SetSpecularRollOff(f32 rollOff) { m_SpecularRollOff = rollOff; }

    bool DoData(XFileIO& file) override;
    bool ReadFields(XTextReader& in) override;

    static XBodyTable TextBody();
    static XBodyTable BinaryBody() { return TextBody(); }
    static XPropertyTable Properties();

private:
    void DeriveShininess() { m_Shininess = (1.0f - m_Eccentricity) * 90.0f; }

    f32 m_Eccentricity = 0.0f;
    f32 m_SpecularRollOff = 0.0f;
};

}  // namespace VKT
