#include <unordered_set>

#include "VKT/animation/AnimCycle.h"
#include "VKT/animation/AnimationTake.h"
#include "VKT/animation/FCurveStream.h"
#include "VKT/document/Model.h"
#include "VKT/hierarchy/Bone.h"
#include "common/NodeNames.h"
#include "common/TerminalText.h"
#include "validate/checks/Checks.h"

namespace tool {
namespace {

using VKT::XAnimatedAttribute;
using VKT::XAnimatedNode;
using VKT::XAnimationTake;

std::string IdText(VKT::u32 id)
{
    return "node " + std::to_string(id);
}

void CheckRange(const VKT::XBase& node, VKT::f32 start, VKT::f32 end, VKT::f32 rate, Findings& findings)
{
    if (end < start)
        findings.Warn(&node, "ends before it starts; readers find no frames in it");
    if (!(rate > 0.0f))
        findings.Warn(&node, "has no frame rate above 0; readers cannot tell its frames in seconds");
}

void CheckAnimatedNodes(const XAnimationTake& take, Findings& findings)
{
    BadValues gone;
    BadValues repeated;
    std::unordered_set<VKT::u32> met;
    for (VKT::u32 i = 0; i < take.GetNumAnimatedNodes(); ++i) {
        const VKT::u32 id = take.GetAnimatedNode(i)->GetNodeId();
        if (!take.GetAnimatedNode(i)->GetNode())
            gone.Add([&] { return IdText(id); });
        else if (!met.insert(id).second)
            repeated.Add([&] { return NameAndType(*take.GetAnimatedNode(i)->GetNode()); });
    }
    if (gone.Count() > 0)
        findings.Fail(&take, "animates " + gone.Text() +
                                 ", which is missing; readers find nothing to animate, and text saves leave "
                                 "that out");
    if (repeated.Count() > 0)
        findings.Warn(&take,
                      "animates " + repeated.Text() + " twice; readers that look for it find the first");
}

// Adds the keys of a curve whose times do not go up.
void CheckCurve(const VKT::XAnimCurve& curve, BadValues& unordered)
{
    for (VKT::u32 key = 1; key < curve.GetNumKeys(); ++key)
        if (curve.GetKey(key, 0) < curve.GetKey(key - 1, 0))
            unordered.Add([&] { return "key " + std::to_string(key); });
}

void CheckAttribute(const XAnimatedAttribute& attribute, Findings& findings)
{
    const XAnimationTake& take = attribute.GetTake();
    const VKT::XBase* node = attribute.GetNode();
    if (!node)
        return;
    const std::string name = attribute.GetName();
    if (name.empty()) {
        findings.Fail(&take, "animates attribute " + std::to_string(attribute.GetAttributeId()) + " of " +
                                 NameAndType(*node) +
                                 ", which has none of that number; readers find nothing to animate, and text "
                                 "saves leave that out");
        return;
    }
    BadValues unordered;
    for (VKT::u32 i = 0; i < attribute.GetNumStreams(); ++i)
        if (const VKT::XFCurveStream* curves = attribute.GetStream(i)->AsFCurve())
            for (const auto& curve : curves->GetCurves())
                CheckCurve(*curve, unordered);
    if (unordered.Count() > 0)
        findings.Warn(&take, NameAndType(*node) + ": " + name + ": " + unordered.Text() +
                                 " of a curve is ahead of the one before; readers that search for a time "
                                 "miss it");
}

void CheckCycle(const VKT::XAnimCycle& cycle, Findings& findings)
{
    const VKT::XModel& model = *cycle.GetModel();
    CheckRange(cycle, cycle.GetStart(), cycle.GetEnd(), cycle.GetFramesPerSecond(), findings);
    BadValues gone;
    BadValues cut;
    for (const auto& entry : cycle.GetBoneAnims()) {
        const VKT::u32 id = entry.first;
        const auto& anim = entry.second;
        if (!VKT::XCast<VKT::XBone>(model.FindNode(id)))
            gone.Add([&] { return "bone " + std::to_string(id); });
        if (anim->GetNumFrames() < cycle.GetNumFrames())
            cut.Add([&] {
                return "bone " + std::to_string(id) + " has " + Counted(anim->GetNumFrames(), "frame") +
                       " of " + std::to_string(cycle.GetNumFrames());
            });
    }
    for (const auto& list : cycle.GetCurveLists())
        if (!model.HasNode(list->GetNodeId()))
            gone.Add([&] { return IdText(list->GetNodeId()); });
    if (gone.Count() > 0)
        findings.Fail(&cycle,
                      "animates " + gone.Text() + ", which is missing; readers find nothing to animate");
    if (cut.Count() > 0)
        findings.Fail(&cycle, cut.Text() + "; text saves give it poses at rest for the others");
}

}  // namespace

void CheckTake(const VKT::XBase& node, Findings& findings)
{
    const auto* take = VKT::XCast<XAnimationTake>(&node);
    if (!take)
        return;
    CheckRange(*take, take->GetStartTime(), take->GetEndTime(), take->GetFramesPerSecond(), findings);
    CheckAnimatedNodes(*take, findings);
    for (VKT::u32 i = 0; i < take->GetNumAnimatedNodes(); ++i) {
        const XAnimatedNode& animated = *take->GetAnimatedNode(i);
        for (VKT::u32 j = 0; j < animated.GetNumAttributes(); ++j)
            CheckAttribute(*animated.GetAttribute(j), findings);
    }
}

void CheckCycles(const VKT::XModel& model, Findings& findings)
{
    for (const auto& cycle : model.GetCycles())
        CheckCycle(*cycle, findings);
}

}  // namespace tool
