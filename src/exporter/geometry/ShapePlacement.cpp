// Where a shape hangs, and which materials cover it there.

#include <algorithm>

#include "VKT/document/Instance.h"
#include "VKT/hierarchy/Shape.h"
#include "exporter/geometry/MeshExport.h"
#include "exporter/options/ExportOptions.h"
#include "exporter/walk/ExportCore.h"

namespace VKTMax {

using VKT::XBase;
using VKT::XIndexList;
using VKT::XInstance;

namespace {

// The document's node of a material, null for none and for one that was not exported.
XBase* FindMaterial(const VKTExportCore& core, Mtl* material)
{
    const auto found = core.materials.find(material);
    return found == core.materials.end() ? nullptr : found->second;
}

// The faces of one sub-material.
struct Bucket {
    XBase* material;  // null when it was not exported
    XIndexList faces;
};

// One bucket for each sub-material that has faces, in the order of sub-materials. Face
// numbers count modulo the number of sub-materials.
std::vector<Bucket> SortFaces(const VKTExportCore& core, Mtl* multi, const HostMesh& mesh)
{
    const u32 count = static_cast<u32>(std::max(NumSubMaterialsOf(multi), 0));
    if (count == 0)
        return {};
    std::vector<Bucket> buckets(count);
    for (u32 i = 0; i < count; ++i)
        buckets[i].material = FindMaterial(core, SubMaterialOf(multi, static_cast<int>(i)));
    const XIndexList numbers = mesh.GetFaceMaterials();
    for (u32 face = 0; face < numbers.size(); ++face)
        buckets[numbers[face] % count].faces.push_back(face);
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

void PlaceShape(const VKTExportCore& core, VKT::XBone* bone, VKT::XShape* shape, INode* node,
                const HostMesh& mesh)
{
    if (!bone)
        return;
    XInstance* instance = core.GetModel().CreateInstance(bone, shape);
    Mtl* material = MaterialOf(node);
    if (!instance || !material || !GetExportOptions().GetIncludeMaterials())
        return;

    const auto coverAll = [instance](const XBase* exported) {
        if (exported)
            instance->SetMaterial(exported->GetID());
    };
    if (!IsMultiMaterial(material)) {
        coverAll(FindMaterial(core, material));
        return;
    }
    const std::vector<Bucket> buckets = SortFaces(core, material, mesh);
    if (buckets.size() == 1)
        coverAll(buckets.front().material);
    else if (buckets.size() > 1)
        AssignGroups(*instance, buckets);
}

}  // namespace VKTMax
