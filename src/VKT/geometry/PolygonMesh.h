#pragma once

#include <memory>

#include "VKT/geometry/Geometry.h"

namespace VKT {

class XBlockReader;
class XPolygonMesh;

// A named list with one integer per polygon corner, in polygon order.
class XIndexSet {
public:
    XIndexSet(XPolygonMesh* mesh, const XString& name) : m_Name(name), m_Mesh(mesh) {}

    const XString& GetName() const { return m_Name; }
    u32 GetNumIndices() const { return static_cast<u32>(m_Indices.size()); }
    const XIntList& GetIndices() const { return m_Indices; }
    // One integer per corner; the set's length follows the list.
    void SetIndices(const XIntList& indices) { m_Indices = indices; }
    // The index of a corner, 0 when it is out of range.
    i32 GetIndex(u32 corner) const { return corner < m_Indices.size() ? m_Indices[corner] : 0; }
    // Writable; out of range it is an integer shared by all sets that nobody reads.
    i32& operator[](u32 corner);

private:
    friend class XPolygonMesh;

    XString m_Name;
    XIntList m_Indices;
    XPolygonMesh* m_Mesh;
};

// What a vertex set is for. The numbers stand in binary files.
enum XVertexUsage : u32 {
    kNone = 0,
    kVertex = 1,
    kFogCoord = 2,
    kTexCoord = 3,
    kColour = 4,
    kNormal = 5,
    kBiNormal = 6,
    kTangent = 7,
    kTBN = 8,
};

// "texCoord", "normal", ...; "none" for a number that is no usage.
const char* XVertexUsageName(u32 usage);

// A named table of floats that an index set indexes: `num_elements` elements of
// `element_size` floats, element after element. Positions are not among them.
class XVertexSet {
public:
    XVertexSet(XPolygonMesh* mesh, const XString& name) : m_Name(name), m_Mesh(mesh) {}

    const XString& GetName() const { return m_Name; }
    // Name of the index set that indexes this table, empty for none.
    const XString& GetIndexSetName() const { return m_IndexSetName; }
    u32 GetUsage() const { return m_Usage; }
    u32 GetElementSize() const { return m_ElementSize; }
    u32 GetNumElements() const { return m_NumElements; }
    const XRealList& GetElements() const { return m_Elements; }
    // The table itself; keep its length.
    XRealList& GetElements() { return m_Elements; }

    // Sets one element. False when it is out of range or the element size differs.
    bool SetElement(u32 i, const XVector2& value);
    bool SetElement(u32 i, const XVector3& value);
    // Binds the table to an index set of the same mesh; any other, and null, is refused.
    bool SetIndexSet(const XIndexSet* set);

private:
    friend class XPolygonMesh;

    f32* FindElement(u32 i, u32 size);

    XString m_Name;
    XString m_IndexSetName;
    XRealList m_Elements;
    u32 m_Usage = kNone;
    u32 m_ElementSize = 0;
    u32 m_NumElements = 0;
    XPolygonMesh* m_Mesh;
};

// The current mesh of the format: polygons given by their corner counts, and any number
// of named streams, one value per corner. One index set, the point index set, indexes
// the points of `XGeometry`; normals, uvs, colours and tangents are vertex sets.
//
// Nothing is triangulated and no normals are computed.
class XPolygonMesh final : public XNodeClass<XPolygonMesh, XGeometry, kFnPolygonMesh> {
public:
    using XNodeClass::XNodeClass;

    u64 GetNumPolys() const { return m_PolyCounts.size(); }
    const XU32Array& GetPolyCounts() const { return m_PolyCounts; }
    // Sum of the corner counts. 0 after a binary load, kept on purpose.
    u32 GetNumPolyIndices() const { return m_NumPolyIndices; }

    // Begins a mesh: clears it, points included, takes the corner counts, and makes
    // `vertexIndices` the point index set "points". False, with a logged error and
    // nothing changed, when a count is below 3 or the counts do not add up.
    bool SetPolygons(const XU32Array& polyCounts, const XU32Array& vertexIndices);
    // The index set of that name; made with one zero per corner when there is none.
    XIndexSet* AddIndexSet(const XString& name);
    // A new table; its floats are not cleared, set every one.
    XVertexSet* AddVertexSet(const XString& name, u32 numElements, u32 elementSize, u32 usage);
    bool HasVertexSet(const char* name) const;
    XIndexSet* FindIndexSet(const XString& name) const;
    XIndexSet* GetPointIndexSet() const { return m_PointIndexSet; }
    const XVector<std::unique_ptr<XIndexSet>>& GetIndexSets() const { return m_IndexSets; }
    const XVector<std::unique_ptr<XVertexSet>>& GetVertexSets() const { return m_VertexSets; }
    // What a text file holds beyond the data: a 0 for each index that the sets are short
    // of, and a line for each element without floats.
    u64 GetTextPadding() const override;
    // Drops sets, polygons and points. Deformers and instances stay.
    void Clear();

    bool DoData(XFileIO& file) override;
    void DoCopy(const XBase* source) override;
    bool WriteChunk(XTextWriter& out) const override;
    bool ReadFields(XTextReader& in) override;

private:
    bool ReadPolyCounts(XBlockReader& block);
    bool ReadIndexSet(XBlockReader block, const XString& pointSet);
    bool ReadVertexSet(XBlockReader block);
    bool DoIndexSets(XFileIO& file);
    bool DoVertexSets(XFileIO& file);

    XU32Array m_PolyCounts;
    u32 m_NumPolyIndices = 0;
    XVector<std::unique_ptr<XVertexSet>> m_VertexSets;
    XVector<std::unique_ptr<XIndexSet>> m_IndexSets;
    XIndexSet* m_PointIndexSet = nullptr;
};

}  // namespace VKT
