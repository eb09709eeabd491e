#include "VKT/shading/Anisotropic.h"
#include "VKT/shading/Blinn.h"
#include "VKT/shading/Phong.h"
#include "VKT/shading/PhongE.h"
#include "VKT/support/NodeTest.h"

// The materials with a highlight. LambertTest.cpp tests what their bases say.

using namespace VKT;
using namespace VKT::Test;

namespace {

constexpr const char kText[] =
    "\thw_shader 1\n"
    "\tcolour 2 3 4 5 input 6\n"
    "\tambient_colour 7 8 9 10 input 11\n"
    "\tincandescence 12 13 14 15 input 16\n"
    "\ttransparency 17 18 19 20 input 21\n"
    "\tbump_map 22\n"
    "\tenv_map 23\n"
    "\tspecular_colour 24 25 26 27 input 28\n";
constexpr const char kFresh[] =
    "\thw_shader 0\n"
    "\tcolour 0.65 0.65 0.65 1 input 0\n"
    "\tambient_colour 0.2 0.2 0.2 1 input 0\n"
    "\tincandescence 0 0 0 1 input 0\n"
    "\ttransparency 0 0 0 1 input 0\n"
    "\tbump_map 0\n"
    "\tenv_map 0\n"
    "\tspecular_colour 0 0 0 1 input 0\n";
constexpr const char kBytes[] =
    "05 00 6e 6f 64 65 31 01 00 00 00 "
    "01 00 00 00 "
    "06 00 00 00 00 00 00 40 00 00 40 40 00 00 80 40 00 00 a0 40 06 00 63 6f 6c 6f 75 72 "
    "0b 00 00 00 00 00 e0 40 00 00 00 41 00 00 10 41 00 00 20 41 "
    "0e 00 61 6d 62 69 65 6e 74 5f 63 6f 6c 6f 75 72 "
    "10 00 00 00 00 00 40 41 00 00 50 41 00 00 60 41 00 00 70 41 "
    "0d 00 69 6e 63 61 6e 64 65 73 63 65 6e 63 65 "
    "15 00 00 00 00 00 88 41 00 00 90 41 00 00 98 41 00 00 a0 41 "
    "0c 00 74 72 61 6e 73 70 61 72 65 6e 63 79 "
    "16 00 00 00 17 00 00 00 "
    "1c 00 00 00 00 00 c0 41 00 00 c8 41 00 00 d0 41 00 00 d8 41 "
    "0f 00 73 70 65 63 75 6c 61 72 5f 63 6f 6c 6f 75 72";
constexpr const char kOldText[] =
    "\tambient_color 7 8 9 10 tex 11\n"
    "\tcolor 2 3 4 5 tex 6\n"
    "\tspecular_color 24 25 26 27 tex 28\n"
    "\tincandescence 12 13 14 15 tex 16\n"
    "\ttransparency 17 18 19 20 tex 21\n"
    "\tbump_map 22\n"
    "\tenv_map 23\n"
    "\thw_shader 1\n";
constexpr const char kOldBytes[] =
    "05 00 6e 6f 64 65 31 01 00 00 00 "
    "0b 00 00 00 00 00 e0 40 00 00 00 41 00 00 10 41 00 00 20 41 "
    "0d 00 61 6d 62 69 65 6e 74 5f 63 6f 6c 6f 72 "
    "06 00 00 00 00 00 00 40 00 00 40 40 00 00 80 40 00 00 a0 40 05 00 63 6f 6c 6f 72 "
    "1c 00 00 00 00 00 c0 41 00 00 c8 41 00 00 d0 41 00 00 d8 41 "
    "0e 00 73 70 65 63 75 6c 61 72 5f 63 6f 6c 6f 72 "
    "10 00 00 00 00 00 40 41 00 00 50 41 00 00 60 41 00 00 70 41 "
    "0d 00 69 6e 63 61 6e 64 65 73 63 65 6e 63 65 "
    "15 00 00 00 00 00 88 41 00 00 90 41 00 00 98 41 00 00 a0 41 "
    "0c 00 74 72 61 6e 73 70 61 72 65 6e 63 79 "
    "00 00 f8 41 "  // shininess 31
    "16 00 00 00 17 00 00 00 01 00 00 00";

// A class by what it adds to the base.
struct Material {
    const char* name;
    u32 type;
    const char* chunkName;
    const char* fresh;
    const char* text;
    const char* bytes;
    const char* oldBytes;
    f32 oldShininess;  // that an old binary file gives
    std::vector<std::string> keys;
};

std::ostream& operator<<(std::ostream& out, const Material& material)
{
    return out << material.name;
}

const Material kMaterials[] = {
    {"Anisotropic",
     8,
     "ANISOTROPIC",
     "\ttangentu 0 0 0 0\n\ttangentv 0 0 0 0\n\tcorrelation_x 0\n\tcorrelation_y 0\n\troughness 0\n"
     "\trotate_angle 0\n\trefractive_index 0\n\tanisotropic_reflectivity 0\n",
     "\ttangentu 1 2 3 4\n\ttangentv 5 6 7 8\n\tcorrelation_x 9\n\tcorrelation_y 10\n\troughness 11\n"
     "\trotate_angle 12\n\trefractive_index 13\n\tanisotropic_reflectivity 1\n",
     " 00 00 80 3f 00 00 00 40 00 00 40 40 00 00 80 40"
     " 00 00 a0 40 00 00 c0 40 00 00 e0 40 00 00 00 41"
     " 00 00 10 41 00 00 20 41 00 00 30 41 00 00 40 41 00 00 50 41 01",
     " 00 00 80 3f 00 00 00 40 00 00 40 40 00 00 80 40"
     " 00 00 a0 40 00 00 c0 40 00 00 e0 40 00 00 00 41"
     " 00 00 10 41 00 00 20 41 00 00 30 41 00 00 40 41 00 00 50 41 01",
     31,
     {"tangentu", "tangentv", "correlation_x", "correlation_y", "roughness", "rotate_angle",
      "refractive_index", "anisotropic_reflectivity"}},
    {"Blinn",
     9,
     "BLINN",
     "\teccentricity 0\n\tspecular_roll_off 0\n",
     "\teccentricity 0.25\n\tspecular_roll_off 2\n",
     " 00 00 80 3e 00 00 00 40",
     " 00 00 80 3e 00 00 00 40",
     67.5f,
     {"eccentricity", "specular_roll_off"}},
    {"Phong", 11, "PHONG", "\tshininess 0\n", "\tshininess 31\n", " 00 00 f8 41", "", 31, {"shininess"}},
    {"PhongE",
     12,
     "PHONGE",
     "\thighlight_size 0\n\troughness 0\n",
     "\thighlight_size 1\n\troughness 2\n",
     " 00 00 80 3f 00 00 00 40",
     " 00 00 80 3f 00 00 00 40",
     31,
     {"highlight_size", "roughness"}},
};

class Specular : public NodeTest, public testing::WithParamInterface<Material> {
protected:
    XSpecular& New() { return *XCast<XSpecular>(m_Model.CreateNode(GetParam().type)); }

