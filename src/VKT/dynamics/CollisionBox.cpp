#include "VKT/dynamics/CollisionBox.h"

namespace VKT {

XBodyTable XCollisionBox::TextBody()
{
    static constexpr XBodyRow rows[] = {
        {"\tx_size ", &XCollisionBox::m_XSize},
        {"\ty_size ", &XCollisionBox::m_YSize},
        {"\tz_size ", &XCollisionBox::m_ZSize},
    };
    return {".\\src\\VKT\\CollisionBox", rows};
}

XPropertyTable XCollisionBox::Properties()
{
    static constexpr XPropertyInfo rows[] = {
        Field<&XCollisionBox::m_XSize>(3, "x_size"),
        Field<&XCollisionBox::m_YSize>(4, "y_size"),
        Field<&XCollisionBox::m_ZSize>(5, "z_size"),
    };
    return rows;
}

}  // namespace VKT
