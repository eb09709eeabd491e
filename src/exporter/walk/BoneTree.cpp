#include "exporter/walk/BoneTree.h"

#include "VKT/document/Model.h"
#include "VKT/hierarchy/Bone.h"
#include "exporter/walk/Pose.h"
#include "exporter/walk/TreeWalk.h"
#include "max/Tracks.h"

namespace VKTMax {

using VKT::XBone;
using VKT::XVector3;

namespace {

// Bones of a skeleton become joints, whether by their object or by a switch of the node.
// A node without an object is none.
bool IsJoint(const HostNode& node)
{
    return node.object && (node.object.isBipedPart || node.object.isBoneObject || node.isBone);
}

bool IsVisible(const HostNode& node)
{
    return !node.isHidden && node.visibility >= 0.5f;
}

XVector3 ToVector3(const AxisValues& values, f32 absent)
{
    return {values.x.value_or(absent), values.y.value_or(absent), values.z.value_or(absent), 0.0f};
}

XBone* CreateBone(VKTExportCore& core, INode* node)
{
    const HostNode read = ReadNode(node);
    const u32 type = IsJoint(read) ? VKT::kFnJoint : VKT::kFnBone;
    XBone* bone = VKT::XCast<XBone>(core.GetModel().CreateNode(type));
    if (!bone)
        return nullptr;
    bone->SetName(read.name.c_str());
    bone->SetVisible(IsVisible(read));
    core.Remember(node, *bone);
    return bone;
}

void HangUnderParent(VKTExportCore& core, INode* node, XBone* bone)
{
    if (XBone* parent = core.FindBone(ParentOf(node)))
        parent->AddChild(bone);
}

}  // namespace

void CaptureControllerTransform(INode* node, XBone& bone)
{
    const std::optional<TransformTracks> tracks = ReadTransformTracks(node, 0);
    if (!tracks)
        return;
    VKT::XQuaternion rotation;
    constexpr u32 xyz = 0;
    VKT::XEulerToQuaternion(ToVector3(tracks->rotation, 0.0f), xyz, rotation);
    bone.SetTranslate(ToVector3(tracks->position, 0.0f));
    bone.SetScale(ToVector3(tracks->scale, 1.0f));
    bone.SetRotation(rotation);
    bone.SetBindFromCurrent();
}

// Children are finished before their parent, so each bone is hung under a parent that
// hangs nowhere yet: adding it looks a step or two up, however deep the tree.
bool CreateBoneTree(VKTExportCore& core, INode* node, bool recursive)
{
    if (core.FindBone(node))
        return true;
    const auto enter = [&](INode* met) {
        if (XBone* known = core.FindBone(met)) {
            HangUnderParent(core, met, known);
            return Visit::Skip;
        }
        if (met != node && !recursive)
            return Visit::Skip;
        return CreateBone(core, met) ? Visit::Descend : Visit::Stop;
    };
    const auto leave = [&](INode* met) {
        XBone* bone = core.FindBone(met);
        HangUnderParent(core, met, bone);
        SetPose(*bone, LocalTransform(met, 0));
        // Kept on purpose: the bone hangs under its parent already, so this is refused
        // with an error in the log, once for each bone of a recursive build.
        if (met != node)
            HangUnderParent(core, met, bone);
        return true;
    };
    return WalkTree(node, enter, leave);
}

bool CreateSelectedBone(VKTExportCore& core, INode* node)
{
    if (core.FindBone(node) || !IsSelected(node))
        return true;
    XBone* bone = CreateBone(core, node);
    if (!bone)
        return false;
    HangUnderParent(core, node, bone);
    CaptureControllerTransform(node, *bone);
    return true;
}

}  // namespace VKTMax
