#pragma once

#include "VKT/dynamics/CollisionObject.h"

namespace VKT {

// A sphere. The radius is in scene units.
class XCollisionSphere final : public XNodeClass<XCollisionSphere, XCollisionObject, kFnCollisionSphere> {
public:
    using XNodeClass::XNodeClass;

    f32 GetRadius() const { return m_Radius; }
    void SetRadius(f32 radius) { m_Radius = radius; }

    static XBodyTable TextBody();
    static XBodyTable BinaryBody() { return TextBody(); }
    static XPropertyTable Properties();

private:
    f32 m_Radius = 1.0f;
};

}  // namespace VKT
