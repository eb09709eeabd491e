#include "VKT/dynamics/Gravity.h"

namespace VKT {

XBodyTable XGravity::TextBody()
{
    static constexpr XBodyRow rows[] = {
        {"\tdirection ", &XGravity::m_Direction},
    };
    return {".\\src\\VKT\\Gravity", rows};
}

XPropertyTable XGravity::Properties()
{
    static constexpr XPropertyInfo rows[] = {
        Field<&XGravity::m_Direction>(67, "direction", kAnimatable),
    };
    return rows;
}

}  // namespace VKT
