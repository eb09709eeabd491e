#include "VKT/geometry/PolygonIterator.h"

#include "VKT/support/NodeTest.h"

using namespace VKT;
using namespace VKT::Test;

namespace {

class PolygonIterator : public NodeTest {
protected:
    XPolygonMesh& m_Mesh = *m_Model.CreateNode<XPolygonMesh>();
};

TEST_F(PolygonIterator, VisitsEachPolygonWithItsCorners)
{
    ASSERT_TRUE(m_Mesh.SetPolygons({3, 4, 3}, {10, 11, 12, 13, 14, 15, 16, 17, 18, 19}));
    XPolygonIterator it(&m_Mesh);
    EXPECT_FALSE(it.IsDone());
    EXPECT_EQ(it.GetCount(), 3u);
    EXPECT_EQ(it.GetFirstCorner(), 0u);
    EXPECT_EQ(it.GetVertexIndex(2), 12);
    it.Next();
    EXPECT_EQ(it.GetCount(), 4u);
    EXPECT_EQ(it.GetFirstCorner(), 3u);
    EXPECT_EQ(it.GetVertexIndex(0), 13);
    EXPECT_EQ(it.GetVertexIndex(3), 16);
    it.Next();
    EXPECT_FALSE(it.IsDone());
    EXPECT_EQ(it.GetFirstCorner(), 7u);
    it.Next();
    EXPECT_TRUE(it.IsDone());
    EXPECT_EQ(it.GetCount(), 0u);
    EXPECT_EQ(it.GetFirstCorner(), 10u);
    it.Next();
    EXPECT_TRUE(it.IsDone());
    EXPECT_EQ(it.GetFirstCorner(), 10u);
}

TEST_F(PolygonIterator, NoMeshAndAnEmptyOneAreDone)
{
    XPolygonIterator none(nullptr);
    EXPECT_TRUE(none.IsDone());
    EXPECT_EQ(none.GetCount(), 0u);
    EXPECT_EQ(none.GetVertexIndex(2), 2);
    none.Next();
    EXPECT_TRUE(none.IsDone());
    XPolygonIterator empty(&m_Mesh);
    EXPECT_TRUE(empty.IsDone());
    EXPECT_EQ(empty.GetCount(), 0u);
}

TEST_F(PolygonIterator, CornersOutOfRangeAnswerZero)
{
    ASSERT_TRUE(m_Mesh.SetPolygons({3}, {10, 11, 12}));
    XPolygonIterator it(&m_Mesh);
    EXPECT_EQ(it.GetVertexIndex(3), 0);
}

TEST_F(PolygonIterator, WithoutPointIndexSetCornersAreTheirOwnPoints)
{
    ASSERT_TRUE(m_Mesh.SetPolygons({3, 3}, {10, 11, 12, 13, 14, 15}));
    XPolygonMesh& mesh = *m_Model.CreateNode<XPolygonMesh>();
    ASSERT_TRUE(
        ReadText(mesh, Replaced(TextOf(m_Mesh), "point_index_set \"points\"", "point_index_set \"none\"")));
    XPolygonIterator it(&mesh);
    it.Next();
    EXPECT_EQ(it.GetVertexIndex(1), 4);
}

TEST_F(PolygonIterator, GoesByTheCountsAlsoAfterABinaryLoad)
{
    ASSERT_TRUE(m_Mesh.SetPolygons({3, 3}, {10, 11, 12, 13, 14, 15}));
    XPolygonMesh& mesh = *m_Model.CreateNode<XPolygonMesh>();
    ASSERT_TRUE(ReadBody(mesh, BodyOf(m_Mesh)));
    u32 corners = 0;
    for (XPolygonIterator it(&mesh); !it.IsDone(); it.Next())
        corners += it.GetCount();
    EXPECT_EQ(corners, 6u);
}

}  // namespace
