#include <unordered_map>
#include <unordered_set>

#include "VKT/deformers/BlendShape.h"
#include "VKT/deformers/PointCluster.h"
#include "VKT/document/Model.h"
#include "VKT/geometry/Geometry.h"
#include "VKT/hierarchy/Bone.h"
#include "common/NodeNames.h"
#include "common/TerminalText.h"
#include "validate/checks/Checks.h"

namespace tool {
namespace {

// The two kinds of node that are one without a type of its own.
const VKT::XPointCluster* AsPointCluster(const VKT::XBase& node)
{
    const bool isOne = VKT::IsOfType(node, VKT::kFnCluster) || VKT::IsOfType(node, VKT::kFnJointCluster);
    return isOne ? static_cast<const VKT::XPointCluster*>(&node) : nullptr;
}

void CheckPointNumbers(const VKT::XPointCluster& cluster, Findings& findings)
{
    const auto* geometry = VKT::XCast<VKT::XGeometry>(cluster.GetAffected(0));
    if (!geometry)
        return;
    BadValues outside;
    for (const VKT::u32 point : cluster.GetPoints())
        if (point >= geometry->GetNumPoints())
            outside.Add([&] { return std::to_string(point); });
    if (outside.Count() > 0)
        findings.Fail(&cluster, "weighs point " + outside.Text() + ", of " +
                                    std::to_string(geometry->GetNumPoints()) + " of " +
                                    NameAndType(*geometry) + "; readers pass over it");
}

}  // namespace

// Both sides of the tie are stored, and nothing forces them to agree.
void CheckDeformerQueues(const VKT::XModel& model, Findings& findings)
{
    std::unordered_map<const VKT::XBase*, std::unordered_set<const VKT::XBase*>> affected;
    for (const auto& [name, node] : model.GetNodes())
        if (const auto* deformer = VKT::XCast<VKT::XDeformer>(node))
            for (VKT::u32 i = 0; i < deformer->GetNumAffected(); ++i)
                affected[deformer].insert(deformer->GetAffected(i));
    for (const auto& [name, node] : model.GetNodes()) {
        VKT::XDeformerList queue;
        if (const auto* geometry = VKT::XCast<VKT::XGeometry>(node))
            geometry->GetDeformerQueue(queue);
        for (const VKT::XDeformer* deformer : queue)
            if (!affected[deformer].contains(node))
                findings.Warn(node, "its queue holds " + NameAndType(*deformer) +
                                        ", which does not list it as affected; readers go by one of the two");
    }
}

void CheckPointWeights(const VKT::XBase& node, Findings& findings)
{
    const VKT::XPointCluster* cluster = AsPointCluster(node);
    if (!cluster)
        return;
    CheckPointNumbers(*cluster, findings);
    if (cluster->GetPoints().size() != cluster->GetWeights().size())
        findings.Fail(cluster, "has " + Counted(cluster->GetPoints().size(), "point") + " and " +
                                   Counted(cluster->GetWeights().size(), "weight") +
                                   "; text saves give the others the weight 0, or leave weights out");
    BadValues negative;
    for (std::size_t i = 0; i < cluster->GetWeights().size(); ++i)
        if (cluster->GetWeights()[i] < 0.0f)
            negative.Add([&] { return "weight " + std::to_string(i); });
    if (negative.Count() > 0)
        findings.Warn(cluster,
                      negative.Text() + " is below 0; readers that use it push the point the other way");
}

void CheckBlendTargets(const VKT::XBase& node, Findings& findings)
{
    const auto* blend = VKT::XCast<VKT::XBlendShape>(&node);
    if (!blend)
        return;
    const VKT::XGeometry* base = blend->GetBase();
    for (VKT::u32 i = 0; i < blend->GetNumTargets(); ++i) {
        const VKT::XBlendTarget& target = *blend->GetTargetRecord(i);
        const std::string name = "target " + Quoted(target.m_Name);
        if (base && target.m_Points.size() != base->GetNumPoints())
            findings.Fail(blend, name + " has " + Counted(target.m_Points.size(), "point") + ", its base " +
                                     std::to_string(base->GetNumPoints()) +
                                     "; readers must not go beyond the shorter of the two");
        if (target.m_TargetId != 0 && !blend->GetModel()->HasNode(target.m_TargetId))
            findings.Warn(blend, name + ": node " + std::to_string(target.m_TargetId) +
                                     " is missing; readers take the points that the target carries");
    }
}

}  // namespace tool
