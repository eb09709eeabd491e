#pragma once

#include "VKT/dynamics/Field.h"

namespace VKT {

// Pulls everything alike, downwards at first.
class XGravity final : public XNodeClass<XGravity, XField, kFnGravity> {
public:
    using XNodeClass::XNodeClass;

    const XVector3& GetDirection() const { return m_Direction; }
    void SetDirection(const XVector3& direction) { m_Direction = direction; }

    static XBodyTable TextBody();
    static XBodyTable BinaryBody() { return TextBody(); }
    static XPropertyTable Properties();

private:
    XVector3 m_Direction{0, -1, 0, 0};
};

}  // namespace VKT
