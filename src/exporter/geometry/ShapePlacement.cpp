#include "exporter/geometry/ShapePlacement.h"

#include "VKT/document/Instance.h"
#include "VKT/document/Model.h"
#include "VKT/hierarchy/Bone.h"
#include "VKT/hierarchy/Shape.h"
#include "exporter/options/ExportOptions.h"
#include "max/Material.h"

namespace VKTMax {

using VKT::XBase;
using VKT::XIndexList;
using VKT::XInstance;

namespace {

// The faces of one sub-material.
struct Bucket {
    XBase* material;  // null when it was not exported
    XIndexList faces;
};

// One bucket for each sub-material that has faces, in the order of sub-materials. Face
// numbers count modulo the number of sub-materials.
std::vector<Bucket> SortFaces(const VKTExportCore& core, const HostMaterial& multi, const TriangleMesh& mesh)
{
    std::vector<Bucket> buckets;
    for (Mtl* material : multi.subMaterials)
        buckets.push_back({core.FindMaterial(material), {}});
    if (buckets.empty())
        return {};
    const XIndexList numbers = mesh.GetFaceMaterials();
    for (u32 face = 0; face < numbers.size(); ++face)
        buckets[numbers[face] % buckets.size()].faces.push_back(face);
    std::erase_if(buckets, [](const Bucket& bucket) { return bucket.faces.empty(); });
    return buckets;
}

// A bucket whose material was not exported takes no group, and the last groups stay empty
// for it.
void AssignGroups(XInstance& instance, const std::vector<Bucket>& buckets)
{
    instance.SetNumMaterialGroups(static_cast<u32>(buckets.size()));
    u32 group = 0;
    for (const Bucket& bucket : buckets)
        if (bucket.material) {
            instance.SetMaterial(bucket.material->GetID(), group);
            instance.AddFaces(group, bucket.faces);
            ++group;
        }
}

}  // namespace

void PlaceShape(const VKTExportCore& core, VKT::XShape* shape, const HostNode& node, const TriangleMesh& mesh)
{
    VKT::XBone* bone = core.FindBone(node.handle);
    if (!bone)
        return;
    XInstance* instance = core.GetModel().CreateInstance(bone, shape);
    const HostMaterial material = ReadMaterial(node.material);
    if (!instance || !material || !GetExportOptions().GetIncludeMaterials())
        return;

    const auto coverAll = [instance](const XBase* exported) {
        if (exported)
            instance->SetMaterial(exported->GetID());
    };
    if (!material.isMulti) {
        coverAll(core.FindMaterial(material.handle));
        return;
    }
    const std::vector<Bucket> buckets = SortFaces(core, material, mesh);
    if (buckets.size() == 1)
        coverAll(buckets.front().material);
    else if (buckets.size() > 1)
        AssignGroups(*instance, buckets);
}

}  // namespace VKTMax
