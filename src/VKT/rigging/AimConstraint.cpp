#include "VKT/rigging/AimConstraint.h"

namespace VKT {

XBodyTable XAimConstraint::TextBody()
{
    static constexpr XBodyRow rows[] = {
        {"\taim_vector ", &XAimConstraint::m_AimVector},
        {"\tup_vector ", &XAimConstraint::m_UpVector},
        {"\toffset ", &XAimConstraint::m_Offset},
    };
    return {".\\src\\VKT\\AimConstraint", rows};
}

XPropertyTable XAimConstraint::Properties()
{
    static constexpr XPropertyInfo rows[] = {
        Field<&XAimConstraint::m_Offset>(59, "offset", kAnimatable),
        Field<&XAimConstraint::m_AimVector>(60, "aim_vector"),
        Field<&XAimConstraint::m_UpVector>(61, "up_vector"),
    };
    return rows;
}

}  // namespace VKT
