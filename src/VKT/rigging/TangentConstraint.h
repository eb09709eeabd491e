#pragma once

#include "VKT/rigging/Constraint.h"

namespace VKT {

// Turns the constrained node along the tangent of a curve.
class XTangentConstraint final : public XNodeClass<XTangentConstraint, XConstraint, kFnTangentConstraint> {
public:
    using XNodeClass::XNodeClass;

    // In the space of the constrained node.
    const XVector3& GetAimVector() const { return m_AimVector; }
    void SetAimVector(const XVector3& vector) { m_AimVector = vector; }
    const XVector3& GetUpVector() const { return m_UpVector; }
    void SetUpVector(const XVector3& vector) { m_UpVector = vector; }

    static XBodyTable TextBody();
    static XBodyTable BinaryBody() { return TextBody(); }
    static XPropertyTable Properties();

private:
    XVector3 m_AimVector{1, 0, 0, 0};
    XVector3 m_UpVector{0, 1, 0, 0};
};

}  // namespace VKT
