#include "HostTest.h"

namespace {

using maxhost::MakePolygons;
using maxhost::MakeTriangles;

TEST(Mesh, ShowsNullForWhatItDoesNotHold)
{
    Mesh mesh;
    EXPECT_EQ(mesh.verts, nullptr);
    EXPECT_EQ(mesh.vertCol, nullptr);
    EXPECT_EQ(mesh.tvFace, nullptr);
    EXPECT_FALSE(mesh.mapSupport(0));
    EXPECT_FALSE(mesh.mapSupport(1));
    EXPECT_FALSE(mesh.mapSupport(57));
    EXPECT_FALSE(mesh.mapSupport(-1));
    EXPECT_EQ(mesh.getNumMapVerts(100), 0);
}

TEST(Mesh, ChannelsZeroAndOneAreTheOldArrays)
{
    Mesh mesh;
    mesh.setNumFaces(2);
    mesh.setMapSupport(1);
    mesh.setNumMapVerts(1, 3);
    mesh.mapVerts(1)[2] = UVVert(0.5f, 0.25f, 0.0f);
    mesh.mapFaces(1)[1].setTVerts(0, 1, 2);
    EXPECT_EQ(mesh.numTVerts, 3);
    EXPECT_EQ(mesh.tVerts, mesh.mapVerts(1));
    EXPECT_EQ(mesh.tvFace, mesh.mapFaces(1));
    EXPECT_EQ(mesh.tvFace[1].t[2], 2u);

    mesh.setNumVertCol(4);
    mesh.setNumVCFaces(2);
    mesh.vertCol[3] = VertColor(1.0f, 0.0f, 0.5f);
    EXPECT_TRUE(mesh.mapSupport(0));
    EXPECT_EQ(mesh.getNumMapVerts(0), 4);
    EXPECT_EQ(mesh.mapVerts(0)[3].z, 0.5f);
    EXPECT_EQ(mesh.vcFace, mesh.mapFaces(0));
}

TEST(Mesh, ASupportedChannelMayBeEmpty)
{
    Mesh mesh;
    mesh.setNumFaces(1);
    mesh.setMapSupport(3);
    EXPECT_TRUE(mesh.mapSupport(3));
    EXPECT_FALSE(mesh.mapSupport(2));
    EXPECT_EQ(mesh.getNumMapVerts(3), 0);
    EXPECT_NE(mesh.mapFaces(3), nullptr);
    mesh.setMapSupport(3, FALSE);
    EXPECT_FALSE(mesh.mapSupport(3));
}

TEST(Mesh, ChannelsGrowWithTheFaces)
{
    Mesh mesh;
    mesh.setNumFaces(1);
    mesh.setMapSupport(1);
    mesh.setMapSupport(5);
    mesh.setNumFaces(3, TRUE);
    mesh.mapFaces(5)[2].setTVerts(7, 8, 9);
    mesh.tvFace[2].setTVerts(1, 2, 3);
    EXPECT_EQ(mesh.mapFaces(5)[2].t[1], 8u);
}

TEST(Mesh, SizingKeepsOnRequestOnly)
{
    Mesh mesh;
    mesh.setNumVerts(1);
    mesh.setVert(0, Point3(1, 2, 3));
    mesh.setNumVerts(2, TRUE);
    EXPECT_EQ(mesh.verts[0].y, 2.0f);
    mesh.setNumVerts(3);
    EXPECT_EQ(mesh.verts[0].y, 0.0f);
}

TEST(Mesh, CopiesAreTheirOwn)
{
    Mesh mesh;
    mesh.setNumVerts(1);
    mesh.setNumVertCol(1);
    Mesh copy = mesh;
    copy.setVert(0, Point3(1, 1, 1));
    EXPECT_NE(copy.verts, mesh.verts);
    EXPECT_EQ(mesh.verts[0].x, 0.0f);
    mesh = copy;
    EXPECT_EQ(mesh.verts[0].x, 1.0f);
    EXPECT_NE(copy.vertCol, mesh.vertCol);
}

TEST(Mesh, MaterialNumbersStandInTheHighHalfOfTheFlags)
{
    Mesh mesh;
    mesh.setNumFaces(1);
    mesh.faces[0].flags = 7;
    mesh.setFaceMtlIndex(0, 300);
    EXPECT_EQ(mesh.getFaceMtlIndex(0), 300);
    EXPECT_EQ(mesh.faces[0].flags, 300u << 16 | 7u);
}

class PolyTest : public HostTest {
protected:
    static TriObject* ToTriangles(PolyObject& poly)
    {
        return static_cast<TriObject*>(poly.ConvertToType(0, triObjectClassID));
    }

