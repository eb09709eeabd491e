#include "VKT/rigging/PointConstraint.h"

namespace VKT {

XBodyTable XPointConstraint::TextBody()
{
    static constexpr XBodyRow rows[] = {
        {"\toffset ", &XPointConstraint::m_Offset},
    };
    return {".\\src\\VKT\\PointConstraint", rows};
}

XPropertyTable XPointConstraint::Properties()
{
    static constexpr XPropertyInfo rows[] = {
        Field<&XPointConstraint::m_Offset>(59, "offset", kAnimatable),
    };
    return rows;
}

}  // namespace VKT
