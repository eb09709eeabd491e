#include "VKT/deformers/WrapDeformer.h"

#include "VKT/document/Model.h"
#include "VKT/geometry/Geometry.h"

namespace VKT {

XGeometry* XWrapDeformer::GetDriverGeometry() const
{
    return XCast<XGeometry>(GetModel()->FindNode(m_DriverGeometry));
}

void XWrapDeformer::SetDriverGeometry(const XGeometry* geometry)
{
    m_DriverGeometry = geometry ? geometry->GetID() : 0;
}

bool XWrapDeformer::NodeDeath(u32 id)
{
    if (m_DriverGeometry == id)
        m_DriverGeometry = 0;
    return XDeformer::NodeDeath(id);
}

XBodyTable XWrapDeformer::TextBody()
{
    static constexpr XBodyRow rows[] = {
        {"\tdropoff ", &XWrapDeformer::m_Dropoff},
        {"\tsmoothness ", &XWrapDeformer::m_Smoothness},
        {"\tweight_threshold ", &XWrapDeformer::m_WeightThreshold},
        {"\tmax_distance ", &XWrapDeformer::m_MaxDistance},
        {"\tinfluence_type ", &XWrapDeformer::m_InfluenceType},
        {"\tnurbs_samples ", &XWrapDeformer::m_NurbsSamples},
        {"\tdriver_geometry ", NodeId(&XWrapDeformer::m_DriverGeometry)},
    };
    return {".\\src\\VKT\\WrapDeformer", rows};
}

XPropertyTable XWrapDeformer::Properties()
{
    static constexpr XPropertyInfo rows[] = {
        Field<&XWrapDeformer::m_Dropoff>(3, "dropoff", kAnimatable),
        Field<&XWrapDeformer::m_Smoothness>(4, "smoothness", kAnimatable),
        Field<&XWrapDeformer::m_WeightThreshold>(5, "weight_threshold", kAnimatable),
        Field<&XWrapDeformer::m_MaxDistance>(6, "max_distance", kAnimatable),
        AsInteger<&XWrapDeformer::m_InfluenceType>(7, "influence_type"),
        AsInteger<&XWrapDeformer::m_NurbsSamples>(8, "nurbs_samples"),
        NodeField<&XWrapDeformer::m_DriverGeometry, kFnGeometry>(9, "driver_geometry"),
    };
    return rows;
}

}  // namespace VKT
