#include "VKT/Light.h"

namespace VKT {

XBodyTable XLight::TextBody()
{
    // clang-format off
    static constexpr XBodyRow rows[] = {
        { "\tcolour\t\t",       FirstThree(&XLight::m_Colour) },
        { "\tintensity\t",      &XLight::m_Intensity },
        { "\tshadow_colour\t",  FirstThree(&XLight::m_ShadowColour) },
        Since(4, { "\temit_ambient ",  &XLight::m_EmitAmbient }),
        Since(4, { "\temit_diffuse ",  &XLight::m_EmitDiffuse }),
        Since(4, { "\temit_specular ", &XLight::m_EmitSpecular }),
    };
    // clang-format on
    return {".\\src\\VKT\\Light", rows};
}

XPropertyTable XLight::Properties()
{
    static constexpr XPropertyRow rows[] = {
        Field<&XLight::m_Intensity>(1, "intensity", kAnimatable),
        Field<&XLight::m_Colour>(2, "colour", kAnimatable),
        Field<&XLight::m_ShadowColour>(3, "shadow_colour", kAnimatable),
        Field<&XLight::m_EmitAmbient>(4, "emit_ambient"),
        Field<&XLight::m_EmitDiffuse>(5, "emit_diffuse"),
        Field<&XLight::m_EmitSpecular>(6, "emit_specular"),
    };
    return rows;
}

}  // namespace VKT
