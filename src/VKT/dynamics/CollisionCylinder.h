#pragma once

#include "VKT/dynamics/CollisionObject.h"

namespace VKT {

// A cylinder. Sizes in scene units.
//
// Kept on purpose: its text form does not read back.
class XCollisionCylinder final
    : public XNodeClass<XCollisionCylinder, XCollisionObject, kFnCollisionCylinder> {
public:
    using XNodeClass::XNodeClass;

    f32 GetRadius() const { return m_Radius; }
    void SetRadius(f32 radius) { m_Radius = radius; }
    f32 GetLength() const { return m_Length; }
    void SetLength(f32 length) { m_Length = length; }

    static XBodyTable TextBody();
    static XBodyTable BinaryBody() { return TextBody(); }
    static XPropertyTable Properties();

private:
    f32 m_Radius = 1.0f;
    f32 m_Length = 1.0f;
};

}  // namespace VKT
