#include "VKT/rigging/PoleVectorConstraint.h"

namespace VKT {

XBodyTable XPoleVectorConstraint::TextBody()
{
    static constexpr XBodyRow rows[] = {
        {"\tpivot_space\n", &XPoleVectorConstraint::m_PivotSpace},
    };
    return {".\\src\\VKT\\PoleVectorConstraint", rows};
}

XPropertyTable XPoleVectorConstraint::Properties()
{
    static constexpr XPropertyInfo rows[] = {
        Field<&XPoleVectorConstraint::m_PivotSpace>(60, "pivot_space"),
    };
    return rows;
}

}  // namespace VKT
