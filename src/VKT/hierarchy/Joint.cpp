#include "VKT/hierarchy/Joint.h"

#include "VKT/document/Model.h"

namespace VKT {

XBodyTable XJoint::TextBody()
{
    static constexpr XBodyRow rows[] = {
        ReadSince(4, {"\tsegment_scale_compensate ", &XJoint::m_SegmentScaleCompensate}),
    };
    return {".\\src\\VKT\\Joint", rows};
}

XPropertyTable XJoint::Properties()
{
    static constexpr XPropertyInfo rows[] = {
        Field<&XJoint::m_SegmentScaleCompensate>(56, "segment_scale_compensate"),
    };
    return rows;
}

// T x IS x JO x R x Ro x S, where IS undoes the parent's scale when that is wanted and
// can be inverted.
XMatrix XJoint::BuildLocal() const
{
    XMatrix local = TranslationMatrix(GetTranslate(false));
    const XBone* parent = m_SegmentScaleCompensate ? GetParent() : nullptr;
    XMatrix undo = kIdentityMatrix;
    if (parent && XMatrixInverse(undo, ScaleMatrix(parent->GetScale(false))))
        local = local * undo;
    return local * RotationMatrix(GetJointOrient()) * RotationMatrix(GetRotation(false)) *
           RotationMatrix(GetRotationOrient()) * ScaleMatrix(GetScale(false));
}

}  // namespace VKT
