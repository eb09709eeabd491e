#include <unordered_set>

#include "VKT/document/Model.h"
#include "VKT/hierarchy/Bone.h"
#include "common/NodeNames.h"
#include "validate/checks/Checks.h"
#include "validate/checks/Rings.h"

namespace tool {
namespace {

using VKT::XBase;
using VKT::XBone;
using Bones = std::vector<const XBase*>;

Bones ListBones(const VKT::XModel& model)
{
    Bones bones;
    for (const auto& [name, node] : model.GetNodes())
        if (const XBone* bone = VKT::XCast<XBone>(node))
            bones.push_back(bone);
    return bones;
}

void ListChildren(const XBase& bone, Bones& next)
{
    VKT::XBoneList children;
    VKT::XCast<XBone>(&bone)->ListChildren(children);
    next.assign(children.begin(), children.end());
}

std::string NameOfNode(const VKT::XModel& model, VKT::u32 id)
{
    const XBase* node = model.FindNode(id);
    if (id == 0)
        return "none";
    return node ? NameAndType(*node) : "the missing node " + std::to_string(id);
}

// What one bone says of its children.
void CheckChildren(const XBone& bone, Findings& findings)
{
    const VKT::XModel& model = *bone.GetModel();
    BadValues lost;
    BadValues repeated;
    std::unordered_set<VKT::u32> met;
    for (const VKT::u32 id : bone.GetChildIds()) {
        const XBone* child = VKT::XCast<XBone>(model.FindNode(id));
        if (!child)
            lost.Add([&] {
                return model.HasNode(id) ? NameOfNode(model, id) + " is no bone"
                                         : "node " + std::to_string(id) + " is missing";
            });
        else if (!met.insert(id).second)
            repeated.Add([&] { return NameAndType(*child); });
        else if (child->GetParentId() != bone.GetID())
            findings.Fail(child, NameAndType(bone) + " lists it as a child, and its parent is " +
                                     NameOfNode(model, child->GetParentId()) +
                                     "; readers place it by the lists alone, the last one that names it");
    }
    if (lost.Count() > 0)
        findings.Fail(&bone, "child_joints: " + lost.Text() + "; readers skip it");
    if (repeated.Count() > 0)
        findings.Warn(&bone, "child_joints: lists " + repeated.Text() + " twice; readers take it once");
}

void CheckRings(const Bones& bones, Findings& findings)
{
    for (const Ring& ring : FindRings(bones, ListChildren))
        findings.Fail(ring.begin.front(), "stands below itself: " + ring.Text() +
                                              "; readers that don't look for rings never end, and others "
                                              "stop at a bone that they know");
}

void MarkBelow(const XBase* start, std::unordered_set<const XBase*>& reached)
{
    Bones pending{start};
    while (!pending.empty()) {
        const XBase* bone = pending.back();
        pending.pop_back();
        if (!reached.insert(bone).second)
            continue;
        Bones children;
        ListChildren(*bone, children);
        pending.insert(pending.end(), children.begin(), children.end());
    }
}

std::string WhyUnreached(const XBone& bone, bool isListed)
{
    const std::string name = NameOfNode(*bone.GetModel(), bone.GetParentId());
    if (!bone.GetParent())
        return "its parent is " + name + (bone.GetModel()->HasNode(bone.GetParentId()) ? ", no bone" : "");
    return isListed ? "it stands in a ring or below one" : "its parent " + name + " does not list it";
}

// Of each part of the hierarchy that no root leads to, the bones at which it begins.
void CheckReach(const VKT::XModel& model, const Bones& bones, Findings& findings)
{
    std::unordered_set<const XBase*> reached;
    VKT::XBoneList roots;
    model.ListRootBones(roots);
    for (const XBone* root : roots)
        MarkBelow(root, reached);

    std::unordered_set<const XBase*> listed;
    for (const XBase* bone : bones) {
        Bones children;
        if (!reached.contains(bone))
            ListChildren(*bone, children);
        listed.insert(children.begin(), children.end());
    }
    const auto report = [&](const XBase* bone) {
        if (reached.contains(bone))
            return;
        findings.Fail(bone, WhyUnreached(*VKT::XCast<XBone>(bone), listed.contains(bone)) +
                                "; no root leads to it, and readers leave its matrices at the identity");
        MarkBelow(bone, reached);
    };
    for (const XBase* bone : bones)
        if (!listed.contains(bone))
            report(bone);
    for (const XBase* bone : bones)
        report(bone);
}

}  // namespace

void CheckHierarchy(const VKT::XModel& model, Findings& findings)
{
    const Bones bones = ListBones(model);
    for (const XBase* bone : bones)
        CheckChildren(*VKT::XCast<XBone>(bone), findings);
    CheckRings(bones, findings);
    CheckReach(model, bones, findings);
}

}  // namespace tool
