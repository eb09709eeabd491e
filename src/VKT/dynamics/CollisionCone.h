#pragma once

#include "VKT/base/ConeAngle.h"
#include "VKT/dynamics/CollisionObject.h"

namespace VKT {

// A cone. What the format calls its cap is stored as it stands.
class XCollisionCone final : public XNodeClass<XCollisionCone, XCollisionObject, kFnCollisionCone> {
public:
    using XNodeClass::XNodeClass;

    // Of the tip, in radians.
    f32 GetAngle() const { return m_Angle; }
    void SetAngle(f32 radians) { m_Angle = radians; }
    f32 GetCap() const { return m_Cap; }
    void SetCap(f32 cap) { m_Cap = cap; }

    static XBodyTable TextBody();
    static XBodyTable BinaryBody() { return TextBody(); }
    static XPropertyTable Properties();

private:
    f32 m_Angle = kDefaultConeAngle;
    f32 m_Cap = 1.0f;
};

}  // namespace VKT
