#include "VKT/deformers/SkinCluster.h"

#include <limits>

#include "VKT/geometry/PolygonMesh.h"
#include "VKT/hierarchy/Bone.h"
#include "VKT/support/AllocationMeter.h"
#include "VKT/support/EachReader.h"
#include "VKT/support/NodeTest.h"

using namespace VKT;
using namespace VKT::Test;

namespace {

class SkinCluster : public NodeTest {
protected:
    XSkinCluster& New() { return *m_Model.CreateNode<XSkinCluster>(); }
    // The weights of a skin that read as `lines`, one line for each point.
    static std::string TextWith(u32 points, const std::string& lines)
    {
        return "affected 1 2 envelope_weight 1 num_influences 2 3 4 num_points " + std::to_string(points) +
               "\n\tweights\n" + lines;
    }
    static std::string WeightsOf(const XSkinCluster& skin)
    {
        const std::string text = TextOf(skin);
        return text.substr(text.find("\tweights\n") + 9);
    }

    XSkinCluster& m_Skin = New();
    XPolygonMesh& m_Mesh = *m_Model.CreateNode<XPolygonMesh>();
    XBone& m_Hip = *m_Model.CreateNode<XBone>();
    XBone& m_Knee = *m_Model.CreateNode<XBone>();
    XBone& m_Foot = *m_Model.CreateNode<XBone>();
};

constexpr const char kText[] =
    "\taffected 1 2\n"
    "\tenvelope_weight 0.5\n"
    "\tnum_influences 3\n"
    "\t\t3 4 5 \n"  // the blank behind the last id is part of the form
    "\tnum_points 3\n"
    "\tweights\n"
    "\t\t2\t 0 0.25 2 0.75\n"
    "\t\t0\t\n"
    "\t\t1\t 1 1\n";
// Here the weight stands in front of the influence.
constexpr const char kBytes[] =
    "05 00 6e 6f 64 65 31 01 00 00 00 "
    "01 00 00 00 02 00 00 00 00 00 00 3f "
    "03 00 00 00 03 00 00 00 04 00 00 00 05 00 00 00 "
    "03 00 00 00 "
    "02 00 00 00 00 00 80 3e 00 00 00 00 00 00 40 3f 02 00 00 00 "
    "00 00 00 00 "
    "01 00 00 00 00 00 80 3f 01 00 00 00";

TEST_F(SkinCluster, FreshOneWritesItsDefaults)
{
    EXPECT_EQ(ChunkOf(m_Skin),
              "SKIN node1\n"
              "{\n"
              "\tid 1\n"
              "\taffected 0 \n"
              "\tenvelope_weight 1\n"
              "\tnum_influences 0\n"
              "\t\t\n"
              "\tnum_points 0\n"
              "\tweights\n"
              "}\n");
    EXPECT_EQ(Hex(BodyOf(m_Skin)),
              "05 00 6e 6f 64 65 31 01 00 00 00 00 00 00 00 00 00 80 3f 00 00 00 00 00 00 00 00");
    EXPECT_EQ(m_Skin.GetDataSize(), 14u + 5 + 8 + 8);
    EXPECT_EQ(m_Skin.GetApiType(), 119u);
    EXPECT_EQ(m_Skin.HasFn(119), &m_Skin);
    EXPECT_EQ(m_Skin.HasFn(114), &m_Skin);
    EXPECT_EQ(m_Skin.HasFn(116), nullptr);
}

TEST_F(SkinCluster, BothFormsReadBack)
{
    EXPECT_TRUE(ReadText(m_Skin, kText));
    EXPECT_EQ(TextOf(m_Skin), kText);
    EXPECT_EQ(Hex(BodyOf(m_Skin)), kBytes);
    EXPECT_EQ(m_Skin.GetDataSize(), 14u + 5 + 8 + 4 + 8 + 4 * 3 + 4 * 3 + 8 * 3);
    XSkinCluster& other = New();
    EXPECT_TRUE(ReadBody(other, Bytes(kBytes)));
    EXPECT_EQ(TextOf(other), kText);
    EXPECT_TRUE(ReadBody(other, Bytes(kBytes)));  // a read replaces what was there
    EXPECT_TRUE(ReadText(other, kText));
    EXPECT_EQ(TextOf(other), kText);
    EXPECT_EQ(m_Log.Text(), "");
}

TEST_F(SkinCluster, OnlyTheWeightOfTheDeformerIsGated)
{
    MakeOlder();
    XSkinCluster& text = New();
    EXPECT_TRUE(ReadText(text, Replaced(kText, "\tenvelope_weight 0.5\n", "")));
    EXPECT_EQ(TextOf(text), Replaced(kText, "weight 0.5", "weight 1"));
    XSkinCluster& bytes = New();
    const std::string older = Replaced(kBytes, "00 00 00 3f ", "");
    EXPECT_TRUE(ReadBody(bytes, Bytes(older)));
    EXPECT_EQ(TextOf(bytes), Replaced(kText, "weight 0.5", "weight 1"));
    EXPECT_EQ(Hex(BodyOf(bytes)), older);
}

TEST_F(SkinCluster, BothFormsNameTheInfluencesAsNodes)
{
    ASSERT_TRUE(ReadText(m_Skin, kText));
    std::set<u32> named;
    XTextWriter out;
    out.Describe([&](u32 id) {
        named.insert(id);
        return XString("x");
    });
    m_Skin.WriteChunk(out);
    EXPECT_EQ(named, (std::set<u32>{2, 3, 4, 5}));
    XIndexList referred;
    XFileIO references = XFileIO::Listing(referred);
    m_Skin.DoData(references);
    EXPECT_EQ(referred, (XIndexList{2, 3, 4, 5}));
}

TEST_F(SkinCluster, WrongKeysAreLogged)
{
    EXPECT_FALSE(ReadText(New(), Replaced(kText, "num_influences", "influences")));
    EXPECT_FALSE(ReadText(New(), Replaced(kText, "num_points", "points")));
    EXPECT_FALSE(ReadText(New(), Replaced(kText, "\tweights", "\tshares")));
    EXPECT_EQ(m_Log.Text(),
              "Error : Expected num_influences got influences [.\\src\\VKT\\SkinCluster:1]\n"
              "Error : Expected num_points got points [.\\src\\VKT\\SkinCluster:2]\n"
              "Error : Expected weights got shares [.\\src\\VKT\\SkinCluster:3]\n");
}

TEST_F(SkinCluster, TextWeightsAreRepaired)
{
    EXPECT_TRUE(ReadText(m_Skin, TextWith(5,
                                          "\t\t2\t 0 0.2 1 0.2\n"
                                          "\t\t2\t 0 0.4999 1 0.5\n"
                                          "\t\t1\t 1 4\n"
                                          "\t\t0\t\n"
                                          "\t\t2\t 0 0.5 1 -1\n")));
    EXPECT_EQ(WeightsOf(m_Skin),
              "\t\t2\t 0 0.5 1 0.5\n"
              "\t\t2\t 0 0.49995 1 0.50005\n"
              "\t\t1\t 1 1\n"
              "\t\t0\t\n"
              "\t\t2\t 0 -1 1 2\n");
    EXPECT_EQ(m_Log.Text(), "");
}

TEST_F(SkinCluster, SumsCloseToOneAndSumsOfZeroStay)
{
    const std::string weights =
        "\t\t2\t 0 0.499995 1 0.5\n"
        "\t\t2\t 0 0.500005 1 0.5\n"
        "\t\t1\t 0 0.99999\n"
        "\t\t1\t 0 1.00001\n"
        "\t\t2\t 0 0.5 1 -0.5\n"
        "\t\t1\t 1 0\n";
    EXPECT_TRUE(ReadText(m_Skin, TextWith(6, weights)));
    EXPECT_EQ(WeightsOf(m_Skin), weights);
    XU32Array bad;
    EXPECT_FALSE(m_Skin.CheckWeights(bad));
    EXPECT_EQ(bad, (XU32Array{4, 5}));
    EXPECT_TRUE(ReadText(m_Skin, TextWith(2, "1 0 0.99998 1 0 1.00002")));
    EXPECT_EQ(WeightsOf(m_Skin), "\t\t1\t 0 1\n\t\t1\t 0 1\n");
}

TEST_F(SkinCluster, BinaryWeightsAreNotRepaired)
{
    m_Skin.SetInfluences({&m_Hip, &m_Knee});
    m_Skin.GetWeights().Resize(4);
    m_Skin.SetWeight(0, 0, 0.2f);
    m_Skin.SetWeight(0, 1, 0.2f);
    m_Skin.SetWeight(1, 0, 0.999995f);
    m_Skin.SetWeight(2, 1, 1.000005f);
    m_Skin.SetWeight(3, 1, 0.9999f);
    const std::string bytes = BodyOf(m_Skin);
    XSkinCluster& other = New();
    EXPECT_TRUE(ReadBody(other, bytes));
    EXPECT_EQ(BodyOf(other), bytes);
}

TEST_F(SkinCluster, CheckNamesPointsOfWrongSumsAndEmptyOnes)
{
    m_Skin.SetInfluences({&m_Hip});
    m_Skin.GetWeights().Resize(6);
    m_Skin.SetWeight(0, 0, 1);
    m_Skin.SetWeight(1, 0, 0.9999f);
    m_Skin.SetWeight(2, 0, 1.00001f);
    m_Skin.SetWeight(3, 0, 1.0001f);
    m_Skin.SetWeight(4, 0, std::numeric_limits<f32>::quiet_NaN());
    XU32Array bad;
    EXPECT_FALSE(m_Skin.CheckWeights(bad));
    EXPECT_EQ(bad, (XU32Array{1, 3, 4, 5}));
    m_Skin.GetWeights().Resize(1);
    EXPECT_FALSE(m_Skin.CheckWeights(bad));  // appends to what is there
    EXPECT_EQ(bad.size(), 4u);
    bad.clear();
    EXPECT_TRUE(m_Skin.CheckWeights(bad));
}

TEST_F(SkinCluster, TextClaimsThatCannotBeTrueFail)
{
    static constexpr struct {
        const char* count;
        const char* claim;
    } kClaims[] = {
        {"num_influences 3", "num_influences 4294967295"},
        {"num_points 3", "num_points 4294967295"},
        {"\t\t2\t", "\t\t4294967295\t"},
    };
    for (const auto& [count, claim] : kClaims) {
        const std::string text = Replaced(kText, count, claim);
        WithEachReader(text, [&](XTextReader& in) {
            XSkinCluster& skin = New();
            const AllocationMeter meter;
            EXPECT_FALSE(skin.ReadChunk(in));
            EXPECT_LT(meter.Peak(), std::size_t{32} << 20);  // even where the length is unknown
        });
    }
    EXPECT_FALSE(ReadText(New(), Replaced(kText, "0.25", "light")));
    EXPECT_FALSE(ReadText(New(), Replaced(kText, "num_points 3", "num_points 4")));
}

TEST_F(SkinCluster, BinaryClaimsThatCannotBeTrueFail)
{
    const std::string bytes = Bytes(kBytes);
    for (const std::size_t at : {23, 39, 43}) {  // influences, points, weights of the first point
        std::string claim = bytes;
        claim.replace(at, 4, "\xff\xff\xff\xff");
        XSkinCluster& skin = New();
        m_Log.Clear();
        const AllocationMeter meter;
        EXPECT_FALSE(ReadBody(skin, claim)) << at;
        EXPECT_LT(meter.Peak(), std::size_t{1} << 20) << at;
        EXPECT_NE(m_Log.Text().find("XFileIO::DoData : expected to read/write "), std::string::npos);
    }
    for (std::size_t length = 0; length < bytes.size(); ++length)
        EXPECT_FALSE(ReadBody(New(), bytes.substr(0, length))) << length;
}

TEST_F(SkinCluster, ManyWeightsTakeLittleMoreThanTheirBytes)
{
    constexpr u32 kPoints = 100000;
    std::string bytes = Bytes("00 00 00 00 00 00 00 00 00 00 00 00 80 3f 00 00 00 00 a0 86 01 00");
    for (u32 point = 0; point < kPoints; ++point)
        bytes += Bytes("02 00 00 00 00 00 00 3f 00 00 00 00 00 00 00 3f 01 00 00 00");
    const TempFile file(".bin", bytes);
    XFileIO in(file.Path(), true);
    const AllocationMeter meter;
    EXPECT_TRUE(m_Skin.DoData(in));
    EXPECT_LT(meter.Peak(), kPoints * (16 + 2 * 8) + (std::size_t{2} << 20));
    EXPECT_EQ(m_Skin.GetWeights().GetNumPoints(), kPoints);
    EXPECT_EQ(m_Skin.GetWeights()[kPoints - 1][1], (XBoneWeight{0.5f, 1}));
    EXPECT_TRUE(BodyOf(m_Skin) == bytes);
}

TEST_F(SkinCluster, LongListsReadPieceByPiece)
{
    std::string lines = "\t\t10000\t";
    for (u32 i = 0; i < 10000; ++i)
        lines += std::to_string(i) + " 0.0001 ";
    EXPECT_TRUE(ReadText(m_Skin, TextWith(1, lines)));
    ASSERT_EQ(m_Skin.GetWeights()[0].size(), 10000u);
    EXPECT_EQ(m_Skin.GetWeights()[0][9999].m_Influence, 9999u);
    XSkinCluster& other = New();
    EXPECT_TRUE(ReadBody(other, BodyOf(m_Skin)));
    EXPECT_EQ(TextOf(other), TextOf(m_Skin));
}

TEST_F(SkinCluster, InfluencesAreBonesOfTheDocument)
{
    ASSERT_TRUE(ReadText(m_Skin, Replaced(kText, "\t\t3 4 5 ", "\t\t99 4 2 ")));  // 2 is the mesh
    EXPECT_EQ(m_Skin.GetNumInfluences(), 3u);
    EXPECT_EQ(m_Skin.GetInfluence(0), nullptr);
    EXPECT_EQ(m_Skin.GetInfluence(1), &m_Knee);
    EXPECT_EQ(m_Skin.GetInfluence(2), nullptr);
    EXPECT_EQ(m_Skin.GetInfluence(3), nullptr);
    XBoneList bones{&m_Hip};
    m_Skin.GetInfluences(bones);
    EXPECT_EQ(bones, (XBoneList{&m_Knee}));
}

TEST_F(SkinCluster, WeightsFollowTheirBonesToNewInfluences)
{
    ASSERT_TRUE(ReadText(m_Skin, TextWith(2, "2 0 0.25 1 0.75 2 1 0.5 7 0.5")));
    m_Skin.SetInfluences({&m_Foot, nullptr, &m_Knee, &m_Hip, &m_Knee});
    EXPECT_EQ(m_Skin.GetNumInfluences(), 4u);
    EXPECT_EQ(m_Skin.GetInfluence(1), &m_Knee);
    EXPECT_EQ(WeightsOf(m_Skin), "\t\t2\t 2 0.25 1 0.75\n\t\t2\t 1 0.5 0 0.5\n");  // 7 was none
    m_Skin.SetInfluences({&m_Knee, &m_Foot});  // the hip's go to the first
    EXPECT_EQ(WeightsOf(m_Skin), "\t\t2\t 0 0.25 0 0.75\n\t\t2\t 0 0.5 1 0.5\n");
    m_Skin.SetInfluences({});
    EXPECT_EQ(m_Skin.GetNumInfluences(), 0u);
    EXPECT_EQ(WeightsOf(m_Skin), "\t\t2\t 0 0.25 0 0.75\n\t\t2\t 0 0.5 0 0.5\n");
}

TEST_F(SkinCluster, WeightsAreSetWherePointAndInfluenceAre)
{
    m_Skin.GetWeights().Resize(2);
    EXPECT_FALSE(m_Skin.SetWeight(0, 0, 1));  // no influences
    m_Skin.SetInfluences({&m_Hip, &m_Knee});
    EXPECT_FALSE(m_Skin.SetWeight(0, 2, 1));
    EXPECT_FALSE(m_Skin.SetWeight(2, 0, 1));
    EXPECT_TRUE(m_Skin.SetWeight(0, 1, 0.5f));
    EXPECT_TRUE(m_Skin.SetWeight(1, 0, 1));
    EXPECT_TRUE(m_Skin.SetWeight(0, 0, 0.25f));
    EXPECT_TRUE(m_Skin.SetWeight(0, 1, 0.75f));  // in its place
    EXPECT_EQ(WeightsOf(m_Skin), "\t\t2\t 1 0.75 0 0.25\n\t\t1\t 0 1\n");
    EXPECT_EQ(m_Log.Text(), "");
}

TEST_F(SkinCluster, WeightsFollowThePointsOfTheLastGeometryAffected)
{
    m_Mesh.SetPoints(XVector3Array(10, XVector3{}));
    XPolygonMesh& second = *m_Model.CreateNode<XPolygonMesh>();
    second.SetPoints(XVector3Array(4, XVector3{}));
    EXPECT_FALSE(m_Skin.SetAffected(nullptr));
    EXPECT_TRUE(m_Skin.SetAffected(&m_Mesh));
    EXPECT_EQ(WeightsOf(m_Skin).size(), 10 * std::string("\t\t0\t\n").size());
    m_Skin.SetInfluences({&m_Hip});
    m_Skin.SetWeight(3, 0, 0.5f);
    m_Skin.SetWeight(4, 0, 0.5f);
    EXPECT_TRUE(m_Skin.SetAffected(&second));
    EXPECT_EQ(WeightsOf(m_Skin), "\t\t0\t\n\t\t0\t\n\t\t0\t\n\t\t1\t 0 0.5\n");
    EXPECT_EQ(m_Log.Text(), "");
    EXPECT_FALSE(m_Skin.SetAffected(&m_Mesh));
    EXPECT_EQ(m_Log.Text(),
              "Warning : XSkinCluster::SetAffected: adding geometry that is already affected\n");
    EXPECT_EQ(m_Skin.GetNumAffected(), 2u);
    EXPECT_EQ(m_Skin.GetWeights().GetNumPoints(), 4u);
}

TEST_F(SkinCluster, DeathOfABoneLeavesTheNumbersOfTheOthers)
{
    ASSERT_TRUE(ReadText(m_Skin, Replaced(kText, "\t\t3 4 5 ", "\t\t3 4 3 ")));
    EXPECT_TRUE(m_Skin.NodeDeath(3));  // the first entry alone
    EXPECT_TRUE(m_Skin.NodeDeath(99));
    EXPECT_EQ(TextOf(m_Skin), Replaced(kText, "influences 3\n\t\t3 4 5 ", "influences 2\n\t\t4 3 "));
    EXPECT_FALSE(m_Skin.NodeDeath(m_Mesh.GetID()));
}

TEST_F(SkinCluster, DocumentTellsOfDeadBonesAndTheSkinGoesWithItsGeometry)
{
    ASSERT_TRUE(ReadText(m_Skin, kText));
    std::set<u32> ids;
    m_Skin.PreDelete(ids);
    EXPECT_TRUE(ids.empty());
    m_Model.DeleteNode(m_Knee.GetID());
    EXPECT_EQ(TextOf(m_Skin), Replaced(kText, "influences 3\n\t\t3 4 5 ", "influences 2\n\t\t3 5 "));
    const u32 id = m_Skin.GetID();
    m_Model.DeleteNode(m_Mesh.GetID());
    EXPECT_EQ(m_Model.FindNode(id), nullptr);
}

TEST_F(SkinCluster, CopyHasWeightsOfItsOwn)
{
    ASSERT_TRUE(ReadText(m_Skin, kText));
    XSkinCluster& copy = *XCast<XSkinCluster>(m_Skin.Clone());
    EXPECT_EQ(TextOf(copy), kText);
    copy.SetWeight(1, 0, 0.5f);
    copy.SetWeight(0, 0, 0.5f);
    EXPECT_EQ(TextOf(m_Skin), kText);
    m_Skin.DoCopy(&m_Skin);
    m_Skin.DoCopy(&m_Mesh);
    EXPECT_EQ(TextOf(m_Skin), kText);
    copy.DoCopy(&m_Skin);
    EXPECT_EQ(TextOf(copy), kText);
}

TEST_F(SkinCluster, VocabularyHasWeightsAsThreeLists)
{
    const XNodeProperties& properties = *m_Skin.GetNodeProperties();
    EXPECT_EQ(properties.GetNumProperties(), 7u);
    EXPECT_EQ(properties.GetPropertyType(3), kPropertyNodeArray);
    EXPECT_EQ(properties.GetPropertyNodeType(3), 0x56u);
    EXPECT_EQ(properties.GetPropertyType(4), kPropertyNode);
    EXPECT_EQ(properties.GetPropertyNodeType(4), 0x1Au);
    EXPECT_EQ(properties.GetPropertyType(5), kPropertyIntegerArray);
    EXPECT_EQ(properties.GetPropertyType(6), kPropertyFloatArray);
    EXPECT_EQ(properties.GetPropertyType(7), kPropertyIntegerArray);
    for (u32 id = 3; id <= 7; ++id)
        EXPECT_EQ(properties.GetPropertyFlags(id), 0u) << id;
    // The skin's own `affected` stands in front of that of all deformers.
    EXPECT_EQ(properties.GetPropertyId("affected"), 4u);
    EXPECT_EQ(properties.GetPropertyName(1), "affected");

    ASSERT_TRUE(ReadText(m_Skin, kText));
    XNodeList influences;
    XBase* affected = nullptr;
    XIntList points, joints;
    XFloatArray weights;
    EXPECT_TRUE(properties.GetNodeArray(&m_Skin, 3, influences));
    EXPECT_TRUE(properties.GetNode(&m_Skin, 4, affected));
    EXPECT_TRUE(properties.GetIntegerArray(&m_Skin, 5, points));
    EXPECT_TRUE(properties.GetFloatArray(&m_Skin, 6, weights));
    EXPECT_TRUE(properties.GetIntegerArray(&m_Skin, 7, joints));
    EXPECT_EQ(influences, (XNodeList{&m_Hip, &m_Knee, &m_Foot}));
    EXPECT_EQ(affected, &m_Mesh);
    EXPECT_EQ(points, (XIntList{0, 0, 2}));
    EXPECT_EQ(weights, (XFloatArray{0.25f, 0.75f, 1}));
    EXPECT_EQ(joints, (XIntList{0, 2, 1}));

    m_Mesh.SetPoints(XVector3Array(3, XVector3{}));
    XSkinCluster& other = New();
    EXPECT_TRUE(properties.SetNodeArray(&other, 3, influences));
    EXPECT_TRUE(properties.SetNode(&other, 4, affected));
    EXPECT_TRUE(properties.SetIntegerArray(&other, 5, points));
    EXPECT_EQ(WeightsOf(other), "\t\t2\t 0 0 0 0\n\t\t0\t\n\t\t1\t 0 0\n");
    EXPECT_TRUE(properties.SetFloatArray(&other, 6, weights));
    EXPECT_TRUE(properties.SetIntegerArray(&other, 7, joints));
    EXPECT_TRUE(properties.SetFloat(&other, 2, 0.5f));
    EXPECT_EQ(TextOf(other), kText);
    // Weights keep their place in the lists when the points are others.
    EXPECT_TRUE(properties.SetIntegerArray(&other, 5, {1, 2, 2, 2}));
    EXPECT_EQ(WeightsOf(other), "\t\t0\t\n\t\t1\t 0 0.25\n\t\t3\t 2 0.75 1 1 0 0\n");
}

TEST_F(SkinCluster, VocabularyRefusesWhatDoesNotFit)
{
    const XNodeProperties& properties = *m_Skin.GetNodeProperties();
    ASSERT_TRUE(ReadText(m_Skin, kText));
    XModel other;
    XBase* const foreign = other.CreateNode<XBone>();
    EXPECT_FALSE(properties.SetNodeArray(&m_Skin, 3, {&m_Hip, &m_Mesh}));
    EXPECT_FALSE(properties.SetNodeArray(&m_Skin, 3, {foreign}));
    EXPECT_FALSE(properties.SetNode(&m_Skin, 4, nullptr));
    EXPECT_FALSE(properties.SetNode(&m_Skin, 4, &m_Hip));
    EXPECT_FALSE(properties.SetIntegerArray(&m_Skin, 5, {0, 3}));
    EXPECT_FALSE(properties.SetIntegerArray(&m_Skin, 5, {-1, 0}));
    EXPECT_FALSE(properties.SetIntegerArray(&m_Skin, 5, {1, 0}));
    EXPECT_FALSE(properties.SetFloatArray(&m_Skin, 6, {1, 1}));
    EXPECT_FALSE(properties.SetIntegerArray(&m_Skin, 7, {0, 1}));
    EXPECT_FALSE(properties.SetIntegerArray(&m_Skin, 7, {0, 1, 3}));
    EXPECT_FALSE(properties.SetIntegerArray(&m_Skin, 7, {0, 1, -1}));
    EXPECT_EQ(TextOf(m_Skin), kText);
    EXPECT_EQ(m_Log.Text(), "");
}

TEST_F(SkinCluster, VocabularyKeepsThePlaceOfALostInfluence)
{
    ASSERT_TRUE(ReadText(m_Skin, Replaced(kText, "\t\t3 4 5 ", "\t\t3 99 5 ")));
    XNodeList influences;
    EXPECT_TRUE(m_Skin.GetNodeProperties()->GetNodeArray(&m_Skin, 3, influences));
    EXPECT_EQ(influences, (XNodeList{&m_Hip, nullptr, &m_Foot}));
}

}  // namespace
