#include "VKT/dynamics/Emitter.h"

#include "VKT/dynamics/ParticleShape.h"
#include "VKT/node/Attribute.h"
#include "VKT/support/NodeTest.h"
#include "VKT/support/PropertyRows.h"

using namespace VKT;
using namespace VKT::Test;

namespace {

class Emitter : public NodeTest {
protected:
    XEmitter& New() { return *m_Model.CreateNode<XEmitter>(); }
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
    static std::string OwnText(const XBase& node)
    {
        const std::string text = TextOf(node);
        return text.substr(text.find("\tshape "));
    }

    XParticleShape& m_Particles = *m_Model.CreateNode<XParticleShape>();  // id 1
    XEmitter m_Emitter{&m_Model};                                         // of no document
};

const std::string kOlderText =
    "\tshape 1\n"
    "\trate 2\n"
    "\tmax_distance 3\n"
    "\tmin_distance 4\n"
    "\tdirection 5 6 7\n"
    "\tspread 8\n"
    "\tparticle_colour 9 10 11\n";
const std::string kText = kOlderText +
                          "\temitter_type GEOMETRY\n"
                          "\temitter_object 12\n"
                          "\temitter_transform 13\n"
                          "\tvolume_shape DISC\n"
                          "\tvolume_offset 14 15 16\n"
                          "\tvolume_sweep 17\n"
                          "\tinner_radius 18\n"
                          "\tspeed 19\n"
                          "\tspeed_random 20\n"
                          "\tsize 21\n"
                          "\tsize_random 22\n"
                          "\tmass 23\n"
                          "\tmass_random 24\n"
                          "\talpha 25\n"
                          "\talpha_random 26\n"
                          "\thue_offset 27\n"
                          "\tsaturation_offset 28\n"
                          "\tluminance_offset 29\n";
const std::string kOlderBytes =
    "01 00 00 00 00 00 00 40 00 00 40 40 00 00 80 40 "
    "00 00 a0 40 00 00 c0 40 00 00 e0 40 00 00 00 41 "
    "00 00 10 41 00 00 20 41 00 00 30 41 00 00 80 3f";
const std::string kBytes = kOlderBytes +
                           " 02 00 00 00 0c 00 00 00 0d 00 00 00 05 00 00 00 "
                           "00 00 60 41 00 00 70 41 00 00 80 41 "
                           "00 00 88 41 00 00 f0 41 00 00 90 41 "  // the nameless float in the middle
                           "00 00 b8 41 00 00 c0 41 00 00 a8 41 00 00 b0 41 00 00 98 41 00 00 a0 41 "
                           "00 00 c8 41 00 00 d0 41 00 00 d8 41 00 00 e0 41 00 00 e8 41";

TEST_F(Emitter, FreshOneWritesItsDefaults)
{
    EXPECT_EQ(TextOf(m_Emitter), BoneText() +
                                     "\tshape 0\n"
                                     "\trate 100\n"
                                     "\tmax_distance 0\n"
                                     "\tmin_distance 0\n"
                                     "\tdirection 0 1 0\n"
                                     "\tspread 0\n"
                                     "\tparticle_colour 0.3 0.3 0.6\n"
                                     "\temitter_type OMNI\n"
                                     "\temitter_object 0\n"
                                     "\temitter_transform 0\n"
                                     "\tvolume_shape CUBE\n"
                                     "\tvolume_offset 0 0 0\n"
                                     "\tvolume_sweep 6.28319\n"
                                     "\tinner_radius 0.5\n"
                                     "\tspeed 1\n"
                                     "\tspeed_random 0\n"
                                     "\tsize 1\n"
                                     "\tsize_random 0\n"
                                     "\tmass 1\n"
                                     "\tmass_random 0\n"
                                     "\talpha 1\n"
                                     "\talpha_random 0\n"
                                     "\thue_offset 0\n"
                                     "\tsaturation_offset 0\n"
                                     "\tluminance_offset 0\n");
    EXPECT_EQ(m_Emitter.GetDataSize(), 8 + BoneBytes().size() + 132);
    // The word of two pi, and a nameless 1 behind it.
    EXPECT_NE(Hex(BodyOf(m_Emitter)).find("db 0f c9 40 00 00 80 3f 00 00 00 3f"), std::string::npos);
    for (const u32 type : {101u, 86u, 0u})
        EXPECT_EQ(m_Emitter.HasFn(type), &m_Emitter) << type;
}

TEST_F(Emitter, TextReadsBack)
{
    m_Emitter.SetParticleColour({0, 0, 0, 0.5f});
    EXPECT_TRUE(ReadText(m_Emitter, BoneText() + kText));
    EXPECT_EQ(OwnText(m_Emitter), kText);
    EXPECT_EQ(m_Emitter.GetShape(), &m_Particles);
    EXPECT_EQ(m_Emitter.GetEmitterType(), kEmitterGeometry);
    EXPECT_EQ(m_Emitter.GetVolumeShape(), kEmitterVolumeDisc);
    EXPECT_EQ(m_Emitter.GetParticleColour(), (XColour{9, 10, 11, 1}));
}

TEST_F(Emitter, BytesReadBackInTheirOwnOrder)
{
    const std::string body = BoneBytes() + Bytes(kBytes);
    EXPECT_TRUE(ReadBody(m_Emitter, body));
    EXPECT_EQ(OwnText(m_Emitter), kText);
    EXPECT_EQ(BodyOf(m_Emitter), body);  // with the nameless float
    EXPECT_EQ(m_Emitter.GetMass(), 23);
    EXPECT_EQ(m_Emitter.GetSpeed(), 19);
    for (std::size_t length = BoneBytes().size(); length < body.size(); ++length)
        EXPECT_FALSE(ReadBody(m_Emitter, body.substr(0, length))) << length;
}

TEST_F(Emitter, BytesHoldTheAlphaOfTheColour)
{
    m_Emitter.SetParticleColour({9, 10, 11, 0.25f});
    XEmitter other(&m_Model);
    EXPECT_TRUE(ReadBody(other, BodyOf(m_Emitter)));
    EXPECT_EQ(other.GetParticleColour().a, 0.25f);
}

TEST_F(Emitter, OlderFilesEndBehindTheColour)
{
    MakeOlder();
    XEmitter text(&m_Model);
    EXPECT_TRUE(ReadText(text, BoneText() + kOlderText));
    XEmitter fresh(&m_Model);
    const std::string expected = kOlderText + OwnText(fresh).substr(OwnText(fresh).find("\temitter_type"));
    EXPECT_EQ(OwnText(text), expected);
    XEmitter bytes(&m_Model);
    EXPECT_TRUE(ReadBody(bytes, BoneBytes() + Bytes(kOlderBytes)));
    EXPECT_EQ(OwnText(bytes), expected);
    EXPECT_EQ(BodyOf(bytes), BoneBytes() + Bytes(kOlderBytes));
    XBone bone(&m_Model);
    EXPECT_EQ(bytes.GetDataSize(), bone.GetDataSize() + 132);  // whatever the version
}

TEST_F(Emitter, EachWordHasItsNumber)
{
    u32 type = 0;
    for (const char* word : {"OMNI", "DIRECTIONAL", "GEOMETRY", "VOLUME"}) {
        EXPECT_TRUE(ReadText(m_Emitter, BoneText() + Replaced(kText, "GEOMETRY", word)));
        EXPECT_EQ(m_Emitter.GetEmitterType(), type++);
        EXPECT_EQ(OwnText(m_Emitter), Replaced(kText, "GEOMETRY", word));
    }
    u32 shape = 0;
    for (const char* word : {"CUBE", "SPHERE", "CYLINDER", "CONE", "TORUS", "DISC", "GRID"}) {
        EXPECT_TRUE(ReadText(m_Emitter, BoneText() + Replaced(kText, "DISC", word)));
        EXPECT_EQ(m_Emitter.GetVolumeShape(), shape++);
        EXPECT_EQ(OwnText(m_Emitter), Replaced(kText, "DISC", word));
    }
    m_Emitter.SetEmitterType(4);
    m_Emitter.SetVolumeShape(7);
    EXPECT_EQ(OwnText(m_Emitter), Replaced(Replaced(kText, "GEOMETRY", "OMNI"), "DISC", "CUBE"));
}

TEST_F(Emitter, UnknownWordsWarnAndKeepTheValue)
{
    m_Emitter.SetEmitterType(kEmitterVolume);
    m_Emitter.SetVolumeShape(kEmitterVolumeGrid);
    EXPECT_TRUE(
        ReadText(m_Emitter, BoneText() + Replaced(Replaced(kText, "GEOMETRY", "SPRAY"), "DISC", "disc")));
    EXPECT_EQ(m_Log.Text(),
              "Warning : Unknown emitter type, \"SPRAY\" when reading chunk \"EMITTER\"\n"
              "Warning : Unknown volume type, \"disc\" when reading chunk \"EMITTER\"\n");
    EXPECT_EQ(OwnText(m_Emitter), Replaced(Replaced(kText, "GEOMETRY", "VOLUME"), "DISC", "GRID"));
}

TEST_F(Emitter, WrongKeysAreLogged)
{
    int row = 0;
    for (const std::string key : {"shape",
                                  "rate",
                                  "max_distance",
                                  "min_distance",
                                  "direction",
                                  "spread",
                                  "particle_colour",
                                  "emitter_type",
                                  "emitter_object",
                                  "emitter_transform",
                                  "volume_shape",
                                  "volume_offset",
                                  "volume_sweep",
                                  "inner_radius",
                                  "speed",
                                  "speed_random",
                                  "size",
                                  "size_random",
                                  "mass",
                                  "mass_random",
                                  "alpha",
                                  "alpha_random",
                                  "hue_offset",
                                  "saturation_offset",
                                  "luminance_offset"}) {
        m_Log.Clear();
        EXPECT_FALSE(ReadText(m_Emitter, BoneText() + Replaced(kText, "\t" + key + " ", "\tWrong ")));
        EXPECT_EQ(m_Log.Text(), "Error : Expected " + key +
                                    " got wrong [.\\src\\VKT\\Emitter:" + std::to_string(++row) + "]\n");
    }
}

TEST_F(Emitter, SettersReachTheirFields)
{
    XEmitter& emitter = New();
    EXPECT_TRUE(emitter.SetShape(&m_Particles));
    emitter.SetRate(2);
    emitter.SetMaxDistance(3);
    emitter.SetMinDistance(4);
    emitter.SetDirection({5, 6, 7, 0});
    emitter.SetSpread(8);
    emitter.SetParticleColour({9, 10, 11, 1});
    emitter.SetEmitterType(kEmitterGeometry);
    EXPECT_TRUE(emitter.SetEmitterObject(&m_Particles));
    EXPECT_TRUE(emitter.SetEmitterTransform(&emitter));
    emitter.SetVolumeShape(kEmitterVolumeDisc);
    emitter.SetVolumeOffset({14, 15, 16, 0});
    emitter.SetVolumeSweep(17);
    emitter.SetInnerRadius(18);
    emitter.SetSpeed(19);
    emitter.SetSpeedRandom(20);
    emitter.SetSize(21);
    emitter.SetSizeRandom(22);
    emitter.SetMass(23);
    emitter.SetMassRandom(24);
    emitter.SetAlpha(25);
    emitter.SetAlphaRandom(26);
    emitter.SetHueOffset(27);
    emitter.SetSaturationOffset(28);
    emitter.SetLuminanceOffset(29);
    EXPECT_EQ(OwnText(emitter), Replaced(Replaced(kText, "object 12", "object 1"), "form 13", "form 2"));
    EXPECT_EQ((XRealList{emitter.GetRate(), emitter.GetMaxDistance(), emitter.GetMinDistance(),
                         emitter.GetSpread(), emitter.GetVolumeSweep(), emitter.GetInnerRadius()}),
              (XRealList{2, 3, 4, 8, 17, 18}));
    EXPECT_EQ(
        (XRealList{emitter.GetSpeed(), emitter.GetSpeedRandom(), emitter.GetSize(), emitter.GetSizeRandom(),
                   emitter.GetMass(), emitter.GetMassRandom(), emitter.GetAlpha(), emitter.GetAlphaRandom(),
                   emitter.GetHueOffset(), emitter.GetSaturationOffset(), emitter.GetLuminanceOffset()}),
        (XRealList{19, 20, 21, 22, 23, 24, 25, 26, 27, 28, 29}));
    EXPECT_EQ(emitter.GetDirection(), (XVector3{5, 6, 7, 0}));
    EXPECT_EQ(emitter.GetVolumeOffset(), (XVector3{14, 15, 16, 0}));
    EXPECT_EQ(emitter.GetEmitterObject(), &m_Particles);
    EXPECT_EQ(emitter.GetEmitterTransform(), &emitter);
    EXPECT_TRUE(emitter.SetEmitterObject(nullptr));
    EXPECT_TRUE(emitter.SetEmitterTransform(nullptr));
    EXPECT_EQ(emitter.GetEmitterObject(), nullptr);
    EXPECT_EQ(emitter.GetEmitterTransform(), nullptr);
    XModel other;
    EXPECT_FALSE(emitter.SetEmitterObject(other.CreateNode(kFnBone)));
    EXPECT_FALSE(emitter.SetEmitterTransform(other.CreateNode(kFnBone)));
}

TEST_F(Emitter, FeedsOneParticleShapeThatListsIt)
{
    XParticleShape& other = *m_Model.CreateNode<XParticleShape>();
    XEmitter& emitter = New();
    EXPECT_TRUE(emitter.SetShape(&m_Particles));
    EXPECT_EQ(m_Particles.GetEmitter(0), &emitter);
    EXPECT_TRUE(emitter.SetShape(&other));
    EXPECT_EQ(m_Particles.GetNumEmitters(), 0u);
    EXPECT_EQ(other.GetEmitter(0), &emitter);
    XModel foreign;
    EXPECT_FALSE(emitter.SetShape(&emitter));
    EXPECT_FALSE(emitter.SetShape(foreign.CreateNode(kFnParticleShape)));
    EXPECT_EQ(emitter.GetShape(), &other);
    EXPECT_TRUE(emitter.SetShape(nullptr));
    EXPECT_EQ(emitter.GetShape(), nullptr);
    EXPECT_EQ(other.GetNumEmitters(), 0u);
}

TEST_F(Emitter, DoesNotOutliveItsParticleShape)
{
    XEmitter& emitter = New();
    XBone& child = *m_Model.CreateNode<XBone>();
    emitter.SetShape(&m_Particles);
    emitter.AddChild(&child);
    EXPECT_FALSE(emitter.NodeDeath(m_Particles.GetID()));
    EXPECT_TRUE(emitter.NodeDeath(child.GetID()));
    EXPECT_TRUE(emitter.GetChildIds().empty());
    EXPECT_TRUE(emitter.NodeDeath(99));
}

// It goes with its particle shape, so nothing of it is tidied up first.
TEST_F(Emitter, DeathOfItsParticleShapeReachesNoBase)
{
    XEmitter& emitter = New();
    emitter.SetShape(&m_Particles);
    XAttribute& speed = *emitter.CreateExtraAttribute("speed");
    speed.Set(1.0f);
    XParticleShape& other = *m_Model.CreateNode<XParticleShape>();
    for (XParticleShape* source : {&m_Particles, &other}) {
        ASSERT_TRUE(speed.SetInput(0, source->GetID(), "lifespan"));
        EXPECT_EQ(emitter.NodeDeath(source->GetID()), source == &other);
        EXPECT_EQ(speed.HasInput(0), source == &m_Particles);
    }
}

// Kept on purpose.
TEST_F(Emitter, ObjectAndTransformOutliveTheirNodes)
{
    XEmitter& emitter = New();
    XBone& bone = *m_Model.CreateNode<XBone>();
    const std::string id = std::to_string(bone.GetID());
    emitter.SetEmitterObject(&bone);
    emitter.SetEmitterTransform(&bone);
    EXPECT_TRUE(m_Model.DeleteNode(bone.GetID()));
    EXPECT_EQ(emitter.GetEmitterObject(), nullptr);
    EXPECT_EQ(emitter.GetEmitterTransform(), nullptr);
    EXPECT_NE(OwnText(emitter).find("\temitter_object " + id + "\n\temitter_transform " + id + "\n"),
              std::string::npos);
}

TEST_F(Emitter, CloneFeedsTheSameShapeWhereLinksAreAskedFor)
{
    XEmitter& emitter = New();
    ASSERT_TRUE(ReadBody(emitter, BoneBytes() + Bytes(kBytes)));
    XEmitter& linked = *XCast<XEmitter>(emitter.Clone());
    EXPECT_EQ(OwnText(linked), kText);
    EXPECT_EQ(BodyOf(linked).substr(BodyOf(linked).size() - 132), Bytes(kBytes));  // the nameless float too
    EXPECT_EQ(m_Particles.GetEmitter(0), &linked);
    m_Model.GetCopyFlags().Clear(CopyParticleLinks);
    EXPECT_EQ(OwnText(*emitter.Clone()), Replaced(kText, "shape 1", "shape 0"));
    EXPECT_EQ(m_Particles.GetNumEmitters(), 1u);
    linked.DoCopy(&linked);
    EXPECT_EQ(OwnText(linked), kText);
}

TEST_F(Emitter, Vocabulary)
{
    EXPECT_EQ(RowsOf(XEmitter::ClassProperties()),
              "79 properties\n"
              "rate float 56\n"
              "max_distance float 57 a\n"
              "min_distance float 58 a\n"
              "direction vector 59 a\n"
              "spread float 60 a\n"
              "particle_colour colour 61 a\n"
              "emitter_type int 62 a\n"
              "emitter_object node 63 a\n"
              "emitter_transform node 64 a\n"
              "volume_shape int 65 a\n"
              "volume_offset vector 66 a\n"
              "volume_sweep float 67 a\n"
              "inner_radius float 68 a\n"
              "speed float 69 a\n"
              "speed_random float 70 a\n"
              "size float 71 a\n"
              "size_random float 72 a\n"
              "mass float 73 a\n"
              "mass_random float 74 a\n"
              "alpha float 75 a\n"
              "alpha_random float 76 a\n"
              "hue_offset float 77 a\n"
              "saturation_offset float 78 a\n"
              "luminance_offset float 79 a\n");
}

TEST_F(Emitter, PropertiesReachTheFields)
{
    XEmitter& emitter = New();
    const XNodeProperties& properties = *emitter.GetNodeProperties();
    emitter.SetShape(&m_Particles);
    const f32 reals[] = {2, 3, 4, 0, 8, 0, 0, 0, 0, 0, 0, 17, 18, 19, 20, 21, 22, 23, 24, 25, 26, 27, 28, 29};
    for (u32 id = 56; id <= 79; ++id)
        if (reals[id - 56] != 0) {
            EXPECT_TRUE(properties.SetFloat(&emitter, id, reals[id - 56])) << id;
        }
    EXPECT_TRUE(properties.SetVector(&emitter, 59, {5, 6, 7, 0}));
    EXPECT_TRUE(properties.SetColour(&emitter, 61, {9, 10, 11, 12}));
    EXPECT_TRUE(properties.SetInteger(&emitter, 62, 2));
    EXPECT_TRUE(properties.SetNode(&emitter, 63, &m_Particles));
    EXPECT_TRUE(properties.SetNode(&emitter, 64, &emitter));
    EXPECT_TRUE(properties.SetInteger(&emitter, 65, 5));
    EXPECT_TRUE(properties.SetVector(&emitter, 66, {14, 15, 16, 0}));
    EXPECT_EQ(OwnText(emitter), Replaced(Replaced(kText, "object 12", "object 1"), "form 13", "form 2"));
}

}  // namespace
