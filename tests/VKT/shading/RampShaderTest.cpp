#include "VKT/shading/RampShader.h"

#include "VKT/shading/Lambert.h"
#include "VKT/support/NodeTest.h"

using namespace VKT;
using namespace VKT::Test;

namespace {

class RampShader : public NodeTest {
protected:
    XRampShader& New() { return *m_Model.CreateNode<XRampShader>(); }

    XRampShader& m_Shader = New();
};

constexpr const char kText[] =
    "\thw_shader 1\n"
    "\tcolour 2 3 4 5 input 6\n"
    "\ttransparency 7 8 9 10 input 11\n"
    "\tcolour_ramp 2\n"
    "\tvalue 12 13 14 15 input 16\n"
    "\t\tposition 17\n"
    "\t\tinterp_type kSpline\n"
    "\n"
    "\tvalue 18 19 20 21 input 22\n"
    "\t\tposition 23\n"
    "\t\tinterp_type kNone\n"
    "\n"
    "\tspecular_ramp 0\n"
    "\n"
    "\ttransparency_ramp 0\n"
    "\n"
    "\temission_ramp 0\n"
    "\n"
    "\tenvironment_ramp 0\n"
    "\n"
    "\tspecular_roll_off_ramp 2\n"
    "\t\tvalue 24\n"
    "\t\tposition 25\n"
    "\t\tinterp_type kSmooth\n"
    "\n"
    "\t\tvalue 26\n"
    "\t\tposition 27\n"
    "\t\tinterp_type kLinear\n"
    "\n"
    "\treflectivity_ramp 1\n"
    "\t\tvalue 28\n"
    "\t\tposition 29\n"
    "\t\tinterp_type kLinear\n";
constexpr const char kBytes[] =
    "05 00 6e 6f 64 65 31 01 00 00 00 "
    "01 00 00 00 "
    "06 00 00 00 00 00 00 40 00 00 40 40 00 00 80 40 00 00 a0 40 06 00 63 6f 6c 6f 75 72 "
    "0b 00 00 00 00 00 e0 40 00 00 00 41 00 00 10 41 00 00 20 41 "
    "0c 00 74 72 61 6e 73 70 61 72 65 6e 63 79 "
    "02 00 00 00 "
    "10 00 00 00 00 00 40 41 00 00 50 41 00 00 60 41 00 00 70 41 05 00 76 61 6c 75 65 "
    "00 00 88 41 03 00 00 00 "
    "16 00 00 00 00 00 90 41 00 00 98 41 00 00 a0 41 00 00 a8 41 05 00 76 61 6c 75 65 "
    "00 00 b8 41 00 00 00 00 "
    "00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 "
    "02 00 00 00 00 00 c0 41 00 00 c8 41 02 00 00 00 00 00 d0 41 00 00 d8 41 01 00 00 00 "
    "01 00 00 00 00 00 e0 41 00 00 e8 41 01 00 00 00";

TEST_F(RampShader, FreshOneHasSevenEmptyRamps)
{
    EXPECT_EQ(ChunkOf(m_Shader),
              "RAMP_SHADER node1\n"
              "{\n"
              "\tid 1\n"
              "\thw_shader 0\n"
              "\tcolour 0.65 0.65 0.65 1 input 0\n"
              "\ttransparency 0 0 0 1 input 0\n"
              "\tcolour_ramp 0\n"
              "\n"
              "\tspecular_ramp 0\n"
              "\n"
              "\ttransparency_ramp 0\n"
              "\n"
              "\temission_ramp 0\n"
              "\n"
              "\tenvironment_ramp 0\n"
              "\n"
              "\tspecular_roll_off_ramp 0\n"
              "\n"
              "\treflectivity_ramp 0\n"
              "}\n");
    EXPECT_EQ(m_Shader.GetDataSize(), 14u + 5 + 4 + (22 + 6) + (22 + 12) + 7 * 4);
}

TEST_F(RampShader, AnswersForItsBases)
{
    for (const u32 type : {15u, 13u, 7u, 168u, 0u})
        EXPECT_EQ(m_Shader.HasFn(type), &m_Shader) << type;
    EXPECT_EQ(m_Shader.HasFn(14), nullptr);
    EXPECT_EQ(m_Shader.GetNodeProperties(), XSurfaceShader::ClassProperties());
}

TEST_F(RampShader, EitherFormReadsBack)
{
    EXPECT_TRUE(ReadText(m_Shader, kText));
    EXPECT_EQ(TextOf(m_Shader), kText);
    EXPECT_EQ(Hex(BodyOf(m_Shader)), kBytes);
    EXPECT_EQ(m_Shader.GetDataSize(), 8 + Bytes(kBytes).size());
    XRampShader& fromBytes = New();
    EXPECT_TRUE(ReadBody(fromBytes, Bytes(kBytes)));
    EXPECT_EQ(TextOf(fromBytes), kText);
    EXPECT_EQ(fromBytes.GetKeys(XRampShader::kColourRamp)[1].input->colour, (XColour{18, 19, 20, 21}));
    EXPECT_EQ(fromBytes.GetKeys(XRampShader::kSpecularRollOffRamp)[1].value, 26);
    EXPECT_EQ(fromBytes.GetInputs().size(), 2u + 2);
}

TEST_F(RampShader, KeysAreAddedToRampsOfTheirKind)
{
    EXPECT_TRUE(ReadText(m_Shader, kText));
    XRampShader& built = New();
    XShaderInput* const first = built.AddInputKey(XRampShader::kColourRamp, 17, XRampShader::kSpline);
    ASSERT_NE(first, nullptr);
    EXPECT_EQ(first->colour, (XColour{0, 0, 0, 1}));
    first->colour = {12, 13, 14, 15};
    first->input = 16;
    XShaderInput* const second = built.AddInputKey(XRampShader::kColourRamp, 23, XRampShader::kNone);
    second->colour = {18, 19, 20, 21};
    second->input = 22;
    EXPECT_TRUE(built.AddFloatKey(XRampShader::kSpecularRollOffRamp, 25, XRampShader::kSmooth, 24));
    EXPECT_TRUE(built.AddFloatKey(XRampShader::kSpecularRollOffRamp, 27, XRampShader::kLinear, 26));
    EXPECT_TRUE(built.AddFloatKey(XRampShader::kReflectivityRamp, 29, XRampShader::kLinear, 28));
    for (const u32 ramp : {5u, 6u, 7u, 0xFFFFFFFFu})
        EXPECT_EQ(built.AddInputKey(ramp, 0, 0), nullptr) << ramp;
    for (const u32 ramp : {0u, 4u, 7u, 0xFFFFFFFFu})
        EXPECT_FALSE(built.AddFloatKey(ramp, 0, 0, 0)) << ramp;
    EXPECT_TRUE(built.GetKeys(7).empty());
    const std::string text = kText;
    EXPECT_TRUE(TextOf(built).ends_with(text.substr(text.find("\tcolour_ramp"))));
}

TEST_F(RampShader, EveryWordButThreeMeansSpline)
{
    for (const char* word : {"kSpline", "kInvalid", "knone", "x"}) {
        EXPECT_TRUE(ReadText(m_Shader, Replaced(kText, "kSmooth", word))) << word;
        EXPECT_EQ(TextOf(m_Shader), Replaced(kText, "kSmooth", "kSpline")) << word;
    }
    EXPECT_EQ(m_Log.Text(), "");
}

TEST_F(RampShader, UnknownNumbersOfABinaryFileAreKeptAndWrittenAsInvalid)
{
    const std::string bytes = Replaced(kBytes, "c8 41 02 00 00 00", "c8 41 07 00 00 00");
    EXPECT_TRUE(ReadBody(m_Shader, Bytes(bytes)));
    EXPECT_EQ(TextOf(m_Shader), Replaced(kText, "kSmooth", "kInvalid"));
    EXPECT_EQ(Hex(BodyOf(m_Shader)), bytes);
}

TEST_F(RampShader, EachWrongKeyIsLoggedWithItsClassAndRow)
{
    const struct {
        const char* key;
        int row;
    } cases[] = {
        {"colour_ramp", 1}, {"reflectivity_ramp", 7}, {"value", 2}, {"position", 3}, {"interp_type", 4}};
    for (const auto& [key, row] : cases) {
        m_Log.Clear();
        EXPECT_FALSE(ReadText(New(), Replaced(kText, key, "wrong")));
        EXPECT_EQ(m_Log.Text(), std::string("Error : Expected ") + key +
                                    " got wrong [.\\src\\VKT\\RampShader:" + std::to_string(row) + "]\n");
    }
    m_Log.Clear();
    EXPECT_FALSE(ReadText(New(), Replaced(kText, "\t\tvalue 24", "\t\twrong 24")));
    EXPECT_EQ(m_Log.Text(), "Error : Expected value got wrong [.\\src\\VKT\\RampShader:7]\n");
}

TEST_F(RampShader, HalfReadRampKeepsItsKeys)
{
    EXPECT_FALSE(ReadText(m_Shader, Replaced(kText, "\tspecular_ramp", "\tend")));
    EXPECT_EQ(m_Shader.GetKeys(XRampShader::kColourRamp).size(), 2u);
    EXPECT_FALSE(ReadText(m_Shader, Replaced(kText, "roll_off_ramp 2", "roll_off_ramp 4294967295")));
    EXPECT_EQ(m_Shader.GetKeys(XRampShader::kSpecularRollOffRamp).size(), 3u);
}

TEST_F(RampShader, EveryCutFails)
{
    const std::string bytes = Bytes(kBytes);
    for (std::size_t length = 0; length < bytes.size(); ++length)
        EXPECT_FALSE(ReadBody(New(), bytes.substr(0, length))) << length;
    EXPECT_FALSE(ReadBody(New(), Bytes(Replaced(kBytes, "02 00 00 00 10", "ff ff ff ff 10"))));
    const std::string text = kText;
    for (std::size_t length = 0; length < text.rfind(" "); ++length)
        EXPECT_FALSE(ReadText(New(), text.substr(0, length))) << length;
}

TEST_F(RampShader, CloneHasKeysOfItsOwn)
{
    ASSERT_TRUE(ReadText(m_Shader, kText));
    const XRampShader& clone = *XCast<XRampShader>(m_Shader.Clone());
    m_Shader.GetKeys(XRampShader::kColourRamp)[0].input->input = 99;
    EXPECT_EQ(TextOf(clone), kText);
    m_Shader.DoCopy(&clone);
    EXPECT_EQ(TextOf(m_Shader), kText);
    m_Shader.DoCopy(&m_Shader);
    m_Shader.DoCopy(m_Model.CreateNode(kFnLambert));
    EXPECT_EQ(TextOf(m_Shader), kText);
    EXPECT_EQ(m_Shader.GetInputs().size(), 2u + 2);
}

TEST_F(RampShader, DeathOfTheFeedingNodeReachesTheKeys)
{
    const XLambert& clay = *m_Model.CreateNode<XLambert>();
    XShaderInput& input = *m_Shader.AddInputKey(XRampShader::kEmissionRamp, 0, XRampShader::kNone);
    input.input = clay.GetID();
    std::set<u32> ids;
    m_Shader.PreDelete(ids);
    EXPECT_EQ(ids, std::set<u32>{clay.GetID()});
    EXPECT_TRUE(m_Shader.NodeDeath(clay.GetID()));
    EXPECT_EQ(input.input, 0u);
}

TEST_F(RampShader, OldFilesHoldNoRamps)
{
    MakeOlder();
    const std::string expected = Replaced(
        TextOf(New()), "\thw_shader 0\n\tcolour 0.65 0.65 0.65 1 input 0\n\ttransparency 0 0 0 1 input 0\n",
        "\thw_shader 1\n\tcolour 2 3 4 5 input 6\n\ttransparency 7 8 9 10 input 11\n");
    XRampShader& fromText = New();
    EXPECT_TRUE(ReadText(fromText,
                         "ambient_color 91 91 91 91 tex 91 color 2 3 4 5 tex 6 specular_color 92 92 92 92 "
                         "tex 92 incandescence 93 93 93 93 tex 93 transparency 7 8 9 10 tex 11 bump_map 94 "
                         "env_map 95 hw_shader 1"));
    EXPECT_EQ(TextOf(fromText), expected);
    XRampShader& fromBytes = New();
    EXPECT_TRUE(ReadBody(
        fromBytes, Bytes("05 00 6e 6f 64 65 31 01 00 00 00 "
                         "63 00 00 00 00 00 c6 42 00 00 c6 42 00 00 c6 42 00 00 c6 42 "
                         "0d 00 61 6d 62 69 65 6e 74 5f 63 6f 6c 6f 72 "
                         "06 00 00 00 00 00 00 40 00 00 40 40 00 00 80 40 00 00 a0 40 05 00 63 6f 6c 6f 72 "
                         "63 00 00 00 00 00 c6 42 00 00 c6 42 00 00 c6 42 00 00 c6 42 "
                         "0e 00 73 70 65 63 75 6c 61 72 5f 63 6f 6c 6f 72 "
                         "63 00 00 00 00 00 c6 42 00 00 c6 42 00 00 c6 42 00 00 c6 42 "
                         "0d 00 69 6e 63 61 6e 64 65 73 63 65 6e 63 65 "
                         "0b 00 00 00 00 00 e0 40 00 00 00 41 00 00 10 41 00 00 20 41 "
                         "0c 00 74 72 61 6e 73 70 61 72 65 6e 63 79 "
                         "00 00 c6 42 63 00 00 00 63 00 00 00 01 00 00 00")));
    EXPECT_EQ(TextOf(fromBytes), expected);
}

}  // namespace
