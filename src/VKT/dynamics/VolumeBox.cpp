#include "VKT/dynamics/VolumeBox.h"

namespace VKT {

XBodyTable XVolumeBox::TextBody()
{
    static constexpr XBodyRow rows[] = {
        {"\tx_size ", &XVolumeBox::m_XSize},
        {"\ty_size ", &XVolumeBox::m_YSize},
        {"\tz_size ", &XVolumeBox::m_ZSize},
    };
    return {".\\src\\VKT\\VolumeBox", rows};
}

XPropertyTable XVolumeBox::Properties()
{
    static constexpr XPropertyInfo rows[] = {
        Field<&XVolumeBox::m_XSize>(1, "x_size", kAnimatable),
        Field<&XVolumeBox::m_YSize>(2, "y_size", kAnimatable),
        Field<&XVolumeBox::m_ZSize>(3, "z_size", kAnimatable),
    };
    return rows;
}

}  // namespace VKT
