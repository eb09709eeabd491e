#include "mnmesh.h"

#include <algorithm>
#include <unordered_map>

#include "host/objects/Triangulation.h"

namespace {

std::size_t Size(int count)
{
    return static_cast<std::size_t>(std::max(count, 0));
}

// A new array with the same values; null for none.
int* Copied(const int* values, int count)
{
    if (!values || count <= 0)
        return nullptr;
    int* copy = new int[Size(count)];
    std::copy_n(values, count, copy);
    return copy;
}

void Replace(int*& values, int* by)
{
    delete[] values;
    values = by;
}

template <class T>
T* Shown(std::vector<T>& items)
{
    return items.empty() ? nullptr : items.data();
}

}  // namespace

MNFace::MNFace(const MNFace& other)
{
    *this = other;
}

MNFace& MNFace::operator=(const MNFace& other)
{
    if (this == &other)
        return *this;
    FlagUser::operator=(other);
    Replace(vtx, Copied(other.vtx, other.deg));
    Replace(edg, Copied(other.edg, other.deg));
    deg = other.deg;
    smGroup = other.smGroup;
    material = other.material;
    track = other.track;
    return *this;
}

MNFace::~MNFace()
{
    delete[] vtx;
    delete[] edg;
}

void MNFace::MakePoly(int fdeg, int* vertices, bool*, bool*)
{
    Replace(vtx, Copied(vertices, fdeg));
    Replace(edg, nullptr);
    deg = fdeg;
}

MNMapFace::MNMapFace(const MNMapFace& other) : deg(other.deg), tv(Copied(other.tv, other.deg)) {}

MNMapFace& MNMapFace::operator=(const MNMapFace& other)
{
    if (this != &other)
        MakePoly(other.deg, other.tv);
    return *this;
}

MNMapFace::~MNMapFace()
{
    delete[] tv;
}

void MNMapFace::MakePoly(int fdeg, int* vertices)
{
    Replace(tv, Copied(vertices, fdeg));
    deg = fdeg;
}

MNMap::MNMap(const MNMap& other) : FlagUser(other), m_Verts(other.m_Verts), m_Faces(other.m_Faces)
{
    Publish();
}

MNMap& MNMap::operator=(const MNMap& other)
{
    FlagUser::operator=(other);
    m_Verts = other.m_Verts;
    m_Faces = other.m_Faces;
    Publish();
    return *this;
}

void MNMap::setNumVerts(int count)
{
    m_Verts.resize(Size(count), UVVert(0, 0, 0));
    Publish();
}

void MNMap::setNumFaces(int count)
{
    m_Faces.resize(Size(count));
    Publish();
}

void MNMap::Publish()
{
    numv = static_cast<int>(m_Verts.size());
    v = Shown(m_Verts);
    numf = static_cast<int>(m_Faces.size());
    f = Shown(m_Faces);
}

MNMesh::MNMesh(const MNMesh& other)
    : FlagUser(other),
      BaseInterfaceServer(other),
      m_Verts(other.m_Verts),
      m_Edges(other.m_Edges),
      m_Faces(other.m_Faces),
      m_Maps(other.m_Maps)
{
    Publish();
}

MNMesh& MNMesh::operator=(const MNMesh& other)
{
    FlagUser::operator=(other);
    m_Verts = other.m_Verts;
    m_Edges = other.m_Edges;
    m_Faces = other.m_Faces;
    m_Maps = other.m_Maps;
    Publish();
    return *this;
}

void MNMesh::setNumVerts(int count)
{
    m_Verts.resize(Size(count));
    Publish();
}

void MNMesh::setNumEdges(int count)
{
    m_Edges.resize(Size(count));
    Publish();
}

void MNMesh::setNumFaces(int count)
{
    m_Faces.resize(Size(count));
    Publish();
}

void MNMesh::SetMapNum(int count)
{
    const std::size_t former = m_Maps.size();
    m_Maps.resize(Size(std::min(count, MAX_MESHMAPS)));
    for (std::size_t i = former; i < m_Maps.size(); ++i)
        m_Maps[i].SetFlag(MN_DEAD);
    Publish();
}

void MNMesh::InitMap(int channel)
{
    if (channel < 0 || channel >= MAX_MESHMAPS)
        return;
    if (channel >= numm)
        SetMapNum(channel + 1);
    MNMap& map = *M(channel);
    map = MNMap();
    map.setNumVerts(1);
    map.setNumFaces(numf);
    for (int i = 0; i < numf; ++i) {
        std::vector<int> corners(Size(f[i].deg), 0);
        map.f[i].MakePoly(f[i].deg, corners.data());
    }
}

