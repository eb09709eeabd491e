#include "VKT/dynamics/VolumeCone.h"

namespace VKT {

XBodyTable XVolumeCone::TextBody()
{
    static constexpr XBodyRow rows[] = {
        {"\tangle ", &XVolumeCone::m_Angle},
        {"\tcap ", &XVolumeCone::m_Cap},
    };
    return {".\\src\\VKT\\VolumeCone", rows};
}

XPropertyTable XVolumeCone::Properties()
{
    static constexpr XPropertyInfo rows[] = {
        Field<&XVolumeCone::m_Angle>(1, "angle", kAnimatable),
        Field<&XVolumeCone::m_Cap>(2, "cap", kAnimatable),
    };
    return rows;
}

}  // namespace VKT
