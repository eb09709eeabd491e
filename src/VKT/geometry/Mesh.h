#pragma once

#include "VKT/geometry/Geometry.h"

namespace VKT {

class XBlockReader;
class XMeshVertexColours;

struct XTexCoord {
    f32 u = 0;
    f32 v = 0;
    bool operator==(const XTexCoord&) const = default;
};

// One corner of a face of an older mesh. Indices are those of files and point where they
// like; look before use.
struct XFaceVertex {
    u32 m_Point = 0;       // into the points
    u32 m_Normal = 0;      // into the normals
    XIntList m_UvIndices;  // one per uv set, into its table
};

// The corners of a polygon. Numbers of corners and sets are not checked: size the face
// first, and the uv indices of each corner.
class XFace {
public:
    u32 GetNumVertices() const { return static_cast<u32>(m_Vertices.size()); }
    void SetNumVertices(u32 count) { m_Vertices.resize(count); }
    u32 GetPoint(u32 i) const { return m_Vertices[i].m_Point; }
    void SetPoint(u32 i, u32 value) { m_Vertices[i].m_Point = value; }
    void SetUvIndex(u32 i, u32 value, u32 set) { m_Vertices[i].m_UvIndices[set] = static_cast<i32>(value); }
    const XVector<XFaceVertex>& GetVertices() const { return m_Vertices; }
    XVector<XFaceVertex>& GetVertices() { return m_Vertices; }

private:
    XVector<XFaceVertex> m_Vertices;
};

// The older mesh of the format: faces whose corners index the points, one shared table of
// normals, and a table of texture coordinates per uv set. Nothing converts it to or from
// XPolygonMesh. Its vertex colours are a node of their own.
class XMesh final : public XNodeClass<XMesh, XGeometry, kFnMesh> {
public:
    using XNodeClass::XNodeClass;
    using XTexCoords = XVector<XTexCoord>;

    u32 GetNumFaces() const { return static_cast<u32>(m_Faces.size()); }
    const XVector<XFace>& GetFaces() const { return m_Faces; }
    XVector<XFace>& GetFaces() { return m_Faces; }
    // Of unit length, in object space.
    const XVector3Array& GetNormals() const { return m_Normals; }
    XVector3Array& GetNormals() { return m_Normals; }

    // Uv sets have a name and a table, at the same place in two lists.
    u32 GetNumUvSets() const { return static_cast<u32>(m_TexCoords.size()); }
    void SetNumUvSets(u32 count);
    const XStringList& GetUvSetNames() const { return m_UvSetNames; }
    XStringList& GetUvSetNames() { return m_UvSetNames; }
    const XTexCoords& GetTexCoords(u32 set) const { return m_TexCoords[set]; }
    // Replaces the table of a set, which must exist.
    void SetTexCoords(u32 set, const XTexCoords& texCoords) { m_TexCoords[set] = texCoords; }
    bool HasUvSet(const char* name) const;

    // The first node, by name, that holds vertex colours of this mesh; null for none.
    XMeshVertexColours* GetVertexColours() const;

    // Values that a text file holds beyond the data: see WriteChunk.
    u64 GetTextPadding() const override;

    // Forgets vertex colours that go.
    bool NodeDeath(u32 id) override;
    // Counts of uv sets, faces and corners have 16 bits in binary files. Larger ones are
    // cut there, with a warning, and the file does not read back.
    bool DoData(XFileIO& file) override;
    // The copy has vertex colours of its own, whatever the copy flags say.
    void DoCopy(const XBase* source) override;
    // A text file has at least three corners per face and an index per corner and uv set.
    // Damaged meshes are filled up with their last corner and with 0.
    bool WriteChunk(XTextWriter& out) const override;
    bool ReadFields(XTextReader& in) override;

private:
    friend class XMeshVertexColours;

    void WarnOfCutCounts() const;
    bool DoTexCoords(XFileIO& file);
    bool DoFaces(XFileIO& file);
    bool ReadTexCoords(XBlockReader block);
    bool ReadFace(XBlockReader block);

    XVector<XFace> m_Faces;
    XVector<XTexCoords> m_TexCoords;
    XStringList m_UvSetNames;
    XVector3Array m_Normals;
    XIndexList m_VertexColours;  // nodes that named this mesh, in memory only
};

}  // namespace VKT
