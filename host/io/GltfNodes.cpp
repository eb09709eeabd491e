#include "host/io/GltfNodes.h"

#include <algorithm>

#include "host/io/Refusal.h"

namespace maxhost::io {

namespace {

std::string Label(const tinygltf::Model& model, int node)
{
    return "node " + std::to_string(node) + " \"" + model.nodes[static_cast<std::size_t>(node)].name + "\"";
}

bool Exists(const tinygltf::Model& model, int node)
{
    return node >= 0 && static_cast<std::size_t>(node) < model.nodes.size();
}

// The top of the default scene, of the first one where none is the default, or of
// everything where there is no scene.
std::vector<int> TopNodes(const tinygltf::Model& model)
{
    if (!model.scenes.empty()) {
        const int scene = std::max(model.defaultScene, 0);
        if (static_cast<std::size_t>(scene) >= model.scenes.size())
            throw Refusal("the default scene does not exist");
        return model.scenes[static_cast<std::size_t>(scene)].nodes;
    }
    std::vector<bool> isChild(model.nodes.size());
    for (const tinygltf::Node& node : model.nodes)
        for (const int child : node.children)
            if (Exists(model, child))
                isChild[static_cast<std::size_t>(child)] = true;
    std::vector<int> top;
    for (std::size_t i = 0; i < isChild.size(); ++i)
        if (!isChild[i])
            top.push_back(static_cast<int>(i));
    return top;
}

Transform LocalOf(const tinygltf::Node& node)
{
    if (node.matrix.size() == 16) {
        const auto& m = node.matrix;
        return ToTransform(
            {{m[0], m[1], m[2]}, {m[4], m[5], m[6]}, {m[8], m[9], m[10]}, {m[12], m[13], m[14]}});
    }
    Transform local;
    if (node.translation.size() == 3)
        local.translation = {node.translation[0], node.translation[1], node.translation[2]};
    if (node.rotation.size() == 4)
        local.rotation = Normalized({node.rotation[0], node.rotation[1], node.rotation[2], node.rotation[3]});
    if (node.scale.size() == 3)
        local.scale = {node.scale[0], node.scale[1], node.scale[2]};
    return local;
}

int LightOf(const tinygltf::Node& node)
{
    const auto extension = node.extensions.find("KHR_lights_punctual");
    if (extension == node.extensions.end() || !extension->second.Has("light"))
        return -1;
    const tinygltf::Value& light = extension->second.Get("light");
    return light.IsInt() ? light.GetNumberAsInt() : -1;
}

void ReadProperties(const tinygltf::Value& extras, const std::string& label, NeutralNode& result,
                    std::vector<std::string>& warnings)
{
    if (!extras.IsObject())
        return;
    for (const std::string& key : extras.Keys()) {
        const tinygltf::Value& value = extras.Get(key);
        if (value.IsBool())
            result.properties.emplace_back(key, value.Get<bool>());
        else if (value.IsInt())
            result.properties.emplace_back(key, std::int64_t{value.GetNumberAsInt()});
        else if (value.IsReal())
            result.properties.emplace_back(key, value.GetNumberAsDouble());
        else if (value.IsString())
            result.properties.emplace_back(key, value.Get<std::string>());
        else
            warnings.push_back(label + ": the property \"" + key + "\" is no single value and is left out");
    }
}

// A mesh, camera, light or skin by number; -1 and a warning when it does not exist.
int Reference(int index, std::size_t count, const char* what, const std::string& label,
              std::vector<std::string>& warnings)
{
    if (index < 0)
        return -1;
    if (static_cast<std::size_t>(index) < count)
        return index;
    warnings.push_back(label + ": " + what + " " + std::to_string(index) + " does not exist");
    return -1;
}

NeutralNode ReadNode(const tinygltf::Model& model, int index, int parent, std::vector<std::string>& warnings)
{
    const tinygltf::Node& node = model.nodes[static_cast<std::size_t>(index)];
    const std::string label = Label(model, index);
    NeutralNode result;
    result.name = node.name;
    result.parent = parent;
    result.local = LocalOf(node);
    result.mesh = Reference(node.mesh, model.meshes.size(), "mesh", label, warnings);
    result.skin = Reference(node.skin, model.skins.size(), "skin", label, warnings);
    result.camera = Reference(node.camera, model.cameras.size(), "camera", label, warnings);
    result.light = Reference(LightOf(node), model.lights.size(), "light", label, warnings);
    ReadProperties(node.extras, label, result, warnings);
    return result;
}

}  // namespace

std::vector<int> ReadGltfNodes(const tinygltf::Model& model, NeutralScene& scene)
{
    struct Step {
        int node;
        int parent;
    };
    std::vector<int> neutralOfNode(model.nodes.size(), -1);
    std::vector<Step> pending;
    const auto push = [&](const std::vector<int>& nodes, int parent) {
        for (auto node = nodes.rbegin(); node != nodes.rend(); ++node) {
            if (!Exists(model, *node))
                throw Refusal("node " + std::to_string(*node) + " is named as a child and does not exist");
            pending.push_back({*node, parent});
        }
    };
    push(TopNodes(model), -1);
    while (!pending.empty()) {
        const Step step = pending.back();
        pending.pop_back();
        int& number = neutralOfNode[static_cast<std::size_t>(step.node)];
        if (number >= 0) {
            scene.warnings.push_back(Label(model, step.node) +
                                     " has several parents and stays with the first");
            continue;
        }
        number = static_cast<int>(scene.nodes.size());
        scene.nodes.push_back(ReadNode(model, step.node, step.parent, scene.warnings));
        push(model.nodes[static_cast<std::size_t>(step.node)].children, number);
    }

    for (std::size_t i = 0; i < model.nodes.size(); ++i)
        if (neutralOfNode[i] < 0)
            scene.warnings.push_back(Label(model, static_cast<int>(i)) +
                                     " stands outside the scene and is left out");
    return neutralOfNode;
}

}  // namespace maxhost::io
