#include "host/controllers/XYZController.h"

#include "host/controllers/AffineParts.h"

namespace maxhost {

XYZController::XYZController(const char* what, float value)
    : m_What(what),
      m_Axes{Reference<Control>(*this, new BezierFloat(value)),
             Reference<Control>(*this, new BezierFloat(value)),
             Reference<Control>(*this, new BezierFloat(value))}
{
}

MSTR XYZController::SubAnimName(int i)
{
    const char* const axes[] = {"X ", "Y ", "Z "};
    return MSTR(axes[i]) + m_What;
}

void XYZController::SetReference(int i, RefTargetHandle target)
{
    m_Axes[static_cast<std::size_t>(i)].Set(static_cast<Control*>(target));
    NotifyDependents(FOREVER, PART_ALL, REFMSG_CHANGE);
}

RefResult XYZController::NotifyRefChanged(Interval changed, RefTargetHandle, PartID& part, RefMessage message)
{
    return NotifyDependents(changed, part, message);
}

Point3 XYZController::GetAxes(TimeValue t, Interval& valid)
{
    Point3 values(0, 0, 0);
    for (int i = 0; i < 3; ++i)
        if (Control* axis = GetAxis(i))
            axis->GetValue(t, &values[i], valid);
    return values;
}

void XYZController::SetAxes(TimeValue t, Point3 values)
{
    for (int i = 0; i < 3; ++i)
        if (Control* axis = GetAxis(i))
            axis->SetValue(t, &values[i]);
}

void PositionXYZ::GetValue(TimeValue t, void* val, Interval& valid, GetSetMethod method)
{
    const Point3 position = GetAxes(t, valid);
    if (method == CTRL_ABSOLUTE)
        *static_cast<Point3*>(val) = position;
    else
        static_cast<Matrix3*>(val)->PreTranslate(position);
}

void PositionXYZ::SetValue(TimeValue t, void* val, int, GetSetMethod method)
{
    Interval valid = FOREVER;
    const Point3 given = *static_cast<Point3*>(val);
    SetAxes(t, method == CTRL_ABSOLUTE ? given : GetAxes(t, valid) + given);
}

void EulerXYZ::GetValue(TimeValue t, void* val, Interval& valid, GetSetMethod method)
{
    const Point3 angles = GetAxes(t, valid);
    const Matrix3 rotation = RotateXMatrix(angles.x) * RotateYMatrix(angles.y) * RotateZMatrix(angles.z);
    if (method == CTRL_ABSOLUTE)
        *static_cast<Quat*>(val) = Quat(rotation);
    else
        *static_cast<Matrix3*>(val) = rotation * *static_cast<Matrix3*>(val);
}

void EulerXYZ::SetValue(TimeValue t, void* val, int, GetSetMethod method)
{
    Interval valid = FOREVER;
    Matrix3 rotation(TRUE);
    static_cast<Quat*>(val)->MakeMatrix(rotation);
    if (method == CTRL_RELATIVE)
        GetValue(t, &rotation, valid, CTRL_RELATIVE);
    SetAxes(t, EulerAnglesNear(rotation, GetAxes(t, valid)));
}

void ScaleXYZ::GetValue(TimeValue t, void* val, Interval& valid, GetSetMethod method)
{
    const Point3 scale = GetAxes(t, valid);
    if (method == CTRL_ABSOLUTE)
        *static_cast<ScaleValue*>(val) = ScaleValue(scale);
    else
        static_cast<Matrix3*>(val)->PreScale(scale);
}

void ScaleXYZ::SetValue(TimeValue t, void* val, int, GetSetMethod method)
{
    Interval valid = FOREVER;
    const Point3 given = static_cast<ScaleValue*>(val)->s;
    SetAxes(t, method == CTRL_ABSOLUTE ? given : GetAxes(t, valid) * given);
}

}  // namespace maxhost
