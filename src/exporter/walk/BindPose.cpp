// The pose that a document is saved in, once all nodes have been met.

#include "VKT/hierarchy/Bone.h"
#include "exporter/walk/ExportCore.h"
#include "exporter/walk/Pose.h"

namespace VKTMax {

using VKT::XBone;

// The pose of a bone depends on the host's matrices alone and not on that of its parent,
// so the order of the bones does not matter. A bone without a node counts as unmoved.
void VKTExportCore::ApplyBindPose()
{
    VKT::XNodeList bones;
    m_Model.List(bones, VKT::kFnBone);
    for (VKT::XBase* node : bones) {
        XBone& bone = *VKT::XCast<XBone>(node);
        const RowMatrix world = GetBindMatrix(FindNode(&bone));
        const RowMatrix parentWorld = GetBindMatrix(FindNode(bone.GetParent()));
        SetPose(bone, DecomposeTransform(world, parentWorld, CurrentScaleRules()));
    }
}

void VKTExportCore::RebuildBindPoseFromCurrent()
{
    m_Model.UpdateWorldMatrices();
}

}  // namespace VKTMax
