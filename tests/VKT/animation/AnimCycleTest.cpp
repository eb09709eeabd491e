#include "VKT/animation/AnimCycle.h"

#include "VKT/hierarchy/Bone.h"
#include "VKT/support/NodeTest.h"

using namespace VKT;
using namespace VKT::Test;

namespace {

class AnimCycle : public NodeTest {
protected:
    XAnimCycle& New() { return *m_Model.CreateNode<XAnimCycle>(); }
    XAnimCycle& m_Cycle = New();
};

constexpr const char kBody[] =
    "\tnum_bones 2\n"
    "\tstart 1\n"
    "\tend 2.5\n"
    "\tnum_frames 2\n"
    "\tfps 24\n"
    "\tBONE_ANIM 7\n"
    "\t{\n"
    "\t\t0.1 0.2 0.3 0.4\t5 6 7\t8 9 10\n"
    "\t\t0.5 0.6 0.7 0.8\t15 16 17\t18 19 20\n"
    "\t}\n"
    "\tBONE_ANIM 9\n"
    "\t{\n"
    "\t\t1 2 3 4\t-5 -6 -7\t-8 -9 -10\n"
    "\t\t5 6 7 8\t-15 -16 -17\t-18 -19 -20\n"
    "\t}\n"
    "\tANIM_CURVE_LIST lamp\n"
    "\t{\n"
    "\t\tnode 3\n"
    "\t\tnum_curves 1\n"
    "\t\tANIM_CURVE glow\n"
    "\t\t{\n"
    "\t\t\tattr_name intensity\n"
    "\t\t\tnum_keys 1\n"
    "\t\t\t\ttime 1 value 2 in 3 out 4.5\n"
    "\t\t}\n"
    "\t}\n"
    "}\n";
const std::string kChunk = std::string("ANIM_CYCLE \"walk\"\n{\n") + kBody;
constexpr const char kBytes[] =
    "04 00 77 61 6c 6b 01 00 00 00 "
    "00 00 80 3f 00 00 20 40 02 00 00 00 00 00 c0 41 "
    "01 00 00 00 04 00 6c 61 6d 70 03 00 00 00 01 00 00 00 "  // the curves
    "04 00 67 6c 6f 77 09 00 69 6e 74 65 6e 73 69 74 79 "
    "01 00 00 00 00 00 80 3f 00 00 00 40 00 00 40 40 00 00 90 40 "
    "02 00 00 00 "                                                  // the bones
    "07 00 00 00 02 00 00 00 00 00 00 41 00 00 10 41 00 00 20 41 "  // scale
    "00 00 90 41 00 00 98 41 00 00 a0 41 "
    "02 00 00 00 00 00 a0 40 00 00 c0 40 00 00 e0 40 00 00 70 41 00 00 80 41 00 00 88 41 "
    "02 00 00 00 cd cc cc 3d cd cc 4c 3e 9a 99 99 3e cd cc cc 3e "  // rotation
    "00 00 00 3f 9a 99 19 3f 33 33 33 3f cd cc 4c 3f "
    "09 00 00 00 02 00 00 00 00 00 00 c1 00 00 10 c1 00 00 20 c1 "
    "00 00 90 c1 00 00 98 c1 00 00 a0 c1 "
    "02 00 00 00 00 00 a0 c0 00 00 c0 c0 00 00 e0 c0 00 00 70 c1 00 00 80 c1 00 00 88 c1 "
    "02 00 00 00 00 00 80 3f 00 00 00 40 00 00 40 40 00 00 80 40 "
    "00 00 a0 40 00 00 c0 40 00 00 e0 40 00 00 00 41";

TEST_F(AnimCycle, FreshOneWritesItsDefaults)
{
    EXPECT_EQ(TextOf(m_Cycle),
              "ANIM_CYCLE \"\"\n{\n\tnum_bones 0\n\tstart 0\n\tend 0\n\tnum_frames 0\n\tfps 0\n}\n");
    EXPECT_EQ(m_Cycle.GetDataSize(), 14u + 16 + 8);
    EXPECT_EQ(m_Cycle.GetApiType(), 133u);
    EXPECT_EQ(m_Cycle.HasFn(0), &m_Cycle);
    EXPECT_EQ(static_cast<const XAnimCycle&>(m_Cycle).HasFn(133), &m_Cycle);
    EXPECT_EQ(m_Cycle.HasFn(165), nullptr);
}

TEST_F(AnimCycle, BothFormsAreExact)
{
    m_Cycle.SetName("walk");
    ASSERT_TRUE(ReadText(m_Cycle, kBody));
    EXPECT_EQ(TextOf(m_Cycle), kChunk);
    EXPECT_EQ(Hex(BodyOf(m_Cycle)), kBytes);
    EXPECT_EQ(m_Cycle.GetDataSize(), 8 + BodyOf(m_Cycle).size());
    XAnimCycle& fromBytes = New();
    ASSERT_TRUE(ReadBody(fromBytes, Bytes(kBytes)));
    EXPECT_EQ(TextOf(fromBytes), kChunk);
    ASSERT_TRUE(ReadBody(fromBytes, Bytes(kBytes))) << "a second read replaces the first";
    EXPECT_EQ(TextOf(fromBytes), kChunk);
}

TEST_F(AnimCycle, FilesOfVersionThreeHoldTheSame)
{
    MakeOlder();
    XAnimCycle& fromText = New();
    fromText.SetName("walk");
    ASSERT_TRUE(ReadText(fromText, kBody));
    EXPECT_EQ(TextOf(fromText), kChunk);
    XAnimCycle& fromBytes = New();
    ASSERT_TRUE(ReadBody(fromBytes, Bytes(kBytes)));
    EXPECT_EQ(TextOf(fromBytes), kChunk);
}

TEST_F(AnimCycle, TablesAreMadeOnceAndSizedByTheCaller)
{
    m_Cycle.SetFrameRange(1, 3, 2);
    m_Cycle.SetFramesPerSecond(30);
    XSampledBoneAnim* const late = m_Cycle.AddBoneAnim(20);
    XSampledBoneAnim* const early = m_Cycle.AddBoneAnim(10);
    EXPECT_EQ(m_Cycle.AddBoneAnim(20), late);
    EXPECT_EQ(m_Cycle.FindBoneAnim(10), early);
    EXPECT_EQ(m_Cycle.FindBoneAnim(11), nullptr);
    EXPECT_EQ(late->GetNumFrames(), 0u);
    late->SetNumFrames(2);
    early->SetNumFrames(2);
    EXPECT_EQ(late->GetScale()[1], (XVector3{1, 1, 1, 0}));
    EXPECT_EQ(late->GetTranslate()[1], XVector3{});
    EXPECT_EQ(late->GetRotate()[1], kIdentityQuaternion);
    late->GetScale()[0] = {2, 3, 4, 0};
    EXPECT_EQ(TextOf(m_Cycle),
              "ANIM_CYCLE \"\"\n{\n\tnum_bones 2\n\tstart 1\n\tend 3\n\tnum_frames 2\n\tfps 30\n"
              "\tBONE_ANIM 10\n\t{\n\t\t0 0 0 1\t0 0 0\t1 1 1\n\t\t0 0 0 1\t0 0 0\t1 1 1\n\t}\n"
              "\tBONE_ANIM 20\n\t{\n\t\t0 0 0 1\t0 0 0\t2 3 4\n\t\t0 0 0 1\t0 0 0\t1 1 1\n\t}\n}\n")
        << "by ascending id";
}

TEST_F(AnimCycle, NoFramesWriteEmptyBlocksThatReadBack)
{
    m_Cycle.AddBoneAnim(5);
    const std::string text = TextOf(m_Cycle);
    EXPECT_NE(text.find("\tBONE_ANIM 5\n\t{\n\t}\n"), std::string::npos);
    XAnimCycle& copy = New();
    EXPECT_TRUE(ReadText(copy, Replaced(text, "ANIM_CYCLE \"\"\n{\n", "")));
    EXPECT_EQ(TextOf(copy), text);
}

// Tables of other lengths come from callers and from damaged files.
TEST_F(AnimCycle, TextHasTheFramesOfTheCycle)
{
    m_Cycle.SetFrameRange(0, 1, 2);
    m_Cycle.AddBoneAnim(1)->SetNumFrames(3);
    m_Cycle.AddBoneAnim(2)->SetNumFrames(1);
    EXPECT_EQ(m_Cycle.GetTextPadding(), 1u);
    const std::string frame = "\t\t0 0 0 1\t0 0 0\t1 1 1\n";
    EXPECT_NE(TextOf(m_Cycle).find("BONE_ANIM 1\n\t{\n" + frame + frame + "\t}\n\tBONE_ANIM 2\n\t{\n" +
                                   frame + frame + "\t}\n"),
              std::string::npos);
}

TEST_F(AnimCycle, UnknownBlocksArePassedOver)
{
    m_Cycle.SetName("walk");
    const char notes[] = "\tNOTES { a { b } c {x }\n\tANIM_CURVE_LIST";  // only whole words are braces
    ASSERT_TRUE(ReadText(m_Cycle, Replaced(kBody, "\tANIM_CURVE_LIST", notes)));
    EXPECT_EQ(TextOf(m_Cycle), kChunk);
}

TEST_F(AnimCycle, WordOfAListIsExactAndTheBraceOfATableAnyWord)
{
    ASSERT_TRUE(ReadText(m_Cycle, Replaced(kBody, "ANIM_CURVE_LIST", "anim_curve_list")));
    EXPECT_TRUE(m_Cycle.GetCurveLists().empty()) << "passed over whole";
    EXPECT_EQ(m_Cycle.GetBoneAnims().size(), 2u);
    XAnimCycle& cycle = New();
    cycle.SetName("walk");
    EXPECT_TRUE(ReadText(cycle, Replaced(kBody, "BONE_ANIM 7\n\t{", "BONE_ANIM 7\n\tany")));
    EXPECT_EQ(TextOf(cycle), kChunk);
    EXPECT_EQ(m_Log.Text(), "");
}

TEST_F(AnimCycle, QuotesVanishFromCurvesAndNames)
{
    m_Cycle.SetName("w\"a/l\\k");
    ASSERT_TRUE(ReadText(m_Cycle, Replaced(kBody, "ANIM_CURVE glow", "ANIM_CURVE \"glow\"")));
    EXPECT_EQ(TextOf(m_Cycle), kChunk);
}

TEST_F(AnimCycle, NamesThatAreNoWordAreWrittenAsOne)
{
    m_Cycle.AddCurveList("a b", 4)->AddCurve("", "c\td");
    EXPECT_NE(TextOf(m_Cycle).find("ANIM_CURVE_LIST a_b\n\t{\n\t\tnode 4\n\t\tnum_curves 1\n"
                                   "\t\tANIM_CURVE _\n\t\t{\n\t\t\tattr_name c_d\n\t\t\tnum_keys 0\n"),
              std::string::npos);
}

TEST_F(AnimCycle, EachWrongKeyIsLogged)
{
    for (const char* key :
         {"num_bones", "start", "end", "num_frames", "fps", "BONE_ANIM", "node", "num_curves", "ANIM_CURVE",
          "attr_name", "num_keys", "time", "value", "in", "out"}) {
        m_Log.Clear();
        EXPECT_FALSE(ReadText(New(), Replaced(kBody, std::string(key) + " ", "oops "))) << key;
        EXPECT_EQ(
            m_Log.Text().find("Error : Expected " + std::string(key) + " got oops [.\\src\\VKT\\AnimCycle:"),
            0u)
            << m_Log.Text();
    }
    m_Log.Clear();
    EXPECT_FALSE(ReadText(New(), Replaced(kBody, "0.6 0.7", "x 0.7")));
    EXPECT_EQ(m_Log.Text(), "Error : Expected } got  [.\\src\\VKT\\AnimCycle:7]\n");
}

// At the key behind them.
TEST_F(AnimCycle, NumbersThatAreNoneAreLogged)
{
    const struct {
        const char *what, *expected;
    } cases[] = {
        {"time 1 ", "Expected value got  [.\\src\\VKT\\AnimCycle:14]"},
        {"value 2 ", "Expected in got  [.\\src\\VKT\\AnimCycle:15]"},
        {"in 3 ", "Expected out got  [.\\src\\VKT\\AnimCycle:16]"},
        {"out 4.5", "Expected } got  [.\\src\\VKT\\AnimCycle:13]"},
        {"num_keys 1", "Expected } got  [.\\src\\VKT\\AnimCycle:13]"},
        {"num_curves 1", "Expected } got  [.\\src\\VKT\\AnimCycle:9]"},
        {"node 3", "Expected num_curves got  [.\\src\\VKT\\AnimCycle:8]"},
        {"fps 24", "Expected BONE_ANIM got  [.\\src\\VKT\\AnimCycle:6]"},
        {"BONE_ANIM 7", "Expected } got  [.\\src\\VKT\\AnimCycle:7]"},
    };
    for (const auto& [what, expected] : cases) {
        m_Log.Clear();
        const std::string key(what, std::string(what).find(' '));
        EXPECT_FALSE(ReadText(New(), Replaced(kBody, what, key + " x "))) << what;
        EXPECT_EQ(m_Log.Text(), "Error : " + std::string(expected) + "\n") << what;
    }
}

// The second of two lists fails, as does the second of two curves in a list of its own.
TEST_F(AnimCycle, RecordsThatFailAreNotEntered)
{
    const std::string text = kBody;
    const std::string list = text.substr(text.find("\tANIM_CURVE_LIST"));
    const std::string broken = Replaced(list, "time 1", "time x");
    XAnimCycle& lists = New();
    EXPECT_FALSE(ReadText(lists, text.substr(0, text.size() - 2) + broken));
    EXPECT_EQ(lists.GetCurveLists().size(), 1u);
    EXPECT_EQ(lists.GetBoneAnims().size(), 2u);
    XAnimCycle& bones = New();
    EXPECT_FALSE(ReadText(bones, Replaced(text, "1 2 3 4\t", "1 x 3 4\t")));
    EXPECT_EQ(bones.GetBoneAnims().size(), 1u) << "the table of bone 7";

    const std::string curve =
        list.substr(list.find("\t\tANIM_CURVE"), list.rfind("\t}") - list.find("\t\tANIM_CURVE"));
    const std::string two = "lamp { node 3 num_curves 2 " + curve + Replaced(curve, "time 1", "time x") + "}";
    XTextReader in{std::string_view(two)};
    XAnimCurveList curves(m_Model);
    EXPECT_FALSE(curves.ReadChunk(XBlockReader(in, "cycle")));
    EXPECT_EQ(curves.GetCurves().size(), 1u);
}

TEST_F(AnimCycle, RecordsThatComeShortAreNotEntered)
{
    ASSERT_TRUE(ReadText(m_Cycle, kBody));
    m_Cycle.AddCurveList("second", 3)->AddCurve("glow", "intensity");
    const std::string bytes = BodyOf(m_Cycle);
    const std::size_t firstList = bytes.find("lamp");
    const std::size_t secondList = bytes.find("second");
    const std::size_t bones = bytes.find(Bytes("02 00 00 00 07 00 00 00"), secondList);
    ASSERT_NE(bones, std::string::npos);
    for (const auto& [length, expected] :
         {std::pair{firstList + 20, 0u}, {secondList + 3, 1u}, {bones - 1, 1u}, {bones, 2u}}) {
        XAnimCycle& cycle = New();
        EXPECT_FALSE(ReadBody(cycle, bytes.substr(0, length))) << length;
        EXPECT_EQ(cycle.GetCurveLists().size(), expected) << length;
    }
}

TEST_F(AnimCycle, EveryCutOfEitherFormFails)
{
    const std::string text = kBody;
    for (std::size_t length = 0; length + 1 < text.size(); ++length)
        EXPECT_FALSE(ReadText(New(), text.substr(0, length))) << length;
    const std::string bytes = Bytes(kBytes);
    for (std::size_t length = 0; length < bytes.size(); ++length)
        EXPECT_FALSE(ReadBody(New(), bytes.substr(0, length))) << length;
}

TEST_F(AnimCycle, ImpossibleCountsFail)
{
    for (const char* count : {"num_bones 2", "num_frames 2", "num_curves 1", "num_keys 1"}) {
        const std::string key = std::string(count).substr(0, std::string(count).find(' '));
        EXPECT_FALSE(ReadText(New(), Replaced(kBody, count, key + " 4294967295"))) << count;
    }
    const std::string bytes = Bytes(kBytes);
    for (const std::size_t at : {26u, 40u, 61u, 81u, 89u}) {
        std::string huge = bytes;
        huge.replace(at, 4, Bytes("ff ff ff ff"));
        EXPECT_FALSE(ReadBody(New(), huge)) << at;
    }
}

TEST_F(AnimCycle, DeathOfABoneRemovesItsTableAlone)
{
    ASSERT_TRUE(ReadText(m_Cycle, kBody));
    m_Cycle.AddCurveList("second", 3);
    EXPECT_TRUE(m_Cycle.NodeDeath(7));
    EXPECT_EQ(m_Cycle.FindBoneAnim(7), nullptr);
    EXPECT_NE(m_Cycle.FindBoneAnim(9), nullptr);
    EXPECT_EQ(m_Cycle.GetCurveLists().size(), 2u);
    EXPECT_TRUE(m_Cycle.NodeDeath(3));
    ASSERT_EQ(m_Cycle.GetCurveLists().size(), 1u) << "the first list of the node";
    EXPECT_EQ(m_Cycle.GetCurveLists()[0]->GetName(), "second");
    EXPECT_TRUE(m_Cycle.NodeDeath(99));
    std::set<u32> along;
    m_Cycle.PreDelete(along);
    EXPECT_TRUE(along.empty());
}

TEST_F(AnimCycle, CopyIsDeep)
{
    m_Cycle.SetName("walk");
    ASSERT_TRUE(ReadText(m_Cycle, kBody));
    XAnimCycle& copy = New();
    copy.AddBoneAnim(55);
    copy.AddCurveList("gone", 55);
    copy.DoCopy(&m_Cycle);
    EXPECT_EQ(TextOf(copy), Replaced(kChunk, "walk", ""));
    copy.FindBoneAnim(7)->GetScale()[0] = {};
    copy.GetCurveLists()[0]->GetCurves()[0]->GetKeys().clear();
    EXPECT_EQ(TextOf(m_Cycle), kChunk);
    m_Cycle.DoCopy(&m_Cycle);
    EXPECT_EQ(TextOf(m_Cycle), kChunk);
}

TEST_F(AnimCycle, HasAVocabulary)
{
    const XNodeProperties& properties = *m_Cycle.GetNodeProperties();
    EXPECT_EQ(properties.GetNumProperties(), 4u);
    EXPECT_TRUE(properties.SetFloat(&m_Cycle, 1, 5));
    EXPECT_TRUE(properties.SetFloat(&m_Cycle, 2, 6));
    EXPECT_TRUE(properties.SetFloat(&m_Cycle, 3, 7));
    EXPECT_TRUE(properties.SetInteger(&m_Cycle, 4, 8));
    EXPECT_FALSE(properties.SetUnsigned(&m_Cycle, 4, 9));
    EXPECT_EQ(m_Cycle.GetStart(), 5);
    EXPECT_EQ(m_Cycle.GetEnd(), 6);
    EXPECT_EQ(m_Cycle.GetFramesPerSecond(), 7);
    EXPECT_EQ(m_Cycle.GetNumFrames(), 8u);
    i32 frames = 0;
    EXPECT_TRUE(properties.GetInteger(&m_Cycle, 4, frames));
    EXPECT_EQ(frames, 8);
    const char* const names[] = {"start_frame", "end_frame", "frames_per_second", "num_frames"};
    for (u32 i = 0; i < 4; ++i) {
        EXPECT_EQ(m_Cycle.GetPropertyName(i + 1), names[i]);
        EXPECT_EQ(m_Cycle.GetPropertyId(names[i]), i + 1);
        EXPECT_EQ(m_Cycle.GetPropertyType(i + 1), i == 3 ? kPropertyInteger : kPropertyFloat);
        EXPECT_FALSE(m_Cycle.IsPropertyAnimated(i + 1));
    }
}

}  // namespace
