#include "VKT/lights/ExtendedLight.h"

namespace VKT {

XBodyTable XExtendedLight::TextBody()
{
    // clang-format off
    static constexpr XBodyRow rows[] = {
        { "\tuse_depth_map_shadows\t", &XExtendedLight::m_UseDepthMapShadows },
        { "\tcast_soft_shadows\t",     &XExtendedLight::m_CastSoftShadows },
        { "\tshadow_radius\t",         &XExtendedLight::m_ShadowRadius },
        { "\tdecay_rate\t",            &XExtendedLight::m_DecayRate },
        { "\tdepth_map_filter_size\t", &XExtendedLight::m_DepthMapFilterSize },
        { "\tdepth_map_resolution\t",  &XExtendedLight::m_DepthMapResolution },
        { "\tdepth_map_bias\t",        &XExtendedLight::m_DepthMapBias },
    };
    // clang-format on
    return {".\\src\\VKT\\ExtendedLight", rows};
}

// Kept on purpose: the vocabulary says `casts_soft_shadows` where files say
// `cast_soft_shadows`.
XPropertyTable XExtendedLight::Properties()
{
    static constexpr XPropertyInfo rows[] = {
        Field<&XExtendedLight::m_ShadowRadius>(7, "shadow_radius", kAnimatable),
        Field<&XExtendedLight::m_DecayRate>(8, "decay_rate", kAnimatable),
        Field<&XExtendedLight::m_DepthMapFilterSize>(9, "depth_map_filter_size", kAnimatable),
        Field<&XExtendedLight::m_DepthMapResolution>(10, "depth_map_resolution", kAnimatable),
        Field<&XExtendedLight::m_DepthMapBias>(11, "depth_map_bias", kAnimatable),
        Field<&XExtendedLight::m_UseDepthMapShadows>(12, "use_depth_map_shadows"),
        Field<&XExtendedLight::m_CastSoftShadows>(13, "casts_soft_shadows"),
    };
    return rows;
}

}  // namespace VKT
