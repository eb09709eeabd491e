#pragma once

#include "VKT/hierarchy/Shape.h"

namespace VKT {

// The base of analytic shapes that a simulation lets collide. The mass is stored as it
// stands, without a unit of the format.
class XCollisionObject : public XNodeClass<XCollisionObject, XShape, kFnCollisionObject> {
public:
    using XNodeClass::XNodeClass;

    f32 GetMass() const { return m_Mass; }
    void SetMass(f32 mass) { m_Mass = mass; }
    // What gravity is multiplied by for this object.
    f32 GetGravityScale() const { return m_GravityScale; }
    void SetGravityScale(f32 scale) { m_GravityScale = scale; }

    static XBodyTable TextBody();
    static XBodyTable BinaryBody() { return TextBody(); }
    static XPropertyTable Properties();

private:
    f32 m_Mass = 0.0f;
    f32 m_GravityScale = 0.0f;
};

}  // namespace VKT
