#include "VKT/deformers/NonLinearSquash.h"

namespace VKT {

XBodyTable XNonLinearSquash::TextBody()
{
    static constexpr XBodyRow rows[] = {
        {"\tlow_bound ", &XNonLinearSquash::m_LowBound},
        {"\thigh_bound ", &XNonLinearSquash::m_HighBound},
        {"\tstart_smoothness ", &XNonLinearSquash::m_StartSmoothness},
        {"\tend_smoothness ", &XNonLinearSquash::m_EndSmoothness},
        {"\tmax_expand_pos ", &XNonLinearSquash::m_MaxExpandPosition},
        {"\texpand ", &XNonLinearSquash::m_Expand},
        {"\tfactor ", &XNonLinearSquash::m_Factor},
    };
    return {kNonLinearSource, rows};
}

// The vocabulary has the position last, and spells it out.
XPropertyTable XNonLinearSquash::Properties()
{
    static constexpr XPropertyInfo rows[] = {
        Field<&XNonLinearSquash::m_LowBound>(4, "low_bound", kAnimatable),
        Field<&XNonLinearSquash::m_HighBound>(5, "high_bound", kAnimatable),
        Field<&XNonLinearSquash::m_StartSmoothness>(6, "start_smoothness", kAnimatable),
        Field<&XNonLinearSquash::m_EndSmoothness>(7, "end_smoothness", kAnimatable),
        Field<&XNonLinearSquash::m_Expand>(8, "expand", kAnimatable),
        Field<&XNonLinearSquash::m_Factor>(9, "factor", kAnimatable),
        Field<&XNonLinearSquash::m_MaxExpandPosition>(10, "max_expand_position", kAnimatable),
    };
    return rows;
}

}  // namespace VKT
