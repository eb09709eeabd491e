#include "VKT/dynamics/Newton.h"

namespace VKT {

XBodyTable XNewton::TextBody()
{
    static constexpr XBodyRow rows[] = {
        {"\tmin_distance ", &XNewton::m_MinDistance},
    };
    return {".\\src\\VKT\\Newton", rows};
}

XPropertyTable XNewton::Properties()
{
    static constexpr XPropertyInfo rows[] = {
        Field<&XNewton::m_MinDistance>(67, "min_distance", kAnimatable),
    };
    return rows;
}

}  // namespace VKT
