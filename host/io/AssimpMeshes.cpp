#include "host/io/AssimpMeshes.h"

#include <algorithm>
#include <map>

#include "host/io/MeshBuilder.h"

namespace maxhost::io {

namespace {

Float3 ToFloat3(const aiVector3D& v)
{
    return {v.x, v.y, v.z};
}

Float3 ToFloat3(const Vector& v)
{
    return {static_cast<float>(v.x), static_cast<float>(v.y), static_cast<float>(v.z)};
}

// Assimp gives its own material to meshes that have none.
int MaterialOf(const aiScene& source, unsigned index)
{
    if (index >= source.mNumMaterials)
        return -1;
    return source.mMaterials[index]->GetName() == aiString(AI_DEFAULT_MATERIAL_NAME)
               ? -1
               : static_cast<int>(index);
}

// The joined mesh of one node on its way.
class MeshJoiner {
public:
    MeshJoiner(const aiScene& source, AssimpNodes& nodes, NeutralScene& scene)
        : m_Source(source), m_Nodes(nodes), m_Scene(scene)
    {
    }

    // Points are mapped by `pointMap` on their way in.
    void Add(const aiMesh& mesh, const Matrix* pointMap);
    NeutralMesh Finish(std::string name);
    NeutralSkin& Skin() { return m_Skin; }

private:
    std::vector<std::vector<Influence>> ReadBones(const aiMesh& mesh);
    std::uint32_t JointOf(int node, const aiBone& bone);
    void AddTargets(const aiMesh& mesh, std::uint32_t first, const Matrix* pointMap);
    void AddFaces(const aiMesh& mesh, std::uint32_t first);

