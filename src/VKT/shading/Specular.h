#pragma once

#include "VKT/shading/Lambert.h"

namespace VKT {

// The base of materials with a highlight. The shininess belongs to all of them, but only
// some files hold it.
class XSpecular : public XNodeClass<XSpecular, XLambert, kFnSpecular> {
public:
    explicit XSpecular(XModel* model);

    XShaderInput& GetSpecularColour() { return m_SpecularColour; }
    const XShaderInput& GetSpecularColour() const { return m_SpecularColour; }
    // The exponent of the highlight: the higher, the smaller it is.
    f32 GetShininess() const { return m_Shininess; }
    void SetShininess(f32 shininess) { m_Shininess = shininess; }

    // Unlike the inputs of the bases, that of the specular colour takes null too, which
    // disconnects it.
    bool Connect(XShaderInput& input, const XBase* node) override;
    void DoCopy(const XBase* source) override;

    static XBodyTable TextBody();
    static XBodyTable BinaryBody() { return TextBody(); }
    static XBodyTable OldTextBody();
    static XBodyTable OldBinaryBody();
    static XPropertyTable Properties();

protected:
    XShaderInput m_SpecularColour{"specular_colour"};
    f32 m_Shininess = 0.0f;
};

}  // namespace VKT
