#pragma once

#include "VKT/dynamics/CollisionObject.h"

namespace VKT {

// A box. Sizes in scene units.
class XCollisionBox final : public XNodeClass<XCollisionBox, XCollisionObject, kFnCollisionBox> {
public:
    using XNodeClass::XNodeClass;

    f32 GetXSize() const { return m_XSize; }
    void SetXSize(f32 size) { m_XSize = size; }
    f32 GetYSize() const { return m_YSize; }
    void SetYSize(f32 size) { m_YSize = size; }
    f32 GetZSize() const { return m_ZSize; }
    void SetZSize(f32 size) { m_ZSize = size; }

    static XBodyTable TextBody();
    static XBodyTable BinaryBody() { return TextBody(); }
    static XPropertyTable Properties();

private:
    f32 m_XSize = 1.0f;
    f32 m_YSize = 1.0f;
    f32 m_ZSize = 1.0f;
};

}  // namespace VKT
