#include "host/io/GltfReader.h"

#include <algorithm>
#include <cmath>

#include "host/io/GltfAccessors.h"
#include "host/io/GltfAnimations.h"
#include "host/io/GltfMeshes.h"
#include "host/io/GltfNodes.h"
#include "host/io/Refusal.h"
#include "host/io/SceneChecks.h"

namespace maxhost::io {

namespace {

void ReadMaterials(const tinygltf::Model& model, NeutralScene& scene)
{
    for (const tinygltf::Material& material : model.materials) {
        NeutralMaterial result;
        result.name = material.name;
        const auto& pbr = material.pbrMetallicRoughness;
        if (pbr.baseColorFactor.size() >= 3)
            result.diffuse =
                Float3{static_cast<float>(pbr.baseColorFactor[0]), static_cast<float>(pbr.baseColorFactor[1]),
                       static_cast<float>(pbr.baseColorFactor[2])};
        const auto texture = static_cast<std::size_t>(pbr.baseColorTexture.index);
        if (pbr.baseColorTexture.index >= 0 && texture < model.textures.size()) {
            const auto image = static_cast<std::size_t>(model.textures[texture].source);
            if (image < model.images.size())
                result.diffuseTexture = model.images[image].uri;
        }
        scene.materials.push_back(std::move(result));
    }
}

void ReadSkins(const tinygltf::Model& model, const std::vector<int>& neutralOfNode, GltfAccessors& accessors,
               NeutralScene& scene)
{
    for (const tinygltf::Skin& skin : model.skins) {
        NeutralSkin result;
        const GltfNumbers* inverses =
            skin.inverseBindMatrices < 0 ? nullptr : &accessors.Numbers(skin.inverseBindMatrices, 16);
        for (std::size_t i = 0; i < skin.joints.size(); ++i) {
            Joint joint;
            const auto node = static_cast<std::size_t>(skin.joints[i]);
            if (skin.joints[i] < 0 || node >= neutralOfNode.size())
                throw Refusal("skin " + std::to_string(scene.skins.size()) +
                              " names a joint that does not exist");
            joint.node = neutralOfNode[node];
            if (joint.node < 0)
                scene.warnings.push_back("skin " + std::to_string(scene.skins.size()) + ": joint " +
                                         std::to_string(i) + " stands outside the scene");
            else
                scene.nodes[static_cast<std::size_t>(joint.node)].isBone = true;
            if (inverses && i < inverses->Count()) {
                const float* m = &inverses->values[16 * i];
                joint.boneFromMesh = {
                    {m[0], m[1], m[2]}, {m[4], m[5], m[6]}, {m[8], m[9], m[10]}, {m[12], m[13], m[14]}};
            }
            result.joints.push_back(joint);
        }
        scene.skins.push_back(std::move(result));
    }
}

void ReadCamerasAndLights(const tinygltf::Model& model, NeutralScene& scene)
{
    for (const tinygltf::Camera& camera : model.cameras)
        scene.cameras.push_back({camera.name, {0.0, 0.0, -1.0}, {0.0, 1.0, 0.0}});
    for (const tinygltf::Light& light : model.lights) {
        NeutralLight result;
        result.name = light.name;
        result.kind = light.type == "point"         ? LightKind::Omni
                      : light.type == "spot"        ? LightKind::Spot
                      : light.type == "directional" ? LightKind::Directional
                                                    : LightKind::Other;
        scene.lights.push_back(std::move(result));
    }
}

NeutralScene ReadScene(const std::filesystem::path& path)
{
    const GltfFile file = LoadGltfFile(path);
    GltfAccessors accessors(file);
    NeutralScene scene;
    scene.up = {0.0, 1.0, 0.0};
    scene.metresPerUnit = 1.0;
    const std::vector<int> neutralOfNode = ReadGltfNodes(file.model, scene);
    scene.meshes = ReadGltfMeshes(file.model, accessors, scene.warnings);
    ReadMaterials(file.model, scene);
    ReadSkins(file.model, neutralOfNode, accessors, scene);
    ReadCamerasAndLights(file.model, scene);
    ReadGltfAnimations(file, neutralOfNode, accessors, scene);
    CompleteScene(scene);
    return scene;
}

}  // namespace

ReadResult ReadGltf(const std::filesystem::path& path)
{
    ReadResult result;
    try {
        result.scene = ReadScene(path);
    } catch (const std::exception& e) {
        result.error = e.what();
    }
    return result;
}

}  // namespace maxhost::io
