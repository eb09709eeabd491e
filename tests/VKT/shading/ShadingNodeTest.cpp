#include "VKT/shading/ShadingNode.h"

#include "VKT/shading/BumpMap.h"
#include "VKT/shading/Lambert.h"
#include "VKT/support/NodeTest.h"

using namespace VKT;
using namespace VKT::Test;

namespace {

TEST(ShaderInput, BeginsBlackAndOpaqueUnlessToldOtherwise)
{
    const XShaderInput named("glow");
    EXPECT_EQ(named.name, "glow");
    EXPECT_EQ(named.input, 0u);
    EXPECT_EQ(named.colour, (XColour{0, 0, 0, 1}));
    const XShaderInput connected("glow", 7u);
    EXPECT_EQ(connected.input, 7u);
    EXPECT_EQ(connected.colour, (XColour{0, 0, 0, 1}));
    const XShaderInput coloured("glow", XColour{1, 2, 3, 4});
    EXPECT_EQ(coloured.input, 0u);
    EXPECT_EQ(coloured.colour, (XColour{1, 2, 3, 4}));
}

TEST(ShaderInput, ColourIsSetAndReadInEveryWay)
{
    XShaderInput input("glow");
    input.SetColour(1, 2, 3, 4);
    EXPECT_EQ(input.colour, (XColour{1, 2, 3, 4}));
    const f32 set[4] = {5, 6, 7, 8};
    input.SetColour(set);
    EXPECT_EQ(input.colour, (XColour{5, 6, 7, 8}));
    f32 got[4] = {};
    input.GetColour(got);
    EXPECT_TRUE(std::equal(std::begin(got), std::end(got), std::begin(set)));
    f32 r = 0, g = 0, b = 0;
    input.GetColour(r, g, b);
    EXPECT_EQ((XVector3{r, g, b, 0}), (XVector3{5, 6, 7, 0}));
}

class ShadingNode : public NodeTest {
protected:
    XLambert& New() { return *m_Model.CreateNode<XLambert>(); }

    XLambert& m_Top = New();
    XLambert& m_Fed = New();
    XBase& m_Bone = *m_Model.CreateNode(kFnBone);
};

TEST_F(ShadingNode, StoresNothingOfItsOwn)
{
    XShadingNode node(&m_Model);
    EXPECT_EQ(node.GetApiType(), 168u);
    EXPECT_EQ(node.HasFn(168), &node);
    EXPECT_EQ(node.HasFn(0), &node);
    EXPECT_EQ(node.HasFn(7), nullptr);
    EXPECT_EQ(TextOf(node), "");
    EXPECT_EQ(Hex(BodyOf(node)), "00 00 00 00 00 00");
    EXPECT_TRUE(node.GetInputs().empty());
}

TEST_F(ShadingNode, InputsStandInTheOrderOfTheirRegistration)
{
    std::string names;
    for (const XShaderInput* input : m_Top.GetInputs())
        names += input->name + " ";
    EXPECT_EQ(names, "colour ambient_colour incandescence transparency bump_map env_map ");
}

TEST_F(ShadingNode, ConnectsNodesOfItsDocument)
{
    XModel other;
    EXPECT_EQ(m_Top.GetConnected(m_Top.GetColour()), nullptr);
    EXPECT_TRUE(m_Top.Connect(m_Top.GetColour(), &m_Fed));
    EXPECT_EQ(m_Top.GetColour().input, m_Fed.GetID());
    EXPECT_EQ(m_Top.GetConnected(m_Top.GetColour()), &m_Fed);
    EXPECT_FALSE(m_Top.Connect(m_Top.GetColour(), nullptr));
    EXPECT_FALSE(m_Top.Connect(m_Top.GetColour(), other.CreateNode(kFnLambert)));
    EXPECT_EQ(m_Top.GetConnected(m_Top.GetColour()), &m_Fed);
}

TEST_F(ShadingNode, ConnectionToWhatIsGoneOrNoShadingNodeIsNull)
{
    m_Top.GetColour().input = 99;
    EXPECT_EQ(m_Top.GetConnected(m_Top.GetColour()), nullptr);
    m_Top.GetColour().input = m_Bone.GetID();
    EXPECT_EQ(m_Top.GetConnected(m_Top.GetColour()), nullptr);
}

TEST_F(ShadingNode, DeathOfTheFeedingNodeDisconnectsEveryInput)
{
    m_Top.Connect(m_Top.GetColour(), &m_Fed);
    m_Top.Connect(m_Top.GetTransparency(), &m_Fed);
    m_Top.Connect(m_Top.GetIncandescence(), &m_Top);
    EXPECT_TRUE(m_Top.NodeDeath(m_Fed.GetID()));
    EXPECT_EQ(m_Top.GetColour().input, 0u);
    EXPECT_EQ(m_Top.GetTransparency().input, 0u);
    EXPECT_EQ(m_Top.GetIncandescence().input, m_Top.GetID());
}

class ShadingDeletion : public ShadingNode {
protected:
    // What goes along with the top when exactly these flags are set.
    std::set<u32> Deleted(u32 flags)
    {
        m_Model.GetDeleteFlags().Clear(0xFFFFFFFF);
        m_Model.GetDeleteFlags().Set(flags);
        std::set<u32> ids;
        m_Top.PreDelete(ids);
        return ids;
    }
};

TEST_F(ShadingDeletion, TakesMaterialsThatFeedNothingElse)
{
    m_Top.Connect(m_Top.GetColour(), &m_Fed);
    EXPECT_EQ(Deleted(DeleteMaterials), std::set<u32>{m_Fed.GetID()});
    EXPECT_TRUE(Deleted(DeleteTextures).empty());
    EXPECT_TRUE(Deleted(0).empty());
    // Connections of the two nodes themselves don't count.
    m_Top.Connect(m_Top.GetTransparency(), &m_Fed);
    m_Fed.Connect(m_Fed.GetColour(), &m_Fed);
    EXPECT_EQ(Deleted(DeleteMaterials), std::set<u32>{m_Fed.GetID()});
}

TEST_F(ShadingDeletion, LeavesMaterialsThatFeedAnother)
{
    m_Top.Connect(m_Top.GetColour(), &m_Fed);
    XLambert& other = New();
    other.Connect(other.GetAmbientColour(), &m_Fed);
    EXPECT_TRUE(Deleted(DeleteMaterials).empty());
}

// Kept on purpose.
TEST_F(ShadingDeletion, LeavesTexturesWhateverTheFlagsSay)
{
    ASSERT_TRUE(m_Top.Connect(m_Top.GetColour(), m_Model.CreateNode(kFnTexture)));
    ASSERT_TRUE(m_Top.SetBumpMap(m_Model.CreateNode(kFnBumpMap)));
    for (const u32 flags : {u32{DeleteTextures}, u32{DeleteMaterials}, 0xFFFFFFFFu})
        EXPECT_TRUE(Deleted(flags).empty()) << flags;
    m_Model.GetDeleteFlags().Set(0xFFFFFFFF);
    EXPECT_EQ(m_Model.DeleteNodes({m_Top.GetID()}), 1u);
}

TEST_F(ShadingDeletion, LeavesWhatIsNoMaterialOrGone)
{
    m_Top.GetColour().input = m_Bone.GetID();
    m_Top.GetTransparency().input = 99;
    EXPECT_TRUE(Deleted(0xFFFFFFFF).empty());
}

}  // namespace
