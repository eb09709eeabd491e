#include "host/controllers/Controllers.h"

#include "host/controllers/PRSController.h"
#include "host/controllers/XYZController.h"

namespace maxhost {

namespace {

template <class T>
void Add(ClassDirectory& classes)
{
    T sample;
    MSTR name;
    sample.GetClassName(name);
    classes.AddBuiltIn(
        std::make_unique<BuiltInClass<Control, T>>(name.data(), sample.SuperClassID(), sample.ClassID()));
}

}  // namespace

void AddControllerClasses(ClassDirectory& classes)
{
    Add<PRSController>(classes);
    Add<PositionXYZ>(classes);
    Add<EulerXYZ>(classes);
    Add<ScaleXYZ>(classes);
    Add<LinearFloat>(classes);
    Add<BezierFloat>(classes);
    Add<BezierPosition>(classes);
    Add<BezierScale>(classes);
}

}  // namespace maxhost

// The scale stands on the left, in the frame that its own axes make.
void ApplyScaling(Matrix3& m, const ScaleValue& v)
{
    const bool ownAxes = !(v.q == Quat());
    if (ownAxes)
        PreRotateMatrix(m, v.q);
    m.PreScale(v.s);
    if (ownAxes)
        PreRotateMatrix(m, Inverse(v.q));
}
