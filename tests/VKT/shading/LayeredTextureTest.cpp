#include "VKT/shading/LayeredTexture.h"

#include "VKT/shading/TexPlacement2D.h"
#include "VKT/support/NodeTest.h"

using namespace VKT;
using namespace VKT::Test;

namespace {

class LayeredTexture : public NodeTest {
protected:
    XLayeredTexture& New() { return *m_Model.CreateNode<XLayeredTexture>(); }

    XLayeredTexture& m_Texture = New();
};

constexpr const char kText[] =
    "inputs 2\n"
    "\t\ttexture 1 2 3 4 input 5 mode multiply\n"
    "\t\ttexture 6 7 8 9 input 10 mode over\n";
constexpr const char kBytes[] =
    "05 00 6e 6f 64 65 31 01 00 00 00 "
    "00 00 00 00 "
    "02 00 00 00 06 00 00 00 01 00 00 00 "
    "02 00 00 00 "
    "05 00 00 00 00 00 80 3f 00 00 00 40 00 00 40 40 00 00 80 40 07 00 74 65 78 74 75 72 65 "
    "0a 00 00 00 00 00 c0 40 00 00 e0 40 00 00 00 41 00 00 10 41 07 00 74 65 78 74 75 72 65";

TEST_F(LayeredTexture, FreshOneHasNoLayers)
{
    EXPECT_EQ(ChunkOf(m_Texture), "LAYERED_TEXTURE node1\n{\n\tid 1\ninputs 0\n}\n");
    EXPECT_EQ(m_Texture.GetDataSize(), 14u + 5 + 4 + 4 + 4);
    EXPECT_EQ(m_Texture.GetNodeProperties()->GetNumProperties(), 0u);
    for (const u32 type : {170u, 2u, 168u, 0u})
        EXPECT_EQ(m_Texture.HasFn(type), &m_Texture) << type;
    EXPECT_EQ(m_Texture.HasFn(14), nullptr);
}

TEST_F(LayeredTexture, EitherFormReadsBack)
{
    EXPECT_TRUE(ReadText(m_Texture, kText));
    EXPECT_EQ(TextOf(m_Texture), kText);
    EXPECT_EQ(Hex(BodyOf(m_Texture)), kBytes);
    EXPECT_EQ(m_Texture.GetDataSize(), 8 + Bytes(kBytes).size());
    XLayeredTexture& fromBytes = New();
    EXPECT_TRUE(ReadBody(fromBytes, Bytes(kBytes)));
    EXPECT_EQ(TextOf(fromBytes), kText);
    EXPECT_EQ(fromBytes.GetInput(1)->colour, (XColour{6, 7, 8, 9}));
    EXPECT_EQ(fromBytes.GetMode(0), XLayeredTexture::kMultiply);
    EXPECT_EQ(fromBytes.GetInput(2), nullptr);
    EXPECT_EQ(std::as_const(fromBytes).GetInput(2), nullptr);
    EXPECT_EQ(fromBytes.GetMode(2), XLayeredTexture::kNone);
}

TEST_F(LayeredTexture, LayersAreAdded)
{
    XShaderInput& first = m_Texture.AddLayer(XLayeredTexture::kMultiply);
    EXPECT_EQ(first.colour, (XColour{0, 0, 0, 1}));
    first.colour = {1, 2, 3, 4};
    first.input = 5;
    XShaderInput& second = m_Texture.AddLayer(XLayeredTexture::kOver);
    second.colour = {6, 7, 8, 9};
    second.input = 10;
    EXPECT_EQ(TextOf(m_Texture), kText);
    EXPECT_EQ(m_Texture.GetNumLayers(), 2u);
    EXPECT_EQ(m_Texture.GetInputs().size(), 2u);
}

TEST_F(LayeredTexture, EachModeHasItsWord)
{
    const char* const words[] = {"none",     "over",       "in",         "out",     "add",
                                 "subtract", "multiply",   "difference", "lighten", "darken",
                                 "saturate", "desaturate", "illuminate"};
    for (u32 mode = 0; mode < 13; ++mode) {
        XLayeredTexture& texture = New();
        texture.AddLayer(mode);
        const std::string text =
            std::string("inputs 1\n\t\ttexture 0 0 0 1 input 0 mode ") + words[mode] + "\n";
        EXPECT_EQ(TextOf(texture), text);
        XLayeredTexture& read = New();
        EXPECT_TRUE(ReadText(read, text));
        EXPECT_EQ(read.GetMode(0), mode);
    }
}

TEST_F(LayeredTexture, UnknownModesMeanNone)
{
    EXPECT_TRUE(ReadText(m_Texture, Replaced(kText, "multiply", "Over")));
    EXPECT_EQ(m_Texture.GetMode(0), 0u);
    EXPECT_EQ(TextOf(m_Texture), Replaced(kText, "multiply", "none"));
    const std::string bytes = Replaced(kBytes, "06 00 00 00 01", "0d 00 00 00 01");
    EXPECT_TRUE(ReadBody(m_Texture, Bytes(bytes)));
    EXPECT_EQ(TextOf(m_Texture), Replaced(kText, "multiply", "none"));
    EXPECT_EQ(Hex(BodyOf(m_Texture)), bytes);
    EXPECT_EQ(m_Log.Text(), "");
}

TEST_F(LayeredTexture, ModesOfADamagedFileMayBeFewerOrMore)
{
    EXPECT_TRUE(ReadBody(m_Texture, Bytes(Replaced(kBytes, "02 00 00 00 06 00 00 00 01 00 00 00",
                                                   "01 00 00 00 06 00 00 00"))));
    EXPECT_EQ(TextOf(m_Texture), Replaced(kText, "mode over", "mode none"));
    EXPECT_TRUE(ReadBody(m_Texture, Bytes(Replaced(kBytes, "02 00 00 00 06 00 00 00 01 00 00 00",
                                                   "03 00 00 00 06 00 00 00 01 00 00 00 02 00 00 00"))));
    EXPECT_EQ(TextOf(m_Texture), kText);
    EXPECT_EQ(Hex(BodyOf(m_Texture)), kBytes);
}

TEST_F(LayeredTexture, NameOfABinaryFileReplacesThatOfTheInput)
{
    EXPECT_TRUE(ReadBody(m_Texture, Bytes(Replaced(kBytes, "07 00 74 65 78 74 75 72 65", "02 00 78 79"))));
    EXPECT_EQ(TextOf(m_Texture), Replaced(kText, "texture", "xy"));
}

TEST_F(LayeredTexture, FailingLayerIsDroppedAndThoseBeforeItStay)
{
    EXPECT_FALSE(ReadText(m_Texture, Replaced(kText, "input 10", "in 10")));
    EXPECT_EQ(m_Texture.GetNumLayers(), 1u);
    EXPECT_EQ(m_Texture.GetInputs().size(), 1u);
    EXPECT_FALSE(ReadText(m_Texture, Replaced(kText, "inputs 2", "inputs 4294967295")));
    EXPECT_EQ(m_Texture.GetNumLayers(), 2u);
}

TEST_F(LayeredTexture, EachWrongKeyIsLoggedWithItsClassAndRow)
{
    int row = 0;
    for (const std::string key : {"inputs", "texture", "mode"}) {
        m_Log.Clear();
        EXPECT_FALSE(ReadText(New(), Replaced(kText, key, "wrong")));
        EXPECT_EQ(m_Log.Text(), "Error : Expected " + key + " got wrong [.\\src\\VKT\\LayeredTexture:" +
                                    std::to_string(++row) + "]\n");
    }
}

TEST_F(LayeredTexture, EveryCutFails)
{
    const std::string bytes = Bytes(kBytes);
    for (std::size_t length = 0; length < bytes.size(); ++length)
        EXPECT_FALSE(ReadBody(New(), bytes.substr(0, length))) << length;
    EXPECT_FALSE(ReadBody(New(), Bytes(Replaced(kBytes, "02 00 00 00 06", "ff ff ff ff 06"))));
    EXPECT_FALSE(ReadBody(New(), Bytes(Replaced(kBytes, "02 00 00 00 05", "ff ff ff ff 05"))));
    const std::string text = kText;
    for (std::size_t length = 0; length < text.rfind(" "); ++length)
        EXPECT_FALSE(ReadText(New(), text.substr(0, length))) << length;
}

TEST_F(LayeredTexture, CloneHasLayersOfItsOwn)
{
    ASSERT_TRUE(ReadText(m_Texture, kText));
    const XBase& clone = *m_Texture.Clone();
    m_Texture.GetInput(0)->input = 99;
    EXPECT_EQ(TextOf(clone), kText);
    m_Texture.DoCopy(&clone);
    m_Texture.DoCopy(&m_Texture);
    m_Texture.DoCopy(m_Model.CreateNode(kFnTexture));
    EXPECT_EQ(TextOf(m_Texture), kText);
}

TEST_F(LayeredTexture, DeathReachesTheLayersAndTexturesStay)
{
    const XTexPlacement2D& image = *m_Model.CreateNode<XTexPlacement2D>();
    m_Texture.AddLayer(0).input = image.GetID();
    std::set<u32> ids;
    m_Texture.PreDelete(ids);
    EXPECT_TRUE(ids.empty());
    EXPECT_EQ(m_Texture.GetConnected(*m_Texture.GetInput(0)), &image);
    EXPECT_TRUE(m_Texture.NodeDeath(image.GetID()));
    EXPECT_EQ(m_Texture.GetInput(0)->input, 0u);
}

}  // namespace
