#pragma once

#include "VKT/rigging/Constraint.h"

namespace VKT {

// Turns the constrained node as its targets are turned.
class XOrientConstraint final : public XNodeClass<XOrientConstraint, XConstraint, kFnOrientConstraint> {
public:
    using XNodeClass::XNodeClass;

    // What is added to the targets' angles.
    const XVector3& GetOffset() const { return m_Offset; }
    void SetOffset(const XVector3& offset) { m_Offset = offset; }

    static XBodyTable TextBody();
    static XBodyTable BinaryBody() { return TextBody(); }
    static XPropertyTable Properties();

private:
    XVector3 m_Offset{};
};

}  // namespace VKT
