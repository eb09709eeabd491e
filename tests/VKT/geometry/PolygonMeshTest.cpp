#include "VKT/geometry/PolygonMesh.h"

#include "VKT/deformers/NonLinearWave.h"
#include "VKT/support/NodeTest.h"

using namespace VKT;
using namespace VKT::Test;

namespace {

class PolygonMesh : public NodeTest {
protected:
    XPolygonMesh& m_Mesh = *m_Model.CreateNode<XPolygonMesh>();
};

TEST_F(PolygonMesh, BeginsWithItsPolygons)
{
    m_Mesh.SetPoints({{1, 2, 3, 0}});
    EXPECT_TRUE(m_Mesh.SetPolygons({3, 4}, {0, 1, 2, 2, 1, 3, 4}));
    EXPECT_EQ(m_Mesh.GetNumPolys(), 2u);
    EXPECT_EQ(m_Mesh.GetNumPolyIndices(), 7u);
    EXPECT_EQ(m_Mesh.GetNumPoints(), 0u);  // points come after the polygons
    ASSERT_EQ(m_Mesh.GetIndexSets().size(), 1u);
    EXPECT_EQ(m_Mesh.GetIndexSets()[0].get(), m_Mesh.GetPointIndexSet());
    EXPECT_EQ(m_Mesh.GetPointIndexSet()->GetName(), "points");
    EXPECT_EQ(m_Mesh.GetPointIndexSet()->GetIndices(), (XIntList{0, 1, 2, 2, 1, 3, 4}));
    EXPECT_TRUE(m_Mesh.SetPolygons({}, {}));
    EXPECT_EQ(m_Mesh.GetNumPolys(), 0u);
    EXPECT_EQ(m_Mesh.GetPointIndexSet()->GetNumIndices(), 0u);
}

TEST_F(PolygonMesh, RefusedPolygonsChangeNothing)
{
    ASSERT_TRUE(m_Mesh.SetPolygons({3}, {0, 1, 2}));
    m_Mesh.SetPoints({{1, 2, 3, 0}});
    const std::string before = TextOf(m_Mesh);
    EXPECT_FALSE(m_Mesh.SetPolygons({3, 2}, {0, 1, 2, 3, 4}));
    EXPECT_FALSE(m_Mesh.SetPolygons({3, 3}, {0, 1, 2, 3, 4}));
    EXPECT_EQ(TextOf(m_Mesh), before);
    EXPECT_EQ(m_Log.Text(),
              "Error : Cannot create a polygon with less than 3 vertices\n"
              "Error : The number of indices specified by the poly_counts array does not match the number "
              "provided in the vertex_indices array\n");
}

TEST_F(PolygonMesh, IndexSetsAreUniqueByNameAndAsLongAsTheCorners)
{
    ASSERT_TRUE(m_Mesh.SetPolygons({3}, {0, 1, 2}));
    XIndexSet* set = m_Mesh.AddIndexSet("map1");
    EXPECT_EQ(set->GetIndices(), (XIntList{0, 0, 0}));
    EXPECT_EQ(m_Mesh.AddIndexSet("map1"), set);
    EXPECT_EQ(m_Mesh.FindIndexSet("map1"), set);
    EXPECT_EQ(m_Mesh.FindIndexSet("map2"), nullptr);
    EXPECT_EQ(m_Mesh.GetIndexSets().size(), 2u);
}

TEST_F(PolygonMesh, CornersOutOfRangeNeverFault)
{
    ASSERT_TRUE(m_Mesh.SetPolygons({3}, {5, 6, 7}));
    XIndexSet& set = *m_Mesh.GetPointIndexSet();
    set[1] = 8;
    set[3] = 9;
    set[0xFFFFFFFF] = 10;
    EXPECT_EQ(set.GetIndices(), (XIntList{5, 8, 7}));
    EXPECT_EQ(set.GetIndex(2), 7);
    EXPECT_EQ(set.GetIndex(3), 0);
    EXPECT_EQ(set.GetIndex(0xFFFFFFFF), 0);
}

TEST_F(PolygonMesh, VertexSetsAreAlwaysNew)
{
    XVertexSet* first = m_Mesh.AddVertexSet("uv", 2, 2, kTexCoord);
    XVertexSet* second = m_Mesh.AddVertexSet("uv", 1, 3, kNormal);
    EXPECT_NE(first, second);
    EXPECT_EQ(first->GetElements().size(), 4u);
    EXPECT_EQ(first->GetNumElements(), 2u);
    EXPECT_EQ(first->GetElementSize(), 2u);
    EXPECT_EQ(first->GetUsage(), kTexCoord);
    EXPECT_EQ(first->GetIndexSetName(), "");
    EXPECT_TRUE(m_Mesh.HasVertexSet("uv"));
    EXPECT_FALSE(m_Mesh.HasVertexSet("UV"));
}

TEST_F(PolygonMesh, ElementsAreSetInTheirOwnSizeAlone)
{
    XVertexSet& uvs = *m_Mesh.AddVertexSet("uv", 2, 2, kTexCoord);
    XVertexSet& normals = *m_Mesh.AddVertexSet("normal", 2, 3, kNormal);
    uvs.GetElements() = {1, 2, 3, 4};
    normals.GetElements() = {1, 2, 3, 4, 5, 6};
    EXPECT_TRUE(uvs.SetElement(1, XVector2{7, 8}));
    EXPECT_FALSE(uvs.SetElement(2, XVector2{9, 9}));
    EXPECT_FALSE(uvs.SetElement(0, XVector3{9, 9, 9, 0}));
    EXPECT_EQ(uvs.GetElements(), (XRealList{1, 2, 7, 8}));
    EXPECT_TRUE(normals.SetElement(0, XVector3{7, 8, 9, 0}));
    EXPECT_FALSE(normals.SetElement(2, XVector3{9, 9, 9, 0}));
    EXPECT_FALSE(normals.SetElement(1, XVector2{9, 9}));
    EXPECT_EQ(normals.GetElements(), (XRealList{7, 8, 9, 4, 5, 6}));
}

TEST_F(PolygonMesh, OnlyAnIndexSetOfTheMeshCanBeBound)
{
    XVertexSet& set = *m_Mesh.AddVertexSet("uv", 0, 2, kTexCoord);
    XPolygonMesh& other = *m_Model.CreateNode<XPolygonMesh>();
    EXPECT_FALSE(set.SetIndexSet(other.AddIndexSet("map1")));
    EXPECT_FALSE(set.SetIndexSet(nullptr));
    EXPECT_EQ(set.GetIndexSetName(), "");
    EXPECT_TRUE(set.SetIndexSet(m_Mesh.AddIndexSet("map1")));
    EXPECT_EQ(set.GetIndexSetName(), "map1");
    XVertexSet loose(nullptr, "uv");
    EXPECT_FALSE(loose.SetIndexSet(m_Mesh.AddIndexSet("map1")));
}

TEST_F(PolygonMesh, ClearKeepsDeformersAlone)
{
    ASSERT_TRUE(m_Mesh.SetPolygons({3}, {0, 1, 2}));
    m_Mesh.SetPoints({{1, 2, 3, 0}});
    m_Mesh.AddVertexSet("uv", 1, 2, kTexCoord);
    m_Mesh.SetDeformerQueue({XCast<XDeformer>(m_Model.CreateNode(kFnNonLinearWave))});
    m_Mesh.Clear();
    EXPECT_EQ(m_Mesh.GetNumPolys(), 0u);
    EXPECT_EQ(m_Mesh.GetNumPolyIndices(), 0u);
    EXPECT_EQ(m_Mesh.GetNumPoints(), 0u);
    EXPECT_TRUE(m_Mesh.GetIndexSets().empty());
    EXPECT_TRUE(m_Mesh.GetVertexSets().empty());
    EXPECT_EQ(m_Mesh.GetPointIndexSet(), nullptr);
    EXPECT_EQ(m_Mesh.GetDeformerQueueIds().size(), 1u);
}

TEST_F(PolygonMesh, CloneCopiesSetsAndNotTheNumberOfCorners)
{
    ASSERT_TRUE(m_Mesh.SetPolygons({3, 3}, {0, 1, 2, 2, 1, 3}));
    m_Mesh.SetPoints({{1, 2, 3, 0}});
    m_Mesh.AddIndexSet("map1")->SetIndices({6, 5, 4, 3, 2, 1});
    XVertexSet& uvs = *m_Mesh.AddVertexSet("uv", 2, 2, kTexCoord);
    uvs.GetElements() = {1, 2, 3, 4};
    uvs.SetIndexSet(m_Mesh.FindIndexSet("map1"));
    XPolygonMesh& copy = *XCast<XPolygonMesh>(m_Mesh.Clone());
    EXPECT_EQ(TextOf(copy), TextOf(m_Mesh));
    EXPECT_EQ(copy.GetPointIndexSet(), copy.FindIndexSet("points"));
    EXPECT_EQ(copy.GetNumPolyIndices(), 0u);
    EXPECT_EQ(copy.AddIndexSet("new")->GetNumIndices(), 0u);
    EXPECT_TRUE(copy.GetVertexSets()[0]->SetIndexSet(copy.FindIndexSet("points")));
    // A second copy finds the index sets and adds the vertex sets once more.
    copy.DoCopy(&m_Mesh);
    EXPECT_EQ(copy.GetIndexSets().size(), 3u);
    EXPECT_EQ(copy.GetVertexSets().size(), 2u);
    copy.DoCopy(&copy);
    EXPECT_EQ(copy.GetVertexSets().size(), 2u);
}

TEST_F(PolygonMesh, CloneOfOneWithoutPointIndexSetHasNoneEither)
{
    m_Mesh.AddIndexSet("map1");
    const XPolygonMesh& copy = *XCast<XPolygonMesh>(m_Mesh.Clone());
    EXPECT_EQ(copy.GetPointIndexSet(), nullptr);
    EXPECT_EQ(copy.GetIndexSets().size(), 1u);
}

// A table whose floats are fewer than its counts claim, as damaged files leave it.
void MakeShort(XPolygonMesh& mesh, const char* numElements, const char* elementSize)
{
    mesh.AddVertexSet("uv", 1, 3, kNormal)->GetElements() = {7, 8, 9};
    std::string bytes = Hex(BodyOf(mesh));
    bytes = Replaced(bytes, "75 76 01 00 00 00 03 00 00 00",
                     std::string("75 76 ") + numElements + " " + elementSize);
    mesh.Clear();
    ASSERT_TRUE(ReadBody(mesh, Bytes(bytes)));
}

TEST_F(PolygonMesh, ElementsBehindTheTableAreRefused)
{
    MakeShort(m_Mesh, "ff ff ff ff", "03 00 00 00");
    XVertexSet& set = *m_Mesh.GetVertexSets()[0];
    EXPECT_TRUE(set.SetElement(0, XVector3{1, 2, 3, 0}));
    EXPECT_FALSE(set.SetElement(1, XVector3{1, 2, 3, 0}));
    EXPECT_FALSE(set.SetElement(0xFFFFFFFE, XVector3{1, 2, 3, 0}));
    XPolygonMesh& pairs = *m_Model.CreateNode<XPolygonMesh>();
    MakeShort(pairs, "ff ff ff ff", "02 00 00 00");
    EXPECT_TRUE(pairs.GetVertexSets()[0]->SetElement(0, XVector2{1, 2}));
    EXPECT_FALSE(pairs.GetVertexSets()[0]->SetElement(1, XVector2{1, 2}));
}

TEST_F(PolygonMesh, CloneOfADamagedTableTakesNoMoreThanTheTable)
{
    MakeShort(m_Mesh, "ff ff ff ff", "ff ff ff 7f");
    const XPolygonMesh& copy = *XCast<XPolygonMesh>(m_Mesh.Clone());
    const XVertexSet& set = *copy.GetVertexSets()[0];
    EXPECT_EQ(set.GetNumElements(), 0xFFFFFFFFu);
    EXPECT_EQ(set.GetElementSize(), 0x7FFFFFFFu);
    EXPECT_EQ(set.GetElements(), (XRealList{7, 8, 9}));
}

TEST_F(PolygonMesh, DamagedTableIsWrittenInTextByItsFloats)
{
    MakeShort(m_Mesh, "ff ff ff ff", "02 00 00 00");
    const std::string text = TextOf(m_Mesh);
    EXPECT_NE(text.find("\t\tnum_elements 1\n"
                        "\t\telement_size 2\n"
                        "\t\tusage kNormal\n"
                        "\t\tindex_set \"\"\n"
                        "\t\telements\n"
                        "\t\t\t7 8 \n"
                        "\t}\n"),
              std::string::npos);
    EXPECT_EQ(m_Log.Text(), "Warning : vertex set \"uv\" holds 3 floats: written as 1 elements of 2\n");
}

TEST_F(PolygonMesh, CornersThatSetsLackAreCounted)
{
    ASSERT_TRUE(m_Mesh.SetPolygons({3, 4}, {0, 1, 2, 3, 4, 5, 6}));
    EXPECT_EQ(m_Mesh.GetTextPadding(), 0u);
    m_Mesh.AddIndexSet("a")->SetIndices({1, 2});
    m_Mesh.AddIndexSet("b")->SetIndices({1, 2, 3, 4, 5, 6, 7, 8});
    EXPECT_EQ(m_Mesh.GetTextPadding(), 5u);
    m_Mesh.AddVertexSet("c", 9, 0, kNone);
    EXPECT_EQ(m_Mesh.GetTextPadding(), 14u);
}

TEST_F(PolygonMesh, TextOfWhatNoDiskHoldsIsRefused)
{
    ASSERT_TRUE(m_Mesh.SetPolygons({3}, {0, 1, 2}));
    std::ostringstream out;
    EXPECT_EQ(m_Model.Save(out), FileOk);
    const std::string before = out.str();
    m_Mesh.AddVertexSet("lines", 0xFFFFFFFF, 0, kNone);
    out.str("");
    EXPECT_EQ(m_Model.Save(out), FileCorrupt);
    EXPECT_EQ(out.str(), "");
}

}  // namespace
