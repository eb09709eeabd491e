#pragma once

#include "VKT/geometry/PolygonMesh.h"

namespace VKT {

// Walks the polygons of a mesh:
//
//     for (XPolygonIterator it(mesh); !it.IsDone(); it.Next())
class XPolygonIterator {
public:
    explicit XPolygonIterator(const XPolygonMesh* mesh) : m_Mesh(mesh) { m_Count = CountOf(0); }

    // To the next polygon; nothing happens behind the last.
    void Next();
    bool IsDone() const { return !m_Mesh || m_Polygon == m_Mesh->GetNumPolys(); }
    // Corners of the current polygon, 0 behind the last.
    u32 GetCount() const { return m_Count; }
    u32 GetFirstCorner() const { return m_FirstCorner; }
    // The point at a corner of the current polygon; without a point index set the
    // number of the corner itself.
    i32 GetVertexIndex(u32 corner) const;

private:
    u32 CountOf(u32 polygon) const;

    const XPolygonMesh* m_Mesh;
    u32 m_Polygon = 0;
    u32 m_FirstCorner = 0;
    u32 m_Count = 0;
};

}  // namespace VKT
