// bench_prune prune|copy
//
// Measures how `XSkinPruner` takes a skin of 200,000 points from eight influences a point
// down to four, or what it takes to copy the weights: the least that it has to do.

#include "Measure.h"
#include "VKT/deformers/SkinCluster.h"
#include "VKT/document/Model.h"
#include "VKT/geometry/PolygonMesh.h"
#include "VKT/hierarchy/Bone.h"
#include "utils/SkinPruner.h"

namespace Bench {
namespace {

constexpr u32 kPoints = 200000;
constexpr u32 kBones = 100;
constexpr u32 kInfluences = 8;
constexpr u16 kMost = 4;

XPolygonMesh& MakeSkinnedMesh(XModel& model, XSkinCluster& skin)
{
    XBoneList bones;
    for (u32 i = 0; i < kBones; ++i)
        bones.push_back(model.CreateNode<XBone>());
    XPolygonMesh& mesh = *model.CreateNode<XPolygonMesh>();
    mesh.SetPoints(XVector3Array(kPoints, XVector3{}));
    skin.SetAffected(&mesh);
    skin.SetInfluences(bones);
    skin.GetWeights().Resize(kPoints);
    for (u32 point = 0; point < kPoints; ++point) {
        const u32 noise = point * 2654435761u >> 4;
        for (u32 i = 0; i < kInfluences; ++i) {
            const u32 share = 1 + (noise >> 2 * i) % 15;
            skin.GetWeights().Append(point, {static_cast<f32>(share) / 64, (noise + i) % kBones});
        }
    }
    mesh.SetDeformerQueue({&skin});
    return mesh;
}

Result Prune(const XPolygonMesh& mesh)
{
    const Measurement measurement;
    const VKU::XSkinPruner pruner(&mesh, kMost);
    Result result = measurement.Stop();
    XWeightList weights;
    for (u32 point = 0; point < kPoints; ++point) {
        pruner.GetWeights(point, weights);
        if (weights.empty() || weights.size() > kMost)
            Fail("a point is left with the wrong number of influences");
    }
    return result;
}

Result Copy(const XSkinCluster& skin)
{
    const Measurement measurement;
    const XWeightTable copy(skin.GetWeights());
    Keep(&copy);
    Result result = measurement.Stop();
    if (copy.GetNumPoints() != kPoints)
        Fail("the copy lacks points");
    return result;
}

}  // namespace
}  // namespace Bench

int main(int argc, char** argv)
{
    using namespace Bench;
    const std::string_view operation = argc == 2 ? argv[1] : "";
    if (operation != "prune" && operation != "copy")
        Fail("usage: bench_prune prune|copy");
    StartLibrary();
    XModel model;
    XSkinCluster& skin = *model.CreateNode<XSkinCluster>();
    const XPolygonMesh& mesh = MakeSkinnedMesh(model, skin);
    Print(operation == "prune" ? Prune(mesh) : Copy(skin));
}
