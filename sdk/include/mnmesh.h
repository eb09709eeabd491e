#pragma once

#include <vector>

#include "baseinterface.h"
#include "mesh.h"
#include "mncommon.h"

// Of components.
#define MN_DEAD (1 << 1)
// Of the mesh.
#define MN_MESH_FILLED_IN (1 << 1)

class MNVert : public FlagUser {
public:
    Point3 p;
    int orig = -1;
};

// An edge from v1 to v2: f1 runs along it, f2 against it (-1 at a border).
class MNEdge : public FlagUser {
public:
    int v1 = 0;
    int v2 = 0;
    int f1 = -1;
    int f2 = -1;
};

// A polygon of `deg` corners, counter-clockwise seen from outside. `edg` is null until
// the mesh is filled in: edge i runs from corner i to the next.
class CoreExport MNFace : public FlagUser {
public:
    int deg = 0;
    int* vtx = nullptr;
    int* edg = nullptr;
    DWORD smGroup = 0;
    MtlID material = 0;
    int track = 0;

    MNFace() = default;
    MNFace(const MNFace& other);
    MNFace& operator=(const MNFace& other);
    ~MNFace();

    // Copies the array of `fdeg` vertices. The host shows and selects no edges: which of
    // them are visible and selected isn't kept.
    void MakePoly(int fdeg, int* vertices, bool* visible = nullptr, bool* selected = nullptr);
};

// A polygon in a map channel.
class CoreExport MNMapFace {
public:
    int deg = 0;
    int* tv = nullptr;

    MNMapFace() = default;
    MNMapFace(const MNMapFace& other);
    MNMapFace& operator=(const MNMapFace& other);
    ~MNMapFace();

    void MakePoly(int fdeg, int* vertices);
};

class CoreExport MNMap : public FlagUser {
public:
    int numv = 0;
    int numf = 0;
    UVVert* v = nullptr;
    MNMapFace* f = nullptr;

    MNMap() = default;
    MNMap(const MNMap& other);
    MNMap& operator=(const MNMap& other);

    void setNumVerts(int count);
    void setNumFaces(int count);
    int VNum() const { return numv; }
    int FNum() const { return numf; }
    UVVert V(int i) const { return v[i]; }  // a copy: write to v[i]
    MNMapFace* F(int i) { return &f[i]; }

private:
    void Publish();

    std::vector<UVVert> m_Verts;
    std::vector<MNMapFace> m_Faces;
};

// A polygon mesh. Map channels are numbered as in Mesh; one that isn't used is dead.
class CoreExport MNMesh : public FlagUser, public BaseInterfaceServer {
public:
    MNVert* v = nullptr;
    MNEdge* e = nullptr;
    MNFace* f = nullptr;
    int numv = 0;
    int nume = 0;
    int numf = 0;
    int numm = 0;

    MNMesh() = default;
    MNMesh(const MNMesh& other);
    MNMesh& operator=(const MNMesh& other);

    MNVert* V(int i) const { return &v[i]; }
    MNEdge* E(int i) const { return &e[i]; }
    MNFace* F(int i) const { return &f[i]; }
    Point3& P(int i) const { return v[i].p; }
    MNMap* M(int channel) const { return &m_Maps[static_cast<size_t>(channel)]; }
    int MNum() const { return numm; }

    void setNumVerts(int count);
    void setNumEdges(int count);
    void setNumFaces(int count);
    // New channels are dead until they get InitMap.
    void SetMapNum(int count);
    // Brings a channel to life, with a polygon like each of the mesh's, all corners on
    // the one vertex 0.
    void InitMap(int channel);
    void Clear();
    void ClearAndFree();

    // Derives the edges; nothing happens when that was done already.
    void FillInMesh();
    // The host derives no normals, so these have no work to do.
    void buildNormals() {}
    void InvalidateGeomCache() {}
    void InvalidateTopoCache(bool clearFlags = true);

    // Cuts every living polygon into triangles; material numbers, smoothing groups and
    // map channels follow.
    void OutToTri(Mesh& mesh);

private:
    void Publish();

    std::vector<MNVert> m_Verts;
    std::vector<MNEdge> m_Edges;
    std::vector<MNFace> m_Faces;
    mutable std::vector<MNMap> m_Maps;
};
