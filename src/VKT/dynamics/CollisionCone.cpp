#include "VKT/dynamics/CollisionCone.h"

namespace VKT {

XBodyTable XCollisionCone::TextBody()
{
    static constexpr XBodyRow rows[] = {
        {"\tangle ", &XCollisionCone::m_Angle},
        {"\tcap ", &XCollisionCone::m_Cap},
    };
    return {".\\src\\VKT\\CollisionCone", rows};
}

XPropertyTable XCollisionCone::Properties()
{
    static constexpr XPropertyInfo rows[] = {
        Field<&XCollisionCone::m_Angle>(3, "angle"),
        Field<&XCollisionCone::m_Cap>(4, "cap"),
    };
    return rows;
}

}  // namespace VKT
