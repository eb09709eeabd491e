// bench_skin OPERATION FILE
//
// Measures one load or save of workload S by the library: a skin of 200,000 points with
// four weights each, of a hundred bones.

#include <filesystem>

#include "Measure.h"
#include "VKT/Bone.h"
#include "VKT/Model.h"
#include "VKT/NumberText.h"  // or the one in from_chars/VKT
#include "VKT/SkinCluster.h"

namespace Bench {
namespace {

constexpr u32 kPoints = 200000;
constexpr u32 kBones = 100;

// Weights of six digits that sum up to 1, so that a load of the text leaves them alone.
void SetWeights(XWeightTable& table, u32 point)
{
    const u32 noise = point * 2654435761u >> 4;
    const u32 millionths[] = {100000 + noise % 99991, 200000 + noise % 49999, 50000 + noise % 9973};
    u32 rest = 1000000;
    u32 bone = noise % (kBones - 4);
    for (const u32 weight : millionths) {
        table.Append(point, {static_cast<f32>(weight) / 1e6f, bone++});
        rest -= weight;
    }
    table.Append(point, {static_cast<f32>(rest) / 1e6f, bone});
}

void FillModel(XModel& model)
{
    XBoneList bones;
    for (u32 i = 0; i < kBones; ++i)
        bones.push_back(model.CreateNode<XBone>());
    XSkinCluster* const skin = model.CreateNode<XSkinCluster>();
    skin->SetInfluences(bones);
    skin->GetWeights().Resize(kPoints);
    for (u32 point = 0; point < kPoints; ++point)
        SetWeights(skin->GetWeights(), point);
    XU32Array bad;
    if (!skin->CheckWeights(bad))
        Fail("the weights do not sum up to 1");
}

std::string SumOf(const XModel& model)
{
    XNodeList skins;
    model.List(skins, XSkinCluster::kType);
    if (skins.size() != 1)
        Fail("the document does not hold one skin");
    const XSkinCluster& skin = *XCast<XSkinCluster>(skins[0]);
    const XWeightTable& table = skin.GetWeights();
    XBoneList bones;
    skin.GetInfluences(bones);
    if (table.GetNumPoints() != kPoints || bones.size() != kBones)
        Fail("the skin does not have that many points and bones");
    Checksum sum;
    for (u32 point = 0; point < kPoints; ++point)
        sum.AddList(table[point]);
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
        Fail("usage: bench_skin OPERATION FILE");
    const std::string_view operation = argv[1];
    StartLibrary();
    Result result = operation.starts_with("load-") ? Load(argv[2]) : Save(argv[2], operation == "save-text");
    result.fileBytes = FileSize(argv[2]);
    Print(result);
}
