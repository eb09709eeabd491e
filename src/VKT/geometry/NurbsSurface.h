#pragma once

#include "VKT/geometry/ParametricSurface.h"

namespace VKT {

// A NURBS surface.
class XNurbsSurface final : public XNodeClass<XNurbsSurface, XParametricSurface, kFnNurbsSurface> {
public:
    using XNodeClass::XNodeClass;

    u8 GetDegreeU() const { return m_DegreeU; }
    void SetDegreeU(u8 degree) { m_DegreeU = degree; }
    u8 GetDegreeV() const { return m_DegreeV; }
    void SetDegreeV(u8 degree) { m_DegreeV = degree; }
    const XRealList& GetKnotsU() const { return m_KnotsU; }
    void SetKnotsU(const XRealList& knots) { m_KnotsU = knots; }
    const XRealList& GetKnotsV() const { return m_KnotsV; }
    void SetKnotsV(const XRealList& knots) { m_KnotsV = knots; }

    // Kept on purpose: the const cast knows the class itself and the root alone, the other
    // one the whole family. `XCast` goes by the other one.
    const XBase* HasFn(u32 type) const override { return type == kType ? this : XBase::HasFn(type); }
    XBase* HasFn(u32 type) override { return XNodeClass::HasFn(type); }

    static XBodyTable TextBody();
    static XBodyTable BinaryBody();
    static XPropertyTable Properties();

private:
    u8 m_DegreeU = 0;
    u8 m_DegreeV = 0;
    XRealList m_KnotsU;
    XRealList m_KnotsV;
};

}  // namespace VKT
