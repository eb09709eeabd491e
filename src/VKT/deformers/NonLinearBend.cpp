#include "VKT/deformers/NonLinearBend.h"

namespace VKT {

XBodyTable XNonLinearBend::TextBody()
{
    static constexpr XBodyRow rows[] = {
        {"\tlow_bound ", &XNonLinearBend::m_LowBound},
        {"\thigh_bound ", &XNonLinearBend::m_HighBound},
        {"\tcurvature ", &XNonLinearBend::m_Curvature},
    };
    return {kNonLinearSource, rows};
}

XPropertyTable XNonLinearBend::Properties()
{
    static constexpr XPropertyInfo rows[] = {
        Field<&XNonLinearBend::m_LowBound>(4, "low_bound", kAnimatable),
        Field<&XNonLinearBend::m_HighBound>(5, "high_bound", kAnimatable),
        Field<&XNonLinearBend::m_Curvature>(6, "curvature", kAnimatable),
    };
    return rows;
}

}  // namespace VKT