    // Checks that triangles cover the polygon: all wound like it, areas adding up.
    static void ExpectCovered(const std::vector<Point3>& outline, const Point3& normal, float area)
    {
        maxhost::Polygon corners;
        for (std::size_t i = 0; i < outline.size(); ++i)
            corners.push_back(static_cast<int>(i));
        const Mesh& mesh = ToTriangles(*MakePolygons(outline, {corners}))->mesh;
        ASSERT_EQ(mesh.numFaces, static_cast<int>(outline.size()) - 2);
        float sum = 0.0f;
        for (int i = 0; i < mesh.numFaces; ++i) {
            const DWORD* v = mesh.faces[i].v;
            const Point3 a = mesh.verts[v[0]], b = mesh.verts[v[1]], c = mesh.verts[v[2]];
            const float part = ((b - a) ^ (c - a)) % normal / 2.0f;
            EXPECT_GT(part, 0.0f) << "triangle " << i;
            sum += part;
        }
        EXPECT_NEAR(sum, area, 1e-4f * area);
    }
};

TEST_F(PolyTest, ConvexPolygonsBecomeFans)
{
    PolyObject* poly =
        MakePolygons({Point3(0, 0, 0), Point3(2, 0, 0), Point3(3, 1, 0), Point3(2, 2, 0), Point3(0, 2, 0)},
                     {{0, 1, 2, 3, 4}});
    Mesh mesh;
    poly->mm.OutToTri(mesh);
    ASSERT_EQ(mesh.numFaces, 3);
    const DWORD expected[3][3] = {{0, 1, 2}, {0, 2, 3}, {0, 3, 4}};
    for (int i = 0; i < 3; ++i)
        for (int k = 0; k < 3; ++k)
            EXPECT_EQ(mesh.faces[i].v[k], expected[i][k]);
}

TEST_F(PolyTest, ConcavePolygonsAreCovered)
{
    // An arrow whose fan from corner 0 would leave it.
    ExpectCovered({Point3(4, 4, 0), Point3(0, 8, 0), Point3(2, 4, 0), Point3(0, 0, 0)}, Point3(0, 0, 1),
                  8.0f);
    // A comb.
    ExpectCovered({Point3(0, 0, 0), Point3(9, 0, 0), Point3(9, 5, 0), Point3(7, 5, 0), Point3(7, 1, 0),
                   Point3(5, 1, 0), Point3(5, 5, 0), Point3(3, 5, 0), Point3(3, 1, 0), Point3(0, 1, 0)},
                  Point3(0, 0, 1), 25.0f);
}

TEST_F(PolyTest, ConcavePolygonsAreCoveredInEveryPlaneAndWinding)
{
    const std::vector<Point3> arrow = {Point3(4, 4, 0), Point3(0, 8, 0), Point3(2, 4, 0), Point3(0, 0, 0)};
    for (const Matrix3& turn : {RotateXMatrix(1.5707963f), RotateYMatrix(1.5707963f),
                                RotateXMatrix(3.1415927f), RotateXMatrix(0.7f) * RotateZMatrix(0.9f)}) {
        std::vector<Point3> turned;
        for (const Point3& p : arrow)
            turned.push_back(p * turn);
        ExpectCovered(turned, Point3(0, 0, 1) * turn, 8.0f);
        std::reverse(turned.begin(), turned.end());
        ExpectCovered(turned, Point3(0, 0, -1) * turn, 8.0f);
    }
}

TEST_F(PolyTest, CornersOnALineMakeNoEmptyTriangle)
{
    ExpectCovered({Point3(0, 0, 0), Point3(1, 0, 0), Point3(2, 0, 0), Point3(2, 2, 0), Point3(0, 2, 0)},
                  Point3(0, 0, 1), 4.0f);
}

TEST_F(PolyTest, APolygonWithABridgedHoleIsCovered)
{
    // A square with a square hole, joined by a bridge that is walked both ways.
    ExpectCovered({Point3(0, 0, 0), Point3(6, 0, 0), Point3(6, 6, 0), Point3(0, 6, 0), Point3(0, 0, 0),
                   Point3(2, 2, 0), Point3(2, 4, 0), Point3(4, 4, 0), Point3(4, 2, 0), Point3(2, 2, 0)},
                  Point3(0, 0, 1), 32.0f);
}

TEST_F(PolyTest, WhatIsNoPolygonStillGivesItsTriangles)
{
    const Point3 p(1, 1, 1);
    EXPECT_EQ(ToTriangles(*MakePolygons({p, p, p, p}, {{0, 1, 2, 3}}))->mesh.numFaces, 2);
    // A bow tie.
    EXPECT_EQ(ToTriangles(*MakePolygons({Point3(0, 0, 0), Point3(2, 2, 0), Point3(3, 0, 0), Point3(0, 2, 0)},
                                        {{0, 1, 2, 3}}))
                  ->mesh.numFaces,
              2);
    EXPECT_EQ(ToTriangles(*MakePolygons({p, p}, {{0, 1}, {}}))->mesh.numFaces, 0);
}

TEST_F(PolyTest, CornersMaterialsAndColoursFollow)
{
    PolyObject* poly =
        MakePolygons({Point3(0, 0, 0), Point3(1, 0, 0), Point3(1, 1, 0), Point3(0, 1, 0), Point3(2, 0, 0)},
                     {{0, 1, 2, 3}, {1, 4, 2}});
    poly->mm.F(0)->material = 3;
    poly->mm.F(1)->material = 5;
    poly->mm.F(1)->smGroup = 2;
    maxhost::SetMapChannel(*poly, 0, {VertColor(1, 0, 0), VertColor(0, 1, 0), VertColor(0, 0, 1)},
                           {{0, 1, 2, 0}, {2, 1, 0}});
    maxhost::SetMapChannel(*poly, 2, std::vector<UVVert>(7, UVVert(0, 0, 0)), {{3, 4, 5, 6}, {0, 1, 2}});

    const TriObject* tri = ToTriangles(*poly);
    Mesh mesh = tri->mesh;
    ASSERT_EQ(mesh.numFaces, 3);
    EXPECT_EQ(mesh.getFaceMtlIndex(0), 3);
    EXPECT_EQ(mesh.getFaceMtlIndex(1), 3);
    EXPECT_EQ(mesh.getFaceMtlIndex(2), 5);
    EXPECT_EQ(mesh.faces[2].smGroup, 2u);
    EXPECT_EQ(mesh.numCVerts, 3);
    EXPECT_FALSE(mesh.mapSupport(1));
    ASSERT_TRUE(mesh.mapSupport(2));
    const DWORD colours[3][3] = {{0, 1, 2}, {0, 2, 0}, {2, 1, 0}};
    const DWORD maps[3][3] = {{3, 4, 5}, {3, 5, 6}, {0, 1, 2}};
    for (int i = 0; i < 3; ++i)
        for (int k = 0; k < 3; ++k) {
            EXPECT_EQ(mesh.vcFace[i].t[k], colours[i][k]);
            EXPECT_EQ(mesh.mapFaces(2)[i].t[k], maps[i][k]);
        }
}

TEST_F(PolyTest, DeadFacesAreLeftOut)
{
    PolyObject* poly = maxhost::MakeBox(Point3(1, 1, 1));
    poly->mm.F(0)->SetFlag(MN_DEAD);
    EXPECT_EQ(ToTriangles(*poly)->mesh.numFaces, 10);
}

TEST_F(PolyTest, ABoxIsClosedAndWoundOutwards)
{
    PolyObject* box = maxhost::MakeBox(Point3(2, 4, 6));
    box->mm.FillInMesh();
    EXPECT_EQ(box->mm.nume, 12);
    for (int i = 0; i < box->mm.nume; ++i)
        EXPECT_GE(box->mm.E(i)->f2, 0);
    const Mesh& mesh = ToTriangles(*box)->mesh;
    float volume = 0.0f;
    for (int i = 0; i < mesh.numFaces; ++i) {
        const DWORD* v = mesh.faces[i].v;
        volume += mesh.verts[v[0]] % (mesh.verts[v[1]] ^ mesh.verts[v[2]]) / 6.0f;
    }
    EXPECT_NEAR(volume, 48.0f, 1e-4f);
}

TEST_F(PolyTest, FillingInDerivesEdgesOnce)
{
    PolyObject* poly = MakePolygons({Point3(0, 0, 0), Point3(1, 0, 0), Point3(1, 1, 0), Point3(0, 1, 0)},
                                    {{0, 1, 2}, {0, 2, 3}});
    MNMesh& mesh = poly->mm;
    mesh.FillInMesh();
    ASSERT_EQ(mesh.nume, 5);
    EXPECT_EQ(mesh.F(0)->edg[2], mesh.F(1)->edg[0]);
    const MNEdge& shared = *mesh.E(mesh.F(0)->edg[2]);
    EXPECT_EQ(shared.v1, 2);
    EXPECT_EQ(shared.v2, 0);
    EXPECT_EQ(shared.f1, 0);
    EXPECT_EQ(shared.f2, 1);
    EXPECT_EQ(mesh.E(mesh.F(0)->edg[0])->f2, -1);
    mesh.setNumFaces(1);
    mesh.FillInMesh();
    EXPECT_EQ(mesh.nume, 5);
    mesh.InvalidateTopoCache();
    mesh.FillInMesh();
    EXPECT_EQ(mesh.nume, 3);
}

TEST_F(PolyTest, MapsStartDeadAndCopiesAreTheirOwn)
{
    PolyObject* poly = maxhost::MakeBox(Point3(1, 1, 1));
    poly->mm.SetMapNum(3);
    EXPECT_TRUE(poly->mm.M(2)->GetFlag(MN_DEAD));
    poly->mm.InitMap(2);
    EXPECT_FALSE(poly->mm.M(2)->GetFlag(MN_DEAD));
    MNMesh copy = poly->mm;
    copy.P(0) = Point3(9, 9, 9);
    copy.M(2)->f[0].tv[0] = 5;
    copy.F(0)->vtx[0] = 7;
    EXPECT_NE(poly->mm.P(0).x, 9.0f);
    EXPECT_EQ(poly->mm.M(2)->f[0].tv[0], 0);
    EXPECT_EQ(poly->mm.F(0)->vtx[0], 0);
    poly->mm.ClearAndFree();
    EXPECT_EQ(poly->mm.numv, 0);
    EXPECT_EQ(poly->mm.MNum(), 0);
}

TEST_F(PolyTest, TrianglesTurnIntoPolygonsAndBack)
{
    TriObject* tri = MakeTriangles({Point3(0, 0, 0), Point3(1, 0, 0), Point3(0, 1, 0), Point3(1, 1, 1)},
                                   {{0, 1, 2}, {2, 1, 3}});
    tri->mesh.setFaceMtlIndex(1, 4);
    maxhost::SetMapChannel(*tri, 1, std::vector<UVVert>(5, UVVert(0.5f, 0.5f, 0.0f)), {{0, 1, 2}, {2, 1, 4}});
    auto* poly = static_cast<PolyObject*>(tri->ConvertToType(0, polyObjectClassID));
    const Mesh& back = ToTriangles(*poly)->mesh;
    ASSERT_EQ(back.numFaces, 2);
    EXPECT_EQ(back.faces[1].v[2], 3u);
    EXPECT_EQ(back.faces[1].getMatID(), 4);
    EXPECT_EQ(back.tvFace[1].t[2], 4u);
    EXPECT_EQ(back.verts[3].z, 1.0f);
}

}  // namespace
