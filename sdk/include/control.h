#pragma once

#include "quat.h"
#include "ref.h"

enum GetSetMethod { CTRL_RELATIVE = 0, CTRL_ABSOLUTE = 1 };

// A scale by `s` along the axes of `q`.
class ScaleValue {
public:
    Point3 s;
    Quat q;

    ScaleValue() {}  // leaves the scale unset
    ScaleValue(const Point3& S) : s(S) {}
    ScaleValue(const Point3& S, const Quat& Q) : s(S), q(Q) {}
};

// On the left: tm = Inverse(Mq) * S * Mq * tm.
CoreExport void ApplyScaling(Matrix3& m, const ScaleValue& v);

// A value over time. `val` points at what the super class says: float; Point3 for
// point3 and position; Quat; ScaleValue; Matrix3. Read relative, a controller works
// on what `val` holds: a float is added to, a matrix gets the transform on its left
// (then `val` is a Matrix3 for position, rotation and scale, too).
class CoreExport Control : public ReferenceTarget {
public:
    virtual void GetValue(TimeValue t, void* val, Interval& valid, GetSetMethod method = CTRL_ABSOLUTE) = 0;
    virtual void SetValue(TimeValue t, void* val, int commit = 1, GetSetMethod method = CTRL_ABSOLUTE) = 0;
    virtual BOOL IsLeaf() { return TRUE; }

    virtual Control* GetPositionController() { return nullptr; }
    virtual Control* GetRotationController() { return nullptr; }
    virtual Control* GetScaleController() { return nullptr; }
    virtual BOOL SetPositionController(Control*) { return FALSE; }
    virtual BOOL SetRotationController(Control*) { return FALSE; }
    virtual BOOL SetScaleController(Control*) { return FALSE; }
    virtual Control* GetXController() { return nullptr; }
    virtual Control* GetYController() { return nullptr; }
    virtual Control* GetZController() { return nullptr; }
    virtual Control* GetWController() { return nullptr; }

    void* GetInterface(ULONG id) override
    {
        return id == I_CONTROL ? this : ReferenceTarget::GetInterface(id);
    }
    using ReferenceTarget::GetInterface;
};

// With animation on, values set at other times than 0 make keys.
CoreExport int Animating();
CoreExport void AnimateOn();
CoreExport void AnimateOff();
CoreExport void SuspendAnimate();
CoreExport void ResumeAnimate();
