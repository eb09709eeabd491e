// bench_nodes deep|wide|mixed COUNT OPERATION FILE
//
// Measures one load or save of workload N by the library: COUNT bones in one chain
// (deep), all below one root (wide), or eight below each (mixed).

#include <cmath>
#include <cstdlib>
#include <filesystem>

#include "Measure.h"
#include "VKT/Bone.h"
#include "VKT/Model.h"
#include "VKT/NumberText.h"  // or the one in from_chars/VKT

namespace Bench {
namespace {

// The place of a bone's parent in the order of creation; the first bone is the root.
u32 ParentOf(u32 bone, std::string_view shape)
{
    if (shape == "deep")
        return bone - 1;
    if (shape == "wide")
        return 0;
    return (bone - 1) / 8;
}

// A quaternion of length 1 as far as six digits go, so that a chain of a million keeps its
// scale, and the text form the number.
XQuaternion RotationOf(u32 noise)
{
    const double part[4] = {noise % 101 - 50.0, noise % 97 - 48.0, noise % 89 - 44.0, 100.0};
    double squared = 0;
    for (const double value : part)
        squared += value * value;
    const auto decimal = [&](double value) {
        return static_cast<f32>(std::lround(value / std::sqrt(squared) * 1e6)) / 1e6f;
    };
    return {decimal(part[0]), decimal(part[1]), decimal(part[2]), decimal(part[3])};
}

// Bones as they come from a scene: translation, rotation and the matrix of both in six
// digits, the rest at its defaults.
void FillModel(XModel& model, std::string_view shape, u32 count)
{
    const auto decimal = [](u32 value) { return static_cast<f32>(value) / 1e4f; };
    XBoneList bones(count);
    for (u32 i = 0; i < count; ++i) {
        XBone* const bone = bones[i] = model.CreateNode<XBone>();
        const u32 noise = i * 2654435761u >> 4;
        bone->SetTranslate({decimal(noise % 999983), decimal(noise % 799999), decimal(noise % 699967), 0});
        bone->SetRotation(RotationOf(noise));
        bone->SetBindFromCurrent();
    }
    // Each child list is in place before its bone gets a parent, which keeps this linear
    // for chains too.
    for (u32 i = count - 1; i > 0; --i)
        if (!bones[ParentOf(i, shape)]->AddChild(bones[i]))
            Fail("a child was refused");
}

// Everything that a load has to bring about: names, links, poses and matrices.
std::string SumOf(const XModel& model, u32 count)
{
    XNodeList nodes;
    model.List(nodes, XBone::kType);
    if (nodes.size() != count)
        Fail("the document does not hold that many bones");
    Checksum sum;
    for (const XBase* node : nodes) {
        const XBone& bone = *XCast<XBone>(node);
        const u32 links[] = {bone.GetID(), bone.GetParentId()};
        sum.AddList(std::string_view(bone.GetName()));
        sum.Add(links, sizeof links);
        sum.AddList(bone.GetChildIds());
        sum.Add(&bone.GetTranslate(false), sizeof(XVector3));
        sum.Add(&bone.GetRotation(false), sizeof(XQuaternion));
        sum.Add(&bone.GetWorld(true), sizeof(XMatrix));
        sum.Add(&bone.GetInverseTransposeWorld(true), sizeof(XMatrix));
    }
    return sum.Text();
}

Result Load(const char* path, u32 count)
{
    XModel& model = *new XModel;  // goes with the process: its end is not measured
    const Measurement measurement;
    const XFileResult loaded = model.Load(path);
    Result result = measurement.Stop();
    if (loaded != FileOk)
        Fail("the library could not load the file");
    result.document = SumOf(model, count);
#ifdef BENCH_READS_BY_FROM_CHARS
    if (!NumberText::s_IsFromCharsReader)
        Fail("the reader does not use from_chars");
#endif
    return result;
}

Result Save(const char* path, std::string_view shape, u32 count, bool asText)
{
    XModel& model = *new XModel;
    FillModel(model, shape, count);
    if (!asText)
        model.GetSaveFlags().Clear(SaveAscii);
    std::filesystem::remove(path);
    const Measurement measurement;
    const XFileResult saved = model.Save(path);
    Result result = measurement.Stop();
    if (saved != FileOk)
        Fail("the library could not save the file");
    result.file = FileChecksum(path);
    // What a load of the file has to come to.
    XNodeList nodes;
    model.List(nodes, XBone::kType);
    for (XBase* node : nodes)
        XCast<XBone>(node)->CopyBindToCurrent();
    model.UpdateWorldMatrices();
    for (XBase* node : nodes)
        XCast<XBone>(node)->CopyMatricesToBind();
    result.document = SumOf(model, count);
    return result;
}

}  // namespace
}  // namespace Bench

int main(int argc, char** argv)
{
    using namespace Bench;
    if (argc != 5)
        Fail("usage: bench_nodes deep|wide|mixed COUNT OPERATION FILE");
    const std::string_view operation = argv[3];
    const u32 count = static_cast<u32>(std::strtoul(argv[2], nullptr, 10));
    StartLibrary();
    Result result = operation.starts_with("load-") ? Load(argv[4], count)
                                                   : Save(argv[4], argv[1], count, operation == "save-text");
    result.fileBytes = FileSize(argv[4]);
    Print(result);
}
