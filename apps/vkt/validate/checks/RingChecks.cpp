#include <unordered_map>

#include "VKT/document/Model.h"
#include "VKT/geometry/Deformer.h"
#include "VKT/geometry/Geometry.h"
#include "VKT/rigging/Constraint.h"
#include "VKT/rigging/NodeCollection.h"
#include "VKT/shading/ShadingNode.h"
#include "validate/checks/Checks.h"
#include "validate/checks/Rings.h"

// Rings of references other than those of the hierarchy.

namespace tool {
namespace {

using VKT::XBase;
using Nodes = std::vector<const XBase*>;

Nodes ListOfType(const VKT::XModel& model, VKT::u32 type)
{
    Nodes nodes;
    for (const auto& [name, node] : model.GetNodes())
        if (VKT::IsOfType(*node, type))
            nodes.push_back(node);
    return nodes;
}

// The nodes of a class that the fields of the node refer to.
void ListReferred(const XBase& node, VKT::u32 type, Nodes& next)
{
    VKT::XIndexList ids;
    node.ListFieldReferences(ids);
    for (const VKT::u32 id : ids)
        if (const XBase* other = node.GetModel()->FindNode(id); other && VKT::IsOfType(*other, type))
            next.push_back(other);
}

void Report(const Nodes& starts, const EdgeLister& listEdges, const std::string& what,
            const std::string& then, Findings& findings)
{
    for (const Ring& ring : FindRings(starts, listEdges))
        findings.Fail(ring.begin.front(), what + ": " + ring.Text() + "; " + then);
}

}  // namespace

void CheckShadingRings(const VKT::XModel& model, Findings& findings)
{
    const auto listFeeding = [](const XBase& node, Nodes& next) {
        ListReferred(node, VKT::kFnShadingNode, next);
    };
    Report(ListOfType(model, VKT::kFnShadingNode), listFeeding, "feeds itself",
           "readers that follow inputs must stop where they have been", findings);
}

void CheckCollectionRings(const VKT::XModel& model, Findings& findings)
{
    const auto listMembers = [](const XBase& node, Nodes& next) {
        ListReferred(node, VKT::kFnNodeCollection, next);
    };
    Report(ListOfType(model, VKT::kFnNodeCollection), listMembers, "is a member of itself",
           "readers that open collections must stop where they have been", findings);
}

// What is deformed waits for its deformers, and those for geometry that drives them, which
// is all that they refer to beside what they affect.
void CheckDeformationRings(const VKT::XModel& model, Findings& findings)
{
    const auto listAwaited = [](const XBase& node, Nodes& next) {
        if (const auto* geometry = VKT::XCast<VKT::XGeometry>(&node)) {
            VKT::XDeformerList queue;
            geometry->GetDeformerQueue(queue);
            next.assign(queue.begin(), queue.end());
            return;
        }
        const auto* deformer = VKT::XCast<VKT::XDeformer>(&node);
        std::unordered_map<const XBase*, std::size_t> affected;  // and how often it is listed as such
        for (VKT::u32 i = 0; i < deformer->GetNumAffected(); ++i)
            ++affected[deformer->GetAffected(i)];
        ListReferred(node, VKT::kFnGeometry, next);
        std::erase_if(next, [&](const XBase* geometry) {
            const auto found = affected.find(geometry);
            if (found == affected.end() || found->second == 0)
                return false;
            --found->second;
            return true;
        });
    };
    Report(ListOfType(model, VKT::kFnGeometry), listAwaited, "is deformed by way of itself",
           "no order of evaluation fits it, and readers choose one", findings);
}

void CheckConstraintRings(const VKT::XModel& model, Findings& findings)
{
    const Nodes constraints = ListOfType(model, VKT::kFnConstraint);
    std::unordered_map<const XBase*, Nodes> leaders;  // of each constrained node
    for (const XBase* node : constraints) {
        const auto* constraint = VKT::XCast<VKT::XConstraint>(node);
        Nodes& followed = leaders[constraint->GetConstrained()];
        for (VKT::u32 i = 0; i < constraint->GetNumTargets(); ++i)
            if (const XBase* target = constraint->GetTarget(i))
                followed.push_back(target);
    }
    Nodes starts;
    for (const XBase* node : constraints)
        if (const XBase* constrained = VKT::XCast<VKT::XConstraint>(node)->GetConstrained())
            starts.push_back(constrained);
    const auto listLeaders = [&](const XBase& node, Nodes& next) {
        if (const auto found = leaders.find(&node); found != leaders.end())
            next = found->second;
    };
    Report(starts, listLeaders, "follows itself by its constraints",
           "readers that solve constraints find no order for it", findings);
}

}  // namespace tool
