#include "VKT/lights/AmbientLight.h"
#include "VKT/lights/AreaLight.h"
#include "VKT/lights/DirectionalLight.h"
#include "VKT/lights/PointLight.h"
#include "VKT/support/NodeTest.h"

// The lights that are little more than their bases. SpotLightTest.cpp tests the bases.

using namespace VKT;
using namespace VKT::Test;

namespace {

constexpr const char kLight[] =
    "\tcolour\t\t1 2 3\n"
    "\tintensity\t4\n"
    "\tshadow_colour\t5 6 7\n"
    "\temit_ambient 1\n"
    "\temit_diffuse 0\n"
    "\temit_specular 1\n";
constexpr const char kFreshLight[] =
    "\tcolour\t\t0.9 0.9 0.9\n"
    "\tintensity\t1\n"
    "\tshadow_colour\t0 0 0\n"
    "\temit_ambient 0\n"
    "\temit_diffuse 0\n"
    "\temit_specular 0\n";
constexpr const char kExtended[] =
    "\tuse_depth_map_shadows\t1\n"
    "\tcast_soft_shadows\t0\n"
    "\tshadow_radius\t8\n"
    "\tdecay_rate\t9\n"
    "\tdepth_map_filter_size\t10\n"
    "\tdepth_map_resolution\t11\n"
    "\tdepth_map_bias\t12\n";
constexpr const char kFreshExtended[] =
    "\tuse_depth_map_shadows\t0\n"
    "\tcast_soft_shadows\t0\n"
    "\tshadow_radius\t0\n"
    "\tdecay_rate\t0\n"
    "\tdepth_map_filter_size\t1\n"
    "\tdepth_map_resolution\t512\n"
    "\tdepth_map_bias\t0.01\n";
constexpr const char kLightBytes[] =
    "05 00 6e 6f 64 65 31 01 00 00 00 "
    "00 00 80 3f 00 00 00 40 00 00 40 40 00 00 80 40 00 00 a0 40 00 00 c0 40 00 00 e0 40 ";
constexpr const char kEmitBytes[] = "01 00 01 ";
constexpr const char kExtendedBytes[] = "01 00 00 00 00 41 00 00 10 41 00 00 20 41 00 00 30 41 00 00 40 41";

// A class of light by its texts and bytes.
struct LightClass {
    const char* name;
    u32 type;
    const char* chunkName;
    std::vector<u32> bases;
    std::string fresh;
    std::string text;
    std::string bytesBehindEmit;
    std::vector<std::string> ownKeys;
};

std::ostream& operator<<(std::ostream& out, const LightClass& light)
{
    return out << light.name;
}

const LightClass kClasses[] = {
    {"AmbientLight",
     77,
     "AMBIENT_LIGHT",
     {76, 25, 0},
     "\tambient_shade\t0\n\tcast_soft_shadows\t0\n\tshadow_radius\t100\n",
     "\tambient_shade\t8\n\tcast_soft_shadows\t1\n\tshadow_radius\t9\n",
     "00 00 00 41 01 00 00 10 41",
     {"ambient_shade", "cast_soft_shadows", "shadow_radius"}},
    {"AreaLight", 79, "AREA_LIGHT", {78, 76, 25, 0}, kFreshExtended, kExtended, kExtendedBytes, {}},
    {"PointLight", 80, "POINT_LIGHT", {78, 76, 25, 0}, kFreshExtended, kExtended, kExtendedBytes, {}},
    {"DirectionalLight",
     81,
     "DIRECTIONAL_LIGHT",
     {78, 76, 25, 0},
     std::string(kFreshExtended) + "\tshadow_angle\t0\n",
     std::string(kExtended) + "\tshadow_angle\t13\n",
     std::string(kExtendedBytes) + " 00 00 50 41",
     {"shadow_angle"}},
};

class LightTest : public NodeTest, public testing::WithParamInterface<LightClass> {
protected:
    XLight& New() { return *XCast<XLight>(m_Model.CreateNode(GetParam().type)); }

