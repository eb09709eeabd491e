// bench_animation OPERATION FILE
//
// Measures one load or save of workload A by the library: a take of 200 bones whose
// translation, rotation and scale are sampled in 600 frames each.

#include "LibraryRun.h"
#include "VKT/animation/AnimatedAttribute.h"
#include "VKT/animation/AnimatedNode.h"
#include "VKT/animation/AnimationTake.h"
#include "VKT/animation/SampledStream.h"
#include "VKT/hierarchy/Bone.h"

namespace Bench {
namespace {

constexpr u32 kBones = 200;
constexpr u32 kFrames = 600;
constexpr const char* kChannels[] = {"translate", "rotation", "scale"};

// Six digits each, as a simulation or a capture leaves them in a text.
f32 Value(u32 bone, u32 index)
{
    const u32 noise = (bone * 370261u + index * 9311u) % 1999999u;
    return (static_cast<f32>(noise) - 999999.0f) / 1e4f;
}

void FillModel(XModel& model)
{
    XAnimationTake* const take = model.CreateNode<XAnimationTake>();
    take->SetEndTime(kFrames - 1);
    take->SetFramesPerSecond(30);
    take->SetNumFrames(kFrames);
    for (u32 i = 0; i < kBones; ++i) {
        XBone* const bone = model.CreateNode<XBone>();
        XAnimatedNode* const animation = take->CreateNodeAnimation(bone);
        for (const char* channel : kChannels) {
            XAnimatedAttribute* const attribute = animation->CreateAttribute(bone->GetPropertyId(channel));
            if (!attribute)
                Fail("a bone has no such channel");
            XSampledStream* const stream = attribute->CreateSampledStream();
            const u32 count = stream->GetNumSamples() * stream->GetElementsPerSample();
            for (u32 index = 0; index < count; ++index)
                stream->SetSample(index, Value(i, index));
        }
    }
}

std::string SumOf(const XModel& model)
{
    XNodeList takes;
    model.List(takes, XAnimationTake::kType);
    if (takes.size() != 1)
        Fail("the document does not hold one take");
    const XAnimationTake& take = *XCast<XAnimationTake>(takes[0]);
    if (take.GetNumAnimatedNodes() != kBones)
        Fail("the take does not animate that many bones");
    Checksum sum;
    for (u32 i = 0; i < kBones; ++i)
        for (u32 channel = 0; channel < std::size(kChannels); ++channel) {
            const XAnimatedAttribute* attribute = take.GetAnimatedNode(i)->GetAttribute(channel);
            if (!attribute || attribute->GetNumStreams() != 1)
                Fail("a bone lacks a channel");
            const auto& samples = static_cast<const XSampledStream*>(attribute->GetStream(0))->GetSamples();
            if (samples.size() != kFrames * attribute->GetElementsPerSample())
                Fail("a channel lacks samples");
            sum.AddList(samples);
        }
    return sum.Text();
}

}  // namespace
}  // namespace Bench

int main(int argc, char** argv)
{
    using namespace Bench;
    if (argc != 3)
        Fail("usage: bench_animation OPERATION FILE");
    LibraryRun{FillModel, SumOf}.Measure(argv[1], argv[2]);
}
