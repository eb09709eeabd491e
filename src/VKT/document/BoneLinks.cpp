#include "VKT/document/BoneLinks.h"

#include <algorithm>

#include "VKT/document/Model.h"
#include "VKT/hierarchy/Bone.h"

namespace VKT {

bool XBoneLinks::IsBelow(const XModel& model, const XBone& bone, const XBone& top)
{
    Compare(model);
    if (bone.GetParentId() == 0 && m_OtherListers.empty())
        return false;
    std::unordered_set<u32, XIdHash> seen;
    XIndexList pending{bone.GetID()};
    while (!pending.empty()) {
        const u32 id = pending.back();
        pending.pop_back();
        const XBone* const below = XCast<XBone>(model.FindNode(id));
        if (!below || !seen.insert(id).second)
            continue;
        const std::size_t first = pending.size();
        if (below->GetParentId() != 0 && !m_Unlisted.contains(id))
            pending.push_back(below->GetParentId());
        if (const auto others = m_OtherListers.find(id); others != m_OtherListers.end())
            pending.insert(pending.end(), others->second.begin(), others->second.end());
        if (std::find(pending.begin() + static_cast<std::ptrdiff_t>(first), pending.end(), top.GetID()) !=
            pending.end())
            return true;
    }
    return false;
}

void XBoneLinks::Move(const XModel& model, const XBone& bone)
{
    Compare(model);
    if (m_Unlisted.erase(bone.GetID()) == 0 && bone.GetParent())
        m_OtherListers[bone.GetID()].push_back(bone.GetParentId());
}

void XBoneLinks::Relist(const XModel& model, const XBone& bone, const XIndexList& before,
                        const XIndexList& after)
{
    Compare(model);
    const auto isParentOf = [&](u32 child) {
        const XBone* const each = XCast<XBone>(model.FindNode(child));
        return each && each->GetParentId() == bone.GetID();
    };
    for (const u32 child : before) {
        if (isParentOf(child))
            m_Unlisted.insert(child);
        else if (const auto others = m_OtherListers.find(child); others != m_OtherListers.end())
            std::erase(others->second, bone.GetID());
    }
    for (const u32 child : after) {
        if (isParentOf(child))
            m_Unlisted.erase(child);
        else
            m_OtherListers[child].push_back(bone.GetID());
    }
}

void XBoneLinks::Clear()
{
    m_IsKnown = true;
    m_OtherListers.clear();
    m_Unlisted.clear();
}

void XBoneLinks::Compare(const XModel& model)
{
    if (m_IsKnown)
        return;
    m_IsKnown = true;
    m_OtherListers.clear();
    m_Unlisted.clear();
    for (const auto& [name, node] : model.GetNodes())
        if (const XBone* const bone = XCast<XBone>(node); bone && bone->GetParent())
            m_Unlisted.insert(bone->GetID());
    for (const auto& [name, node] : model.GetNodes())
        if (const XBone* const bone = XCast<XBone>(node))
            Relist(model, *bone, {}, bone->GetChildIds());
}

}  // namespace VKT
