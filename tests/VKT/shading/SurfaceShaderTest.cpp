#include "VKT/shading/SurfaceShader.h"

#include "VKT/shading/HwShader.h"
#include "VKT/shading/UseBackgroundShader.h"
#include "VKT/support/NodeTest.h"

using namespace VKT;
using namespace VKT::Test;

namespace {

class SurfaceShader : public NodeTest {
protected:
    XSurfaceShader& New() { return *m_Model.CreateNode<XSurfaceShader>(); }
    XUseBackgroundShader& NewBackground() { return *m_Model.CreateNode<XUseBackgroundShader>(); }

    XSurfaceShader& m_Shader = New();
};

constexpr const char kBackgroundText[] =
    "\thw_shader 1\n"
    "\tcolour 2 3 4 5 input 6\n";
constexpr const char kText[] =
    "\thw_shader 1\n"
    "\tcolour 2 3 4 5 input 6\n"
    "\ttransparency 7 8 9 10 input 11\n";
constexpr const char kBackgroundBytes[] =
    "05 00 6e 6f 64 65 31 01 00 00 00 "
    "01 00 00 00 "
    "06 00 00 00 00 00 00 40 00 00 40 40 00 00 80 40 00 00 a0 40 06 00 63 6f 6c 6f 75 72";
constexpr const char kTransparencyBytes[] =
    " 0b 00 00 00 00 00 e0 40 00 00 00 41 00 00 10 41 00 00 20 41 "
    "0c 00 74 72 61 6e 73 70 61 72 65 6e 63 79";
constexpr const char kOldText[] =
    "\tambient_color 91 91 91 91 tex 91\n"
    "\tcolor 2 3 4 5 tex 6\n"
    "\tspecular_color 92 92 92 92 tex 92\n"
    "\tincandescence 93 93 93 93 tex 93\n"
    "\ttransparency 7 8 9 10 tex 11\n"
    "\tbump_map 94\n"
    "\tenv_map 4294967295\n"
    "\thw_shader 1\n";
constexpr const char kOldBytes[] =
    "05 00 6e 6f 64 65 31 01 00 00 00 "
    "63 00 00 00 00 00 c6 42 00 00 c6 42 00 00 c6 42 00 00 c6 42 "
    "0d 00 61 6d 62 69 65 6e 74 5f 63 6f 6c 6f 72 "
    "06 00 00 00 00 00 00 40 00 00 40 40 00 00 80 40 00 00 a0 40 05 00 63 6f 6c 6f 72 "
    "63 00 00 00 00 00 c6 42 00 00 c6 42 00 00 c6 42 00 00 c6 42 "
    "0e 00 73 70 65 63 75 6c 61 72 5f 63 6f 6c 6f 72 "
    "63 00 00 00 00 00 c6 42 00 00 c6 42 00 00 c6 42 00 00 c6 42 "
    "0d 00 69 6e 63 61 6e 64 65 73 63 65 6e 63 65 "
    "0b 00 00 00 00 00 e0 40 00 00 00 41 00 00 10 41 00 00 20 41 "
    "0c 00 74 72 61 6e 73 70 61 72 65 6e 63 79 "
    "00 00 c6 42 "
    "63 00 00 00 63 00 00 00 01 00 00 00";

TEST_F(SurfaceShader, FreshOneWritesItsDefaults)
{
    EXPECT_EQ(ChunkOf(m_Shader),
              "SURFACE_SHADER node1\n"
              "{\n"
              "\tid 1\n"
              "\thw_shader 0\n"
              "\tcolour 0.65 0.65 0.65 1 input 0\n"
              "\ttransparency 0 0 0 1 input 0\n"
              "}\n");
    EXPECT_EQ(m_Shader.GetDataSize(), 14u + 5 + (4 + 22 + 6) + (22 + 12));
    EXPECT_EQ(ChunkOf(NewBackground()),
              "USE_BACKGROUND node2\n"
              "{\n"
              "\tid 2\n"
              "\thw_shader 0\n"
              "\tcolour 0.65 0.65 0.65 1 input 0\n"
              "}\n");
}

TEST_F(SurfaceShader, AnswersForItsBases)
{
    for (const u32 type : {13u, 7u, 168u, 0u})
        EXPECT_EQ(m_Shader.HasFn(type), &m_Shader) << type;
    EXPECT_EQ(m_Shader.HasFn(10), nullptr);
    const XBase& background = NewBackground();
    for (const u32 type : {16u, 7u, 168u, 0u})
        EXPECT_EQ(background.HasFn(type), &background) << type;
    EXPECT_EQ(background.HasFn(13), nullptr);
}

TEST_F(SurfaceShader, EitherFormReadsBack)
{
    EXPECT_TRUE(ReadText(m_Shader, kText));
    EXPECT_EQ(TextOf(m_Shader), kText);
    EXPECT_EQ(Hex(BodyOf(m_Shader)), std::string(kBackgroundBytes) + kTransparencyBytes);
    EXPECT_EQ(m_Shader.GetTransparency().colour, (XColour{7, 8, 9, 10}));
    XSurfaceShader& fromBytes = New();
    EXPECT_TRUE(ReadBody(fromBytes, Bytes(std::string(kBackgroundBytes) + kTransparencyBytes)));
    EXPECT_EQ(TextOf(fromBytes), kText);
    EXPECT_EQ(TextOf(*m_Shader.Clone()), kText);

    XUseBackgroundShader& background = NewBackground();
    EXPECT_TRUE(ReadBody(background, Bytes(kBackgroundBytes)));
    EXPECT_EQ(TextOf(background), kBackgroundText);
    EXPECT_EQ(Hex(BodyOf(background)), kBackgroundBytes);
    XUseBackgroundShader& fromText = NewBackground();
    EXPECT_TRUE(ReadText(fromText, kBackgroundText));
    EXPECT_EQ(TextOf(fromText), kBackgroundText);
    EXPECT_EQ(TextOf(*fromText.Clone()), kBackgroundText);
}

TEST_F(SurfaceShader, EachWrongKeyIsLoggedWithItsClassAndRow)
{
    EXPECT_FALSE(ReadText(m_Shader, Replaced(kText, "transparency", "opacity")));
    EXPECT_FALSE(ReadText(NewBackground(), Replaced(kText, "colour", "color")));
    EXPECT_EQ(m_Log.Text(),
              "Error : Expected transparency got opacity [.\\src\\VKT\\SurfaceShader:1]\n"
              "Error : Expected colour got color [.\\src\\VKT\\Material:2]\n");
}

TEST_F(SurfaceShader, OldFilesHoldEveryChannelAndLeaveTheTransparency)
{
    MakeOlder();
    XSurfaceShader& fromText = New();
    EXPECT_TRUE(ReadText(fromText, kOldText));
    EXPECT_EQ(TextOf(fromText), kText);
    XSurfaceShader& fromBytes = New();
    EXPECT_TRUE(ReadBody(fromBytes, Bytes(kOldBytes)));
    EXPECT_EQ(TextOf(fromBytes), kText);
    EXPECT_EQ(m_Log.Text(), "");
}

TEST_F(SurfaceShader, OldBackgroundKeepsItsHwShaderAndColourAlone)
{
    MakeOlder();
    XUseBackgroundShader& fromText = NewBackground();
    EXPECT_TRUE(ReadText(fromText, kOldText));
    EXPECT_EQ(TextOf(fromText), kBackgroundText);
    XUseBackgroundShader& fromBytes = NewBackground();
    EXPECT_TRUE(ReadBody(fromBytes, Bytes(kOldBytes)));
    EXPECT_EQ(TextOf(fromBytes), kBackgroundText);
}

TEST_F(SurfaceShader, OldKeysAndNamesAreChecked)
{
    MakeOlder();
    const std::string keys[] = {"ambient_color", "color",    "specular_color", "incandescence",
                                "transparency",  "bump_map", "env_map",        "hw_shader"};
    int row = 0;
    for (const std::string& key : keys) {
        ++row;
        m_Log.Clear();
        const std::string text = Replaced(kOldText, "\t" + key, "\tWrong");
        EXPECT_FALSE(ReadText(New(), text));
        EXPECT_FALSE(ReadText(NewBackground(), text));
        const std::string message = "Error : Expected " + key + " got wrong [.\\src\\VKT\\";
        EXPECT_EQ(m_Log.Text(), message + "SurfaceShader:" + std::to_string(row) + "]\n" + message +
                                    "UseBackgroundShader:" + std::to_string(row) + "]\n");
    }
    m_Log.Clear();
    const char* const names[] = {"0d 00 61 6d 62", "05 00 63 6f 6c", "0e 00 73 70 65"};
    const char* const others[] = {"0d 00 61 6d 63", "05 00 63 6f 6d", "0e 00 73 70 66"};
    for (int i = 0; i < 3; ++i) {
        const std::string bytes = Bytes(Replaced(kOldBytes, names[i], others[i]));
        EXPECT_FALSE(ReadBody(New(), bytes)) << names[i];
        EXPECT_FALSE(ReadBody(NewBackground(), bytes)) << names[i];
    }
    EXPECT_EQ(m_Log.Text(), "");
}

TEST_F(SurfaceShader, EveryCutOfTheBytesFails)
{
    const std::string bytes = Bytes(std::string(kBackgroundBytes) + kTransparencyBytes);
    for (std::size_t length = 0; length < bytes.size(); ++length)
        EXPECT_FALSE(ReadBody(New(), bytes.substr(0, length))) << length;
    MakeOlder();
    const std::string oldBytes = Bytes(kOldBytes);
    for (std::size_t length = 0; length < oldBytes.size(); ++length) {
        EXPECT_FALSE(ReadBody(New(), oldBytes.substr(0, length))) << length;
        EXPECT_FALSE(ReadBody(NewBackground(), oldBytes.substr(0, length))) << length;
    }
}

TEST_F(SurfaceShader, DeathOfReferredNodesIsNoticed)
{
    XHwShader& program = *m_Model.CreateNode<XHwShader>();
    XSurfaceShader& other = New();
    ASSERT_TRUE(m_Shader.SetHwShader(&program));
    ASSERT_TRUE(m_Shader.Connect(m_Shader.GetTransparency(), &other));
    EXPECT_TRUE(m_Shader.NodeDeath(other.GetID()));
    EXPECT_EQ(m_Shader.GetTransparency().input, 0u);
    EXPECT_EQ(m_Shader.GetHwShader(), &program);
    EXPECT_TRUE(m_Shader.NodeDeath(program.GetID()));
    EXPECT_EQ(TextOf(m_Shader), TextOf(New()));
}

TEST_F(SurfaceShader, Properties)
{
    const XNodeProperties& properties = *m_Shader.GetNodeProperties();
    EXPECT_EQ(properties.GetNumProperties(), 3u);
    EXPECT_EQ(m_Shader.GetPropertyId("transparency"), 3u);
    EXPECT_TRUE(m_Shader.IsPropertyAnimated(3));
    EXPECT_TRUE(properties.SetColour(&m_Shader, 3, {1, 2, 3, 4}));
    EXPECT_EQ(m_Shader.GetTransparency().colour, (XColour{1, 2, 3, 4}));
    EXPECT_EQ(NewBackground().GetNodeProperties(), XMaterial::ClassProperties());
    EXPECT_EQ(XMaterial::ClassProperties()->GetNumProperties(), 2u);
}

}  // namespace
