#include "VKT/hierarchy/BoneWalk.h"

#include "VKT/document/Model.h"

namespace VKT {

XBoneWalk::XBoneWalk(XModel& model) : m_Model(model), m_Number(model.GetBoneLinks().StartWalk()) {}

// Whether this is the first time.
bool XBoneWalk::Arrive(XBone& bone, u32 from)
{
    if (bone.m_Walk == m_Number)
        return false;
    bone.m_Walk = m_Number;
    bone.m_WalkedFrom = from;
    ++m_NumVisited;
    return true;
}

XBone* XBoneWalk::TakeEdge(const XBone& parent, u32 id)
{
    XBone* const child = XCast<XBone>(m_Model.FindNode(id));
    if (!child || Arrive(*child, parent.GetID()))
        return child;
    const bool isOther =
        child->m_WalkedFrom != parent.GetID() && m_OtherEdges.insert(u64{parent.GetID()} << 32 | id).second;
    return isOther ? child : nullptr;
}

}  // namespace VKT
