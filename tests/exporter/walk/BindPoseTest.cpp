#include "exporter/walk/BindPose.h"

#include "exporter/walk/SceneWalk.h"
#include "scenes/ExportScenes.h"

namespace VKTMax {
namespace {

using namespace export_scenes;
using maxhost::MakeNode;

class BindPoseTest : public ExportTest {};

TEST_F(BindPoseTest, BoneOfABoundNodeTakesItsBindMatrix)
{
    INode* a = MakeNode("a");
    INode* a1 = MakeNode("a1", nullptr, a);
    maxhost::SetPosition(*a1, Point3(1, 0, 0));
    VKTExportCore core(model, false);
    ASSERT_TRUE(ExportAllNodes(core, Root(), {}));
    RowMatrix bound;
    bound.m[3][1] = 5.0;
    core.SetBindMatrix(a, bound);
    ApplyBindPose(core);
    EXPECT_EQ(BoneOf("a")->GetTranslate(true), (VKT::XVector3{0, 5, 0, 0}));
    // Relative to where its parent was bound, though itself it stands at time 0.
    EXPECT_EQ(BoneOf("a1")->GetTranslate(true), (VKT::XVector3{1, -5, 0, 0}));
    EXPECT_EQ(BoneOf("a1")->GetTranslate(false), (VKT::XVector3{1, -5, 0, 0}));
}

TEST_F(BindPoseTest, BoneWithoutANodeCountsAsUnmoved)
{
    INode* a = MakeNode("a");
    maxhost::SetPosition(*a, Point3(1, 2, 3));
    VKTExportCore core(model, false);
    ASSERT_TRUE(ExportAllNodes(core, Root(), {}));
    VKT::XBone* extra = model.CreateNode<VKT::XBone>();
    extra->SetTranslate({9, 9, 9, 0});
    ASSERT_TRUE(BoneOf("a")->AddChild(extra));
    ApplyBindPose(core);
    EXPECT_EQ(extra->GetTranslate(true), (VKT::XVector3{-1, -2, -3, 0}));
}

TEST_F(BindPoseTest, NullNodeHasTheIdentity)
{
    const VKTExportCore core(model, false);
    const RowMatrix matrix = core.GetBindMatrix(nullptr);
    for (int row = 0; row < 4; ++row)
        for (int column = 0; column < 4; ++column)
            EXPECT_EQ(matrix.m[row][column], row == column ? 1.0 : 0.0);
}

}  // namespace
}  // namespace VKTMax
