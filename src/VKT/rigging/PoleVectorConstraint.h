#pragma once

#include "VKT/rigging/PointConstraint.h"

namespace VKT {

// Turns the plane of an IK chain towards its targets.
class XPoleVectorConstraint final
    : public XNodeClass<XPoleVectorConstraint, XPointConstraint, kFnPoleVectorConstraint> {
public:
    using XNodeClass::XNodeClass;

    // The space that the pole vector stands in.
    const XMatrix& GetPivotSpace() const { return m_PivotSpace; }
    void SetPivotSpace(const XMatrix& space) { m_PivotSpace = space; }

    static XBodyTable TextBody();
    static XBodyTable BinaryBody() { return TextBody(); }
    static XPropertyTable Properties();

private:
    XMatrix m_PivotSpace = kIdentityMatrix;
};

}  // namespace VKT
