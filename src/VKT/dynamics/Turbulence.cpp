#include "VKT/dynamics/Turbulence.h"

namespace VKT {

XBodyTable XTurbulence::TextBody()
{
    static constexpr XBodyRow rows[] = {
        {"\tfrequency ", &XTurbulence::m_Frequency},
        Below(4, {"\tphase ", FirstOf(&XTurbulence::m_Phase)}),
        Since(4, {"\tphase ", &XTurbulence::m_Phase}),
    };
    return {".\\src\\VKT\\Turbulence", rows};
}

XPropertyTable XTurbulence::Properties()
{
    static constexpr XPropertyInfo rows[] = {
        Field<&XTurbulence::m_Frequency>(67, "frequency", kAnimatable),
        Field<&XTurbulence::m_Phase>(68, "phase", kAnimatable),
    };
    return rows;
}

}  // namespace VKT
