#include <optional>
#include <unordered_map>
#include <unordered_set>

#include "VKT/document/Model.h"
#include "VKT/geometry/Mesh.h"
#include "VKT/geometry/PolygonMesh.h"
#include "VKT/hierarchy/Bone.h"
#include "common/NodeNames.h"
#include "common/TerminalText.h"
#include "validate/checks/Checks.h"

namespace tool {
namespace {

using VKT::XInstance;

std::string NameOf(const XInstance& instance)
{
    return "instance " + Quoted(instance.GetName()) + ": ";
}

// "is missing", or what a node is that should be something else.
std::string WhyNot(const VKT::XModel& model, VKT::u32 id, const char* wanted)
{
    const VKT::XBase* node = model.FindNode(id);
    return node ? "node " + std::to_string(id) + " is " + NameAndType(*node) + ", no " + wanted
                : "node " + std::to_string(id) + " is missing";
}

void CheckShape(const VKT::XBone& bone, const XInstance& instance, Findings& findings)
{
    if (!instance.GetShape())
        findings.Fail(&bone, NameOf(instance) + WhyNot(*bone.GetModel(), instance.GetShapeId(), "shape") +
                                 "; readers of a binary file show nothing there, and those of a text file "
                                 "drop the instance");
}

void CheckMaterials(const VKT::XBone& bone, const XInstance& instance, Findings& findings)
{
    const VKT::XModel& model = *bone.GetModel();
    BadValues lost;
    const auto look = [&](VKT::u32 id) {
        const VKT::XBase* node = model.FindNode(id);
        if (id != 0 && !(node && VKT::IsOfType(*node, VKT::kFnMaterial)))
            lost.Add([&] { return WhyNot(model, id, "material"); });
    };
    look(instance.GetMaterial());
    for (const auto& group : instance.GetMaterialGroups())
        look(group->m_Material);
    if (lost.Count() > 0)
        findings.Fail(&bone, NameOf(instance) + lost.Text() + "; readers take it for no material");
    if (instance.GetMaterial() != 0 && !instance.GetMaterialGroups().empty())
        findings.Warn(&bone, NameOf(instance) +
                                 "has a material and material groups; text saves keep the material, binary "
                                 "ones the groups");
}

// Faces of a mesh, none for other shapes.
std::optional<VKT::u64> NumFacesOf(const VKT::XBase* shape)
{
    if (const auto* mesh = VKT::XCast<VKT::XPolygonMesh>(shape))
        return mesh->GetNumPolys();
    if (const auto* older = VKT::XCast<VKT::XMesh>(shape))
        return older->GetNumFaces();
    return std::nullopt;
}

void CheckFaces(const VKT::XBone& bone, const XInstance& instance, Findings& findings)
{
    const std::optional<VKT::u64> numFaces = NumFacesOf(instance.GetShape());
    if (!numFaces)
        return;
    BadValues outside;
    for (const auto& group : instance.GetMaterialGroups())
        for (const VKT::u32 face : group->m_Faces)
            if (face >= *numFaces)
                outside.Add([&] { return std::to_string(face); });
    if (outside.Count() > 0)
        findings.Fail(&bone, NameOf(instance) + "a material group covers face " + outside.Text() + " of " +
                                 std::to_string(*numFaces) + "; readers must pass over it");
}

// The names of the uv sets of shapes, listed once for each.
class UvSetNames {
public:
    bool Has(const VKT::XBase& shape, const VKT::XString& name)
    {
        const auto [names, isNew] = m_Names.try_emplace(&shape);
        if (isNew)
            List(shape, names->second);
        return names->second.contains(name);
    }

private:
    using Names = std::unordered_set<VKT::XString>;

    static void List(const VKT::XBase& shape, Names& names)
    {
        if (const auto* mesh = VKT::XCast<VKT::XPolygonMesh>(&shape))
            for (const auto& set : mesh->GetVertexSets())
                names.insert(set->GetName());
        if (const auto* older = VKT::XCast<VKT::XMesh>(&shape))
            names.insert(older->GetUvSetNames().begin(), older->GetUvSetNames().end());
    }

    std::unordered_map<const VKT::XBase*, Names> m_Names;
};

void CheckUvSets(const VKT::XBone& bone, const XInstance& instance, UvSetNames& names, Findings& findings)
{
    const VKT::XShape* shape = instance.GetShape();
    BadValues unknown;
    for (const auto& uvSet : instance.GetUvSets())
        if (shape && !names.Has(*shape, uvSet->m_SetName))
            unknown.Add([&] { return Quoted(uvSet->m_SetName); });
    if (unknown.Count() > 0)
        findings.Fail(&bone, NameOf(instance) + "a texture uses uv set " + unknown.Text() +
                                 ", which the shape lacks; readers bind it and find no coordinates");
}

void CheckRepetition(const VKT::XBone& bone, const VKT::XInstanceList& instances, Findings& findings)
{
    std::unordered_set<VKT::u32> shapes;
    for (const XInstance* instance : instances)
        if (!shapes.insert(instance->GetShapeId()).second)
            findings.Warn(&bone, NameOf(*instance) +
                                     "shows a shape that the bone shows already; readers of a text file take "
                                     "the two for one");
}

}  // namespace

void CheckInstances(const VKT::XModel& model, Findings& findings)
{
    UvSetNames uvSets;
    for (const auto& [name, node] : model.GetNodes()) {
        const auto* bone = VKT::XCast<VKT::XBone>(node);
        VKT::XInstanceList instances;
        if (!bone || !bone->ListInstances(instances))
            continue;
        for (const XInstance* instance : instances) {
            CheckShape(*bone, *instance, findings);
            CheckMaterials(*bone, *instance, findings);
            CheckFaces(*bone, *instance, findings);
            CheckUvSets(*bone, *instance, uvSets, findings);
        }
        CheckRepetition(*bone, instances, findings);
    }
}

}  // namespace tool
