#pragma once

#include <array>

#include "host/controllers/KeyedController.h"
#include "host/core/References.h"

namespace maxhost {

// A controller of three floats with keys of their own.
class XYZController : public Control {
public:
    BOOL IsLeaf() override { return FALSE; }
    int NumSubs() override { return 3; }
    Animatable* SubAnim(int i) override { return GetAxis(i); }
    MSTR SubAnimName(int i) override;
    int NumRefs() override { return 3; }
    RefTargetHandle GetReference(int i) override { return GetAxis(i); }
    RefResult NotifyRefChanged(Interval changed, RefTargetHandle, PartID& part, RefMessage message) override;

    Control* GetXController() override { return GetAxis(0); }
    Control* GetYController() override { return GetAxis(1); }
    Control* GetZController() override { return GetAxis(2); }

protected:
    // All three floats start as `value`.
    XYZController(const char* what, float value);
    Point3 GetAxes(TimeValue t, Interval& valid);
    void SetAxes(TimeValue t, Point3 values);

private:
    void SetReference(int i, RefTargetHandle target) override;
    Control* GetAxis(int i) { return m_Axes[static_cast<std::size_t>(i)].Get(); }

    const char* m_What;  // "Position" and so on, for the names of the parts
    std::array<Reference<Control>, 3> m_Axes;
};

class PositionXYZ final : public XYZController {
public:
    PositionXYZ() : XYZController("Position", 0.0f) {}
    SClass_ID SuperClassID() override { return CTRL_POSITION_CLASS_ID; }
    Class_ID ClassID() override { return GetClassID(); }
    void GetClassName(MSTR& name) override { name = "Position XYZ"; }
    void GetValue(TimeValue t, void* val, Interval& valid, GetSetMethod method) override;
    void SetValue(TimeValue t, void* val, int commit, GetSetMethod method) override;
    static Class_ID GetClassID() { return Class_ID(0x118f7e02, 0xffee238a); }
};

// Turns about X first, then Y, then Z. Angles in radians.
class EulerXYZ final : public XYZController {
public:
    EulerXYZ() : XYZController("Rotation", 0.0f) {}
    SClass_ID SuperClassID() override { return CTRL_ROTATION_CLASS_ID; }
    Class_ID ClassID() override { return Class_ID(EULER_CONTROL_CLASS_ID, 0); }
    void GetClassName(MSTR& name) override { name = "Euler XYZ"; }
    void GetValue(TimeValue t, void* val, Interval& valid, GetSetMethod method) override;
    // Takes the angles nearest to those at `t`.
    void SetValue(TimeValue t, void* val, int commit, GetSetMethod method) override;
};

// Along the axes of the node: the axes of a scale that is set are not kept.
class ScaleXYZ final : public XYZController {
public:
    ScaleXYZ() : XYZController("Scale", 1.0f) {}
    SClass_ID SuperClassID() override { return CTRL_SCALE_CLASS_ID; }
    Class_ID ClassID() override { return GetClassID(); }
    void GetClassName(MSTR& name) override { name = "ScaleXYZ"; }
    void GetValue(TimeValue t, void* val, Interval& valid, GetSetMethod method) override;
    void SetValue(TimeValue t, void* val, int commit, GetSetMethod method) override;
    static Class_ID GetClassID() { return Class_ID(0x118f7c01, 0xfeee238b); }
};

}  // namespace maxhost
