#include "VKT/lights/AmbientLight.h"

namespace VKT {

XBodyTable XAmbientLight::TextBody()
{
    static constexpr XBodyRow rows[] = {
        {"\tambient_shade\t", &XAmbientLight::m_AmbientShade},
        {"\tcast_soft_shadows\t", &XAmbientLight::m_CastSoftShadows},
        {"\tshadow_radius\t", &XAmbientLight::m_ShadowRadius},
    };
    return {".\\src\\VKT\\AmbientLight", rows};
}

// Kept on purpose: the vocabulary says `casts_soft_shadows` where files say
// `cast_soft_shadows`.
XPropertyTable XAmbientLight::Properties()
{
    static constexpr XPropertyInfo rows[] = {
        Field<&XAmbientLight::m_AmbientShade>(7, "ambient_shade", kAnimatable),
        Field<&XAmbientLight::m_ShadowRadius>(8, "shadow_radius", kAnimatable),
        Field<&XAmbientLight::m_CastSoftShadows>(9, "casts_soft_shadows"),
    };
    return rows;
}

}  // namespace VKT
