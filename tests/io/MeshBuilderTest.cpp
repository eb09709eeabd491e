#include "host/io/MeshBuilder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <array>

namespace maxhost::io {
namespace {

using testing::ElementsAre;

using Triangle = std::array<std::uint32_t, 3>;

constexpr Float3 kA{0, 0, 0}, kB{1, 0, 0}, kC{0, 1, 0}, kD{1, 1, 0};

TEST(MeshBuilder, CornersAtOnePositionShareAPoint)
{
    MeshBuilder builder;
    for (const Float3& p : {kA, kB, kC, kC, kB, kD})
        builder.AddVertex(p, {});
    builder.AddPolygon(Triangle{0, 1, 2}, -1);
    builder.AddPolygon(Triangle{3, 4, 5}, -1);
    const NeutralMesh mesh = builder.Finish("quad");
    EXPECT_EQ(mesh.name, "quad");
    EXPECT_THAT(mesh.points, ElementsAre(kA, kB, kC, kD));
    EXPECT_THAT(mesh.corners, ElementsAre(0, 1, 2, 2, 1, 3));
    EXPECT_THAT(mesh.cornerCounts, ElementsAre(3, 3));
    EXPECT_TRUE(mesh.influenceStarts.empty());
}

TEST(MeshBuilder, MinusZeroIsZero)
{
    MeshBuilder builder;
    for (const Float3& p : {kA, kB, kC, Float3{-0.0f, -0.0f, 0.0f}})
        builder.AddVertex(p, {});
    builder.AddPolygon(Triangle{0, 1, 2}, -1);
    builder.AddPolygon(Triangle{3, 1, 2}, -1);
    EXPECT_EQ(builder.Finish("").points.size(), 3u);
}

TEST(MeshBuilder, UnusedVerticesMakeNoPoint)
{
    MeshBuilder builder;
    for (const Float3& p : {kD, kA, kB, kC})
        builder.AddVertex(p, {});
    builder.AddPolygon(Triangle{1, 2, 3}, -1);
    EXPECT_THAT(builder.Finish("").points, ElementsAre(kA, kB, kC));
}

TEST(MeshBuilder, BoneWeightsKeepPointsApart)
{
    MeshBuilder builder;
    const Influence whole{0, 1.0f}, other{1, 1.0f};
    builder.AddVertex(kA, {&whole, 1});
    builder.AddVertex(kB, {&whole, 1});
    builder.AddVertex(kC, {&whole, 1});
    builder.AddVertex(kA, {&other, 1});
    builder.AddVertex(kB, {&whole, 1});
    builder.AddPolygon(Triangle{0, 1, 2}, -1);
    builder.AddPolygon(Triangle{3, 4, 2}, -1);
    const NeutralMesh mesh = builder.Finish("");
    EXPECT_THAT(mesh.points, ElementsAre(kA, kB, kC, kA));
    EXPECT_THAT(mesh.corners, ElementsAre(0, 1, 2, 3, 1, 2));
    EXPECT_THAT(mesh.influenceStarts, ElementsAre(0, 1, 2, 3, 4));
    EXPECT_THAT(mesh.influences, ElementsAre(whole, whole, whole, other));
}

TEST(MeshBuilder, MorphDeltasKeepPointsApart)
{
    MeshBuilder builder;
    for (const Float3& p : {kA, kB, kC, kA, kB})
        builder.AddVertex(p, {});
    builder.NameTarget(0, "smile", 0.25);
    builder.SetDelta(0, 3, {0, 0, 1});
    builder.AddPolygon(Triangle{0, 1, 2}, -1);
    builder.AddPolygon(Triangle{3, 4, 2}, -1);
    const NeutralMesh mesh = builder.Finish("");
    EXPECT_THAT(mesh.points, ElementsAre(kA, kB, kC, kA));
    ASSERT_EQ(mesh.targets.size(), 1u);
    EXPECT_EQ(mesh.targets[0].name, "smile");
    EXPECT_EQ(mesh.targets[0].weight, 0.25);
    EXPECT_THAT(mesh.targets[0].deltas, ElementsAre(Float3{}, Float3{}, Float3{}, Float3{0, 0, 1}));
}

TEST(MeshBuilder, MapValuesHaveNumbersOfTheirOwn)
{
    MeshBuilder builder;
    for (const Float3& p : {kA, kB, kC, kD})
        builder.AddVertex(p, {});
    builder.AddPolygon(Triangle{0, 1, 2}, 4);
    for (std::size_t corner = 0; corner < 3; ++corner)
        builder.SetUv(0, corner, {0.5f, 0.5f, 0});
    builder.AddPolygon(Triangle{2, 1, 3}, 7);
    builder.SetUv(0, 1, {0.25f, 0.5f, 0});
    builder.SetUv(0, 2, {0.5f, 0.5f, 0});
    builder.SetColour(0, {1, 0, 0});
    const NeutralMesh mesh = builder.Finish("");
    EXPECT_THAT(mesh.materials, ElementsAre(4, 7));
    ASSERT_EQ(mesh.uvs.size(), 1u);
    EXPECT_THAT(mesh.uvs[0].corners, ElementsAre(0, 0, 0, 2, 1, 0));
    EXPECT_THAT(mesh.uvs[0].values, ElementsAre(Float3{0.5f, 0.5f, 0}, Float3{0.25f, 0.5f, 0}, Float3{}));
    ASSERT_TRUE(mesh.colours);
    EXPECT_THAT(mesh.colours->corners, ElementsAre(1, 1, 1, 0, 1, 1));
    EXPECT_THAT(mesh.colours->values, ElementsAre(Float3{1, 0, 0}, Float3{}));
}

}  // namespace
}  // namespace maxhost::io
