#include "VKT/rigging/NormalConstraint.h"

namespace VKT {

XBodyTable XNormalConstraint::TextBody()
{
    static constexpr XBodyRow rows[] = {
        {"\taim_vector ", &XNormalConstraint::m_AimVector},
        {"\tup_vector ", &XNormalConstraint::m_UpVector},
    };
    return {".\\src\\VKT\\NormalConstraint", rows};
}

XPropertyTable XNormalConstraint::Properties()
{
    static constexpr XPropertyInfo rows[] = {
        Field<&XNormalConstraint::m_AimVector>(59, "aim_vector"),
        Field<&XNormalConstraint::m_UpVector>(60, "up_vector"),
    };
    return rows;
}

}  // namespace VKT
