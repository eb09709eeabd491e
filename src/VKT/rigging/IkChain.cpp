#include "VKT/rigging/IkChain.h"

#include <algorithm>

#include "VKT/document/Model.h"
#include "VKT/hierarchy/Bone.h"

namespace VKT {

bool XIkChain::GetChain(XBoneList& out) const
{
    out.clear();
    for (const u32 id : m_Chain)
        if (XBone* bone = XCast<XBone>(GetModel()->FindNode(id)))
            out.push_back(bone);
    return !out.empty();
}

bool XIkChain::SetChain(const XBoneList& chain)
{
    return ToIds(*this, XNodeList(chain.begin(), chain.end()), kFnBone, m_Chain);
}

XBone* XIkChain::GetHandle() const
{
    return XCast<XBone>(GetModel()->FindNode(m_Handle));
}

void XIkChain::SetHandle(const XBone* handle)
{
    m_Handle = handle ? handle->GetID() : 0;
}

XBone* XIkChain::GetPoleConstraint() const
{
    return XCast<XBone>(GetModel()->FindNode(m_PoleConstraint));
}

void XIkChain::SetPoleConstraint(const XBone* constraint)
{
    m_PoleConstraint = constraint ? constraint->GetID() : 0;
}

bool XIkChain::NodeDeath(u32 id)
{
    EraseFirst(m_Chain, id);
    for (u32* node : {&m_Handle, &m_PoleConstraint})
        if (*node == id)
            *node = 0;
    return XBase::NodeDeath(id);
}

XBodyTable XIkChain::TextBody()
{
    static constexpr XBodyRow rows[] = {
        {"\thandle ", NodeId(&XIkChain::m_Handle)},
        {"\tpriority ", &XIkChain::m_Priority},
        {"\tmax_iterations ", &XIkChain::m_MaxIterations},
        {"\tweight ", &XIkChain::m_Weight},
        {"\tpoweight ", &XIkChain::m_OrientationWeight},
        {"\ttolerance ", &XIkChain::m_Tolerance},
        {"\tstickiness ", &XIkChain::m_Stickiness},
        {"\tpole_vector ", &XIkChain::m_PoleVector},
        {"\tpole_constraint ", NodeId(&XIkChain::m_PoleConstraint)},
        {"\tchain ", InOneLine(&XIkChain::m_Chain)},
    };
    return {".\\src\\VKT\\IkChain", rows};
}

// Kept on purpose: the vocabulary has the priority without a sign, and the iterations with
// one.
XPropertyTable XIkChain::Properties()
{
    static constexpr auto getPriority = [](const XBase& node, u32& value) {
        value = static_cast<u32>(As<XIkChain>(node).m_Priority);
        return true;
    };
    static constexpr auto setPriority = [](XBase& node, const u32& value) {
        As<XIkChain>(node).m_Priority = static_cast<i32>(value);
        return true;
    };
    static constexpr XPropertyInfo rows[] = {
        NodeListField<&XIkChain::m_Chain, kFnBone>(1, "chain", kList),
        NodeField<&XIkChain::m_Handle, kFnBone>(2, "handle"),
        Computed<u32>(3, "priority", 0, getPriority, setPriority),
        AsInteger<&XIkChain::m_MaxIterations>(4, "max_iterations"),
        Field<&XIkChain::m_Weight>(5, "weight"),
        Field<&XIkChain::m_OrientationWeight>(6, "poweight"),
        Field<&XIkChain::m_Tolerance>(7, "tolerance"),
        Field<&XIkChain::m_Stickiness>(8, "stickiness"),
        Field<&XIkChain::m_PoleVector>(9, "pole_vector"),
        NodeField<&XIkChain::m_PoleConstraint, kFnBone>(10, "pole_constraint"),
    };
    return rows;
}

}  // namespace VKT
