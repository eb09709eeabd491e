#include <algorithm>

#include "VKT/animation/AnimCycle.h"
#include "VKT/document/Model.h"
#include "VKT/hierarchy/Bone.h"
#include "VKT/hierarchy/Shape.h"

// The deletion of nodes: what goes is collected, the survivors are told, and then it goes.

namespace VKT {

bool XModel::DeleteNode(u32 id)
{
    return DeleteNodes({id}) != 0;
}

u32 XModel::DeleteNodes(const std::set<u32>& ids)
{
    std::set<u32> dying;
    XNodeList all;
    // A survivor that answers that it has no reason to live on takes along what it owns too.
    for (std::set<u32> asked = ids; !asked.empty();) {
        const XNodeList deaths = CollectDeaths(asked, dying);
        DeleteInstancesOf(deaths);
        asked = AnnounceDeaths(deaths, dying);
        DeleteInstancesUnder(deaths);
        all.insert(all.end(), deaths.begin(), deaths.end());
    }
    for (XBase* node : all) {
        ForgetNumber(node->m_Name);
        m_Nodes.erase(node->m_NameEntry);
        m_NodesById.Erase(node->m_ID, node);
        delete node;
    }
    return static_cast<u32>(all.size());
}

// The nodes of the ids and those that go along with them, as far as they are not dying yet.
XNodeList XModel::CollectDeaths(const std::set<u32>& ids, std::set<u32>& dying)
{
    m_UserCounts = CountUsers();
    XNodeList deaths;
    const auto add = [&](const std::set<u32>& wanted) {
        for (const u32 id : wanted)
            if (XBase* node = FindNode(id); node && dying.insert(id).second)
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
// and answers the ids of those that do not want to live on. A shape does not name the bones
// that show it; its instances do.
std::set<u32> XModel::AnnounceDeaths(const XNodeList& deaths, const std::set<u32>& dying)
{
    std::unordered_set<u32, XIdHash> dead;
    XVector<std::pair<XBase*, u32>> deathsOfBones;
    for (XBase* node : deaths) {
        dead.insert(node->m_ID);
        XInstanceList instances;
        if (const XBone* bone = XCast<XBone>(node))
            bone->ListInstances(instances);
        for (const XInstance* instance : instances)
            if (instance->GetShape() && !dying.contains(instance->GetShapeId()))
                deathsOfBones.emplace_back(instance->GetShape(), node->m_ID);
    }
    std::set<u32> unwilling;
    const auto tell = [&](XBase& node, u32 id) {
        if (!node.NodeDeath(id))
            unwilling.insert(node.m_ID);
    };
    for (const auto& [shape, bone] : deathsOfBones)
        tell(*shape, bone);
    XIndexList named;
    const auto tellWhatItNames = [&](XBase& node) {
        named.clear();
        node.ListReferences(named);
        std::erase_if(named, [&](u32 id) { return !dead.contains(id); });
        std::sort(named.begin(), named.end());
        named.erase(std::unique(named.begin(), named.end()), named.end());
        for (const u32 id : named)
            tell(node, id);
    };
    for (const auto& [name, node] : m_Nodes)
        if (!dying.contains(node->m_ID) || FindNode(node->m_ID) != node)
            tellWhatItNames(*node);
    for (const auto& cycle : m_Cycles)
        tellWhatItNames(*cycle);
    for (const auto& instance : m_Instances)
        instance->DropTextures(dead);
    return unwilling;
}

// Instances of bones that live on: their bones would delete them one by one.
void XModel::DeleteInstancesOf(const XNodeList& deaths)
{
    for (const XBase* node : deaths)
        if (const XShape* shape = XCast<XShape>(node)) {
            XIndexList ids;
            ListInstancesOf(shape->GetID(), ids);
            for (const u32 id : ids)
                DeleteInstance(id);
        }
}

// Instances that their shapes did not delete: a geometry that has the bone in its deformer
// queue too looks no further.
void XModel::DeleteInstancesUnder(const XNodeList& deaths)
{
    for (const XBase* node : deaths)
        if (const XBone* bone = XCast<XBone>(node))
            for (const u32 id : XIndexList(bone->GetInstanceIds()))
                if (const XInstance* instance = FindInstance(id);
                    instance && instance->GetParentId() == bone->GetID())
                    DeleteInstance(id);
}

std::shared_ptr<const XUserCounts> XModel::CountUsers() const
{
    return m_UserCounts ? m_UserCounts : std::make_shared<const XUserCounts>(*this);
}

}  // namespace VKT
