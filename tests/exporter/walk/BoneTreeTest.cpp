#include "exporter/walk/BoneTree.h"

#include <cmath>

#include "VKT/hierarchy/Joint.h"
#include "exporter/walk/SceneWalk.h"
#include "scenes/ExportScenes.h"

namespace VKTMax {
namespace {

using namespace export_scenes;
using maxhost::MakeNode;
using testing::Test;
using Names = std::vector<std::string>;

class BoneTreeTest : public ExportTest {
protected:
    VKTExportCore core{model, false};
};

std::string Refused(const std::string& child, const std::string& parent)
{
    return "Error : Cannot add \"" + child + "\" as a child, since it is already a child of \"" + parent +
           "\" or one of it's children....\n";
}

TEST_F(BoneTreeTest, NodesBecomeBonesInTheHostsTree)
{
    INode* a = MakeNode("a");
    MakeNode("b");
    MakeNode("a1", nullptr, a);
    MakeNode("a2", nullptr, a);
    ASSERT_TRUE(CreateBoneTree(core, Root(), true));
    EXPECT_EQ(ChildNamesOf(BoneOf("Scene_Root")), (Names{"a", "b"}));
    EXPECT_EQ(ChildNamesOf(BoneOf("a")), (Names{"a1", "a2"}));
    EXPECT_EQ(BoneOf("a2")->GetParent(), BoneOf("a"));
    EXPECT_EQ(BoneOf("Scene_Root")->GetParent(), nullptr);
}

TEST_F(BoneTreeTest, BonesAreMadeParentFirst)
{
    INode* a = MakeNode("a");
    MakeNode("a1", nullptr, a);
    MakeNode("b");
    ASSERT_TRUE(CreateBoneTree(core, Root(), true));
    EXPECT_EQ(BoneOf("Scene_Root")->GetID(), 1u);
    EXPECT_EQ(BoneOf("a")->GetID(), 2u);
    EXPECT_EQ(BoneOf("a1")->GetID(), 3u);
    EXPECT_EQ(BoneOf("b")->GetID(), 4u);
}

TEST_F(BoneTreeTest, SecondHangingOfEachChildIsRefusedInTheLog)
{
    INode* a = MakeNode("a");
    MakeNode("a1", nullptr, a);
    MakeNode("b");
    ASSERT_TRUE(CreateBoneTree(core, Root(), true));
    EXPECT_EQ(log.Text(), Refused("a1", "a") + Refused("a", "Scene_Root") + Refused("b", "Scene_Root"));
}

TEST_F(BoneTreeTest, ShallowBuildTakesKnownChildrenAndLogsNothing)
{
    INode* a = MakeNode("a");
    INode* a1 = MakeNode("a1", nullptr, a);
    MakeNode("a2", nullptr, a);
    ASSERT_TRUE(CreateBoneTree(core, a1, false));
    ASSERT_TRUE(CreateBoneTree(core, a, false));
    EXPECT_EQ(ChildNamesOf(BoneOf("a")), (Names{"a1"}));
    EXPECT_EQ(BoneOf("a")->GetParent(), nullptr);
    EXPECT_EQ(log.Text(), "");
}

TEST_F(BoneTreeTest, ShallowBuildHangsUnderAKnownParent)
{
    INode* a = MakeNode("a");
    INode* a1 = MakeNode("a1", nullptr, a);
    ASSERT_TRUE(CreateBoneTree(core, a, false));
    ASSERT_TRUE(CreateBoneTree(core, a1, false));
    EXPECT_EQ(ChildNamesOf(BoneOf("a")), (Names{"a1"}));
    EXPECT_EQ(log.Text(), "");
}

TEST_F(BoneTreeTest, KnownNodeIsLeftAlone)
{
    INode* a = MakeNode("a");
    ASSERT_TRUE(CreateBoneTree(core, a, false));
    BoneOf("a")->SetTranslate({1, 2, 3, 0});
    ASSERT_TRUE(CreateBoneTree(core, a, true));
    EXPECT_EQ(BoneOf("a")->GetTranslate(false), (VKT::XVector3{1, 2, 3, 0}));
    EXPECT_EQ(core.GetNodes().size(), 1u);
}

TEST_F(BoneTreeTest, RecursiveBuildTakesAKnownChildAsItIs)
{
    INode* a = MakeNode("a");
    INode* a1 = MakeNode("a1", nullptr, a);
    MakeNode("a11", nullptr, a1);
    ASSERT_TRUE(CreateBoneTree(core, a1, false));
    ASSERT_TRUE(CreateBoneTree(core, a, true));
    EXPECT_EQ(ChildNamesOf(BoneOf("a")), (Names{"a1"}));
    EXPECT_EQ(model.FindNode("a11"), nullptr);
    EXPECT_EQ(log.Text(), "");
}

TEST_F(BoneTreeTest, BipedPartsBoneObjectsAndMarkedNodesAreJoints)
{
    MakeNode("biped", MakeOddMesh(Class_ID(0x9125, 0)));
    MakeNode("object", MakeOddMesh(Class_ID(0x28BF6E8D, 0x2ECCA840)));
    MakeNode("marked", MakeTriangle())->SetBoneNodeOnOff(TRUE, 0);
    MakeNode("plain", MakeTriangle());
    ASSERT_TRUE(CreateBoneTree(core, Root(), true));
    EXPECT_EQ(BoneOf("biped")->GetApiType(), 87u);
    EXPECT_EQ(BoneOf("object")->GetApiType(), 87u);
    EXPECT_EQ(BoneOf("marked")->GetApiType(), 87u);
    EXPECT_EQ(BoneOf("plain")->GetApiType(), 86u);
}

TEST_F(BoneTreeTest, NodeWithoutAnObjectIsABoneThoughMarked)
{
    MakeNode("empty")->SetBoneNodeOnOff(TRUE, 0);
    ASSERT_TRUE(CreateBoneTree(core, Root(), true));
    EXPECT_EQ(BoneOf("empty")->GetApiType(), 86u);
    EXPECT_EQ(BoneOf("Scene_Root")->GetApiType(), 86u);
}

TEST_F(BoneTreeTest, PoseIsLocalAndBothCurrentAndBind)
{
    options.SetRemoveScale(false);
    options.SetScaleFactor(10.0f);
    INode* a = MakeNode("a");
    maxhost::SetPosition(*a, Point3(5, 0, 0));
    INode* a1 = MakeNode("a1", nullptr, a);
    maxhost::SetPosition(*a1, Point3(1, 2, 3));
    maxhost::SetScale(*a1, Point3(2, 3, 4));
    maxhost::SetRotation(*a1, Point3(0.0f, 0.0f, 1.57079633f));
    ASSERT_TRUE(CreateBoneTree(core, Root(), true));
    for (const bool bind : {false, true}) {
        const VKT::XBone& bone = *BoneOf("a1");
        EXPECT_FLOAT_EQ(bone.GetTranslate(bind).x, 10.0f);
        EXPECT_FLOAT_EQ(bone.GetTranslate(bind).y, 20.0f);
        EXPECT_FLOAT_EQ(bone.GetTranslate(bind).z, 30.0f);
        EXPECT_FLOAT_EQ(bone.GetScale(bind).x, 2.0f);
        EXPECT_FLOAT_EQ(bone.GetScale(bind).y, 3.0f);
        EXPECT_FLOAT_EQ(bone.GetScale(bind).z, 4.0f);
        EXPECT_NEAR(bone.GetRotation(bind).z, std::sqrt(0.5), 1e-6);
        EXPECT_NEAR(bone.GetRotation(bind).w, std::sqrt(0.5), 1e-6);
    }
}

TEST_F(BoneTreeTest, HiddenAndFadedNodesAreInvisible)
{
    MakeNode("shown")->SetVisibility(0, 0.5f);
    MakeNode("faded")->SetVisibility(0, 0.49f);
    MakeNode("hidden")->Hide(TRUE);
    ASSERT_TRUE(CreateBoneTree(core, Root(), true));
    EXPECT_TRUE(BoneOf("shown")->IsVisible());
    EXPECT_FALSE(BoneOf("faded")->IsVisible());
    EXPECT_FALSE(BoneOf("hidden")->IsVisible());
}

TEST_F(BoneTreeTest, EqualNamesAreMadeDifferent)
{
    INode* first = MakeNode("twin");
    INode* second = MakeNode("twin");
    ASSERT_TRUE(CreateBoneTree(core, Root(), true));
    EXPECT_STREQ(core.FindBone(first)->GetName(), "twin");
    EXPECT_STRNE(core.FindBone(second)->GetName(), "twin");
}

TEST_F(BoneTreeTest, NodesAndBonesFindEachOther)
{
    INode* a = MakeNode("a");
    INode* b = MakeNode("b");
    ASSERT_TRUE(CreateBoneTree(core, a, false));
    EXPECT_EQ(core.FindBone(a), BoneOf("a"));
    EXPECT_EQ(core.FindNode(BoneOf("a")), a);
    EXPECT_EQ(core.FindBone(b), nullptr);
    EXPECT_EQ(core.FindBone(nullptr), nullptr);
    EXPECT_EQ(core.FindNode(nullptr), nullptr);
    EXPECT_EQ(core.FindNode(model.CreateNode<VKT::XBone>()), nullptr);
}

TEST_F(BoneTreeTest, WithoutARegistryTheWalkEndsWithFalse)
{
    MakeNode("a", MakeTriangle());
    VKT::XFnShutdown();
    EXPECT_FALSE(CreateBoneTree(core, Root(), true));
    EXPECT_FALSE(ExportAllNodes(core, Root(), {}));
    host.GetInterface().SelectNode(host.GetInterface().GetINodeByName("a"));
    EXPECT_FALSE(ExportSelectedNodes(core, Root(), {}));
    EXPECT_TRUE(core.GetNodes().empty());
}

class ControllerTransformTest : public ExportTest {};

TEST_F(ControllerTransformTest, AxisControllersAreReadAsTheyStand)
{
    options.SetScaleFactor(100.0f);
    INode* node = MakeNode("a");
    maxhost::SetPosition(*node, Point3(1, 2, 3));
    maxhost::SetRotation(*node, Point3(0.3f, -0.5f, 0.7f));
    maxhost::SetScale(*node, Point3(2, 3, 4));
    maxhost::UseScaleXYZ(*node);
    VKT::XBone& bone = *model.CreateNode<VKT::XBone>();
    CaptureControllerTransform(node, bone);

    VKT::XQuaternion expected;
    VKT::XEulerToQuaternion({0.3f, -0.5f, 0.7f, 0}, 0, expected);
    for (const bool bind : {false, true}) {
        EXPECT_EQ(bone.GetTranslate(bind), (VKT::XVector3{1, 2, 3, 0}));
        EXPECT_EQ(bone.GetScale(bind), (VKT::XVector3{2, 3, 4, 0}));
        EXPECT_EQ(bone.GetRotation(bind), expected);
    }
}

TEST_F(ControllerTransformTest, RotationIsAboutXThenYThenZ)
{
    INode* node = MakeNode("a");
    const float half = 3.14159265f / 2;
    maxhost::SetRotation(*node, Point3(half, half, 0.0f));
    VKT::XBone& bone = *model.CreateNode<VKT::XBone>();
    CaptureControllerTransform(node, bone);
    // About x the point goes to z, about y from there to x.
    const VKT::XVector3 moved = TransformPoint(VKT::RotationMatrix(bone.GetRotation(false)), {0, 1, 0, 0});
    EXPECT_NEAR(moved.x, 1, 1e-6);
    EXPECT_NEAR(moved.y, 0, 1e-6);
    EXPECT_NEAR(moved.z, 0, 1e-6);
}

TEST_F(ControllerTransformTest, ScaleWithoutAxisControllersCountsAsOne)
{
    INode* node = MakeNode("a");
    maxhost::SetScale(*node, Point3(2, 3, 4));
    VKT::XBone& bone = *model.CreateNode<VKT::XBone>();
    CaptureControllerTransform(node, bone);
    EXPECT_EQ(bone.GetScale(false), (VKT::XVector3{1, 1, 1, 0}));
}

TEST_F(ControllerTransformTest, NodeWithoutAControllerLeavesTheBone)
{
    VKT::XBone& bone = *model.CreateNode<VKT::XBone>();
    bone.SetTranslate({7, 8, 9, 0});
    INode* node = MakeNode("a");
    node->SetTMController(nullptr);
    CaptureControllerTransform(node, bone);
    EXPECT_EQ(bone.GetTranslate(false), (VKT::XVector3{7, 8, 9, 0}));
    EXPECT_EQ(bone.GetTranslate(true), (VKT::XVector3{0, 0, 0, 0}));
}

}  // namespace
}  // namespace VKTMax
