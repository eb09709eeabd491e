#include "VKT/dynamics/VolumeCylinder.h"

namespace VKT {

XBodyTable XVolumeCylinder::TextBody()
{
    static constexpr XBodyRow rows[] = {
        {"\tradius ", &XVolumeCylinder::m_Radius},
        {"\theight ", &XVolumeCylinder::m_Height},
    };
    return {".\\src\\VKT\\VolumeCylinder", rows};
}

XPropertyTable XVolumeCylinder::Properties()
{
    static constexpr XPropertyInfo rows[] = {
        Field<&XVolumeCylinder::m_Radius>(1, "radius", kAnimatable),
        Field<&XVolumeCylinder::m_Height>(2, "height", kAnimatable),
    };
    return rows;
}

}  // namespace VKT
