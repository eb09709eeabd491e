#include "host/io/BuildMesh.h"

#include <algorithm>
#include <limits>
#include <map>
#include <set>

#include "host/build/SceneBuilder.h"

namespace maxhost::io {

namespace {

Point3 ToPoint3(const Float3& v)
{
    return Point3(v.x, v.y, v.z);
}

// Channels with their numbers in the host.
std::map<int, const MapChannel*> ChannelsOf(const NeutralMesh& mesh, std::vector<std::string>& warnings)
{
    std::map<int, const MapChannel*> channels;
    if (mesh.colours)
        channels.emplace(0, &*mesh.colours);
    const std::size_t count = std::min<std::size_t>(mesh.uvs.size(), MAX_MESHMAPS - 1);
    for (std::size_t i = 0; i < count; ++i)
        channels.emplace(static_cast<int>(i) + 1, &mesh.uvs[i]);
    if (count < mesh.uvs.size())
        warnings.push_back("mesh \"" + mesh.name + "\": texture coordinates beyond channel 99 are left out");
    return channels;
}

std::vector<MtlID> FaceNumbers(const NeutralMesh& mesh, std::vector<std::string>& warnings)
{
    const std::vector<int> materials = MaterialsOf(mesh);
    if (materials.size() > std::numeric_limits<MtlID>::max())
        warnings.push_back("mesh \"" + mesh.name +
                           "\": more than 65535 materials; their face numbers repeat");
    std::map<int, MtlID> numbers;
    for (std::size_t i = 0; i < materials.size(); ++i)
        numbers.emplace(materials[i], static_cast<MtlID>(i));
    std::vector<MtlID> result;
    result.reserve(mesh.materials.size());
    for (const int material : mesh.materials)
        result.push_back(numbers.at(material));
    return result;
}

void FillTriangles(const NeutralMesh& source, const std::vector<MtlID>& faceNumbers,
                   const std::map<int, const MapChannel*>& channels, Mesh& mesh)
{
    mesh.setNumVerts(static_cast<int>(source.points.size()));
    for (std::size_t i = 0; i < source.points.size(); ++i)
        mesh.setVert(static_cast<int>(i), ToPoint3(source.points[i]));
    const int faceCount = static_cast<int>(source.cornerCounts.size());
    mesh.setNumFaces(faceCount);
    const auto corner = [](const std::vector<std::uint32_t>& corners, int face, int k) {
        return static_cast<int>(corners[3 * static_cast<std::size_t>(face) + static_cast<std::size_t>(k)]);
    };
    for (int f = 0; f < faceCount; ++f) {
        mesh.faces[f].setVerts(corner(source.corners, f, 0), corner(source.corners, f, 1),
                               corner(source.corners, f, 2));
        mesh.setFaceMtlIndex(f, faceNumbers[static_cast<std::size_t>(f)]);
    }
    for (const auto& [number, channel] : channels) {
        mesh.setMapSupport(number, TRUE);
        mesh.setNumMapVerts(number, static_cast<int>(channel->values.size()));
        for (std::size_t i = 0; i < channel->values.size(); ++i)
            mesh.setMapVert(number, static_cast<int>(i), ToPoint3(channel->values[i]));
        TVFace* const faces = mesh.mapFaces(number);
        for (int f = 0; f < faceCount; ++f)
            faces[f].setTVerts(corner(channel->corners, f, 0), corner(channel->corners, f, 1),
                               corner(channel->corners, f, 2));
    }
    mesh.InvalidateGeomCache();
    mesh.InvalidateTopologyCache();
}

// Goes over the polygons with their corners copied out of one of the corner lists,
// in the form that MakePoly takes.
template <class Visit>
void ForEachPolygon(const NeutralMesh& source, const std::vector<std::uint32_t>& corners, const Visit& visit)
{
    std::size_t start = 0;
    std::vector<int> polygon;
    for (std::size_t f = 0; f < source.cornerCounts.size(); ++f) {
        const std::size_t end = start + source.cornerCounts[f];
        polygon.clear();
        for (; start < end; ++start)
            polygon.push_back(static_cast<int>(corners[start]));
        visit(static_cast<int>(f), static_cast<int>(polygon.size()), polygon.data());
    }
}

void FillPolygons(const NeutralMesh& source, const std::vector<MtlID>& faceNumbers,
                  const std::map<int, const MapChannel*>& channels, MNMesh& mesh)
{
    mesh.setNumVerts(static_cast<int>(source.points.size()));
    for (std::size_t i = 0; i < source.points.size(); ++i)
        mesh.P(static_cast<int>(i)) = ToPoint3(source.points[i]);
    mesh.setNumFaces(static_cast<int>(source.cornerCounts.size()));
    ForEachPolygon(source, source.corners, [&](int face, int count, int* corners) {
        mesh.F(face)->MakePoly(count, corners);
        mesh.F(face)->material = faceNumbers[static_cast<std::size_t>(face)];
    });
    if (!channels.empty())
        mesh.SetMapNum(channels.rbegin()->first + 1);
    for (const auto& [number, channel] : channels) {
        mesh.InitMap(number);
        MNMap& map = *mesh.M(number);
        map.setNumVerts(static_cast<int>(channel->values.size()));
        for (std::size_t i = 0; i < channel->values.size(); ++i)
            map.V(static_cast<int>(i)) = ToPoint3(channel->values[i]);
        ForEachPolygon(source, channel->corners,
                       [&](int face, int count, int* corners) { map.F(face)->MakePoly(count, corners); });
    }
    mesh.FillInMesh();
}

}  // namespace

std::vector<int> MaterialsOf(const NeutralMesh& mesh)
{
    const std::set<int> materials(mesh.materials.begin(), mesh.materials.end());
    return {materials.begin(), materials.end()};
}

Object* BuildMesh(const NeutralMesh& mesh, std::vector<std::string>& warnings)
{
    const auto channels = ChannelsOf(mesh, warnings);
    const std::vector<MtlID> faceNumbers = FaceNumbers(mesh, warnings);
    const bool onlyTriangles = std::ranges::all_of(mesh.cornerCounts, [](auto count) { return count == 3; });
    Object* const object =
        MakeObject(GEOMOBJECT_CLASS_ID, onlyTriangles ? triObjectClassID : polyObjectClassID);
    if (onlyTriangles)
        FillTriangles(mesh, faceNumbers, channels, static_cast<TriObject*>(object)->mesh);
    else
        FillPolygons(mesh, faceNumbers, channels, static_cast<PolyObject*>(object)->mm);
    return object;
}

}  // namespace maxhost::io
