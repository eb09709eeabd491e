#include "VKT/rigging/LookAtConstraint.h"

namespace VKT {

XBodyTable XLookAtConstraint::TextBody()
{
    static constexpr XBodyRow rows[] = {
        {"\tdistance_between ", &XLookAtConstraint::m_DistanceBetween},
        {"\ttwist ", &XLookAtConstraint::m_Twist},
    };
    return {".\\src\\VKT\\LookAtConstraint", rows};
}

XPropertyTable XLookAtConstraint::Properties()
{
    static constexpr XPropertyInfo rows[] = {
        Field<&XLookAtConstraint::m_DistanceBetween>(62, "distance_between", kAnimatable),
        Field<&XLookAtConstraint::m_Twist>(63, "twist", kAnimatable),
    };
    return rows;
}

}  // namespace VKT
