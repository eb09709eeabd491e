#include "VKT/animation/AnimCycle.h"
#include "VKT/animation/AnimationTake.h"
#include "VKT/animation/FCurveStream.h"
#include "VKT/animation/SampledStream.h"
#include "info/Summary.h"

namespace tool {
namespace {

// What a take or a cycle holds in all.
struct Totals {
    VKT::u64 attributes = 0;
    VKT::u64 poses = 0;
    VKT::u64 tables = 0;
    VKT::u64 samples = 0;
    VKT::u64 curves = 0;
    VKT::u64 keys = 0;

    void Add(const VKT::XAnimationStream& stream)
    {
        if (const auto* table = stream.AsSampled()) {
            ++tables;
            samples += table->GetNumSamples();
        } else if (const auto* form = stream.AsFCurve()) {
            curves += form->GetNumCurves();
            for (const auto& curve : form->GetCurves())
                keys += curve->GetNumKeys();
        } else {
            ++poses;
        }
    }
};

}  // namespace

AnimationSummary Summarise(const VKT::XAnimationTake& take)
{
    Totals totals;
    for (VKT::u32 i = 0; i < take.GetNumAnimatedNodes(); ++i) {
        const VKT::XAnimatedNode& node = *take.GetAnimatedNode(i);
        totals.attributes += node.GetNumAttributes();
        for (VKT::u32 j = 0; j < node.GetNumAttributes(); ++j)
            for (VKT::u32 k = 0; k < node.GetAttribute(j)->GetNumStreams(); ++k)
                totals.Add(*node.GetAttribute(j)->GetStream(k));
    }
    return {take.GetName(),
            take.GetStartTime(),
            take.GetEndTime(),
            take.GetFramesPerSecond(),
            {{"frames", take.GetNumFrames()},
             {"nodes", take.GetNumAnimatedNodes()},
             {"attributes", totals.attributes},
             {"poses", totals.poses},
             {"tables", totals.tables},
             {"samples", totals.samples},
             {"curves", totals.curves},
             {"keys", totals.keys}}};
}

AnimationSummary Summarise(const VKT::XAnimCycle& cycle)
{
    VKT::u64 curves = 0;
    VKT::u64 keys = 0;
    for (const auto& list : cycle.GetCurveLists()) {
        curves += list->GetCurves().size();
        for (const auto& curve : list->GetCurves())
            keys += curve->GetKeys().size();
    }
    return {cycle.GetName(),
            cycle.GetStart(),
            cycle.GetEnd(),
            cycle.GetFramesPerSecond(),
            {{"frames", cycle.GetNumFrames()},
             {"bones", cycle.GetBoneAnims().size()},
             {"curveLists", cycle.GetCurveLists().size()},
             {"curves", curves},
             {"keys", keys}}};
}

}  // namespace tool
