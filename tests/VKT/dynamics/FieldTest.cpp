#include "VKT/dynamics/Field.h"

#include "VKT/dynamics/Air.h"
#include "VKT/dynamics/Drag.h"
#include "VKT/dynamics/Gravity.h"
#include "VKT/dynamics/Newton.h"
#include "VKT/dynamics/ParticleShape.h"
#include "VKT/dynamics/Radial.h"
#include "VKT/dynamics/Turbulence.h"
#include "VKT/dynamics/Uniform.h"
#include "VKT/dynamics/VolumeAxis.h"
#include "VKT/dynamics/Vortex.h"
#include "VKT/support/NodeTest.h"
#include "VKT/support/PropertyRows.h"

using namespace VKT;
using namespace VKT::Test;

namespace {

class Field : public NodeTest {
protected:
    // What a bone stores in the document as it is, old or current.
    std::string BoneText()
    {
        XBone bone(&m_Model);
        std::string text = TextOf(bone);
        if (m_Model.GetVersion() < 4) {
            const std::size_t later = text.find("\trotation_order");
            text.erase(later, text.find("\tparent") - later);
        }
        return text;
    }
    std::string BoneBytes()
    {
        XBone bone(&m_Model);
        return BodyOf(bone);
    }
    // What a field stores behind the body of a bone.
    static std::string OwnText(const XBase& node)
    {
        const std::string text = TextOf(node);
        return text.substr(text.find("\tmagnitude"));
    }
    std::string OwnBytes(XBase& node)
    {
        return Hex(BodyOf(node).substr(BoneBytes().size() + std::string(node.GetName()).size()));
    }

