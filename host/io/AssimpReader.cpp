#include "host/io/AssimpReader.h"

#include <assimp/config.h>
#include <assimp/postprocess.h>

#include <algorithm>
#include <array>
#include <assimp/Importer.hpp>
#include <cmath>
#include <fstream>
#include <sstream>

#include "host/io/AssimpAnimations.h"
#include "host/io/AssimpMeshes.h"
#include "host/io/Extension.h"
#include "host/io/Refusal.h"
#include "host/io/SceneChecks.h"

namespace maxhost::io {

namespace {

enum class Up {
    Y,      // by the format's rule, by common use, or because Assimp turns it so
    Z,      // the format has no rule: taken as the host has it
    Stated  // the file says it
};

// What Assimp's root node is.
enum class Root {
    Holder,  // made by Assimp, or a name for the whole: holds the file's top nodes
    Node     // a node of the file
};

struct Format {
    std::string_view extension;
    Up up;
    Root root = Root::Holder;
};

// clang-format off
constexpr std::array<Format, 13> kFormats{{
    {"fbx",  Up::Stated},
    {"dae",  Up::Y},
    {"obj",  Up::Y},
    {"bvh",  Up::Y, Root::Node},
    {"3ds",  Up::Y},
    {"x",    Up::Y, Root::Node},
    {"ply",  Up::Z},
    {"stl",  Up::Z},
    {"ac",   Up::Y},
    {"amf",  Up::Z},
    {"b3d",  Up::Y},
    {"dxf",  Up::Y},
    {"ms3d", Up::Y},
}};
// clang-format on

const Format* FindFormat(std::string_view extension)
{
    const auto found = std::ranges::find(kFormats, extension, &Format::extension);
    return found == kFormats.end() ? nullptr : &*found;
}

// Assimp looks for the end of a PLY header for ever, and believes its counts.
void CheckPlyHeader(const std::filesystem::path& path)
{
    constexpr int kMostLines = 10000;
    const std::uint64_t size = std::filesystem::file_size(path);
    std::ifstream in(path, std::ios::binary);
    std::string line;
    for (int i = 0; i < kMostLines && std::getline(in, line); ++i) {
        if (line.starts_with("end_header"))
            return;
        std::istringstream words(line);
        std::string keyword, name;
        std::uint64_t count = 0;
        // Every element takes a byte at least.
        if (words >> keyword >> name && keyword == "element" && (!(words >> count) || count > size))
            throw Refusal("the PLY file claims more \"" + name + "\" than it can hold");
    }
    throw Refusal("the header of the PLY file has no end");
}

// No post-processing: it would cut polygons, and with them hierarchy or identity.
// The check of what was read finds null nodes; it refuses a scene without meshes,
// as motion files are.
const aiScene& Load(Assimp::Importer& importer, const std::filesystem::path& path, const Format& format)
{
    importer.SetPropertyBool(AI_CONFIG_IMPORT_NO_SKELETON_MESHES, true);
    importer.SetPropertyBool(AI_CONFIG_IMPORT_FBX_PRESERVE_PIVOTS, true);
    const unsigned steps = format.extension == "bvh" ? 0u : aiProcess_ValidateDataStructure;
    const aiScene* scene = importer.ReadFile(path.string(), steps);
    if (!scene || !scene->mRootNode) {
        const std::string reason = importer.GetErrorString();
        if (format.extension == "fbx" && reason.find("old format version") != std::string::npos)
            throw Refusal("FBX files older than 7.1 can't be read");
        throw Refusal(reason.empty() ? "the file can't be read" : reason);
    }
    return *scene;
}

// Whether the root may go: it holds no more than a turn of the axes and a unit.
bool IsMereHolder(const aiNode& root, const Format& format)
{
    const bool isHolder =
        format.root == Root::Holder || std::string_view(root.mName.C_Str()) == "$dummy_root";
    if (!isHolder || root.mNumMeshes > 0 || root.mNumChildren == 0)
        return false;
    const Matrix m = ToMatrix(root.mTransformation);
    const Transform t = ToTransform(m);
    const auto near = [](double a, double b) { return std::abs(a - b) <= 1e-5 * std::abs(a); };
    return Length(m.origin) == 0.0 && !HasShear(t) && t.scale.x > 0.0 && near(t.scale.x, t.scale.y) &&
           near(t.scale.x, t.scale.z);
}

// The unit axis nearest to a direction.
Vector NearestAxis(const Vector& v)
{
    const double x = std::abs(v.x), y = std::abs(v.y), z = std::abs(v.z);
    if (x > y && x > z)
        return {std::copysign(1.0, v.x), 0.0, 0.0};
    if (y > z)
        return {0.0, std::copysign(1.0, v.y), 0.0};
    return {0.0, 0.0, std::copysign(1.0, v.z)};
}

void ReadFbxSettings(const aiMetadata* metadata, NeutralScene& scene)
{
    scene.metresPerUnit = 0.01;
    if (!metadata)
        return;
    std::int32_t axis = 1, sign = 1;
    metadata->Get("UpAxis", axis);
    metadata->Get("UpAxisSign", sign);
    const double length = sign < 0 ? -1.0 : 1.0;
    scene.up = axis == 0   ? Vector{length, 0.0, 0.0}
               : axis == 2 ? Vector{0.0, 0.0, length}
                           : Vector{0.0, length, 0.0};
    double centimetres = 1.0;
    if (float single = 0.0f; metadata->Get("UnitScaleFactor", single))
        centimetres = single;
    else
        metadata->Get("UnitScaleFactor", centimetres);
    if (centimetres > 0.0)
        scene.metresPerUnit = centimetres / 100.0;
}

// Axes and unit: those that a dropped root would have turned and scaled into.
void ReadSettings(const aiScene& source, const Format& format, bool keepRoot, NeutralScene& scene)
{
    if (format.up == Up::Stated)
        ReadFbxSettings(source.mMetaData, scene);
    else
        scene.up = format.up == Up::Y ? Vector{0.0, 1.0, 0.0} : Vector{0.0, 0.0, 1.0};
    if (keepRoot)
        return;
    const Transform root = ToTransform(ToMatrix(source.mRootNode->mTransformation));
    scene.up = NearestAxis(MapDirection(RotationMatrix(Conjugate(root.rotation)), scene.up));
    if (format.extension == "dae")
        scene.metresPerUnit = root.scale.x;
}

void ReadCamerasAndLights(const aiScene& source, AssimpNodes& nodes, NeutralScene& scene)
{
    const auto vector = [](const aiVector3D& v) { return Vector{v.x, v.y, v.z}; };
    for (unsigned i = 0; i < source.mNumCameras; ++i) {
        const aiCamera& camera = *source.mCameras[i];
        const int node = nodes.Find(camera.mName, scene);
        if (node >= 0)
            scene.nodes[static_cast<std::size_t>(node)].camera = static_cast<int>(i);
        scene.cameras.push_back({camera.mName.C_Str(), vector(camera.mLookAt), vector(camera.mUp)});
    }
    for (unsigned i = 0; i < source.mNumLights; ++i) {
        const aiLight& light = *source.mLights[i];
        const int node = nodes.Find(light.mName, scene);
        if (node >= 0)
            scene.nodes[static_cast<std::size_t>(node)].light = static_cast<int>(i);
        const LightKind kind = light.mType == aiLightSource_POINT         ? LightKind::Omni
                               : light.mType == aiLightSource_SPOT        ? LightKind::Spot
                               : light.mType == aiLightSource_DIRECTIONAL ? LightKind::Directional
                                                                          : LightKind::Other;
        scene.lights.push_back({light.mName.C_Str(), kind, vector(light.mDirection)});
    }
}

// The joints of a motion file are what it moves; the ends of its limbs are not.
void MarkMovedNodes(NeutralScene& scene)
{
    for (const NeutralAnimation& animation : scene.animations)
        for (const NeutralTrack& track : animation.tracks)
            scene.nodes[static_cast<std::size_t>(track.node)].isBone = true;
}

NeutralScene ReadScene(const std::filesystem::path& path, const Format& format)
{
    Assimp::Importer importer;
    const aiScene& source = Load(importer, path, format);
    const bool keepRoot = !IsMereHolder(*source.mRootNode, format);
    NeutralScene scene;
    ReadSettings(source, format, keepRoot, scene);
    AssimpNodes nodes(*source.mRootNode, keepRoot, scene);
    // Names like "<STLRoot>" are Assimp's.
    if (keepRoot && format.root == Root::Holder &&
        (scene.nodes.front().name.empty() || scene.nodes.front().name.starts_with("<")))
        scene.nodes.front().name = path.stem().string();
    ReadAssimpMaterials(source, scene);
    ReadAssimpMeshes(source, nodes, scene);
    ReadCamerasAndLights(source, nodes, scene);
    ReadAssimpAnimations(source, format.extension == "fbx", nodes, scene);
    if (format.extension == "bvh")
        MarkMovedNodes(scene);
    // Only these two count their time in frames, unless a file has no rate of its own.
    if ((format.extension == "fbx" || format.extension == "bvh") && source.mNumAnimations > 0 &&
        source.mAnimations[0]->mTicksPerSecond > 1.0)
        scene.framesPerSecond = source.mAnimations[0]->mTicksPerSecond;
    CompleteScene(scene);
    return scene;
}

}  // namespace

bool AssimpReads(std::string_view extension)
{
    return FindFormat(extension) != nullptr;
}

ReadResult ReadWithAssimp(const std::filesystem::path& path)
{
    ReadResult result;
    try {
        const std::string extension = LowerExtension(path);
        const Format* format = FindFormat(extension);
        if (!format)
            throw Refusal("no reader for files that end in \"." + extension + "\"");
        if (!std::filesystem::is_regular_file(path))
            throw Refusal("no such file");
        if (extension == "ply")
            CheckPlyHeader(path);
        result.scene = ReadScene(path, *format);
    } catch (const std::exception& e) {
        result.error = e.what();
    }
    return result;
}

}  // namespace maxhost::io
