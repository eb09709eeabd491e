#include "VKT/dynamics/Radial.h"

namespace VKT {

XBodyTable XRadial::TextBody()
{
    static constexpr XBodyRow rows[] = {
        {"\tradial_type ", &XRadial::m_RadialType},
    };
    return {".\\src\\VKT\\Radial", rows};
}

XPropertyTable XRadial::Properties()
{
    static constexpr XPropertyInfo rows[] = {
        Field<&XRadial::m_RadialType>(67, "radial_type", kAnimatable),
    };
    return rows;
}

}  // namespace VKT
