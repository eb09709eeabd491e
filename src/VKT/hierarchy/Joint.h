#pragma once

#include "VKT/hierarchy/Bone.h"

namespace VKT {

// A bone of a skeleton. Its local matrix has an orient of its own and can undo the
// scale of its parent; pivots and shearing take no part in it.
class XJoint final : public XNodeClass<XJoint, XBone, kFnJoint> {
public:
    using XNodeClass::XNodeClass;

    bool GetSegmentScaleCompensate() const { return m_SegmentScaleCompensate; }
    void SetSegmentScaleCompensate(bool compensate) { m_SegmentScaleCompensate = compensate; }

    static XBodyTable TextBody();
    static XBodyTable BinaryBody() { return TextBody(); }
    static XPropertyTable Properties();

protected:
    XMatrix BuildLocal() const override;

private:
    bool m_SegmentScaleCompensate = true;
};

}  // namespace VKT
