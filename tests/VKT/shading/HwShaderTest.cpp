#include "VKT/shading/HwShader.h"

#include "VKT/node/Attribute.h"
#include "VKT/shading/Lambert.h"
#include "VKT/support/NodeTest.h"

using namespace VKT;
using namespace VKT::Test;

namespace {

class HwShader : public NodeTest {
protected:
    XHwShader& m_Shader = *m_Model.CreateNode<XHwShader>();
};

TEST_F(HwShader, StoresNothingOfItsOwn)
{
    EXPECT_EQ(ChunkOf(m_Shader), "HW_SHADER node1\n{\n\tid 1\n}\n");
    EXPECT_EQ(Hex(BodyOf(m_Shader)), "05 00 6e 6f 64 65 31 01 00 00 00");
    EXPECT_EQ(m_Shader.GetDataSize(), 14u + 5);
    EXPECT_EQ(m_Shader.GetNodeProperties()->GetNumProperties(), 0u);
}

TEST_F(HwShader, IsNoShadingNode)
{
    EXPECT_EQ(m_Shader.GetApiType(), 18u);
    EXPECT_EQ(m_Shader.HasFn(18), &m_Shader);
    EXPECT_EQ(m_Shader.HasFn(0), &m_Shader);
    EXPECT_EQ(m_Shader.HasFn(168), nullptr);
}

TEST_F(HwShader, KeepsItsExtraAttributesInBothForms)
{
    m_Shader.CreateExtraAttribute("profile")->Set(XString("vs_2_0"));
    const std::string text = SaveText(m_Model);
    EXPECT_NE(text.find("vs_2_0"), std::string::npos);
    const std::string bytes = SaveBinaryBytes(m_Model);
    XModel model;
    ASSERT_EQ(LoadBytes(model, bytes), FileOk);
    EXPECT_EQ(SaveText(model), text);
    EXPECT_EQ(SaveBinaryBytes(model), bytes);
}

TEST_F(HwShader, StandsBehindTheMaterialsThatNameIt)
{
    XLambert& clay = *m_Model.CreateNode<XLambert>();
    ASSERT_TRUE(clay.SetHwShader(&m_Shader));
    const std::string text = SaveText(m_Model);
    EXPECT_LT(text.find("LAMBERT"), text.find("HW_SHADER"));
    XModel model;
    ASSERT_EQ(LoadText(model, text), FileOk);
    EXPECT_EQ(XCast<XLambert>(model.FindNode(clay.GetID()))->GetHwShader(), model.FindNode(m_Shader.GetID()));
}

}  // namespace
