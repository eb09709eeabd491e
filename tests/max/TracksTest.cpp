#include "max/Tracks.h"

#include "scenes/ExportScenes.h"

namespace VKTMax {
namespace {

using maxhost::MakeNode;

class TracksTest : public export_scenes::ExportTest {};

TEST_F(TracksTest, EachAxisIsReadAtTheTimeAskedFor)
{
    INode* node = MakeNode("a");
    maxhost::SetPosition(*node, Point3(1, 2, 3));
    maxhost::SetRotation(*node, Point3(0.25f, 0.5f, 0.75f));
    maxhost::AddKey(*node, maxhost::Track::PositionX, 0, 1.0f);
    maxhost::AddKey(*node, maxhost::Track::PositionX, 4800, 5.0f);
    const std::optional<TransformTracks> tracks = ReadTransformTracks(node, 4800);
    ASSERT_TRUE(tracks);
    EXPECT_EQ(tracks->position.x, 5.0f);
    EXPECT_EQ(tracks->position.y, 2.0f);
    EXPECT_EQ(tracks->position.z, 3.0f);
    EXPECT_EQ(tracks->rotation.x, 0.25f);
    EXPECT_EQ(tracks->rotation.y, 0.5f);
    EXPECT_EQ(tracks->rotation.z, 0.75f);
}

TEST_F(TracksTest, PartWithoutAxisControllersHasNone)
{
    INode* node = MakeNode("a");
    EXPECT_EQ(ReadTransformTracks(node, 0)->scale.x, std::nullopt);
    maxhost::UseScaleXYZ(*node);
    EXPECT_EQ(ReadTransformTracks(node, 0)->scale.x, 1.0f);
}

TEST_F(TracksTest, NodeWithoutATransformControllerHasNoTracks)
{
    INode* node = MakeNode("a");
    node->SetTMController(nullptr);
    EXPECT_FALSE(ReadTransformTracks(node, 0));
}

}  // namespace
}  // namespace VKTMax
