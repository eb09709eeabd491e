#pragma once

#include "VKT/geometry/ParametricBase.h"

namespace VKT {

// The base of curves.
class XParametricCurve : public XNodeClass<XParametricCurve, XParametricBase, kFnParametricCurve> {
public:
    using XNodeClass::XNodeClass;

    // A number that the library passes on; it has no table of kinds.
    u32 GetCurveType() const { return m_CurveType; }
    void SetCurveType(u32 type) { m_CurveType = type; }

    static XBodyTable TextBody();
    static XBodyTable BinaryBody() { return TextBody(); }
    static XPropertyTable Properties();

private:
    u32 m_CurveType = 0;
};

}  // namespace VKT
