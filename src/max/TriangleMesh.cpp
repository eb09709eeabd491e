#include "max/TriangleMesh.h"

#include "max/ClassId.h"

namespace VKTMax {
namespace {

using VKT::XIntList;
using VKT::XVector3Array;

// Objects that never become meshes, although they could be converted.
bool IsNeverMesh(Object& object)
{
    return IsSubClassOf(object, kPatchObject) || IsSubClassOf(object, kObject40);
}

TriObject* ConvertToTriangles(Object* object)
{
    return static_cast<TriObject*>(object->ConvertToType(0, triObjectClassID));
}

XVector3Array ToVectors(const Point3* points, int count)
{
    XVector3Array out;
    out.reserve(static_cast<std::size_t>(count));
    for (int i = 0; i < count; ++i)
        out.push_back({points[i].x, points[i].y, points[i].z, 0.0f});
    return out;
}

// A mesh may have values that no face refers to: all corners are 0 then.
XIntList ToCorners(const TVFace* faces, int count)
{
    if (!faces)
        return XIntList(3 * static_cast<std::size_t>(count), 0);
    XIntList out;
    out.reserve(3 * static_cast<std::size_t>(count));
    for (int i = 0; i < count; ++i)
        for (DWORD corner : faces[i].t)
            out.push_back(static_cast<i32>(corner));
    return out;
}

}  // namespace

void TriangleMesh::DeleteObject::operator()(Object* object) const
{
    object->DeleteMe();
}

TriangleMesh TriangleMesh::Of(const HostObject& source, const HostObject& evaluated)
{
    TriangleMesh out;
    Object* object = source.handle;
    if (IsSubClassOf(*object, kTriObject)) {
        out.m_Mesh = &static_cast<TriObject*>(object)->mesh;
    } else if (IsSubClassOf(*object, kPolyObject)) {
        if (TriObject* converted = ConvertToTriangles(object)) {
            out.m_Mesh = &converted->mesh;
            if (converted != evaluated.handle)
                out.m_Converted.reset(converted);
        }
    } else if (!IsNeverMesh(*object) && object->CanConvertToType(triObjectClassID)) {
        // Kept on purpose: what is made here is left to the host, which frees it when the
        // scene closes.
        if (TriObject* converted = ConvertToTriangles(object))
            out.m_Mesh = &converted->mesh;
    }
    return out;
}

u32 TriangleMesh::GetNumFaces() const
{
    return static_cast<u32>(m_Mesh->numFaces);
}

XVector3Array TriangleMesh::GetPoints() const
{
    return ToVectors(m_Mesh->verts, m_Mesh->numVerts);
}

VKT::XU32Array TriangleMesh::GetCorners() const
{
    VKT::XU32Array out;
    out.reserve(3 * static_cast<std::size_t>(m_Mesh->numFaces));
    for (int i = 0; i < m_Mesh->numFaces; ++i)
        for (DWORD vertex : m_Mesh->faces[i].v)
            out.push_back(static_cast<u32>(vertex));
    return out;
}

VKT::XIndexList TriangleMesh::GetFaceMaterials() const
{
    VKT::XIndexList out;
    out.reserve(static_cast<std::size_t>(m_Mesh->numFaces));
    for (int i = 0; i < m_Mesh->numFaces; ++i)
        out.push_back(m_Mesh->getFaceMtlIndex(i));
    return out;
}

bool TriangleMesh::HasChannel(int channel) const
{
    return m_Mesh->mapSupport(channel) != 0;
}

XVector3Array TriangleMesh::GetChannelValues(int channel) const
{
    return ToVectors(m_Mesh->mapVerts(channel), m_Mesh->getNumMapVerts(channel));
}

XIntList TriangleMesh::GetChannelCorners(int channel) const
{
    return ToCorners(m_Mesh->mapFaces(channel), m_Mesh->numFaces);
}

XVector3Array TriangleMesh::GetColours() const
{
    return ToVectors(m_Mesh->vertCol, m_Mesh->numCVerts);
}

XIntList TriangleMesh::GetColourCorners() const
{
    return ToCorners(m_Mesh->vcFace, m_Mesh->numFaces);
}

}  // namespace VKTMax
