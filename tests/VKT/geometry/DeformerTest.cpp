#include "VKT/geometry/Deformer.h"

#include "VKT/geometry/PolygonMesh.h"
#include "VKT/hierarchy/Bone.h"
#include "VKT/support/NodeTest.h"

using namespace VKT;
using namespace VKT::Test;

namespace {

class Deformer : public NodeTest {
protected:
    XPolygonMesh& m_First = *m_Model.CreateNode<XPolygonMesh>();
    XPolygonMesh& m_Second = *m_Model.CreateNode<XPolygonMesh>();
    XDeformer m_Deformer{&m_Model};  // the class alone, of no document
};

constexpr const char kText[] =
    "\taffected 3 2 7 1\n"
    "\tenvelope_weight 0.25\n";
constexpr const char kBytes[] =
    "00 00 00 00 00 00 03 00 00 00 02 00 00 00 07 00 00 00 01 00 00 00 00 00 80 3e";

TEST_F(Deformer, FreshOneWritesItsDefaults)
{
    EXPECT_EQ(TextOf(m_Deformer),
              "\taffected 0 \n"  // the blank behind the count is part of the form
              "\tenvelope_weight 1\n");
    EXPECT_EQ(Hex(BodyOf(m_Deformer)), "00 00 00 00 00 00 00 00 00 00 00 00 80 3f");
    EXPECT_EQ(m_Deformer.GetDataSize(), 14u + 8);
    EXPECT_EQ(m_Deformer.GetApiType(), 114u);
    EXPECT_EQ(m_Deformer.HasFn(114), &m_Deformer);
    EXPECT_EQ(m_Deformer.HasFn(0), &m_Deformer);
    EXPECT_EQ(m_Deformer.HasFn(25), nullptr);
}

TEST_F(Deformer, TextReadsBack)
{
    EXPECT_TRUE(ReadText(m_Deformer, kText));
    EXPECT_EQ(TextOf(m_Deformer), kText);
    EXPECT_EQ(m_Deformer.GetEnvelopeWeight(), 0.25f);
}

TEST_F(Deformer, BytesReadBack)
{
    EXPECT_TRUE(ReadBody(m_Deformer, Bytes(kBytes)));
    EXPECT_EQ(TextOf(m_Deformer), kText);
    EXPECT_EQ(Hex(BodyOf(m_Deformer)), kBytes);
    EXPECT_EQ(m_Deformer.GetDataSize(), 14u + 8 + 4 * 3);
}

TEST_F(Deformer, OlderTextHasNoWeightAndGainsItWhenWritten)
{
    MakeOlder();
    XDeformer deformer(&m_Model);
    EXPECT_TRUE(ReadText(deformer, "\taffected 1 7\n"));
    EXPECT_EQ(TextOf(deformer), "\taffected 1 7\n\tenvelope_weight 1\n");
}

TEST_F(Deformer, OlderBytesHaveNoWeightInEitherDirection)
{
    MakeOlder();
    XDeformer deformer(&m_Model);
    const std::string older = Replaced(kBytes, " 00 00 80 3e", "");
    EXPECT_TRUE(ReadBody(deformer, Bytes(older)));
    EXPECT_EQ(deformer.GetEnvelopeWeight(), 1.0f);
    EXPECT_EQ(Hex(BodyOf(deformer)), older);
    EXPECT_EQ(deformer.GetDataSize(), 14u + 8 + 4 * 3);  // whatever the version
}

TEST_F(Deformer, WrongKeysAreLogged)
{
    EXPECT_FALSE(ReadText(m_Deformer, "effected 0"));
    EXPECT_FALSE(ReadText(m_Deformer, "affected 1 7 weight 1"));
    EXPECT_FALSE(ReadText(m_Deformer, "affected 4294967295 7 envelope_weight 1"));
    EXPECT_EQ(m_Log.Text(),
              "Error : Expected affected got effected [.\\src\\VKT\\Deformer:1]\n"
              "Error : Expected envelope_weight got weight [.\\src\\VKT\\Deformer:2]\n"
              "Error : Expected envelope_weight got  [.\\src\\VKT\\Deformer:2]\n");
}

TEST_F(Deformer, EveryCutOfTheBytesFails)
{
    const std::string bytes = Bytes(kBytes);
    for (std::size_t length = 0; length < bytes.size(); ++length)
        EXPECT_FALSE(ReadBody(m_Deformer, bytes.substr(0, length))) << length;
}

TEST_F(Deformer, AffectsGeometryOnceAndNothingElse)
{
    EXPECT_TRUE(m_Deformer.AddAffected(&m_Second));
    EXPECT_TRUE(m_Deformer.AddAffected(&m_First));
    EXPECT_FALSE(m_Deformer.AddAffected(&m_Second));
    EXPECT_FALSE(m_Deformer.AddAffected(nullptr));
    EXPECT_FALSE(m_Deformer.AddAffected(m_Model.CreateNode(kFnBone)));
    EXPECT_EQ(m_Log.Text(), "");
    EXPECT_EQ(m_Deformer.GetNumAffected(), 2u);
    EXPECT_EQ(m_Deformer.GetAffected(0), &m_Second);
    EXPECT_EQ(m_Deformer.GetAffected(1), &m_First);
    EXPECT_EQ(m_Deformer.GetAffected(2), nullptr);
    EXPECT_FALSE(m_Deformer.RemoveAffected(2));
    EXPECT_TRUE(m_Deformer.RemoveAffected(0));
    EXPECT_EQ(m_Deformer.GetAffected(0), &m_First);
    EXPECT_EQ(m_Deformer.GetNumAffected(), 1u);
}

TEST_F(Deformer, AffectedThatIsGoneIsNull)
{
    ASSERT_TRUE(ReadText(m_Deformer, kText));
    EXPECT_EQ(m_Deformer.GetAffected(0), &m_Second);
    EXPECT_EQ(m_Deformer.GetAffected(1), nullptr);
}

TEST_F(Deformer, LastAffectedThatDiesTakesTheReasonToLive)
{
    ASSERT_TRUE(ReadText(m_Deformer, "affected 3 2 1 2 envelope_weight 1"));
    EXPECT_TRUE(m_Deformer.NodeDeath(2));  // the first entry alone
    EXPECT_EQ(TextOf(m_Deformer), "\taffected 2 1 2\n\tenvelope_weight 1\n");
    EXPECT_TRUE(m_Deformer.NodeDeath(2));
    EXPECT_TRUE(m_Deformer.NodeDeath(99));
    EXPECT_FALSE(m_Deformer.NodeDeath(1));
    EXPECT_FALSE(m_Deformer.NodeDeath(99));
}

TEST_F(Deformer, DeletingTakesNothingAlong)
{
    ASSERT_TRUE(ReadText(m_Deformer, kText));
    std::set<u32> ids;
    m_Deformer.PreDelete(ids);
    EXPECT_TRUE(ids.empty());
}

TEST_F(Deformer, CopyTakesListAndWeight)
{
    ASSERT_TRUE(ReadText(m_Deformer, kText));
    XDeformer copy(&m_Model);
    copy.DoCopy(&m_Deformer);
    EXPECT_EQ(TextOf(copy), kText);
    copy.DoCopy(&copy);
    copy.DoCopy(&m_First);
    EXPECT_EQ(TextOf(copy), kText);
}

TEST_F(Deformer, PropertiesReachTheFields)
{
    const XNodeProperties& properties = *m_Deformer.GetNodeProperties();
    XBase* affected = &m_First;
    EXPECT_TRUE(properties.GetNode(&m_Deformer, 1, affected));
    EXPECT_EQ(affected, nullptr);
    EXPECT_TRUE(properties.SetNode(&m_Deformer, 1, &m_Second));
    EXPECT_TRUE(properties.GetNode(&m_Deformer, 1, affected));
    EXPECT_EQ(affected, &m_Second);
    EXPECT_TRUE(properties.SetFloat(&m_Deformer, 2, 0.5f));
    EXPECT_EQ(TextOf(m_Deformer), "\taffected 1 2\n\tenvelope_weight 0.5\n");

    XModel other;
    EXPECT_FALSE(properties.SetNode(&m_Deformer, 1, nullptr));
    EXPECT_FALSE(properties.SetNode(&m_Deformer, 1, m_Model.CreateNode(kFnBone)));
    EXPECT_FALSE(properties.SetNode(&m_Deformer, 1, other.CreateNode(kFnPolygonMesh)));
    EXPECT_EQ(m_Deformer.GetAffected(0), &m_Second);
}

}  // namespace