    const std::string m_Text = std::string(kText) + GetParam().text;
    const std::string m_Bytes = std::string(kBytes) + GetParam().bytes;
    const std::string m_OldText = std::string(kOldText) + GetParam().text;
    const std::string m_OldBytes = std::string(kOldBytes) + GetParam().oldBytes;
    XSpecular& m_Node = New();
};

INSTANTIATE_TEST_SUITE_P(All, Specular, testing::ValuesIn(kMaterials),
                         [](const auto& material) { return std::string(material.param.name); });

TEST_P(Specular, FreshOneWritesItsDefaults)
{
    EXPECT_EQ(ChunkOf(m_Node),
              std::string(GetParam().chunkName) + " node1\n{\n\tid 1\n" + kFresh + GetParam().fresh + "}\n");
    EXPECT_EQ(m_Node.GetDataSize(), 8 + Bytes(m_Bytes).size());
    EXPECT_EQ(m_Node.GetShininess(), 0);
}

TEST_P(Specular, AnswersForItsBases)
{
    for (const u32 type : {GetParam().type, 169u, 10u, 7u, 168u, 0u})
        EXPECT_EQ(m_Node.HasFn(type), &m_Node) << type;
    EXPECT_EQ(m_Node.HasFn(13), nullptr);
}

TEST_P(Specular, EitherFormReadsBack)
{
    EXPECT_TRUE(ReadText(m_Node, m_Text));
    EXPECT_EQ(TextOf(m_Node), m_Text);
    EXPECT_EQ(Hex(BodyOf(m_Node)), m_Bytes);
    XSpecular& fromBytes = New();
    EXPECT_TRUE(ReadBody(fromBytes, Bytes(m_Bytes)));
    EXPECT_EQ(TextOf(fromBytes), m_Text);
    EXPECT_EQ(fromBytes.GetSpecularColour().colour, (XColour{24, 25, 26, 27}));
    EXPECT_EQ(fromBytes.GetSpecularColour().input, 28u);
}

TEST_P(Specular, EachWrongKeyIsLoggedWithItsClassAndRow)
{
    EXPECT_FALSE(ReadText(m_Node, Replaced(m_Text, "specular_colour", "specular_color")));
    EXPECT_EQ(m_Log.Text(),
              "Error : Expected specular_colour got specular_color [.\\src\\VKT\\Specular:1]\n");
    int row = 0;
    for (const std::string& key : GetParam().keys) {
        m_Log.Clear();
        EXPECT_FALSE(ReadText(New(), Replaced(m_Text, "\t" + key, "\tWrong")));
        EXPECT_EQ(m_Log.Text(), "Error : Expected " + key + " got wrong [.\\src\\VKT\\" + GetParam().name +
                                    ":" + std::to_string(++row) + "]\n");
    }
}

TEST_P(Specular, NumberThatDoesNotComeAtTheEndFailsInSilence)
{
    const std::string key = "\t" + GetParam().keys.back() + " ";
    EXPECT_FALSE(ReadText(m_Node, m_Text.substr(0, m_Text.rfind(key) + key.size()) + "x\n"));
    EXPECT_EQ(m_Log.Text(), "");
}

TEST_P(Specular, EveryCutOfTheBytesFails)
{
    const std::string bytes = Bytes(m_Bytes);
    for (std::size_t length = 0; length < bytes.size(); ++length)
        EXPECT_FALSE(ReadBody(New(), bytes.substr(0, length))) << length;
}

TEST_P(Specular, CloneHasAllValuesAndTheShininess)
{
    ASSERT_TRUE(ReadText(m_Node, m_Text));
    m_Node.SetShininess(31);
    const XSpecular& clone = *XCast<XSpecular>(m_Node.Clone());
    EXPECT_EQ(TextOf(clone), m_Text);
    EXPECT_EQ(clone.GetShininess(), 31);
}

TEST_P(Specular, OldTextIsReadWithItsSpellings)
{
    MakeOlder();
    XSpecular& node = New();
    EXPECT_TRUE(ReadText(node, m_OldText));
    EXPECT_EQ(TextOf(node), m_Text);
    EXPECT_FALSE(ReadText(New(), m_Text));
    EXPECT_EQ(m_Log.Text(), "Error : Expected ambient_color got hw_shader [.\\src\\VKT\\Specular:1]\n");
}

TEST_P(Specular, OldBytesAreReadWithTheirSpellings)
{
    MakeOlder();
    XSpecular& node = New();
    EXPECT_TRUE(ReadBody(node, Bytes(m_OldBytes)));
    EXPECT_EQ(TextOf(node), m_Text);
    EXPECT_EQ(node.GetShininess(), GetParam().oldShininess);
    EXPECT_EQ(Hex(BodyOf(node)), m_Bytes);
}

TEST_P(Specular, OldBytesWithAnotherNameAreRefusedInSilence)
{
    MakeOlder();
    const struct {
        const char* name;
        const char* other;
    } cases[] = {
        {"0d 00 61 6d 62 69 65 6e 74 5f 63 6f 6c 6f 72", "0e 00 61 6d 62 69 65 6e 74 5f 63 6f 6c 6f 75 72"},
        {"05 00 63 6f 6c 6f 72", "06 00 63 6f 6c 6f 75 72"},
        {"0e 00 73 70 65 63 75 6c 61 72 5f 63 6f 6c 6f 72",
         "0f 00 73 70 65 63 75 6c 61 72 5f 63 6f 6c 6f 75 72"},
    };
    for (const auto& [name, other] : cases)
        EXPECT_FALSE(ReadBody(New(), Bytes(Replaced(m_OldBytes, name, other)))) << name;
    EXPECT_EQ(m_Log.Text(), "");
}

TEST_P(Specular, EveryCutOfTheOldBytesFails)
{
    MakeOlder();
    const std::string bytes = Bytes(m_OldBytes);
    for (std::size_t length = 0; length < bytes.size(); ++length)
        EXPECT_FALSE(ReadBody(New(), bytes.substr(0, length))) << length;
}

TEST_P(Specular, NullDisconnectsTheSpecularColourAlone)
{
    const u32 feeding = New().GetID();
    for (XShaderInput* input : {&m_Node.GetSpecularColour(), &m_Node.GetColour()})
        ASSERT_TRUE(m_Node.Connect(*input, m_Model.FindNode(feeding)));
    EXPECT_TRUE(m_Node.Connect(m_Node.GetSpecularColour(), nullptr));
    EXPECT_EQ(m_Node.GetSpecularColour().input, 0u);
    EXPECT_FALSE(m_Node.Connect(m_Node.GetColour(), nullptr));
    EXPECT_EQ(m_Node.GetColour().input, feeding);
    XModel other;
    EXPECT_FALSE(m_Node.Connect(m_Node.GetSpecularColour(), other.CreateNode(kFnLambert)));
}

TEST_P(Specular, DeathOfTheFeedingNodeDisconnectsTheSpecularColour)
{
    XSpecular& feeding = New();
    ASSERT_TRUE(m_Node.Connect(m_Node.GetSpecularColour(), &feeding));
    EXPECT_EQ(m_Node.GetConnected(m_Node.GetSpecularColour()), &feeding);
    EXPECT_TRUE(m_Node.NodeDeath(feeding.GetID()));
    EXPECT_EQ(m_Node.GetConnected(m_Node.GetSpecularColour()), nullptr);
}

TEST_P(Specular, PropertiesOfTheBase)
{
    const XNodeProperties& properties = *m_Node.GetNodeProperties();
    EXPECT_EQ(m_Node.GetPropertyId("specular"), 8u);
    EXPECT_EQ(m_Node.GetPropertyId("shininess"), 9u);
    EXPECT_TRUE(m_Node.IsPropertyAnimated(8));
    EXPECT_TRUE(m_Node.IsPropertyAnimated(9));
    EXPECT_TRUE(properties.SetColour(&m_Node, 8, {1, 2, 3, 4}));
    EXPECT_TRUE(properties.SetFloat(&m_Node, 9, 5));
    EXPECT_EQ(m_Node.GetSpecularColour().colour, (XColour{1, 2, 3, 4}));
    EXPECT_EQ(m_Node.GetShininess(), 5);
}

class Speculars : public NodeTest {};

TEST_F(Speculars, SettersAndPropertiesReachTheFieldsOfAnisotropic)
{
    XAnisotropic& node = *m_Model.CreateNode<XAnisotropic>();
    node.SetTangentU({1, 2, 3, 4});
    node.SetTangentV({5, 6, 7, 8});
    node.SetCorrelationX(9);
    node.SetCorrelationY(10);
    node.SetRoughness(11);
    node.SetRotateAngle(12);
    node.SetRefractiveIndex(13);
    node.SetAnisotropicReflectivity(true);
    EXPECT_EQ(TextOf(node), std::string(kFresh) + kMaterials[0].text);
    EXPECT_EQ(node.GetTangentU(), (XColour{1, 2, 3, 4}));
    EXPECT_EQ(node.GetTangentV(), (XColour{5, 6, 7, 8}));
    EXPECT_EQ(node.GetCorrelationX(), 9);
    EXPECT_EQ(node.GetCorrelationY(), 10);
    EXPECT_EQ(node.GetRoughness(), 11);
    EXPECT_EQ(node.GetRotateAngle(), 12);
    EXPECT_EQ(node.GetRefractiveIndex(), 13);
    EXPECT_TRUE(node.HasAnisotropicReflectivity());

    XAnisotropic& other = *m_Model.CreateNode<XAnisotropic>();
    const XNodeProperties& properties = *other.GetNodeProperties();
    EXPECT_EQ(properties.GetNumProperties(), 16u);
    EXPECT_TRUE(properties.SetColour(&other, 10, {1, 2, 3, 4}));
    EXPECT_TRUE(properties.SetColour(&other, 11, {5, 6, 7, 8}));
    for (u32 id = 12; id <= 16; ++id)
        EXPECT_TRUE(properties.SetFloat(&other, id, static_cast<f32>(id - 3)));
    for (u32 id = 10; id <= 16; ++id)
        EXPECT_TRUE(other.IsPropertyAnimated(id));
    other.SetAnisotropicReflectivity(true);  // no property of its own
    EXPECT_EQ(TextOf(other), TextOf(node));
}

TEST_F(Speculars, SettersAndPropertiesReachTheFieldsOfPhongE)
{
    XPhongE& node = *m_Model.CreateNode<XPhongE>();
    node.SetHighlightSize(1);
    node.SetRoughness(2);
    EXPECT_EQ(TextOf(node), std::string(kFresh) + kMaterials[3].text);
    const XNodeProperties& properties = *node.GetNodeProperties();
    EXPECT_EQ(properties.GetNumProperties(), 11u);
    EXPECT_EQ(node.GetPropertyId("highlight_size"), 10u);
    EXPECT_EQ(node.GetPropertyId("roughness"), 11u);
    EXPECT_TRUE(properties.SetFloat(&node, 10, 3));
    EXPECT_TRUE(properties.SetFloat(&node, 11, 4));
    EXPECT_EQ(node.GetHighlightSize(), 3);
    EXPECT_EQ(node.GetRoughness(), 4);
}

TEST_F(Speculars, SettersAndPropertiesReachTheFieldsOfBlinn)
{
    XBlinn& node = *m_Model.CreateNode<XBlinn>();
    node.SetEccentricity(0.25f);
    node.SetSpecularRollOff(2);
    EXPECT_EQ(TextOf(node), std::string(kFresh) + kMaterials[1].text);
    const XNodeProperties& properties = *node.GetNodeProperties();
    EXPECT_EQ(properties.GetNumProperties(), 11u);
    EXPECT_EQ(node.GetPropertyId("eccentricity"), 10u);
    EXPECT_EQ(node.GetPropertyId("specular_roll_off"), 11u);
    EXPECT_TRUE(properties.SetFloat(&node, 10, 3));
    EXPECT_TRUE(properties.SetFloat(&node, 11, 4));
    EXPECT_EQ(node.GetEccentricity(), 3);
    EXPECT_EQ(node.GetSpecularRollOff(), 4);
}

TEST_F(Speculars, PhongHasNoVocabularyOfItsOwn)
{
    EXPECT_EQ(m_Model.CreateNode(kFnPhong)->GetNodeProperties(), XSpecular::ClassProperties());
    EXPECT_EQ(XSpecular::ClassProperties()->GetNumProperties(), 9u);
}

TEST_F(Speculars, ShininessOfBlinnFollowsFromItsEccentricity)
{
    XBlinn& node = *m_Model.CreateNode<XBlinn>();
    node.SetEccentricity(0.25f);
    node.GetDataSize();
    TextOf(node);
    EXPECT_EQ(node.GetShininess(), 0);  // neither a measure nor a text write tells
    const std::string body = BodyOf(node);
    EXPECT_EQ(node.GetShininess(), 67.5f);
    node.SetShininess(1);
    EXPECT_TRUE(ReadBody(node, body));
    EXPECT_EQ(node.GetShininess(), 67.5f);
    node.SetShininess(1);
    EXPECT_FALSE(ReadBody(node, body.substr(0, body.size() - 1)));
    EXPECT_EQ(node.GetShininess(), 1);
    EXPECT_TRUE(ReadText(node, std::string(kFresh) + "eccentricity 0.5 specular_roll_off 0"));
    EXPECT_EQ(node.GetShininess(), 45);
    MakeOlder();
    XBlinn& old = *m_Model.CreateNode<XBlinn>();
    EXPECT_TRUE(ReadText(old, std::string(kOldText) + "eccentricity 0.5 specular_roll_off 0"));
    EXPECT_EQ(old.GetShininess(), 45);
}

TEST_F(Speculars, BaseIsAbstract)
{
    EXPECT_EQ(m_Model.CreateNode(kFnSpecular), nullptr);
}

}  // namespace
