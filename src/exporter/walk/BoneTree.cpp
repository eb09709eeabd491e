// How a node becomes a bone: its class, name, place in the tree, pose and visibility.

#include "VKT/hierarchy/Bone.h"
#include "VKT/hierarchy/Joint.h"
#include "exporter/walk/ExportCore.h"
#include "exporter/walk/Pose.h"

namespace VKTMax {

using VKT::XBone;
using VKT::XVector3;

namespace {

// Bones of a skeleton become joints, whether by their object or by a switch of the node.
bool IsJoint(INode* node)
{
    Object* object = EvaluatedObject(node, 0);
    return object &&
           (IsSubClassOf(object, kBipedPart) || IsSubClassOf(object, kBoneObject) || IsBoneSwitchedOn(node));
}

XVector3 ToVector3(const AxisValues& values, f32 absent)
{
    return {values.x.value_or(absent), values.y.value_or(absent), values.z.value_or(absent), 0.0f};
}

bool IsVisible(INode* node)
{
    return !IsHidden(node) && VisibilityOf(node, 0) >= 0.5f;
}

}  // namespace

void CaptureControllerTransform(INode* node, XBone& bone)
{
    if (!HasTransformController(node))
        return;
    VKT::XQuaternion rotation;
    constexpr u32 xyz = 0;
    VKT::XEulerToQuaternion(ToVector3(RotationTracks(node, 0), 0.0f), xyz, rotation);
    bone.SetTranslate(ToVector3(PositionTracks(node, 0), 0.0f));
    bone.SetScale(ToVector3(ScaleTracks(node, 0), 1.0f));
    bone.SetRotation(rotation);
    bone.SetBindFromCurrent();
}

XBone* VKTExportCore::CreateBone(INode* node)
{
    const u32 type = IsJoint(node) ? VKT::kFnJoint : VKT::kFnBone;
    XBone* bone = VKT::XCast<XBone>(m_Model.CreateNode(type));
    if (!bone)
        return nullptr;
    bone->SetName(NameOf(node).c_str());
    m_Nodes.emplace(node, bone);
    m_NodesByBone.emplace(bone, node);
    return bone;
}

// Children are finished before their parent, so each bone is hung under a parent that
// hangs nowhere yet: adding it looks a step or two up, however deep the tree.
bool VKTExportCore::CreateBoneTree(INode* node, bool recursive)
{
    if (FindBone(node))
        return true;

    struct Step {
        INode* node;
        XBone* bone;
        int nextChild;
    };
    std::vector<Step> path;
    const auto enter = [&](INode* entered) {
        XBone* bone = CreateBone(entered);
        if (bone)
            path.push_back({entered, bone, 0});
        return bone != nullptr;
    };

    if (!enter(node))
        return false;
    while (!path.empty()) {
        Step& step = path.back();
        if (step.nextChild < NumChildrenOf(step.node)) {
            INode* child = ChildOf(step.node, step.nextChild++);
            if (XBone* known = FindBone(child))
                step.bone->AddChild(known);
            else if (recursive && !enter(child))
                return false;
            continue;
        }
        XBone* finished = step.bone;
        FinishBone(step.node, *finished);
        path.pop_back();
        // Kept on purpose: the bone hangs under its parent already, so this is refused
        // with an error in the log, once for each bone of a recursive build.
        if (!path.empty())
            path.back().bone->AddChild(finished);
    }
    return true;
}

void VKTExportCore::FinishBone(INode* node, XBone& bone)
{
    if (XBone* parent = FindBone(ParentOf(node)))
        parent->AddChild(&bone);
    SetPose(bone, GetLocalTransform(node, 0));
    bone.SetVisible(IsVisible(node));
}

bool VKTExportCore::CreateSelectedBone(INode* node)
{
    if (FindBone(node) || !IsSelected(node))
        return true;
    XBone* bone = CreateBone(node);
    if (!bone)
        return false;
    if (XBone* parent = FindBone(ParentOf(node)))
        parent->AddChild(bone);
    captureTransform(node, *bone);
    bone->SetVisible(IsVisible(node));
    return true;
}

}  // namespace VKTMax