    XGravity m_Field{&m_Model};  // of no document
};

// Behind these stands what the classes add.
const std::string kFresh =
    "\tmagnitude 1\n"
    "\tattenuation 0\n"
    "\tmax_distance 10\n"
    "\tuse_max_distance 0\n"
    "\tper_vertex 0\n"
    "\n\tvolume_shape NONE\n"
    "\n\tvolume_exclusion 0\n"
    "\n\tvolume_offset 0 0 0\n"
    "\n\tvolume_sweep 6.28319\n"
    "\n\tinner_radius 0.5\n";
const std::string kFilled =
    "\tmagnitude 2\n"
    "\tattenuation 3\n"
    "\tmax_distance 4\n"
    "\tuse_max_distance 1\n"
    "\tper_vertex 0\n"
    "\n\tvolume_shape SPHERE\n"
    "\n\tvolume_exclusion 1\n"
    "\n\tvolume_offset 5 6 7\n"
    "\n\tvolume_sweep 8\n"
    "\n\tinner_radius 9\n";
const std::string kOlderBytes = "00 00 00 40 00 00 40 40 00 00 80 40 01 00";
const std::string kBytes =
    kOlderBytes + " 04 00 00 00 01 00 00 a0 40 00 00 c0 40 00 00 e0 40 00 00 00 41 00 00 10 41";
const std::string kDirection = "\tdirection 1 2 3\n";
const std::string kDirectionBytes = " 00 00 80 3f 00 00 00 40 00 00 40 40";

TEST_F(Field, FreshOneWritesItsDefaults)
{
    EXPECT_EQ(TextOf(m_Field), BoneText() + kFresh + "\tdirection 0 -1 0\n");
    EXPECT_EQ(m_Field.GetDataSize(), 8 + BoneBytes().size() + 39 + 12);
    for (const u32 type : {107u, 103u, 86u, 0u})
        EXPECT_EQ(m_Field.HasFn(type), &m_Field) << type;
    EXPECT_EQ(m_Field.HasFn(111), nullptr);
}

TEST_F(Field, TextReadsBack)
{
    EXPECT_TRUE(ReadText(m_Field, BoneText() + kFilled + kDirection));
    EXPECT_EQ(OwnText(m_Field), kFilled + kDirection);
    EXPECT_EQ(m_Field.GetMagnitude(), 2);
    EXPECT_EQ(m_Field.GetAttenuation(), 3);
    EXPECT_EQ(m_Field.GetMaxDistance(), 4);
    EXPECT_TRUE(m_Field.GetUseMaxDistance());
    EXPECT_FALSE(m_Field.GetPerVertex());
    EXPECT_EQ(m_Field.GetVolumeShape(), kFieldVolumeSphere);
    EXPECT_TRUE(m_Field.GetVolumeExclusion());
    EXPECT_EQ(m_Field.GetVolumeOffset(), (XVector3{5, 6, 7, 0}));
    EXPECT_EQ(m_Field.GetVolumeSweep(), 8);
    EXPECT_EQ(m_Field.GetInnerRadius(), 9);
}

TEST_F(Field, BytesReadBack)
{
    const std::string body = BoneBytes() + Bytes(kBytes + kDirectionBytes);
    EXPECT_TRUE(ReadBody(m_Field, body));
    EXPECT_EQ(OwnText(m_Field), kFilled + kDirection);
    EXPECT_EQ(OwnBytes(m_Field), kBytes + kDirectionBytes);
    for (std::size_t length = BoneBytes().size(); length < body.size(); ++length)
        EXPECT_FALSE(ReadBody(m_Field, body.substr(0, length))) << length;
}

TEST_F(Field, OlderFilesHaveNoVolume)
{
    MakeOlder();
    XGravity text(&m_Model);
    EXPECT_TRUE(
        ReadText(text, BoneText() + kFilled.substr(0, kFilled.find("\n\tvolume_shape")) + kDirection));
    const std::string expected = kFilled.substr(0, kFilled.find("\n\tvolume_shape")) +
                                 kFresh.substr(kFresh.find("\n\tvolume_shape")) + kDirection;
    EXPECT_EQ(OwnText(text), expected);
    EXPECT_EQ(text.GetVolumeShape(), kFieldVolumeNone);
    EXPECT_EQ(text.GetInnerRadius(), 0.5f);
    XGravity bytes(&m_Model);
    EXPECT_TRUE(ReadBody(bytes, BoneBytes() + Bytes(kOlderBytes + kDirectionBytes)));
    EXPECT_EQ(OwnText(bytes), expected);
    EXPECT_EQ(OwnBytes(bytes), kOlderBytes + kDirectionBytes);
}

TEST_F(Field, EachVolumeHasItsWord)
{
    u32 value = 0;
    for (const char* word : {"NONE", "CUBE", "CYLINDER", "CONE", "SPHERE", "TORUS"}) {
        EXPECT_TRUE(ReadText(m_Field, BoneText() + Replaced(kFilled, "SPHERE", word) + kDirection));
        EXPECT_EQ(m_Field.GetVolumeShape(), value++);
        EXPECT_EQ(OwnText(m_Field), Replaced(kFilled, "SPHERE", word) + kDirection);
    }
    m_Field.SetVolumeShape(6);
    EXPECT_EQ(OwnText(m_Field), Replaced(kFilled, "SPHERE", "NONE") + kDirection);
}

TEST_F(Field, UnknownVolumeWarnsAndKeepsTheValue)
{
    m_Field.SetVolumeShape(kFieldVolumeTorus);
    EXPECT_TRUE(ReadText(m_Field, BoneText() + Replaced(kFilled, "SPHERE", "sphere") + kDirection));
    EXPECT_EQ(m_Log.Text(), "Warning : Unknown volume type for XField - \"sphere\"\n");
    EXPECT_EQ(OwnText(m_Field), Replaced(kFilled, "SPHERE", "TORUS") + kDirection);
}

TEST_F(Field, WrongKeysAreLogged)
{
    int row = 0;
    for (const std::string key :
         {"magnitude", "attenuation", "max_distance", "use_max_distance", "per_vertex", "volume_shape",
          "volume_exclusion", "volume_offset", "volume_sweep", "inner_radius"}) {
        m_Log.Clear();
        EXPECT_FALSE(ReadText(m_Field, BoneText() + Replaced(kFilled, "\t" + key, "\tWrong") + kDirection));
        EXPECT_EQ(m_Log.Text(), "Error : Expected " + key +
                                    " got wrong [.\\src\\VKT\\Field:" + std::to_string(++row) + "]\n");
    }
}

// What the classes add: fresh, filled, and its bytes.
struct Case {
    u32 type;
    std::string fresh;
    std::string filled;
    std::string bytes;
    std::string rows;
};

const std::string kReals = " 00 00 80 40 00 00 a0 40";  // 4 and 5
const Case kFamily[] = {
    {kFnAir,
     "\tdirection 0 1 0\n\tspeed 1\n\tinherit_velocity 0\n\tinherit_rotation 0\n\tcomponent_only 0\n"
     "\tspread 0\n\tenable_spread 0\n",
     kDirection + "\tspeed 4\n\tinherit_velocity 5\n\tinherit_rotation 1\n\tcomponent_only 0\n\tspread 6\n"
                  "\tenable_spread 1\n",
     kDirectionBytes + kReals + " 01 00 00 00 c0 40 01",
     "73 properties\nspeed float 67 a\nspread float 68 a\ndirection vector 69 a\nenable_spread bool 70 a\n"
     "component_only bool 71 a\ninherit_rotation bool 72 a\ninherit_velocity float 73 a\n"},
    {kFnDrag, "\tdirection 0 1 0\n\tuse_direction 0\n", kDirection + "\tuse_direction 1\n",
     kDirectionBytes + " 01", "68 properties\ndirection vector 67 a\nuse_direction bool 68 a\n"},
    {kFnGravity, "\tdirection 0 -1 0\n", kDirection, kDirectionBytes,
     "67 properties\ndirection vector 67 a\n"},
    {kFnNewton, "\tmin_distance 0\n", "\tmin_distance 4\n", " 00 00 80 40",
     "67 properties\nmin_distance float 67 a\n"},
    {kFnRadial, "\tradial_type 0\n", "\tradial_type 4.5\n", " 00 00 90 40",
     "67 properties\nradial_type float 67 a\n"},
    {kFnTurbulence, "\tfrequency 1\n\tphase 0 0 0\n", "\tfrequency 4\n\tphase 1 2 3\n",
     " 00 00 80 40" + kDirectionBytes, "68 properties\nfrequency float 67 a\nphase vector 68 a\n"},
    {kFnUniform, "\tdirection 0 0 0\n", kDirection, kDirectionBytes,
     "67 properties\ndirection vector 67 a\n"},
    {kFnVortex, "\taxis 0 0 0\n", "\taxis 1 2 3\n", kDirectionBytes, "67 properties\naxis vector 67 a\n"},
    {kFnVolumeAxis,
     "\tdirection 1 0 0\n\tdirectional_speed 0\n\tinvert_attenuation 0\n\tspeed_along_axis 0\n"
     "\tspeed_around_axis 0\n\tspeed_away_from_axis 0\n\tspeed_away_from_center 0\n\tturbulence 0\n"
     "\tturbulence_speed 0\n\tturbulence_frequency 0 0 0\n\tturbulence_offset 0 0 0\n"
     "\tdetail_turbulence 0\n",
     kDirection +
         "\tdirectional_speed 4\n\tinvert_attenuation 1\n\tspeed_along_axis 5\n\tspeed_around_axis 6\n"
         "\tspeed_away_from_axis 7\n\tspeed_away_from_center 8\n\tturbulence 9\n\tturbulence_speed 10\n"
         "\tturbulence_frequency 11 12 13\n\tturbulence_offset 14 15 16\n\tdetail_turbulence 17\n",
     kDirectionBytes + " 00 00 80 40 01 00 00 a0 40 00 00 c0 40 00 00 e0 40 00 00 00 41 00 00 10 41 "
                       "00 00 20 41 00 00 30 41 00 00 40 41 00 00 50 41 00 00 60 41 00 00 70 41 "
                       "00 00 80 41 00 00 88 41",
     "78 properties\ndirection vector 67 a\ndirectional_speed float 68 a\ninvert_attenuation bool 69 a\n"
     "speed_along_axis float 70 a\nspeed_around_axis float 71 a\nspeed_away_from_axis float 72 a\n"
     "speed_away_from_center float 73 a\nturbulence_frequency vector 74 a\nturbulence_offset vector 75 a\n"
     "turbulence float 76 a\nturbulence_speed float 77 a\ndetail_turbulence float 78 a\n"},
};

TEST_F(Field, FamilyReadsBackFromEitherForm)
{
    for (const Case& c : kFamily) {
        SCOPED_TRACE(XFnTypeName(c.type));
        XBase& node = *m_Model.CreateNode(c.type);
        EXPECT_EQ(node.HasFn(103), &node);
        EXPECT_EQ(OwnText(node), kFresh + c.fresh);
        EXPECT_TRUE(ReadText(node, BoneText() + kFilled + c.filled));
        EXPECT_EQ(OwnText(node), kFilled + c.filled);
        EXPECT_EQ(OwnBytes(node), kBytes + c.bytes);
        EXPECT_EQ(node.GetDataSize(), 8 + BodyOf(node).size());
        XBase& other = *m_Model.CreateNode(c.type);
        EXPECT_TRUE(ReadBody(other, BodyOf(node)));
        EXPECT_EQ(TextOf(other), TextOf(node));
        EXPECT_EQ(TextOf(*node.Clone()), TextOf(node));
        EXPECT_EQ(RowsOf(node.GetNodeProperties()), c.rows);
        XBase& named = *m_Model.CreateNode(c.type);
        SetProperties(named, c.filled);
        EXPECT_EQ(OwnText(named), kFresh + c.filled);
        m_Log.Clear();
        EXPECT_FALSE(ReadText(other, BoneText() + kFilled + "wrong"));
        const std::string firstKey = c.filled.substr(1, c.filled.find(' ') - 1);
        EXPECT_TRUE(m_Log.Text().starts_with("Error : Expected " + firstKey + " got wrong [.\\src\\VKT\\"));
    }
}

TEST_F(Field, OlderTurbulenceHasAPhaseOfOneFloat)
{
    MakeOlder();
    const std::string field = kFilled.substr(0, kFilled.find("\n\tvolume_shape"));
    XTurbulence text(&m_Model);
    EXPECT_TRUE(ReadText(text, BoneText() + field + "\tfrequency 2\n\tphase 0.5\n"));
    EXPECT_EQ(text.GetPhase(), (XVector3{0.5f, 0, 0, 0}));
    XTurbulence bytes(&m_Model);
    EXPECT_TRUE(ReadBody(bytes, BoneBytes() + Bytes(kOlderBytes + " 00 00 00 40 00 00 00 3f")));
    EXPECT_EQ(bytes.GetPhase(), (XVector3{0.5f, 0, 0, 0}));
    EXPECT_EQ(bytes.GetFrequency(), 2);
    EXPECT_TRUE(TextOf(bytes).ends_with("\tfrequency 2\n\tphase 0.5 0 0\n"));
    EXPECT_FALSE(ReadText(text, BoneText() + field + "\tfrequency 2\n\tphased 0.5\n"));
    EXPECT_EQ(m_Log.Text(), "Error : Expected phase got phased [.\\src\\VKT\\Turbulence:2]\n");
}

TEST_F(Field, SettersReachTheirFields)
{
    m_Field.SetMagnitude(2);
    m_Field.SetAttenuation(3);
    m_Field.SetMaxDistance(4);
    m_Field.SetUseMaxDistance(true);
    m_Field.SetVolumeShape(kFieldVolumeSphere);
    m_Field.SetVolumeExclusion(true);
    m_Field.SetVolumeOffset({5, 6, 7, 0});
    m_Field.SetVolumeSweep(8);
    m_Field.SetInnerRadius(9);
    m_Field.SetDirection({1, 2, 3, 0});
    EXPECT_EQ(OwnText(m_Field), kFilled + kDirection);
    m_Field.SetPerVertex(true);
    EXPECT_TRUE(m_Field.GetPerVertex());
}

// What a class of the family adds to a fresh field when `set` has been at it.
template <class Node, class Set>
std::string Added(XModel& model, Set set)
{
    Node node(&model);
    set(node);
    const std::string text = TextOf(node);
    return text.substr(text.find(kFresh) + kFresh.size());
}

TEST_F(Field, SettersOfTheFamilyReachTheirFields)
{
    const XVector3 direction{1, 2, 3, 0};
    EXPECT_EQ(Added<XAir>(
                  m_Model,
                  [&](XAir& air) {
                      air.SetDirection(direction);
                      air.SetSpeed(4);
                      air.SetInheritVelocity(5);
                      air.SetSpread(6);
                      air.SetInheritRotation(true);
                      EXPECT_TRUE(air.GetInheritRotation() && !air.GetEnableSpread());
                      air.SetEnableSpread(true);
                      EXPECT_TRUE(air.GetEnableSpread() && !air.GetComponentOnly());
                      EXPECT_EQ(air.GetDirection(), direction);
                      EXPECT_EQ(air.GetSpeed() * 100 + air.GetInheritVelocity() * 10 + air.GetSpread(), 456);
                  }),
              kFamily[0].filled);
    EXPECT_EQ(Added<XAir>(m_Model, [](XAir& air) { air.SetComponentOnly(true); }),
              Replaced(kFamily[0].fresh, "only 0", "only 1"));
    EXPECT_EQ(Added<XDrag>(m_Model,
                           [&](XDrag& drag) {
                               drag.SetDirection(direction);
                               drag.SetUseDirection(true);
                               EXPECT_EQ(drag.GetDirection(), direction);
                               EXPECT_TRUE(drag.GetUseDirection());
                           }),
              kFamily[1].filled);
    EXPECT_EQ(Added<XNewton>(m_Model,
                             [](XNewton& newton) {
                                 newton.SetMinDistance(4);
                                 EXPECT_EQ(newton.GetMinDistance(), 4);
                             }),
              kFamily[3].filled);
    EXPECT_EQ(Added<XRadial>(m_Model,
                             [](XRadial& radial) {
                                 radial.SetRadialType(4.5f);
                                 EXPECT_EQ(radial.GetRadialType(), 4.5f);
                             }),
              kFamily[4].filled);
    EXPECT_EQ(Added<XTurbulence>(m_Model,
                                 [&](XTurbulence& turbulence) {
                                     turbulence.SetFrequency(4);
                                     turbulence.SetPhase(direction);
                                     EXPECT_EQ(turbulence.GetFrequency(), 4);
                                     EXPECT_EQ(turbulence.GetPhase(), direction);
                                 }),
              kFamily[5].filled);
    EXPECT_EQ(Added<XUniform>(m_Model,
                              [&](XUniform& uniform) {
                                  uniform.SetDirection(direction);
                                  EXPECT_EQ(uniform.GetDirection(), direction);
                              }),
              kFamily[6].filled);
    EXPECT_EQ(Added<XVortex>(m_Model,
                             [&](XVortex& vortex) {
                                 vortex.SetAxis(direction);
                                 EXPECT_EQ(vortex.GetAxis(), direction);
                             }),
              kFamily[7].filled);
}

TEST_F(Field, SettersOfAVolumeAxisReachTheirFields)
{
    XVolumeAxis axis(&m_Model);
    axis.SetDirection({1, 2, 3, 0});
    axis.SetDirectionalSpeed(4);
    axis.SetInvertAttenuation(true);
    axis.SetSpeedAlongAxis(5);
    axis.SetSpeedAroundAxis(6);
    axis.SetSpeedAwayFromAxis(7);
    axis.SetSpeedAwayFromCenter(8);
    axis.SetTurbulence(9);
    axis.SetTurbulenceSpeed(10);
    axis.SetTurbulenceFrequency({11, 12, 13, 0});
    axis.SetTurbulenceOffset({14, 15, 16, 0});
    axis.SetDetailTurbulence(17);
    EXPECT_EQ(OwnText(axis), kFresh + kFamily[8].filled);
    EXPECT_EQ(axis.GetDirection(), (XVector3{1, 2, 3, 0}));
    EXPECT_EQ(axis.GetDirectionalSpeed(), 4);
    EXPECT_TRUE(axis.GetInvertAttenuation());
    EXPECT_EQ(axis.GetSpeedAlongAxis(), 5);
    EXPECT_EQ(axis.GetSpeedAroundAxis(), 6);
    EXPECT_EQ(axis.GetSpeedAwayFromAxis(), 7);
    EXPECT_EQ(axis.GetSpeedAwayFromCenter(), 8);
    EXPECT_EQ(axis.GetTurbulence(), 9);
    EXPECT_EQ(axis.GetTurbulenceSpeed(), 10);
    EXPECT_EQ(axis.GetTurbulenceFrequency(), (XVector3{11, 12, 13, 0}));
    EXPECT_EQ(axis.GetTurbulenceOffset(), (XVector3{14, 15, 16, 0}));
    EXPECT_EQ(axis.GetDetailTurbulence(), 17);
}

TEST_F(Field, Vocabulary)
{
    EXPECT_EQ(RowsOf(XField::ClassProperties()),
              "66 properties\n"
              "magnitude float 56 a\n"
              "attenuation float 57 a\n"
              "max_distance float 58 a\n"
              "use_max_distance bool 59 a\n"
              "per_vertex bool 60 a\n"
              "shapes nodes 61 l of 40\n"
              "volume_exclusion bool 62\n"
              "volume_offset bool 63\n"
              "section_radius bool 64\n"
              "sweep_angle bool 65\n"
              "volume_type bool 66\n");
    EXPECT_EQ(m_Field.GetPropertyId("translate"), 3u);
    EXPECT_EQ(m_Field.GetPropertyName(56), "magnitude");
}

TEST_F(Field, PropertiesReachTheFieldsInTheirOwnTypes)
{
    const XNodeProperties& properties = *m_Field.GetNodeProperties();
    EXPECT_TRUE(properties.SetFloat(&m_Field, 56, 2));
    EXPECT_TRUE(properties.SetFloat(&m_Field, 57, 3));
    EXPECT_TRUE(properties.SetFloat(&m_Field, 58, 4));
    EXPECT_TRUE(properties.SetBool(&m_Field, 59, true));
    EXPECT_TRUE(properties.SetBool(&m_Field, 60, false));
    EXPECT_TRUE(properties.SetBool(&m_Field, 62, true));
    EXPECT_TRUE(properties.SetVector(&m_Field, 63, {5, 6, 7, 0}));
    EXPECT_TRUE(properties.SetFloat(&m_Field, 64, 9));
    EXPECT_TRUE(properties.SetFloat(&m_Field, 65, 8));
    EXPECT_TRUE(properties.SetInteger(&m_Field, 66, 4));
    EXPECT_TRUE(properties.SetVector(&m_Field, 67, {1, 2, 3, 0}));
    EXPECT_EQ(OwnText(m_Field), kFilled + kDirection);
}

TEST_F(Field, DeathOfAShapeLeavesTheOthers)
{
    XParticleShape& first = *m_Model.CreateNode<XParticleShape>();
    XParticleShape& second = *m_Model.CreateNode<XParticleShape>();
    XGravity& field = *m_Model.CreateNode<XGravity>();
    XBone& child = *m_Model.CreateNode<XBone>();
    first.AddField(&field);
    second.AddField(&field);
    field.AddChild(&child);
    EXPECT_TRUE(field.NodeDeath(first.GetID()));
    XNodeList shapes;
    EXPECT_TRUE(field.GetShapes(shapes));
    EXPECT_EQ(shapes, (XNodeList{&second}));
    field.NodeDeath(child.GetID());
    EXPECT_TRUE(field.GetChildIds().empty());
}

TEST_F(Field, ShapesSetByPropertyListTheField)
{
    XParticleShape& first = *m_Model.CreateNode<XParticleShape>();
    XParticleShape& second = *m_Model.CreateNode<XParticleShape>();
    XGravity& field = *m_Model.CreateNode<XGravity>();
    const XNodeProperties& properties = *field.GetNodeProperties();
    EXPECT_TRUE(properties.SetNodeArray(&field, 61, {&first}));
    EXPECT_TRUE(properties.SetNodeArray(&field, 61, {&second}));
    EXPECT_EQ(first.GetNumFields(), 0u);
    EXPECT_EQ(second.GetField(0), &field);
    EXPECT_FALSE(properties.SetNodeArray(&field, 61, {&first, &field}));
    XNodeList shapes;
    EXPECT_TRUE(properties.GetNodeArray(&field, 61, shapes));
    EXPECT_EQ(shapes, (XNodeList{&second}));
    // A clone begins without shapes: none of them lists it.
    EXPECT_EQ(XCast<XGravity>(field.Clone())->GetNumShapes(), 0u);
}

}  // namespace
