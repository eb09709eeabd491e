#include <gtest/gtest.h>

#include "VKT/deformers/NonLinearBend.h"
#include "VKT/deformers/NonLinearFlare.h"
#include "VKT/deformers/NonLinearSine.h"
#include "VKT/deformers/NonLinearSquash.h"
#include "VKT/deformers/NonLinearTwist.h"
#include "VKT/geometry/PolygonMesh.h"
#include "VKT/support/NodeTest.h"

// The deformers of a handle but for the wave, which has tests of its own: they differ in
// nothing but their floats.

using namespace VKT;
using namespace VKT::Test;

namespace {

struct Kind {
    const char* name;
    u32 type;
    u32 bytes;              // of the handle and the floats
    const char* fresh;      // the lines behind those of the base
    const char* filled;     // the same with the values of `kFloats`
    const char* numbering;  // names of properties from number 4 on
};

// clang-format off
constexpr Kind kKinds[] = {
    {"Bend", 123, 16,
     "\tlow_bound -1\n\thigh_bound 1\n\tcurvature 0\n",
     "\tlow_bound 5\n\thigh_bound 6\n\tcurvature 7\n",
     "low_bound high_bound curvature "},
    {"Flare", 124, 32,
     "\tlow_bound -1\n\thigh_bound 1\n\tstart_flare_x 1\n\tstart_flare_z 1\n"
     "\tend_flare_x 1\n\tend_flare_z 1\n\tcurve 0\n",
     "\tlow_bound 5\n\thigh_bound 6\n\tstart_flare_x 7\n\tstart_flare_z 8\n"
     "\tend_flare_x 9\n\tend_flare_z 10\n\tcurve 11\n",
     "low_bound high_bound start_flare_x start_flare_z end_flare_x end_flare_z curve "},
    {"Sine", 125, 28,
     "\tlow_bound -1\n\thigh_bound 1\n\tamplitude 0\n\twavelength 2\n\tdropoff 0\n\toffset 0\n",
     "\tlow_bound 5\n\thigh_bound 6\n\tamplitude 7\n\twavelength 8\n\tdropoff 9\n\toffset 10\n",
     "low_bound high_bound amplitude wavelength dropoff offset "},
    {"Squash", 126, 32,
     "\tlow_bound -1\n\thigh_bound 1\n\tstart_smoothness 0\n\tend_smoothness 0\n"
     "\tmax_expand_pos 0.5\n\texpand 1\n\tfactor 0\n",
     "\tlow_bound 5\n\thigh_bound 6\n\tstart_smoothness 7\n\tend_smoothness 8\n"
     "\tmax_expand_pos 9\n\texpand 10\n\tfactor 11\n",
     "low_bound high_bound start_smoothness end_smoothness expand factor max_expand_position "},
    {"Twist", 127, 20,
     "\tlow_bound -1\n\thigh_bound 1\n\tstart_angle 0\n\tend_angle 0\n",
     "\tlow_bound 5\n\thigh_bound 6\n\tstart_angle 7\n\tend_angle 8\n",
     "low_bound high_bound start_angle end_angle "},
};
// clang-format on

constexpr const char kBase[] =
    "\taffected 2 1 2\n"
    "\tenvelope_weight 3\n"
    "\thandle 4\n";
constexpr const char kBaseBytes[] =
    "05 00 6e 6f 64 65 31 01 00 00 00 "
    "02 00 00 00 01 00 00 00 02 00 00 00 00 00 40 40 "
    "04 00 00 00";
// 5, 6, 7, ...
constexpr const char kFloats[] =
    " 00 00 a0 40 00 00 c0 40 00 00 e0 40 00 00 00 41 00 00 10 41 00 00 20 41 00 00 30 41";

class NonLinearDeformers : public NodeTest, public testing::WithParamInterface<Kind> {
protected:
    XNonLinearDeformer& New() { return *XCast<XNonLinearDeformer>(m_Model.CreateNode(GetParam().type)); }

