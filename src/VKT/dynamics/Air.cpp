#include "VKT/dynamics/Air.h"

namespace VKT {

XBodyTable XAir::TextBody()
{
    static constexpr XBodyRow rows[] = {
        {"\tdirection ", &XAir::m_Direction},
        {"\tspeed ", &XAir::m_Speed},
        {"\tinherit_velocity ", &XAir::m_InheritVelocity},
        {"\tinherit_rotation ", &XAir::m_InheritRotation},
        {"\tcomponent_only ", &XAir::m_ComponentOnly},
        {"\tspread ", &XAir::m_Spread},
        {"\tenable_spread ", &XAir::m_EnableSpread},
    };
    return {".\\src\\VKT\\Air", rows};
}

XPropertyTable XAir::Properties()
{
    static constexpr XPropertyInfo rows[] = {
        Field<&XAir::m_Speed>(67, "speed", kAnimatable),
        Field<&XAir::m_Spread>(68, "spread", kAnimatable),
        Field<&XAir::m_Direction>(69, "direction", kAnimatable),
        Field<&XAir::m_EnableSpread>(70, "enable_spread", kAnimatable),
        Field<&XAir::m_ComponentOnly>(71, "component_only", kAnimatable),
        Field<&XAir::m_InheritRotation>(72, "inherit_rotation", kAnimatable),
        Field<&XAir::m_InheritVelocity>(73, "inherit_velocity", kAnimatable),
    };
    return rows;
}

}  // namespace VKT
