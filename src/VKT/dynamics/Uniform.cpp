#include "VKT/dynamics/Uniform.h"

namespace VKT {

XBodyTable XUniform::TextBody()
{
    static constexpr XBodyRow rows[] = {
        {"\tdirection ", &XUniform::m_Direction},
    };
    return {".\\src\\VKT\\Uniform", rows};
}

XPropertyTable XUniform::Properties()
{
    static constexpr XPropertyInfo rows[] = {
        Field<&XUniform::m_Direction>(67, "direction", kAnimatable),
    };
    return rows;
}

}  // namespace VKT
