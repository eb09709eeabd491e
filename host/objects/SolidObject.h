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

    Class_ID ClassID() override { return m_ClassID; }
    void GetClassName(MSTR& name) override { name = m_Name.c_str(); }
    ObjectState Eval(TimeValue) override { return ObjectState(this); }
    int CanConvertToType(Class_ID classID) override;
    Object* ConvertToType(TimeValue t, Class_ID classID) override;
    RefResult NotifyRefChanged(Interval, RefTargetHandle, PartID&, RefMessage) override
    {
        return REF_SUCCEED;
    }

    const Box3& GetBox() const { return m_Box; }
    void SetBox(const Box3& box) { m_Box = box; }

private:
    std::string m_Name;
    Class_ID m_ClassID;
    Box3 m_Box;
};

}  // namespace maxhost
