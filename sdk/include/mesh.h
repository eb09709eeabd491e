#pragma once

#include <vector>

#include "baseinterface.h"
#include "point3.h"

// Map channels: 0 vertex colours, 1 the default uv, 2 to 99 further ones.
#define MAX_MESHMAPS 100

// Three vertices, counter-clockwise seen from outside. The high half of the flags
// is the material number.
class Face {
public:
    DWORD v[3] = {0, 0, 0};
    DWORD smGroup = 0;
    DWORD flags = 0;

    DWORD getVert(int corner) { return v[corner]; }
    void setVerts(int a, int b, int c);
    DWORD getSmGroup() { return smGroup; }
    void setSmGroup(DWORD group) { smGroup = group; }
    MtlID getMatID() { return static_cast<MtlID>(flags >> 16); }
    void setMatID(MtlID id) { flags = (flags & 0xffff) | static_cast<DWORD>(id) << 16; }
};

inline void Face::setVerts(int a, int b, int c)
{
    v[0] = static_cast<DWORD>(a);
    v[1] = static_cast<DWORD>(b);
    v[2] = static_cast<DWORD>(c);
}

// Three corners of a face in a map channel.
class TVFace {
public:
    DWORD t[3] = {0, 0, 0};

    TVFace() = default;
    TVFace(DWORD a, DWORD b, DWORD c) : t{a, b, c} {}
    void setTVerts(int a, int b, int c)
    {
        t[0] = static_cast<DWORD>(a);
        t[1] = static_cast<DWORD>(b);
        t[2] = static_cast<DWORD>(c);
    }
};

// A triangle mesh. The public arrays are owned by the mesh and null when empty; the
// set functions size them. Channels 0 and 1 are vertCol/vcFace and tVerts/tvFace
// under another name.
class CoreExport Mesh : public BaseInterfaceServer {
public:
    int numVerts = 0;
    int numFaces = 0;
    Point3* verts = nullptr;
    Face* faces = nullptr;
    int numTVerts = 0;
    UVVert* tVerts = nullptr;
    TVFace* tvFace = nullptr;
    int numCVerts = 0;
    VertColor* vertCol = nullptr;
    TVFace* vcFace = nullptr;

    Mesh() = default;
    Mesh(const Mesh& other);
    Mesh& operator=(const Mesh& other);

    int getNumVerts() const { return numVerts; }
    int getNumFaces() const { return numFaces; }
    BOOL setNumVerts(int count, BOOL keep = FALSE, BOOL syncSel = TRUE);
    // Also sizes the faces of every map channel that has some.
    BOOL setNumFaces(int count, BOOL keep = FALSE, BOOL syncSel = TRUE);
    Point3& getVert(int i) { return verts[i]; }
    void setVert(int i, const Point3& p) { verts[i] = p; }

    BOOL setNumTVerts(int count, BOOL keep = FALSE) { return Sized(1, count, keep); }
    BOOL setNumTVFaces(int count, BOOL keep = FALSE, int oldCount = 0);
    BOOL setNumVertCol(int count, BOOL keep = FALSE) { return Sized(0, count, keep); }
    BOOL setNumVCFaces(int count, BOOL keep = FALSE, int oldCount = 0);

    // A channel that is switched on has as many faces as the mesh.
    void setMapSupport(int channel, BOOL on = TRUE);
    BOOL mapSupport(int channel) const;
    void setNumMapVerts(int channel, int count, BOOL keep = FALSE) { Sized(channel, count, keep); }
    void setNumMapFaces(int channel, int count, BOOL keep = FALSE, int oldCount = 0);
    int getNumMapVerts(int channel) const;
    UVVert* mapVerts(int channel) const;
    TVFace* mapFaces(int channel) const;
    void setMapVert(int channel, int i, const UVVert& value) { mapVerts(channel)[i] = value; }

    MtlID getFaceMtlIndex(int face) { return faces[face].getMatID(); }
    void setFaceMtlIndex(int face, MtlID id) { faces[face].setMatID(id); }

    // Derive normals from points and faces, and throw away what was derived. The host
    // derives nothing, so these have no work to do.
    void buildNormals() {}
    void InvalidateGeomCache() {}
    void InvalidateTopologyCache() {}

private:
    struct Channel {
        std::vector<UVVert> verts;
        std::vector<TVFace> faces;
        bool used = false;
    };

    BOOL Sized(int channel, int count, BOOL keep);
    Channel* Made(int channel);  // null outside 0..99
    const Channel* Known(int channel) const;
    void Publish();  // the public arrays show what the private ones hold

    std::vector<Point3> m_Verts;
    std::vector<Face> m_Faces;
    std::vector<Channel> m_Channels;
};
