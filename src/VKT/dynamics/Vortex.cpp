#include "VKT/dynamics/Vortex.h"

namespace VKT {

XBodyTable XVortex::TextBody()
{
    static constexpr XBodyRow rows[] = {
        {"\taxis ", &XVortex::m_Axis},
    };
    return {".\\src\\VKT\\Vortex", rows};
}

XPropertyTable XVortex::Properties()
{
    static constexpr XPropertyInfo rows[] = {
        Field<&XVortex::m_Axis>(67, "axis", kAnimatable),
    };
    return rows;
}

}  // namespace VKT
