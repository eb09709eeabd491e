#include "VKT/geometry/Mesh.h"

#include <algorithm>
#include <cstring>

#include "VKT/document/Model.h"
#include "VKT/geometry/MeshVertexColours.h"

namespace VKT {

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
