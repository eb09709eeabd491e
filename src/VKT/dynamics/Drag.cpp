#include "VKT/dynamics/Drag.h"

namespace VKT {

XBodyTable XDrag::TextBody()
{
    static constexpr XBodyRow rows[] = {
        {"\tdirection ", &XDrag::m_Direction},
        {"\tuse_direction ", &XDrag::m_UseDirection},
    };
    return {".\\src\\VKT\\Drag", rows};
}

XPropertyTable XDrag::Properties()
{
    static constexpr XPropertyInfo rows[] = {
        Field<&XDrag::m_Direction>(67, "direction", kAnimatable),
        Field<&XDrag::m_UseDirection>(68, "use_direction", kAnimatable),
    };
    return rows;
}

}  // namespace VKT
