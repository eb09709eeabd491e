#include "VKT/geometry/PolygonIterator.h"
#include "VKT/support/NodeTest.h"

// Both forms of a polygon mesh.

using namespace VKT;
using namespace VKT::Test;

namespace {

constexpr const char kBase[] =
    "\tpoints 0\n"
    "\tdeformer_queue 0\n"
    "\tintermediate_object 0\n";
const std::string kBody = std::string(kBase) +
                          "\tpoint_index_set \"points\"\n"
                          "\tPOLY_COUNTS 2\n"
                          "\t{\n"
                          "\t\t3\n"
                          "\t\t4\n"
                          "\t}\n"
                          "\tnum_index_sets 2\n"
                          "\tINDEX_SET \"points\"\n"
                          "\t{\n"
                          "\t\t0 1 2 \n"
                          "\t\t2 1 3 4 \n"
                          "\t}\n"
                          "\tINDEX_SET \"a map\"\n"
                          "\t{\n"
                          "\t\t5 -6 7 \n"
                          "\t\t8 9 10 11 \n"
                          "\t}\n"
                          "\tnum_vertex_sets 2\n"
                          "\tVERTEX_SET \"uv\"\n"
                          "\t{\n"
                          "\t\tnum_elements 2\n"
                          "\t\telement_size 2\n"
                          "\t\tusage kTexCoord\n"
                          "\t\tindex_set \"a map\"\n"
                          "\t\telements\n"
                          "\t\t\t0.5 0.25 \n"
                          "\t\t\t-1 1e-05 \n"
                          "\t}\n"
                          "\tVERTEX_SET \"normals\"\n"
                          "\t{\n"
                          "\t\tnum_elements 1\n"
                          "\t\telement_size 3\n"
                          "\t\tusage kNormal\n"
                          "\t\tindex_set \"\"\n"
                          "\t\telements\n"
                          "\t\t\t1 2 3 \n"
                          "\t}\n";

constexpr const char kBytes[] =
    "05 00 6e 6f 64 65 31 01 00 00 00 "  // node1
    "00 00 00 00 00 00 00 00 00 "        // no points, no deformers, no flag
    "06 00 70 6f 69 6e 74 73 "           // the point index set
    "02 00 00 00 03 00 00 00 04 00 00 00 "
    "02 00 00 00 "
    "06 00 70 6f 69 6e 74 73 07 00 00 00 "
    "00 00 00 00 01 00 00 00 02 00 00 00 02 00 00 00 01 00 00 00 03 00 00 00 04 00 00 00 "
    "05 00 61 20 6d 61 70 07 00 00 00 "
    "05 00 00 00 fa ff ff ff 07 00 00 00 08 00 00 00 09 00 00 00 0a 00 00 00 0b 00 00 00 "
    "02 00 00 00 "
    "02 00 75 76 02 00 00 00 02 00 00 00 03 00 00 00 05 00 61 20 6d 61 70 "  // count, size, usage
    "04 00 00 00 00 00 00 3f 00 00 80 3e 00 00 80 bf ac c5 27 37 "
    "07 00 6e 6f 72 6d 61 6c 73 01 00 00 00 03 00 00 00 05 00 00 00 00 00 "
    "03 00 00 00 00 00 80 3f 00 00 00 40 00 00 40 40";

class PolygonMeshText : public NodeTest {
protected:
    XPolygonMesh& New() { return *m_Model.CreateNode<XPolygonMesh>(); }
    XPolygonMesh& m_Mesh = New();
};

TEST_F(PolygonMeshText, FreshOneWritesEmptyBlocksAndReadsThem)
{
    EXPECT_EQ(ChunkOf(m_Mesh),
              "POLYGON_MESH node1\n"
              "{\n"
              "\tid 1\n"
              "\tpoints 0\n"
              "\tdeformer_queue 0\n"
              "\tintermediate_object 0\n"
              "\tpoint_index_set \"none\"\n"
              "\tPOLY_COUNTS 0\n"
              "\t{\n"
              "\t}\n"
              "\tnum_index_sets 0\n"
              "\tnum_vertex_sets 0\n"
              "}\n");
    XPolygonMesh& mesh = New();
    EXPECT_TRUE(ReadText(mesh, TextOf(m_Mesh)));
    EXPECT_EQ(TextOf(mesh), TextOf(m_Mesh));
}

TEST_F(PolygonMeshText, TextReadsBack)
{
    EXPECT_TRUE(ReadText(m_Mesh, kBody));
    EXPECT_EQ(TextOf(m_Mesh), kBody);
    EXPECT_EQ(m_Mesh.GetPointIndexSet(), m_Mesh.GetIndexSets()[0].get());
    EXPECT_EQ(m_Mesh.GetNumPolyIndices(), 7u);
    EXPECT_EQ(m_Mesh.AddIndexSet("new")->GetNumIndices(), 7u);
    EXPECT_EQ(m_Log.Text(), "");
}

TEST_F(PolygonMeshText, BytesStandInTheirOwnOrder)
{
    ASSERT_TRUE(ReadText(m_Mesh, kBody));
    EXPECT_EQ(Hex(BodyOf(m_Mesh)), kBytes);
    EXPECT_EQ(m_Mesh.GetDataSize(), 8 + Bytes(kBytes).size());
    // Base 14 and 5, geometry 9, 14 and the name and the counts, sets of 6 and 20.
    EXPECT_EQ(m_Mesh.GetDataSize(),
              14u + 5 + 9 + (14 + 6 + 4 * 2) + (6 + 6 + 28) + (6 + 5 + 28) + (20 + 7 + 16) + (20 + 7 + 12));
}

TEST_F(PolygonMeshText, BytesReadBackWithoutTheNumberOfCorners)
{
    EXPECT_TRUE(ReadBody(m_Mesh, Bytes(kBytes)));
    EXPECT_EQ(TextOf(m_Mesh), kBody);
    EXPECT_EQ(m_Mesh.GetPointIndexSet(), m_Mesh.GetIndexSets()[0].get());
    EXPECT_EQ(m_Mesh.GetNumPolyIndices(), 0u);
    EXPECT_EQ(m_Mesh.AddIndexSet("new")->GetNumIndices(), 0u);
    EXPECT_TRUE(m_Mesh.GetVertexSets()[0]->SetIndexSet(m_Mesh.FindIndexSet("points")));
}

TEST_F(PolygonMeshText, MeshWithoutPointIndexSetHasAnEmptyNameInBytes)
{
    EXPECT_EQ(Hex(BodyOf(m_Mesh)),
              "05 00 6e 6f 64 65 31 01 00 00 00 00 00 00 00 00 00 00 00 00 "
              "00 00 00 00 00 00 00 00 00 00 00 00 00 00");
}

TEST_F(PolygonMeshText, OlderBodiesDifferInTheFlagOfTheGeometryAlone)
{
    MakeOlder();
    XPolygonMesh& text = New();
    EXPECT_TRUE(ReadText(text, Replaced(kBody, "\tintermediate_object 0\n", "")));
    EXPECT_EQ(TextOf(text), kBody);
    XPolygonMesh& bytes = New();
    EXPECT_TRUE(ReadBody(bytes, Bytes(kBytes)));
    EXPECT_EQ(TextOf(bytes), kBody);
}

TEST_F(PolygonMeshText, BytesAppendToSetsThatAreThere)
{
    m_Mesh.AddIndexSet("first");
    EXPECT_TRUE(ReadBody(m_Mesh, Bytes(kBytes)));
    ASSERT_EQ(m_Mesh.GetIndexSets().size(), 3u);
    EXPECT_EQ(m_Mesh.GetIndexSets()[0]->GetName(), "first");
}

TEST_F(PolygonMeshText, OfEqualNamesTextTakesTheLastAndBytesTheFirst)
{
    ASSERT_TRUE(ReadText(m_Mesh, Replaced(kBody, "INDEX_SET \"a map\"", "INDEX_SET \"points\"")));
    EXPECT_EQ(m_Mesh.GetPointIndexSet(), m_Mesh.GetIndexSets()[1].get());
    XPolygonMesh& other = New();
    ASSERT_TRUE(ReadBody(other, BodyOf(m_Mesh)));
    EXPECT_EQ(other.GetPointIndexSet(), other.GetIndexSets()[0].get());
}

TEST_F(PolygonMeshText, NameNoneIsNoNameUnlessASetHasIt)
{
    ASSERT_TRUE(ReadText(m_Mesh, Replaced(kBody, "point_index_set \"points\"", "point_index_set \"none\"")));
    EXPECT_EQ(m_Mesh.GetPointIndexSet(), nullptr);
    XPolygonMesh& other = New();
    ASSERT_TRUE(
        ReadText(other, Replaced(Replaced(kBody, "\"points\"", "\"none\""), "\"a map\"", "\"none\"")));
    EXPECT_EQ(other.GetPointIndexSet(), other.GetIndexSets()[1].get());
}

TEST_F(PolygonMeshText, UsagesHaveTheirWords)
{
    const char* const words[] = {"kNone",   "kVertex",   "kFogCoord", "kTexCoord", "kColour",
                                 "kNormal", "kBiNormal", "kTangent",  "kTBN",      "kNone"};
    for (u32 usage = 0; usage < std::size(words); ++usage) {
        XPolygonMesh& mesh = New();
        mesh.AddVertexSet("set", 0, 1, usage);
        const std::string text = TextOf(mesh);
        EXPECT_NE(text.find(std::string("\t\tusage ") + words[usage] + "\n"), std::string::npos);
        XPolygonMesh& other = New();
        ASSERT_TRUE(ReadText(other, text));
        EXPECT_EQ(other.GetVertexSets()[0]->GetUsage(), usage % 9);
    }
}

TEST_F(PolygonMeshText, BiTangentReadsAsBiNormalAndOtherWordsAsNone)
{
    ASSERT_TRUE(ReadText(m_Mesh, Replaced(Replaced(kBody, "kTexCoord", "kBiTangent"), "kNormal", "knormal")));
    EXPECT_EQ(m_Mesh.GetVertexSets()[0]->GetUsage(), kBiNormal);
    EXPECT_EQ(m_Mesh.GetVertexSets()[1]->GetUsage(), kNone);
    EXPECT_NE(TextOf(m_Mesh).find("usage kBiNormal\n"), std::string::npos);
}

TEST_F(PolygonMeshText, ShortIndexSetsArePaddedWithZeroAndLongOnesCut)
{
    ASSERT_TRUE(m_Mesh.SetPolygons({3, 3}, {1, 2, 3, 4, 5, 6}));
    m_Mesh.GetPointIndexSet()->SetIndices({1, 2, 3, 4});
    m_Mesh.AddIndexSet("long")->SetIndices({1, 2, 3, 4, 5, 6, 7});
    const std::string text = TextOf(m_Mesh);
    EXPECT_NE(text.find("\"points\"\n\t{\n\t\t1 2 3 \n\t\t4 0 0 \n\t}\n"), std::string::npos);
    EXPECT_NE(text.find("\"long\"\n\t{\n\t\t1 2 3 \n\t\t4 5 6 \n\t}\n"), std::string::npos);
}

TEST_F(PolygonMeshText, EqualPolygonsAreWrittenLikeAnyOthers)
{
    ASSERT_TRUE(m_Mesh.SetPolygons({3, 3}, {1, 2, 3, 4, 5, 6}));
    EXPECT_NE(TextOf(m_Mesh).find("\t{\n\t\t1 2 3 \n\t\t4 5 6 \n\t}\n"), std::string::npos);
}

// Counts of damaged binary files.
TEST_F(PolygonMeshText, PolygonsWithoutCornersHaveTheirLines)
{
    for (const char* second : {"00", "03"}) {
        XPolygonMesh& mesh = New();
        mesh.AddIndexSet("points");
        std::string bytes = Hex(BodyOf(mesh));
        bytes = Replaced(bytes, "00 00 00 00 00 01 00 00 00 06 00",
                         std::string("00 02 00 00 00 00 00 00 00 ") + second + " 00 00 00 01 00 00 00 06 00");
        mesh.Clear();
        ASSERT_TRUE(ReadBody(mesh, Bytes(bytes)));
        EXPECT_NE(
            TextOf(mesh).find(second[1] == '0' ? "\t{\n\t\t\n\t\t\n\t}\n" : "\t{\n\t\t\n\t\t0 0 0 \n\t}\n"),
            std::string::npos);
    }
}

TEST_F(PolygonMeshText, ElementsWithoutFloatsHaveTheirLines)
{
    m_Mesh.AddVertexSet("set", 2, 0, kNone);
    const std::string text = TextOf(m_Mesh);
    EXPECT_NE(text.find("\t\telements\n\t\t\t\n\t\t\t\n\t}\n"), std::string::npos);
    XPolygonMesh& other = New();
    EXPECT_TRUE(ReadText(other, text));
    EXPECT_EQ(TextOf(other), text);
}

TEST_F(PolygonMeshText, PolygonWithTwoSidesFails)
{
    EXPECT_FALSE(ReadText(m_Mesh, Replaced(kBody, "\t\t3\n\t\t4\n", "\t\t3\n\t\t2\n")));
    EXPECT_EQ(m_Log.Text(), "Error : Poly count data contains a poly with less than 3 sides!\n");
}

// A count that is no number reads as 0.
TEST_F(PolygonMeshText, PolygonCountsThatDoNotComeFailLikeOnesWithoutSides)
{
    for (const char* count : {"POLY_COUNTS 3", "POLY_COUNTS 4294967295"}) {
        m_Log.Clear();
        EXPECT_FALSE(ReadText(New(), Replaced(kBody, "POLY_COUNTS 2", count)));
        EXPECT_EQ(m_Log.Text(), "Error : Poly count data contains a poly with less than 3 sides!\n");
    }
}

TEST_F(PolygonMeshText, MoreCornersThanAMeshCanHaveFail)
{
    EXPECT_FALSE(ReadText(m_Mesh, Replaced(kBody, "\t\t3\n", "\t\t4294967295\n")));
    EXPECT_EQ(m_Log.Text(), "Error : Poly count data claims more corners than a mesh can have\n");
}

TEST_F(PolygonMeshText, WrongKeysAreLogged)
{
    const struct {
        const char* key;
        const char* with;
        const char* message;
    } cases[] = {
        {"intermediate_object 0", "intermediate_object x",
         "point_index_set got  [.\\src\\VKT\\PolygonMesh:1]"},
        {"point_index_set", "Wrong", "point_index_set got wrong [.\\src\\VKT\\PolygonMesh:1]"},
        {"POLY_COUNTS", "Wrong", "POLY_COUNTS got wrong [.\\src\\VKT\\PolygonMesh:2]"},
        {"POLY_COUNTS 2\n\t{", "POLY_COUNTS 2\n\t[", "{ got [ [.\\src\\VKT\\PolygonMesh:3]"},
        {"\t\t4\n\t}", "\t\t4\n\t]", "} got ] [.\\src\\VKT\\PolygonMesh:4]"},
        {"num_index_sets", "Wrong", "num_index_sets got wrong [.\\src\\VKT\\PolygonMesh:5]"},
        {"INDEX_SET", "Wrong", "INDEX_SET got wrong [.\\src\\VKT\\PolygonMesh:6]"},
        {"\"a map\"\n\t{", "\"a map\"\n\t[", "{ got [ [.\\src\\VKT\\PolygonMesh:7]"},
        {"11 \n\t}", "11 \n\t]", "} got ] [.\\src\\VKT\\PolygonMesh:8]"},
        {"num_vertex_sets", "Wrong", "num_vertex_sets got wrong [.\\src\\VKT\\PolygonMesh:6]"},
        {"VERTEX_SET", "Wrong", "VERTEX_SET got wrong [.\\src\\VKT\\PolygonMesh:7]"},
        {"\"uv\"\n\t{", "\"uv\"\n\t[", "{ got [ [.\\src\\VKT\\PolygonMesh:8]"},
        {"num_elements", "Wrong", "num_elements got wrong [.\\src\\VKT\\PolygonMesh:9]"},
        {"element_size", "Wrong", "element_size got wrong [.\\src\\VKT\\PolygonMesh:10]"},
        {"usage", "Wrong", "usage got wrong [.\\src\\VKT\\PolygonMesh:11]"},
        {"index_set \"a", "Wrong \"a", "index_set got wrong [.\\src\\VKT\\PolygonMesh:12]"},
        {"\t\telements", "\t\tWrong", "elements got wrong [.\\src\\VKT\\PolygonMesh:13]"},
        {"1e-05 \n\t}", "1e-05 \n\t]", "} got ] [.\\src\\VKT\\PolygonMesh:14]"},
    };
    for (const auto& [key, with, message] : cases) {
        m_Log.Clear();
        EXPECT_FALSE(ReadText(New(), Replaced(kBody, key, with))) << key;
        EXPECT_EQ(m_Log.Text(), std::string("Error : Expected ") + message + "\n");
    }
}

TEST_F(PolygonMeshText, SetsReadBeforeAFailureStay)
{
    EXPECT_FALSE(ReadText(m_Mesh, Replaced(kBody, "num_vertex_sets", "Wrong")));
    EXPECT_EQ(m_Mesh.GetIndexSets().size(), 2u);
    EXPECT_EQ(m_Mesh.GetPointIndexSet(), m_Mesh.GetIndexSets()[0].get());
}

TEST_F(PolygonMeshText, ClaimsThatCannotBeTrueTakeNoMemory)
{
    for (const char* count : {"num_index_sets 2", "num_elements 2", "num_vertex_sets 2"})
        EXPECT_FALSE(ReadText(New(), Replaced(kBody, count, std::string(count) + "147483647"))) << count;
    // The product of both wraps in 32 bits.
    EXPECT_FALSE(ReadText(New(), Replaced(kBody, "num_elements 2\n\t\telement_size 2",
                                          "num_elements 2147483648\n\t\telement_size 2")));
    for (const char* count : {"02 00 00 00 03 00 00 00 04", "02 00 00 00 06", "07 00 00 00 00",
                              "02 00 00 00 02 00 75", "04 00 00 00 00 00 00 3f"})
        EXPECT_FALSE(
            ReadBody(New(), Bytes(Replaced(kBytes, count, "ff ff ff ff" + std::string(count + 11)))));
}

TEST_F(PolygonMeshText, EveryCutFails)
{
    const std::string bytes = Bytes(kBytes);
    for (std::size_t length = 0; length < bytes.size(); ++length)
        EXPECT_FALSE(ReadBody(New(), bytes.substr(0, length))) << length;
    for (std::size_t length = 0; length + 3 < kBody.size(); ++length)
        EXPECT_FALSE(ReadText(New(), kBody.substr(0, length))) << length;
}

TEST_F(PolygonMeshText, UnquotedNameLosesItsFirstLetterAndRunsToTheNextQuote)
{
    EXPECT_FALSE(ReadText(m_Mesh, Replaced(kBody, "INDEX_SET \"points\"", "INDEX_SET points")));
    EXPECT_EQ(m_Log.Text(), "Error : Expected { got a [.\\src\\VKT\\PolygonMesh:7]\n");
}

TEST_F(PolygonMeshText, NamesMayHoldLineEnds)
{
    m_Mesh.AddIndexSet("two\nlines");
    XPolygonMesh& other = New();
    EXPECT_TRUE(ReadText(other, TextOf(m_Mesh)));
    EXPECT_EQ(other.GetIndexSets()[0]->GetName(), "two\nlines");
}

TEST(VertexUsage, EachHasANameAndOtherNumbersHaveThatOfNone)
{
    EXPECT_STREQ(XVertexUsageName(kVertex), "vertex");
    EXPECT_STREQ(XVertexUsageName(kTexCoord), "texCoord");
    EXPECT_STREQ(XVertexUsageName(kTBN), "tbn");
    EXPECT_STREQ(XVertexUsageName(kNone), "none");
    EXPECT_STREQ(XVertexUsageName(kTBN + 1), "none");
}

}  // namespace
