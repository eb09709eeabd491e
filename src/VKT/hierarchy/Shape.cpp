#include "VKT/hierarchy/Shape.h"

#include <algorithm>
#include <unordered_set>

#include "VKT/document/Model.h"
#include "VKT/hierarchy/Bone.h"

namespace VKT {

bool XShape::GetObjectInstances(XInstanceList& out) const
{
    out.clear();
    XIndexList ids = m_Instances;
    std::sort(ids.begin(), ids.end());  // the document's order is that of the ids
    ids.erase(std::unique(ids.begin(), ids.end()), ids.end());
    for (const u32 id : ids)
        if (XInstance* instance = GetModel()->FindInstance(id))
            out.push_back(instance);
    return !out.empty();
}

bool XShape::NodeDeath(u32 id)
{
    for (const u32 instanceId : m_Instances) {
        const XInstance* instance = GetModel()->FindInstance(instanceId);
        if (!instance || instance->GetParentId() != id)
            continue;
        GetModel()->DeleteInstance(instanceId);
        std::erase(m_Instances, u32{instanceId});
        return !m_Instances.empty();
    }
    return XBase::NodeDeath(id);
}

void XShape::PreDelete(std::set<u32>& ids)
{
    XBase::PreDelete(ids);
    XFlagStack& flags = GetModel()->GetDeleteFlags();
    XInstanceList instances;
    GetObjectInstances(instances);
    if (flags.Test(DeleteTransforms))
        for (const XInstance* instance : instances)
            if (const XBone* bone = instance->GetParent(); bone && bone->GetApiType() == kFnBone)
                ids.insert(bone->GetID());
    if (!flags.Test(DeleteMaterials))
        return;
    const auto add = [&](u32 id) {
        const XBase* node = GetModel()->FindNode(id);
        if (node && IsOfType(*node, kFnMaterial) && GetModel()->CountUsers()->GetShapesCoveredBy(id) <= 1)
            ids.insert(id);
    };
    for (const XInstance* instance : instances) {
        for (const auto& group : instance->GetMaterialGroups())
            add(group->m_Material);
        if (instance->GetMaterialGroups().empty())
            add(instance->GetMaterial());
    }
}

void XShape::PostLoad()
{
    m_Instances.clear();
    if (GetModel()->FindNode(GetID()) == this)  // of several shapes with one id, one is shown
        GetModel()->ListInstancesOf(GetID(), m_Instances);
}

}  // namespace VKT
