#include "VKT/deformers/SculptDeformer.h"

#include "VKT/document/Model.h"
#include "VKT/hierarchy/Shape.h"

namespace VKT {

XShape* XSculptDeformer::GetSculptObject() const
{
    return XCast<XShape>(GetModel()->FindNode(m_SculptObject));
}

void XSculptDeformer::SetSculptObject(const XShape* shape)
{
    m_SculptObject = shape ? shape->GetID() : 0;
}

XShape* XSculptDeformer::GetStartObject() const
{
    return XCast<XShape>(GetModel()->FindNode(m_StartObject));
}

void XSculptDeformer::SetStartObject(const XShape* shape)
{
    m_StartObject = shape ? shape->GetID() : 0;
}

void XSculptDeformer::PreDelete(std::set<u32>& ids)
{
    XDeformer::PreDelete(ids);
    if (!GetModel()->GetDeleteFlags().Test(DeleteDeformerInputs))
        return;
    for (const u32 id : {m_SculptObject, m_StartObject})
        if (id != 0)
            ids.insert(id);
}

XBodyTable XSculptDeformer::TextBody()
{
    static constexpr XBodyRow rows[] = {
        {"\tmode ", &XSculptDeformer::m_Mode},
        {"\tinside_mode ", &XSculptDeformer::m_InsideMode},
        {"\tmaximum_displacement ", &XSculptDeformer::m_MaximumDisplacement},
        {"\tdropoff_type ", &XSculptDeformer::m_DropoffType},
        {"\tdropoff_distance ", &XSculptDeformer::m_DropoffDistance},
        {"\tstart_position ", &XSculptDeformer::m_StartPosition},
        {"\tsculpt_object ", NodeId(&XSculptDeformer::m_SculptObject)},
        {"\tstart_object ", NodeId(&XSculptDeformer::m_StartObject)},
    };
    return {".\\src\\VKT\\SculptDeformer", rows};
}

XPropertyTable XSculptDeformer::Properties()
{
    static constexpr XPropertyInfo rows[] = {
        Field<&XSculptDeformer::m_MaximumDisplacement>(3, "max_displacement", kAnimatable),
        Field<&XSculptDeformer::m_StartPosition>(4, "start_position", kAnimatable),
        Field<&XSculptDeformer::m_DropoffDistance>(5, "dropoff_distance", kAnimatable),
        AsInteger<&XSculptDeformer::m_Mode>(6, "mode"),
        AsInteger<&XSculptDeformer::m_InsideMode>(7, "inside_mode"),
        AsInteger<&XSculptDeformer::m_DropoffType>(8, "dropoff_type"),
        NodeField<&XSculptDeformer::m_SculptObject, kFnShape>(9, "sculpt_object"),
        NodeField<&XSculptDeformer::m_StartObject, kFnShape>(10, "start_object"),
    };
    return rows;
}

}  // namespace VKT
