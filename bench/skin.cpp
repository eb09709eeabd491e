// bench_skin OPERATION FILE
//
// Measures one load or save of workload S by the library: a skin of 200,000 points with
// four weights each, of a hundred bones.

#include "LibraryRun.h"
#include "VKT/deformers/SkinCluster.h"
#include "VKT/hierarchy/Bone.h"

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

}  // namespace
}  // namespace Bench

int main(int argc, char** argv)
{
    using namespace Bench;
    if (argc != 3)
        Fail("usage: bench_skin OPERATION FILE");
    LibraryRun{FillModel, SumOf}.Measure(argv[1], argv[2]);
}
