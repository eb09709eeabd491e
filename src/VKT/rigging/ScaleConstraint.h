#pragma once

#include "VKT/rigging/Constraint.h"

namespace VKT {

// Scales the constrained node as its targets are scaled.
class XScaleConstraint final : public XNodeClass<XScaleConstraint, XConstraint, kFnScaleConstraint> {
public:
    using XNodeClass::XNodeClass;

    // What the targets' scale is changed by.
    const XVector3& GetOffset() const { return m_Offset; }
    void SetOffset(const XVector3& offset) { m_Offset = offset; }

    static XBodyTable TextBody();
    static XBodyTable BinaryBody() { return TextBody(); }
    static XPropertyTable Properties();

private:
    XVector3 m_Offset{};
};

}  // namespace VKT
