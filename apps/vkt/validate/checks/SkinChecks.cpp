#include <cstdio>

#include "VKT/deformers/SkinCluster.h"
#include "VKT/document/Model.h"
#include "VKT/geometry/Geometry.h"
#include "common/NodeNames.h"
#include "common/TerminalText.h"
#include "validate/checks/Checks.h"

namespace tool {
namespace {

using VKT::XSkinCluster;

std::string PointText(std::size_t point)
{
    return "point " + std::to_string(point);
}

std::string SumText(std::span<const VKT::XBoneWeight> weights)
{
    VKT::f32 sum = 0.0f;
    for (const VKT::XBoneWeight& weight : weights)
        sum += weight.m_Weight;
    char text[32];
    std::snprintf(text, sizeof text, "%g", static_cast<double>(sum));
    return text;
}

// As the library sums them up.
void CheckSums(const XSkinCluster& skin, Findings& findings)
{
    VKT::XU32Array points;
    skin.CheckWeights(points);
    BadValues bare;
    BadValues uneven;
    for (const VKT::u32 point : points) {
        const auto weights = skin.GetWeights()[point];
        if (weights.empty())
            bare.Add([&] { return PointText(point); });
        else
            uneven.Add([&] { return PointText(point) + " sum up to " + SumText(weights); });
    }
    if (bare.Count() > 0)
        findings.Warn(&skin, bare.Text() + " has no weights; readers move it with no bone");
    if (uneven.Count() > 0)
        findings.Warn(&skin, "the weights of " + uneven.Text() +
                                 "; readers of a binary file take them as they are, and those of a text file "
                                 "scale a sum to 1 that is not 0");
}

void CheckEntries(const XSkinCluster& skin, Findings& findings)
{
    BadValues outside;
    BadValues negative;
    for (VKT::u32 point = 0; point < skin.GetWeights().GetNumPoints(); ++point)
        for (const VKT::XBoneWeight& weight : skin.GetWeights()[point]) {
            if (weight.m_Influence >= skin.GetNumInfluences())
                outside.Add(
                    [&] { return PointText(point) + ": influence " + std::to_string(weight.m_Influence); });
            if (weight.m_Weight < 0.0f)
                negative.Add(
                    [&] { return PointText(point) + ": influence " + std::to_string(weight.m_Influence); });
        }
    if (outside.Count() > 0)
        findings.Fail(&skin, outside.Text() + ", of " + std::to_string(skin.GetNumInfluences()) +
                                 "; readers find no bone there");
    if (negative.Count() > 0)
        findings.Warn(&skin, negative.Text() +
                                 " has a weight below 0; readers that use it push the point the other way");
}

}  // namespace

void CheckSkin(const VKT::XBase& node, Findings& findings)
{
    const auto* skin = VKT::XCast<XSkinCluster>(&node);
    if (!skin)
        return;
    CheckSums(*skin, findings);
    CheckEntries(*skin, findings);
    const auto* geometry = VKT::XCast<VKT::XGeometry>(skin->GetAffected(0));
    if (geometry && geometry->GetNumPoints() != skin->GetWeights().GetNumPoints())
        findings.Fail(skin, "holds weights of " + Counted(skin->GetWeights().GetNumPoints(), "point") +
                                ", and " + NameAndType(*geometry) + " has " +
                                std::to_string(geometry->GetNumPoints()) +
                                "; readers must not go beyond the fewer of the two");
}

}  // namespace tool
