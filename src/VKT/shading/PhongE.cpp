#include "VKT/shading/PhongE.h"

namespace VKT {

XBodyTable XPhongE::TextBody()
{
    static constexpr XBodyRow rows[] = {
        {"\thighlight_size ", &XPhongE::m_HighlightSize},
        {"\troughness ", &XPhongE::m_Roughness},
    };
    return {".\\src\\VKT\\PhongE", rows};
}

XPropertyTable XPhongE::Properties()
{
    static constexpr XPropertyInfo rows[] = {
        Field<&XPhongE::m_HighlightSize>(10, "highlight_size", kAnimatable),
        Field<&XPhongE::m_Roughness>(11, "roughness", kAnimatable),
    };
    return rows;
}

}  // namespace VKT
