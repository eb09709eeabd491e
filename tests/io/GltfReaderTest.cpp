#include "host/io/GltfReader.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "io/GltfFixture.h"
#include "io/TempFile.h"

namespace maxhost::io {
namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;

ReadResult ReadText(const std::string& text)
{
    return ReadGltf(TempFile(text, "gltf").Path());
}

NeutralScene ReadGood(const std::string& text)
{
    ReadResult result = ReadText(text);
    EXPECT_EQ(result.error, "");
    return std::move(result.scene);
}

// A square of four vertices in the plane of x and y.
const std::vector<float> kSquare{0, 0, 0, 1, 0, 0, 0, 1, 0, 1, 1, 0};

TEST(GltfReader, PrimitivesThatShareAccessorsBecomeOneMeshWithMaterialsOnFaces)
{
    GltfFixture fixture;
    fixture.AddFloats(kSquare, "VEC3", 3);
    fixture.AddShorts({0, 1, 2});
    fixture.AddShorts({2, 1, 3});
    const NeutralScene scene = ReadGood(fixture.Text(R"("scenes":[{"nodes":[0,1]}],
        "nodes":[{"name":"a","mesh":0},{"name":"b","mesh":0}],
        "materials":[{"name":"red"},{"name":"blue"}],
        "meshes":[{"name":"square","primitives":[{"attributes":{"POSITION":0},"indices":1,"material":1},
                                                 {"attributes":{"POSITION":0},"indices":2,"material":0}]}])"));
    ASSERT_EQ(scene.meshes.size(), 1u);
    const NeutralMesh& mesh = scene.meshes[0];
    EXPECT_EQ(mesh.points.size(), 4u);
    EXPECT_THAT(mesh.corners, ElementsAre(0, 1, 2, 2, 1, 3));
    EXPECT_THAT(mesh.materials, ElementsAre(1, 0));
    EXPECT_EQ(scene.nodes[0].mesh, 0);
    EXPECT_EQ(scene.nodes[1].mesh, 0);
    EXPECT_EQ(scene.materials[1].name, "blue");
    EXPECT_THAT(scene.warnings, IsEmpty());
}

TEST(GltfReader, BinaryFilesReadLikeText)
{
    GltfFixture fixture;
    fixture.AddFloats(kSquare, "VEC3", 3);
    const std::string rest = R"("nodes":[{"mesh":0}],
        "meshes":[{"primitives":[{"attributes":{"POSITION":0},"mode":5}]}])";
    const ReadResult result = ReadGltf(TempFile(fixture.Binary(rest), "glb").Path());
    ASSERT_EQ(result.error, "");
    EXPECT_EQ(result.scene.meshes[0].points, ReadGood(fixture.Text(rest)).meshes[0].points);
}

TEST(GltfReader, StripsAndFansKeepTheirWinding)
{
    GltfFixture fixture;
    fixture.AddFloats(kSquare, "VEC3", 3);
    const NeutralScene scene = ReadGood(fixture.Text(R"("nodes":[{"mesh":0},{"mesh":1}],
        "meshes":[{"primitives":[{"attributes":{"POSITION":0},"mode":5}]},
                  {"primitives":[{"attributes":{"POSITION":0},"mode":6}]}])"));
    EXPECT_THAT(scene.meshes[0].corners, ElementsAre(0, 1, 2, 1, 3, 2));
    EXPECT_THAT(scene.meshes[1].corners, ElementsAre(1, 2, 0, 2, 3, 0));
}

TEST(GltfReader, PointsAndLinesAreReported)
{
    GltfFixture fixture;
    fixture.AddFloats(kSquare, "VEC3", 3);
    const NeutralScene scene = ReadGood(fixture.Text(R"("nodes":[{"mesh":0}],
        "meshes":[{"name":"dots","primitives":[{"attributes":{"POSITION":0},"mode":0},
                                               {"attributes":{"POSITION":0},"mode":3}]}])"));
    EXPECT_THAT(scene.warnings, Contains("mesh 0 \"dots\": 2 primitives of points or lines left out"));
}

TEST(GltfReader, StridesNormalisedIntegersAndSparseAccessorsAreResolved)
{
    GltfFixture fixture;
    // Position and a padded coordinate in one view, 16 bytes apart.
    struct Vertex {
        float x, y, z;
        std::uint16_t u, v;
    };
    const Vertex vertices[] = {{0, 0, 0, 0, 0}, {1, 0, 0, 65535, 0}, {0, 1, 0, 0, 13107}};
    const int view = fixture.AddView(vertices, sizeof vertices, sizeof(Vertex));
    const std::string inView = "{\"bufferView\":" + std::to_string(view) + ",\"count\":3,";
    const int positions = fixture.AddAccessor(inView + "\"componentType\":5126,\"type\":\"VEC3\"}");
    const int uvs = fixture.AddAccessor(
        inView + "\"byteOffset\":12,\"componentType\":5123,\"type\":\"VEC2\",\"normalized\":true}");
    const std::uint16_t moved[] = {1};
    const float delta[] = {0, 0, 7};
    const int indexView = fixture.AddView(moved, sizeof moved),
              valueView = fixture.AddView(delta, sizeof delta);
    const int deltas = fixture.AddAccessor(
        "{\"componentType\":5126,\"type\":\"VEC3\",\"count\":3,\"sparse\":{\"count\":1,\"indices\":{"
        "\"componentType\":5123,\"bufferView\":" +
        std::to_string(indexView) + "},\"values\":{\"bufferView\":" + std::to_string(valueView) + "}}}");
    const int colours =
        fixture.AddBytes({255, 0, 0, 51, 102, 204, 0, 255, 0}, "VEC3", 3, ",\"normalized\":true");
    const NeutralScene scene = ReadGood(fixture.Text(
        "\"nodes\":[{\"mesh\":0}],\"meshes\":[{\"extras\":{\"targetNames\":[\"up\"]},\"weights\":[0.5],"
        "\"primitives\":[{\"attributes\":{\"POSITION\":" +
        std::to_string(positions) + ",\"TEXCOORD_0\":" + std::to_string(uvs) + ",\"COLOR_0\":" +
        std::to_string(colours) + "},\"targets\":[{\"POSITION\":" + std::to_string(deltas) + "}]}]}]"));
    const NeutralMesh& mesh = scene.meshes[0];
    EXPECT_THAT(mesh.points, ElementsAre(Float3{0, 0, 0}, Float3{1, 0, 0}, Float3{0, 1, 0}));
    // The second coordinate counts from below here: 1 - 13107 / 65535 = 0.8.
    EXPECT_THAT(mesh.uvs[0].values, ElementsAre(Float3{0, 1, 0}, Float3{1, 1, 0}, Float3{0, 0.8f, 0}));
    EXPECT_THAT(mesh.colours->values,
                ElementsAre(Float3{1, 0, 0}, Float3{0.2f, 0.4f, 0.8f}, Float3{0, 1, 0}));
    EXPECT_EQ(mesh.targets[0].name, "up");
    EXPECT_EQ(mesh.targets[0].weight, 0.5);
    EXPECT_THAT(mesh.targets[0].deltas, ElementsAre(Float3{}, Float3{0, 0, 7}, Float3{}));
}

TEST(GltfReader, SkinsCarryJointsWeightsAndBindMatrices)
{
    GltfFixture fixture;
    const int positions = fixture.AddFloats({0, 0, 0, 1, 0, 0, 0, 1, 0}, "VEC3", 3);
    const int joints = fixture.AddBytes({0, 1, 0, 0, 1, 1, 0, 0, 1, 0, 0, 0}, "VEC4", 4);
    const int weights = fixture.AddFloats({0.75f, 0.25f, 0, 0, 0.5f, 0.5f, 0, 0, 1, 0, 0, 0}, "VEC4", 4);
    const int inverses = fixture.AddFloats({1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1, 0, 0,  0,  0,  1,  //
                                            1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1, 0, -1, -2, -3, 1},
                                           "MAT4", 16);
    EXPECT_EQ(positions + joints + weights + inverses, 0 + 1 + 2 + 3);
    const NeutralScene scene = ReadGood(fixture.Text(R"("scenes":[{"nodes":[2,0]}],
        "nodes":[{"name":"hip","children":[1]},{"name":"knee"},{"name":"skin","mesh":0,"skin":0}],
        "skins":[{"joints":[0,1],"inverseBindMatrices":3}],
        "meshes":[{"primitives":[{"attributes":{"POSITION":0,"JOINTS_0":1,"WEIGHTS_0":2}}]}])"));
    EXPECT_EQ(scene.nodes[0].name, "skin");
    EXPECT_FALSE(scene.nodes[0].isBone);
    EXPECT_TRUE(scene.nodes[1].isBone);
    EXPECT_TRUE(scene.nodes[2].isBone);
    EXPECT_EQ(scene.nodes[2].parent, 1);
    EXPECT_THAT(scene.meshes[0].influenceStarts, ElementsAre(0, 2, 3, 4));
    // Two entries for one joint are one influence.
    EXPECT_THAT(scene.meshes[0].influences, ElementsAre(Influence{0, 0.75f}, Influence{1, 0.25f},
                                                        Influence{1, 1.0f}, Influence{1, 1.0f}));
    ASSERT_EQ(scene.skins[0].joints.size(), 2u);
    EXPECT_EQ(scene.skins[0].joints[1].node, 2);
    EXPECT_EQ(scene.skins[0].joints[1].boneFromMesh.origin.y, -2.0);
}

TEST(GltfReader, AnimationsKeepKeysAndInterpolation)
{
    GltfFixture fixture;
    fixture.AddFloats({0, 1}, "SCALAR", 1);
    fixture.AddFloats({0, 0, 0, 1, 2, 3}, "VEC3", 3);
    fixture.AddShorts({0, 0, 0, 65535, 0, 65535, 0, 0}, "VEC4", 4, ",\"normalized\":true");
    fixture.AddFloats({0, 0, 0, 1, 1, 1, 4, 5, 6, 7, 8, 9, 2, 2, 2, 0, 0, 0}, "VEC3", 3);
    const NeutralScene scene = ReadGood(fixture.Text(R"("nodes":[{"name":"n"}],
        "animations":[{"name":"go","channels":[
            {"sampler":0,"target":{"node":0,"path":"translation"}},
            {"sampler":1,"target":{"node":0,"path":"rotation"}},
            {"sampler":2,"target":{"node":0,"path":"scale"}},
            {"sampler":2,"target":{"path":"pointer"}}],
          "samplers":[{"input":0,"output":1,"interpolation":"STEP"},{"input":0,"output":2},
                      {"input":0,"output":3,"interpolation":"CUBICSPLINE"}]}])"));
    ASSERT_EQ(scene.animations.size(), 1u);
    const auto& tracks = scene.animations[0].tracks;
    ASSERT_EQ(tracks.size(), 3u);
    EXPECT_EQ(tracks[0].interpolation, Interpolation::Step);
    EXPECT_THAT(tracks[0].times, ElementsAre(0.0, 1.0));
    EXPECT_THAT(tracks[0].values, ElementsAre(0, 0, 0, 1, 2, 3));
    EXPECT_EQ(tracks[1].interpolation, Interpolation::Linear);
    EXPECT_THAT(tracks[1].values, ElementsAre(0, 0, 0, 1, 0, 1, 0, 0));
    EXPECT_EQ(tracks[2].interpolation, Interpolation::Cubic);
    EXPECT_EQ(tracks[2].values.size(), 18u);
    EXPECT_THAT(scene.warnings,
                ElementsAre("animation 0 \"go\": 1 channels that drive no node are left out"));
}

TEST(GltfReader, TimesThatDoNotRiseLeaveTheTrackOut)
{
    GltfFixture fixture;
    fixture.AddFloats({1, 1}, "SCALAR", 1);
    fixture.AddFloats({0, 0, 0, 1, 2, 3}, "VEC3", 3);
    const NeutralScene scene = ReadGood(fixture.Text(R"("nodes":[{"name":"n"}],
        "animations":[{"name":"go","channels":[{"sampler":0,"target":{"node":0,"path":"translation"}}],
          "samplers":[{"input":0,"output":1}]}])"));
    EXPECT_THAT(scene.animations[0].tracks, IsEmpty());
    EXPECT_THAT(scene.warnings,
                ElementsAre("animation 0 \"go\", channel 0: the times do not rise; left out"));
}

TEST(GltfReader, NodesKeepTransformsPropertiesCamerasAndLights)
{
    const NeutralScene scene = ReadGood(R"({"asset":{"version":"2.0"},
        "scene":1,"scenes":[{"nodes":[3]},{"nodes":[0]}],
        "cameras":[{"type":"perspective","perspective":{"yfov":1,"znear":0.1},"name":"eye"}],
        "extensions":{"KHR_lights_punctual":{"lights":[{"type":"spot","spot":{}}]}},
        "nodes":[{"name":"top","translation":[1,2,3],"rotation":[0,0,1,0],"scale":[2,2,2],"children":[2,1],
                  "extras":{"mass":2.5,"count":3,"alive":true,"kind":"box","list":[1,2]}},
                 {"camera":0,"matrix":[0,1,0,0,-1,0,0,0,0,0,1,0,7,8,9,1]},
                 {"extensions":{"KHR_lights_punctual":{"light":0}}},
                 {"name":"elsewhere"}]})");
    ASSERT_EQ(scene.nodes.size(), 3u);
    EXPECT_EQ(scene.nodes[0].name, "top");
    EXPECT_EQ(scene.nodes[0].local.translation.z, 3.0);
    EXPECT_EQ(scene.nodes[0].local.rotation.z, 1.0);
    EXPECT_EQ(scene.nodes[0].local.scale.x, 2.0);
    EXPECT_THAT(scene.nodes[0].properties,
                ElementsAre(Property{"alive", true}, Property{"count", std::int64_t{3}},
                            Property{"kind", std::string("box")}, Property{"mass", 2.5}));
    // Children in file order, before what follows their parent.
    EXPECT_EQ(scene.nodes[1].name, "Light001");
    EXPECT_EQ(scene.lights[0].kind, LightKind::Spot);
    EXPECT_EQ(scene.nodes[2].name, "Camera001");
    EXPECT_EQ(scene.nodes[2].camera, 0);
    EXPECT_EQ(scene.nodes[2].local.translation.y, 8.0);
    EXPECT_NEAR(scene.nodes[2].local.rotation.z, 0.70710678, 1e-7);
    EXPECT_THAT(scene.warnings,
                ElementsAre("node 0 \"top\": the property \"list\" is no single value and is left out",
                            "node 3 \"elsewhere\" stands outside the scene and is left out"));
}

TEST(GltfReader, WithoutScenesAllNodesAreRead)
{
    const NeutralScene scene = ReadGood(
        R"({"asset":{"version":"2.0"},"nodes":[{"name":"leaf"},{"name":"top","children":[0]},{"name":"alone"}]})");
    ASSERT_EQ(scene.nodes.size(), 3u);
    EXPECT_EQ(scene.nodes[0].name, "top");
    EXPECT_EQ(scene.nodes[1].name, "leaf");
    EXPECT_EQ(scene.nodes[1].parent, 0);
    EXPECT_EQ(scene.nodes[2].parent, -1);
}

TEST(GltfReader, RingsAndSecondParentsEnd)
{
    const NeutralScene scene = ReadGood(R"({"asset":{"version":"2.0"},"scenes":[{"nodes":[0]}],
        "nodes":[{"name":"a","children":[1,2]},{"name":"b","children":[2,0]},{"name":"c","children":[2]}]})");
    ASSERT_EQ(scene.nodes.size(), 3u);
    EXPECT_EQ(scene.nodes[2].name, "c");
    EXPECT_EQ(scene.nodes[2].parent, 1);
    EXPECT_THAT(scene.warnings, ElementsAre("node 2 \"c\" has several parents and stays with the first",
                                            "node 0 \"a\" has several parents and stays with the first",
                                            "node 2 \"c\" has several parents and stays with the first"));
}

TEST(GltfReader, SharedNamesAreReported)
{
    const NeutralScene scene =
        ReadGood(R"({"asset":{"version":"2.0"},"nodes":[{"name":"slice"},{"name":"slice"},{"name":"one"}]})");
    EXPECT_THAT(scene.warnings, ElementsAre("the name \"slice\" is shared by 2 nodes"));
}

TEST(GltfReader, AChainOfManyNodesIsRead)
{
    constexpr int kCount = 100000;
    std::string text = R"({"asset":{"version":"2.0"},"scenes":[{"nodes":[0]}],"nodes":[)";
    for (int i = 0; i + 1 < kCount; ++i)
        text += "{\"name\":\"n" + std::to_string(i) + "\",\"children\":[" + std::to_string(i + 1) + "]},";
    const NeutralScene scene = ReadGood(text + "{\"name\":\"last\"}]}");
    ASSERT_EQ(scene.nodes.size(), static_cast<std::size_t>(kCount));
    EXPECT_EQ(scene.nodes.back().parent, kCount - 2);
}

}  // namespace
}  // namespace maxhost::io
