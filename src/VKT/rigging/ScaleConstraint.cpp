#include "VKT/rigging/ScaleConstraint.h"

namespace VKT {

XBodyTable XScaleConstraint::TextBody()
{
    static constexpr XBodyRow rows[] = {
        {"\toffset ", &XScaleConstraint::m_Offset},
    };
    return {".\\src\\VKT\\ScaleConstraint", rows};
}

XPropertyTable XScaleConstraint::Properties()
{
    static constexpr XPropertyInfo rows[] = {
        Field<&XScaleConstraint::m_Offset>(59, "offset", kAnimatable),
    };
    return rows;
}

}  // namespace VKT
