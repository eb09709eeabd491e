#include "VKT/rigging/TangentConstraint.h"

namespace VKT {

XBodyTable XTangentConstraint::TextBody()
{
    static constexpr XBodyRow rows[] = {
        {"\taim_vector ", &XTangentConstraint::m_AimVector},
        {"\tup_vector ", &XTangentConstraint::m_UpVector},
    };
    return {".\\src\\VKT\\TangentConstraint", rows};
}

XPropertyTable XTangentConstraint::Properties()
{
    static constexpr XPropertyInfo rows[] = {
        Field<&XTangentConstraint::m_AimVector>(59, "aim_vector"),
        Field<&XTangentConstraint::m_UpVector>(60, "up_vector"),
    };
    return rows;
}

}  // namespace VKT