    const aiScene& m_Source;
    AssimpNodes& m_Nodes;
    NeutralScene& m_Scene;
    MeshBuilder m_Builder;
    NeutralSkin m_Skin;
    std::map<int, std::uint32_t> m_JointOfNode;
    std::uint64_t m_PointsAndLines = 0;
    std::uint64_t m_BadFaces = 0;
    bool m_HadAlpha = false;
    bool m_HadMoreColours = false;
    std::vector<std::string> m_LostBones;
};

std::uint32_t MeshJoiner::JointOf(int node, const aiBone& bone)
{
    const auto [entry, isNew] =
        m_JointOfNode.try_emplace(node, static_cast<std::uint32_t>(m_Skin.joints.size()));
    if (isNew) {
        m_Skin.joints.push_back({node, ToMatrix(bone.mOffsetMatrix)});
        m_Scene.nodes[static_cast<std::size_t>(node)].isBone = true;
    }
    return entry->second;
}

std::vector<std::vector<Influence>> MeshJoiner::ReadBones(const aiMesh& mesh)
{
    std::vector<std::vector<Influence>> influences(mesh.mNumVertices);
    for (unsigned i = 0; i < mesh.mNumBones; ++i) {
        const aiBone& bone = *mesh.mBones[i];
        const int node = m_Nodes.Find(bone.mName, m_Scene);
        if (node < 0) {
            m_LostBones.emplace_back(bone.mName.C_Str());
            continue;
        }
        const std::uint32_t joint = JointOf(node, bone);
        for (unsigned k = 0; k < bone.mNumWeights; ++k) {
            const aiVertexWeight& weight = bone.mWeights[k];
            if (weight.mVertexId < mesh.mNumVertices && weight.mWeight > 0.0f)
                influences[weight.mVertexId].push_back({joint, weight.mWeight});
        }
    }
    return influences;
}

void MeshJoiner::AddTargets(const aiMesh& mesh, std::uint32_t first, const Matrix* pointMap)
{
    for (unsigned target = 0; target < mesh.mNumAnimMeshes; ++target) {
        const aiAnimMesh& shape = *mesh.mAnimMeshes[target];
        // The weight that Assimp states here is always full: at rest nothing is moved.
        m_Builder.NameTarget(target, shape.mName.C_Str(), 0.0);
        if (!shape.mVertices)
            continue;
        for (unsigned i = 0; i < std::min(shape.mNumVertices, mesh.mNumVertices); ++i) {
            Float3 delta = ToFloat3(shape.mVertices[i] - mesh.mVertices[i]);
            if (pointMap)
                delta = ToFloat3(MapDirection(*pointMap, {delta.x, delta.y, delta.z}));
            m_Builder.SetDelta(target, first + i, delta);
        }
    }
}

void MeshJoiner::AddFaces(const aiMesh& mesh, std::uint32_t first)
{
    const int material = MaterialOf(m_Source, mesh.mMaterialIndex);
    std::vector<std::uint32_t> corners;
    for (unsigned f = 0; f < mesh.mNumFaces; ++f) {
        const aiFace& face = mesh.mFaces[f];
        if (face.mNumIndices < 3) {
            ++m_PointsAndLines;
            continue;
        }
        const auto beyond = [&](unsigned index) { return index >= mesh.mNumVertices; };
        if (std::any_of(face.mIndices, face.mIndices + face.mNumIndices, beyond)) {
            ++m_BadFaces;
            continue;
        }
        corners.assign(face.mIndices, face.mIndices + face.mNumIndices);
        for (std::uint32_t& corner : corners)
            corner += first;
        m_Builder.AddPolygon(corners, material);
        for (unsigned corner = 0; corner < face.mNumIndices; ++corner) {
            const unsigned vertex = face.mIndices[corner];
            for (unsigned channel = 0; channel < AI_MAX_NUMBER_OF_TEXTURECOORDS; ++channel)
                if (mesh.mTextureCoords[channel])
                    m_Builder.SetUv(channel, corner, ToFloat3(mesh.mTextureCoords[channel][vertex]));
            if (mesh.mColors[0]) {
                const aiColor4D& colour = mesh.mColors[0][vertex];
                m_Builder.SetColour(corner, {colour.r, colour.g, colour.b});
                m_HadAlpha = m_HadAlpha || colour.a != 1.0f;
            }
        }
    }
    m_HadMoreColours = m_HadMoreColours || mesh.mColors[1];
}

void MeshJoiner::Add(const aiMesh& mesh, const Matrix* pointMap)
{
    if (!mesh.mVertices)
        return;
    const std::vector<std::vector<Influence>> influences = ReadBones(mesh);
    const std::uint32_t first = m_Builder.VertexCount();
    for (unsigned i = 0; i < mesh.mNumVertices; ++i) {
        const aiVector3D& v = mesh.mVertices[i];
        m_Builder.AddVertex(pointMap ? ToFloat3(MapPoint(*pointMap, {v.x, v.y, v.z})) : ToFloat3(v),
                            influences[i]);
    }
    AddTargets(mesh, first, pointMap);
    AddFaces(mesh, first);
}

NeutralMesh MeshJoiner::Finish(std::string name)
{
    const std::string label = "mesh \"" + name + "\": ";
    const auto report = [&](std::uint64_t count, const char* what) {
        if (count > 0)
            m_Scene.warnings.push_back(label + std::to_string(count) + what);
    };
    report(m_PointsAndLines, " points and lines left out");
    report(m_BadFaces, " faces left out that name vertices which do not exist");
    if (m_HadAlpha)
        m_Scene.warnings.push_back(label + "the alpha of vertex colours left out");
    if (m_HadMoreColours)
        m_Scene.warnings.push_back(label + "all colour sets but the first left out");
    for (const std::string& bone : m_LostBones)
        m_Scene.warnings.push_back(label + "the bone \"" + bone + "\" does not exist");
    return m_Builder.Finish(std::move(name));
}

bool HasBones(const aiScene& source, const aiNode& node)
{
    return std::any_of(node.mMeshes, node.mMeshes + node.mNumMeshes, [&](unsigned mesh) {
        return mesh < source.mNumMeshes && source.mMeshes[mesh]->mNumBones > 0;
    });
}

}  // namespace

void ReadAssimpMeshes(const aiScene& source, AssimpNodes& nodes, NeutralScene& scene)
{
    struct Joined {
        int mesh = -1;
        int skin = -1;
    };
    // By the list of meshes; and by the node where its geometric offset makes the
    // points its own.
    std::map<std::pair<std::vector<unsigned>, int>, Joined> joined;
    for (std::size_t i = 0; i < nodes.Count(); ++i) {
        const aiNode& node = *nodes[i].node;
        if (node.mNumMeshes == 0)
            continue;
        const bool movesPoints = HasBones(source, node) && !IsIdentity(scene.nodes[i].objectOffset);
        const auto [entry, isNew] = joined.try_emplace(
            {{node.mMeshes, node.mMeshes + node.mNumMeshes}, movesPoints ? static_cast<int>(i) : -1});
        if (isNew) {
            MeshJoiner joiner(source, nodes, scene);
            std::string name;
            for (const unsigned index : entry->first.first) {
                if (index >= source.mNumMeshes)
                    continue;
                const aiMesh& mesh = *source.mMeshes[index];
                joiner.Add(mesh, movesPoints ? &nodes[i].geometric : nullptr);
                if (name.empty())
                    name = mesh.mName.C_Str();
            }
            entry->second.mesh = static_cast<int>(scene.meshes.size());
            scene.meshes.push_back(joiner.Finish(name.empty() ? scene.nodes[i].name : name));
            if (!joiner.Skin().joints.empty()) {
                entry->second.skin = static_cast<int>(scene.skins.size());
                scene.skins.push_back(std::move(joiner.Skin()));
            }
        }
        scene.nodes[i].mesh = entry->second.mesh;
        scene.nodes[i].skin = entry->second.skin;
        if (movesPoints)
            scene.nodes[i].objectOffset = {};
    }
}

void ReadAssimpMaterials(const aiScene& source, NeutralScene& scene)
{
    for (unsigned i = 0; i < source.mNumMaterials; ++i) {
        const aiMaterial& material = *source.mMaterials[i];
        NeutralMaterial result;
        result.name = material.GetName().C_Str();
        aiColor3D diffuse;
        if (material.Get(AI_MATKEY_COLOR_DIFFUSE, diffuse) == aiReturn_SUCCESS)
            result.diffuse = Float3{diffuse.r, diffuse.g, diffuse.b};
        aiString texture;
        if (material.Get(AI_MATKEY_TEXTURE_DIFFUSE(0), texture) == aiReturn_SUCCESS)
            result.diffuseTexture = texture.C_Str();
        scene.materials.push_back(std::move(result));
    }
}

}  // namespace maxhost::io
