#include "VKT/lights/VolumeLight.h"

#include "VKT/support/NodeTest.h"

using namespace VKT;
using namespace VKT::Test;

namespace {

class VolumeLight : public NodeTest {
protected:
    XVolumeLight& New() { return *m_Model.CreateNode<XVolumeLight>(); }
    XVolumeLight& m_Light = New();
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
    "\tarc\t13\n"
    "\tcone_end_radius\t14\n"
    "\tcolor_ramp {\n"
    "\t\ttype colour\n"
    "\t\tcount 1\n"
    "\t\t0 0.5 15 16 17 18 smooth\n"
    "\t}\n"
    "\tpenumbra_ramp {\n"
    "\t\ttype curve\n"
    "\t\tcount 2\n"
    "\t\t0 0.25 19 linear\n"
    "\t\t1 0.75 20 spline\n"
    "\t}\n";
constexpr const char kBytes[] =
    "05 00 6e 6f 64 65 31 01 00 00 00 "
    "00 00 80 3f 00 00 00 40 00 00 40 40 00 00 80 40 00 00 a0 40 00 00 c0 40 00 00 e0 40 01 00 01 "
    "01 00 00 00 00 41 00 00 10 41 00 00 20 41 00 00 30 41 00 00 40 41 "
    "00 00 50 41 00 00 60 41 "
    "01 00 00 00 01 00 00 00 00 00 70 41 00 00 80 41 00 00 88 41 00 00 90 41 02 00 00 00 00 00 00 3f "
    "00 00 00 00 02 00 00 00 00 00 98 41 00 00 a0 41 01 00 00 00 03 00 00 00 00 00 80 3e 00 00 40 3f";

TEST_F(VolumeLight, FreshOneWritesItsDefaults)
{
    EXPECT_EQ(ChunkOf(m_Light),
              "VOLUME_LIGHT node1\n"
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
              "\tarc\t360\n"
              "\tcone_end_radius\t0\n"
              "\tcolor_ramp {\n"
              "\t\ttype colour\n"
              "\t\tcount 2\n"
              "\t\t0 0 0 0 0 1 none\n"
              "\t\t1 1 1 1 1 1 none\n"
              "\t}\n"
              "\tpenumbra_ramp {\n"
              "\t\ttype curve\n"
              "\t\tcount 2\n"
              "\t\t0 0 0 none\n"
              "\t\t1 1 1 none\n"
              "\t}\n"
              "}\n");
    EXPECT_EQ(m_Light.GetDataSize(), 14u + 5 + 31 + 22 + 8 + (8 + 2 * 24) + (8 + 2 * 12));
}

TEST_F(VolumeLight, AnswersForItsBases)
{
    for (const u32 type : {83u, 78u, 76u, 25u, 0u})
        EXPECT_EQ(m_Light.HasFn(type), &m_Light) << type;
    EXPECT_EQ(m_Light.HasFn(82), nullptr);
}

TEST_F(VolumeLight, TextReadsBackToItsPlaces)
{
    EXPECT_TRUE(ReadText(m_Light, kText));
    EXPECT_EQ(TextOf(m_Light), kText);
    EXPECT_EQ(m_Light.GetArc(), 13);
    EXPECT_EQ(m_Light.GetConeEndRadius(), 14);
    EXPECT_EQ(m_Light.GetColourRamp().GetKeys()[0].value, (XColour{15, 16, 17, 18}));
    EXPECT_EQ(m_Light.GetPenumbraRamp().GetKeys()[1].position, 0.75f);
}

TEST_F(VolumeLight, SettersReachTheirFields)
{
    m_Light.SetArc(13);
    m_Light.SetConeEndRadius(14);
    m_Light.GetColourRamp().Clear();
    m_Light.GetColourRamp().AddColourKey(0.5f, {15, 16, 17, 18}, kRampSmooth);
    m_Light.GetPenumbraRamp().Clear();
    m_Light.GetPenumbraRamp().AddFloatKey(0.75f, 20, kRampSpline);
    m_Light.GetPenumbraRamp().AddFloatKey(0.25f, 19, kRampLinear);
    const std::string text = kText;
    EXPECT_TRUE(TextOf(m_Light).ends_with(text.substr(text.find("\tarc"))));
}

TEST_F(VolumeLight, BytesReadBackToTheSameText)
{
    EXPECT_TRUE(ReadBody(m_Light, Bytes(kBytes)));
    EXPECT_EQ(TextOf(m_Light), kText);
    EXPECT_EQ(Hex(BodyOf(m_Light)), kBytes);
}

TEST_F(VolumeLight, OlderFilesDoNotSayWhatItEmits)
{
    MakeOlder();
    const std::string expected = Replaced(Replaced(kText, "ambient 1", "ambient 0"), "lar 1", "lar 0");
    XVolumeLight& fromText = New();
    EXPECT_TRUE(
        ReadText(fromText, Replaced(kText, "\temit_ambient 1\n\temit_diffuse 0\n\temit_specular 1\n", "")));
    EXPECT_EQ(TextOf(fromText), expected);
    XVolumeLight& fromBytes = New();
    EXPECT_TRUE(ReadBody(fromBytes, Bytes(Replaced(kBytes, "40 01 00 01 01", "40 01"))));
    EXPECT_EQ(TextOf(fromBytes), expected);
}

TEST_F(VolumeLight, EachWrongKeyIsLoggedWithItsClassAndRow)
{
    int row = 0;
    for (const std::string key : {"arc", "cone_end_radius", "color_ramp", "penumbra_ramp"}) {
        m_Log.Clear();
        EXPECT_FALSE(ReadText(New(), Replaced(kText, "\t" + key, "\tWrong")));
        EXPECT_EQ(m_Log.Text(), "Error : Expected " + key +
                                    " got wrong [.\\src\\VKT\\VolumeLight:" + std::to_string(++row) + "]\n");
    }
}

TEST_F(VolumeLight, EveryCutOfTheBytesFails)
{
    const std::string bytes = Bytes(kBytes);
    for (std::size_t length = 0; length < bytes.size(); ++length)
        EXPECT_FALSE(ReadBody(New(), bytes.substr(0, length))) << length;
}

TEST_F(VolumeLight, CloneHasAllValuesAndRampsOfItsOwn)
{
    ASSERT_TRUE(ReadText(m_Light, kText));
    const XBase& clone = *m_Light.Clone();
    m_Light.GetColourRamp().Clear();
    EXPECT_EQ(TextOf(clone), kText);
    const std::string before = TextOf(m_Light);
    m_Light.DoCopy(m_Model.CreateNode(kFnSpotLight));
    EXPECT_EQ(TextOf(m_Light), before);
}

TEST_F(VolumeLight, EachPropertyReachesItsOwnField)
{
    const XNodeProperties& properties = *m_Light.GetNodeProperties();
    EXPECT_EQ(properties.GetNumProperties(), 15u);
    EXPECT_EQ(properties.GetPropertyName(14), "arc");
    EXPECT_EQ(properties.GetPropertyName(15), "cone_end_radius");
    EXPECT_TRUE(properties.SetFloat(&m_Light, 14, 13));
    EXPECT_TRUE(properties.SetFloat(&m_Light, 15, 14));
    EXPECT_EQ(m_Light.GetArc(), 13);
    EXPECT_EQ(m_Light.GetConeEndRadius(), 14);
    EXPECT_TRUE(m_Light.IsPropertyAnimated(14));
    EXPECT_TRUE(m_Light.IsPropertyAnimated(15));
}

}  // namespace
