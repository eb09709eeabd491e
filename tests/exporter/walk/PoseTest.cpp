#include "exporter/walk/Pose.h"

#include "VKT/hierarchy/Bone.h"
#include "scenes/ExportScenes.h"

namespace VKTMax {
namespace {

using namespace export_scenes;
using maxhost::MakeNode;

class PoseTest : public ExportTest {};

TEST_F(PoseTest, LocalTransformIsReadAtTheTimeAskedFor)
{
    INode* a = MakeNode("a");
    maxhost::AddKey(*a, maxhost::Track::PositionX, 0, 0.0f);
    maxhost::AddKey(*a, maxhost::Track::PositionX, 4800, 10.0f);
    EXPECT_FLOAT_EQ(LocalTransform(a, 0).translation.x, 0.0f);
    EXPECT_FLOAT_EQ(LocalTransform(a, 2400).translation.x, 5.0f);
}

TEST_F(PoseTest, NodeBelowAnotherStandsRelativeToIt)
{
    INode* a = MakeNode("a");
    maxhost::SetPosition(*a, Point3(10, 0, 0));
    INode* a1 = MakeNode("a1", nullptr, a);
    maxhost::SetPosition(*a1, Point3(0, 2, 0));
    options.SetScaleFactor(3.0f);
    EXPECT_EQ(LocalTransform(a, 0).translation, (VKT::XVector3{30, 0, 0, 0}));
    EXPECT_EQ(LocalTransform(a1, 0).translation, (VKT::XVector3{0, 6, 0, 0}));
}

TEST_F(PoseTest, RulesAreThoseOfTheStore)
{
    options.SetScaleFactor(3.0f);
    options.SetRemoveScale(false);
    EXPECT_EQ(CurrentScaleRules().factor, 3.0);
    EXPECT_FALSE(CurrentScaleRules().removeScale);
}

TEST_F(PoseTest, PoseIsTheCurrentAndTheBindPose)
{
    VKT::XBone& bone = *model.CreateNode<VKT::XBone>();
    SetPose(bone, {.rotation = {0, 0, 1, 0}, .translation = {1, 2, 3, 0}, .scale = {4, 5, 6, 0}});
    for (const bool bind : {false, true}) {
        EXPECT_EQ(bone.GetRotation(bind), (VKT::XQuaternion{0, 0, 1, 0}));
        EXPECT_EQ(bone.GetTranslate(bind), (VKT::XVector3{1, 2, 3, 0}));
        EXPECT_EQ(bone.GetScale(bind), (VKT::XVector3{4, 5, 6, 0}));
    }
}

}  // namespace
}  // namespace VKTMax
