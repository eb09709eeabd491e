#include "VKT/shading/CubeMap.h"

namespace VKT {

XCubeMap::XCubeMap(XModel* model) : XNodeClass(model)
{
    SetImages(XIndexList(6, 0));
}

bool XCubeMap::WriteChunk(XTextWriter& out) const
{
    return XNodeClass::WriteChunk(out) && (m_Dynamic || WriteTextBody(*this, FacesBody(), out));
}

bool XCubeMap::ReadFields(XTextReader& in)
{
    return XNodeClass::ReadFields(in) && (m_Dynamic || ReadTextBody(*this, FacesBody(), in));
}

XBodyTable XCubeMap::TextBody()
{
    static constexpr XBodyRow rows[] = {
        {"\tdynamic ", &XCubeMap::m_Dynamic},
        {"\tplacement ", NodeId(&XCubeMap::m_Placement)},
    };
    return {".\\src\\VKT\\CubeMap", rows};
}

XBodyTable XCubeMap::FacesBody()
{
    static constexpr XBodyRow rows[] = {
        {"\tleft ", ImageId<kLeft>()},     {"\tright ", ImageId<kRight>()}, {"\ttop ", ImageId<kTop>()},
        {"\tbottom ", ImageId<kBottom>()}, {"\tfront ", ImageId<kFront>()}, {"\tback ", ImageId<kBack>()},
    };
    return {".\\src\\VKT\\CubeMap faces", rows};
}

// The bases hold the placement and the images.
XBodyTable XCubeMap::BinaryBody()
{
    static constexpr XBodyRow rows[] = {&XCubeMap::m_Dynamic};
    return {".\\src\\VKT\\CubeMap", rows};
}

XPropertyTable XCubeMap::Properties()
{
    static constexpr XPropertyInfo rows[] = {
        Field<&XCubeMap::m_Dynamic>(2, "dynamic"),
        ImageNode<kLeft>(3, "left"),
        ImageNode<kRight>(4, "right"),
        ImageNode<kTop>(5, "top"),
        ImageNode<kBottom>(6, "bottom"),
        ImageNode<kFront>(7, "front"),
        ImageNode<kBack>(8, "back"),
    };
    return rows;
}

}  // namespace VKT
