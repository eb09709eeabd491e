#include "VKT/deformers/NonLinearFlare.h"

namespace VKT {

XBodyTable XNonLinearFlare::TextBody()
{
    static constexpr XBodyRow rows[] = {
        {"\tlow_bound ", &XNonLinearFlare::m_LowBound},
        {"\thigh_bound ", &XNonLinearFlare::m_HighBound},
        {"\tstart_flare_x ", &XNonLinearFlare::m_StartFlareX},
        {"\tstart_flare_z ", &XNonLinearFlare::m_StartFlareZ},
        {"\tend_flare_x ", &XNonLinearFlare::m_EndFlareX},
        {"\tend_flare_z ", &XNonLinearFlare::m_EndFlareZ},
        {"\tcurve ", &XNonLinearFlare::m_Curve},
    };
    return {kNonLinearSource, rows};
}

XPropertyTable XNonLinearFlare::Properties()
{
    static constexpr XPropertyInfo rows[] = {
        Field<&XNonLinearFlare::m_LowBound>(4, "low_bound", kAnimatable),
        Field<&XNonLinearFlare::m_HighBound>(5, "high_bound", kAnimatable),
        Field<&XNonLinearFlare::m_StartFlareX>(6, "start_flare_x", kAnimatable),
        Field<&XNonLinearFlare::m_StartFlareZ>(7, "start_flare_z", kAnimatable),
        Field<&XNonLinearFlare::m_EndFlareX>(8, "end_flare_x", kAnimatable),
        Field<&XNonLinearFlare::m_EndFlareZ>(9, "end_flare_z", kAnimatable),
        Field<&XNonLinearFlare::m_Curve>(10, "curve", kAnimatable),
    };
    return rows;
}

}  // namespace VKT
