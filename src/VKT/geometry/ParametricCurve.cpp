#include "VKT/geometry/ParametricCurve.h"

namespace VKT {

XBodyTable XParametricCurve::TextBody()
{
    static constexpr XBodyRow rows[] = {
        ReadSince(4, {"\tcurve_type ", &XParametricCurve::m_CurveType}),
    };
    return {".\\src\\VKT\\ParametricCurve", rows};
}

XPropertyTable XParametricCurve::Properties()
{
    static constexpr XPropertyInfo rows[] = {
        AsInteger<&XParametricCurve::m_CurveType>(4, "curve_type"),
    };
    return rows;
}

}  // namespace VKT
