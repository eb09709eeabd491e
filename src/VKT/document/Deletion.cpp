#include "VKT/document/Deletion.h"

#include <algorithm>

#include "VKT/animation/AnimCycle.h"
#include "VKT/document/Model.h"
#include "VKT/hierarchy/Bone.h"
#include "VKT/hierarchy/Shape.h"

namespace VKT {

XDeletion::XDeletion(XModel& model, std::shared_ptr<const XUserCounts>& userCounts)
    : m_Model(model), m_UserCounts(userCounts)
{
}

XNodeList XDeletion::Prepare(const std::set<u32>& ids)
{
    XNodeList all;
    for (std::set<u32> asked = ids; !asked.empty();) {
        const XNodeList deaths = Collect(asked);
        DeleteInstancesOf(deaths);
        asked = Announce(deaths);
        DeleteInstancesUnder(deaths);
        all.insert(all.end(), deaths.begin(), deaths.end());
    }
    return all;
}

// The nodes of the ids and those that go along with them, as far as they are not dying yet.
XNodeList XDeletion::Collect(const std::set<u32>& ids)
{
    m_UserCounts = m_Model.CountUsers();
    XNodeList deaths;
    const auto add = [&](const std::set<u32>& wanted) {
        for (const u32 id : wanted)
            if (XBase* node = m_Model.FindNode(id); node && m_Dying.insert(id).second)
                deaths.push_back(node);
    };
    add(ids);
    for (std::size_t i = 0; i < deaths.size(); ++i) {
        std::set<u32> along;
        deaths[i]->PreDelete(along);
        add(along);
    }
    m_UserCounts.reset();
    return deaths;
}

// Tells each survivor of the deaths of nodes that it names, in ascending order of their ids,
// and answers the ids of those that do not want to live on.
std::set<u32> XDeletion::Announce(const XNodeList& deaths)
{
    std::set<u32> unwilling;
    TellShapes(deaths, unwilling);
    std::unordered_set<u32, XIdHash> dead;
    for (const XBase* node : deaths)
        dead.insert(node->GetID());
    XIndexList named;
    const auto tellWhatItNames = [&](XBase& node) {
        named.clear();
        node.ListReferences(named);
        std::erase_if(named, [&](u32 id) { return !dead.contains(id); });
        std::sort(named.begin(), named.end());
        named.erase(std::unique(named.begin(), named.end()), named.end());
        for (const u32 id : named)
            if (!node.NodeDeath(id))
                unwilling.insert(node.GetID());
    };
    for (const auto& [name, node] : m_Model.GetNodes())
        if (!m_Dying.contains(node->GetID()) || m_Model.FindNode(node->GetID()) != node)
            tellWhatItNames(*node);
    for (const auto& cycle : m_Model.GetCycles())
        tellWhatItNames(*cycle);
    XInstanceList instances;
    m_Model.ListInstances(instances);
    for (XInstance* instance : instances)
        instance->DropTextures(dead);
    return unwilling;
}

// A shape does not name the bones that show it; its instances do.
void XDeletion::TellShapes(const XNodeList& deaths, std::set<u32>& unwilling) const
{
    XVector<std::pair<XBase*, u32>> deathsOfBones;
    for (XBase* node : deaths) {
        XInstanceList instances;
        if (const XBone* bone = XCast<XBone>(node))
            bone->ListInstances(instances);
        for (const XInstance* instance : instances)
            if (instance->GetShape() && !m_Dying.contains(instance->GetShapeId()))
                deathsOfBones.emplace_back(instance->GetShape(), node->GetID());
    }
    for (const auto& [shape, bone] : deathsOfBones)
        if (!shape->NodeDeath(bone))
            unwilling.insert(shape->GetID());
}

// Instances of bones that live on: their bones would delete them one by one.
void XDeletion::DeleteInstancesOf(const XNodeList& deaths)
{
    for (const XBase* node : deaths)
        if (const XShape* shape = XCast<XShape>(node)) {
            XIndexList ids;
            m_Model.ListInstancesOf(shape->GetID(), ids);
            for (const u32 id : ids)
                m_Model.DeleteInstance(id);
        }
}

// Instances that their shapes did not delete: a geometry that has the bone in its deformer
// queue too looks no further.
void XDeletion::DeleteInstancesUnder(const XNodeList& deaths)
{
    for (const XBase* node : deaths)
        if (const XBone* bone = XCast<XBone>(node))
            for (const u32 id : XIndexList(bone->GetInstanceIds()))
                if (const XInstance* instance = m_Model.FindInstance(id);
                    instance && instance->GetParentId() == bone->GetID())
                    m_Model.DeleteInstance(id);
}

}  // namespace VKT
