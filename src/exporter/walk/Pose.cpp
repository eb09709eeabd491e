#include "exporter/walk/Pose.h"

#include "VKT/hierarchy/Bone.h"
#include "exporter/options/ExportOptions.h"
#include "max/Node.h"

namespace VKTMax {

ScaleRules CurrentScaleRules()
{
    return {GetExportOptions().GetScaleFactor(), GetExportOptions().GetRemoveScale()};
}

TransformParts LocalTransform(INode* node, i32 ticks)
{
    INode* parent = ParentOf(node);
    return DecomposeTransform(WorldMatrix(node, ticks), parent ? WorldMatrix(parent, ticks) : RowMatrix(),
                              CurrentScaleRules());
}

void SetPose(VKT::XBone& bone, const TransformParts& transform)
{
    bone.SetRotation(transform.rotation);
    bone.SetScale(transform.scale);
    bone.SetTranslate(transform.translation);
    bone.SetBindFromCurrent();
}

}  // namespace VKTMax
