#include "host/io/BuildScene.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>

#include "host/app/HeadlessHost.h"
#include "stdmat.h"

namespace maxhost::io {
namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

class BuildSceneTest : public testing::Test {
protected:
    ~BuildSceneTest() override { HeadlessHost::Get().Reset(); }
};

NeutralNode Node(const char* name, int parent = -1)
{
    NeutralNode node;
    node.name = name;
    node.parent = parent;
    return node;
}

// Polygons of the given corner counts over as many points of their own.
NeutralMesh MeshOf(const std::vector<std::uint32_t>& cornerCounts, const std::vector<int>& materials)
{
    NeutralMesh mesh;
    mesh.name = "mesh";
    mesh.cornerCounts = cornerCounts;
    mesh.materials = materials;
    for (const std::uint32_t count : cornerCounts) {
        for (std::uint32_t k = 0; k < count; ++k) {
            const auto corner = static_cast<std::uint32_t>(mesh.points.size());
            mesh.points.push_back({static_cast<float>(corner), static_cast<float>(k * k), 0.0f});
            mesh.corners.push_back(corner);
        }
    }
    return mesh;
}

NeutralScene OneMesh(NeutralMesh mesh)
{
    NeutralScene scene;
    scene.up = {0, 0, 1};
    scene.nodes.push_back(Node("n"));
    scene.nodes[0].mesh = 0;
    scene.meshes.push_back(std::move(mesh));
    return scene;
}

void ExpectPoint(const Point3& p, float x, float y, float z, float tolerance = 1e-5f)
{
    EXPECT_NEAR(p.x, x, tolerance);
    EXPECT_NEAR(p.y, y, tolerance);
    EXPECT_NEAR(p.z, z, tolerance);
}

TEST_F(BuildSceneTest, AYUpFileIsTurnedOnceAtTheTop)
{
    NeutralScene scene;
    scene.nodes = {Node("top"), Node("below", 0)};
    scene.nodes[0].local.translation = {1, 2, 3};
    scene.nodes[1].local.translation = {0, 5, 0};
    const BuildReport report = BuildScene(scene);
    ASSERT_EQ(report.nodes.size(), 2u);
    EXPECT_STREQ(report.nodes[0]->GetName(), "top");
    EXPECT_EQ(report.nodes[1]->GetParentNode(), report.nodes[0]);
    ExpectPoint(report.nodes[0]->GetNodeTM(0).GetTrans(), 1, -3, 2);
    ExpectPoint(report.nodes[1]->GetNodeTM(0).GetTrans(), 1, -3, 7);
    ExpectPoint(report.nodes[1]->GetNodeTM(0).GetRow(1), 0, 0, 1);
    EXPECT_THAT(report.warnings, IsEmpty());
}

TEST_F(BuildSceneTest, AZUpFileStaysAsItIs)
{
    NeutralScene scene;
    scene.up = {0, 0, 1};
    scene.nodes = {Node("top")};
    scene.nodes[0].local.translation = {1, 2, 3};
    ExpectPoint(BuildScene(scene).nodes[0]->GetNodeTM(0).GetTrans(), 1, 2, 3, 0.0f);
}

TEST_F(BuildSceneTest, MirroredAndScaledNodesKeepTheirMatrix)
{
    NeutralScene scene;
    scene.up = {0, 0, 1};
    scene.nodes = {Node("mirrored")};
    scene.nodes[0].local = {{1, 2, 3}, Normalized({0.1, 0.2, 0.3, 0.9}), {-2, -3, -4}, {}};
    const Matrix expected = ToMatrix(scene.nodes[0].local);
    const Matrix3 tm = BuildScene(scene).nodes[0]->GetNodeTM(0);
    ExpectPoint(tm.GetRow(0), static_cast<float>(expected.x.x), static_cast<float>(expected.x.y),
                static_cast<float>(expected.x.z));
    ExpectPoint(tm.GetRow(2), static_cast<float>(expected.z.x), static_cast<float>(expected.z.y),
                static_cast<float>(expected.z.z));
    EXPECT_TRUE(tm.Parity());
}

TEST_F(BuildSceneTest, ShearIsKeptAndReported)
{
    NeutralScene scene;
    scene.up = {0, 0, 1};
    scene.nodes = {Node("leaning")};
    scene.nodes[0].local = ToTransform({{1, 0, 0}, {0.5, 1, 0}, {0, 0, 1}, {}});
    const BuildReport report = BuildScene(scene);
    ExpectPoint(report.nodes[0]->GetNodeTM(0).GetRow(1), 0.5f, 1, 0);
    ExpectPoint(report.nodes[0]->GetNodeTM(0).GetRow(0), 1, 0, 0);
    EXPECT_THAT(report.warnings, ElementsAre(HasSubstr("node \"leaning\" is sheared")));
}

TEST_F(BuildSceneTest, TheObjectOffsetMovesTheMeshAndNotTheChildren)
{
    NeutralScene scene = OneMesh(MeshOf({3}, {-1}));
    scene.nodes.push_back(Node("child", 0));
    scene.nodes[0].objectOffset = {{5, 0, 0}, {0, 0, std::sqrt(0.5), std::sqrt(0.5)}, {1, 2, 3}, {}};
    const BuildReport report = BuildScene(scene);
    ExpectPoint(report.nodes[0]->GetNodeTM(0).GetTrans(), 0, 0, 0);
    ExpectPoint(report.nodes[1]->GetNodeTM(0).GetTrans(), 0, 0, 0);
    // Scaled first, then a quarter turn about z, then moved.
    ExpectPoint(report.nodes[0]->GetObjectTM(0).PointTransform(Point3(1, 1, 1)), 3, 1, 3);
}

TEST_F(BuildSceneTest, TrianglesBecomeATriangleObjectAndPolygonsAPolygonObject)
{
    NeutralScene scene = OneMesh(MeshOf({3, 3}, {-1, -1}));
    scene.meshes.push_back(MeshOf({3, 5}, {-1, -1}));
    scene.nodes.push_back(Node("poly"));
    scene.nodes[1].mesh = 1;
    const BuildReport report = BuildScene(scene);
    ASSERT_EQ(report.objects[0]->ClassID(), triObjectClassID);
    ASSERT_EQ(report.objects[1]->ClassID(), polyObjectClassID);
    const Mesh& triangles = static_cast<TriObject*>(report.objects[0])->mesh;
    ASSERT_EQ(triangles.numFaces, 2);
    EXPECT_EQ(triangles.faces[1].getVert(2), 5u);
    ExpectPoint(triangles.verts[5], 5, 4, 0, 0.0f);
    const MNMesh& polygons = static_cast<PolyObject*>(report.objects[1])->mm;
    ASSERT_EQ(polygons.numf, 2);
    EXPECT_EQ(polygons.F(1)->deg, 5);
    EXPECT_EQ(polygons.F(1)->vtx[4], 7);
    EXPECT_TRUE(polygons.GetFlag(MN_MESH_FILLED_IN));
}

TEST_F(BuildSceneTest, NodesThatShareAMeshShareTheObject)
{
    NeutralScene scene = OneMesh(MeshOf({3}, {-1}));
    scene.nodes.push_back(Node("again"));
    scene.nodes[1].mesh = 0;
    const BuildReport report = BuildScene(scene);
    EXPECT_EQ(report.nodes[0]->GetObjectRef(), report.objects[0]);
    EXPECT_EQ(report.nodes[1]->GetObjectRef(), report.objects[0]);
}

void GiveChannels(NeutralMesh& mesh)
{
    const auto count = static_cast<std::uint32_t>(mesh.corners.size());
    MapChannel uvs{{{0, 0, 0}, {1, 0, 0}}, std::vector<std::uint32_t>(count, 0)};
    uvs.corners[1] = 1;
    mesh.uvs = {uvs, uvs};
    mesh.uvs[1].values[1] = {0.5f, 0.25f, 0};
    mesh.colours = MapChannel{{{1, 0.5f, 0}}, std::vector<std::uint32_t>(count, 0)};
}

TEST_F(BuildSceneTest, MapChannelsOfTriangles)
{
    NeutralMesh source = MeshOf({3}, {-1});
    GiveChannels(source);
    const BuildReport report = BuildScene(OneMesh(source));
    const Mesh& mesh = static_cast<TriObject*>(report.objects[0])->mesh;
    EXPECT_TRUE(mesh.mapSupport(0));
    ExpectPoint(mesh.vertCol[0], 1, 0.5f, 0, 0.0f);
    EXPECT_TRUE(mesh.mapSupport(1));
    EXPECT_TRUE(mesh.mapSupport(2));
    EXPECT_FALSE(mesh.mapSupport(3));
    EXPECT_EQ(mesh.tvFace[0].t[1], 1u);
    ExpectPoint(mesh.mapVerts(2)[1], 0.5f, 0.25f, 0, 0.0f);
}

TEST_F(BuildSceneTest, MapChannelsOfPolygonsSurviveTheCuttingIntoTriangles)
{
    NeutralMesh source = MeshOf({4}, {-1});
    GiveChannels(source);
    const BuildReport report = BuildScene(OneMesh(source));
    Object* const triangles = report.objects[0]->ConvertToType(0, triObjectClassID);
    const Mesh& mesh = static_cast<TriObject*>(triangles)->mesh;
    ASSERT_EQ(mesh.numFaces, 2);
    ASSERT_EQ(mesh.getNumMapVerts(2), 2);
    for (int face = 0; face < 2; ++face)
        for (int corner = 0; corner < 3; ++corner)
            EXPECT_EQ(mesh.mapFaces(2)[face].t[corner], mesh.faces[face].v[corner] == 1 ? 1u : 0u);
    triangles->DeleteMe();
}

TEST_F(BuildSceneTest, OneMaterialIsTheNodesOwn)
{
    NeutralScene scene = OneMesh(MeshOf({3, 3}, {1, 1}));
    scene.materials = {{"unused", {}, ""}, {"brass", Float3{0.5f, 0.25f, 0.125f}, ""}};
    const BuildReport report = BuildScene(scene);
    Mtl* const material = report.nodes[0]->GetMtl();
    ASSERT_NE(material, nullptr);
    EXPECT_EQ(material, report.materials[1]);
    EXPECT_EQ(report.materials[0], nullptr);
    EXPECT_EQ(material->ClassID(), Class_ID(DMTL_CLASS_ID, 0));
    EXPECT_STREQ(material->GetName().data(), "brass");
    EXPECT_EQ(material->GetDiffuse().g, 0.25f);
}

TEST_F(BuildSceneTest, SeveralMaterialsBecomeAMultiMaterialByFaceNumber)
{
    NeutralScene scene = OneMesh(MeshOf({3, 3, 3}, {2, -1, 0}));
    scene.materials = {{"a", {}, ""}, {"unused", {}, ""}, {"c", {}, ""}};
    const BuildReport report = BuildScene(scene);
    Mtl* const multi = report.nodes[0]->GetMtl();
    ASSERT_TRUE(multi && multi->IsMultiMtl());
    ASSERT_EQ(multi->NumSubMtls(), 3);
    EXPECT_EQ(multi->GetSubMtl(0), nullptr);  // faces without material
    EXPECT_EQ(multi->GetSubMtl(1), report.materials[0]);
    EXPECT_EQ(multi->GetSubMtl(2), report.materials[2]);
    Mesh& mesh = static_cast<TriObject*>(report.objects[0])->mesh;
    EXPECT_EQ(mesh.getFaceMtlIndex(0), 2);
    EXPECT_EQ(mesh.getFaceMtlIndex(1), 0);
    EXPECT_EQ(mesh.getFaceMtlIndex(2), 1);
}

TEST_F(BuildSceneTest, JointsAreBonesAndOtherEmptyNodesDummies)
{
    NeutralScene scene = OneMesh(MeshOf({3}, {-1}));
    scene.nodes.push_back(Node("joint"));
    scene.nodes.push_back(Node("group"));
    scene.nodes[0].isBone = true;
    scene.nodes[1].isBone = true;
    const BuildReport report = BuildScene(scene);
    EXPECT_TRUE(report.nodes[0]->GetBoneNodeOnOff());
    EXPECT_EQ(report.nodes[0]->GetObjectRef()->ClassID(), triObjectClassID);
    EXPECT_TRUE(report.nodes[1]->GetBoneNodeOnOff());
    EXPECT_EQ(report.nodes[1]->GetObjectRef()->ClassID(), BONE_OBJ_CLASSID);
    EXPECT_FALSE(report.nodes[2]->GetBoneNodeOnOff());
    EXPECT_EQ(report.nodes[2]->GetObjectRef()->ClassID(), Class_ID(DUMMY_CLASS_ID, 0));
}

TEST_F(BuildSceneTest, AMeshWithoutFacesIsADummy)
{
    const BuildReport report = BuildScene(OneMesh(NeutralMesh()));
    EXPECT_EQ(report.nodes[0]->GetObjectRef()->ClassID(), Class_ID(DUMMY_CLASS_ID, 0));
}

TEST_F(BuildSceneTest, PropertiesBecomeUserPropertyLines)
{
    NeutralScene scene;
    scene.nodes = {Node("n")};
    scene.nodes[0].propertyText = "as = it is";
    scene.nodes[0].properties = {{"on", true},
                                 {"count", std::int64_t{12}},
                                 {"whole number", 3.0},
                                 {"ratio", 0.1},
                                 {"note=", std::string("two\r\nlines")}};
    MSTR text;
    BuildScene(scene).nodes[0]->GetUserPropBuffer(text);
    EXPECT_STREQ(text.data(),
                 "as = it is\r\n"
                 "on = true\r\n"
                 "count = 12\r\n"
                 "whole_number = 3.0\r\n"
                 "ratio = 0.1\r\n"
                 "note_ = two  lines\r\n");
}

TEST_F(BuildSceneTest, InvisibleNodesAreHidden)
{
    NeutralScene scene;
    scene.nodes = {Node("seen"), Node("unseen")};
    scene.nodes[1].visible = false;
    const BuildReport report = BuildScene(scene);
    EXPECT_FALSE(report.nodes[0]->IsHidden());
    EXPECT_TRUE(report.nodes[1]->IsHidden());
}

TEST_F(BuildSceneTest, AChainOfManyNodesIsBuilt)
{
    constexpr int kCount = 100000;
    NeutralScene scene;
    scene.up = {0, 0, 1};
    for (int i = 0; i < kCount; ++i) {
        scene.nodes.push_back(Node("link", i - 1));
        scene.nodes.back().local.translation = {1, 0, 0};
    }
    EXPECT_EQ(BuildScene(scene).nodes.back()->GetNodeTM(0).GetTrans().x, static_cast<float>(kCount));
}

TEST_F(BuildSceneTest, WhatIsNotBuiltIsReported)
{
    NeutralScene scene;
    scene.nodes = {Node("eye")};
    scene.cameras.resize(1);
    scene.nodes[0].camera = 0;
    EXPECT_THAT(BuildScene(scene).warnings, Contains("node \"eye\": its camera is left out"));
}

}  // namespace
}  // namespace maxhost::io
