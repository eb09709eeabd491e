#pragma once

#include "VKT/lights/ExtendedLight.h"
#include "VKT/shading/Ramp.h"

namespace VKT {

// Light within a volume, whose colour and penumbra change on the way out. The arc is the one
// angle of lights in degrees; the radius is stored as it stands.
class XVolumeLight : public XNodeClass<XVolumeLight, XExtendedLight, kFnVolumeLight> {
public:
    explicit XVolumeLight(XModel* model);

    // How much of a turn the volume takes: 360 for a whole one.
    f32 GetArc() const { return m_Arc; }
    void SetArc(f32 degrees) { m_Arc = degrees; }
    f32 GetConeEndRadius() const { return m_ConeEndRadius; }
    void SetConeEndRadius(f32 radius) { m_ConeEndRadius = radius; }
    // Of colours and of floats, unless a file says otherwise.
    const XRamp& GetColourRamp() const { return m_ColourRamp; }
    XRamp& GetColourRamp() { return m_ColourRamp; }
    const XRamp& GetPenumbraRamp() const { return m_PenumbraRamp; }
    XRamp& GetPenumbraRamp() { return m_PenumbraRamp; }

    bool DoData(XFileIO& file) override;
    void DoCopy(const XBase* source) override;
    bool WriteChunk(XTextWriter& out) const override;
    bool ReadFields(XTextReader& in) override;

    // Behind these, both forms hold the two ramps.
    static XBodyTable TextBody();
    static XBodyTable BinaryBody() { return TextBody(); }
    static XPropertyTable Properties();

private:
    f32 m_Arc = 360.0f;
    f32 m_ConeEndRadius = 0.0f;
    XRamp m_ColourRamp{XRamp::kColours};
    XRamp m_PenumbraRamp{XRamp::kFloats};
};

}  // namespace VKT
