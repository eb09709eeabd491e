// Triangle and polygon objects, and what they turn into.

#include "host/core/References.h"
#include "polyobj.h"
#include "triobj.h"

using maxhost::SceneObjects;

Class_ID triObjectClassID(TRIOBJ_CLASS_ID, 0);
Class_ID polyObjectClassID(POLYOBJ_CLASS_ID, 0);

namespace {

int IsGeometry(Class_ID classID)
{
    return classID == triObjectClassID || classID == polyObjectClassID;
}

// Each triangle becomes a polygon; a map channel without faces stays behind.
void ToPolygons(MNMesh& out, const Mesh& mesh)
{
    out.Clear();
    out.setNumVerts(mesh.numVerts);
    for (int i = 0; i < mesh.numVerts; ++i)
        out.P(i) = mesh.verts[i];
    out.setNumFaces(mesh.numFaces);
    for (int i = 0; i < mesh.numFaces; ++i) {
        Face& face = mesh.faces[i];
        int corners[3] = {static_cast<int>(face.v[0]), static_cast<int>(face.v[1]),
                          static_cast<int>(face.v[2])};
        out.F(i)->MakePoly(3, corners);
        out.F(i)->smGroup = face.smGroup;
        out.F(i)->material = face.getMatID();
    }
    for (int channel = 0; channel < MAX_MESHMAPS; ++channel) {
        if (!mesh.mapSupport(channel))
            continue;
        out.InitMap(channel);
        MNMap& map = *out.M(channel);
        map.setNumVerts(mesh.getNumMapVerts(channel));
        for (int i = 0; i < map.numv; ++i)
            map.v[i] = mesh.mapVerts(channel)[i];
        for (int i = 0; i < map.numf; ++i) {
            const TVFace& face = mesh.mapFaces(channel)[i];
            int corners[3] = {static_cast<int>(face.t[0]), static_cast<int>(face.t[1]),
                              static_cast<int>(face.t[2])};
            map.f[i].MakePoly(3, corners);
        }
    }
}

}  // namespace

TriObject* CreateNewTriObject()
{
    return SceneObjects::Adopt(new TriObject);
}

int TriObject::CanConvertToType(Class_ID classID)
{
    return IsGeometry(classID);
}

Object* TriObject::ConvertToType(TimeValue, Class_ID classID)
{
    if (classID == triObjectClassID)
        return this;
    if (classID != polyObjectClassID)
        return nullptr;
    PolyObject* converted = SceneObjects::Adopt(new PolyObject);
    ToPolygons(converted->mm, mesh);
    return converted;
}

Object* TriObject::MakeShallowCopy(ChannelMask channels)
{
    TriObject* copy = CreateNewTriObject();
    copy->ShallowCopy(this, channels);
    return copy;
}

void TriObject::ShallowCopy(Object* from, ChannelMask)
{
    mesh = static_cast<TriObject*>(from)->mesh;
}

int PolyObject::CanConvertToType(Class_ID classID)
{
    return IsGeometry(classID);
}

Object* PolyObject::ConvertToType(TimeValue, Class_ID classID)
{
    if (classID == polyObjectClassID)
        return this;
    if (classID != triObjectClassID)
        return nullptr;
    TriObject* converted = CreateNewTriObject();
    mm.OutToTri(converted->mesh);
    return converted;
}

Object* PolyObject::MakeShallowCopy(ChannelMask channels)
{
    PolyObject* copy = SceneObjects::Adopt(new PolyObject);
    copy->ShallowCopy(this, channels);
    return copy;
}

void PolyObject::ShallowCopy(Object* from, ChannelMask)
{
    mm = static_cast<PolyObject*>(from)->mm;
}
