#include "VKT/animation/AnimationTake.h"

#include "VKT/deformers/JiggleDeformer.h"
#include "VKT/dynamics/Emitter.h"
#include "VKT/geometry/PolygonMesh.h"
#include "VKT/node/Attribute.h"
#include "VKT/shading/Lambert.h"
#include "VKT/support/AnimationScene.h"

using namespace VKT;
using namespace VKT::Test;

namespace {

class AnimationTake : public AnimationTest {};

TEST_F(AnimationTake, FreshOneWritesItsDefaults)
{
    XAnimationTake& take = *m_Model.CreateNode<XAnimationTake>();
    EXPECT_EQ(ChunkOf(take),
              "ANIMATION_TAKE node3\n"
              "{\n"
              "\tid 3\n"
              "\tstart_time 0\n"
              "\tend_time 0\n"
              "\tfps 0\n"
              "\tcurrent_time 0\n"
              "\tnum_animated_nodes 0\n"
              "\tnum_event_tracks 0\n"
              "}\n");
    EXPECT_EQ(take.GetDataSize(), 14u + 5 + 24);
    EXPECT_EQ(take.GetNumFrames(), 0u);
    EXPECT_EQ(take.GetApiType(), 165u);
    EXPECT_EQ(take.HasFn(0), &take);
    EXPECT_EQ(take.HasFn(133), nullptr);
    EXPECT_EQ(take.GetNodeProperties()->GetNumProperties(), 0u);
}

constexpr const char kText[] =
    "\tstart_time 10\n"
    "\tend_time 12\n"
    "\tfps 24\n"
    "\tcurrent_time 11\n"
    "\tnum_animated_nodes 1\n"
    "\tnum_event_tracks 0\n"
    "\tANIM_NODE 1\n"
    "\t{\n"
    "\t\tnum_animated_attrs 2\n"
    "\t\tnum_animated_attrs_user 7\n"
    "\t\tATTR translate\n"
    "\t\t{\n"
    "\t\t\tnum_streams 2\n"
    "\t\t\telements_per_sample 3\n"
    "\t\t\tPOSE_KEY\n"
    "\t\t\t{\n"
    "\t\t\t\t1 2 3 \n"
    "\t\t\t}\n"
    "\t\t\tSAMPLED_KEYS\n"
    "\t\t\t{\n"
    "\n"
    "\t\t\t\t4 5 6 \n"
    "\t\t\t\t7 8 9 \n"
    "\t\t\t\t10 11 12 \n"
    "\t\t\t}\n"
    "\t\t}\n"
    "\t\tATTR visible\n"
    "\t\t{\n"
    "\t\t\tnum_streams 1\n"
    "\t\t\telements_per_sample 1\n"
    "\t\t\tFCURVE_STREAM\n"
    "\t\t\t{\n"
    "\t\t\t\tnum_fcurves 0\n"
    "\t\t\t}\n"
    "\t\t}\n"
    "\t}\n";
constexpr const char kBytes[] =
    "05 00 6e 6f 64 65 32 02 00 00 00 "
    "00 00 20 41 00 00 40 41 00 00 c0 41 00 00 30 41 "  // times and rate
    "01 00 00 00 00 00 00 00 "
    "01 00 00 00 02 00 00 00 07 00 00 00 "                                      // the bone
    "03 00 00 00 03 00 00 00 02 00 00 00 "                                      // translate
    "00 00 00 00 02 00 00 00 00 00 80 3f 00 00 00 40 00 00 40 40 "              // a pose of vectors
    "01 00 00 00 02 00 00 00 09 00 00 00 00 00 80 40 00 00 a0 40 00 00 c0 40 "  // samples of vectors
    "00 00 e0 40 00 00 00 41 00 00 10 41 00 00 20 41 00 00 30 41 00 00 40 41 "
    "04 00 00 00 01 00 00 00 01 00 00 00 "  // visible
    "02 00 00 00 00 00 00 00 00 00 00 00";  // curves of scalars, none

TEST_F(AnimationTake, BothFormsAreExact)
{
    ASSERT_TRUE(ReadText(m_Take, kText));
    EXPECT_EQ(TextOf(m_Take), kText);
    EXPECT_EQ(Hex(BodyOf(m_Take)), kBytes);
    EXPECT_EQ(m_Take.GetDataSize(), 8 + BodyOf(m_Take).size());
    XAnimationTake& fromBytes = *m_Model.CreateNode<XAnimationTake>();
    ASSERT_TRUE(ReadBody(fromBytes, Bytes(kBytes)));
    EXPECT_EQ(TextOf(fromBytes), kText);
    EXPECT_EQ(fromBytes.GetNumFrames(), 3u);
    EXPECT_EQ(m_Log.Text(), "");
}

TEST_F(AnimationTake, FilesOfVersionThreeHoldTheSame)
{
    MakeOlder();
    m_Model.CreateNode<XBone>();
    XAnimationTake& fromText = *m_Model.CreateNode<XAnimationTake>();
    ASSERT_TRUE(ReadText(fromText, kText));
    EXPECT_EQ(TextOf(fromText), kText);
    XAnimationTake& fromBytes = *m_Model.CreateNode<XAnimationTake>();
    ASSERT_TRUE(ReadBody(fromBytes, Bytes(kBytes)));
    EXPECT_EQ(TextOf(fromBytes), kText);
}

// Kept on purpose: the kind of the attribute is not in a binary file.
TEST_F(AnimationTake, BinaryFormHoldsTheKindsOfStreamsAlone)
{
    ASSERT_TRUE(ReadBody(m_Take, Bytes(kBytes)));
    const XAnimatedAttribute& attribute = *m_Take.GetAnimatedNode(0)->GetAttribute(0);
    EXPECT_EQ(attribute.GetKind(), kScalar);
    EXPECT_EQ(attribute.GetElementsPerSample(), 3u);
    EXPECT_EQ(attribute.GetStream(0)->GetKind(), kVector3);
    EXPECT_EQ(attribute.GetStream(1)->GetKind(), kVector3);
    EXPECT_EQ(attribute.GetStream(2), nullptr);
}

TEST_F(AnimationTake, FramesAreCountedFromTheTimes)
{
    const struct {
        const char *start, *end;
        u32 frames;
    } expected[] = {{"0", "24", 25}, {"0", "24.5", 26}, {"7", "7", 1},
                    {"10", "5", 0},  {"10", "9.5", 1},  {"0", "1e30", 0xFFFFFFFF}};
    for (const auto& [start, end, frames] : expected) {
        const std::string text =
            Replaced(Replaced(kText, "start_time 10", std::string("start_time ") + start), "end_time 12",
                     std::string("end_time ") + end);
        const std::string head = text.substr(0, text.find("\tANIM_NODE"));
        ASSERT_TRUE(ReadText(m_Take, Replaced(head, "num_animated_nodes 1", "num_animated_nodes 0")));
        EXPECT_EQ(m_Take.GetNumFrames(), frames) << start << " " << end;
        XAnimationTake& fromBytes = *m_Model.CreateNode<XAnimationTake>();
        ASSERT_TRUE(ReadBody(fromBytes, BodyOf(m_Take)));
        EXPECT_EQ(fromBytes.GetNumFrames(), frames) << start << " " << end;
    }
    // No number at all, as a damaged binary file may hold.
    const std::string bytes = Replaced(Bytes(kBytes), Bytes("00 00 40 41"), Bytes("ff ff ff 7f"));
    XAnimationTake& take = *m_Model.CreateNode<XAnimationTake>();
    ASSERT_TRUE(ReadBody(take, bytes.substr(0, 27)));
    EXPECT_EQ(take.GetNumFrames(), 0u);
}

TEST_F(AnimationTake, EventTracksAreAcceptedAndDropped)
{
    ASSERT_TRUE(ReadText(m_Take, Replaced(kText, "num_event_tracks 0", "num_event_tracks 3")));
    EXPECT_EQ(TextOf(m_Take), kText);
    ASSERT_TRUE(ReadBody(
        m_Take, Bytes(Replaced(kBytes, "01 00 00 00 00 00 00 00 01", "01 00 00 00 03 00 00 00 01"))));
    EXPECT_EQ(TextOf(m_Take), kText);
}

TEST_F(AnimationTake, NameIsCleanedBehindTheText)
{
    m_Take.SetName("wa/lk\\\"");
    ASSERT_TRUE(ReadText(m_Take, kText));
    EXPECT_STREQ(m_Take.GetName(), "walk");
    EXPECT_EQ(m_Model.FindNode("walk"), &m_Take);
    EXPECT_EQ(m_Model.FindNode("wa/lk\\\""), nullptr);
}

TEST_F(AnimationTake, EachWrongKeyIsLogged)
{
    for (const char* key : {"start_time", "end_time", "fps", "current_time", "num_animated_nodes",
                            "num_event_tracks", "ANIM_NODE", "{", "num_animated_attrs",
                            "num_animated_attrs_user", "ATTR", "num_streams", "elements_per_sample", "}"}) {
        m_Log.Clear();
        const std::string word(key);
        const std::string text =
            word.size() == 1 ? Replaced(kText, word + "\n", "Oops\n") : Replaced(kText, word + " ", "Oops ");
        EXPECT_FALSE(ReadText(m_Take, text)) << key;
        EXPECT_EQ(m_Log.Text().find("Error : Expected " + word + " got oops [.\\src\\VKT\\AnimationTake:"),
                  0u)
            << m_Log.Text();
    }
}

TEST_F(AnimationTake, NumberThatIsNoneIsSeenAtTheNextKey)
{
    EXPECT_FALSE(ReadText(m_Take, Replaced(kText, "current_time 11", "current_time x")));
    EXPECT_EQ(m_Log.Text(), "Error : Expected num_animated_nodes got  [.\\src\\VKT\\AnimationTake:5]\n");
}

TEST_F(AnimationTake, EndOfTheInputInPlaceOfAnAttributeIsLogged)
{
    const std::string text = kText;
    EXPECT_FALSE(ReadText(m_Take, text.substr(0, text.find(" translate"))));
    EXPECT_EQ(m_Log.Text(), "Error : Expected { got  [.\\src\\VKT\\AnimationTake:12]\n");
}

TEST_F(AnimationTake, StreamWordsAreExact)
{
    EXPECT_FALSE(ReadText(m_Take, Replaced(kText, "FCURVE_STREAM", "fcurve_stream")));
    EXPECT_EQ(m_Log.Text(),
              "Error : Expected FCURVE_STREAM got fcurve_stream [.\\src\\VKT\\AnimationTake:15]\n");
}

TEST_F(AnimationTake, AttributeOfALostNodeFailsInSilence)
{
    EXPECT_FALSE(ReadText(m_Take, Replaced(kText, "ANIM_NODE 1", "ANIM_NODE 99")));
    EXPECT_EQ(m_Log.Text(), "");
}

TEST_F(AnimationTake, LostNodesAndNamelessAttributesAreLeftOutOfText)
{
    std::string bytes = Bytes(kBytes);
    bytes = Replaced(bytes, Bytes("04 00 00 00 01 00 00 00 01 00 00 00 02"),
                     Bytes("e7 03 00 00 01 00 00 00 01 00 00 00 02"));
    ASSERT_TRUE(ReadBody(m_Take, bytes));
    XBone& other = *m_Model.CreateNode<XBone>();
    m_Take.CreateNodeAnimation(&other);
    m_Model.DeleteNode(other.GetID());
    XModel elsewhere;
    for (int i = 0; i < 9; ++i)
        elsewhere.CreateNode<XBone>();
    m_Take.CreateNodeAnimation(elsewhere.FindNode(9));
    const std::string text = TextOf(m_Take);
    EXPECT_EQ(m_Log.Text(),
              "Warning : take \"node2\": 1 animated nodes are not in the document and are left out\n"
              "Warning : take \"node2\": 1 animated attributes of \"node1\" have no name and are left out\n");
    std::string expected = kText;
    expected = expected.substr(0, expected.find("\t\tATTR visible")) + "\t}\n";
    EXPECT_EQ(text, Replaced(expected, "num_animated_attrs 2", "num_animated_attrs 1"));
}

TEST_F(AnimationTake, CreateNodeAnimationFindsOrMakes)
{
    EXPECT_EQ(m_Take.CreateNodeAnimation(&m_Bone), &m_Entry);
    EXPECT_EQ(m_Entry.GetNodeId(), 1u);
    EXPECT_EQ(m_Entry.GetNode(), &m_Bone);
    EXPECT_EQ(&m_Entry.GetTake(), &m_Take);
    EXPECT_EQ(m_Take.GetNumAnimatedNodes(), 1u);
    EXPECT_EQ(m_Take.CreateNodeAnimation(nullptr), nullptr);
    XModel elsewhere;
    const XBone* const foreign = elsewhere.CreateNode<XBone>();
    EXPECT_NE(m_Take.CreateNodeAnimation(foreign), &m_Entry) << "also of id 1";
    EXPECT_NE(m_Take.CreateNodeAnimation(foreign), m_Take.GetAnimatedNode(1));
    EXPECT_EQ(m_Take.GetNumAnimatedNodes(), 3u);
    EXPECT_EQ(m_Take.GetAnimatedNode(3), nullptr);
    EXPECT_EQ(m_Take.CreateNodeAnimation(&m_Bone), &m_Entry);
}

TEST_F(AnimationTake, RemoveKeepsTheOrder)
{
    XModel elsewhere;
    const XBone* const foreign = elsewhere.CreateNode<XBone>();
    XAnimatedNode* const second = m_Take.CreateNodeAnimation(foreign);
    XAnimatedNode* const third = m_Take.CreateNodeAnimation(&m_Take);
    EXPECT_TRUE(m_Take.RemoveNodeAnimation(&m_Entry));
    EXPECT_FALSE(m_Take.RemoveNodeAnimation(&m_Entry));
    EXPECT_EQ(m_Take.GetAnimatedNode(0), second);
    EXPECT_EQ(m_Take.GetAnimatedNode(1), third);
    EXPECT_EQ(m_Take.CreateNodeAnimation(&m_Bone), second) << "the next entry of the id";
    EXPECT_TRUE(m_Take.RemoveNodeAnimation(second));
    EXPECT_EQ(m_Take.FindNodeAnimation(1), nullptr);
    EXPECT_EQ(m_Take.FindNodeAnimation(2), third);
}

TEST_F(AnimationTake, CreateAttributeAsksTheVocabulary)
{
    const struct {
        u32 attribute;
        XStreamKind kind;
        u32 elements;
    } expected[] = {{kVisible, kScalar, 1}, {kTranslate, kVector3, 3}, {kRotation, kQuaternion, 4}};
    for (const auto& [number, kind, elements] : expected) {
        const XAnimatedAttribute* const attribute = m_Entry.CreateAttribute(number);
        ASSERT_NE(attribute, nullptr);
        EXPECT_EQ(attribute->GetKind(), kind);
        EXPECT_EQ(attribute->GetElementsPerSample(), elements);
        EXPECT_EQ(attribute->GetAttributeId(), number);
    }
    for (const u32 number : {0u, 5u, 12u, 19u, 999u})  // none, not animatable, unknown
        EXPECT_EQ(m_Entry.CreateAttribute(number), nullptr) << number;
    XLambert& lambert = *m_Model.CreateNode<XLambert>();
    EXPECT_EQ(m_Take.CreateNodeAnimation(&lambert)->CreateAttribute(2)->GetKind(), kVector4);
    XPolygonMesh& mesh = *m_Model.CreateNode<XPolygonMesh>();
    EXPECT_EQ(m_Take.CreateNodeAnimation(&mesh)->CreateAttribute(1)->GetKind(), kVector3);
    XBlendShape& blend = *m_Model.CreateNode<XBlendShape>();
    EXPECT_EQ(m_Take.CreateNodeAnimation(&blend)->CreateAttribute(3)->GetKind(), kScalar);
    XModel elsewhere;
    for (int i = 0; i < 20; ++i)
        elsewhere.CreateNode<XBone>();
    EXPECT_EQ(m_Take.CreateNodeAnimation(elsewhere.FindNode(20))->CreateAttribute(kTranslate), nullptr);
}

// Signed integers and nodes are animatable to the vocabulary, and no stream holds them.
TEST_F(AnimationTake, CreateAttributeRefusesTypesWithoutAKind)
{
    XEmitter& emitter = *m_Model.CreateNode<XEmitter>();
    XAnimatedNode& entry = *m_Take.CreateNodeAnimation(&emitter);
    for (const u32 number : {62u, 63u, 64u, 65u}) {
        EXPECT_TRUE(emitter.IsPropertyAnimated(number)) << number;
        EXPECT_EQ(entry.CreateAttribute(number), nullptr) << number;
    }
    EXPECT_EQ(entry.GetNumAttributes(), 0u);
    ASSERT_NE(entry.CreateAttribute(57), nullptr);
    EXPECT_EQ(entry.GetAttribute(0)->GetKind(), kScalar);
}

TEST_F(AnimationTake, CreateAttributeTwiceGivesTwo)
{
    XAnimatedAttribute* const first = m_Entry.CreateAttribute(kTranslate);
    EXPECT_NE(m_Entry.CreateAttribute(kTranslate), first);
    EXPECT_EQ(m_Entry.GetNumAttributes(), 2u);
    EXPECT_EQ(m_Entry.GetAttribute(0), first);
    EXPECT_EQ(m_Entry.GetAttribute(2), nullptr);
}

// Kept on purpose: arrays have other kinds when they come from a text file.
TEST_F(AnimationTake, KindsFromTextDifferForArrays)
{
    m_Model.CreateNode<XPolygonMesh>();
    m_Model.CreateNode<XBlendShape>();
    m_Model.CreateNode<XLambert>();
    m_Model.CreateNode<XJiggleDeformer>();
    const struct {
        int node;
        const char* name;
        u32 kind;
    } expected[] = {{1, "visible", 0}, {1, "translate", 2},     {1, "rotation", 4},
                    {1, "world", 5},   {1, "rotate_order", 0},  {1, "no_such_name", 0},
                    {3, "points", 7},  {4, "weights", 6},       {4, "envelope_weight", 0},
                    {5, "diffuse", 3}, {6, "point_indices", 0}, {6, "ignore_transform", 0}};
    for (const auto& [node, name, kind] : expected) {
        const std::string text =
            Replaced(TakeText(name, "", 0, 1), "ANIM_NODE 1", "ANIM_NODE " + std::to_string(node));
        ASSERT_TRUE(ReadText(m_Take, text)) << name;
        EXPECT_EQ(m_Take.GetAnimatedNode(0)->GetAttribute(0)->GetKind(), kind) << name;
    }
    ASSERT_TRUE(
        ReadText(m_Take, Replaced(TakeText("points", "POSE_KEY { }", 1, 0), "ANIM_NODE 1", "ANIM_NODE 3")));
    EXPECT_EQ(m_Take.GetAnimatedNode(0)->GetAttribute(0)->GetStream(0)->GetDataSize(), 8u);
}

TEST_F(AnimationTake, ElementsOfTheKinds)
{
    constexpr u32 counts[] = {1, 2, 3, 4, 4, 16, 1, 0, 0};
    for (u32 kind = 0; kind < std::size(counts); ++kind)
        EXPECT_EQ(GetElementCount(XStreamKind{kind}), counts[kind]) << kind;
    EXPECT_EQ(GetElementCount(XStreamKind{0xFFFFFFFF}), 0u);
}

TEST_F(AnimationTake, ExtraAttributesAreAnimatedByName)
{
    m_Bone.CreateExtraAttribute("mood")->Set(0.5f);
    const std::string streams = "FCURVE_STREAM { num_fcurves 0 }";
    const XAnimatedAttribute* const attribute = ReadAttribute("mood", streams, 1);
    ASSERT_NE(attribute, nullptr);
    EXPECT_EQ(attribute->GetAttributeId(), 0u);
    EXPECT_EQ(attribute->GetExtraAttribute(), m_Bone.GetExtraAttribute("mood"));
    EXPECT_EQ(attribute->GetName(), "mood");
    const std::string text = TextOf(m_Take);
    EXPECT_NE(text.find("\t\tATTR mood\n"), std::string::npos);
    EXPECT_TRUE(ReadText(m_Take, text));
    EXPECT_EQ(TextOf(m_Take), text);
    // The binary form does not tell which one it was.
    ASSERT_TRUE(ReadBody(m_Take, BodyOf(m_Take)));
    EXPECT_EQ(m_Take.GetAnimatedNode(0)->GetAttribute(0)->GetExtraAttribute(), nullptr);
    EXPECT_EQ(m_Take.GetAnimatedNode(0)->GetAttribute(0)->GetName(), "");
}

TEST_F(AnimationTake, DeathOfANodeDropsItsFirstEntry)
{
    XModel elsewhere;
    const XAnimatedNode* const second = m_Take.CreateNodeAnimation(elsewhere.CreateNode<XBone>());
    EXPECT_TRUE(m_Take.NodeDeath(99));
    EXPECT_EQ(m_Take.GetNumAnimatedNodes(), 2u);
    EXPECT_TRUE(m_Take.NodeDeath(1));
    EXPECT_EQ(m_Take.GetNumAnimatedNodes(), 1u);
    EXPECT_EQ(m_Take.GetAnimatedNode(0), second);
    EXPECT_TRUE(m_Take.NodeDeath(1));
    EXPECT_EQ(m_Take.GetNumAnimatedNodes(), 0u);
    std::set<u32> along;
    m_Take.PreDelete(along);
    EXPECT_TRUE(along.empty());
}

TEST_F(AnimationTake, DeletedNodesLeaveTheirTakes)
{
    EXPECT_TRUE(m_Model.DeleteNode(1));
    EXPECT_EQ(m_Take.GetNumAnimatedNodes(), 0u);
}

TEST_F(AnimationTake, CopyTakesTheTimesAlone)
{
    ASSERT_TRUE(ReadText(m_Take, kText));
    XAnimationTake& copy = *m_Model.CreateNode<XAnimationTake>();
    copy.SetNumFrames(77);
    copy.DoCopy(&m_Take);
    EXPECT_EQ(copy.GetStartTime(), 10);
    EXPECT_EQ(copy.GetEndTime(), 12);
    EXPECT_EQ(copy.GetFramesPerSecond(), 24);
    EXPECT_EQ(copy.GetCurrentTime(), 11);
    EXPECT_EQ(copy.GetNumFrames(), 77u);
    EXPECT_EQ(copy.GetNumAnimatedNodes(), 0u);
    copy.DoCopy(&m_Bone);
    EXPECT_EQ(copy.GetEndTime(), 12) << "another class";
}

// Short numbers are logged and the read keeps what came; a short stream fails it.
TEST_F(AnimationTake, ShortBodiesKeepWhatCame)
{
    const std::string bytes = Bytes(kBytes);
    const std::size_t streamStarts = 7 + 4 + 16 + 8 + 12 + 12;
    for (std::size_t length = 11; length < bytes.size(); ++length) {
        m_Log.Clear();
        XAnimationTake& take = *m_Model.CreateNode<XAnimationTake>();
        const bool isRead = ReadBody(take, bytes.substr(0, length));
        EXPECT_NE(m_Log.Text(), "") << length;
        const std::size_t behindStreams = bytes.size() - 24;
        const bool isAhead = length < streamStarts;
        const bool isBetween = length >= behindStreams && length < behindStreams + 12;
        EXPECT_EQ(isRead, isAhead || isBetween) << length;
        if (isRead && length >= 15) {
            EXPECT_EQ(take.GetStartTime(), 10);
        }
    }
}

TEST_F(AnimationTake, EachShortNumberIsLogged)
{
    const std::string bytes = Bytes(kBytes);
    constexpr const char* kShort = "Error : XFileIO::DoData : expected to read/write 1 elements got 0\n";
    const struct {
        std::size_t length;
        int messages;
    } cases[] = {
        {11, 6},           // four times, two counts
        {13, 6},           // within the first time
        {15, 5}, {27, 2},  // behind the times
        {31, 1},           // behind the first count
        {35, 3},           // an entry: id and two counts
        {43, 1}, {47, 3},  // an attribute: number, elements and count
        {55, 1},
    };
    for (const auto& [length, messages] : cases) {
        m_Log.Clear();
        EXPECT_TRUE(ReadBody(*m_Model.CreateNode<XAnimationTake>(), bytes.substr(0, length))) << length;
        std::string expected;
        for (int i = 0; i < messages; ++i)
            expected += kShort;
        EXPECT_EQ(m_Log.Text(), expected) << length;
    }
}

TEST_F(AnimationTake, ImpossibleCountsEndWithTheFile)
{
    const std::string bytes = Bytes(kBytes);
    const char* const counts[] = {
        "01 00 00 00 00 00 00 00 01 00 00 00 02",           // animated nodes
        "02 00 00 00 07 00 00 00 03",                       // attributes
        "02 00 00 00 00 00 00 00 02 00 00 00 00 00 80 3f",  // streams
    };
    for (const char* count : counts) {
        std::string huge = Bytes(count);
        huge.replace(0, 4, Bytes("ff ff ff ff"));
        XAnimationTake& take = *m_Model.CreateNode<XAnimationTake>();
        ReadBody(take, Replaced(bytes, Bytes(count), huge));
        EXPECT_LE(take.GetNumAnimatedNodes(), 2u);
    }
    for (const char* count : {"num_animated_nodes ", "num_animated_attrs ", "num_animated_attrs_user ",
                              "num_streams ", "num_fcurves ", "elements_per_sample "}) {
        std::string text = kText;
        const std::size_t at = text.find(count) + std::string(count).size();
        text.replace(at, text.find('\n', at) - at, "4294967295");
        XAnimationTake& take = *m_Model.CreateNode<XAnimationTake>();
        EXPECT_EQ(ReadText(take, text), count == std::string("num_animated_attrs_user ")) << count;
    }
}

TEST_F(AnimationTake, UnknownStreamTypeFails)
{
    EXPECT_FALSE(ReadBody(m_Take, Replaced(Bytes(kBytes), Bytes("01 00 00 00 02 00 00 00 09"),
                                           Bytes("03 00 00 00 02 00 00 00 09"))));
    EXPECT_EQ(m_Log.Text(), "Error : 3 is no type of a key stream\n");
}

}  // namespace
