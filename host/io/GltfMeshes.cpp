#include "host/io/GltfMeshes.h"

#include <algorithm>
#include <array>
#include <map>
#include <numeric>

#include "host/io/MeshBuilder.h"

namespace maxhost::io {

namespace {

constexpr int kNone = -1;

using Triangle = std::array<std::uint32_t, 3>;

int Attribute(const std::map<std::string, int>& attributes, const std::string& name)
{
    const auto found = attributes.find(name);
    return found == attributes.end() ? kNone : found->second;
}

// The accessors of TEXCOORD_0, TEXCOORD_1 and so on, to the first gap.
std::vector<int> NumberedAttributes(const tinygltf::Primitive& primitive, const std::string& prefix)
{
    std::vector<int> result;
    for (int accessor = 0; accessor != kNone;) {
        accessor = Attribute(primitive.attributes, prefix + std::to_string(result.size()));
        if (accessor != kNone)
            result.push_back(accessor);
    }
    return result;
}

Float3 Element3(const GltfNumbers& numbers, std::size_t index)
{
    const float* value = &numbers.values[index * numbers.width];
    return {value[0], value[1], value[2]};
}

// One mesh of the file on its way.
class MeshReader {
public:
    MeshReader(const tinygltf::Mesh& mesh, std::string label, GltfAccessors& accessors)
        : m_Mesh(mesh), m_Label(std::move(label)), m_Accessors(accessors)
    {
    }

    NeutralMesh Read(std::vector<std::string>& warnings);

private:
    // What makes the vertices of a primitive: those with equal ones share them.
    struct PoolKey {
        int positions = kNone;
        std::vector<int> joints, weights, targets;
        auto operator<=>(const PoolKey&) const = default;
    };
    struct Pool {
        std::uint32_t first = 0;
        std::uint32_t count = 0;
    };

    void NameTargets();
    PoolKey KeyOf(const tinygltf::Primitive& primitive) const;
    Pool VerticesOf(const tinygltf::Primitive& primitive);
    Pool AddVertices(const PoolKey& key);
    std::vector<Influence> InfluencesOf(const PoolKey& key, std::size_t vertex);
    void ReadPrimitive(const tinygltf::Primitive& primitive);
    void AddTriangle(const tinygltf::Primitive& primitive, const Pool& pool, const Triangle& vertices);
    void Report(const char* what, std::uint64_t count, std::vector<std::string>& warnings) const;