void MNMesh::Clear()
{
    m_Verts.clear();
    m_Edges.clear();
    m_Faces.clear();
    m_Maps.clear();
    ClearFlag(MN_MESH_FILLED_IN);
    Publish();
}

void MNMesh::ClearAndFree()
{
    *this = MNMesh();
}

void MNMesh::InvalidateTopoCache(bool clearFlags)
{
    if (clearFlags)
        ClearFlag(MN_MESH_FILLED_IN);
}

void MNMesh::FillInMesh()
{
    if (GetFlag(MN_MESH_FILLED_IN))
        return;
    m_Edges.clear();
    // Edges by their two vertices, the smaller number first. An edge takes two faces;
    // further ones at the same place get one of their own.
    std::unordered_map<unsigned long long, int> open;
    std::vector<int> edges;
    for (int i = 0; i < numf; ++i) {
        MNFace& face = m_Faces[Size(i)];
        if (face.GetFlag(MN_DEAD))
            continue;
        edges.resize(Size(face.deg));
        for (int corner = 0; corner < face.deg; ++corner) {
            const int from = face.vtx[corner];
            const int to = face.vtx[(corner + 1) % face.deg];
            const auto key = static_cast<unsigned long long>(std::min(from, to)) << 32 |
                             static_cast<unsigned int>(std::max(from, to));
            const auto found = open.find(key);
            if (found != open.end() && m_Edges[Size(found->second)].v1 == to) {
                m_Edges[Size(found->second)].f2 = i;
                edges[Size(corner)] = found->second;
                open.erase(found);
                continue;
            }
            MNEdge edge;
            edge.v1 = from;
            edge.v2 = to;
            edge.f1 = i;
            edges[Size(corner)] = static_cast<int>(m_Edges.size());
            open[key] = edges[Size(corner)];
            m_Edges.push_back(edge);
        }
        Replace(face.edg, Copied(edges.data(), face.deg));
    }
    SetFlag(MN_MESH_FILLED_IN);
    Publish();
}

void MNMesh::OutToTri(Mesh& mesh)
{
    int triangles = 0;
    for (int i = 0; i < numf; ++i)
        if (!f[i].GetFlag(MN_DEAD))
            triangles += std::max(f[i].deg - 2, 0);

    mesh = Mesh();
    mesh.setNumVerts(numv);
    for (int i = 0; i < numv; ++i)
        mesh.setVert(i, v[i].p);
    mesh.setNumFaces(triangles);
    std::vector<int> channels;
    for (int channel = 0; channel < numm; ++channel) {
        const MNMap& map = *M(channel);
        if (map.GetFlag(MN_DEAD) || map.numf != numf)
            continue;
        channels.push_back(channel);
        mesh.setMapSupport(channel);
        mesh.setNumMapVerts(channel, map.numv);
        std::copy_n(map.v, map.numv, mesh.mapVerts(channel));
    }

    maxhost::Triangulation triangulation;
    std::vector<Point3> corners;
    int out = 0;
    for (int i = 0; i < numf; ++i) {
        const MNFace& face = f[i];
        if (face.GetFlag(MN_DEAD))
            continue;
        corners.clear();
        for (int corner = 0; corner < face.deg; ++corner)
            corners.push_back(v[face.vtx[corner]].p);
        for (const auto& [a, b, c] : triangulation.Cut(corners)) {
            mesh.faces[out].setVerts(face.vtx[a], face.vtx[b], face.vtx[c]);
            mesh.faces[out].setSmGroup(face.smGroup);
            mesh.faces[out].setMatID(face.material);
            for (int channel : channels) {
                const MNMapFace& mapFace = M(channel)->f[i];
                if (mapFace.deg == face.deg)
                    mesh.mapFaces(channel)[out].setTVerts(mapFace.tv[a], mapFace.tv[b], mapFace.tv[c]);
            }
            ++out;
        }
    }
}

void MNMesh::Publish()
{
    numv = static_cast<int>(m_Verts.size());
    v = Shown(m_Verts);
    nume = static_cast<int>(m_Edges.size());
    e = Shown(m_Edges);
    numf = static_cast<int>(m_Faces.size());
    f = Shown(m_Faces);
    numm = static_cast<int>(m_Maps.size());
}
