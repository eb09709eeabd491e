#include "VKT/dynamics/VolumeSphere.h"

namespace VKT {

XBodyTable XVolumeSphere::TextBody()
{
    static constexpr XBodyRow rows[] = {
        {"\tradius ", &XVolumeSphere::m_Radius},
    };
    return {".\\src\\VKT\\VolumeSphere", rows};
}

XPropertyTable XVolumeSphere::Properties()
{
    static constexpr XPropertyInfo rows[] = {
        Field<&XVolumeSphere::m_Radius>(1, "radius", kAnimatable),
    };
    return rows;
}

}  // namespace VKT
