#include "VKT/shading/SphereMap.h"

namespace VKT {

XSphereMap::XSphereMap(XModel* model) : XNodeClass(model)
{
    SetImageId(0);
}

// In binary files the bases hold both.
XBodyTable XSphereMap::TextBody()
{
    static constexpr XBodyRow rows[] = {
        {"\timage ", ImageId<0>()},
        {"\tplacement ", NodeId(&XSphereMap::m_Placement)},
    };
    return {".\\src\\VKT\\SphereMap", rows};
}

XPropertyTable XSphereMap::Properties()
{
    static constexpr XPropertyInfo rows[] = {ImageNode<0>(2, "image")};
    return rows;
}

}  // namespace VKT
