#pragma once

#include <string_view>

#include "Measure.h"
#include "VKT/document/Model.h"
#include "VKT/geometry/PolygonMesh.h"

namespace Bench {

// Workload M: a polygon mesh of a million triangles over a jittered grid of 1000 by 500
// squares. 501,501 points, a normal for each on the points' index set, and 502,002 uvs
// with an index set of their own, since a seam doubles one column.
//
// The arrays are of the types that the library's mesh holds, so that all contestants
// touch the same memory.
struct MeshData {
    XVector3Array points;
    XU32Array polyCounts;
    XIntList pointIndices;
    XRealList normals;
    XIntList uvIndices;
    XRealList uvs;

    u64 Bytes() const;
    std::string Sum() const;
};

// What the numbers look like.
enum class Numbers {
    kRegular,    // of a real mesh: most numbers have as many digits as their neighbours
    kIrregular,  // 1 to 9 digits and ten powers of ten at random; indices likewise
};

// The same data for the same argument on every machine.
MeshData MakeMesh(Numbers numbers);

// Makes a document that holds the mesh and nothing else.
void FillModel(XModel& model, const MeshData& data);
// The mesh of a loaded document.
const XPolygonMesh& MeshOf(const XModel& model);
u64 BytesOf(const XPolygonMesh& mesh);
std::string SumOf(const XPolygonMesh& mesh);

// The text form of the document of `FillModel`, byte for byte.
template <class Writer>
void WriteMesh(Writer& out, const MeshData& mesh)
{
    const auto row = [&](std::string_view before, const auto* values, std::size_t count) {
        out.Write(before);
        for (std::size_t i = 0; i < count; ++i) {
            out.Write(values[i]);
            out.Write(std::string_view(" "));
        }
        out.Write(std::string_view("\n"));
    };
    const auto text = [&](std::string_view line) { out.Write(line); };
    text("|VKT_004A#0000#00000000|\nPOLYGON_MESH node1\n{\n\tid 1\n\tpoints ");
    out.Write(mesh.points.size());
    text("\n");
    for (const XVector3& point : mesh.points) {
        text("\t\t");
        out.Write(point.x);
        text(" ");
        out.Write(point.y);
        text(" ");
        out.Write(point.z);
        text("\n");
    }
    text("\tdeformer_queue 0\n\tintermediate_object 0\n");
    text("\tpoint_index_set \"points\"\n\tPOLY_COUNTS ");
    out.Write(mesh.polyCounts.size());
    text("\n\t{\n");
    for (const u32 count : mesh.polyCounts) {
        text("\t\t");
        out.Write(count);
        text("\n");
    }
    text("\t}\n\tnum_index_sets 2\n");
    const auto indexSet = [&](std::string_view heading, const XIntList& indices) {
        text(heading);
        for (std::size_t i = 0; i < indices.size(); i += 3)
            row("\t\t", &indices[i], 3);
        text("\t}\n");
    };
    indexSet("\tINDEX_SET \"points\"\n\t{\n", mesh.pointIndices);
    indexSet("\tINDEX_SET \"uvs\"\n\t{\n", mesh.uvIndices);
    text("\tnum_vertex_sets 2\n");
    const auto vertexSet = [&](std::string_view name, std::string_view usage, std::string_view indices,
                               const XRealList& elements, std::size_t size) {
        text("\tVERTEX_SET ");
        text(name);
        text("\n\t{\n\t\tnum_elements ");
        out.Write(elements.size() / size);
        text("\n\t\telement_size ");
        out.Write(size);
        text("\n\t\tusage ");
        text(usage);
        text("\n\t\tindex_set ");
        text(indices);
        text("\n\t\telements\n");
        for (std::size_t i = 0; i < elements.size(); i += size)
            row("\t\t\t", &elements[i], size);
        text("\t}\n");
    };
    vertexSet("\"normals\"", "kNormal", "\"points\"", mesh.normals, 3);
    vertexSet("\"uvs\"", "kTexCoord", "\"uvs\"", mesh.uvs, 2);
    text("}\n");
    out.Flush();
}

// Reads what `WriteMesh` wrote.
template <class Reader>
void ReadMesh(Reader& in, MeshData& mesh)
{
    const auto expect = [&](std::string_view key) {
        if (in.Token() != key)
            Fail("the text is not that of the mesh");
    };
    const auto count = [&](std::string_view key) {
        u32 value = 0;
        expect(key);
        in.Read(value);
        return std::size_t{value};
    };
    const auto list = [&](auto& values, std::size_t size) {
        values.resize(size);
        for (auto& value : values)
            in.Read(value);
    };
    in.Token();
    expect("POLYGON_MESH");
    in.Token();
    expect("{");
    count("id");
    mesh.points.resize(count("points"));
    for (XVector3& point : mesh.points) {
        in.Read(point.x);
        in.Read(point.y);
        in.Read(point.z);
        point.w = 0;
    }
    count("deformer_queue");
    count("intermediate_object");
    expect("point_index_set");
    in.Token();
    const std::size_t polygons = count("POLY_COUNTS");
    expect("{");
    list(mesh.polyCounts, polygons);
    std::size_t corners = 0;
    for (const u32 sides : mesh.polyCounts)
        corners += sides;
    expect("}");
    count("num_index_sets");
    for (XIntList* const indices : {&mesh.pointIndices, &mesh.uvIndices}) {
        expect("INDEX_SET");
        in.Token();
        expect("{");
        list(*indices, corners);
        expect("}");
    }
    count("num_vertex_sets");
    for (XRealList* const elements : {&mesh.normals, &mesh.uvs}) {
        expect("VERTEX_SET");
        in.Token();
        expect("{");
        const std::size_t number = count("num_elements");
        const std::size_t size = count("element_size");
        expect("usage");
        in.Token();
        expect("index_set");
        in.Token();
        expect("elements");
        list(*elements, number * size);
        expect("}");
    }
    expect("}");
}

}  // namespace Bench
