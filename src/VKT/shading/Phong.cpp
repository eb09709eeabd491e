#include "VKT/shading/Phong.h"

namespace VKT {

XBodyTable XPhong::TextBody()
{
    static constexpr XBodyRow rows[] = {{"\tshininess ", &XPhong::m_Shininess}};
    return {".\\src\\VKT\\Phong", rows};
}

// Below version 4 the body of the base held it.
XBodyTable XPhong::BinaryBody()
{
    static constexpr XBodyRow rows[] = {ReadSince(4, &XPhong::m_Shininess)};
    return {".\\src\\VKT\\Phong", rows};
}

}  // namespace VKT
