#pragma once

#include "object.h"

extern CoreExport Class_ID dummyClassID;

// A helper that is a box to look at, and a transform.
class CoreExport DummyObject : public HelperObject {
public:
    Class_ID ClassID() override { return Class_ID(DUMMY_CLASS_ID, 0); }
    void GetClassName(MSTR& name) override { name = "Dummy"; }
    ObjectState Eval(TimeValue) override { return ObjectState(this); }
    RefResult NotifyRefChanged(Interval, RefTargetHandle, PartID&, RefMessage) override
    {
        return REF_SUCCEED;
    }

    Box3 GetBox() const { return m_Box; }
    void SetBox(Box3& box) { m_Box = box; }
    void SetColor(Point3 colour) { m_Colour = colour; }
    void EnableDisplay() { m_Displayed = true; }
    void DisableDisplay() { m_Displayed = false; }

private:
    Box3 m_Box = Box3(Point3(-10, -10, -10), Point3(10, 10, 10));
    Point3 m_Colour = Point3(0, 0, 0);
    bool m_Displayed = true;
};
