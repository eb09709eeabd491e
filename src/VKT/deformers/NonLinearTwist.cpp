#include "VKT/deformers/NonLinearTwist.h"

namespace VKT {

XBodyTable XNonLinearTwist::TextBody()
{
    static constexpr XBodyRow rows[] = {
        {"\tlow_bound ", &XNonLinearTwist::m_LowBound},
        {"\thigh_bound ", &XNonLinearTwist::m_HighBound},
        {"\tstart_angle ", &XNonLinearTwist::m_StartAngle},
        {"\tend_angle ", &XNonLinearTwist::m_EndAngle},
    };
    return {kNonLinearSource, rows};
}

XPropertyTable XNonLinearTwist::Properties()
{
    static constexpr XPropertyInfo rows[] = {
        Field<&XNonLinearTwist::m_LowBound>(4, "low_bound", kAnimatable),
        Field<&XNonLinearTwist::m_HighBound>(5, "high_bound", kAnimatable),
        Field<&XNonLinearTwist::m_StartAngle>(6, "start_angle", kAnimatable),
        Field<&XNonLinearTwist::m_EndAngle>(7, "end_angle", kAnimatable),
    };
    return rows;
}

}  // namespace VKT
