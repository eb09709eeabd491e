// bench_animation OPERATION FILE
//
// Measures one load or save of workload A by the library: a take of 200 bones whose
// translation, rotation and scale are sampled in 600 frames each.

#include <filesystem>

#include "Measure.h"
#include "VKT/AnimatedAttribute.h"
#include "VKT/AnimatedNode.h"
#include "VKT/AnimationTake.h"
#include "VKT/Bone.h"
#include "VKT/Model.h"
#include "VKT/NumberText.h"  // or the one in from_chars/VKT
#include "VKT/SampledStream.h"

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

Result Load(const char* path)
{
    XModel& model = *new XModel;  // goes with the process: its end is not measured
    const Measurement measurement;
    const XFileResult loaded = model.Load(path);
    Result result = measurement.Stop();
    if (loaded != FileOk)
        Fail("the library could not load the file");
    result.document = SumOf(model);
#ifdef BENCH_READS_BY_FROM_CHARS
    if (!NumberText::s_IsFromCharsReader)
        Fail("the reader does not use from_chars");
#endif
    return result;
}

Result Save(const char* path, bool asText)
{
    XModel model;
    FillModel(model);
    if (!asText)
        model.GetSaveFlags().Clear(SaveAscii);
    std::filesystem::remove(path);
    const Measurement measurement;
    const XFileResult saved = model.Save(path);
    Result result = measurement.Stop();
    if (saved != FileOk)
        Fail("the library could not save the file");
    result.document = SumOf(model);
    result.file = FileChecksum(path);
    return result;
}

}  // namespace
}  // namespace Bench

int main(int argc, char** argv)
{
    using namespace Bench;
    if (argc != 3)
        Fail("usage: bench_animation OPERATION FILE");
    const std::string_view operation = argv[1];
    StartLibrary();
    Result result = operation.starts_with("load-") ? Load(argv[2]) : Save(argv[2], operation == "save-text");
    result.fileBytes = FileSize(argv[2]);
    Print(result);
}
