#pragma once

#include "VKT/dynamics/Field.h"

namespace VKT {

// A stream of air: wind, a wake, a fan.
class XAir final : public XNodeClass<XAir, XField, kFnAir> {
public:
    using XNodeClass::XNodeClass;

    const XVector3& GetDirection() const { return m_Direction; }
    void SetDirection(const XVector3& direction) { m_Direction = direction; }
    // How fast particles reach the speed of the stream.
    f32 GetSpeed() const { return m_Speed; }
    void SetSpeed(f32 speed) { m_Speed = speed; }
    // The part of the velocity of the field that goes into the stream.
    f32 GetInheritVelocity() const { return m_InheritVelocity; }
    void SetInheritVelocity(f32 part) { m_InheritVelocity = part; }
    bool GetInheritRotation() const { return m_InheritRotation; }
    void SetInheritRotation(bool inherit) { m_InheritRotation = inherit; }
    // Acts on what is slower than the stream alone.
    bool GetComponentOnly() const { return m_ComponentOnly; }
    void SetComponentOnly(bool only) { m_ComponentOnly = only; }
    // The part of a half circle around the direction in which particles are reached.
    f32 GetSpread() const { return m_Spread; }
    void SetSpread(f32 spread) { m_Spread = spread; }
    bool GetEnableSpread() const { return m_EnableSpread; }
    void SetEnableSpread(bool enable) { m_EnableSpread = enable; }

    static XBodyTable TextBody();
    static XBodyTable BinaryBody() { return TextBody(); }
    static XPropertyTable Properties();

private:
    XVector3 m_Direction{0, 1, 0, 0};
    f32 m_Speed = 1.0f;
    f32 m_InheritVelocity = 0.0f;
    bool m_InheritRotation = false;
    bool m_ComponentOnly = false;
    f32 m_Spread = 0.0f;
    bool m_EnableSpread = false;
};

}  // namespace VKT
