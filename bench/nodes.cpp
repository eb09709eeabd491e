// bench_nodes deep|wide|mixed COUNT OPERATION FILE
//
// Measures one load or save of workload N by the library: COUNT bones in one chain
// (deep), all below one root (wide), or eight below each (mixed).

#include <cmath>
#include <cstdlib>

#include "LibraryRun.h"
#include "VKT/hierarchy/Bone.h"

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

// What a load makes of the bind pose.
void Settle(XModel& model)
{
    XNodeList nodes;
    model.List(nodes, XBone::kType);
    for (XBase* node : nodes)
        XCast<XBone>(node)->CopyBindToCurrent();
    model.UpdateWorldMatrices();
    for (XBase* node : nodes)
        XCast<XBone>(node)->CopyMatricesToBind();
}

}  // namespace
}  // namespace Bench

int main(int argc, char** argv)
{
    using namespace Bench;
    if (argc != 5)
        Fail("usage: bench_nodes deep|wide|mixed COUNT OPERATION FILE");
    const u32 count = static_cast<u32>(std::strtoul(argv[2], nullptr, 10));
    const LibraryRun run{[&](XModel& model) { FillModel(model, argv[1], count); },
                         [&](const XModel& model) { return SumOf(model, count); }, Settle};
    run.Measure(argv[3], argv[4]);
}
