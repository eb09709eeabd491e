#include "VKT/dynamics/CollisionObject.h"

namespace VKT {

XBodyTable XCollisionObject::TextBody()
{
    static constexpr XBodyRow rows[] = {
        {"\tgravity_scale ", &XCollisionObject::m_GravityScale},
        {"\tmass ", &XCollisionObject::m_Mass},
    };
    return {".\\src\\VKT\\CollisionObject", rows};
}

XPropertyTable XCollisionObject::Properties()
{
    static constexpr XPropertyInfo rows[] = {
        Field<&XCollisionObject::m_GravityScale>(1, "gravity_scale"),
        Field<&XCollisionObject::m_Mass>(2, "mass"),
    };
    return rows;
}

}  // namespace VKT
