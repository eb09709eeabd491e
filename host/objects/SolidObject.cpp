#include "host/objects/SolidObject.h"

#include "host/core/References.h"
#include "polyobj.h"
#include "triobj.h"

namespace maxhost {

void MakeBoxPolygons(MNMesh& mesh, const Box3& box)
{
    mesh.Clear();
    mesh.setNumVerts(8);
    for (int i = 0; i < 8; ++i)
        mesh.P(i) = Point3(i & 1 ? box.pmax.x : box.pmin.x, i & 2 ? box.pmax.y : box.pmin.y,
                           i & 4 ? box.pmax.z : box.pmin.z);
    static const int corners[6][4] = {{0, 2, 3, 1}, {4, 5, 7, 6}, {0, 1, 5, 4},
                                      {1, 3, 7, 5}, {3, 2, 6, 7}, {2, 0, 4, 6}};
    mesh.setNumFaces(6);
    for (int i = 0; i < 6; ++i) {
        int face[4];
        for (int k = 0; k < 4; ++k)
            face[k] = corners[i][k];
        mesh.F(i)->MakePoly(4, face);
        mesh.F(i)->smGroup = 1u << i;
    }
}

// Boxes stand on their pivot; bones and what moves like them reach along X.
SolidObject::SolidObject(std::string name, SClass_ID, Class_ID classID)
    : m_Name(std::move(name)),
      m_ClassID(classID),
      m_Box(classID == Class_ID(BOXOBJ_CLASS_ID, 0) ? Box3(Point3(-5, -5, 0), Point3(5, 5, 10))
                                                    : Box3(Point3(0, -2, -2), Point3(20, 2, 2)))
{
}

int SolidObject::CanConvertToType(Class_ID classID)
{
    return classID == m_ClassID || classID == triObjectClassID || classID == polyObjectClassID;
}

Object* SolidObject::ConvertToType(TimeValue t, Class_ID classID)
{
    if (classID == m_ClassID)
        return this;
    if (!CanConvertToType(classID))
        return nullptr;
    PolyObject* polygons = SceneObjects::Adopt(new PolyObject);
    MakeBoxPolygons(polygons->mm, m_Box);
    if (classID == polyObjectClassID)
        return polygons;
    Object* triangles = polygons->ConvertToType(t, triObjectClassID);
    polygons->DeleteMe();
    return triangles;
}

}  // namespace maxhost
