#include "VKT/geometry/PolygonIterator.h"

namespace VKT {

void XPolygonIterator::Next()
{
    if (!m_Mesh || m_Polygon >= m_Mesh->GetNumPolys())
        return;
    m_FirstCorner += m_Count;
    m_Count = CountOf(++m_Polygon);
}

i32 XPolygonIterator::GetVertexIndex(u32 corner) const
{
    const u32 at = m_FirstCorner + corner;
    const XIndexSet* points = m_Mesh ? m_Mesh->GetPointIndexSet() : nullptr;
    return points ? points->GetIndex(at) : static_cast<i32>(at);
}

u32 XPolygonIterator::CountOf(u32 polygon) const
{
    return m_Mesh && polygon < m_Mesh->GetNumPolys() ? m_Mesh->GetPolyCounts()[polygon] : 0;
}

}  // namespace VKT
