#include "exporter/walk/SceneWalk.h"

#include "exporter/walk/BindPose.h"
#include "scenes/ExportScenes.h"

namespace VKTMax {
namespace {

using namespace export_scenes;
using maxhost::MakeNode;
using Names = std::vector<std::string>;

class SceneWalkTest : public ExportTest {
protected:
    void Select(INode* node) { host.GetInterface().SelectNode(node, 0); }
    // Names of meshes in the order in which they were made.
    Names ShapeNames()
    {
        VKT::XNodeList shapes;
        model.List(shapes, VKT::kFnPolygonMesh);
        std::sort(shapes.begin(), shapes.end(), [](auto* a, auto* b) { return a->GetID() < b->GetID(); });
        Names names;
        for (const VKT::XBase* shape : shapes)
            names.push_back(shape->GetName());
        return names;
    }
    Names RootNames()
    {
        VKT::XBoneList roots;
        model.ListRootBones(roots);
        return NamesOf(roots);
    }
};

TEST_F(SceneWalkTest, WholeSceneBuildsShapesOfChildrenFirst)
{
    INode* a = MakeNode("a", MakeTriangle());
    MakeNode("a1", MakeTriangle(), a);
    MakeNode("a2", MakeTriangle(), a);
    MakeNode("b", MakeTriangle());
    ExportScene();
    EXPECT_EQ(ShapeNames(), (Names{"a1Shape", "a2Shape", "aShape", "bShape"}));
    EXPECT_EQ(RootNames(), (Names{"Scene_Root"}));
}

TEST_F(SceneWalkTest, AllBonesStandBeforeTheFirstShape)
{
    INode* a = MakeNode("a", MakeTriangle());
    MakeNode("a1", MakeTriangle(), a);
    ExportScene();
    EXPECT_LT(BoneOf("a1")->GetID(), model.FindNode("a1Shape")->GetID());
    EXPECT_LT(BoneOf("a")->GetID(), model.FindNode("a1Shape")->GetID());
}

TEST_F(SceneWalkTest, EmptySceneIsItsRootBone)
{
    ExportScene();
    EXPECT_EQ(model.GetNodes().size(), 1u);
    EXPECT_EQ(RootNames(), (Names{"Scene_Root"}));
}

TEST_F(SceneWalkTest, NodeAloneTakesNothingBelowIt)
{
    INode* a = MakeNode("a", MakeTriangle());
    MakeNode("a1", MakeTriangle(), a);
    VKTExportCore core(model, false);
    ASSERT_TRUE(ExportAllNodes(core, a, {.children = false}));
    EXPECT_EQ(RootNames(), (Names{"a"}));
    EXPECT_EQ(ShapeNames(), (Names{"aShape"}));
    EXPECT_EQ(model.GetNodes().size(), 2u);
}

TEST_F(SceneWalkTest, BonesAloneWithoutShapes)
{
    MakeNode("a", MakeTriangle());
    VKTExportCore core(model, false);
    ASSERT_TRUE(ExportAllNodes(core, Root(), {.shape = false}));
    EXPECT_EQ(ShapeNames(), Names{});
    EXPECT_NE(BoneOf("a"), nullptr);
}

TEST_F(SceneWalkTest, CoreOfASelectionPassesOverTheRest)
{
    INode* a = MakeNode("a", MakeTriangle());
    INode* a1 = MakeNode("a1", MakeTriangle(), a);
    MakeNode("a11", MakeTriangle(), a1);
    MakeNode("b", MakeTriangle());
    Select(a1);
    VKTExportCore core(model, true);
    ASSERT_TRUE(ExportAllNodes(core, Root(), {}));
    // The tree below a selected node is built whole, its shapes are not.
    EXPECT_EQ(RootNames(), (Names{"a1"}));
    EXPECT_EQ(ChildNamesOf(BoneOf("a1")), (Names{"a11"}));
    EXPECT_EQ(ShapeNames(), (Names{"a1Shape"}));
}

TEST_F(SceneWalkTest, SelectionBuildsShapesOfParentsFirst)
{
    INode* a = MakeNode("a", MakeTriangle());
    INode* a1 = MakeNode("a1", MakeTriangle(), a);
    Select(a);
    Select(a1);
    ExportSelection();
    EXPECT_EQ(ShapeNames(), (Names{"aShape", "a1Shape"}));
    EXPECT_EQ(ChildNamesOf(BoneOf("a")), (Names{"a1"}));
    EXPECT_EQ(log.Text(), "");
}

TEST_F(SceneWalkTest, SelectedChildOfAnUnselectedParentIsARoot)
{
    INode* a = MakeNode("a", MakeTriangle());
    maxhost::SetPosition(*a, Point3(10, 0, 0));
    INode* a1 = MakeNode("a1", MakeTriangle(), a);
    maxhost::SetPosition(*a1, Point3(1, 0, 0));
    INode* a11 = MakeNode("a11", MakeTriangle(), a1);
    Select(a1);
    Select(a11);
    ExportSelection();
    EXPECT_EQ(RootNames(), (Names{"a1"}));
    EXPECT_EQ(ChildNamesOf(BoneOf("a1")), (Names{"a11"}));
    EXPECT_EQ(model.FindNode("a"), nullptr);
    // Its pose is the one in the world.
    EXPECT_EQ(BoneOf("a1")->GetTranslate(true), (VKT::XVector3{11, 0, 0, 0}));
}

TEST_F(SceneWalkTest, UnselectedNodeBetweenSelectedOnesCutsTheTree)
{
    INode* a = MakeNode("a");
    INode* a1 = MakeNode("a1", nullptr, a);
    INode* a11 = MakeNode("a11", nullptr, a1);
    Select(a);
    Select(a11);
    ExportSelection();
    EXPECT_EQ(RootNames(), (Names{"a", "a11"}));
}

TEST_F(SceneWalkTest, EmptySelectionLeavesAnEmptyDocument)
{
    MakeNode("a", MakeTriangle());
    ExportSelection();
    EXPECT_TRUE(model.GetNodes().empty());
}

TEST_F(SceneWalkTest, SelectedBonesKeepTheirControllersUntilThePoseIsFixed)
{
    INode* a = MakeNode("a");
    maxhost::SetPosition(*a, Point3(3, 0, 0));
    options.SetScaleFactor(2.0f);
    Select(a);
    VKTExportCore core(model, true);
    ASSERT_TRUE(ExportSelectedNodes(core, Root(), {}));
    EXPECT_EQ(BoneOf("a")->GetTranslate(true), (VKT::XVector3{3, 0, 0, 0}));
    RebuildBindPoseFromCurrent(core);
    EXPECT_EQ(BoneOf("a")->GetTranslate(true), (VKT::XVector3{3, 0, 0, 0}));
    EXPECT_EQ(BoneOf("a")->GetWorld(false)[12], 3.0f);
    ApplyBindPose(core);
    EXPECT_EQ(BoneOf("a")->GetTranslate(true), (VKT::XVector3{6, 0, 0, 0}));
}

TEST_F(SceneWalkTest, SelectedHiddenNodeIsInvisible)
{
    INode* a = MakeNode("a");
    a->Hide(TRUE);
    Select(a);
    ExportSelection();
    EXPECT_FALSE(BoneOf("a")->IsVisible());
}

TEST_F(SceneWalkTest, OnlyTheFirstOfTwoNodesShowsASharedObject)
{
    TriObject* shared = MakeTriangle();
    MakeNode("first", shared);
    MakeNode("second", shared);
    ExportScene();
    EXPECT_NE(MeshOf("first"), nullptr);
    EXPECT_EQ(MeshOf("second"), nullptr);
    EXPECT_EQ(ShapeNames(), (Names{"firstShape"}));
}

TEST_F(SceneWalkTest, ObjectsThatAreNoGeometryGetNoShape)
{
    MakeNode("dummy", new DummyObject);
    ExportScene();
    EXPECT_EQ(model.GetNodes().size(), 2u);
}

}  // namespace
}  // namespace VKTMax
