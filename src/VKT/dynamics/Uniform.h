#pragma once

#include "VKT/dynamics/Field.h"

namespace VKT {

// Pushes everything in one direction.
class XUniform final : public XNodeClass<XUniform, XField, kFnUniform> {
public:
    using XNodeClass::XNodeClass;

    const XVector3& GetDirection() const { return m_Direction; }
    void SetDirection(const XVector3& direction) { m_Direction = direction; }

    static XBodyTable TextBody();
    static XBodyTable BinaryBody() { return TextBody(); }
    static XPropertyTable Properties();

private:
    XVector3 m_Direction{};
};

}  // namespace VKT
