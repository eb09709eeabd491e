#include "VKT/rigging/IkChain.h"

#include "VKT/hierarchy/Bone.h"
#include "VKT/support/NodeTest.h"
#include "VKT/support/PropertyRows.h"

using namespace VKT;
using namespace VKT::Test;

namespace {

class IkChain : public NodeTest {
protected:
    XBone& m_Hip = *m_Model.CreateNode<XBone>();  // id 1
    XBone& m_Knee = *m_Model.CreateNode<XBone>();
    XIkChain& m_Chain = *m_Model.CreateNode<XIkChain>();
};

constexpr const char kText[] =
    "\thandle 2\n"
    "\tpriority -3\n"
    "\tmax_iterations 4\n"
    "\tweight 5\n"
    "\tpoweight 6\n"
    "\ttolerance 7\n"
    "\tstickiness 8\n"
    "\tpole_vector 9 10 11\n"
    "\tpole_constraint 1\n"
    "\tchain 3\n"
    "\t\t1 2 1 \n";
constexpr const char kBytes[] =
    "05 00 6e 6f 64 65 33 03 00 00 00 "
    "02 00 00 00 fd ff ff ff 04 00 00 00 "
    "00 00 a0 40 00 00 c0 40 00 00 e0 40 00 00 00 41 "
    "00 00 10 41 00 00 20 41 00 00 30 41 "
    "01 00 00 00 "
    "03 00 00 00 01 00 00 00 02 00 00 00 01 00 00 00";

TEST_F(IkChain, FreshOneWritesItsDefaults)
{
    EXPECT_EQ(ChunkOf(m_Chain),
              "IK_CHAIN node3\n"
              "{\n"
              "\tid 3\n"
              "\thandle 0\n"
              "\tpriority 1\n"
              "\tmax_iterations 2147483647\n"
              "\tweight 1\n"
              "\tpoweight 1\n"
              "\ttolerance 1e-05\n"
              "\tstickiness 0\n"
              "\tpole_vector 0 0 0\n"
              "\tpole_constraint 0\n"
              "\tchain 0\n"
              "\t\t\n"
              "}\n");
    EXPECT_EQ(m_Chain.GetDataSize(), 14u + 5 + 44 + 4);
    EXPECT_EQ(m_Chain.HasFn(23), &m_Chain);
    EXPECT_EQ(m_Chain.HasFn(86), nullptr);
    EXPECT_NE(Hex(BodyOf(m_Chain)).find("ac c5 27 37"), std::string::npos);  // the tolerance
}

TEST_F(IkChain, TextReadsBack)
{
    EXPECT_TRUE(ReadText(m_Chain, kText));
    EXPECT_EQ(TextOf(m_Chain), kText);
    XBoneList bones;
    EXPECT_TRUE(m_Chain.GetChain(bones));
    EXPECT_EQ(bones, (XBoneList{&m_Hip, &m_Knee, &m_Hip}));
    EXPECT_EQ(m_Chain.GetHandle(), &m_Knee);
    EXPECT_EQ(m_Chain.GetPoleConstraint(), &m_Hip);
}

TEST_F(IkChain, BytesReadBackAndHaveNoGates)
{
    EXPECT_TRUE(ReadBody(m_Chain, Bytes(kBytes)));
    EXPECT_EQ(TextOf(m_Chain), kText);
    EXPECT_EQ(Hex(BodyOf(m_Chain)), kBytes);
    EXPECT_EQ(m_Chain.GetDataSize(), 14u + 5 + 44 + 4 + 4 * 3);
    const std::string bytes = Bytes(kBytes);
    for (std::size_t length = 0; length < bytes.size(); ++length)
        EXPECT_FALSE(ReadBody(m_Chain, bytes.substr(0, length))) << length;
    MakeOlder();
    XIkChain older(&m_Model);
    EXPECT_TRUE(ReadText(older, kText));
    EXPECT_TRUE(ReadBody(older, Bytes(kBytes)));
    EXPECT_EQ(TextOf(older), kText);
}

TEST_F(IkChain, SettersReachTheirFields)
{
    m_Chain.SetHandle(&m_Knee);
    m_Chain.SetPriority(-3);
    m_Chain.SetMaxIterations(4);
    m_Chain.SetWeight(5);
    m_Chain.SetOrientationWeight(6);
    m_Chain.SetTolerance(7);
    m_Chain.SetStickiness(8);
    m_Chain.SetPoleVector({9, 10, 11, 0});
    m_Chain.SetPoleConstraint(&m_Hip);
    EXPECT_TRUE(m_Chain.SetChain({&m_Hip, &m_Knee, &m_Hip}));
    EXPECT_EQ(TextOf(m_Chain), kText);
    EXPECT_EQ(m_Chain.GetPriority(), -3);
    EXPECT_EQ(m_Chain.GetMaxIterations(), 4u);
    EXPECT_EQ(m_Chain.GetWeight(), 5);
    EXPECT_EQ(m_Chain.GetOrientationWeight(), 6);
    EXPECT_EQ(m_Chain.GetTolerance(), 7);
    EXPECT_EQ(m_Chain.GetStickiness(), 8);
    EXPECT_EQ(m_Chain.GetPoleVector(), (XVector3{9, 10, 11, 0}));
    m_Chain.SetHandle(nullptr);
    m_Chain.SetPoleConstraint(nullptr);
    EXPECT_TRUE(m_Chain.SetChain({}));
    XBoneList bones{&m_Hip};
    EXPECT_FALSE(m_Chain.GetChain(bones));
    EXPECT_TRUE(bones.empty());
    EXPECT_EQ(m_Chain.GetHandle(), nullptr);
    EXPECT_EQ(m_Chain.GetPoleConstraint(), nullptr);
}

TEST_F(IkChain, ChainOfWhatIsNoBoneOfTheDocumentIsRefused)
{
    ASSERT_TRUE(ReadText(m_Chain, kText));
    XModel other;
    EXPECT_FALSE(m_Chain.SetChain({nullptr}));
    EXPECT_FALSE(m_Chain.SetChain({&m_Knee, nullptr}));
    EXPECT_FALSE(m_Chain.SetChain({&m_Knee, other.CreateNode<XBone>()}));
    EXPECT_EQ(TextOf(m_Chain), kText);
    EXPECT_EQ(m_Log.Text(), "");
}

TEST_F(IkChain, WrongKeysAreLogged)
{
    int row = 0;
    for (const std::string key : {"handle", "priority", "max_iterations", "weight", "poweight", "tolerance",
                                  "stickiness", "pole_vector", "pole_constraint", "chain"}) {
        m_Log.Clear();
        EXPECT_FALSE(ReadText(m_Chain, Replaced(kText, "\t" + key + " ", "\tWrong ")));
        EXPECT_EQ(m_Log.Text(), "Error : Expected " + key +
                                    " got wrong [.\\src\\VKT\\IkChain:" + std::to_string(++row) + "]\n");
    }
    EXPECT_FALSE(ReadText(m_Chain, Replaced(kText, "chain 3", "chain 4294967295")));
}

TEST_F(IkChain, DeathDropsTheFirstEntryAndBothReferences)
{
    ASSERT_TRUE(ReadText(m_Chain, Replaced(kText, "handle 2", "handle 1")));
    EXPECT_TRUE(m_Chain.NodeDeath(1));
    EXPECT_EQ(TextOf(m_Chain), Replaced(Replaced(Replaced(kText, "handle 2", "handle 0"), "pole_constraint 1",
                                                 "pole_constraint 0"),
                                        "chain 3\n\t\t1 2 1 ", "chain 2\n\t\t2 1 "));
    std::set<u32> ids;
    m_Chain.PreDelete(ids);
    EXPECT_TRUE(ids.empty());
}

TEST_F(IkChain, CloneHasAllValues)
{
    ASSERT_TRUE(ReadText(m_Chain, kText));
    EXPECT_EQ(TextOf(*m_Chain.Clone()), kText);
}

TEST_F(IkChain, PropertiesReachTheFields)
{
    EXPECT_EQ(RowsOf(XIkChain::ClassProperties()),
              "10 properties\n"
              "chain nodes 1 l of 86\n"
              "handle node 2 of 86\n"
              "priority uint 3\n"
              "max_iterations int 4\n"
              "weight float 5\n"
              "poweight float 6\n"
              "tolerance float 7\n"
              "stickiness float 8\n"
              "pole_vector vector 9\n"
              "pole_constraint node 10 of 86\n");
    const XNodeProperties& properties = *m_Chain.GetNodeProperties();
    EXPECT_TRUE(properties.SetNodeArray(&m_Chain, 1, {&m_Hip, &m_Knee, &m_Hip}));
    EXPECT_TRUE(properties.SetNode(&m_Chain, 2, &m_Knee));
    EXPECT_TRUE(properties.SetUnsigned(&m_Chain, 3, 0xFFFFFFFD));
    EXPECT_TRUE(properties.SetInteger(&m_Chain, 4, 4));
    for (u32 id = 5; id <= 8; ++id)
        EXPECT_TRUE(properties.SetFloat(&m_Chain, id, static_cast<f32>(id)));
    EXPECT_TRUE(properties.SetVector(&m_Chain, 9, {9, 10, 11, 0}));
    EXPECT_TRUE(properties.SetNode(&m_Chain, 10, &m_Hip));
    EXPECT_EQ(TextOf(m_Chain), kText);
    XNodeList chain;
    EXPECT_TRUE(properties.GetNodeArray(&m_Chain, 1, chain));
    EXPECT_EQ(chain, (XNodeList{&m_Hip, &m_Knee, &m_Hip}));
    EXPECT_FALSE(properties.SetNodeArray(&m_Chain, 1, {&m_Chain}));  // no bone
    EXPECT_FALSE(properties.SetNodeArray(&m_Chain, 1, {&m_Hip, nullptr}));
    EXPECT_EQ(TextOf(m_Chain), kText);
}

}  // namespace
