#pragma once

#include "VKT/lights/ExtendedLight.h"

namespace VKT {

// A cone of light, which barn doors can cut and whose brightness can change by region.
// Angles are radians, regions are distances from the light in scene units, the drop-off is
// stored as it stands.
class XSpotLight : public XNodeClass<XSpotLight, XExtendedLight, kFnSpotLight> {
public:
    using XNodeClass::XNodeClass;

    f32 GetConeAngle() const { return m_ConeAngle; }
    void SetConeAngle(f32 radians) { m_ConeAngle = radians; }
    f32 GetPenumbraAngle() const { return m_PenumbraAngle; }
    void SetPenumbraAngle(f32 radians) { m_PenumbraAngle = radians; }
    f32 GetDropOff() const { return m_DropOff; }
    void SetDropOff(f32 dropOff) { m_DropOff = dropOff; }

    bool HasBarnDoors() const { return m_BarnDoors; }
    void SetBarnDoors(bool has) { m_BarnDoors = has; }
    f32 GetLeftBarnDoorAngle() const { return m_LeftBarnDoorAngle; }
    void SetLeftBarnDoorAngle(f32 radians) { m_LeftBarnDoorAngle = radians; }
    f32 GetRightBarnDoorAngle() const { return m_RightBarnDoorAngle; }
    void SetRightBarnDoorAngle(f32 radians) { m_RightBarnDoorAngle = radians; }
    f32 GetTopBarnDoorAngle() const { return m_TopBarnDoorAngle; }
    void SetTopBarnDoorAngle(f32 radians) { m_TopBarnDoorAngle = radians; }
    f32 GetBottomBarnDoorAngle() const { return m_BottomBarnDoorAngle; }
    void SetBottomBarnDoorAngle(f32 radians) { m_BottomBarnDoorAngle = radians; }

    bool UsesDecayRegions() const { return m_UseDecayRegions; }
    void SetUseDecayRegions(bool use) { m_UseDecayRegions = use; }
    f32 GetFirstDecayStart() const { return m_FirstDecayStart; }
    f32 GetFirstDecayEnd() const { return m_FirstDecayEnd; }
    void SetFirstDecay(f32 start, f32 end) { m_FirstDecayStart = start, m_FirstDecayEnd = end; }
    f32 GetSecondDecayStart() const { return m_SecondDecayStart; }
    f32 GetSecondDecayEnd() const { return m_SecondDecayEnd; }
    void SetSecondDecay(f32 start, f32 end) { m_SecondDecayStart = start, m_SecondDecayEnd = end; }
    f32 GetThirdDecayStart() const { return m_ThirdDecayStart; }
    f32 GetThirdDecayEnd() const { return m_ThirdDecayEnd; }
    void SetThirdDecay(f32 start, f32 end) { m_ThirdDecayStart = start, m_ThirdDecayEnd = end; }

    static XBodyTable TextBody();
    static XBodyTable BinaryBody() { return TextBody(); }
    static XPropertyTable Properties();

private:
    f32 m_ConeAngle = 0.69813198f;  // 40 degrees
    f32 m_PenumbraAngle = 0.0f;
    f32 m_DropOff = 0.0f;
    bool m_BarnDoors = false;
    f32 m_LeftBarnDoorAngle = 0.34906599f;  // 20 degrees
    f32 m_RightBarnDoorAngle = 0.34906599f;
    f32 m_TopBarnDoorAngle = 0.34906599f;
    f32 m_BottomBarnDoorAngle = 0.34906599f;
    bool m_UseDecayRegions = false;
    f32 m_FirstDecayStart = 1.0f;
    f32 m_FirstDecayEnd = 2.0f;
    f32 m_SecondDecayStart = 3.0f;
    f32 m_SecondDecayEnd = 6.0f;
    f32 m_ThirdDecayStart = 8.0f;
    f32 m_ThirdDecayEnd = 10.0f;
};

}  // namespace VKT
