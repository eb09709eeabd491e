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

#define XFORM_MOVE 0
#define XFORM_ROTATE 1
#define XFORM_SCALE 2
#define XFORM_SET 3

// What a transform controller is to do to its node.
class SetXFormPacket {
public:
    DWORD command;
    Matrix3 tmParent;
    Matrix3 tmAxis;
    Point3 p;
    Quat q;
    AngAxis aa;
    BOOL localOrigin = FALSE;

    // Puts the node at `world`.
    SetXFormPacket(const Matrix3& world, const Matrix3& parent = Matrix3(TRUE))
        : command(XFORM_SET), tmParent(parent), tmAxis(world), p(0, 0, 0), aa(Point3(0, 0, 0), 0.0f)
    {
    }
};

// A value over time. `val` points at what the super class says: float; Point3 for
// point3 and position; Quat; ScaleValue; Matrix3. A transform is set by a
// SetXFormPacket instead, never by a matrix, and whatever the method. Read relative, a controller works
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
