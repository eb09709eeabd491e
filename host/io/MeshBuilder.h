#pragma once

#include <cstdint>
#include <span>
#include <unordered_map>
#include <vector>

#include "host/io/NeutralScene.h"

namespace maxhost::io {

// Numbers values so that equal ones share a number. Bits decide: -0 is 0, and a
// NaN equals a NaN of the same bits.
class ValueTable {
public:
    std::uint32_t Add(const Float3& value);
    std::vector<Float3> TakeValues() { return std::move(m_Values); }

private:
    struct Hash {
        std::size_t operator()(const Float3& value) const;
    };
    struct SameBits {
        bool operator()(const Float3& a, const Float3& b) const;
    };
    std::vector<Float3> m_Values;
    std::unordered_map<Float3, std::uint32_t, Hash, SameBits> m_Numbers;
};

// Makes a welded mesh out of the vertices that file libraries deliver, which are
// split wherever any attribute changes.
//
// Add all vertices, then the polygons over them; Finish welds. Vertices that no
// polygon uses make no point.
class MeshBuilder {
public:
    // Of a vertex that is not skinned `influences` is empty.
    // Answers the vertex's number; they count up from 0.
    std::uint32_t AddVertex(const Float3& position, std::span<const Influence> influences);
    std::uint32_t VertexCount() const { return static_cast<std::uint32_t>(m_Positions.size()); }

    // Vertices that the target never moves need no delta.
    void NameTarget(std::size_t target, const std::string& name, double weight);
    void SetDelta(std::size_t target, std::uint32_t vertex, const Float3& delta);

    void AddPolygon(std::span<const std::uint32_t> vertices, int material);
    // The map value of one corner of the polygon added last. A channel that some
    // corners do not set holds (0, 0, 0) there.
    void SetUv(std::size_t channel, std::size_t corner, const Float3& value);
    void SetColour(std::size_t corner, const Float3& value);

    bool HasPolygons() const { return !m_Mesh.cornerCounts.empty(); }
    NeutralMesh Finish(std::string name);

private:
    struct Channel {
        ValueTable table;
        std::vector<std::uint32_t> corners;  // number in table + 1; 0 and missing ones: not set
    };
    void SetChannel(Channel& channel, std::size_t corner, const Float3& value);
    MapChannel TakeChannel(Channel& channel) const;
    bool SamePoint(std::uint32_t a, std::uint32_t b) const;
    std::uint64_t HashOf(std::uint32_t vertex) const;
    std::vector<std::uint32_t> WeldUsedVertices(std::vector<std::uint32_t>& pointOfVertex) const;
    std::span<const Influence> InfluencesOf(std::uint32_t vertex) const;
    Float3 DeltaOf(std::size_t target, std::uint32_t vertex) const;

    NeutralMesh m_Mesh;  // its corners hold vertices until Finish
    std::vector<Float3> m_Positions;
    std::vector<std::uint32_t> m_InfluenceStarts{0};
    std::vector<Influence> m_Influences;
    std::vector<Channel> m_Uvs;
    Channel m_Colours;
};

}  // namespace maxhost::io
