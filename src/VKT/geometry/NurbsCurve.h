#pragma once

#include "VKT/geometry/ParametricCurve.h"

namespace VKT {

// A NURBS curve.
class XNurbsCurve final : public XNodeClass<XNurbsCurve, XParametricCurve, kFnNurbsCurve> {
public:
    using XNodeClass::XNodeClass;

    u16 GetDegree() const { return m_Degree; }
    void SetDegree(u16 degree) { m_Degree = degree; }
    const XRealList& GetKnots() const { return m_Knots; }
    void SetKnots(const XRealList& knots) { m_Knots = knots; }

    // Kept on purpose: the const cast knows the class itself and the root alone, the other
    // one the whole family. `XCast` goes by the other one.
    const XBase* HasFn(u32 type) const override { return type == kType ? this : XBase::HasFn(type); }
    XBase* HasFn(u32 type) override { return XNodeClass::HasFn(type); }

    static XBodyTable TextBody();
    static XBodyTable BinaryBody();
    static XPropertyTable Properties();

private:
    u16 m_Degree = 0;
    XRealList m_Knots;
};

}  // namespace VKT
