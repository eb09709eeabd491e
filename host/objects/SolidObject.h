#pragma once

#include <string>

#include "mnmesh.h"
#include "object.h"

namespace maxhost {

// Fills a polygon mesh with a box: 8 points, 6 faces of material 0, wound outwards.
void MakeBoxPolygons(MNMesh& mesh, const Box3& box);

// Geometry that is made from parameters and turns into a mesh when asked: the box, and
// with its class id the bone object and the parts of bipeds, which here are boxes too.
class SolidObject final : public GeomObject {
public:
    SolidObject(std::string name, SClass_ID superClass, Class_ID classID);

    Class_ID ClassID() override { return m_classID; }
    void GetClassName(MSTR& name) override { name = m_name.c_str(); }
    ObjectState Eval(TimeValue) override { return ObjectState(this); }
    int CanConvertToType(Class_ID classID) override;
    Object* ConvertToType(TimeValue t, Class_ID classID) override;

    const Box3& GetBox() const { return m_box; }
    void SetBox(const Box3& box) { m_box = box; }

private:
    std::string m_name;
    Class_ID m_classID;
    Box3 m_box;
};

}  // namespace maxhost
