// Reads models of Debian's package assimp-testmodels; what they hold stands literally
// here. Tests of a model that is not installed are skipped.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>

#include "host/io/SceneReader.h"
#include "host/io/Track.h"
#include "io/TempFile.h"

namespace maxhost::io {
namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::EndsWith;
using testing::HasSubstr;

NeutralScene ReadGood(const std::filesystem::path& path)
{
    ReadResult result = ReadSceneFile(path);
    EXPECT_EQ(result.error, "");
    return std::move(result.scene);
}

std::filesystem::path Model(const char* name)
{
    return std::filesystem::path("/usr/share/assimp/models") / name;
}

#define MODEL_OR_SKIP(variable, name)                   \
    const std::filesystem::path variable = Model(name); \
    if (!std::filesystem::exists(variable))             \
    GTEST_SKIP() << "assimp-testmodels is not installed"

const NeutralNode& NodeOf(const NeutralScene& scene, const std::string& name)
{
    const auto found = std::ranges::find(scene.nodes, name, &NeutralNode::name);
    EXPECT_NE(found, scene.nodes.end()) << name;
    return found == scene.nodes.end() ? scene.nodes.front() : *found;
}

// World-space points of all meshes at rest, skins aside.
std::vector<Vector> WorldPoints(const NeutralScene& scene)
{
    std::vector<Matrix> world;
    std::vector<Vector> points;
    for (const NeutralNode& node : scene.nodes) {
        const Matrix local = ToMatrix(node.local);
        world.push_back(node.parent < 0 ? local : world[static_cast<std::size_t>(node.parent)] * local);
        if (node.mesh < 0)
            continue;
        const Matrix object = world.back() * ToMatrix(node.objectOffset);
        for (const Float3& p : scene.meshes[static_cast<std::size_t>(node.mesh)].points)
            points.push_back(MapPoint(object, {p.x, p.y, p.z}));
    }
    return points;
}

// An ASCII FBX file with what is needed of its frame; version 7.4.
std::string Fbx(const std::string& objects, const std::string& connections, int up = 2)
{
    return "; FBX 7.4.0 project file\nFBXHeaderExtension:  {\n\tFBXHeaderVersion: 1003\n\tFBXVersion: "
           "7400\n}\n"
           "GlobalSettings:  {\n\tVersion: 1000\n\tProperties70:  {\n"
           "\t\tP: \"UpAxis\", \"int\", \"Integer\", \"\"," +
           std::to_string(up) +
           "\n"
           "\t\tP: \"UnitScaleFactor\", \"double\", \"Number\", \"\",2.54\n\t}\n}\n"
           "Objects:  {\n" +
           objects + "}\nConnections:  {\n" + connections + "}\n";
}

std::string FbxModel(int id, const std::string& name, const std::string& properties)
{
    return "\tModel: " + std::to_string(id) + ", \"Model::" + name +
           "\", \"Mesh\" {\n\t\tVersion: 232\n"
           "\t\tProperties70:  {\n" +
           properties + "\t\t}\n\t}\n";
}

std::string FbxVector(const char* name, const char* type, const char* values)
{
    return std::string("\t\t\tP: \"") + name + "\", \"" + type + "\", \"\", \"A\"," + values + "\n";
}

// A quadrilateral in the plane of x and y.
const std::string kFbxQuad =
    "\tGeometry: 10, \"Geometry::quad\", \"Mesh\" {\n\t\tVertices: *12 {\n\t\t\ta: "
    "0,0,0,1,0,0,1,1,0,0,1,0\n\t\t}\n"
    "\t\tPolygonVertexIndex: *4 {\n\t\t\ta: 0,1,2,-4\n\t\t}\n\t\tGeometryVersion: 124\n\t}\n";

std::string Connect(int child, int parent)
{
    return "\tC: \"OO\"," + std::to_string(child) + "," + std::to_string(parent) + "\n";
}

TEST(AssimpReader, TakesAFixedListOfExtensions)
{
    EXPECT_TRUE(IsSceneExtension("fbx"));
    EXPECT_TRUE(IsSceneExtension("dae"));
    EXPECT_FALSE(IsSceneExtension("blend"));
    EXPECT_FALSE(IsSceneExtension("FBX"));
    const TempFile blend("BLENDER-v248", "blend");
    EXPECT_THAT(ReadSceneFile(blend.Path()).error, EndsWith(": no reader for files that end in \".blend\""));
    EXPECT_THAT(ReadSceneFile("/nonexistent/a.FBX").error, "/nonexistent/a.FBX: no such file");
}

TEST(AssimpReader, OldFbxIsRefused)
{
    const TempFile old(
        "; FBX 6.1.0 project file\nFBXHeaderExtension:  {\n\tFBXHeaderVersion: 1003\n"
        "\tFBXVersion: 6100\n}\nObjects:  {\n}\n",
        "fbx");
    EXPECT_THAT(ReadSceneFile(old.Path()).error, EndsWith(": FBX files older than 7.1 can't be read"));
}

TEST(AssimpReader, GeometricTransformIsTheObjectOffsetAndSparesTheChildren)
{
    const TempFile file(
        Fbx(kFbxQuad +
                FbxModel(1, "parent",
                         FbxVector("Lcl Translation", "Lcl Translation", "0,0,10") +
                             FbxVector("GeometricTranslation", "Vector3D", "5,0,0") +
                             FbxVector("GeometricRotation", "Vector3D", "0,0,90") +
                             FbxVector("GeometricScaling", "Vector3D", "1,2,3")) +
                FbxModel(2, "child", FbxVector("Lcl Translation", "Lcl Translation", "1,0,0")),
            Connect(1, 0) + Connect(2, 1) + Connect(10, 1) + Connect(10, 2)),
        "fbx");
    const NeutralScene scene = ReadGood(file.Path());
    ASSERT_EQ(scene.nodes.size(), 2u);  // no helper of the pivots is left
    const NeutralNode &parent = scene.nodes[0], &child = scene.nodes[1];
    EXPECT_EQ(parent.name, "parent");
    EXPECT_EQ(parent.local.translation.z, 10.0);
    EXPECT_EQ(parent.objectOffset.translation.x, 5.0);
    EXPECT_NEAR(parent.objectOffset.rotation.z, std::sqrt(0.5), 1e-6);
    EXPECT_NEAR(parent.objectOffset.scale.y, 2.0, 1e-6);
    EXPECT_EQ(child.parent, 0);
    EXPECT_EQ(child.local.translation.x, 1.0);
    EXPECT_EQ(child.local.translation.y, 0.0);
    EXPECT_TRUE(IsIdentity(child.objectOffset));
    EXPECT_EQ(child.mesh, parent.mesh);
    EXPECT_EQ(scene.up.z, 1.0);
    EXPECT_NEAR(*scene.metresPerUnit, 0.0254, 1e-8);
}

TEST(AssimpReader, PivotsAreMultipliedIntoTheNode)
{
    const TempFile file(Fbx(kFbxQuad + FbxModel(1, "n",
                                                FbxVector("RotationPivot", "Vector3D", "1,0,0") +
                                                    FbxVector("Lcl Rotation", "Lcl Rotation", "0,0,90")),
                            Connect(1, 0) + Connect(10, 1)),
                        "fbx");
    const NeutralScene scene = ReadGood(file.Path());
    ASSERT_EQ(scene.nodes.size(), 1u);
    // A quarter turn about z through (1, 0, 0) takes the origin to (1, -1, 0).
    EXPECT_NEAR(scene.nodes[0].local.translation.x, 1.0, 1e-6);
    EXPECT_NEAR(scene.nodes[0].local.translation.y, -1.0, 1e-6);
    EXPECT_NEAR(scene.nodes[0].local.rotation.z, std::sqrt(0.5), 1e-6);
    EXPECT_EQ(scene.meshes[0].cornerCounts, std::vector<std::uint32_t>{4});
}

// One curve over a second, as the z component of `property` of model 1.
std::string FbxCurve(const std::string& property, double from, double to)
{
    const std::string keys = std::to_string(from) + "," + std::to_string(to);
    return "\tAnimationStack: 50, \"AnimStack::Take\", \"\" {\n\t}\n\tAnimationLayer: 51, "
           "\"AnimLayer::Base\", \"\" {\n\t}\n"
           "\tAnimationCurveNode: 52, \"AnimCurveNode::" +
           property + "\", \"\" {\n\t\tProperties70:  {\n" + FbxVector("d|X", "Number", "0") +
           FbxVector("d|Y", "Number", "0") + FbxVector("d|Z", "Number", "0") +
           "\t\t}\n\t}\n\tAnimationCurve: 53, \"AnimCurve::\", \"\" {\n\t\tDefault: 0\n\t\tKeyVer: 4008\n"
           "\t\tKeyTime: *2 {\n\t\t\ta: 0,46186158000\n\t\t}\n\t\tKeyValueFloat: *2 {\n\t\t\ta: " +
           keys +
           "\n\t\t}\n"
           "\t\tKeyAttrFlags: *1 {\n\t\t\ta: 24836\n\t\t}\n\t\tKeyAttrDataFloat: *4 {\n\t\t\ta: "
           "0,0,0,0\n\t\t}\n"
           "\t\tKeyAttrRefCount: *1 {\n\t\t\ta: 2\n\t\t}\n\t}\n";
}

std::string ConnectCurve(const std::string& property)
{
    return Connect(51, 50) + Connect(52, 51) + "\tC: \"OP\",52,1, \"" + property +
           "\"\n\tC: \"OP\",53,52, \"d|Z\"\n";
}

Transform PoseAt(const NeutralScene& scene, double seconds)
{
    Transform pose = scene.nodes[0].local;
    for (const NeutralTrack& track : scene.animations.at(0).tracks) {
        if (track.path == TrackPath::Translation)
            pose.translation = SampleVector(track, seconds);
        else if (track.path == TrackPath::Rotation)
            pose.rotation = SampleRotation(track, seconds);
        else
            pose.scale = SampleVector(track, seconds);
    }
    return pose;
}

TEST(AssimpReader, AnAnimatedPreRotationIsAppliedOnce)
{
    const TempFile file(Fbx(kFbxQuad +
                                FbxModel(1, "n",
                                         FbxVector("PreRotation", "Vector3D", "90,0,0") +
                                             "\t\t\tP: \"RotationActive\", \"bool\", \"\", \"\",1\n") +
                                FbxCurve("R", 0, 90),
                            Connect(1, 0) + Connect(10, 1) + ConnectCurve("Lcl Rotation")),
                        "fbx");
    const NeutralScene scene = ReadGood(file.Path());
    // About z first, then by the pre-rotation about x: x goes to y, and on to z.
    const Vector x = MapDirection(ToMatrix(PoseAt(scene, 1.0)), {1, 0, 0});
    EXPECT_NEAR(x.z, 1.0, 1e-5);
    const Vector y = MapDirection(ToMatrix(PoseAt(scene, 0.0)), {0, 1, 0});
    EXPECT_NEAR(y.z, 1.0, 1e-5);
}

TEST(AssimpReader, AMovingRotationAboutAPivotIsSampledAtFrames)
{
    const TempFile file(Fbx(kFbxQuad + FbxModel(1, "n", FbxVector("RotationPivot", "Vector3D", "1,0,0")) +
                                FbxCurve("R", 0, 90),
                            Connect(1, 0) + Connect(10, 1) + ConnectCurve("Lcl Rotation")),
                        "fbx");
    const NeutralScene scene = ReadGood(file.Path());
    for (const double seconds : {0.0, 0.5, 1.0}) {
        const double angle = seconds * std::acos(-1.0) / 2.0;
        const Matrix m = ToMatrix(PoseAt(scene, seconds));
        const Vector pivot = MapPoint(m, {1, 0, 0});  // stays where it is
        EXPECT_NEAR(pivot.x, 1.0, 2e-3);
        EXPECT_NEAR(pivot.y, 0.0, 2e-3);
        EXPECT_NEAR(m.x.y, std::sin(angle), 1e-5);
    }
}

TEST(AssimpReader, TheUpAxisOfFbxIsRead)
{
    for (const int axis : {0, 1, 2}) {
        const TempFile file(Fbx(kFbxQuad + FbxModel(1, "n", ""), Connect(1, 0) + Connect(10, 1), axis),
                            "fbx");
        const NeutralScene scene = ReadGood(file.Path());
        EXPECT_EQ(scene.up.x, axis == 0 ? 1.0 : 0.0);
        EXPECT_EQ(scene.up.y, axis == 1 ? 1.0 : 0.0);
        EXPECT_EQ(scene.up.z, axis == 2 ? 1.0 : 0.0);
    }
}

TEST(AssimpReader, PropertiesOfUsersAreKeptAndThoseOfFbxAreNot)
{
    const TempFile file(
        Fbx(kFbxQuad + FbxModel(1, "n",
                                "\t\t\tP: \"InheritType\", \"enum\", \"\", \"\",1\n"
                                "\t\t\tP: \"UDP3DSMAX\", \"KString\", \"\", \"U\", \"speed = 3\"\n"
                                "\t\t\tP: \"health\", \"Integer\", \"\", \"A+U\",42\n"
                                "\t\t\tP: \"team\", \"KString\", \"\", \"U\", \"blue\"\n"),
            Connect(1, 0) + Connect(10, 1)),
        "fbx");
    const NeutralScene scene = ReadGood(file.Path());
    EXPECT_THAT(scene.nodes[0].properties,
                testing::UnorderedElementsAre(Property{"health", std::int64_t{42}},
                                              Property{"team", std::string("blue")}));
    EXPECT_EQ(scene.nodes[0].propertyText, "speed = 3");
}

TEST(AssimpReader, ACubeOfFbxIsWeldedToEightPoints)
{
    MODEL_OR_SKIP(path, "FBX/cubes_with_mirroring_and_pivot.fbx");
    const NeutralScene scene = ReadGood(path);
    ASSERT_EQ(scene.nodes.size(), 4u);
    const NeutralNode& mirrored = NodeOf(scene, "Cube2");
    EXPECT_NEAR(mirrored.local.scale.x, -0.1, 1e-6);
    EXPECT_NEAR(mirrored.local.scale.y, -0.1, 1e-6);
    EXPECT_NEAR(mirrored.local.scale.z, -0.1, 1e-6);
    const NeutralMesh& cube = scene.meshes[static_cast<std::size_t>(mirrored.mesh)];
    EXPECT_EQ(cube.points.size(), 8u);
    EXPECT_EQ(cube.cornerCounts, std::vector<std::uint32_t>(6, 4u));
    EXPECT_EQ(cube.uvs.size(), 1u);
    EXPECT_THAT(scene.warnings, Contains("the name \"Cube1\" is shared by 2 nodes"));
}

TEST(AssimpReader, ASkinnedFbxHasItsBonesAndWeights)
{
    MODEL_OR_SKIP(path, "FBX/huesitos.fbx");
    const NeutralScene scene = ReadGood(path);
    EXPECT_EQ(scene.nodes.size(), 15u);
    EXPECT_EQ(std::ranges::count(scene.nodes, true, &NeutralNode::isBone), 9);
    EXPECT_EQ(scene.framesPerSecond, 25.0);
    EXPECT_EQ(scene.up.y, 1.0);
    const NeutralNode& skinned = NodeOf(scene, "Cylinder");
    ASSERT_EQ(skinned.skin, 0);
    EXPECT_EQ(scene.skins[0].joints.size(), 9u);
    const NeutralMesh& mesh = scene.meshes[static_cast<std::size_t>(skinned.mesh)];
    for (std::size_t point = 0; point < mesh.points.size(); ++point) {
        float sum = 0.0f;
        for (std::uint32_t i = mesh.influenceStarts[point]; i < mesh.influenceStarts[point + 1]; ++i)
            sum += mesh.influences[i].weight;
        EXPECT_GT(sum, 0.94f) << point;  // the file's weights fall short by up to 0.05
        EXPECT_LT(sum, 1.0001f) << point;
    }
    EXPECT_EQ(NodeOf(scene, "Camera").camera, 0);
    EXPECT_EQ(NodeOf(scene, "Lamp").light, 0);
    EXPECT_EQ(scene.lights[0].kind, LightKind::Omni);
    EXPECT_THAT(scene.warnings, Contains(HasSubstr("tracks have fewer keys than frames")));
}

TEST(AssimpReader, MotionFilesHaveJointsAndNoMesh)
{
    MODEL_OR_SKIP(path, "BVH/01_01.bvh");
    const NeutralScene scene = ReadGood(path);
    EXPECT_EQ(scene.nodes.size(), 38u);
    EXPECT_EQ(scene.meshes.size(), 0u);
    EXPECT_EQ(std::ranges::count(scene.nodes, true, &NeutralNode::isBone), 31);
    EXPECT_FALSE(NodeOf(scene, "EndSite_Head").isBone);
    EXPECT_EQ(scene.nodes[0].name, "Hips");
    EXPECT_NEAR(*scene.framesPerSecond, 120.0, 1e-3);
    ASSERT_EQ(scene.animations.size(), 1u);
    const auto hips = std::ranges::find_if(scene.animations[0].tracks, [](const NeutralTrack& track) {
        return track.node == 0 && track.path == TrackPath::Translation;
    });
    ASSERT_NE(hips, scene.animations[0].tracks.end());
    EXPECT_EQ(hips->times.size(), 2752u);
    // The first line of numbers in the file.
    EXPECT_NEAR(SampleVector(*hips, 0.0).x, 9.3722, 1e-4);
    EXPECT_NEAR(SampleVector(*hips, 0.0).y, 17.8693, 1e-4);
    EXPECT_NEAR(SampleVector(*hips, 0.0).z, -17.3198, 1e-4);
}

TEST(AssimpReader, ColladaKeepsItsAxisAndUnitOffTheNodes)
{
    MODEL_OR_SKIP(path, "Collada/kwxport_test_vcolors.dae");
    const NeutralScene scene = ReadGood(path);
    ASSERT_EQ(scene.nodes.size(), 1u);
    EXPECT_EQ(scene.up.z, 1.0);
    EXPECT_NEAR(*scene.metresPerUnit, 0.0254, 1e-7);
    EXPECT_NEAR(scene.nodes[0].local.translation.z, -19.685, 1e-3);
    EXPECT_EQ(scene.nodes[0].local.scale.x, 1.0);
    // Three meshes of one material each, joined again.
    ASSERT_EQ(scene.meshes.size(), 1u);
    const NeutralMesh& mesh = scene.meshes[0];
    EXPECT_EQ(mesh.points.size(), 8u);
    EXPECT_EQ(mesh.cornerCounts.size(), 12u);
    EXPECT_EQ(std::ranges::count(mesh.materials, 0), 2);
    EXPECT_EQ(std::ranges::count(mesh.materials, 1), 8);
    EXPECT_EQ(std::ranges::count(mesh.materials, 2), 2);
    EXPECT_TRUE(mesh.colours);
    EXPECT_EQ(mesh.uvs.size(), 1u);
    EXPECT_EQ(scene.materials[0].name, "bottom");
}

TEST(AssimpReader, FilesTurnedByTheLibraryAreTurnedBack)
{
    MODEL_OR_SKIP(path, "3DS/RotatingCube.3DS");
    const NeutralScene scene = ReadGood(path);
    ASSERT_EQ(scene.nodes.size(), 1u);
    EXPECT_EQ(scene.nodes[0].name, "Box01");
    EXPECT_EQ(scene.up.z, 1.0);
    EXPECT_EQ(scene.meshes[0].points.size(), 8u);
}

TEST(AssimpReader, ARootWithAMeshIsANodeNamedAfterTheFile)
{
    const TempFile file(
        "ply\nformat ascii 1.0\nelement vertex 3\nproperty float x\nproperty float y\n"
        "property float z\nelement face 1\nproperty list uchar int vertex_index\nend_header\n"
        "0 0 0\n1 0 0\n0 1 0\n3 0 1 2\n",
        "ply");
    const NeutralScene scene = ReadGood(file.Path());
    ASSERT_EQ(scene.nodes.size(), 1u);
    EXPECT_EQ(scene.nodes[0].name, file.Path().stem());
    EXPECT_EQ(scene.meshes[0].points.size(), 3u);
}

TEST(AssimpReader, PlyHeadersThatMisleadTheLibraryAreRefused)
{
    const TempFile file("ply\nformat ascii 1.0\nelement vertex 3\nproperty float x\n", "ply");
    EXPECT_THAT(ReadSceneFile(file.Path()).error, EndsWith(": the header of the PLY file has no end"));
    const TempFile greedy(
        "ply\nformat ascii 1.0\nelement vertex 999999999\nproperty float x\nend_header\n0\n", "ply");
    EXPECT_THAT(ReadSceneFile(greedy.Path()).error,
                EndsWith(": the PLY file claims more \"vertex\" than it can hold"));
}

TEST(AssimpReader, ObjMaterialsAndPolygonsAreKept)
{
    const TempFile file(
        "v 0 0 0\nv 1 0 0\nv 1 1 0\nv 0 1 0\nv 2 0 0\nvt 0 0.25\no shape\n"
        "f 1/1 2/1 3/1 4/1\nf 2/1 5/1 3/1\nl 1 5\n",
        "obj");
    const NeutralScene scene = ReadGood(file.Path());
    ASSERT_EQ(scene.nodes.size(), 1u);
    EXPECT_EQ(scene.nodes[0].name, "shape");
    EXPECT_EQ(scene.up.y, 1.0);
    EXPECT_THAT(scene.meshes[0].cornerCounts, ElementsAre(4, 3));
    EXPECT_EQ(scene.meshes[0].points.size(), 5u);
    EXPECT_THAT(scene.meshes[0].uvs[0].values, ElementsAre(Float3{0, 0.25f, 0}));
    EXPECT_THAT(scene.meshes[0].materials, ElementsAre(-1, -1));
    EXPECT_THAT(scene.warnings, Contains(HasSubstr(": 1 points and lines left out")));
}

TEST(AssimpReader, WorldPointsAgreeWithTheSameModelInAnotherFormat)
{
    MODEL_OR_SKIP(obj, "OBJ/spider.obj");
    MODEL_OR_SKIP(fbx, "FBX/spider.fbx");
    const std::vector<Vector> reference = WorldPoints(ReadGood(obj));
    const std::vector<Vector> points = WorldPoints(ReadGood(fbx));
    ASSERT_GT(reference.size(), 300u);
    double worst = 0.0;
    for (const Vector& r : reference) {
        double nearest = 1e30;
        for (const Vector& p : points)
            nearest = std::min(nearest, Length(p * 0.01 - r));  // centimetres there, metres here
        worst = std::max(worst, nearest);
    }
    EXPECT_LT(worst, 1e-4);  // of an extent of about 100
}

}  // namespace
}  // namespace maxhost::io
