#include "VKT/geometry/PolygonMesh.h"

#include <algorithm>
#include <limits>
#include <numeric>

#include "VKT/base/Logger.h"

namespace VKT {
namespace {

u64 Sum(const XU32Array& counts)
{
    return std::accumulate(counts.begin(), counts.end(), u64{0});
}

}  // namespace

i32& XIndexSet::operator[](u32 corner)
{
    static i32 nowhere = 0;
    return corner < m_Indices.size() ? m_Indices[corner] : nowhere;
}

// The floats of an element of that size, or null. Damaged files claim more elements than
// they hold.
f32* XVertexSet::FindElement(u32 i, u32 size)
{
    const std::size_t begin = std::size_t{i} * size;
    if (i >= m_NumElements || m_ElementSize != size || begin + size > m_Elements.size())
        return nullptr;
    return &m_Elements[begin];
}

bool XVertexSet::SetElement(u32 i, const XVector2& value)
{
    f32* const element = FindElement(i, 2);
    if (!element)
        return false;
    element[0] = value.x;
    element[1] = value.y;
    return true;
}

bool XVertexSet::SetElement(u32 i, const XVector3& value)
{
    f32* const element = FindElement(i, 3);
    if (!element)
        return false;
    element[0] = value.x;
    element[1] = value.y;
    element[2] = value.z;
    return true;
}

bool XVertexSet::SetIndexSet(const XIndexSet* set)
{
    if (!m_Mesh)
        return false;
    const auto& sets = m_Mesh->GetIndexSets();
    if (std::none_of(sets.begin(), sets.end(), [=](const auto& own) { return own.get() == set; }))
        return false;
    m_IndexSetName = set->GetName();
    return true;
}

bool XPolygonMesh::SetPolygons(const XU32Array& polyCounts, const XU32Array& vertexIndices)
{
    if (std::any_of(polyCounts.begin(), polyCounts.end(), [](u32 count) { return count < 3; })) {
        GetLogger()->Log(kError, "Cannot create a polygon with less than 3 vertices");
        return false;
    }
    const u64 corners = Sum(polyCounts);
    if (corners != vertexIndices.size() || corners > std::numeric_limits<u32>::max()) {
        GetLogger()->Log(kError,
                         "The number of indices specified by the poly_counts array does not match the number "
                         "provided in the vertex_indices array");
        return false;
    }
    Clear();
    m_NumPolyIndices = static_cast<u32>(corners);
    m_PolyCounts = polyCounts;
    m_PointIndexSet = AddIndexSet("points");
    std::copy(vertexIndices.begin(), vertexIndices.end(), m_PointIndexSet->m_Indices.begin());
    return true;
}

XIndexSet* XPolygonMesh::FindIndexSet(const XString& name) const
{
    for (const auto& set : m_IndexSets)
        if (set->m_Name == name)
            return set.get();
    return nullptr;
}

XIndexSet* XPolygonMesh::AddIndexSet(const XString& name)
{
    if (XIndexSet* set = FindIndexSet(name))
        return set;
    XIndexSet* const set = m_IndexSets.emplace_back(std::make_unique<XIndexSet>(this, name)).get();
    set->m_Indices.resize(m_NumPolyIndices, 0);
    return set;
}

XVertexSet* XPolygonMesh::AddVertexSet(const XString& name, u32 numElements, u32 elementSize, u32 usage)
{
    XVertexSet* const set = m_VertexSets.emplace_back(std::make_unique<XVertexSet>(this, name)).get();
    set->m_NumElements = numElements;
    set->m_ElementSize = elementSize;
    set->m_Usage = usage;
    set->m_Elements.resize(std::size_t{numElements} * elementSize);
    return set;
}

bool XPolygonMesh::HasVertexSet(const char* name) const
{
    return std::any_of(m_VertexSets.begin(), m_VertexSets.end(),
                       [=](const auto& set) { return set->m_Name == name; });
}

u64 XPolygonMesh::GetTextPadding() const
{
    const u64 corners = Sum(m_PolyCounts);
    u64 padding = 0;
    for (const auto& set : m_IndexSets)
        padding += corners - std::min<u64>(corners, set->m_Indices.size());
    for (const auto& set : m_VertexSets)
        padding += set->m_ElementSize == 0 && set->m_Elements.empty() ? set->m_NumElements : 0;
    return padding;
}

void XPolygonMesh::Clear()
{
    m_IndexSets.clear();
    m_VertexSets.clear();
    m_Points.clear();
    m_PolyCounts.clear();
    m_PointIndexSet = nullptr;
    m_NumPolyIndices = 0;
}

// A source without a point index set leaves the copy without one.
void XPolygonMesh::DoCopy(const XBase* source)
{
    const XPolygonMesh* other = XCast<XPolygonMesh>(source);
    if (!other || other == this)
        return;
    XNodeClass::DoCopy(source);
    for (const auto& set : other->m_IndexSets)
        AddIndexSet(set->m_Name)->m_Indices = set->m_Indices;
    for (const auto& set : other->m_VertexSets)
        m_VertexSets.emplace_back(std::make_unique<XVertexSet>(*set))->m_Mesh = this;
    m_PointIndexSet = other->m_PointIndexSet ? FindIndexSet(other->m_PointIndexSet->m_Name) : nullptr;
    m_PolyCounts = other->m_PolyCounts;
}

}  // namespace VKT
