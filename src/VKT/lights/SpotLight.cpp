#include "VKT/lights/SpotLight.h"

namespace VKT {

XBodyTable XSpotLight::TextBody()
{
    // clang-format off
    static constexpr XBodyRow rows[] = {
        { "\tcone_angle\t",              &XSpotLight::m_ConeAngle },
        { "\tpenumbra_angle\t",          &XSpotLight::m_PenumbraAngle },
        { "\tdrop_off\t",                &XSpotLight::m_DropOff },
        { "\tbarn_doors\t",              &XSpotLight::m_BarnDoors },
        { "\t\tleft_barn_door_angle\t",  &XSpotLight::m_LeftBarnDoorAngle },
        { "\t\tright_barn_door_angle\t", &XSpotLight::m_RightBarnDoorAngle },
        { "\t\ttop_barn_door_angle\t",   &XSpotLight::m_TopBarnDoorAngle },
        { "\t\tbottom_barn_door_angle\t", &XSpotLight::m_BottomBarnDoorAngle },
        { "\tuse_decay_regions\t",       &XSpotLight::m_UseDecayRegions },
        { "\t\tdecay_1\t",               &XSpotLight::m_FirstDecayStart, " " },
        { "",                            &XSpotLight::m_FirstDecayEnd },
        { "\t\tdecay_2\t",               &XSpotLight::m_SecondDecayStart, " " },
        { "",                            &XSpotLight::m_SecondDecayEnd },
        { "\t\tdecay_3\t",               &XSpotLight::m_ThirdDecayStart, " " },
        { "",                            &XSpotLight::m_ThirdDecayEnd },
    };
    // clang-format on
    return {".\\src\\VKT\\SpotLight", rows};
}

XPropertyTable XSpotLight::Properties()
{
    static constexpr XPropertyInfo rows[] = {
        Field<&XSpotLight::m_ConeAngle>(14, "cone_angle", kAnimatable),
        Field<&XSpotLight::m_PenumbraAngle>(15, "penumbra_angle", kAnimatable),
        Field<&XSpotLight::m_DropOff>(16, "drop_off", kAnimatable),
        Field<&XSpotLight::m_LeftBarnDoorAngle>(17, "left_barn_door_angle", kAnimatable),
        Field<&XSpotLight::m_RightBarnDoorAngle>(18, "right_barn_door_angle", kAnimatable),
        Field<&XSpotLight::m_TopBarnDoorAngle>(19, "top_barn_door_angle", kAnimatable),
        Field<&XSpotLight::m_BottomBarnDoorAngle>(20, "bottom_barn_door_angle", kAnimatable),
        Field<&XSpotLight::m_BarnDoors>(21, "has_barn_doors"),
        Field<&XSpotLight::m_UseDecayRegions>(22, "use_decay_regions"),
        Field<&XSpotLight::m_FirstDecayStart>(23, "first_decay_region_start"),
        Field<&XSpotLight::m_FirstDecayEnd>(24, "first_decay_region_end"),
        Field<&XSpotLight::m_SecondDecayStart>(25, "second_decay_region_start"),
        Field<&XSpotLight::m_SecondDecayEnd>(26, "second_decay_region_end"),
        Field<&XSpotLight::m_ThirdDecayStart>(27, "third_decay_region_start"),
        Field<&XSpotLight::m_ThirdDecayEnd>(28, "third_decay_region_end"),
    };
    return rows;
}

}  // namespace VKT
