#include <algorithm>
#include <functional>
#include <limits>
#include <numeric>
#include <span>

#include "VKT/base/Logger.h"
#include "VKT/geometry/PolygonMesh.h"
#include "VKT/stream/TextSyntax.h"
#include "VKT/stream/TextWriter.h"

// The text form of a polygon mesh.

namespace VKT {
namespace {

constexpr const char* kSource = ".\\src\\VKT\\PolygonMesh";

struct XUsageWords {
    const char* key;  // in files
    const char* name;
};
constexpr XUsageWords kUsages[] = {
    {"kNone", "none"},         {"kVertex", "vertex"},   {"kFogCoord", "fogCoord"},
    {"kTexCoord", "texCoord"}, {"kColour", "colour"},   {"kNormal", "normal"},
    {"kBiNormal", "biNormal"}, {"kTangent", "tangent"}, {"kTBN", "tbn"},
};
static_assert(std::size(kUsages) == kTBN + 1);

const XUsageWords& WordsOf(u32 usage)
{
    return kUsages[usage < std::size(kUsages) ? usage : kNone];
}

// An unknown word leaves the usage as it is.
void ReadUsage(const XString& word, u32& usage)
{
    const auto found = std::ranges::find(kUsages, word, &XUsageWords::key);
    if (found != std::end(kUsages))
        usage = static_cast<u32>(found - std::begin(kUsages));
    else if (word == "kBiTangent")
        usage = kBiNormal;
}

// One line per polygon; missing values are 0.
void WriteIndices(const XU32Array& polyCounts, const XIntList& indices, XTextWriter& out)
{
    constexpr XRowFormat format{"\t\t", true};
    const auto uniform = std::adjacent_find(polyCounts.begin(), polyCounts.end(), std::not_equal_to<>());
    if (!polyCounts.empty() && polyCounts.front() > 0 && uniform == polyCounts.end() &&
        indices.size() == polyCounts.size() * polyCounts.front()) {
        out.WriteRows(indices, polyCounts.front(), format);
        return;
    }
    std::size_t begin = 0;
    for (const u32 count : polyCounts) {
        if (begin + count <= indices.size()) {
            out.WriteRow(std::span(indices).subspan(begin, count), format);
        } else {
            out << "\t\t";
            for (std::size_t corner = begin; corner < begin + count; ++corner)
                out << (corner < indices.size() ? indices[corner] : 0) << ' ';
            out << '\n';
        }
        begin += count;
    }
}

void WriteVertexSet(const XVertexSet& set, XTextWriter& out)
{
    const XRealList& elements = set.GetElements();
    u32 numElements = set.GetNumElements();
    const u32 size = set.GetElementSize();
    if (u64{numElements} * size != elements.size()) {
        numElements = size == 0 ? 0 : static_cast<u32>(elements.size() / size);
        GetLogger()->LogFormat(kWarning, "vertex set \"%s\" holds %d floats: written as %d elements of %d",
                               set.GetName().c_str(), static_cast<int>(elements.size()),
                               static_cast<int>(numElements), static_cast<int>(size));
    }
    out << "\tVERTEX_SET \"" << set.GetName() << "\"\n\t{\n";
    out << "\t\tnum_elements " << numElements << "\n\t\telement_size " << size << '\n';
    out << "\t\tusage " << WordsOf(set.GetUsage()).key << '\n';
    out << "\t\tindex_set \"" << set.GetIndexSetName() << "\"\n\t\telements\n";
    constexpr XRowFormat format{"\t\t\t", true};
    if (size > 0)
        out.WriteRows(std::span(elements).first(std::size_t{numElements} * size), size, format);
    else
        for (u32 i = 0; i < numElements; ++i)
            out.WriteRow(std::span<const f32>(), format);
    out << "\t}\n";
}

}  // namespace

const char* XVertexUsageName(u32 usage)
{
    return WordsOf(usage).name;
}

bool XPolygonMesh::WriteChunk(XTextWriter& out) const
{
    if (!XGeometry::WriteChunk(out))
        return false;
    out << "\tpoint_index_set \"" << (m_PointIndexSet ? m_PointIndexSet->GetName().c_str() : "none")
        << "\"\n";
    out << "\tPOLY_COUNTS " << static_cast<u32>(m_PolyCounts.size()) << "\n\t{\n";
    out.WriteRows(m_PolyCounts, 1, {"\t\t"});
    out << "\t}\n\tnum_index_sets " << static_cast<u32>(m_IndexSets.size()) << '\n';
    for (const auto& set : m_IndexSets) {
        out << "\tINDEX_SET \"" << set->GetName() << "\"\n\t{\n";
        WriteIndices(m_PolyCounts, set->GetIndices(), out);
        out << "\t}\n";
    }
    out << "\tnum_vertex_sets " << static_cast<u32>(m_VertexSets.size()) << '\n';
    for (const auto& set : m_VertexSets)
        WriteVertexSet(*set, out);
    return out.IsGood();
}

bool XPolygonMesh::ReadFields(XTextReader& in)
{
    XString pointSet;
    if (!XGeometry::ReadFields(in) || !Expect("point_index_set", in, kSource, 1) ||
        !ReadQuotedUnchecked(in, pointSet) || !ReadPolyCounts(in))
        return false;

    if (!Expect("num_index_sets", in, kSource, 5))
        return false;
    u32 count = 0;
    in.Read(count);
    for (u32 i = 0; i < count; ++i)
        if (!ReadIndexSet(in, pointSet))
            return false;

    if (!Expect("num_vertex_sets", in, kSource, 7))
        return false;
    in.Read(count);
    for (u32 i = 0; i < count; ++i)
        if (!ReadVertexSet(in))
            return false;
    return true;
}

bool XPolygonMesh::ReadPolyCounts(XTextReader& in)
{
    if (!Expect("POLY_COUNTS", in, kSource, 2))
        return false;
    u32 count = 0;
    in.Read(count);
    if (!Expect("{", in, kSource, 3))
        return false;
    m_NumPolyIndices = 0;
    // A count that does not come counts as 0.
    if (!in.ReadNumbers(m_PolyCounts, count) ||
        std::any_of(m_PolyCounts.begin(), m_PolyCounts.end(), [](u32 sides) { return sides < 3; })) {
        GetLogger()->Log(kError, "Poly count data contains a poly with less than 3 sides!");
        return false;
    }
    const u64 corners = std::accumulate(m_PolyCounts.begin(), m_PolyCounts.end(), u64{0});
    if (corners > std::numeric_limits<u32>::max()) {
        GetLogger()->Log(kError, "Poly count data claims more corners than a mesh can have");
        return false;
    }
    m_NumPolyIndices = static_cast<u32>(corners);
    return Expect("}", in, kSource, 4);
}

bool XPolygonMesh::ReadIndexSet(XTextReader& in, const XString& pointSet)
{
    if (!Expect("INDEX_SET", in, kSource, 6))
        return false;
    auto set = std::make_unique<XIndexSet>(this, "");
    if (!ReadQuotedUnchecked(in, set->m_Name) || !Expect("{", in, kSource, 3))
        return false;
    if (set->m_Name == pointSet)
        m_PointIndexSet = set.get();
    in.ReadNumbers(set->m_Indices, m_NumPolyIndices);
    m_IndexSets.push_back(std::move(set));
    return Expect("}", in, kSource, 4);
}

bool XPolygonMesh::ReadVertexSet(XTextReader& in)
{
    XVertexSet& set = *m_VertexSets.emplace_back(std::make_unique<XVertexSet>(this, ""));
    XString word;
    if (!Expect("VERTEX_SET", in, kSource, 8) || !ReadQuotedUnchecked(in, set.m_Name) ||
        !Expect("{", in, kSource, 3) || !Expect("num_elements", in, kSource, 9))
        return false;
    in.Read(set.m_NumElements);
    if (!Expect("element_size", in, kSource, 10))
        return false;
    in.Read(set.m_ElementSize);
    if (!Expect("usage", in, kSource, 11))
        return false;
    in.ReadToken(word);
    ReadUsage(word, set.m_Usage);
    if (!Expect("index_set", in, kSource, 12) || !ReadQuotedUnchecked(in, set.m_IndexSetName) ||
        !Expect("elements", in, kSource, 13))
        return false;
    in.ReadNumbers(set.m_Elements, u64{set.m_NumElements} * set.m_ElementSize);
    return Expect("}", in, kSource, 4);
}

}  // namespace VKT
