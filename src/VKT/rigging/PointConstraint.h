#pragma once

#include "VKT/rigging/Constraint.h"

namespace VKT {

// Moves the constrained node to its targets.
class XPointConstraint : public XNodeClass<XPointConstraint, XConstraint, kFnPointConstraint> {
public:
    using XNodeClass::XNodeClass;

    // What is added to the targets' position.
    const XVector3& GetOffset() const { return m_Offset; }
    void SetOffset(const XVector3& offset) { m_Offset = offset; }

    static XBodyTable TextBody();
    static XBodyTable BinaryBody() { return TextBody(); }
    static XPropertyTable Properties();

private:
    XVector3 m_Offset{};
};

}  // namespace VKT
