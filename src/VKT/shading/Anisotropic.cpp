#include "VKT/shading/Anisotropic.h"

namespace VKT {

XBodyTable XAnisotropic::TextBody()
{
    static constexpr XBodyRow rows[] = {
        {"\ttangentu ", &XAnisotropic::m_TangentU},
        {"\ttangentv ", &XAnisotropic::m_TangentV},
        {"\tcorrelation_x ", &XAnisotropic::m_CorrelationX},
        {"\tcorrelation_y ", &XAnisotropic::m_CorrelationY},
        {"\troughness ", &XAnisotropic::m_Roughness},
        {"\trotate_angle ", &XAnisotropic::m_RotateAngle},
        {"\trefractive_index ", &XAnisotropic::m_RefractiveIndex},
        {"\tanisotropic_reflectivity ", &XAnisotropic::m_AnisotropicReflectivity},
    };
    return {".\\src\\VKT\\Anisotropic", rows};
}

XPropertyTable XAnisotropic::Properties()
{
    static constexpr XPropertyInfo rows[] = {
        Field<&XAnisotropic::m_TangentU>(10, "tangentu", kAnimatable),
        Field<&XAnisotropic::m_TangentV>(11, "tangentv", kAnimatable),
        Field<&XAnisotropic::m_CorrelationX>(12, "correlation_x", kAnimatable),
        Field<&XAnisotropic::m_CorrelationY>(13, "correlation_y", kAnimatable),
        Field<&XAnisotropic::m_Roughness>(14, "roughness", kAnimatable),
        Field<&XAnisotropic::m_RotateAngle>(15, "rotate_angle", kAnimatable),
        Field<&XAnisotropic::m_RefractiveIndex>(16, "refractive_index", kAnimatable),
    };
    return rows;
}

}  // namespace VKT
