#include <algorithm>
#include <limits>

#include "VKT/base/Logger.h"
#include "VKT/geometry/Mesh.h"
#include "VKT/stream/BlockReader.h"
#include "VKT/stream/NodeName.h"
#include "VKT/stream/TextWriter.h"

// The two forms of an older mesh in files.

namespace VKT {
namespace {

constexpr const char* kSource = ".\\src\\VKT\\Mesh";
constexpr u32 kLeastCorners = 3;

// A list whose count stands in the file with 16 bits.
template <class T, class Move>
bool DoShortList(XFileIO& file, XVector<T>& list, Move move)
{
    u16 count = static_cast<u16>(list.size());
    if (!file.DoData(count))
        return false;
    if (file.IsReading())
        list.clear();
    return file.DoElements(list, count, move);
}

void WriteCorner(const XFaceVertex& corner, u32 numSets, XTextWriter& out)
{
    out << "\t\t" << corner.m_Point << ' ' << corner.m_Normal;
    for (u32 set = 0; set < numSets; ++set)
        out << ' ' << (set < corner.m_UvIndices.size() ? corner.m_UvIndices[set] : 0);
    out << '\n';
}

bool IsRegular(const XFace& face, u32 numSets)
{
    const auto& corners = face.GetVertices();
    return corners.size() >= kLeastCorners &&
           std::all_of(corners.begin(), corners.end(),
                       [=](const XFaceVertex& corner) { return corner.m_UvIndices.size() == numSets; });
}

}  // namespace

bool XMesh::DoData(XFileIO& file)
{
    if (file.IsWriting() && !file.IsMeasuring())
        WarnOfCutCounts();
    file.NoteIds(m_VertexColours);
    return XNodeClass::DoData(file) && file.DoData(m_Normals) && DoTexCoords(file) && DoFaces(file);
}

void XMesh::WarnOfCutCounts() const
{
    std::size_t most = std::max(m_Faces.size(), m_TexCoords.size());
    for (const XFace& face : m_Faces)
        most = std::max(most, face.GetVertices().size());
    if (most > std::numeric_limits<u16>::max())
        GetLogger()->LogFormat(kWarning,
                               "mesh \"%s\" has more faces, corners or uv sets than the 65535 that a binary "
                               "file can count: it will not read back",
                               GetName());
}

// The names stand between the number of the tables and the tables.
bool XMesh::DoTexCoords(XFileIO& file)
{
    u16 count = static_cast<u16>(m_TexCoords.size());
    if (!file.DoData(count) || !file.DoData(m_UvSetNames))
        return false;
    if (file.IsReading())
        m_TexCoords.clear();
    return file.DoElements(m_TexCoords, count, [&](XTexCoords& table) { return file.DoData(table) != 0; });
}

bool XMesh::DoFaces(XFileIO& file)
{
    const auto doCorner = [&](XFaceVertex& corner) {
        return file.DoData(corner.m_Point) && file.DoData(corner.m_Normal) && file.DoData(corner.m_UvIndices);
    };
    return DoShortList(file, m_Faces,
                       [&](XFace& face) { return DoShortList(file, face.GetVertices(), doCorner); });
}

u64 XMesh::GetTextPadding() const
{
    const std::size_t numSets = m_TexCoords.size();
    u64 padding = 0;
    for (const XFace& face : m_Faces) {
        const auto& corners = face.GetVertices();
        if (corners.size() < kLeastCorners)
            padding += (kLeastCorners - corners.size()) * (2 + numSets);
        for (const XFaceVertex& corner : corners)
            padding += numSets - std::min(numSets, corner.m_UvIndices.size());
    }
    return padding;
}

bool XMesh::WriteChunk(XTextWriter& out) const
{
    if (!XNodeClass::WriteChunk(out))
        return false;
    const u32 numSets = GetNumUvSets();
    out << "\tnormal_count " << static_cast<u32>(m_Normals.size()) << "\n\tnum_uv_sets " << numSets
        << "\n\tface_count " << GetNumFaces() << '\n';
    if (!m_Normals.empty()) {
        out << "\tnormals\n";
        out.WriteRows(m_Normals, {"\t\t"});
    }
    for (u32 set = 0; set < numSets; ++set) {
        const XTexCoords& table = m_TexCoords[set];
        out << "\ttex_coords " << NameInQuotes(set < m_UvSetNames.size() ? m_UvSetNames[set] : "") << ' '
            << static_cast<u32>(table.size()) << '\n';
        for (const XTexCoord& uv : table)
            out << "\t\t" << uv.u << ' ' << uv.v << '\n';
    }
    bool isRegular = true;
    for (const XFace& face : m_Faces) {
        isRegular = isRegular && IsRegular(face, numSets);
        const auto& corners = face.GetVertices();
        out << "\tFACE " << std::max(face.GetNumVertices(), kLeastCorners) << '\n';
        for (const XFaceVertex& corner : corners)
            WriteCorner(corner, numSets, out);
        for (std::size_t i = corners.size(); i < kLeastCorners; ++i)
            WriteCorner(corners.empty() ? XFaceVertex() : corners.back(), numSets, out);
    }
    if (!isRegular)
        GetLogger()->LogFormat(kWarning,
                               "faces of mesh \"%s\" are written with at least three corners, and one index "
                               "per corner and uv set",
                               GetName());
    return out.IsGood();
}

bool XMesh::ReadFields(XTextReader& in)
{
    if (!XNodeClass::ReadFields(in))
        return false;
    XBlockReader block(in, kSource);
    u32 numNormals = 0;
    u32 numSets = 0;
    u32 numFaces = 0;
    if (!block.Read("normal_count", numNormals) || !block.Read("num_uv_sets", numSets) ||
        !block.Read("face_count", numFaces))
        return false;
    m_Normals.clear();
    if (numNormals != 0) {
        if (!block.Expect("normals"))
            return false;
        in.ReadNumbers(m_Normals, numNormals);
    }
    SetNumUvSets(0);
    for (u32 set = 0; set < numSets; ++set)
        if (!ReadTexCoords(block))
            return false;
    m_Faces.clear();
    for (u32 face = 0; face < numFaces; ++face)
        if (!ReadFace(block))
            return false;
    return true;
}

bool XMesh::ReadTexCoords(XBlockReader block)
{
    if (!block.Expect("tex_coords"))
        return false;
    XTextReader& in = block.In();
    XString& name = m_UvSetNames.emplace_back();
    in.ReadToken(name);
    std::erase(name, '"');
    XTexCoords& table = m_TexCoords.emplace_back();
    u32 count = 0;
    in.Read(count);
    for (u32 i = 0; i < count && in.IsGood(); ++i) {
        XTexCoord& uv = table.emplace_back();
        in.Read(uv.u);
        in.Read(uv.v);
    }
    return true;
}

bool XMesh::ReadFace(XBlockReader block)
{
    i32 claimed = 0;
    if (!block.Read("face", claimed))
        return false;
    XTextReader& in = block.In();
    // Kept on purpose: three corners are read where fewer are claimed.
    const u32 count = std::max(claimed, static_cast<i32>(kLeastCorners));
    auto& corners = m_Faces.emplace_back().GetVertices();
    for (u32 corner = 0; corner < count && in.IsGood(); ++corner) {
        XFaceVertex& vertex = corners.emplace_back();
        in.Read(vertex.m_Point);
        in.Read(vertex.m_Normal);
        in.ReadNumbers(vertex.m_UvIndices, GetNumUvSets());
    }
    return true;
}

}  // namespace VKT
