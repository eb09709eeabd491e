#include "VKT/deformers/SculptDeformer.h"

#include "VKT/geometry/PolygonMesh.h"
#include "VKT/support/NodeTest.h"

using namespace VKT;
using namespace VKT::Test;

namespace {

class SculptDeformer : public NodeTest {
protected:
    XSculptDeformer& New() { return *m_Model.CreateNode<XSculptDeformer>(); }
    XSculptDeformer& m_Sculpt = New();
    XPolygonMesh& m_Tool = *m_Model.CreateNode<XPolygonMesh>();
    XPolygonMesh& m_Start = *m_Model.CreateNode<XPolygonMesh>();
};

constexpr const char kText[] =
    "\taffected 1 2\n"
    "\tenvelope_weight 0.5\n"
    "\tmode 4\n"
    "\tinside_mode 5\n"
    "\tmaximum_displacement 6\n"
    "\tdropoff_type 7\n"
    "\tdropoff_distance 8\n"
    "\tstart_position 9 10 11\n"
    "\tsculpt_object 2\n"
    "\tstart_object 3\n";
constexpr const char kBytes[] =
    "05 00 6e 6f 64 65 31 01 00 00 00 01 00 00 00 02 00 00 00 00 00 00 3f "
    "04 00 00 00 05 00 00 00 00 00 c0 40 07 00 00 00 00 00 00 41 "
    "00 00 10 41 00 00 20 41 00 00 30 41 "
    "02 00 00 00 03 00 00 00";

TEST_F(SculptDeformer, FreshOneIsAllZero)
{
    EXPECT_EQ(ChunkOf(m_Sculpt),
              "SCULPT_DEFORMER node1\n"
              "{\n"
              "\tid 1\n"
              "\taffected 0 \n"
              "\tenvelope_weight 1\n"
              "\tmode 0\n"
              "\tinside_mode 0\n"
              "\tmaximum_displacement 0\n"
              "\tdropoff_type 0\n"
              "\tdropoff_distance 0\n"
              "\tstart_position 0 0 0\n"
              "\tsculpt_object 0\n"
              "\tstart_object 0\n"
              "}\n");
    EXPECT_EQ(m_Sculpt.GetDataSize(), 14u + 5 + 8 + 40);
}

TEST_F(SculptDeformer, BothFormsReadBack)
{
    EXPECT_TRUE(ReadText(m_Sculpt, kText));
    EXPECT_EQ(TextOf(m_Sculpt), kText);
    EXPECT_EQ(Hex(BodyOf(m_Sculpt)), kBytes);
    XSculptDeformer& other = New();
    EXPECT_TRUE(ReadBody(other, Bytes(kBytes)));
    EXPECT_EQ(TextOf(other), kText);
}

TEST_F(SculptDeformer, OnlyTheWeightOfTheDeformerIsGated)
{
    MakeOlder();
    XSculptDeformer& text = New();
    EXPECT_TRUE(ReadText(text, Replaced(kText, "\tenvelope_weight 0.5\n", "")));
    EXPECT_EQ(TextOf(text), Replaced(kText, "weight 0.5", "weight 1"));
    XSculptDeformer& bytes = New();
    EXPECT_TRUE(ReadBody(bytes, Bytes(Replaced(kBytes, "00 00 00 3f ", ""))));
    EXPECT_EQ(TextOf(bytes), Replaced(kText, "weight 0.5", "weight 1"));
}

TEST_F(SculptDeformer, WrongKeysAreLogged)
{
    const char* const keys[] = {"mode",          "inside_mode",      "maximum_displacement",
                                "dropoff_type",  "dropoff_distance", "start_position",
                                "sculpt_object", "start_object"};
    int row = 0;
    for (const std::string key : keys) {
        m_Log.Clear();
        EXPECT_FALSE(ReadText(New(), Replaced(kText, "\t" + key + " ", "\tWrong ")));
        EXPECT_EQ(m_Log.Text(), "Error : Expected " + key + " got wrong [.\\src\\VKT\\SculptDeformer:" +
                                    std::to_string(++row) + "]\n");
    }
}

TEST_F(SculptDeformer, EveryCutOfTheBytesFails)
{
    const std::string bytes = Bytes(kBytes);
    for (std::size_t length = 0; length < bytes.size(); ++length)
        EXPECT_FALSE(ReadBody(New(), bytes.substr(0, length))) << length;
}

TEST_F(SculptDeformer, AccessorsReachTheirFields)
{
    m_Sculpt.AddAffected(&m_Tool);
    m_Sculpt.SetEnvelopeWeight(0.5f);
    m_Sculpt.SetMode(4);
    m_Sculpt.SetInsideMode(5);
    m_Sculpt.SetMaximumDisplacement(6);
    m_Sculpt.SetDropoffType(7);
    m_Sculpt.SetDropoffDistance(8);
    m_Sculpt.SetStartPosition({9, 10, 11, 0});
    m_Sculpt.SetSculptObject(&m_Tool);
    m_Sculpt.SetStartObject(&m_Start);
    EXPECT_EQ(TextOf(m_Sculpt), kText);
    EXPECT_EQ(m_Sculpt.GetMode(), 4u);
    EXPECT_EQ(m_Sculpt.GetInsideMode(), 5u);
    EXPECT_EQ(m_Sculpt.GetMaximumDisplacement(), 6);
    EXPECT_EQ(m_Sculpt.GetDropoffType(), 7u);
    EXPECT_EQ(m_Sculpt.GetDropoffDistance(), 8);
    EXPECT_EQ(m_Sculpt.GetStartPosition(), (XVector3{9, 10, 11, 0}));
    EXPECT_EQ(m_Sculpt.GetSculptObject(), &m_Tool);
    EXPECT_EQ(m_Sculpt.GetStartObject(), &m_Start);
    EXPECT_EQ(TextOf(*m_Sculpt.Clone()), kText);
    m_Sculpt.SetSculptObject(nullptr);
    m_Sculpt.SetStartObject(nullptr);
    EXPECT_EQ(m_Sculpt.GetSculptObject(), nullptr);
    EXPECT_EQ(m_Sculpt.GetStartObject(), nullptr);
}

TEST_F(SculptDeformer, ShapesGoAlongUnderTheFlag)
{
    std::set<u32> ids;
    m_Sculpt.PreDelete(ids);
    EXPECT_TRUE(ids.empty());  // none is no node
    m_Sculpt.SetSculptObject(&m_Tool);
    m_Sculpt.SetStartObject(&m_Start);
    m_Model.GetDeleteFlags().Clear(DeleteDeformerInputs);
    m_Sculpt.PreDelete(ids);
    EXPECT_TRUE(ids.empty());
    m_Model.GetDeleteFlags().Set(DeleteDeformerInputs);
    m_Sculpt.PreDelete(ids);
    EXPECT_EQ(ids, (std::set<u32>{2, 3}));
}

TEST_F(SculptDeformer, DeathOfAShapeLeavesItsId)
{
    ASSERT_TRUE(ReadText(m_Sculpt, Replaced(kText, "affected 1 2", "affected 1 9")));
    EXPECT_TRUE(m_Sculpt.NodeDeath(2));
    EXPECT_EQ(m_Sculpt.GetSculptObject(), &m_Tool);
    EXPECT_FALSE(m_Sculpt.NodeDeath(9));
}

TEST_F(SculptDeformer, PropertiesReachTheFields)
{
    const XNodeProperties& properties = *m_Sculpt.GetNodeProperties();
    EXPECT_EQ(properties.GetNumProperties(), 10u);
    m_Sculpt.AddAffected(&m_Tool);
    m_Sculpt.SetEnvelopeWeight(0.5f);
    EXPECT_TRUE(properties.SetFloat(&m_Sculpt, 3, 6));
    EXPECT_TRUE(properties.SetVector(&m_Sculpt, 4, {9, 10, 11, 0}));
    EXPECT_TRUE(properties.SetFloat(&m_Sculpt, 5, 8));
    EXPECT_TRUE(properties.SetInteger(&m_Sculpt, 6, 4));
    EXPECT_TRUE(properties.SetInteger(&m_Sculpt, 7, 5));
    EXPECT_TRUE(properties.SetInteger(&m_Sculpt, 8, 7));
    EXPECT_TRUE(properties.SetNode(&m_Sculpt, 9, &m_Tool));
    EXPECT_TRUE(properties.SetNode(&m_Sculpt, 10, &m_Start));
    EXPECT_FALSE(properties.SetNode(&m_Sculpt, 10, &m_Sculpt));
    EXPECT_EQ(TextOf(m_Sculpt), kText);
    i32 mode = 0;
    EXPECT_TRUE(properties.GetInteger(&m_Sculpt, 6, mode));
    EXPECT_EQ(mode, 4);
    XBase* start = nullptr;
    EXPECT_TRUE(properties.GetNode(&m_Sculpt, 10, start));
    EXPECT_EQ(start, &m_Start);
}

}  // namespace
