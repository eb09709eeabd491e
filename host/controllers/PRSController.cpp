#include "host/controllers/PRSController.h"

#include "host/controllers/AffineParts.h"
#include "host/controllers/XYZController.h"

namespace maxhost {

PRSController::PRSController()
    : m_Position(*this, new PositionXYZ), m_Rotation(*this, new EulerXYZ), m_Scale(*this, new BezierScale)
{
}

MSTR PRSController::SubAnimName(int i)
{
    const char* const names[] = {"Position", "Rotation", "Scale"};
    return names[i];
}

Control* PRSController::GetPart(int i)
{
    return (i == 0 ? m_Position : i == 1 ? m_Rotation : m_Scale).Get();
}

void PRSController::SetReference(int i, RefTargetHandle target)
{
    (i == 0 ? m_Position : i == 1 ? m_Rotation : m_Scale).Set(static_cast<Control*>(target));
    NotifyDependents(FOREVER, PART_ALL, REFMSG_CHANGE);
}

RefResult PRSController::NotifyRefChanged(Interval changed, RefTargetHandle, PartID& part, RefMessage message)
{
    return NotifyDependents(changed, part, message);
}

BOOL PRSController::SetPositionController(Control* controller)
{
    return Replace(0, controller, CTRL_POSITION_CLASS_ID);
}

BOOL PRSController::SetRotationController(Control* controller)
{
    return Replace(1, controller, CTRL_ROTATION_CLASS_ID);
}

BOOL PRSController::SetScaleController(Control* controller)
{
    return Replace(2, controller, CTRL_SCALE_CLASS_ID);
}

BOOL PRSController::Replace(int i, Control* controller, SClass_ID superClass)
{
    if (!controller || controller->SuperClassID() != superClass)
        return FALSE;
    SetReference(i, controller);
    return TRUE;
}

void PRSController::GetValue(TimeValue t, void* val, Interval& valid, GetSetMethod method)
{
    Matrix3& tm = *static_cast<Matrix3*>(val);
    if (method == CTRL_ABSOLUTE)
        tm.IdentityMatrix();
    for (int i = 0; i < 3; ++i)
        if (Control* part = GetPart(i))
            part->GetValue(t, &tm, valid, CTRL_RELATIVE);
}

void PRSController::SetValue(TimeValue t, void* val, int commit, GetSetMethod)
{
    const SetXFormPacket& packet = *static_cast<SetXFormPacket*>(val);
    if (packet.command != XFORM_SET)
        return;
    AffineParts parts = TakeApart(packet.tmAxis * Inverse(packet.tmParent));
    if (m_Position)
        m_Position->SetValue(t, &parts.position, commit, CTRL_ABSOLUTE);
    if (m_Rotation)
        m_Rotation->SetValue(t, &parts.rotation, commit, CTRL_ABSOLUTE);
    if (m_Scale)
        m_Scale->SetValue(t, &parts.scale, commit, CTRL_ABSOLUTE);
}

}  // namespace maxhost
