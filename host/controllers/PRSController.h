#pragma once

#include "control.h"
#include "host/core/References.h"
#include "plugapi.h"

namespace maxhost {

// The usual transform controller: a point is scaled first, then turned, then moved.
// A new one has position XYZ, Euler XYZ and a Bezier scale, which has no X, Y, Z.
class PRSController final : public Control {
public:
    PRSController();

    SClass_ID SuperClassID() override { return CTRL_MATRIX3_CLASS_ID; }
    Class_ID ClassID() override { return Class_ID(PRS_CONTROL_CLASS_ID, 0); }
    void GetClassName(MSTR& name) override { name = "Position/Rotation/Scale"; }
    BOOL IsLeaf() override { return FALSE; }

    int NumSubs() override { return 3; }
    Animatable* SubAnim(int i) override { return GetPart(i); }
    MSTR SubAnimName(int i) override;
    int NumRefs() override { return 3; }
    RefTargetHandle GetReference(int i) override { return GetPart(i); }
    RefResult NotifyRefChanged(Interval changed, RefTargetHandle, PartID& part, RefMessage message) override;

    Control* GetPositionController() override { return m_Position.Get(); }
    Control* GetRotationController() override { return m_Rotation.Get(); }
    Control* GetScaleController() override { return m_Scale.Get(); }
    // FALSE for a controller of another kind.
    BOOL SetPositionController(Control* controller) override;
    BOOL SetRotationController(Control* controller) override;
    BOOL SetScaleController(Control* controller) override;

    void GetValue(TimeValue t, void* val, Interval& valid, GetSetMethod method) override;
    // Only puts the node somewhere; it is not moved, turned or scaled by steps.
    void SetValue(TimeValue t, void* val, int commit, GetSetMethod method) override;

private:
    void SetReference(int i, RefTargetHandle target) override;
    Control* GetPart(int i);
    BOOL Replace(int i, Control* controller, SClass_ID superClass);

    Reference<Control> m_Position;
    Reference<Control> m_Rotation;
    Reference<Control> m_Scale;
};

}  // namespace maxhost
