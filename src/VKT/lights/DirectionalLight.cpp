#include "VKT/lights/DirectionalLight.h"

namespace VKT {

XBodyTable XDirectionalLight::TextBody()
{
    static constexpr XBodyRow rows[] = {
        {"\tshadow_angle\t", &XDirectionalLight::m_ShadowAngle},
    };
    return {".\\src\\VKT\\DirectionalLight", rows};
}

XPropertyTable XDirectionalLight::Properties()
{
    static constexpr XPropertyInfo rows[] = {
        Field<&XDirectionalLight::m_ShadowAngle>(14, "shadow_angle", kAnimatable),
    };
    return rows;
}

}  // namespace VKT
