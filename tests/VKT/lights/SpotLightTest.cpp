#include "VKT/lights/SpotLight.h"

#include "VKT/support/NodeTest.h"

using namespace VKT;
using namespace VKT::Test;

namespace {

class SpotLight : public NodeTest {
protected:
    XSpotLight& New() { return *m_Model.CreateNode<XSpotLight>(); }
    XSpotLight& m_Light = New();
};

constexpr const char kText[] =
    "\tcolour\t\t1 2 3\n"
    "\tintensity\t4\n"
    "\tshadow_colour\t5 6 7\n"
    "\temit_ambient 1\n"
    "\temit_diffuse 0\n"
    "\temit_specular 1\n"
    "\tuse_depth_map_shadows\t1\n"
    "\tcast_soft_shadows\t0\n"
    "\tshadow_radius\t8\n"
    "\tdecay_rate\t9\n"
    "\tdepth_map_filter_size\t10\n"
    "\tdepth_map_resolution\t11\n"
    "\tdepth_map_bias\t12\n"
    "\tcone_angle\t13\n"
    "\tpenumbra_angle\t14\n"
    "\tdrop_off\t15\n"
    "\tbarn_doors\t1\n"
    "\t\tleft_barn_door_angle\t16\n"
    "\t\tright_barn_door_angle\t17\n"
    "\t\ttop_barn_door_angle\t18\n"
    "\t\tbottom_barn_door_angle\t19\n"
    "\tuse_decay_regions\t0\n"
    "\t\tdecay_1\t20 21\n"
    "\t\tdecay_2\t22 23\n"
    "\t\tdecay_3\t24 25\n";
constexpr const char kBytes[] =
    "05 00 6e 6f 64 65 31 01 00 00 00 "
    "00 00 80 3f 00 00 00 40 00 00 40 40 "  // colour
    "00 00 80 40 "                          // intensity
    "00 00 a0 40 00 00 c0 40 00 00 e0 40 "  // shadow colour
    "01 00 01 "                             // emit
    "01 00 00 00 00 41 00 00 10 41 00 00 20 41 00 00 30 41 00 00 40 41 "
    "00 00 50 41 00 00 60 41 00 00 70 41 "  // cone, penumbra, drop off
    "01 00 00 80 41 00 00 88 41 00 00 90 41 00 00 98 41 "
    "00 00 00 a0 41 00 00 a8 41 00 00 b0 41 00 00 b8 41 00 00 c0 41 00 00 c8 41";

TEST_F(SpotLight, FreshOneWritesItsDefaults)
{
    EXPECT_EQ(ChunkOf(m_Light),
              "SPOT_LIGHT node1\n"
              "{\n"
              "\tid 1\n"
              "\tcolour\t\t0.9 0.9 0.9\n"
              "\tintensity\t1\n"
              "\tshadow_colour\t0 0 0\n"
              "\temit_ambient 0\n"
              "\temit_diffuse 0\n"
              "\temit_specular 0\n"
              "\tuse_depth_map_shadows\t0\n"
              "\tcast_soft_shadows\t0\n"
              "\tshadow_radius\t0\n"
              "\tdecay_rate\t0\n"
              "\tdepth_map_filter_size\t1\n"
              "\tdepth_map_resolution\t512\n"
              "\tdepth_map_bias\t0.01\n"
              "\tcone_angle\t0.698132\n"
              "\tpenumbra_angle\t0\n"
              "\tdrop_off\t0\n"
              "\tbarn_doors\t0\n"
              "\t\tleft_barn_door_angle\t0.349066\n"
              "\t\tright_barn_door_angle\t0.349066\n"
              "\t\ttop_barn_door_angle\t0.349066\n"
              "\t\tbottom_barn_door_angle\t0.349066\n"
              "\tuse_decay_regions\t0\n"
              "\t\tdecay_1\t1 2\n"
              "\t\tdecay_2\t3 6\n"
              "\t\tdecay_3\t8 10\n"
              "}\n");
    EXPECT_EQ(m_Light.GetDataSize(), 14u + 5 + 31 + 22 + 54);
    EXPECT_EQ(m_Light.GetConeAngle(), 0.69813198f);
    EXPECT_EQ(m_Light.GetTopBarnDoorAngle(), 0.34906599f);
}

TEST_F(SpotLight, AnswersForItsBases)
{
    for (const u32 type : {82u, 78u, 76u, 25u, 0u})
        EXPECT_EQ(m_Light.HasFn(type), &m_Light) << type;
    for (const u32 type : {26u, 77u, 80u})
        EXPECT_EQ(m_Light.HasFn(type), nullptr) << type;
}

TEST_F(SpotLight, TextReadsBackToItsPlaces)
{
    EXPECT_TRUE(ReadText(m_Light, kText));
    EXPECT_EQ(TextOf(m_Light), kText);
    EXPECT_EQ(m_Light.GetColour(), (XColour{1, 2, 3, 1}));
    EXPECT_EQ(m_Light.GetIntensity(), 4);
    EXPECT_EQ(m_Light.GetShadowColour(), (XColour{5, 6, 7, 0}));
    EXPECT_TRUE(m_Light.EmitsAmbient());
    EXPECT_FALSE(m_Light.EmitsDiffuse());
    EXPECT_TRUE(m_Light.EmitsSpecular());
    EXPECT_TRUE(m_Light.UsesDepthMapShadows());
    EXPECT_FALSE(m_Light.CastsSoftShadows());
    EXPECT_EQ(m_Light.GetShadowRadius(), 8);
    EXPECT_EQ(m_Light.GetDecayRate(), 9);
    EXPECT_EQ(m_Light.GetDepthMapFilterSize(), 10);
    EXPECT_EQ(m_Light.GetDepthMapResolution(), 11);
    EXPECT_EQ(m_Light.GetDepthMapBias(), 12);
    EXPECT_EQ(m_Light.GetConeAngle(), 13);
    EXPECT_EQ(m_Light.GetPenumbraAngle(), 14);
    EXPECT_EQ(m_Light.GetDropOff(), 15);
    EXPECT_TRUE(m_Light.HasBarnDoors());
    EXPECT_EQ(m_Light.GetLeftBarnDoorAngle(), 16);
    EXPECT_EQ(m_Light.GetRightBarnDoorAngle(), 17);
    EXPECT_EQ(m_Light.GetTopBarnDoorAngle(), 18);
    EXPECT_EQ(m_Light.GetBottomBarnDoorAngle(), 19);
    EXPECT_FALSE(m_Light.UsesDecayRegions());
    EXPECT_EQ(m_Light.GetFirstDecayStart(), 20);
    EXPECT_EQ(m_Light.GetFirstDecayEnd(), 21);
    EXPECT_EQ(m_Light.GetSecondDecayStart(), 22);
    EXPECT_EQ(m_Light.GetSecondDecayEnd(), 23);
    EXPECT_EQ(m_Light.GetThirdDecayStart(), 24);
    EXPECT_EQ(m_Light.GetThirdDecayEnd(), 25);
}

TEST_F(SpotLight, SettersReachTheirFields)
{
    m_Light.SetColour({1, 2, 3});
    m_Light.SetIntensity(4);
    m_Light.SetShadowColour({5, 6, 7});
    m_Light.SetEmitAmbient(true);
    m_Light.SetEmitDiffuse(false);
    m_Light.SetEmitSpecular(true);
    m_Light.SetUseDepthMapShadows(true);
    m_Light.SetCastSoftShadows(false);
    m_Light.SetShadowRadius(8);
    m_Light.SetDecayRate(9);
    m_Light.SetDepthMapFilterSize(10);
    m_Light.SetDepthMapResolution(11);
    m_Light.SetDepthMapBias(12);
    m_Light.SetConeAngle(13);
    m_Light.SetPenumbraAngle(14);
    m_Light.SetDropOff(15);
    m_Light.SetBarnDoors(true);
    m_Light.SetLeftBarnDoorAngle(16);
    m_Light.SetRightBarnDoorAngle(17);
    m_Light.SetTopBarnDoorAngle(18);
    m_Light.SetBottomBarnDoorAngle(19);
    m_Light.SetUseDecayRegions(false);
    m_Light.SetFirstDecay(20, 21);
    m_Light.SetSecondDecay(22, 23);
    m_Light.SetThirdDecay(24, 25);
    EXPECT_EQ(TextOf(m_Light), kText);
}

TEST_F(SpotLight, BytesReadBackToTheSameText)
{
    EXPECT_TRUE(ReadBody(m_Light, Bytes(kBytes)));
    EXPECT_EQ(TextOf(m_Light), kText);
    EXPECT_EQ(Hex(BodyOf(m_Light)), kBytes);
    EXPECT_EQ(m_Light.GetColour().a, 1);
    EXPECT_EQ(m_Light.GetShadowColour().a, 0);
}

TEST_F(SpotLight, OlderTextDoesNotSayWhatItEmits)
{
    MakeOlder();
    XSpotLight& light = New();
    EXPECT_TRUE(
        ReadText(light, Replaced(kText, "\temit_ambient 1\n\temit_diffuse 0\n\temit_specular 1\n", "")));
    EXPECT_EQ(TextOf(light), Replaced(Replaced(kText, "ambient 1", "ambient 0"), "specular 1", "specular 0"));
    EXPECT_FALSE(ReadText(New(), kText));
    EXPECT_EQ(m_Log.Text(),
              "Error : Expected use_depth_map_shadows got emit_ambient [.\\src\\VKT\\ExtendedLight:1]\n");
}

TEST_F(SpotLight, OlderBytesDoNotSayWhatItEmits)
{
    MakeOlder();
    XSpotLight& light = New();
    EXPECT_TRUE(ReadBody(light, Bytes(Replaced(kBytes, "01 00 01 01 00 00 00 00 41", "01 00 00 00 00 41"))));
    EXPECT_EQ(TextOf(light), Replaced(Replaced(kText, "ambient 1", "ambient 0"), "specular 1", "specular 0"));
}

TEST_F(SpotLight, EachWrongKeyIsLoggedWithItsClassAndRow)
{
    const struct {
        const char* source;
        std::vector<const char*> keys;
    } classes[] = {
        {"Light", {"colour", "intensity", "shadow_colour", "emit_ambient", "emit_diffuse", "emit_specular"}},
        {"ExtendedLight",
         {"use_depth_map_shadows", "cast_soft_shadows", "shadow_radius", "decay_rate",
          "depth_map_filter_size", "depth_map_resolution", "depth_map_bias"}},
        {"SpotLight",
         {"cone_angle", "penumbra_angle", "drop_off", "barn_doors", "left_barn_door_angle",
          "right_barn_door_angle", "top_barn_door_angle", "bottom_barn_door_angle", "use_decay_regions",
          "decay_1", "", "decay_2", "", "decay_3"}},
    };
    for (const auto& [source, keys] : classes) {
        int row = 0;
        for (const std::string key : keys) {
            ++row;
            if (key.empty())
                continue;  // the second value of a line
            m_Log.Clear();
            EXPECT_FALSE(ReadText(New(), Replaced(kText, "\t" + key, "\tWrong")));
            EXPECT_EQ(m_Log.Text(), "Error : Expected " + key + " got wrong [.\\src\\VKT\\" + source + ":" +
                                        std::to_string(row) + "]\n");
        }
    }
}

TEST_F(SpotLight, EveryCutOfTheBytesFails)
{
    const std::string bytes = Bytes(kBytes);
    for (std::size_t length = 0; length < bytes.size(); ++length)
        EXPECT_FALSE(ReadBody(New(), bytes.substr(0, length))) << length;
}

TEST_F(SpotLight, CloneHasAllValues)
{
    ASSERT_TRUE(ReadText(m_Light, kText));
    EXPECT_EQ(TextOf(*m_Light.Clone()), kText);
}

TEST_F(SpotLight, EachPropertyReachesItsOwnField)
{
    const XNodeProperties& properties = *m_Light.GetNodeProperties();
    EXPECT_TRUE(properties.SetColour(&m_Light, 2, {1, 2, 3, 0.5f}));
    EXPECT_TRUE(properties.SetColour(&m_Light, 3, {5, 6, 7, 0.5f}));
    for (const u32 id : {4u, 6u, 12u, 21u})
        EXPECT_TRUE(properties.SetBool(&m_Light, id, true));
    for (const u32 id : {5u, 13u, 22u})
        EXPECT_TRUE(properties.SetBool(&m_Light, id, false));
    EXPECT_TRUE(properties.SetFloat(&m_Light, 1, 4));
    for (u32 id = 7; id <= 11; ++id)
        EXPECT_TRUE(properties.SetFloat(&m_Light, id, static_cast<f32>(id + 1)));
    for (u32 id = 14; id <= 20; ++id)
        EXPECT_TRUE(properties.SetFloat(&m_Light, id, static_cast<f32>(id - 1)));
    for (u32 id = 23; id <= 28; ++id)
        EXPECT_TRUE(properties.SetFloat(&m_Light, id, static_cast<f32>(id - 3)));
    EXPECT_EQ(TextOf(m_Light), kText);
    // The fourth floats are no colour of a light and stay.
    EXPECT_EQ(m_Light.GetColour(), (XColour{1, 2, 3, 1}));
    EXPECT_EQ(m_Light.GetShadowColour(), (XColour{5, 6, 7, 0}));
    XColour colour;
    EXPECT_TRUE(properties.GetColour(&m_Light, 2, colour));
    EXPECT_EQ(colour, (XColour{1, 2, 3, 1}));
}

}  // namespace
