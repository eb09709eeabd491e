#pragma once

#include "VKT/rigging/AimConstraint.h"

namespace VKT {

// An aim constraint that keeps a distance: what a camera with a target has.
class XLookAtConstraint final : public XNodeClass<XLookAtConstraint, XAimConstraint, kFnLookAtConstraint> {
public:
    using XNodeClass::XNodeClass;

    // Kept on purpose: one more than there are.
    static constexpr u32 kNumProperties = 64;

    f32 GetDistanceBetween() const { return m_DistanceBetween; }
    void SetDistanceBetween(f32 distance) { m_DistanceBetween = distance; }
    f32 GetTwist() const { return m_Twist; }
    void SetTwist(f32 twist) { m_Twist = twist; }

    static XBodyTable TextBody();
    static XBodyTable BinaryBody() { return TextBody(); }
    static XPropertyTable Properties();

private:
    f32 m_DistanceBetween = 0.0f;
    f32 m_Twist = 0.0f;
};

}  // namespace VKT
