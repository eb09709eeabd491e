#include "VKT/deformers/WireDeformer.h"

#include "VKT/geometry/PolygonMesh.h"
#include "VKT/support/NodeTest.h"

using namespace VKT;
using namespace VKT::Test;

namespace {

class WireDeformer : public NodeTest {
protected:
    XWireDeformer& New() { return *m_Model.CreateNode<XWireDeformer>(); }
    XWireDeformer& m_Deformer = New();
    XPolygonMesh& m_First = *m_Model.CreateNode<XPolygonMesh>();
    XPolygonMesh& m_Second = *m_Model.CreateNode<XPolygonMesh>();
};

constexpr const char kText[] =
    "\taffected 1 2\n"
    "\tenvelope_weight 0.5\n"
    "\tcrossing_effect 4\n"
    "\tlocal_intensity 5\n"
    "\trotation 6\n"
    "\tnum_wires 2\n"
    "\t\t2 3 7 8\n"
    "\t\t12 13 9 10\n"
    "\n";
constexpr const char kBytes[] =
    "05 00 6e 6f 64 65 31 01 00 00 00 01 00 00 00 02 00 00 00 00 00 00 3f "
    "02 00 00 00 "
    "02 00 00 00 03 00 00 00 00 00 e0 40 00 00 00 41 "
    "0c 00 00 00 0d 00 00 00 00 00 10 41 00 00 20 41 "
    "00 00 80 40 00 00 a0 40 00 00 c0 40";
// Below version 4: all wires, all first numbers, all second ones.
constexpr const char kOldBytes[] =
    "05 00 6e 6f 64 65 31 01 00 00 00 01 00 00 00 02 00 00 00 "
    "02 00 00 00 03 00 00 00 0d 00 00 00 "
    "02 00 00 00 00 00 e0 40 00 00 10 41 "
    "02 00 00 00 00 00 00 41 00 00 20 41 "
    "00 00 80 40 00 00 a0 40 00 00 c0 40";
// What comes of it: the curves at rest are the wires.
constexpr const char kTextFromOld[] =
    "\taffected 1 2\n"
    "\tenvelope_weight 1\n"
    "\tcrossing_effect 4\n"
    "\tlocal_intensity 5\n"
    "\trotation 6\n"
    "\tnum_wires 2\n"
    "\t\t3 3 7 8\n"
    "\t\t13 13 9 10\n"
    "\n";

TEST_F(WireDeformer, FreshOneWritesItsDefaults)
{
    EXPECT_EQ(ChunkOf(m_Deformer),
              "WIRE_DEFORMER node1\n"
              "{\n"
              "\tid 1\n"
              "\taffected 0 \n"
              "\tenvelope_weight 1\n"
              "\tcrossing_effect 0\n"
              "\tlocal_intensity 0\n"
              "\trotation 0\n"
              "\tnum_wires 0\n"
              "\n"
              "}\n");
    EXPECT_EQ(m_Deformer.GetDataSize(), 14u + 5 + 8 + 16);
}

TEST_F(WireDeformer, BothFormsReadBack)
{
    EXPECT_TRUE(ReadText(m_Deformer, kText));
    EXPECT_EQ(TextOf(m_Deformer), kText);
    EXPECT_EQ(Hex(BodyOf(m_Deformer)), kBytes);
    EXPECT_EQ(m_Deformer.GetDataSize(), 14u + 5 + 8 + 4 + 16 + 16 * 2);
    XWireDeformer& other = New();
    EXPECT_TRUE(ReadBody(other, Bytes(kBytes)));
    EXPECT_EQ(TextOf(other), kText);
}

TEST_F(WireDeformer, OlderTextHasThreeNumbersForAWire)
{
    MakeOlder();
    XWireDeformer& wire = New();
    EXPECT_TRUE(ReadText(wire,
                         "\taffected 1 2\n"
                         "\tcrossing_effect 4\n"
                         "\tlocal_intensity 5\n"
                         "\trotation 6\n"
                         "\tnum_wires 2\n"
                         "\t\t3 7 8\n"
                         "\t\t13 9 10\n"
                         "\n"));
    EXPECT_EQ(TextOf(wire), kTextFromOld);
}

TEST_F(WireDeformer, OlderBytesHaveThreeLists)
{
    MakeOlder();
    XWireDeformer& wire = New();
    EXPECT_TRUE(ReadBody(wire, Bytes(kOldBytes)));
    EXPECT_EQ(TextOf(wire), kTextFromOld);
    EXPECT_EQ(Hex(BodyOf(wire)), kOldBytes);
    EXPECT_EQ(wire.GetDataSize(), 14u + 5 + 8 + 4 + 16 + 16 * 2);  // that of a save
    const std::string bytes = Bytes(kOldBytes);
    for (std::size_t length = 0; length < bytes.size(); ++length)
        EXPECT_FALSE(ReadBody(New(), bytes.substr(0, length))) << length;
}

TEST_F(WireDeformer, OlderListsOfOtherLengthsLeaveDefaults)
{
    MakeOlder();
    XWireDeformer& wire = New();
    EXPECT_TRUE(ReadBody(wire, Bytes("00 00 00 00 00 00 00 00 00 00 "
                                     "02 00 00 00 03 00 00 00 0d 00 00 00 "
                                     "01 00 00 00 00 00 e0 40 "
                                     "03 00 00 00 00 00 00 41 00 00 20 41 00 00 20 41 "
                                     "00 00 00 00 00 00 00 00 00 00 00 00")));
    EXPECT_NE(TextOf(wire).find("\tnum_wires 2\n\t\t3 3 7 8\n\t\t13 13 1 10\n\n"), std::string::npos);
}

TEST_F(WireDeformer, WrongKeysAreLogged)
{
    int row = 0;
    for (const std::string key : {"crossing_effect", "local_intensity", "rotation", "num_wires"}) {
        m_Log.Clear();
        EXPECT_FALSE(ReadText(New(), Replaced(kText, "\t" + key + " ", "\tWrong ")));
        EXPECT_EQ(m_Log.Text(), "Error : Expected " + key +
                                    " got wrong [.\\src\\VKT\\WireDeformer:" + std::to_string(++row) + "]\n");
    }
}

TEST_F(WireDeformer, WiresThatDoNotComeFail)
{
    for (const char* const count : {"3", "4294967295"}) {
        XWireDeformer& wire = New();
        EXPECT_FALSE(ReadText(wire, Replaced(kText, "num_wires 2", std::string("num_wires ") + count)));
        EXPECT_EQ(wire.GetNumWires(), 2u);
    }
    const std::string bytes = Bytes(kBytes);
    for (std::size_t length = 0; length < bytes.size(); ++length)
        EXPECT_FALSE(ReadBody(New(), bytes.substr(0, length))) << length;
}

TEST_F(WireDeformer, NewRecordsHaveDefaults)
{
    m_Deformer.SetNumWires(2);
    EXPECT_EQ(m_Deformer.GetNumWires(), 2u);
    EXPECT_NE(TextOf(m_Deformer).find("\tnum_wires 2\n\t\t0 0 1 1\n\t\t0 0 1 1\n\n"), std::string::npos);
    m_Deformer.GetWire(0)->m_Wire = 5;
    m_Deformer.SetNumWires(1);
    EXPECT_EQ(m_Deformer.GetWire(0)->m_Wire, 5u);
    EXPECT_EQ(m_Deformer.GetWire(1), nullptr);
    EXPECT_EQ(static_cast<const XWireDeformer&>(m_Deformer).GetWire(1), nullptr);
}

TEST_F(WireDeformer, AccessorsReachTheirFields)
{
    m_Deformer.AddAffected(&m_First);
    m_Deformer.SetEnvelopeWeight(0.5f);
    m_Deformer.SetCrossingEffect(4);
    m_Deformer.SetLocalIntensity(5);
    m_Deformer.SetRotation(6);
    m_Deformer.SetNumWires(2);
    *m_Deformer.GetWire(0) = {2, 3, 7, 8};
    *m_Deformer.GetWire(1) = {12, 13, 9, 10};
    EXPECT_EQ(TextOf(m_Deformer), kText);
    EXPECT_EQ(m_Deformer.GetCrossingEffect(), 4);
    EXPECT_EQ(m_Deformer.GetLocalIntensity(), 5);
    EXPECT_EQ(m_Deformer.GetRotation(), 6);
    EXPECT_EQ(TextOf(*m_Deformer.Clone()), kText);
    m_Deformer.DoCopy(&m_Deformer);
    m_Deformer.DoCopy(&m_First);
    EXPECT_EQ(TextOf(m_Deformer), kText);
}

TEST_F(WireDeformer, CurvesGoAlongUnderTheFlag)
{
    ASSERT_TRUE(ReadText(m_Deformer, kText));
    m_Deformer.GetWire(1)->m_BaseWire = 0;
    std::set<u32> ids;
    m_Model.GetDeleteFlags().Clear(DeleteDeformerInputs);
    m_Deformer.PreDelete(ids);
    EXPECT_TRUE(ids.empty());
    m_Model.GetDeleteFlags().Set(DeleteDeformerInputs);
    m_Deformer.PreDelete(ids);
    EXPECT_EQ(ids, (std::set<u32>{2, 3, 13}));
}

TEST_F(WireDeformer, DeathOfACurveLeavesItsId)
{
    ASSERT_TRUE(ReadText(m_Deformer, kText));
    EXPECT_TRUE(m_Deformer.NodeDeath(3));
    EXPECT_EQ(TextOf(m_Deformer), kText);
    EXPECT_FALSE(m_Deformer.NodeDeath(2));
}

TEST_F(WireDeformer, PropertiesReachTheFields)
{
    const XNodeProperties& properties = *m_Deformer.GetNodeProperties();
    EXPECT_EQ(properties.GetNumProperties(), 9u);
    EXPECT_TRUE(properties.SetFloat(&m_Deformer, 5, 50));
    EXPECT_TRUE(properties.SetFloat(&m_Deformer, 6, 60));
    EXPECT_TRUE(properties.SetFloat(&m_Deformer, 8, 80));
    EXPECT_EQ(m_Deformer.GetLocalIntensity(), 50);
    EXPECT_EQ(m_Deformer.GetRotation(), 60);
    EXPECT_EQ(m_Deformer.GetCrossingEffect(), 80);
    EXPECT_TRUE(m_Deformer.IsPropertyAnimated(3));
    EXPECT_FALSE(m_Deformer.IsPropertyAnimated(8));

    EXPECT_TRUE(properties.SetNodeArray(&m_Deformer, 7, {&m_First, nullptr, &m_Second}));
    EXPECT_EQ(m_Deformer.GetNumWires(), 3u);
    EXPECT_EQ(m_Deformer.GetWire(2)->m_Wire, m_Second.GetID());
    XNodeList wires;
    EXPECT_TRUE(properties.GetNodeArray(&m_Deformer, 7, wires));
    EXPECT_EQ(wires, (XNodeList{&m_First, nullptr, &m_Second}));
    XModel other;
    EXPECT_FALSE(properties.SetNodeArray(&m_Deformer, 7, {other.CreateNode<XPolygonMesh>()}));

    EXPECT_TRUE(properties.SetFloatArray(&m_Deformer, 3, {1, 2, 3}));
    EXPECT_TRUE(properties.SetFloatArray(&m_Deformer, 4, {4, 5, 6}));
    EXPECT_EQ(m_Deformer.GetWire(1)->m_WireParam1, 2);
    EXPECT_EQ(m_Deformer.GetWire(1)->m_WireParam2, 5);
    XFloatArray numbers;
    EXPECT_TRUE(properties.GetFloatArray(&m_Deformer, 3, numbers));
    EXPECT_EQ(numbers, (XFloatArray{1, 2, 3}));
    EXPECT_TRUE(properties.GetFloatArray(&m_Deformer, 4, numbers));
    EXPECT_EQ(numbers, (XFloatArray{4, 5, 6}));
    EXPECT_EQ(m_Log.Text(), "");
}

TEST_F(WireDeformer, NumbersThatAreNotOneForEachWireAreRefused)
{
    ASSERT_TRUE(ReadText(m_Deformer, kText));
    const XNodeProperties& properties = *m_Deformer.GetNodeProperties();
    EXPECT_FALSE(properties.SetFloatArray(&m_Deformer, 3, {1, 2, 3}));
    EXPECT_FALSE(properties.SetFloatArray(&m_Deformer, 4, {1}));
    EXPECT_EQ(m_Log.Text(),
              "Error : cannot set the node1.wireScale attr because the array provided does not match the "
              "number of wires\n"
              "Error : cannot set the node1.wireDropoffDistanc attr because the array provided does not "
              "match the number of wires\n");
    EXPECT_EQ(TextOf(m_Deformer), kText);
}

TEST_F(WireDeformer, BaseWiresHaveTheNumberOfTheWires)
{
    EXPECT_EQ(m_Deformer.GetPropertyId("wires"), 7u);
    EXPECT_EQ(m_Deformer.GetPropertyId("base_wires"), 7u);
    EXPECT_EQ(m_Deformer.GetPropertyName(7), "wires");
}

}  // namespace
