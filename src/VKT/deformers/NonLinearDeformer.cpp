#include "VKT/deformers/NonLinearDeformer.h"

#include "VKT/document/Model.h"
#include "VKT/hierarchy/Bone.h"

namespace VKT {

XBone* XNonLinearDeformer::GetHandle() const
{
    return XCast<XBone>(GetModel()->FindNode(m_Handle));
}

void XNonLinearDeformer::SetHandle(const XBone* handle)
{
    m_Handle = handle ? handle->GetID() : 0;
}

bool XNonLinearDeformer::NodeDeath(u32 id)
{
    if (m_Handle == id)
        m_Handle = 0;
    return XDeformer::NodeDeath(id);
}

XBodyTable XNonLinearDeformer::TextBody()
{
    static constexpr XBodyRow rows[] = {
        {"\thandle ", NodeId(&XNonLinearDeformer::m_Handle)},
    };
    return {kNonLinearSource, rows};
}

XPropertyTable XNonLinearDeformer::Properties()
{
    static constexpr XPropertyInfo rows[] = {
        NodeField<&XNonLinearDeformer::m_Handle, kFnBone>(3, "handle"),
    };
    return rows;
}

}  // namespace VKT
