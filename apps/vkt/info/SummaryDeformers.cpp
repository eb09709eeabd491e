#include "VKT/deformers/BlendShape.h"
#include "VKT/deformers/Cluster.h"
#include "VKT/deformers/JiggleDeformer.h"
#include "VKT/deformers/JointCluster.h"
#include "VKT/deformers/SkinCluster.h"
#include "VKT/deformers/WireDeformer.h"
#include "common/NodeNames.h"
#include "info/Summary.h"

namespace tool {
namespace {

void AddPoints(DeformerSummary& out, const VKT::XPointCluster& cluster)
{
    out.sizes.push_back({"points", cluster.GetPoints().size()});
    out.sizes.push_back({"weights", cluster.GetWeights().size()});
}

void AddWeights(DeformerSummary& out, const VKT::XSkinCluster& skin)
{
    const VKT::XWeightTable& table = skin.GetWeights();
    VKT::u64 weights = 0;
    for (VKT::u32 point = 0; point < table.GetNumPoints(); ++point)
        weights += table[point].size();
    out.sizes.push_back({"influences", skin.GetNumInfluences()});
    out.sizes.push_back({"points", table.GetNumPoints()});
    out.sizes.push_back({"weights", weights});
}

void AddTargets(DeformerSummary& out, const VKT::XBlendShape& blend)
{
    out.targets.emplace();
    for (VKT::u32 i = 0; i < blend.GetNumTargets(); ++i) {
        const VKT::XBlendTarget& target = *blend.GetTargetRecord(i);
        out.targets->push_back({target.m_Name, target.m_Points.size()});
    }
}

}  // namespace

DeformerSummary Summarise(const VKT::XDeformer& deformer)
{
    DeformerSummary out;
    out.name = deformer.GetName();
    out.type = TypeNameOf(deformer);
    out.sizes = {{"affected", deformer.GetNumAffected()}};
    if (const auto* skin = VKT::XCast<VKT::XSkinCluster>(&deformer))
        AddWeights(out, *skin);
    else if (const auto* cluster = VKT::XCast<VKT::XCluster>(&deformer))
        AddPoints(out, *cluster);
    else if (const auto* joint = VKT::XCast<VKT::XJointCluster>(&deformer))
        AddPoints(out, *joint);
    else if (const auto* blend = VKT::XCast<VKT::XBlendShape>(&deformer))
        AddTargets(out, *blend);
    else if (const auto* jiggle = VKT::XCast<VKT::XJiggleDeformer>(&deformer))
        out.sizes.push_back({"points", jiggle->GetPointIndices().size()});
    else if (const auto* wire = VKT::XCast<VKT::XWireDeformer>(&deformer))
        out.sizes.push_back({"wires", wire->GetNumWires()});
    return out;
}

}  // namespace tool
