#include "VKT/geometry/Mesh.h"

#include <algorithm>
#include <cstring>
#include <limits>

#include "VKT/base/Logger.h"
#include "VKT/document/Model.h"
#include "VKT/geometry/MeshVertexColours.h"

namespace VKT {
namespace {

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

}  // namespace

void XMesh::SetNumUvSets(u32 count)
{
    m_TexCoords.resize(count);
    m_UvSetNames.resize(count);
}

bool XMesh::HasUvSet(const char* name) const
{
    return std::find(m_UvSetNames.begin(), m_UvSetNames.end(), name) != m_UvSetNames.end();
}

XMeshVertexColours* XMesh::GetVertexColours() const
{
    XMeshVertexColours* first = nullptr;
    for (const u32 id : m_VertexColours) {
        auto* const colours = XCast<XMeshVertexColours>(GetModel()->FindNode(id));
        if (colours && colours->GetMeshId() == GetID() &&
            (!first || std::strcmp(colours->GetName(), first->GetName()) < 0))
            first = colours;
    }
    return first;
}

bool XMesh::NodeDeath(u32 id)
{
    std::erase(m_VertexColours, id);
    return XGeometry::NodeDeath(id);
}

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

void XMesh::DoCopy(const XBase* source)
{
    const XMesh* other = XCast<XMesh>(source);
    if (!other || other == this)
        return;
    m_Normals = other->m_Normals;
    m_TexCoords = other->m_TexCoords;
    m_UvSetNames = other->m_UvSetNames;
    m_Faces = other->m_Faces;
    if (const XMeshVertexColours* colours = other->GetVertexColours())
        if (auto* const clone = XCast<XMeshVertexColours>(colours->Clone()))
            clone->SetMesh(this);
    XNodeClass::DoCopy(source);
}

}  // namespace VKT
