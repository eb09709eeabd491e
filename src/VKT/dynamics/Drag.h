#pragma once

#include "VKT/dynamics/Field.h"

namespace VKT {

// Slows down what moves.
class XDrag final : public XNodeClass<XDrag, XField, kFnDrag> {
public:
    using XNodeClass::XNodeClass;

    const XVector3& GetDirection() const { return m_Direction; }
    void SetDirection(const XVector3& direction) { m_Direction = direction; }
    // Slows down along the direction alone.
    bool GetUseDirection() const { return m_UseDirection; }
    void SetUseDirection(bool use) { m_UseDirection = use; }

    static XBodyTable TextBody();
    static XBodyTable BinaryBody() { return TextBody(); }
    static XPropertyTable Properties();

private:
    XVector3 m_Direction{0, 1, 0, 0};
    bool m_UseDirection = false;
};

}  // namespace VKT
