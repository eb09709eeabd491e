#include "host/io/MeshBuilder.h"

#include <algorithm>
#include <bit>
#include <limits>

namespace maxhost::io {

namespace {

constexpr std::uint32_t kNone = std::numeric_limits<std::uint32_t>::max();

std::uint32_t BitsOf(float value)
{
    return std::bit_cast<std::uint32_t>(value == 0.0f ? 0.0f : value);
}

// FNV's step, a word at a time, with the high bits folded down.
void Mix(std::uint64_t& hash, std::uint32_t word)
{
    hash = (hash ^ word) * 0x100000001B3ull;
    hash ^= hash >> 29;
}

void Mix(std::uint64_t& hash, const Float3& value)
{
    Mix(hash, BitsOf(value.x));
    Mix(hash, BitsOf(value.y));
    Mix(hash, BitsOf(value.z));
}

constexpr std::uint64_t kHashStart = 0xCBF29CE484222325ull;

bool SameBitsOf(const Float3& a, const Float3& b)
{
    return BitsOf(a.x) == BitsOf(b.x) && BitsOf(a.y) == BitsOf(b.y) && BitsOf(a.z) == BitsOf(b.z);
}

}  // namespace

std::size_t ValueTable::Hash::operator()(const Float3& value) const
{
    std::uint64_t hash = kHashStart;
    Mix(hash, value);
    return static_cast<std::size_t>(hash);
}

bool ValueTable::SameBits::operator()(const Float3& a, const Float3& b) const
{
    return SameBitsOf(a, b);
}

std::uint32_t ValueTable::Add(const Float3& value)
{
    const auto [entry, isNew] = m_Numbers.try_emplace(value, static_cast<std::uint32_t>(m_Values.size()));
    if (isNew)
        m_Values.push_back(value);
    return entry->second;
}

std::uint32_t MeshBuilder::AddVertex(const Float3& position, std::span<const Influence> influences)
{
    m_Positions.push_back(position);
    m_Influences.insert(m_Influences.end(), influences.begin(), influences.end());
    m_InfluenceStarts.push_back(static_cast<std::uint32_t>(m_Influences.size()));
    return static_cast<std::uint32_t>(m_Positions.size() - 1);
}

void MeshBuilder::NameTarget(std::size_t target, const std::string& name, double weight)
{
    if (m_Mesh.targets.size() <= target)
        m_Mesh.targets.resize(target + 1);
    m_Mesh.targets[target].name = name;
    m_Mesh.targets[target].weight = weight;
}

void MeshBuilder::SetDelta(std::size_t target, std::uint32_t vertex, const Float3& delta)
{
    auto& deltas = m_Mesh.targets[target].deltas;
    if (deltas.size() <= vertex)
        deltas.resize(vertex + 1);
    deltas[vertex] = delta;
}

void MeshBuilder::AddPolygon(std::span<const std::uint32_t> vertices, int material)
{
    m_Mesh.corners.insert(m_Mesh.corners.end(), vertices.begin(), vertices.end());
    m_Mesh.cornerCounts.push_back(static_cast<std::uint32_t>(vertices.size()));
    m_Mesh.materials.push_back(material);
}

void MeshBuilder::SetUv(std::size_t channel, std::size_t corner, const Float3& value)
{
    if (m_Uvs.size() <= channel)
        m_Uvs.resize(channel + 1);
    SetChannel(m_Uvs[channel], corner, value);
}

void MeshBuilder::SetColour(std::size_t corner, const Float3& value)
{
    SetChannel(m_Colours, corner, value);
}

void MeshBuilder::SetChannel(Channel& channel, std::size_t corner, const Float3& value)
{
    const std::size_t place = m_Mesh.corners.size() - m_Mesh.cornerCounts.back() + corner;
    if (channel.corners.size() <= place)
        channel.corners.resize(m_Mesh.corners.size(), 0);
    channel.corners[place] = channel.table.Add(value) + 1;
}

MapChannel MeshBuilder::TakeChannel(Channel& channel) const
{
    channel.corners.resize(m_Mesh.corners.size(), 0);
    for (std::uint32_t& corner : channel.corners)
        corner = corner == 0 ? channel.table.Add({}) : corner - 1;
    return {channel.table.TakeValues(), std::move(channel.corners)};
}

std::span<const Influence> MeshBuilder::InfluencesOf(std::uint32_t vertex) const
{
    const std::uint32_t start = m_InfluenceStarts[vertex];
    return std::span(m_Influences).subspan(start, m_InfluenceStarts[vertex + 1] - start);
}

Float3 MeshBuilder::DeltaOf(std::size_t target, std::uint32_t vertex) const
{
    const auto& deltas = m_Mesh.targets[target].deltas;
    return vertex < deltas.size() ? deltas[vertex] : Float3{};
}

bool MeshBuilder::SamePoint(std::uint32_t a, std::uint32_t b) const
{
    if (!SameBitsOf(m_Positions[a], m_Positions[b]))
        return false;
    const auto ofA = InfluencesOf(a), ofB = InfluencesOf(b);
    if (!std::equal(ofA.begin(), ofA.end(), ofB.begin(), ofB.end()))
        return false;
    for (std::size_t target = 0; target < m_Mesh.targets.size(); ++target)
        if (!SameBitsOf(DeltaOf(target, a), DeltaOf(target, b)))
            return false;
    return true;
}

std::uint64_t MeshBuilder::HashOf(std::uint32_t vertex) const
{
    std::uint64_t hash = kHashStart;
    Mix(hash, m_Positions[vertex]);
    for (const Influence& influence : InfluencesOf(vertex)) {
        Mix(hash, influence.joint);
        Mix(hash, BitsOf(influence.weight));
    }
    for (std::size_t target = 0; target < m_Mesh.targets.size(); ++target)
        Mix(hash, DeltaOf(target, vertex));
    return hash;
}

// Answers the vertex that each point comes from, in the order of the vertices.
std::vector<std::uint32_t> MeshBuilder::WeldUsedVertices(std::vector<std::uint32_t>& pointOfVertex) const
{
    std::vector<bool> used(m_Positions.size());
    for (const std::uint32_t vertex : m_Mesh.corners)
        used[vertex] = true;
    std::vector<std::uint32_t> vertexOfPoint;
    std::vector<std::uint32_t> nextWithHash;  // chains the points of one hash
    std::unordered_map<std::uint64_t, std::uint32_t> lastWithHash;
    pointOfVertex.assign(m_Positions.size(), kNone);
    for (std::uint32_t vertex = 0; vertex < m_Positions.size(); ++vertex) {
        if (!used[vertex])
            continue;
        const auto entry = lastWithHash.try_emplace(HashOf(vertex), kNone).first;
        std::uint32_t point = entry->second;
        while (point != kNone && !SamePoint(vertexOfPoint[point], vertex))
            point = nextWithHash[point];
        if (point == kNone) {
            point = static_cast<std::uint32_t>(vertexOfPoint.size());
            vertexOfPoint.push_back(vertex);
            nextWithHash.push_back(entry->second);
            entry->second = point;
        }
        pointOfVertex[vertex] = point;
    }
    return vertexOfPoint;
}

NeutralMesh MeshBuilder::Finish(std::string name)
{
    std::vector<std::uint32_t> pointOfVertex;
    const std::vector<std::uint32_t> vertexOfPoint = WeldUsedVertices(pointOfVertex);

    for (std::uint32_t& corner : m_Mesh.corners)
        corner = pointOfVertex[corner];
    for (const std::uint32_t vertex : vertexOfPoint)
        m_Mesh.points.push_back(m_Positions[vertex]);
    if (!m_Influences.empty()) {
        m_Mesh.influenceStarts.push_back(0);
        for (const std::uint32_t vertex : vertexOfPoint) {
            const auto influences = InfluencesOf(vertex);
            m_Mesh.influences.insert(m_Mesh.influences.end(), influences.begin(), influences.end());
            m_Mesh.influenceStarts.push_back(static_cast<std::uint32_t>(m_Mesh.influences.size()));
        }
    }
    for (std::size_t target = 0; target < m_Mesh.targets.size(); ++target) {
        std::vector<Float3> deltas;
        deltas.reserve(vertexOfPoint.size());
        for (const std::uint32_t vertex : vertexOfPoint)
            deltas.push_back(DeltaOf(target, vertex));
        m_Mesh.targets[target].deltas = std::move(deltas);
    }
    for (Channel& channel : m_Uvs)
        m_Mesh.uvs.push_back(TakeChannel(channel));
    if (!m_Colours.corners.empty())
        m_Mesh.colours = TakeChannel(m_Colours);
    m_Mesh.name = std::move(name);
    return std::move(m_Mesh);
}

}  // namespace maxhost::io
