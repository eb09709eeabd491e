#include "host/io/SceneChecks.h"

#include <algorithm>
#include <cmath>
#include <map>
#include <string_view>
#include <unordered_set>

namespace maxhost::io {

namespace {

// Hands out names that nothing bears yet.
class NameMaker {
public:
    void Take(const std::string& name) { m_Taken.insert(name); }

    std::string Make(const std::string& stem)
    {
        std::string name;
        do {
            std::string number = std::to_string(++m_Last[stem]);
            number.insert(0, number.size() < 3 ? 3 - number.size() : 0, '0');
            name = stem + number;
        } while (!m_Taken.insert(name).second);
        return name;
    }

private:
    std::unordered_set<std::string> m_Taken;
    std::map<std::string, unsigned> m_Last;
};

void NameNodes(NeutralScene& scene)
{
    NameMaker names;
    for (const NeutralNode& node : scene.nodes)
        names.Take(node.name);
    for (NeutralNode& node : scene.nodes) {
        if (!node.name.empty())
            continue;
        const std::string* mesh =
            node.mesh < 0 ? nullptr : &scene.meshes[static_cast<std::size_t>(node.mesh)].name;
        node.name = names.Make(mesh && !mesh->empty() ? *mesh
                               : mesh                 ? "Mesh"
                               : node.camera >= 0     ? "Camera"
                               : node.light >= 0      ? "Light"
                               : node.isBone          ? "Bone"
                                                      : "Node");
    }
}

void NameMaterials(NeutralScene& scene)
{
    NameMaker names;
    for (const NeutralMaterial& material : scene.materials)
        names.Take(material.name);
    for (NeutralMaterial& material : scene.materials)
        if (material.name.empty())
            material.name = names.Make("Material");
}

void ReportSharedNames(NeutralScene& scene)
{
    std::map<std::string_view, std::size_t> counts;
    for (const NeutralNode& node : scene.nodes)
        ++counts[node.name];
    for (const auto& [name, count] : counts)
        if (count > 1)
            scene.warnings.push_back("the name \"" + std::string(name) + "\" is shared by " +
                                     std::to_string(count) + " nodes");
}

bool Repair(float& value)
{
    if (std::isfinite(value))
        return false;
    value = 0.0f;
    return true;
}

std::size_t Repair(std::vector<Float3>& values)
{
    std::size_t repaired = 0;
    for (Float3& value : values) {
        // Each of the three is to be looked at.
        const bool x = Repair(value.x);
        const bool y = Repair(value.y);
        const bool z = Repair(value.z);
        repaired += x || y || z;
    }
    return repaired;
}

void RepairMesh(NeutralMesh& mesh, std::vector<std::string>& warnings)
{
    std::size_t repaired = Repair(mesh.points);
    for (MapChannel& channel : mesh.uvs)
        repaired += Repair(channel.values);
    if (mesh.colours)
        repaired += Repair(mesh.colours->values);
    for (MorphTarget& target : mesh.targets)
        repaired += Repair(target.deltas);
    if (repaired > 0)
        warnings.push_back("mesh \"" + mesh.name + "\": " + std::to_string(repaired) +
                           " points, colours or coordinates that are no numbers became 0");
}

void RepairNode(NeutralNode& node, std::vector<std::string>& warnings)
{
    for (Transform* transform : {&node.local, &node.objectOffset}) {
        if (!IsFinite(ToMatrix(*transform))) {
            *transform = {};
            warnings.push_back("node \"" + node.name +
                               "\": a transform that holds no numbers became the identity");
        }
    }
}

// A skin whose joints the mesh outnumbers would be read past its end.
void CheckSkins(NeutralScene& scene)
{
    std::vector<std::uint32_t> jointCounts;
    for (const NeutralMesh& mesh : scene.meshes) {
        std::uint32_t count = 0;
        for (const Influence& influence : mesh.influences)
            count = std::max(count, influence.joint + 1);
        jointCounts.push_back(count);
    }
    for (NeutralNode& node : scene.nodes) {
        if (node.mesh < 0 || node.skin < 0)
            continue;
        const std::size_t joints = scene.skins[static_cast<std::size_t>(node.skin)].joints.size();
        if (jointCounts[static_cast<std::size_t>(node.mesh)] > joints) {
            scene.warnings.push_back("node \"" + node.name + "\": its mesh names joint " +
                                     std::to_string(jointCounts[static_cast<std::size_t>(node.mesh)] - 1) +
                                     " of a skin with " + std::to_string(joints) + "; the skin is left out");
            node.skin = -1;
        }
    }
}

}  // namespace

void CompleteScene(NeutralScene& scene)
{
    NameNodes(scene);
    NameMaterials(scene);
    ReportSharedNames(scene);
    for (NeutralMesh& mesh : scene.meshes)
        RepairMesh(mesh, scene.warnings);
    for (NeutralNode& node : scene.nodes)
        RepairNode(node, scene.warnings);
    CheckSkins(scene);
}

}  // namespace maxhost::io
