#include <algorithm>
#include <functional>
#include <limits>
#include <numeric>
#include <span>

#include "VKT/base/Logger.h"
#include "VKT/geometry/PolygonMesh.h"
#include "VKT/stream/BlockReader.h"
#include "VKT/stream/TextWriter.h"

// The two forms of a polygon mesh in files.

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

// A read appends its sets to those that the mesh has.
bool XPolygonMesh::DoData(XFileIO& file)
{
    XString pointSet = m_PointIndexSet ? m_PointIndexSet->m_Name : "";
    if (!XNodeClass::DoData(file) || !file.DoData(pointSet) || !file.DoData(m_PolyCounts) ||
        !DoIndexSets(file) || !DoVertexSets(file))
        return false;
    if (file.IsReading())
        m_PointIndexSet = FindIndexSet(pointSet);
    return true;
}

bool XPolygonMesh::DoIndexSets(XFileIO& file)
{
    constexpr u64 kLeastBytes = 6;  // an empty name and an empty list
    u32 count = 0;
    return file.DoCount(count, m_IndexSets.size(), kLeastBytes) &&
           file.DoElements(
               m_IndexSets, count, [this] { return std::make_unique<XIndexSet>(this, ""); },
               [&](XIndexSet& set) { return file.DoData(set.m_Name) && file.DoData(set.m_Indices); });
}

bool XPolygonMesh::DoVertexSets(XFileIO& file)
{
    constexpr u64 kLeastBytes = 20;  // two empty names, three numbers and an empty list
    const auto doSet = [&](XVertexSet& set) {
        return file.DoData(set.m_Name) && file.DoData(set.m_NumElements) && file.DoData(set.m_ElementSize) &&
               file.DoData(set.m_Usage) && file.DoData(set.m_IndexSetName) && file.DoData(set.m_Elements);
    };
    u32 count = 0;
    return file.DoCount(count, m_VertexSets.size(), kLeastBytes) &&
           file.DoElements(
               m_VertexSets, count, [this] { return std::make_unique<XVertexSet>(this, ""); }, doSet);
}

bool XPolygonMesh::WriteChunk(XTextWriter& out) const
{
    if (!XNodeClass::WriteChunk(out))
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
    if (!XNodeClass::ReadFields(in))
        return false;
    XBlockReader block(in, kSource);
    XString pointSet;
    u32 count = 0;
    if (!block.Expect("point_index_set") || !ReadQuotedUnchecked(in, pointSet) || !ReadPolyCounts(block) ||
        !block.Read("num_index_sets", count))
        return false;
    for (u32 i = 0; i < count; ++i)
        if (!ReadIndexSet(block, pointSet))
            return false;
    if (!block.Read("num_vertex_sets", count))
        return false;
    for (u32 i = 0; i < count; ++i)
        if (!ReadVertexSet(block))
            return false;
    return true;
}

bool XPolygonMesh::ReadPolyCounts(XBlockReader& block)
{
    u32 count = 0;
    if (!block.Read("POLY_COUNTS", count) || !block.Expect("{"))
        return false;
    m_NumPolyIndices = 0;
    // A count that does not come counts as 0.
    if (!block.In().ReadNumbers(m_PolyCounts, count) ||
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
    return block.Expect("}");
}

bool XPolygonMesh::ReadIndexSet(XBlockReader block, const XString& pointSet)
{
    XTextReader& in = block.In();
    auto set = std::make_unique<XIndexSet>(this, "");
    if (!block.Expect("INDEX_SET") || !ReadQuotedUnchecked(in, set->m_Name) || !block.Expect("{"))
        return false;
    if (set->m_Name == pointSet)
        m_PointIndexSet = set.get();
    in.ReadNumbers(set->m_Indices, m_NumPolyIndices);
    m_IndexSets.push_back(std::move(set));
    return block.Expect("}");
}

bool XPolygonMesh::ReadVertexSet(XBlockReader block)
{
    XTextReader& in = block.In();
    XVertexSet& set = *m_VertexSets.emplace_back(std::make_unique<XVertexSet>(this, ""));
    XString word;
    if (!block.Expect("VERTEX_SET") || !ReadQuotedUnchecked(in, set.m_Name) || !block.Expect("{") ||
        !block.Read("num_elements", set.m_NumElements) || !block.Read("element_size", set.m_ElementSize) ||
        !block.Read("usage", word))
        return false;
    ReadUsage(word, set.m_Usage);
    if (!block.Expect("index_set") || !ReadQuotedUnchecked(in, set.m_IndexSetName) ||
        !block.Expect("elements"))
        return false;
    in.ReadNumbers(set.m_Elements, u64{set.m_NumElements} * set.m_ElementSize);
    return block.Expect("}");
}

}  // namespace VKT
