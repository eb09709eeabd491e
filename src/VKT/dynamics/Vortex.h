#pragma once

#include "VKT/dynamics/Field.h"

namespace VKT {

// Turns everything around an axis.
class XVortex final : public XNodeClass<XVortex, XField, kFnVortex> {
public:
    using XNodeClass::XNodeClass;

    const XVector3& GetAxis() const { return m_Axis; }
    void SetAxis(const XVector3& axis) { m_Axis = axis; }

    static XBodyTable TextBody();
    static XBodyTable BinaryBody() { return TextBody(); }
    static XPropertyTable Properties();

private:
    XVector3 m_Axis{};
};

}  // namespace VKT
