#include "MeshData.h"

#include <cmath>

namespace Bench {
namespace {

constexpr u32 kColumns = 1000;  // squares; one point more
constexpr u32 kRows = 500;
constexpr u32 kSeam = 500;  // this column of uvs stands twice

// A small generator of our own: standard distributions differ between libraries.
class Random {
public:
    u32 Below(u32 bound) { return static_cast<u32>((Next() >> 32) * bound >> 32); }
    f32 Unit() { return static_cast<f32>(Next() >> 40) / 16777216.0f; }  // 24 random bits

private:
    u64 Next() { return m_State = m_State * 6364136223846793005 + 1442695040888963407; }

    u64 m_State = 1;
};

// The float nearest to a decimal number: its six digits read back as the same float.
f32 Decimal(double value, f32 scale)
{
    return static_cast<f32>(std::lround(value * double{scale})) / scale;
}

f32 Irregular(Random& random)
{
    static constexpr double kPowers[] = {1e0, 1e1, 1e2, 1e3, 1e4, 1e5, 1e6, 1e7, 1e8};
    const u32 digits = 1 + random.Below(9);
    const double mantissa = 0.1 + 0.9 * double{random.Unit()};
    const double rounded = std::floor(mantissa * 10 * kPowers[digits - 1]) / kPowers[digits - 1];  // 1 to 10
    const double magnitude = rounded * std::pow(10.0, static_cast<int>(random.Below(10)) - 4);
    return static_cast<f32>(random.Below(2) ? magnitude : -magnitude);
}

i32 IrregularIndex(Random& random, std::size_t size)
{
    static constexpr u32 kPowers[] = {10, 100, 1000, 10000, 100000, 1000000};
    return static_cast<i32>(random.Below(std::min<u32>(kPowers[random.Below(6)], static_cast<u32>(size))));
}

void FillPoints(MeshData& mesh, Random& random)
{
    const auto jitter = [&](u32 at, u32 last) {
        return at == 0 || at == last ? 0.0 : 0.6 * (double{random.Unit()} - 0.5);
    };
    for (u32 row = 0; row <= kRows; ++row) {
        for (u32 column = 0; column <= kColumns; ++column) {
            const double x = column + jitter(column, kColumns);
            const double z = row + jitter(row, kRows);
            const double y = 20 * std::sin(column * 0.02) * std::cos(row * 0.03) + double{random.Unit()};
            mesh.points.push_back({Decimal(x, 1e3f), Decimal(y, 1e3f), Decimal(z, 1e3f), 0});
            const double slopeX = double{random.Unit()} - 0.5;
            const double slopeZ = double{random.Unit()} - 0.5;
            const double length = std::sqrt(slopeX * slopeX + 1 + slopeZ * slopeZ);
            for (const double part : {-slopeX, 1.0, -slopeZ})
                mesh.normals.push_back(Decimal(part / length, 1e6f));
        }
        for (u32 column = 0; column <= kColumns + 1; ++column) {
            mesh.uvs.push_back(Decimal(1.0 * column / (kColumns + 1), 1e6f));
            mesh.uvs.push_back(Decimal(1.0 * row / kRows, 1e6f));
        }
    }
}

void FillTriangles(MeshData& mesh)
{
    const auto corner = [&](u32 column, u32 row, bool behindSeam) {
        mesh.pointIndices.push_back(static_cast<i32>(row * (kColumns + 1) + column));
        mesh.uvIndices.push_back(static_cast<i32>(row * (kColumns + 2) + column + behindSeam));
    };
    for (u32 row = 0; row < kRows; ++row) {
        for (u32 column = 0; column < kColumns; ++column) {
            const bool behindSeam = column >= kSeam;
            corner(column, row, behindSeam);
            corner(column, row + 1, behindSeam);
            corner(column + 1, row + 1, behindSeam);
            corner(column, row, behindSeam);
            corner(column + 1, row + 1, behindSeam);
            corner(column + 1, row, behindSeam);
        }
    }
    mesh.polyCounts.resize(mesh.pointIndices.size() / 3, 3);
}

void MakeIrregular(MeshData& mesh, Random& random)
{
    for (XVector3& point : mesh.points)
        point = {Irregular(random), Irregular(random), Irregular(random), 0};
    for (XRealList* const list : {&mesh.normals, &mesh.uvs})
        for (f32& value : *list)
            value = Irregular(random);
    for (i32& index : mesh.pointIndices)
        index = IrregularIndex(random, mesh.points.size());
    for (i32& index : mesh.uvIndices)
        index = IrregularIndex(random, mesh.uvs.size() / 2);
}

template <class... Lists>
u64 SumOfBytes(const Lists&... lists)
{
    return (0 + ... + (lists.size() * sizeof(lists[0])));
}

}  // namespace

u64 MeshData::Bytes() const
{
    return SumOfBytes(points, polyCounts, pointIndices, normals, uvIndices, uvs);
}

std::string MeshData::Sum() const
{
    Checksum sum;
    sum.AddList(points);
    sum.AddList(polyCounts);
    sum.AddList(pointIndices);
    sum.AddList(normals);
    sum.AddList(uvIndices);
    sum.AddList(uvs);
    return sum.Text();
}

MeshData MakeMesh(Numbers numbers)
{
    MeshData mesh;
    Random random;
    FillPoints(mesh, random);
    FillTriangles(mesh);
    if (numbers == Numbers::kIrregular)
        MakeIrregular(mesh, random);
    return mesh;
}

void FillModel(XModel& model, const MeshData& data)
{
    XPolygonMesh* const mesh = model.CreateNode<XPolygonMesh>();
    if (!mesh->SetPolygons(data.polyCounts, XU32Array(data.pointIndices.begin(), data.pointIndices.end())))
        Fail("the mesh was refused");
    mesh->SetPoints(data.points);
    XIndexSet* const uvIndices = mesh->AddIndexSet("uvs");
    uvIndices->SetIndices(data.uvIndices);
    const auto vertexSet = [&](const char* name, const XRealList& elements, u32 size, u32 usage,
                               const XIndexSet* indices) {
        XVertexSet* const set =
            mesh->AddVertexSet(name, static_cast<u32>(elements.size() / size), size, usage);
        set->GetElements() = elements;
        set->SetIndexSet(indices);
    };
    vertexSet("normals", data.normals, 3, kNormal, mesh->GetPointIndexSet());
    vertexSet("uvs", data.uvs, 2, kTexCoord, uvIndices);
}

const XPolygonMesh& MeshOf(const XModel& model)
{
    XNodeList meshes;
    model.List(meshes, XPolygonMesh::kType);
    if (meshes.size() != 1)
        Fail("the document does not hold one mesh");
    const XPolygonMesh& mesh = *XCast<XPolygonMesh>(meshes[0]);
    if (mesh.GetIndexSets().size() != 2 || mesh.GetVertexSets().size() != 2)
        Fail("the mesh does not have two index sets and two vertex sets");
    return mesh;
}

u64 BytesOf(const XPolygonMesh& mesh)
{
    return SumOfBytes(mesh.GetPoints(), mesh.GetPolyCounts(), mesh.GetIndexSets()[0]->GetIndices(),
                      mesh.GetVertexSets()[0]->GetElements(), mesh.GetIndexSets()[1]->GetIndices(),
                      mesh.GetVertexSets()[1]->GetElements());
}

std::string SumOf(const XPolygonMesh& mesh)
{
    Checksum sum;
    sum.AddList(mesh.GetPoints());
    sum.AddList(mesh.GetPolyCounts());
    sum.AddList(mesh.GetIndexSets()[0]->GetIndices());
    sum.AddList(mesh.GetVertexSets()[0]->GetElements());
    sum.AddList(mesh.GetIndexSets()[1]->GetIndices());
    sum.AddList(mesh.GetVertexSets()[1]->GetElements());
    return sum.Text();
}

}  // namespace Bench
