#include <bit>

#include "VKT/hierarchy/Bone.h"
#include "VKT/support/NodeTest.h"

// What a bone stores, in both forms and all versions.

using namespace VKT;
using namespace VKT::Test;

namespace {

class BoneFile : public NodeTest {
protected:
    XBone& NewBone() { return *m_Model.CreateNode<XBone>(); }
};

// Behind the id, in a file of version 3.
constexpr const char kOlderHead[] =
    "\tvisible\t0\n"
    "\tscale_pivot\t1 2 3\n"
    "\trotate_pivot\t4 5 6\n"
    "\tmin_bound\t7 8 9\n"
    "\tmax_bound\t10 11 12\n"
    "\tscale\t13 14 15\n"
    "\ttranslate\t16 17 18\n"
    "\trotation_orient\t19 20 21 22\n"
    "\trotation\t23 24 25 26\n"
    "\tjoint_orient\t27 28 29 30\n"
    "\tbind_pose_matrix\n"
    "\t\t31 32 33 34\n"
    "\t\t35 36 37 38\n"
    "\t\t39 40 41 42\n"
    "\t\t43 44 45 46\n";
constexpr const char kSinceVersion4[] =
    "\trotation_order yzx\n"
    "\tinherits_transform 0\n"
    "\tshearing 47 48 49\n"
    "\trotate_pivot_translate\t50 51 52\n"
    "\tscale_pivot_translate\t53 54 55\n"
    "\ttranslate_limit_x 56 57\n"
    "\ttranslate_limit_y 58 59\n"
    "\ttranslate_limit_z 60 61\n"
    "\trotate_limit_x 62 63\n"
    "\trotate_limit_y 64 65\n"
    "\trotate_limit_z 66 67\n"
    "\tscale_limit_x 68 69\n"
    "\tscale_limit_y 70 71\n"
    "\tscale_limit_z 72 73\n";
constexpr const char kTail[] =
    "\tparent 74\n"
    "\tchild_joints 2\n"
    "\t\t75 76 \n"
    "\tINSTANCE_LIST\n"
    "\t{\n"
    "\t}\n";
const std::string kFilledText = std::string(kOlderHead) + kSinceVersion4 + kTail;

// The order of the binary form is its own: pose, pivots, bounds, orients, ...
constexpr const char kBytesHead[] =
    "00 00 b8 41 00 00 c0 41 00 00 c8 41 00 00 d0 41 "  // rotation 23 to 26
    "00 00 80 41 00 00 88 41 00 00 90 41 "              // translate 16 to 18
    "00 00 50 41 00 00 60 41 00 00 70 41 "              // scale 13 to 15
    "00 "                                               // visible
    "00 00 80 3f 00 00 00 40 00 00 40 40 "              // scale pivot 1 to 3
    "00 00 80 40 00 00 a0 40 00 00 c0 40 "              // rotate pivot 4 to 6
    "00 00 e0 40 00 00 00 41 00 00 10 41 "              // lower bound 7 to 9
    "00 00 20 41 00 00 30 41 00 00 40 41 "              // upper bound 10 to 12
    "00 00 98 41 00 00 a0 41 00 00 a8 41 00 00 b0 41 "  // rotation orient 19 to 22
    "00 00 d8 41 00 00 e0 41 00 00 e8 41 00 00 f0 41 "  // joint orient 27 to 30
    "00 00 f8 41 00 00 00 42 00 00 04 42 00 00 08 42 "  // local matrix 31 to 46
    "00 00 0c 42 00 00 10 42 00 00 14 42 00 00 18 42 "
    "00 00 1c 42 00 00 20 42 00 00 24 42 00 00 28 42 "
    "00 00 2c 42 00 00 30 42 00 00 34 42 00 00 38 42 ";
constexpr const char kBytesSinceVersion4[] =
    "03 00 00 00 "                          // rotation order
    "00 "                                   // inherits transform
    "00 00 3c 42 00 00 40 42 00 00 44 42 "  // shearing 47 to 49
    "00 00 54 42 00 00 58 42 00 00 5c 42 "  // scale pivot translate 53 to 55
    "00 00 48 42 00 00 4c 42 00 00 50 42 "  // rotate pivot translate 50 to 52
    "00 00 60 42 00 00 64 42 00 00 68 42 00 00 6c 42 00 00 70 42 00 00 74 42 "
    "00 00 78 42 00 00 7c 42 00 00 80 42 00 00 82 42 00 00 84 42 00 00 86 42 "
    "00 00 88 42 00 00 8a 42 00 00 8c 42 00 00 8e 42 00 00 90 42 00 00 92 42 ";
constexpr const char kBytesTail[] =
    "4a 00 00 00 "
    "02 00 00 00 4b 00 00 00 4c 00 00 00 "
    "00 00 00 00";
const std::string kFilledBytes = std::string(kBytesHead) + kBytesSinceVersion4 + kBytesTail;
constexpr const char kNode1[] = "05 00 6e 6f 64 65 31 01 00 00 00 ";

TEST_F(BoneFile, FreshOneWritesItsDefaults)
{
    EXPECT_EQ(ChunkOf(NewBone()),
              "BONE node1\n"
              "{\n"
              "\tid 1\n"
              "\tvisible\t1\n"
              "\tscale_pivot\t0 0 0\n"
              "\trotate_pivot\t0 0 0\n"
              "\tmin_bound\t0 0 0\n"
              "\tmax_bound\t0 0 0\n"
              "\tscale\t1 1 1\n"
              "\ttranslate\t0 0 0\n"
              "\trotation_orient\t0 0 0 1\n"
              "\trotation\t0 0 0 1\n"
              "\tjoint_orient\t0 0 0 1\n"
              "\tbind_pose_matrix\n"
              "\t\t1 0 0 0\n"
              "\t\t0 1 0 0\n"
              "\t\t0 0 1 0\n"
              "\t\t0 0 0 1\n"
              "\trotation_order xyz\n"
              "\tinherits_transform 1\n"
              "\tshearing 0 0 0\n"
              "\trotate_pivot_translate\t0 0 0\n"
              "\tscale_pivot_translate\t0 0 0\n"
              "\ttranslate_limit_x -INF +INF\n"
              "\ttranslate_limit_y -INF +INF\n"
              "\ttranslate_limit_z -INF +INF\n"
              "\trotate_limit_x -INF +INF\n"
              "\trotate_limit_y -INF +INF\n"
              "\trotate_limit_z -INF +INF\n"
              "\tscale_limit_x -INF +INF\n"
              "\tscale_limit_y -INF +INF\n"
              "\tscale_limit_z -INF +INF\n"
              "\tparent 0\n"
              "\tchild_joints 0\n"
              "\tINSTANCE_LIST\n"
              "\t{\n"
              "\t}\n"
              "}\n");
}

TEST_F(BoneFile, EveryFieldOfTheTextReadsBackToItsPlace)
{
    XBone& bone = NewBone();
    EXPECT_TRUE(ReadText(bone, kFilledText));
    EXPECT_EQ(TextOf(bone), kFilledText);
    EXPECT_FALSE(bone.IsVisible());
    EXPECT_EQ(bone.GetScalePivot(), (XVector3{1, 2, 3, 0}));
    EXPECT_EQ(bone.GetRotatePivot(), (XVector3{4, 5, 6, 0}));
    EXPECT_EQ(bone.GetMinBound(), (XVector3{7, 8, 9, 0}));
    EXPECT_EQ(bone.GetMaxBound(), (XVector3{10, 11, 12, 0}));
    EXPECT_EQ(bone.GetScale(true), (XVector3{13, 14, 15, 0}));
    EXPECT_EQ(bone.GetTranslate(true), (XVector3{16, 17, 18, 0}));
    EXPECT_EQ(bone.GetRotationOrient(), (XQuaternion{19, 20, 21, 22}));
    EXPECT_EQ(bone.GetRotation(true), (XQuaternion{23, 24, 25, 26}));
    EXPECT_EQ(bone.GetJointOrient(), (XQuaternion{27, 28, 29, 30}));
    EXPECT_EQ(bone.GetLocal(true)[1], 32);
    EXPECT_EQ(bone.GetRotationOrder(), 3u);
    EXPECT_FALSE(bone.InheritsTransform());
    EXPECT_EQ(bone.GetShearing(), (XVector3{47, 48, 49, 0}));
    EXPECT_EQ(bone.GetRotatePivotTranslate(), (XVector3{50, 51, 52, 0}));
    EXPECT_EQ(bone.GetScalePivotTranslate(), (XVector3{53, 54, 55, 0}));
    EXPECT_EQ(bone.GetParentId(), 74u);
    EXPECT_EQ(bone.GetChildIds(), (XIndexList{75, 76}));
    // The current pose is not in files.
    EXPECT_EQ(bone.GetScale(false), (XVector3{1, 1, 1, 0}));
    EXPECT_EQ(bone.GetTranslate(false), (XVector3{0, 0, 0, 0}));
    EXPECT_EQ(bone.GetRotation(false), kIdentityQuaternion);
    EXPECT_EQ(m_Log.Text(), "");
}

TEST_F(BoneFile, BytesStandInTheirOwnOrder)
{
    XBone& bone = NewBone();
    ASSERT_TRUE(ReadText(bone, kFilledText));
    EXPECT_EQ(Hex(BodyOf(bone)), kNode1 + kFilledBytes);
}

TEST_F(BoneFile, BytesReadBackToTheSameText)
{
    XBone& bone = NewBone();
    EXPECT_TRUE(ReadBody(bone, Bytes(kNode1 + kFilledBytes)));
    EXPECT_EQ(TextOf(bone), kFilledText);
}

TEST_F(BoneFile, OlderTextLacksTheKeysFromRotationOrderOn)
{
    MakeOlder();
    XBone& bone = NewBone();
    EXPECT_TRUE(ReadText(bone, std::string(kOlderHead) + kTail));
    EXPECT_EQ(TextOf(bone), std::string(kOlderHead) +
                                "\trotation_order xyz\n"
                                "\tinherits_transform 1\n"
                                "\tshearing 0 0 0\n"
                                "\trotate_pivot_translate\t0 0 0\n"
                                "\tscale_pivot_translate\t0 0 0\n"
                                "\ttranslate_limit_x -INF +INF\n"
                                "\ttranslate_limit_y -INF +INF\n"
                                "\ttranslate_limit_z -INF +INF\n"
                                "\trotate_limit_x -INF +INF\n"
                                "\trotate_limit_y -INF +INF\n"
                                "\trotate_limit_z -INF +INF\n"
                                "\tscale_limit_x -INF +INF\n"
                                "\tscale_limit_y -INF +INF\n"
                                "\tscale_limit_z -INF +INF\n" +
                                kTail);
    EXPECT_FALSE(ReadText(NewBone(), kFilledText));
    EXPECT_EQ(m_Log.Text(), "Error : Expected parent got rotation_order [.\\src\\VKT\\Bone:26]\n");
}

TEST_F(BoneFile, OlderBytesLackTheSameFields)
{
    MakeOlder();
    XBone& bone = NewBone();
    EXPECT_TRUE(ReadBody(bone, Bytes(std::string(kNode1) + kBytesHead + kBytesTail)));
    EXPECT_EQ(bone.GetTranslate(true), (XVector3{16, 17, 18, 0}));
    EXPECT_EQ(bone.GetRotationOrder(), 0u);
    EXPECT_TRUE(bone.InheritsTransform());
    EXPECT_FALSE(bone.HasLimit(0));
    EXPECT_EQ(bone.GetParentId(), 74u);
    EXPECT_EQ(bone.GetChildIds(), (XIndexList{75, 76}));
}

TEST_F(BoneFile, SizeIsThatOfTheBaseAnd310AndFourForEachChild)
{
    XBone& bone = NewBone();
    EXPECT_EQ(bone.GetDataSize(), 14u + 5 + 310);
    ASSERT_TRUE(ReadText(bone, kFilledText));
    EXPECT_EQ(bone.GetDataSize(), 14u + 5 + 310 + 8);
}

TEST_F(BoneFile, EachWrongKeyIsLoggedWithItsRow)
{
    const char* const keys[] = {
        "visible",
        "scale_pivot",
        "rotate_pivot",
        "min_bound",
        "max_bound",
        "scale\t",
        "translate\t",
        "rotation_orient",
        "rotation\t",
        "joint_orient",
        "bind_pose_matrix",
        "rotation_order",
        "inherits_transform",
        "shearing",
        "rotate_pivot_translate",
        "scale_pivot_translate",
        "translate_limit_x",
        "translate_limit_y",
        "translate_limit_z",
        "rotate_limit_x",
        "rotate_limit_y",
        "rotate_limit_z",
        "scale_limit_x",
        "scale_limit_y",
        "scale_limit_z",
        "parent",
        "child_joints",
        "INSTANCE_LIST",
    };
    int row = 0;
    for (const std::string key : keys) {
        m_Log.Clear();
        EXPECT_FALSE(ReadText(NewBone(), Replaced("\n" + kFilledText, "\n\t" + key, "\n\tWrong "))) << key;
        std::string expected = key.ends_with('\t') ? key.substr(0, key.size() - 1) : key;
        expected = expected == "INSTANCE_LIST" ? "instance_list" : expected;
        EXPECT_EQ(m_Log.Text(), "Error : Expected " + expected +
                                    " got wrong [.\\src\\VKT\\Bone:" + std::to_string(++row) + "]\n");
    }
}

TEST_F(BoneFile, KeysAreReadInAnyCase)
{
    XBone& bone = NewBone();
    EXPECT_TRUE(ReadText(
        bone, Replaced(Replaced(kFilledText, "visible\t0", "VISIBLE 0"), "INSTANCE_LIST", "instance_list")));
    EXPECT_EQ(TextOf(bone), kFilledText);
}

TEST_F(BoneFile, RotationOrderIsDecidedByTwoLetters)
{
    const struct {
        const char* word;
        u32 order;
    } cases[] = {{"xyz", 0}, {"xzy", 1}, {"yxz", 2}, {"yzx", 3}, {"zxy", 4}, {"zyx", 5},
                 {"ZYX", 5}, {"Xy", 0},  {"yX!", 2}, {"x", 1},   {"xx", 1},  {"y", 3},
                 {"z", 5},   {"z?", 5},  {"8yz", 2}, {"none", 2}};
    for (const auto& [word, order] : cases) {
        XBone& bone = NewBone();
        bone.SetRotationOrder(2);  // what a word without a first letter leaves
        EXPECT_TRUE(ReadText(
            bone, Replaced(kFilledText, "rotation_order yzx", std::string("rotation_order ") + word)));
        EXPECT_EQ(bone.GetRotationOrder(), order) << word;
    }
}

TEST_F(BoneFile, RotationOrdersAreWrittenAsWords)
{
    const char* const words[] = {"xyz", "xzy", "yxz", "yzx", "zxy", "zyx", "xyz"};
    for (u32 order = 0; order < std::size(words); ++order) {
        XBone& bone = NewBone();
        bone.SetRotationOrder(order);  // the last one is out of range
        EXPECT_NE(TextOf(bone).find(std::string("\trotation_order ") + words[order] + "\n"),
                  std::string::npos);
    }
}

TEST_F(BoneFile, LimitsAreOpenWhereTheTextSaysSo)
{
    XBone& bone = NewBone();
    std::string text = Replaced(kFilledText, "translate_limit_y 58 59", "translate_limit_y -INF 1.5");
    text = Replaced(text, "rotate_limit_z 66 67", "rotate_limit_z -2.5 +INF");
    EXPECT_TRUE(ReadText(bone, text));
    EXPECT_EQ(TextOf(bone), text);
    // The other end's sentinel is no number, which leaves the end open.
    EXPECT_TRUE(ReadText(bone, Replaced(kFilledText, "scale_limit_x 68 69", "scale_limit_x +INF -INF")));
    EXPECT_NE(TextOf(bone).find("\tscale_limit_x -INF +INF\n"), std::string::npos);
}

TEST_F(BoneFile, OpenLimitsAreTheirWordsInBytes)
{
    const std::string bytes = Hex(BodyOf(NewBone()));
    std::string nine;
    for (int i = 0; i < 9; ++i)
        nine += "ff ff ff ff ff ff ff 7f ";
    EXPECT_NE(bytes.find(nine + "00 00 00 00 00 00 00 00 00 00 00 00"), std::string::npos);
}

TEST_F(BoneFile, WithoutChildrenThereIsNoLineOfChildren)
{
    XBone& bone = NewBone();
    const std::string text = Replaced(kFilledText, "child_joints 2\n\t\t75 76 \n", "child_joints 0\n");
    EXPECT_TRUE(ReadText(bone, text));
    EXPECT_EQ(TextOf(bone), text);
}

TEST_F(BoneFile, ChildrenThatAreClaimedAndDoNotComeFailAtTheNextKey)
{
    for (const char* count : {"3", "4294967295"}) {
        m_Log.Clear();
        EXPECT_FALSE(ReadText(NewBone(),
                              Replaced(kFilledText, "child_joints 2", std::string("child_joints ") + count)));
        EXPECT_EQ(m_Log.Text(), "Error : Expected instance_list got  [.\\src\\VKT\\Bone:28]\n");
    }
}

TEST_F(BoneFile, InstanceListNeedsItsBraceAndItsWords)
{
    EXPECT_FALSE(ReadText(NewBone(), Replaced(kFilledText, "\t{\n", "\t[\n")));
    EXPECT_FALSE(ReadText(NewBone(), Replaced(kFilledText, "\t{\n", "\t{ CAMERA\n")));
    EXPECT_FALSE(ReadText(NewBone(), Replaced(kFilledText, "\t}\n", "")));
    EXPECT_EQ(m_Log.Text(),
              "Error : Expected { got [ [.\\src\\VKT\\Bone:29]\n"
              "Error : Unexpected error when reading instance list\n"
              "Error : Unexpected error when reading instance list\n");
    EXPECT_TRUE(ReadText(NewBone(), Replaced(kFilledText, "\t{\n", "\t{ { } { { } }\n")));
}

TEST_F(BoneFile, EveryCutOfTheBytesFails)
{
    const std::string bytes = Bytes(kNode1 + kFilledBytes);
    for (std::size_t length = 0; length < bytes.size(); ++length)
        EXPECT_FALSE(ReadBody(NewBone(), bytes.substr(0, length))) << length;
}

TEST_F(BoneFile, CountsBeyondTheBytesFailBeforeTheyTakeMemory)
{
    EXPECT_FALSE(
        ReadBody(NewBone(), Bytes(kNode1 + Replaced(kFilledBytes, "02 00 00 00 4b", "ff ff ff ff 4b"))));
    EXPECT_FALSE(ReadBody(NewBone(), Bytes(kNode1 + Replaced(kFilledBytes, "4c 00 00 00 00 00 00 00",
                                                             "4c 00 00 00 ff ff ff ff"))));
}

// A load builds the matrices anew, so that what the file says of them is discarded.
TEST_F(BoneFile, LoadReplacesTheBindPoseMatrixByTheComputedOne)
{
    std::string text = "|VKT_004A#0000#00000000|\nBONE hip\n{\n\tid 5\n" + kFilledText + "}\n\n";
    text = Replaced(text, "parent 74", "parent 0");
    text = Replaced(text, "rotation\t23 24 25 26", "rotation\t0 0 0 1");
    text = Replaced(text, "rotation_orient\t19 20 21 22", "rotation_orient\t0 0 0 1");
    text = Replaced(text, "shearing 47 48 49", "shearing 0 0 0");
    ASSERT_EQ(LoadText(m_Model, text), FileOk);
    const XBone* bone = XCast<XBone>(m_Model.FindNode(5));
    ASSERT_NE(bone, nullptr);
    EXPECT_EQ(bone->GetTranslate(false), (XVector3{16, 17, 18, 0}));
    EXPECT_EQ(bone->GetScale(false), (XVector3{13, 14, 15, 0}));
    // translate + both pivot translates + scale pivot - scale x scale pivot
    const XMatrix expected{{13, 0, 0, 0, 0, 14, 0, 0, 0, 0, 15, 0,  //
                            16 + 50 + 53 + 1 - 13, 17 + 51 + 54 + 2 - 28, 18 + 52 + 55 + 3 - 45, 1}};
    EXPECT_EQ(bone->GetLocal(true), expected);
    EXPECT_EQ(bone->GetLocal(false), expected);
    EXPECT_EQ(bone->GetWorld(true), expected);
}

}  // namespace
