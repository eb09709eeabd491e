#include "VKT/deformers/JiggleDeformer.h"

#include "VKT/geometry/PolygonMesh.h"
#include "VKT/support/NodeTest.h"

using namespace VKT;
using namespace VKT::Test;

namespace {

class JiggleDeformer : public NodeTest {
protected:
    XJiggleDeformer& New() { return *m_Model.CreateNode<XJiggleDeformer>(); }
    XJiggleDeformer& m_Jiggle = New();
};

constexpr const char kText[] =
    "\taffected 1 2\n"
    "\tenvelope_weight 0.5\n"
    "\tenable 2\n"
    "\tignore_transform 1\n"
    "\tforce_along_normal 3\n"
    "\tforce_on_tangent 4\n"
    "\tmotion_multiplier 5\n"
    "\tstiffness 6\n"
    "\tdamping 7\n"
    "\tjiggle_weight 8\n"
    "\tdirection_bias 9\n"
    "\tpoint_indices 2 11 -10\n";
constexpr const char kBytes[] =
    "05 00 6e 6f 64 65 31 01 00 00 00 01 00 00 00 02 00 00 00 00 00 00 3f "
    "02 00 00 00 01 "
    "00 00 40 40 00 00 80 40 00 00 a0 40 00 00 c0 40 00 00 e0 40 00 00 00 41 00 00 10 41 "
    "02 00 00 00 0b 00 00 00 f6 ff ff ff";

TEST_F(JiggleDeformer, FreshOneWritesItsDefaults)
{
    EXPECT_EQ(ChunkOf(m_Jiggle),
              "JIGGLE_DEFORMER node1\n"
              "{\n"
              "\tid 1\n"
              "\taffected 0 \n"
              "\tenvelope_weight 1\n"
              "\tenable 0\n"
              "\tignore_transform 0\n"
              "\tforce_along_normal 1\n"
              "\tforce_on_tangent 1\n"
              "\tmotion_multiplier 1\n"
              "\tstiffness 0.5\n"
              "\tdamping 0.5\n"
              "\tjiggle_weight 1\n"
              "\tdirection_bias 0\n"
              "\tpoint_indices 0\n"  // no blank behind the count, other than in `affected`
              "}\n");
    EXPECT_EQ(m_Jiggle.GetDataSize(), 14u + 5 + 8 + 37);
}

TEST_F(JiggleDeformer, BothFormsReadBack)
{
    EXPECT_TRUE(ReadText(m_Jiggle, kText));
    EXPECT_EQ(TextOf(m_Jiggle), kText);
    EXPECT_EQ(Hex(BodyOf(m_Jiggle)), kBytes);
    EXPECT_EQ(m_Jiggle.GetDataSize(), 14u + 5 + 8 + 4 + 37 + 4 * 2);
    XJiggleDeformer& other = New();
    EXPECT_TRUE(ReadBody(other, Bytes(kBytes)));
    EXPECT_EQ(TextOf(other), kText);
}

TEST_F(JiggleDeformer, OnlyTheWeightOfTheDeformerIsGated)
{
    MakeOlder();
    XJiggleDeformer& text = New();
    EXPECT_TRUE(ReadText(text, Replaced(kText, "\tenvelope_weight 0.5\n", "")));
    EXPECT_EQ(TextOf(text), Replaced(kText, "envelope_weight 0.5", "envelope_weight 1"));
    XJiggleDeformer& bytes = New();
    EXPECT_TRUE(ReadBody(bytes, Bytes(Replaced(kBytes, "00 00 00 3f ", ""))));
    EXPECT_EQ(TextOf(bytes), Replaced(kText, "envelope_weight 0.5", "envelope_weight 1"));
}

TEST_F(JiggleDeformer, CountOfPointsIsSigned)
{
    EXPECT_TRUE(ReadText(m_Jiggle, Replaced(kText, "2 11 -10", "-5")));
    EXPECT_EQ(m_Jiggle.GetPointIndices(), XIntList());
    for (const char* const count : {"3 11 -10", "2147483647 11 -10", "4294967295 11 -10"})
        EXPECT_FALSE(ReadText(New(), Replaced(kText, "2 11 -10", count))) << count;
}

TEST_F(JiggleDeformer, WrongKeysAreLogged)
{
    const char* const keys[] = {
        "enable",    "ignore_transform", "force_along_normal", "force_on_tangent", "motion_multiplier",
        "stiffness", "damping",          "jiggle_weight",      "direction_bias",   "point_indices"};
    int row = 0;
    for (const std::string key : keys) {
        m_Log.Clear();
        EXPECT_FALSE(ReadText(New(), Replaced(kText, "\t" + key + " ", "\tWrong ")));
        EXPECT_EQ(m_Log.Text(), "Error : Expected " + key + " got wrong [.\\src\\VKT\\JiggleDeformer:" +
                                    std::to_string(++row) + "]\n");
    }
}

TEST_F(JiggleDeformer, EveryCutOfTheBytesFails)
{
    const std::string bytes = Bytes(kBytes);
    for (std::size_t length = 0; length < bytes.size(); ++length)
        EXPECT_FALSE(ReadBody(New(), bytes.substr(0, length))) << length;
}

TEST_F(JiggleDeformer, AccessorsReachTheirFields)
{
    m_Jiggle.AddAffected(m_Model.CreateNode<XPolygonMesh>());
    m_Jiggle.SetEnvelopeWeight(0.5f);
    m_Jiggle.SetEnable(2);
    m_Jiggle.SetIgnoreTransform(true);
    m_Jiggle.SetForceAlongNormal(3);
    m_Jiggle.SetForceOnTangent(4);
    m_Jiggle.SetMotionMultiplier(5);
    m_Jiggle.SetStiffness(6);
    m_Jiggle.SetDamping(7);
    m_Jiggle.SetJiggleWeight(8);
    m_Jiggle.SetDirectionBias(9);
    m_Jiggle.SetPointIndices({11, -10});
    EXPECT_EQ(TextOf(m_Jiggle), kText);
    EXPECT_EQ(m_Jiggle.GetEnable(), 2);
    EXPECT_TRUE(m_Jiggle.IgnoresTransform());
    EXPECT_EQ(m_Jiggle.GetForceAlongNormal(), 3);
    EXPECT_EQ(m_Jiggle.GetForceOnTangent(), 4);
    EXPECT_EQ(m_Jiggle.GetMotionMultiplier(), 5);
    EXPECT_EQ(m_Jiggle.GetStiffness(), 6);
    EXPECT_EQ(m_Jiggle.GetDamping(), 7);
    EXPECT_EQ(m_Jiggle.GetJiggleWeight(), 8);
    EXPECT_EQ(m_Jiggle.GetDirectionBias(), 9);
    EXPECT_EQ(m_Jiggle.GetPointIndices(), (XIntList{11, -10}));
    EXPECT_EQ(TextOf(*m_Jiggle.Clone()), kText);
}

TEST_F(JiggleDeformer, PropertiesReachTheFields)
{
    const XNodeProperties& properties = *m_Jiggle.GetNodeProperties();
    EXPECT_EQ(properties.GetNumProperties(), 12u);
    for (u32 id = 3; id <= 9; ++id) {
        EXPECT_TRUE(properties.SetFloat(&m_Jiggle, id, static_cast<f32>(id)));
        EXPECT_TRUE(m_Jiggle.IsPropertyAnimated(id));
    }
    EXPECT_EQ(m_Jiggle.GetMotionMultiplier(), 3);
    EXPECT_EQ(m_Jiggle.GetForceAlongNormal(), 4);
    EXPECT_EQ(m_Jiggle.GetForceOnTangent(), 5);
    EXPECT_EQ(m_Jiggle.GetStiffness(), 6);
    EXPECT_EQ(m_Jiggle.GetDamping(), 7);
    EXPECT_EQ(m_Jiggle.GetJiggleWeight(), 8);
    EXPECT_EQ(m_Jiggle.GetDirectionBias(), 9);
    EXPECT_TRUE(properties.SetIntegerArray(&m_Jiggle, 10, {4, 2}));
    EXPECT_EQ(m_Jiggle.GetPointIndices(), (XIntList{4, 2}));
    EXPECT_TRUE(properties.SetBool(&m_Jiggle, 11, true));
    EXPECT_TRUE(m_Jiggle.IgnoresTransform());
    m_Jiggle.SetEnable(7);
    bool enabled = false;
    EXPECT_TRUE(properties.GetBool(&m_Jiggle, 12, enabled));
    EXPECT_TRUE(enabled);
    EXPECT_TRUE(properties.SetBool(&m_Jiggle, 12, true));
    EXPECT_EQ(m_Jiggle.GetEnable(), 1);
    EXPECT_TRUE(properties.SetBool(&m_Jiggle, 12, false));
    EXPECT_EQ(m_Jiggle.GetEnable(), 0);
    EXPECT_FALSE(m_Jiggle.IsPropertyAnimated(12));
}

}  // namespace
