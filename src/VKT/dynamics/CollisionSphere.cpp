#include "VKT/dynamics/CollisionSphere.h"

namespace VKT {

XBodyTable XCollisionSphere::TextBody()
{
    static constexpr XBodyRow rows[] = {
        {"\tradius ", &XCollisionSphere::m_Radius},
    };
    return {".\\src\\VKT\\CollisionSphere", rows};
}

XPropertyTable XCollisionSphere::Properties()
{
    static constexpr XPropertyInfo rows[] = {
        Field<&XCollisionSphere::m_Radius>(3, "radius"),
    };
    return rows;
}

}  // namespace VKT
