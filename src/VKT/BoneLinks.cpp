#include "VKT/BoneLinks.h"

#include <unordered_set>

#include "VKT/Bone.h"
#include "VKT/Model.h"

namespace VKT {
namespace {

bool ListsAgreeWithParents(const XModel& model)
{
    std::unordered_set<u32, XIdHash> listed;
    std::size_t withParent = 0;
    for (const auto& [name, node] : model.GetNodes()) {
        const XBone* const bone = XCast<XBone>(node);
        if (!bone)
            continue;
        withParent += bone->GetParent() ? 1 : 0;
        for (const u32 id : bone->GetChildIds()) {
            const XBone* const child = XCast<XBone>(model.FindNode(id));
            if (child && (child->GetParentId() != bone->GetID() || !listed.insert(id).second))
                return false;
        }
    }
    return listed.size() == withParent;
}

}  // namespace

bool XBoneLinks::Agree(const XModel& model)
{
    if (m_State == kUnknown)
        m_State = ListsAgreeWithParents(model) ? kAgree : kDisagree;
    return m_State == kAgree;
}

}  // namespace VKT