    const tinygltf::Mesh& m_Mesh;
    const std::string m_Label;
    GltfAccessors& m_Accessors;
    MeshBuilder m_Builder;
    std::map<PoolKey, Pool> m_Pools;
    std::size_t m_TargetCount = 0;
    // Of the primitive being read.
    std::vector<const GltfNumbers*> m_Uvs;
    const GltfNumbers* m_Colours = nullptr;
    // What was left out.
    std::uint64_t m_PointsAndLines = 0;
    std::uint64_t m_BadTriangles = 0;
    std::uint64_t m_Unfinished = 0;
    std::uint64_t m_WithoutPositions = 0;
    bool m_HadAlpha = false;
};

void MeshReader::NameTargets()
{
    for (const tinygltf::Primitive& primitive : m_Mesh.primitives)
        m_TargetCount = std::max(m_TargetCount, primitive.targets.size());
    const tinygltf::Value* names = nullptr;
    if (m_Mesh.extras.IsObject() && m_Mesh.extras.Has("targetNames"))
        names = &m_Mesh.extras.Get("targetNames");
    for (std::size_t i = 0; i < m_TargetCount; ++i) {
        std::string name = "Target" + std::to_string(i + 1);
        if (names && names->IsArray() && i < names->ArrayLen() && names->Get(static_cast<int>(i)).IsString())
            name = names->Get(static_cast<int>(i)).Get<std::string>();
        m_Builder.NameTarget(i, name, i < m_Mesh.weights.size() ? m_Mesh.weights[i] : 0.0);
    }
}

MeshReader::PoolKey MeshReader::KeyOf(const tinygltf::Primitive& primitive) const
{
    PoolKey key;
    key.positions = Attribute(primitive.attributes, "POSITION");
    key.joints = NumberedAttributes(primitive, "JOINTS_");
    key.weights = NumberedAttributes(primitive, "WEIGHTS_");
    const std::size_t sets = std::min(key.joints.size(), key.weights.size());
    key.joints.resize(sets);
    key.weights.resize(sets);
    for (const auto& target : primitive.targets)
        key.targets.push_back(Attribute(target, "POSITION"));
    return key;
}

std::vector<Influence> MeshReader::InfluencesOf(const PoolKey& key, std::size_t vertex)
{
    std::vector<Influence> influences;
    for (std::size_t set = 0; set < key.joints.size(); ++set) {
        const GltfNumbers& joints = m_Accessors.Numbers(key.joints[set], 4);
        const GltfNumbers& weights = m_Accessors.Numbers(key.weights[set], 4);
        if (vertex >= joints.Count() || vertex >= weights.Count())
            continue;
        for (std::size_t i = 4 * vertex; i < 4 * vertex + 4; ++i) {
            // Joint numbers of files are 8 or 16 bits wide.
            if (!(weights.values[i] > 0.0f) || !(joints.values[i] >= 0.0f) || joints.values[i] > 65535.0f)
                continue;
            const auto joint = static_cast<std::uint32_t>(joints.values[i]);
            const auto same = std::ranges::find(influences, joint, &Influence::joint);
            if (same != influences.end())
                same->weight += weights.values[i];
            else
                influences.push_back({joint, weights.values[i]});
        }
    }
    return influences;
}

MeshReader::Pool MeshReader::AddVertices(const PoolKey& key)
{
    const GltfNumbers& positions = m_Accessors.Numbers(key.positions, 3);
    m_Accessors.Charge(positions.Count() * (1 + m_TargetCount));
    const Pool pool{m_Builder.VertexCount(), static_cast<std::uint32_t>(positions.Count())};
    for (std::size_t i = 0; i < positions.Count(); ++i)
        m_Builder.AddVertex(Element3(positions, i), InfluencesOf(key, i));
    for (std::size_t target = 0; target < key.targets.size(); ++target) {
        if (key.targets[target] == kNone)
            continue;
        const GltfNumbers& deltas = m_Accessors.Numbers(key.targets[target], 3);
        for (std::uint32_t i = 0; i < std::min<std::size_t>(pool.count, deltas.Count()); ++i)
            m_Builder.SetDelta(target, pool.first + i, Element3(deltas, i));
    }
    return pool;
}

MeshReader::Pool MeshReader::VerticesOf(const tinygltf::Primitive& primitive)
{
    PoolKey key = KeyOf(primitive);
    const auto found = m_Pools.find(key);
    if (found != m_Pools.end())
        return found->second;
    const Pool pool = AddVertices(key);
    m_Pools.emplace(std::move(key), pool);
    return pool;
}

void MeshReader::AddTriangle(const tinygltf::Primitive& primitive, const Pool& pool, const Triangle& vertices)
{
    if (std::ranges::any_of(vertices, [&](std::uint32_t vertex) { return vertex >= pool.count; })) {
        ++m_BadTriangles;
        return;
    }
    Triangle numbers = vertices;
    for (std::uint32_t& vertex : numbers)
        vertex += pool.first;
    m_Builder.AddPolygon(numbers, primitive.material);
    for (std::size_t corner = 0; corner < 3; ++corner) {
        const std::size_t vertex = vertices[corner];
        for (std::size_t set = 0; set < m_Uvs.size(); ++set) {
            if (vertex >= m_Uvs[set]->Count())
                continue;
            const float* uv = &m_Uvs[set]->values[2 * vertex];
            m_Builder.SetUv(set, corner, {uv[0], 1.0f - uv[1], 0.0f});
        }
        if (m_Colours && vertex < m_Colours->Count()) {
            m_Builder.SetColour(corner, Element3(*m_Colours, vertex));
            if (m_Colours->width == 4 && m_Colours->values[4 * vertex + 3] != 1.0f)
                m_HadAlpha = true;
        }
    }
}

void MeshReader::ReadPrimitive(const tinygltf::Primitive& primitive)
{
    if (primitive.mode >= TINYGLTF_MODE_POINTS && primitive.mode < TINYGLTF_MODE_TRIANGLES) {
        ++m_PointsAndLines;
        return;
    }
    if (Attribute(primitive.attributes, "POSITION") == kNone) {
        ++m_WithoutPositions;
        return;
    }
    const Pool pool = VerticesOf(primitive);
    m_Uvs.clear();
    for (const int accessor : NumberedAttributes(primitive, "TEXCOORD_"))
        m_Uvs.push_back(&m_Accessors.Numbers(accessor, 2));
    const int colours = Attribute(primitive.attributes, "COLOR_0");
    m_Colours = colours == kNone ? nullptr : &m_Accessors.Colours(colours);

    std::vector<std::uint32_t> corners;
    if (primitive.indices >= 0) {
        corners = m_Accessors.Indices(primitive.indices);
    } else {
        corners.resize(pool.count);
        std::iota(corners.begin(), corners.end(), 0u);
    }
    m_Accessors.Charge(corners.size() * (1 + m_Uvs.size()));

    if (primitive.mode == TINYGLTF_MODE_TRIANGLE_STRIP) {
        // Strips are joined by triangles of no area.
        for (std::size_t i = 0; i + 2 < corners.size(); ++i) {
            const Triangle t{corners[i], corners[i + 1 + i % 2], corners[i + 2 - i % 2]};
            if (t[0] != t[1] && t[1] != t[2] && t[2] != t[0])
                AddTriangle(primitive, pool, t);
        }
    } else if (primitive.mode == TINYGLTF_MODE_TRIANGLE_FAN) {
        for (std::size_t i = 0; i + 2 < corners.size(); ++i)
            AddTriangle(primitive, pool, {corners[i + 1], corners[i + 2], corners[0]});
    } else {
        for (std::size_t i = 0; i + 2 < corners.size(); i += 3)
            AddTriangle(primitive, pool, {corners[i], corners[i + 1], corners[i + 2]});
        m_Unfinished += corners.size() % 3 != 0;
    }
}

void MeshReader::Report(const char* what, std::uint64_t count, std::vector<std::string>& warnings) const
{
    if (count > 0)
        warnings.push_back(m_Label + ": " + std::to_string(count) + " " + what);
}

NeutralMesh MeshReader::Read(std::vector<std::string>& warnings)
{
    NameTargets();
    for (const tinygltf::Primitive& primitive : m_Mesh.primitives)
        ReadPrimitive(primitive);
    Report("primitives of points or lines left out", m_PointsAndLines, warnings);
    Report("primitives without positions left out", m_WithoutPositions, warnings);
    Report("triangles left out that name vertices which do not exist", m_BadTriangles, warnings);
    Report("primitives whose last triangle is incomplete", m_Unfinished, warnings);
    if (m_HadAlpha)
        warnings.push_back(m_Label + ": the alpha of vertex colours left out");
    return m_Builder.Finish(m_Mesh.name);
}

}  // namespace

std::vector<NeutralMesh> ReadGltfMeshes(const tinygltf::Model& model, GltfAccessors& accessors,
                                        std::vector<std::string>& warnings)
{
    std::vector<NeutralMesh> meshes;
    for (const tinygltf::Mesh& mesh : model.meshes) {
        const std::string label = "mesh " + std::to_string(meshes.size()) + " \"" + mesh.name + "\"";
        meshes.push_back(MeshReader(mesh, label, accessors).Read(warnings));
    }
    return meshes;
}

}  // namespace maxhost::io
