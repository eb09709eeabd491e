#include "VKT/shading/TexPlacement2D.h"
#include "VKT/shading/TexPlacement3D.h"
#include "VKT/support/NodeTest.h"

using namespace VKT;
using namespace VKT::Test;

namespace {

class TexPlacement : public NodeTest {
protected:
    XTexPlacement2D& New() { return *m_Model.CreateNode<XTexPlacement2D>(); }

    XTexPlacement2D& m_Image = New();
};

constexpr const char kOldText[] =
    "\timage 1\n"
    "\ttranslate_frame 2 3\n"
    "\trotate_frame 4\n"
    "\tmirror_u 1\n"
    "\tmirror_v 0\n"
    "\tstagger 1\n"
    "\twrap_u 0\n"
    "\twrap_v 1\n"
    "\trepeat_uv 5 6\n"
    "\toffset_uv 7 8\n"
    "\trotate_uv 9\n"
    "\tnoise_uv 10 11\n";
constexpr const char kNewText[] =
    "\tfile_texture_name \"C:\\my maps\\wood.tga\"\n"
    "\tfilter_type 12\n"
    "\tfilter_amount 13\n"
    "\tpre_filter 1\n"
    "\tpre_filter_radius 14\n";
constexpr const char kOldBytes[] =
    "05 00 6e 6f 64 65 31 01 00 00 00 "
    "01 00 00 00 00 00 00 40 00 00 40 40 00 00 80 40 01 00 01 00 01 "
    "00 00 a0 40 00 00 c0 40 00 00 e0 40 00 00 00 41 00 00 10 41 00 00 20 41 00 00 30 41";
constexpr const char kNewBytes[] =
    " 13 00 43 3a 5c 6d 79 20 6d 61 70 73 5c 77 6f 6f 64 2e 74 67 61"
    " 0c 00 00 00 00 00 50 41 01 00 00 60 41";
const std::string kText = std::string(kOldText) + kNewText;
const std::string kBytes = std::string(kOldBytes) + kNewBytes;

TEST_F(TexPlacement, FreshOneWritesItsDefaults)
{
    EXPECT_EQ(ChunkOf(m_Image),
              "TEXTURE_2D node1\n"
              "{\n"
              "\tid 1\n"
              "\timage 0\n"
              "\ttranslate_frame 0 0\n"
              "\trotate_frame 0\n"
              "\tmirror_u 0\n"
              "\tmirror_v 0\n"
              "\tstagger 0\n"
              "\twrap_u 0\n"
              "\twrap_v 0\n"
              "\trepeat_uv 1 1\n"
              "\toffset_uv 0 0\n"
              "\trotate_uv 0\n"
              "\tnoise_uv 0 0\n"
              "\tfile_texture_name \"\"\n"
              "\tfilter_type 0\n"
              "\tfilter_amount 1\n"
              "\tpre_filter 0\n"
              "\tpre_filter_radius 2\n"
              "}\n");
    EXPECT_EQ(m_Image.GetDataSize(), 14u + 5 + 4 + 12 + 5 + 28 + 2 + 13);
}

TEST_F(TexPlacement, AnswersForItsBases)
{
    for (const u32 type : {89u, 168u, 0u})
        EXPECT_EQ(m_Image.HasFn(type), &m_Image) << type;
    EXPECT_EQ(m_Image.HasFn(2), nullptr);
}

TEST_F(TexPlacement, TextReadsBackToItsPlaces)
{
    EXPECT_TRUE(ReadText(m_Image, kText));
    EXPECT_EQ(TextOf(m_Image), kText);
    EXPECT_EQ(m_Image.GetImage(), 1u);
    EXPECT_EQ(m_Image.GetTranslateFrameU(), 2);
    EXPECT_EQ(m_Image.GetTranslateFrameV(), 3);
    EXPECT_EQ(m_Image.GetRotateFrame(), 4);
    EXPECT_TRUE(m_Image.IsMirroredU());
    EXPECT_FALSE(m_Image.IsMirroredV());
    EXPECT_TRUE(m_Image.IsStaggered());
    EXPECT_FALSE(m_Image.IsWrappedU());
    EXPECT_TRUE(m_Image.IsWrappedV());
    EXPECT_EQ(m_Image.GetRepeatU(), 5);
    EXPECT_EQ(m_Image.GetRepeatV(), 6);
    EXPECT_EQ(m_Image.GetOffsetU(), 7);
    EXPECT_EQ(m_Image.GetOffsetV(), 8);
    EXPECT_EQ(m_Image.GetRotateUV(), 9);
    EXPECT_EQ(m_Image.GetNoiseU(), 10);
    EXPECT_EQ(m_Image.GetNoiseV(), 11);
    EXPECT_EQ(m_Image.GetFileTextureName(), "C:\\my maps\\wood.tga");
    EXPECT_EQ(m_Image.GetFilterType(), 12u);
    EXPECT_EQ(m_Image.GetFilterAmount(), 13);
    EXPECT_TRUE(m_Image.IsPreFiltered());
    EXPECT_EQ(m_Image.GetPreFilterRadius(), 14);
}

TEST_F(TexPlacement, SettersReachTheirFields)
{
    m_Image.SetImage(1);
    m_Image.SetTranslateFrame(2, 3);
    m_Image.SetRotateFrame(4);
    m_Image.SetMirrorU(true);
    m_Image.SetMirrorV(false);
    m_Image.SetStagger(true);
    m_Image.SetWrapU(false);
    m_Image.SetWrapV(true);
    m_Image.SetRepeat(5, 6);
    m_Image.SetOffset(7, 8);
    m_Image.SetRotateUV(9);
    m_Image.SetNoise(10, 11);
    m_Image.SetFileTextureName("C:\\my maps\\wood.tga");
    m_Image.SetFilterType(12);
    m_Image.SetFilterAmount(13);
    m_Image.SetPreFilter(true);
    m_Image.SetPreFilterRadius(14);
    EXPECT_EQ(TextOf(m_Image), kText);
}

TEST_F(TexPlacement, BytesReadBackToTheSameText)
{
    EXPECT_TRUE(ReadBody(m_Image, Bytes(kBytes)));
    EXPECT_EQ(TextOf(m_Image), kText);
    EXPECT_EQ(Hex(BodyOf(m_Image)), kBytes);
    EXPECT_EQ(TextOf(*m_Image.Clone()), kText);
}

TEST_F(TexPlacement, OlderFilesEndBehindTheNoise)
{
    MakeOlder();
    const std::string expected = std::string(kOldText) +
                                 "\tfile_texture_name \"\"\n\tfilter_type 0\n\tfilter_amount 1\n\tpre_filter "
                                 "0\n\tpre_filter_radius 2\n";
    XTexPlacement2D& fromText = New();
    EXPECT_TRUE(ReadText(fromText, kOldText));
    EXPECT_EQ(TextOf(fromText), expected);
    XTexPlacement2D& fromBytes = New();
    EXPECT_TRUE(ReadBody(fromBytes, Bytes(kOldBytes)));
    EXPECT_EQ(TextOf(fromBytes), expected);
    // Written, it is whole.
    EXPECT_EQ(BodyOf(fromBytes).size(), Bytes(kOldBytes).size() + 2 + 13);
}

TEST_F(TexPlacement, FileNameStandsBetweenTheNextTwoQuotes)
{
    const struct {
        const char* line;
        const char* name;
    } cases[] = {{"\"\"", ""}, {"x y\t\"a b\"", "a b"}, {"\"\t\\n'{}\r\"", "\t\\n'{}\r"}};
    for (const auto& [line, name] : cases) {
        XTexPlacement2D& image = New();
        image.SetFileTextureName("old");
        EXPECT_TRUE(ReadText(image, Replaced(kText, "\"C:\\my maps\\wood.tga\"", line))) << line;
        EXPECT_EQ(image.GetFileTextureName(), name);
    }
    EXPECT_EQ(m_Log.Text(), "");
}

TEST_F(TexPlacement, FileNameWithALineFeedFails)
{
    for (const char* line : {"\"a\nb\"", "\n\"a\"", "a\n", "\"a\n"}) {
        m_Log.Clear();
        EXPECT_FALSE(ReadText(New(), Replaced(kText, "\"C:\\my maps\\wood.tga\"", line))) << line;
        EXPECT_EQ(m_Log.Text(), "Error : Found newline in file_texture_name string.\n") << line;
    }
}

TEST_F(TexPlacement, FileNameThatTextCannotHoldIsReplacedThere)
{
    m_Image.SetFileTextureName("a\"b\nc");
    const std::string text = TextOf(m_Image);
    EXPECT_NE(text.find("\tfile_texture_name \"a_b_c\"\n"), std::string::npos);
    EXPECT_TRUE(ReadText(New(), text));
    XTexPlacement2D& fromBytes = New();
    EXPECT_TRUE(ReadBody(fromBytes, BodyOf(m_Image)));
    EXPECT_EQ(fromBytes.GetFileTextureName(), "a\"b\nc");
}

TEST_F(TexPlacement, EachWrongKeyIsLoggedWithItsClassAndRow)
{
    const char* const keys[] = {"image",
                                "translate_frame",
                                "",
                                "rotate_frame",
                                "mirror_u",
                                "mirror_v",
                                "stagger",
                                "wrap_u",
                                "wrap_v",
                                "repeat_uv",
                                "",
                                "offset_uv",
                                "",
                                "rotate_uv",
                                "noise_uv",
                                "",
                                "file_texture_name",
                                "filter_type",
                                "filter_amount",
                                "pre_filter",
                                "pre_filter_radius"};
    int row = 0;
    for (const std::string key : keys) {
        ++row;
        if (key.empty())
            continue;  // the second value of a line
        m_Log.Clear();
        EXPECT_FALSE(ReadText(New(), Replaced(kText, "\t" + key + " ", "\tWrong ")));
        EXPECT_EQ(m_Log.Text(), "Error : Expected " + key +
                                    " got wrong [.\\src\\VKT\\TexPlacement2D:" + std::to_string(row) + "]\n");
    }
}

TEST_F(TexPlacement, EveryCutFails)
{
    const std::string bytes = Bytes(kBytes);
    for (std::size_t length = 0; length < bytes.size(); ++length)
        EXPECT_FALSE(ReadBody(New(), bytes.substr(0, length))) << length;
    for (std::size_t length = 0; length < kText.rfind(' '); ++length)
        EXPECT_FALSE(ReadText(New(), kText.substr(0, length))) << length;
}

TEST_F(TexPlacement, EachPropertyReachesItsOwnField)
{
    const XNodeProperties& properties = *m_Image.GetNodeProperties();
    EXPECT_EQ(properties.GetNumProperties(), 20u);
    const char* const names[] = {
        "translate_frame_u", "translate_frame_v", "rotate_frame",  "repeat_u",     "repeat_v",
        "offset_u",          "offset_v",          "rotate_uv",     "noise_u",      "noise_v",
        "file_texture_name", "filter_type",       "filter_amount", "pre_filter",   "pre_filter_radius",
        "is_mirrored_u",     "is_mirrored_v",     "is_staggered",  "is_wrapped_u", "is_wrapped_v"};
    for (u32 id = 1; id <= 20; ++id) {
        EXPECT_EQ(m_Image.GetPropertyName(id), names[id - 1]);
        EXPECT_EQ(m_Image.IsPropertyAnimated(id), id <= 10) << id;
    }
    const f32 floats[] = {2, 3, 4, 5, 6, 7, 8, 9, 10, 11};
    for (u32 id = 1; id <= 10; ++id)
        EXPECT_TRUE(properties.SetFloat(&m_Image, id, floats[id - 1]));
    EXPECT_TRUE(properties.SetString(&m_Image, 11, "C:\\my maps\\wood.tga"));
    EXPECT_TRUE(properties.SetInteger(&m_Image, 12, 12));
    EXPECT_TRUE(properties.SetFloat(&m_Image, 13, 13));
    EXPECT_TRUE(properties.SetBool(&m_Image, 14, true));
    EXPECT_TRUE(properties.SetFloat(&m_Image, 15, 14));
    for (const u32 id : {16u, 18u, 20u})
        EXPECT_TRUE(properties.SetBool(&m_Image, id, true));
    for (const u32 id : {17u, 19u})
        EXPECT_TRUE(properties.SetBool(&m_Image, id, false));
    EXPECT_EQ(TextOf(m_Image), Replaced(kText, "image 1", "image 0"));
    i32 type = 0;
    EXPECT_TRUE(properties.GetInteger(&m_Image, 12, type));
    EXPECT_EQ(type, 12);
    XString name;
    EXPECT_TRUE(properties.GetString(&m_Image, 11, name));
    EXPECT_EQ(name, "C:\\my maps\\wood.tga");
}

TEST_F(TexPlacement, PlacementInSpaceIsABone)
{
    XTexPlacement3D& place = *m_Model.CreateNode<XTexPlacement3D>();
    XBone& bone = *m_Model.CreateNode<XBone>();
    EXPECT_EQ(place.GetApiType(), 90u);
    EXPECT_EQ(place.HasFn(86), &place);
    EXPECT_EQ(place.HasFn(90), &place);
    EXPECT_EQ(bone.HasFn(90), nullptr);
    EXPECT_EQ(ChunkOf(place).substr(0, 26), "TEXTURE_PLACEMENT_3D node2");
    EXPECT_EQ(TextOf(place), TextOf(bone));
    EXPECT_EQ(place.GetNodeProperties(), XBone::ClassProperties());
    place.SetTranslate({1, 2, 3, 0}, true);
    XTexPlacement3D& read = *m_Model.CreateNode<XTexPlacement3D>();
    EXPECT_TRUE(ReadBody(read, BodyOf(place)));
    EXPECT_EQ(read.GetTranslate(true), (XVector3{1, 2, 3, 0}));
    EXPECT_TRUE(bone.AddChild(&place));
    EXPECT_EQ(place.GetParent(), &bone);
}

}  // namespace
