#include "VKT/dynamics/VolumeAxis.h"

namespace VKT {

XBodyTable XVolumeAxis::TextBody()
{
    static constexpr XBodyRow rows[] = {
        {"\tdirection ", &XVolumeAxis::m_Direction},
        {"\tdirectional_speed ", &XVolumeAxis::m_DirectionalSpeed},
        {"\tinvert_attenuation ", &XVolumeAxis::m_InvertAttenuation},
        {"\tspeed_along_axis ", &XVolumeAxis::m_SpeedAlongAxis},
        {"\tspeed_around_axis ", &XVolumeAxis::m_SpeedAroundAxis},
        {"\tspeed_away_from_axis ", &XVolumeAxis::m_SpeedAwayFromAxis},
        {"\tspeed_away_from_center ", &XVolumeAxis::m_SpeedAwayFromCenter},
        {"\tturbulence ", &XVolumeAxis::m_Turbulence},
        {"\tturbulence_speed ", &XVolumeAxis::m_TurbulenceSpeed},
        {"\tturbulence_frequency ", &XVolumeAxis::m_TurbulenceFrequency},
        {"\tturbulence_offset ", &XVolumeAxis::m_TurbulenceOffset},
        {"\tdetail_turbulence ", &XVolumeAxis::m_DetailTurbulence},
    };
    return {".\\src\\VKT\\VolumeAxis", rows};
}

XPropertyTable XVolumeAxis::Properties()
{
    static constexpr XPropertyInfo rows[] = {
        Field<&XVolumeAxis::m_Direction>(67, "direction", kAnimatable),
        Field<&XVolumeAxis::m_DirectionalSpeed>(68, "directional_speed", kAnimatable),
        Field<&XVolumeAxis::m_InvertAttenuation>(69, "invert_attenuation", kAnimatable),
        Field<&XVolumeAxis::m_SpeedAlongAxis>(70, "speed_along_axis", kAnimatable),
        Field<&XVolumeAxis::m_SpeedAroundAxis>(71, "speed_around_axis", kAnimatable),
        Field<&XVolumeAxis::m_SpeedAwayFromAxis>(72, "speed_away_from_axis", kAnimatable),
        Field<&XVolumeAxis::m_SpeedAwayFromCenter>(73, "speed_away_from_center", kAnimatable),
        Field<&XVolumeAxis::m_TurbulenceFrequency>(74, "turbulence_frequency", kAnimatable),
        Field<&XVolumeAxis::m_TurbulenceOffset>(75, "turbulence_offset", kAnimatable),
        Field<&XVolumeAxis::m_Turbulence>(76, "turbulence", kAnimatable),
        Field<&XVolumeAxis::m_TurbulenceSpeed>(77, "turbulence_speed", kAnimatable),
        Field<&XVolumeAxis::m_DetailTurbulence>(78, "detail_turbulence", kAnimatable),
    };
    return rows;
}

}  // namespace VKT
