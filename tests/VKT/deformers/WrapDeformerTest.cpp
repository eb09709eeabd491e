#include "VKT/deformers/WrapDeformer.h"

#include "VKT/geometry/PolygonMesh.h"
#include "VKT/support/NodeTest.h"

using namespace VKT;
using namespace VKT::Test;

namespace {

class WrapDeformer : public NodeTest {
protected:
    XWrapDeformer& New() { return *m_Model.CreateNode<XWrapDeformer>(); }
    XWrapDeformer& m_Wrap = New();
    XPolygonMesh& m_Mesh = *m_Model.CreateNode<XPolygonMesh>();
    XPolygonMesh& m_Driver = *m_Model.CreateNode<XPolygonMesh>();
};

constexpr const char kText[] =
    "\taffected 1 2\n"
    "\tenvelope_weight 0.5\n"
    "\tdropoff 5\n"
    "\tsmoothness 6\n"
    "\tweight_threshold 7\n"
    "\tmax_distance 8\n"
    "\tinfluence_type 9\n"
    "\tnurbs_samples 11\n"
    "\tdriver_geometry 3\n";
constexpr const char kBytes[] =
    "05 00 6e 6f 64 65 31 01 00 00 00 01 00 00 00 02 00 00 00 00 00 00 3f "
    "00 00 a0 40 00 00 c0 40 00 00 e0 40 00 00 00 41 "
    "09 00 00 00 0b 00 00 00 03 00 00 00";

TEST_F(WrapDeformer, FreshOneWritesItsDefaults)
{
    EXPECT_EQ(ChunkOf(m_Wrap),
              "WRAP_DEFORMER node1\n"
              "{\n"
              "\tid 1\n"
              "\taffected 0 \n"
              "\tenvelope_weight 1\n"
              "\tdropoff 4\n"
              "\tsmoothness 0\n"
              "\tweight_threshold 0\n"
              "\tmax_distance 0\n"
              "\tinfluence_type 2\n"
              "\tnurbs_samples 10\n"
              "\tdriver_geometry 0\n"
              "}\n");
    EXPECT_EQ(m_Wrap.GetDataSize(), 14u + 5 + 8 + 28);
}

TEST_F(WrapDeformer, BothFormsReadBack)
{
    EXPECT_TRUE(ReadText(m_Wrap, kText));
    EXPECT_EQ(TextOf(m_Wrap), kText);
    EXPECT_EQ(Hex(BodyOf(m_Wrap)), kBytes);
    XWrapDeformer& other = New();
    EXPECT_TRUE(ReadBody(other, Bytes(kBytes)));
    EXPECT_EQ(TextOf(other), kText);
}

TEST_F(WrapDeformer, OnlyTheWeightOfTheDeformerIsGated)
{
    MakeOlder();
    XWrapDeformer& text = New();
    EXPECT_TRUE(ReadText(text, Replaced(kText, "\tenvelope_weight 0.5\n", "")));
    EXPECT_EQ(TextOf(text), Replaced(kText, "envelope_weight 0.5", "envelope_weight 1"));
    XWrapDeformer& bytes = New();
    EXPECT_TRUE(ReadBody(bytes, Bytes(Replaced(kBytes, "00 00 00 3f ", ""))));
    EXPECT_EQ(TextOf(bytes), Replaced(kText, "envelope_weight 0.5", "envelope_weight 1"));
}

TEST_F(WrapDeformer, WrongKeysAreLogged)
{
    const char* const keys[] = {"dropoff",        "smoothness",    "weight_threshold", "max_distance",
                                "influence_type", "nurbs_samples", "driver_geometry"};
    int row = 0;
    for (const std::string key : keys) {
        m_Log.Clear();
        EXPECT_FALSE(ReadText(New(), Replaced(kText, "\t" + key + " ", "\tWrong ")));
        EXPECT_EQ(m_Log.Text(), "Error : Expected " + key +
                                    " got wrong [.\\src\\VKT\\WrapDeformer:" + std::to_string(++row) + "]\n");
    }
}

TEST_F(WrapDeformer, EveryCutOfTheBytesFails)
{
    const std::string bytes = Bytes(kBytes);
    for (std::size_t length = 0; length < bytes.size(); ++length)
        EXPECT_FALSE(ReadBody(New(), bytes.substr(0, length))) << length;
}

TEST_F(WrapDeformer, AccessorsReachTheirFields)
{
    m_Wrap.AddAffected(&m_Mesh);
    m_Wrap.SetEnvelopeWeight(0.5f);
    m_Wrap.SetDropoff(5);
    m_Wrap.SetSmoothness(6);
    m_Wrap.SetWeightThreshold(7);
    m_Wrap.SetMaxDistance(8);
    m_Wrap.SetInfluenceType(9);
    m_Wrap.SetNurbsSamples(11);
    m_Wrap.SetDriverGeometry(&m_Driver);
    EXPECT_EQ(TextOf(m_Wrap), kText);
    EXPECT_EQ(m_Wrap.GetDropoff(), 5);
    EXPECT_EQ(m_Wrap.GetSmoothness(), 6);
    EXPECT_EQ(m_Wrap.GetWeightThreshold(), 7);
    EXPECT_EQ(m_Wrap.GetMaxDistance(), 8);
    EXPECT_EQ(m_Wrap.GetInfluenceType(), 9u);
    EXPECT_EQ(m_Wrap.GetNurbsSamples(), 11u);
    EXPECT_EQ(m_Wrap.GetDriverGeometry(), &m_Driver);
    EXPECT_EQ(TextOf(*m_Wrap.Clone()), kText);
    m_Wrap.SetDriverGeometry(nullptr);
    EXPECT_EQ(m_Wrap.GetDriverGeometry(), nullptr);
}

TEST_F(WrapDeformer, DeathOfTheDriverLeavesTheDeformer)
{
    m_Wrap.AddAffected(&m_Mesh);
    m_Wrap.SetDriverGeometry(&m_Driver);
    EXPECT_TRUE(m_Wrap.NodeDeath(m_Driver.GetID()));
    EXPECT_NE(TextOf(m_Wrap).find("\tdriver_geometry 0\n"), std::string::npos);
    EXPECT_FALSE(m_Wrap.NodeDeath(m_Mesh.GetID()));
    m_Wrap.SetDriverGeometry(&m_Driver);
    std::set<u32> ids;
    m_Wrap.PreDelete(ids);
    EXPECT_TRUE(ids.empty());
}

TEST_F(WrapDeformer, PropertiesReachTheFields)
{
    const XNodeProperties& properties = *m_Wrap.GetNodeProperties();
    EXPECT_EQ(properties.GetNumProperties(), 9u);
    m_Wrap.AddAffected(&m_Mesh);
    m_Wrap.SetEnvelopeWeight(0.5f);
    for (u32 id = 3; id <= 6; ++id)
        EXPECT_TRUE(properties.SetFloat(&m_Wrap, id, static_cast<f32>(id + 2)));
    EXPECT_TRUE(properties.SetInteger(&m_Wrap, 7, 9));
    EXPECT_TRUE(properties.SetInteger(&m_Wrap, 8, 11));
    EXPECT_FALSE(properties.SetNode(&m_Wrap, 9, &m_Wrap));
    EXPECT_TRUE(properties.SetNode(&m_Wrap, 9, &m_Driver));
    EXPECT_EQ(TextOf(m_Wrap), kText);
    i32 samples = 0;
    EXPECT_TRUE(properties.GetInteger(&m_Wrap, 8, samples));
    EXPECT_EQ(samples, 11);
}

}  // namespace
