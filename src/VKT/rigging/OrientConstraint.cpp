#include "VKT/rigging/OrientConstraint.h"

namespace VKT {

XBodyTable XOrientConstraint::TextBody()
{
    static constexpr XBodyRow rows[] = {
        {"\toffset ", &XOrientConstraint::m_Offset},
    };
    return {".\\src\\VKT\\OrientConstraint", rows};
}

XPropertyTable XOrientConstraint::Properties()
{
    static constexpr XPropertyInfo rows[] = {
        Field<&XOrientConstraint::m_Offset>(59, "offset", kAnimatable),
    };
    return rows;
}

}  // namespace VKT
