#include "VKT/lights/Light.h"

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

// A colour of a light is three floats: the fourth of one that is set counts for nothing.
XPropertyTable XLight::Properties()
{
    static constexpr auto setColour = [](XBase& node, const XColour& value) {
        As<XLight>(node).SetColour(value.r, value.g, value.b);
        return true;
    };
    static constexpr auto setShadowColour = [](XBase& node, const XColour& value) {
        As<XLight>(node).SetShadowColour(value.r, value.g, value.b);
        return true;
    };
    static constexpr auto getColour = [](const XBase& node, XColour& value) {
        value = As<XLight>(node).GetColour();
        return true;
    };
    static constexpr auto getShadowColour = [](const XBase& node, XColour& value) {
        value = As<XLight>(node).GetShadowColour();
        return true;
    };
    static constexpr XPropertyInfo rows[] = {
        Field<&XLight::m_Intensity>(1, "intensity", kAnimatable),
        Computed<XColour>(2, "colour", kAnimatable, getColour, setColour),
        Computed<XColour>(3, "shadow_colour", kAnimatable, getShadowColour, setShadowColour),
        Field<&XLight::m_EmitAmbient>(4, "emit_ambient"),
        Field<&XLight::m_EmitDiffuse>(5, "emit_diffuse"),
        Field<&XLight::m_EmitSpecular>(6, "emit_specular"),
    };
    return rows;
}

}  // namespace VKT
