#pragma once

#include "VKT/dynamics/Field.h"

namespace VKT {

// Moves what is inside of a volume along, around and away from the axis of the volume.
class XVolumeAxis final : public XNodeClass<XVolumeAxis, XField, kFnVolumeAxis> {
public:
    using XNodeClass::XNodeClass;

    const XVector3& GetDirection() const { return m_Direction; }
    void SetDirection(const XVector3& direction) { m_Direction = direction; }
    f32 GetDirectionalSpeed() const { return m_DirectionalSpeed; }
    void SetDirectionalSpeed(f32 speed) { m_DirectionalSpeed = speed; }
    bool GetInvertAttenuation() const { return m_InvertAttenuation; }
    void SetInvertAttenuation(bool invert) { m_InvertAttenuation = invert; }
    f32 GetSpeedAlongAxis() const { return m_SpeedAlongAxis; }
    void SetSpeedAlongAxis(f32 speed) { m_SpeedAlongAxis = speed; }
    f32 GetSpeedAroundAxis() const { return m_SpeedAroundAxis; }
    void SetSpeedAroundAxis(f32 speed) { m_SpeedAroundAxis = speed; }
    f32 GetSpeedAwayFromAxis() const { return m_SpeedAwayFromAxis; }
    void SetSpeedAwayFromAxis(f32 speed) { m_SpeedAwayFromAxis = speed; }
    f32 GetSpeedAwayFromCenter() const { return m_SpeedAwayFromCenter; }
    void SetSpeedAwayFromCenter(f32 speed) { m_SpeedAwayFromCenter = speed; }
    f32 GetTurbulence() const { return m_Turbulence; }
    void SetTurbulence(f32 turbulence) { m_Turbulence = turbulence; }
    f32 GetTurbulenceSpeed() const { return m_TurbulenceSpeed; }
    void SetTurbulenceSpeed(f32 speed) { m_TurbulenceSpeed = speed; }
    const XVector3& GetTurbulenceFrequency() const { return m_TurbulenceFrequency; }
    void SetTurbulenceFrequency(const XVector3& frequency) { m_TurbulenceFrequency = frequency; }
    const XVector3& GetTurbulenceOffset() const { return m_TurbulenceOffset; }
    void SetTurbulenceOffset(const XVector3& offset) { m_TurbulenceOffset = offset; }
    f32 GetDetailTurbulence() const { return m_DetailTurbulence; }
    void SetDetailTurbulence(f32 turbulence) { m_DetailTurbulence = turbulence; }

    static XBodyTable TextBody();
    static XBodyTable BinaryBody() { return TextBody(); }
    static XPropertyTable Properties();

private:
    XVector3 m_Direction{1, 0, 0, 0};
    f32 m_DirectionalSpeed = 0.0f;
    bool m_InvertAttenuation = false;
    f32 m_SpeedAlongAxis = 0.0f;
    f32 m_SpeedAroundAxis = 0.0f;
    f32 m_SpeedAwayFromAxis = 0.0f;
    f32 m_SpeedAwayFromCenter = 0.0f;
    f32 m_Turbulence = 0.0f;
    f32 m_TurbulenceSpeed = 0.0f;
    XVector3 m_TurbulenceFrequency{};
    XVector3 m_TurbulenceOffset{};
    f32 m_DetailTurbulence = 0.0f;
};

}  // namespace VKT