    const std::string m_Text = kLight + GetParam().text;
    const std::string m_Bytes = kLightBytes + (kEmitBytes + GetParam().bytesBehindEmit);
    XLight& m_Light = New();
};

INSTANTIATE_TEST_SUITE_P(All, LightTest, testing::ValuesIn(kClasses),
                         [](const auto& light) { return std::string(light.param.name); });

TEST_P(LightTest, FreshOneWritesItsDefaults)
{
    EXPECT_EQ(ChunkOf(m_Light), std::string(GetParam().chunkName) + " node1\n{\n\tid 1\n" + kFreshLight +
                                    GetParam().fresh + "}\n");
    EXPECT_EQ(m_Light.GetDataSize(), 8 + Bytes(m_Bytes).size());
}

TEST_P(LightTest, AnswersForItsBases)
{
    for (const u32 type : GetParam().bases)
        EXPECT_EQ(m_Light.HasFn(type), &m_Light) << type;
    EXPECT_EQ(m_Light.HasFn(82), nullptr);
    EXPECT_EQ(m_Light.HasFn(78) != nullptr, GetParam().type != 77);
}

TEST_P(LightTest, EitherFormReadsBack)
{
    EXPECT_TRUE(ReadText(m_Light, m_Text));
    EXPECT_EQ(TextOf(m_Light), m_Text);
    EXPECT_EQ(Hex(BodyOf(m_Light)), m_Bytes);
    XLight& fromBytes = New();
    EXPECT_TRUE(ReadBody(fromBytes, Bytes(m_Bytes)));
    EXPECT_EQ(TextOf(fromBytes), m_Text);
}

TEST_P(LightTest, OlderFilesDoNotSayWhatItEmits)
{
    MakeOlder();
    const std::string expected = Replaced(Replaced(m_Text, "ambient 1", "ambient 0"), "lar 1", "lar 0");
    XLight& fromText = New();
    EXPECT_TRUE(
        ReadText(fromText, Replaced(m_Text, "\temit_ambient 1\n\temit_diffuse 0\n\temit_specular 1\n", "")));
    EXPECT_EQ(TextOf(fromText), expected);
    XLight& fromBytes = New();
    EXPECT_TRUE(ReadBody(fromBytes, Bytes(kLightBytes + GetParam().bytesBehindEmit)));
    EXPECT_EQ(TextOf(fromBytes), expected);
}

TEST_P(LightTest, EachWrongKeyIsLoggedWithItsClassAndRow)
{
    int row = 0;
    for (const std::string& key : GetParam().ownKeys) {
        m_Log.Clear();
        EXPECT_FALSE(ReadText(New(), Replaced(m_Text, "\t" + key, "\tWrong")));
        EXPECT_EQ(m_Log.Text(), "Error : Expected " + key + " got wrong [.\\src\\VKT\\" + GetParam().name +
                                    ":" + std::to_string(++row) + "]\n");
    }
}

TEST_P(LightTest, EveryCutOfTheBytesFails)
{
    const std::string bytes = Bytes(m_Bytes);
    for (std::size_t length = 0; length < bytes.size(); ++length)
        EXPECT_FALSE(ReadBody(New(), bytes.substr(0, length))) << length;
}

TEST_P(LightTest, CloneHasAllValues)
{
    ASSERT_TRUE(ReadText(m_Light, m_Text));
    EXPECT_EQ(TextOf(*m_Light.Clone()), m_Text);
}

class Lights : public NodeTest {};

TEST_F(Lights, AmbientShadowsAreOfItsOwn)
{
    XAmbientLight& light = *m_Model.CreateNode<XAmbientLight>();
    light.SetAmbientShade(8);
    light.SetCastSoftShadows(true);
    light.SetShadowRadius(9);
    EXPECT_EQ(TextOf(light), kFreshLight + kClasses[0].text);
    EXPECT_EQ(light.GetAmbientShade(), 8);
    EXPECT_TRUE(light.CastsSoftShadows());
    EXPECT_EQ(light.GetShadowRadius(), 9);
}

TEST_F(Lights, DirectionalHasItsAngle)
{
    XDirectionalLight& light = *m_Model.CreateNode<XDirectionalLight>();
    light.SetShadowAngle(13);
    EXPECT_EQ(TextOf(light), std::string(kFreshLight) + kFreshExtended + "\tshadow_angle\t13\n");
    EXPECT_EQ(light.GetShadowAngle(), 13);
}

TEST_F(Lights, PropertiesReachTheFields)
{
    XAmbientLight& ambient = *m_Model.CreateNode<XAmbientLight>();
    const XNodeProperties& ambientTable = *ambient.GetNodeProperties();
    EXPECT_EQ(ambientTable.GetNumProperties(), 9u);
    EXPECT_EQ(ambient.GetPropertyId("ambient_shade"), 7u);
    EXPECT_EQ(ambient.GetPropertyId("shadow_radius"), 8u);
    EXPECT_EQ(ambient.GetPropertyId("casts_soft_shadows"), 9u);
    EXPECT_TRUE(ambient.IsPropertyAnimated(7));
    EXPECT_TRUE(ambient.IsPropertyAnimated(8));
    EXPECT_FALSE(ambient.IsPropertyAnimated(9));
    EXPECT_TRUE(ambientTable.SetFloat(&ambient, 7, 8));
    EXPECT_TRUE(ambientTable.SetFloat(&ambient, 8, 9));
    EXPECT_TRUE(ambientTable.SetBool(&ambient, 9, true));
    EXPECT_EQ(TextOf(ambient), kFreshLight + kClasses[0].text);

    XDirectionalLight& sun = *m_Model.CreateNode<XDirectionalLight>();
    const XNodeProperties& sunTable = *sun.GetNodeProperties();
    EXPECT_EQ(sunTable.GetNumProperties(), 14u);
    EXPECT_EQ(sun.GetPropertyId("shadow_angle"), 14u);
    EXPECT_TRUE(sun.IsPropertyAnimated(14));
    EXPECT_TRUE(sunTable.SetFloat(&sun, 14, 13));
    EXPECT_EQ(sun.GetShadowAngle(), 13);

    for (const u32 type : {kFnAreaLight, kFnPointLight})
        EXPECT_EQ(m_Model.CreateNode(type)->GetNodeProperties(), XExtendedLight::ClassProperties());
    EXPECT_EQ(XExtendedLight::ClassProperties()->GetNumProperties(), 13u);
}

}  // namespace