    const std::string m_Text = std::string(kBase) + GetParam().filled;
    const std::string m_Bytes = kBaseBytes + std::string(kFloats, 12 * (GetParam().bytes / 4 - 1));
    XNonLinearDeformer& m_Node = New();
};

INSTANTIATE_TEST_SUITE_P(All, NonLinearDeformers, testing::ValuesIn(kKinds),
                         [](const auto& kind) { return std::string(kind.param.name); });

TEST_P(NonLinearDeformers, FreshOneWritesItsDefaults)
{
    EXPECT_EQ(TextOf(m_Node),
              std::string("\taffected 0 \n\tenvelope_weight 1\n\thandle 0\n") + GetParam().fresh);
    EXPECT_EQ(m_Node.GetDataSize(), 14u + 5 + 8 + GetParam().bytes);
}

TEST_P(NonLinearDeformers, AnswersForItsFamily)
{
    for (const u32 type : {GetParam().type, 122u, 114u, 0u})
        EXPECT_EQ(m_Node.HasFn(type), &m_Node) << type;
    EXPECT_EQ(m_Node.HasFn(128), nullptr);
    EXPECT_EQ(m_Node.GetApiType(), GetParam().type);
}

TEST_P(NonLinearDeformers, BothFormsReadBack)
{
    EXPECT_TRUE(ReadText(m_Node, m_Text));
    EXPECT_EQ(TextOf(m_Node), m_Text);
    EXPECT_EQ(Hex(BodyOf(m_Node)), m_Bytes);
    XNonLinearDeformer& other = New();
    EXPECT_TRUE(ReadBody(other, Bytes(m_Bytes)));
    EXPECT_EQ(TextOf(other), m_Text);
}

TEST_P(NonLinearDeformers, OnlyTheWeightOfTheDeformerIsGated)
{
    MakeOlder();
    XNonLinearDeformer& text = New();
    EXPECT_TRUE(ReadText(text, Replaced(m_Text, "\tenvelope_weight 3\n", "")));
    EXPECT_EQ(TextOf(text), Replaced(m_Text, "weight 3", "weight 1"));
    XNonLinearDeformer& bytes = New();
    EXPECT_TRUE(ReadBody(bytes, Bytes(Replaced(m_Bytes, "00 00 40 40 ", ""))));
    EXPECT_EQ(TextOf(bytes), Replaced(m_Text, "weight 3", "weight 1"));
}

TEST_P(NonLinearDeformers, WrongKeysAreLoggedWithTheFamilysName)
{
    const std::string lines = GetParam().filled;
    int row = 0;
    for (std::size_t at = 0; at < lines.size(); at = lines.find('\n', at) + 1) {
        const std::string key = lines.substr(at + 1, lines.find(' ', at) - at - 1);
        m_Log.Clear();
        EXPECT_FALSE(ReadText(New(), Replaced(m_Text, "\t" + key + " ", "\tWrong ")));
        EXPECT_EQ(m_Log.Text(), "Error : Expected " + key + " got wrong [.\\src\\VKT\\NonLinearDeformer:" +
                                    std::to_string(++row) + "]\n");
    }
    EXPECT_EQ(row, static_cast<int>(GetParam().bytes / 4 - 1));
}

TEST_P(NonLinearDeformers, EveryCutOfTheBytesFails)
{
    const std::string bytes = Bytes(m_Bytes);
    for (std::size_t length = 0; length < bytes.size(); ++length)
        EXPECT_FALSE(ReadBody(New(), bytes.substr(0, length))) << length;
}

TEST_P(NonLinearDeformers, CloneHasAllValues)
{
    ASSERT_TRUE(ReadText(m_Node, m_Text));
    EXPECT_EQ(TextOf(*m_Node.Clone()), m_Text);
}

TEST_P(NonLinearDeformers, DeathOfTheHandleLeavesTheDeformer)
{
    const XPolygonMesh& mesh = *m_Model.CreateNode<XPolygonMesh>();
    ASSERT_TRUE(ReadText(m_Node, Replaced(m_Text, "2 1 2", "1 " + std::to_string(mesh.GetID()))));
    EXPECT_TRUE(m_Node.NodeDeath(4));
    EXPECT_NE(TextOf(m_Node).find("\thandle 0\n"), std::string::npos);
    EXPECT_FALSE(m_Node.NodeDeath(mesh.GetID()));
}

TEST_P(NonLinearDeformers, DeletingTakesNothingAlong)
{
    ASSERT_TRUE(ReadText(m_Node, m_Text));
    std::set<u32> ids;
    m_Node.PreDelete(ids);
    EXPECT_TRUE(ids.empty());
}

TEST_P(NonLinearDeformers, PropertiesReachTheFields)
{
    ASSERT_TRUE(ReadText(m_Node, m_Text));
    const XNodeProperties& properties = *m_Node.GetNodeProperties();
    std::string numbering;
    for (u32 id = 4; id < 3 + GetParam().bytes / 4; ++id) {
        const XString name = properties.GetPropertyName(id);
        numbering += name + ' ';
        EXPECT_EQ(properties.GetPropertyType(id), kPropertyFloat);
        EXPECT_EQ(properties.GetPropertyFlags(id), kAnimatable);
        // The field is the one of the like-named line.
        const std::string key = name == "max_expand_position" ? "max_expand_pos" : name;
        EXPECT_TRUE(properties.SetFloat(&m_Node, id, 99));
        EXPECT_NE(TextOf(m_Node).find("\t" + key + " 99\n"), std::string::npos);
        f32 value = 0;
        EXPECT_TRUE(properties.GetFloat(&m_Node, id, value));
        EXPECT_EQ(value, 99);
        EXPECT_TRUE(properties.SetFloat(&m_Node, id, static_cast<f32>(id)));
    }
    EXPECT_EQ(numbering, GetParam().numbering);
    EXPECT_EQ(properties.GetNumProperties(), 2 + GetParam().bytes / 4);
}

// Each accessor reaches its own line.
class NonLinearAccessors : public NodeTest {};

TEST_F(NonLinearAccessors, BendAccessors)
{
    XNonLinearBend& bend = *m_Model.CreateNode<XNonLinearBend>();
    bend.SetLowBound(5);
    bend.SetHighBound(6);
    bend.SetCurvature(7);
    EXPECT_NE(TextOf(bend).find(kKinds[0].filled), std::string::npos);
    EXPECT_EQ(bend.GetLowBound(), 5);
    EXPECT_EQ(bend.GetHighBound(), 6);
    EXPECT_EQ(bend.GetCurvature(), 7);
}

TEST_F(NonLinearAccessors, FlareAccessors)
{
    XNonLinearFlare& flare = *m_Model.CreateNode<XNonLinearFlare>();
    flare.SetLowBound(5);
    flare.SetHighBound(6);
    flare.SetStartFlareX(7);
    flare.SetStartFlareZ(8);
    flare.SetEndFlareX(9);
    flare.SetEndFlareZ(10);
    flare.SetCurve(11);
    EXPECT_NE(TextOf(flare).find(kKinds[1].filled), std::string::npos);
    EXPECT_EQ(flare.GetLowBound(), 5);
    EXPECT_EQ(flare.GetHighBound(), 6);
    EXPECT_EQ(flare.GetStartFlareX(), 7);
    EXPECT_EQ(flare.GetStartFlareZ(), 8);
    EXPECT_EQ(flare.GetEndFlareX(), 9);
    EXPECT_EQ(flare.GetEndFlareZ(), 10);
    EXPECT_EQ(flare.GetCurve(), 11);
}

TEST_F(NonLinearAccessors, SineAccessors)
{
    XNonLinearSine& sine = *m_Model.CreateNode<XNonLinearSine>();
    sine.SetLowBound(5);
    sine.SetHighBound(6);
    sine.SetAmplitude(7);
    sine.SetWavelength(8);
    sine.SetDropoff(9);
    sine.SetOffset(10);
    EXPECT_NE(TextOf(sine).find(kKinds[2].filled), std::string::npos);
    EXPECT_EQ(sine.GetLowBound(), 5);
    EXPECT_EQ(sine.GetHighBound(), 6);
    EXPECT_EQ(sine.GetAmplitude(), 7);
    EXPECT_EQ(sine.GetWavelength(), 8);
    EXPECT_EQ(sine.GetDropoff(), 9);
    EXPECT_EQ(sine.GetOffset(), 10);
}

TEST_F(NonLinearAccessors, SquashAccessors)
{
    XNonLinearSquash& squash = *m_Model.CreateNode<XNonLinearSquash>();
    squash.SetLowBound(5);
    squash.SetHighBound(6);
    squash.SetStartSmoothness(7);
    squash.SetEndSmoothness(8);
    squash.SetMaxExpandPosition(9);
    squash.SetExpand(10);
    squash.SetFactor(11);
    EXPECT_NE(TextOf(squash).find(kKinds[3].filled), std::string::npos);
    EXPECT_EQ(squash.GetLowBound(), 5);
    EXPECT_EQ(squash.GetHighBound(), 6);
    EXPECT_EQ(squash.GetStartSmoothness(), 7);
    EXPECT_EQ(squash.GetEndSmoothness(), 8);
    EXPECT_EQ(squash.GetMaxExpandPosition(), 9);
    EXPECT_EQ(squash.GetExpand(), 10);
    EXPECT_EQ(squash.GetFactor(), 11);
}

TEST_F(NonLinearAccessors, TwistAccessors)
{
    XNonLinearTwist& twist = *m_Model.CreateNode<XNonLinearTwist>();
    twist.SetLowBound(5);
    twist.SetHighBound(6);
    twist.SetStartAngle(7);
    twist.SetEndAngle(8);
    EXPECT_NE(TextOf(twist).find(kKinds[4].filled), std::string::npos);
    EXPECT_EQ(twist.GetLowBound(), 5);
    EXPECT_EQ(twist.GetHighBound(), 6);
    EXPECT_EQ(twist.GetStartAngle(), 7);
    EXPECT_EQ(twist.GetEndAngle(), 8);
}

}  // namespace
