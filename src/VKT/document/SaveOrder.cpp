#include "VKT/document/SaveOrder.h"

#include <array>

#include "VKT/document/Model.h"

namespace VKT {
namespace {

// Nodes of none of these types are the last group.
struct SaveGroup {
    u32 type;
    u32 flag;
};
constexpr std::array<SaveGroup, 6> kGroups = {{
    {kFnTexPlacement2D, SaveTextures},
    {kFnTexture, SaveTextures},
    {kFnMaterial, SaveMaterials},
    {kFnShape, SaveShapes},
    {kFnBone, SaveBones},
    {kFnDeformer, SaveDeformers},
}};

std::size_t GroupOf(const XBase& node)
{
    std::size_t group = 0;
    while (group < kGroups.size() && !IsOfType(node, kGroups[group].type))
        ++group;
    return group;
}

}  // namespace

XNodeList ListForSave(const XModel& model)
{
    std::array<XNodeList, kGroups.size() + 1> groups;
    for (const auto& [name, node] : model.GetNodes())
        groups[GroupOf(*node)].push_back(node);
    XNodeList out;
    out.reserve(model.GetNodes().size());
    for (std::size_t i = 0; i < groups.size(); ++i)
        if (i == kGroups.size() || model.GetSaveFlags().Test(kGroups[i].flag))
            out.insert(out.end(), groups[i].begin(), groups[i].end());
    return out;
}

}  // namespace VKT
