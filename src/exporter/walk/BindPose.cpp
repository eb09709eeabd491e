#include "exporter/walk/BindPose.h"

#include "VKT/document/Model.h"
#include "VKT/hierarchy/Bone.h"
#include "exporter/walk/Pose.h"

namespace VKTMax {

using VKT::XBone;

// The pose of a bone depends on the host's matrices alone and not on that of its parent,
// so the order of the bones does not matter. A bone without a node counts as unmoved.
void ApplyBindPose(const VKTExportCore& core)
{
    VKT::XNodeList bones;
    core.GetModel().List(bones, VKT::kFnBone);
    for (VKT::XBase* node : bones) {
        XBone& bone = *VKT::XCast<XBone>(node);
        const RowMatrix world = core.GetBindMatrix(core.FindNode(&bone));
        const RowMatrix parentWorld = core.GetBindMatrix(core.FindNode(bone.GetParent()));
        SetPose(bone, DecomposeTransform(world, parentWorld, CurrentScaleRules()));
    }
}

void RebuildBindPoseFromCurrent(const VKTExportCore& core)
{
    core.GetModel().UpdateWorldMatrices();
}

}  // namespace VKTMax
