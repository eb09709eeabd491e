#include "VKT/lights/Camera.h"

namespace VKT {

XBodyTable XCamera::TextBody()
{
    static constexpr XBodyRow rows[] = {
        {"\taspect ", &XCamera::m_Aspect},
        {"\tnear ", &XCamera::m_NearDistance},
        {"\tfar ", &XCamera::m_FarDistance},
        {"\thoriz_aspect ", &XCamera::m_HorizontalAspect},
        {"\tvert_aspect ", &XCamera::m_VerticalAspect},
    };
    return {".\\src\\VKT\\Camera", rows};
}

XPropertyTable XCamera::Properties()
{
    static constexpr XPropertyInfo rows[] = {
        Field<&XCamera::m_Aspect>(1, "aspect", kAnimatable),
        Field<&XCamera::m_NearDistance>(2, "near", kAnimatable),
        Field<&XCamera::m_FarDistance>(3, "far", kAnimatable),
        Field<&XCamera::m_HorizontalAspect>(4, "horiz_aspect", kAnimatable),
        Field<&XCamera::m_VerticalAspect>(5, "vert_aspect", kAnimatable),
    };
    return rows;
}

}  // namespace VKT
