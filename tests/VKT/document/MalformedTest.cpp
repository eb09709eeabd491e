#include <gtest/gtest.h>

#include <algorithm>
#include <ctime>
#include <sstream>

#include "VKT/support/AllocationMeter.h"
#include "VKT/support/LogCatcher.h"
#include "VKT/support/SmallScene.h"

// Files that lie, end early or are put together to hurt: each load answers, in short time
// and within memory that has to do with the size of the file.

namespace VKT {
namespace {

using Test::AllocationMeter;
using Test::BodyOf;
using Test::BuildSmallScene;
using Test::Bytes;
using Test::LoadBytes;
using Test::LoadText;
using Test::ReadBody;
using Test::RegistryScope;
using Test::SaveBinaryBytes;
using Test::SaveText;
using Test::TempFile;
using Test::TextOf;

constexpr std::size_t kMostMemory = std::size_t{64} << 20;
constexpr double kMostSeconds = 1.0;  // of processor time

class Malformed : public testing::Test {
protected:
    Malformed()
    {
        XModel model;
        BuildSmallScene(model);
        model.SetInfo(std::make_unique<XInfo>());
        m_Text = SaveText(model);
        m_Bytes = SaveBinaryBytes(model);
        // A table of one image ahead of the chunks.
        m_Bytes.replace(24, 2,
                        Bytes("01 00 02 01 11 02 01 00 6e 01 00 70 01 02 03 04 05 06 07 08 09 0a 0b 0c"));
    }

    // Loads the file, checks what holds for every file, and that what came can be saved.
    template <class Load>
    void Try(Load load)
    {
        m_Log.Clear();
        XModel model;
        XFileResult result = FileOk;
        const std::clock_t start = std::clock();
        {
            const AllocationMeter meter;
            result = load(model);
            m_Peak = std::max(m_Peak, meter.Peak());
        }
        m_Seconds = std::max(m_Seconds, static_cast<double>(std::clock() - start) / CLOCKS_PER_SEC);
        EXPECT_TRUE(result == FileOk || result == FileTooNew || result == FileCorrupt ||
                    result == FileNotVkt);
        m_Log.Clear();
        SaveText(model);
        SaveBinaryBytes(model);
    }
    void TryText(std::string_view text)
    {
        Try([&](XModel& model) { return LoadText(model, text); });
    }
    void TryBytes(std::string_view bytes)
    {
        const TempFile file(".vkt", bytes);
        Try([&](XModel& model) { return model.Load(file.Path()); });
    }
    void TearDown() override
    {
        EXPECT_LT(m_Peak, kMostMemory);
        EXPECT_LT(m_Seconds, kMostSeconds);
    }

    LogCatcher m_Log;
    RegistryScope m_Registry;
    XModel m_Model;
    std::string m_Text;
    std::string m_Bytes;
    std::size_t m_Peak = 0;
    double m_Seconds = 0;
};

TEST_F(Malformed, TheSampleItselfIsFine)
{
    EXPECT_EQ(LoadText(m_Model, m_Text), FileOk);
    EXPECT_EQ(m_Model.GetNodes().size(), 6u);
    EXPECT_EQ(m_Log.Text(), "");
    EXPECT_EQ(LoadBytes(m_Model, m_Bytes), FileOk);
    EXPECT_EQ(m_Model.GetNodes().size(), 6u);
    EXPECT_EQ(m_Model.GetImages().size(), 1u);
    EXPECT_EQ(m_Log.Text().find("Error"), m_Log.Text().npos);
}

TEST_F(Malformed, EveryPrefixOfATextFile)
{
    for (std::size_t length = 0; length < m_Text.size(); ++length)
        TryText(std::string_view(m_Text).substr(0, length));
}

TEST_F(Malformed, EveryPrefixOfABinaryFile)
{
    for (std::size_t length = 0; length < m_Bytes.size(); ++length)
        TryBytes(std::string_view(m_Bytes).substr(0, length));
}

TEST_F(Malformed, EveryByteOfATextFileAltered)
{
    for (std::size_t at = 0; at < m_Text.size(); ++at) {
        std::string text = m_Text;
        for (const char other : {'{', '}', ' ', '9', '-', '"', 'x', '\0', '\xff'}) {
            text[at] = other;
            TryText(text);
        }
    }
}

TEST_F(Malformed, EveryByteOfABinaryFileAltered)
{
    for (std::size_t at = 0; at < m_Bytes.size(); ++at) {
        std::string bytes = m_Bytes;
        for (const int other : {0, 1, 7, 0x7F, 0x80, 0xFF, m_Bytes[at] ^ 1}) {
            bytes[at] = static_cast<char>(other);
            TryBytes(bytes);
        }
    }
}

TEST_F(Malformed, TheLargestNumberAtEveryPlaceOfABinaryFile)
{
    for (std::size_t at = 0; at + 4 <= m_Bytes.size(); ++at) {
        std::string bytes = m_Bytes;
        bytes.replace(at, 4, "\xFF\xFF\xFF\xFF");
        TryBytes(bytes);
        bytes.replace(at, 4, std::string("\0\0\0\x10", 4));
        TryBytes(bytes);
    }
}

TEST_F(Malformed, TheLargestNumberForEveryWordOfATextFile)
{
    for (std::size_t at = 0; at < m_Text.size();) {
        const std::size_t begin = m_Text.find_first_not_of(" \t\n", at);
        if (begin == m_Text.npos)
            break;
        at = std::min(m_Text.find_first_of(" \t\n", begin), m_Text.size());
        for (const char* number : {"4294967295", "-1", "2147483647", "99999999999999999999", "1e38", "nan"}) {
            std::string text = m_Text;
            TryText(text.replace(begin, at - begin, number));
        }
    }
}

// A count that claims all that a u32 holds, wherever a text file has one.
TEST_F(Malformed, CountsOfATextFileThatCannotBeTrue)
{
    const struct {
        const char* line;
        const char* claim;
        const char* message;
    } cases[] = {
        {"\tpoints 3", "\tpoints 2147483647", "Error : UnExpected file-IO error\n"},
        {"\tpoints 3", "\tpoints 4294967295", "Error : UnExpected file-IO error\n"},
        {"\tdeformer_queue 1", "\tdeformer_queue 4294967295",
         "Error : Expected intermediate_object got  [.\\src\\VKT\\Geometry:3]\n"},
        {"\tPOLY_COUNTS 1", "\tPOLY_COUNTS 4294967295",
         "Error : Poly count data contains a poly with less than 3 sides!\n"},
        {"\t\t3\n", "\t\t4294967295\n", "Error : Expected } got  [.\\src\\VKT\\PolygonMesh:8]\n"},
        {"\tnum_index_sets 1", "\tnum_index_sets 4294967295",
         "Error : Expected INDEX_SET got num_vertex_sets [.\\src\\VKT\\PolygonMesh:6]\n"},
        {"\tnum_vertex_sets 1", "\tnum_vertex_sets 4294967295",
         "Error : Expected VERTEX_SET got } [.\\src\\VKT\\PolygonMesh:7]\n"},
        {"\t\tnum_elements 1", "\t\tnum_elements 4294967295",
         "Error : Expected } got  [.\\src\\VKT\\PolygonMesh:14]\n"},
        {"\t\telement_size 2", "\t\telement_size 4294967295",
         "Error : Expected } got  [.\\src\\VKT\\PolygonMesh:14]\n"},
        {"\tchild_joints 1", "\tchild_joints 4294967295",
         "Error : Expected instance_list got  [.\\src\\VKT\\Bone:28]\n"},
        {"num_uv_sets 0", "num_uv_sets 4294967295", "Error : Unexpected error when reading instance list\n"},
        {"num_face_indices 1", "num_face_indices 4294967295",
         "Error : Expected } got  [.\\src\\VKT\\Instance:7]\n"},
        {"\taffected 1", "\taffected 4294967295",
         "Error : Expected envelope_weight got  [.\\src\\VKT\\Deformer:2]\n"},
    };
    for (const auto& [line, claim, message] : cases) {
        SCOPED_TRACE(claim);
        std::string text = m_Text;
        ASSERT_NE(text.find(line), text.npos);
        text.replace(text.find(line), std::string_view(line).size(), claim);
        m_Log.Clear();
        EXPECT_EQ(LoadText(m_Model, text), FileCorrupt);
        EXPECT_EQ(m_Log.Text(), message);
        TryText(text);
    }
}

// The same wherever a body in a binary file has one. The message has how many elements
// the bytes behind it could be.
TEST_F(Malformed, CountsOfABinaryFileThatCannotBeTrue)
{
    BuildSmallScene(m_Model);
    const struct {
        const char* node;
        int at;  // of the count in the body; below 0, from its end
        int bytes;
        const char* message;
    } cases[] = {
        {"mesh", 0, 2, "1 elements got 0"},      // the characters of its name
        {"mesh", 10, 4, "-1 elements got 10"},   // points
        {"mesh", 50, 4, "-1 elements got 22"},   // deformer queue
        {"mesh", 59, 2, "1 elements got 0"},     // name of the point index set
        {"mesh", 67, 4, "-1 elements got 18"},   // polygons
        {"mesh", 75, 4, "-1 elements got 10"},   // index sets
        {"mesh", 79, 2, "1 elements got 0"},     // name of an index set
        {"mesh", 87, 4, "-1 elements got 13"},   // indices
        {"mesh", 103, 4, "-1 elements got 1"},   // vertex sets
        {"mesh", 107, 2, "1 elements got 0"},    // name of a vertex set
        {"mesh", 123, 2, "1 elements got 0"},    // name of its index set
        {"mesh", 131, 4, "-1 elements got 2"},   // floats
        {"root", -39, 4, "-1 elements got 8"},   // children
        {"root", -31, 4, "-1 elements got 2"},   // instances
        {"root", -27, 2, "1 elements got 0"},    // name of an instance
        {"root", -16, 4, "-1 elements got 1"},   // groups
        {"root", -8, 4, "-1 elements got 1"},    // faces
        {"wave", 10, 4, "-1 elements got 10"},   // affected
        {"lambert", 37, 2, "1 elements got 0"},  // name of an input
    };
    for (const auto& [name, at, bytes, message] : cases) {
        SCOPED_TRACE(testing::Message() << name << ' ' << at);
        XBase* const node = m_Model.FindNode(name);
        std::string body = BodyOf(*node);
        const std::size_t place =
            at < 0 ? body.size() - static_cast<std::size_t>(-at) : static_cast<std::size_t>(at);
        body.replace(place, static_cast<std::size_t>(bytes), "\xFF\xFF\xFF\xFF",
                     static_cast<std::size_t>(bytes));
        const std::unique_ptr<XBase> back(XFnCreate(node->GetApiType(), &m_Model));
        m_Log.Clear();
        EXPECT_FALSE(ReadBody(*back, body));
        EXPECT_EQ(m_Log.Text(),
                  std::string("Error : XFileIO::DoData : expected to read/write ") + message + "\n");
        // In a file the chunk is dropped and the next one comes.
        std::string header(8, '\0');
        header[0] = static_cast<char>(node->GetApiType());
        header[4] = static_cast<char>(8 + body.size());
        header[5] = static_cast<char>((8 + body.size()) >> 8);
        XModel empty;
        const std::string next = SaveBinaryBytes(m_Model).substr(26);
        const std::string file = SaveBinaryBytes(empty) + header + body + next;
        XModel model;
        EXPECT_EQ(LoadBytes(model, file), FileOk);
        EXPECT_EQ(model.GetNodes().size(), 6u);
        EXPECT_EQ(model.GetLoadReport().GetChunks().GetCount(), 1u);
        TryBytes(file);
    }
}

TEST_F(Malformed, SizesOfAVertexSetThatItsFloatsContradict)
{
    BuildSmallScene(m_Model);
    for (const std::size_t at : {111u, 115u}) {  // elements and element size
        std::string body = BodyOf(*m_Model.FindNode("mesh"));
        body.replace(at, 4, "\xFF\xFF\xFF\xFF");
        XPolygonMesh mesh(&m_Model);
        EXPECT_TRUE(ReadBody(mesh, body));
        EXPECT_EQ(BodyOf(mesh), body);
        m_Log.Clear();
        EXPECT_LT(TextOf(mesh).size(), 1000u);
        EXPECT_TRUE(m_Log.Text().starts_with("Warning : vertex set \"uv\" holds 2 floats"));
    }
}

TEST_F(Malformed, ManyImagesThatAreNotThere)
{
    std::string bytes = m_Bytes;
    TryBytes(bytes.replace(24, 2, "\xFF\xFF"));
    // Each record claims 4 GiB and is the last one to find anything.
    bytes = "|VKT_004B#0000#00000000|\xFF\xFF" + Bytes("01 00 ff 03 01 00 6e 00 00 01 02 03");
    TryBytes(bytes);
    // Sixty-five thousand records that end at once.
    bytes.resize(26);
    for (int i = 0; i < 65535; ++i)
        bytes += Bytes("01 00 ff 03 00 00");
    EXPECT_EQ(LoadBytes(m_Model, bytes), FileOk);
    EXPECT_EQ(m_Model.GetImages().size(), 65535u);
}

// --- files of many nodes

constexpr u32 kMany = 100'000;

// Written as files of version 3 have them: half as long.
std::string OldBone(u32 id, u32 parent, const std::string& children)
{
    return "BONE b { id " + std::to_string(id) +
           " visible 1 scale_pivot 0 0 0 rotate_pivot 0 0 0 min_bound 0 0 0 max_bound 0 0 0 scale 1 1 1"
           " translate 1 0 0 rotation_orient 0 0 0 1 rotation 0 0 0 1 joint_orient 0 0 0 1"
           " bind_pose_matrix 1 0 0 0 0 1 0 0 0 0 1 0 0 0 0 1 parent " +
           std::to_string(parent) + " child_joints " + children + " INSTANCE_LIST { } }\n";
}

TEST_F(Malformed, AChainOfAHundredThousandBones)
{
    std::string text = "|VKT_003A\n";
    for (u32 id = 1; id <= kMany; ++id)
        text += OldBone(id, id - 1, id < kMany ? "1 " + std::to_string(id + 1) : "0");
    ASSERT_EQ(LoadText(m_Model, text), FileOk);
    const XBone* const last = XCast<XBone>(m_Model.FindNode(kMany));
    EXPECT_EQ(last->GetWorld(true)[12], static_cast<f32>(kMany));
    EXPECT_TRUE(XCast<XBone>(m_Model.FindNode(1u))->HasDescendant(last));

    XModel again;
    ASSERT_EQ(LoadBytes(again, SaveBinaryBytes(m_Model)), FileOk);
    EXPECT_EQ(XCast<XBone>(again.FindNode(kMany))->GetWorld(true)[12], static_cast<f32>(kMany));
}

TEST_F(Malformed, AHundredThousandBonesUnderOne)
{
    std::string children = std::to_string(kMany - 1);
    std::string bones;
    for (u32 id = 2; id <= kMany; ++id) {
        children += ' ' + std::to_string(id);
        bones += OldBone(id, 1, "0");
    }
    ASSERT_EQ(LoadText(m_Model, "|VKT_003A\n" + OldBone(1, 0, children) + bones), FileOk);
    EXPECT_EQ(XCast<XBone>(m_Model.FindNode(kMany))->GetWorld(true)[12], 2.0f);
    XModel again;
    ASSERT_EQ(LoadBytes(again, SaveBinaryBytes(m_Model)), FileOk);
    EXPECT_EQ(XCast<XBone>(again.FindNode(kMany))->GetWorld(true)[12], 2.0f);
}

TEST_F(Malformed, AHundredThousandEqualNamesAndIds)
{
    const std::string wave = "NONLINEAR_WAVE same { id 7 " + TextOf(XNonLinearWave(&m_Model)) + " }\n";
    std::string text = "|VKT_004A\n";
    for (u32 i = 0; i < kMany; ++i)
        text += wave;
    ASSERT_EQ(LoadText(m_Model, text), FileOk);
    EXPECT_EQ(m_Model.GetNodes().size(), kMany);
    EXPECT_EQ(m_Model.FindNode("same"), m_Model.FindNode(7u));
    XNodeList nodes;
    m_Model.List(nodes, kFnBase);
    for (XBase* node : nodes)
        m_Model.SetName(node, "other");
    EXPECT_NE(m_Model.FindNode("other99999"), nullptr);
    EXPECT_EQ(m_Model.FindNode("same"), nullptr);
}

// Ids that would all fall on one place of a table of a known hash: multiples of the sizes
// that such tables grow through, and of the inverse of a well-known factor.
TEST_F(Malformed, IdsChosenToCollide)
{
    const auto word = [](u32 value) {
        return std::string(reinterpret_cast<const char*>(&value), sizeof value);
    };
    const std::string wave = TextOf(XNonLinearWave(&m_Model));
    XBone bone(&m_Model);
    const std::string boneBody = BodyOf(bone);
    // Loads nodes with ids a step apart, and instances of shapes with such ids, which need
    // not be there. Answers the processor time.
    const auto load = [&](u32 step) {
        std::string text = "|VKT_004A\n";
        std::string body = boneBody;
        body.replace(body.size() - 4, 4, word(kMany));
        for (u32 i = 1; i <= kMany; ++i) {
            text += "NONLINEAR_WAVE w { id " + std::to_string(i * step) + ' ' + wave + " }\n";
            body += std::string(2, '\0') + word(i * step) + std::string(5, '\0');
        }
        const std::string chunk =
            std::string("\x56\0\0\0", 4) + word(8 + static_cast<u32>(body.size())) + body;
        XModel model;
        const std::string file = SaveBinaryBytes(model) + chunk;
        const std::clock_t start = std::clock();
        EXPECT_EQ(LoadText(model, text), FileOk);
        EXPECT_EQ(model.GetNodes().size(), kMany);
        EXPECT_EQ(LoadBytes(model, file), FileOk);
        const std::clock_t end = std::clock();
        XInstanceList instances;
        model.ListInstances(instances);
        EXPECT_EQ(instances.size(), kMany);
        return static_cast<double>(end - start) / CLOCKS_PER_SEC;
    };
    const double plain = load(1);
    for (const u32 step : {172933u * 2, 0x144CBC89u, 65536u})
        EXPECT_LT(load(step), 5 * plain + 0.5) << step;
}

// --- memory that does not come

template <class Run>
void FailEachAllocation(Run run)
{
    for (std::size_t number = 1;; ++number) {
        bool hasFailed = false;
        {
            const LogCatcher log;
            XModel model;
            BuildSmallScene(model);
            hasFailed = run(model, number);
            // Whatever is left can be asked, cleared and used again.
            for (u32 id = 1; id < 20; ++id) {
                const XBase* const found = model.FindNode(id);
                ASSERT_TRUE(!found || model.IsValid(found));
            }
            SaveText(model);
            ASSERT_NE(model.CreateNode(kFnBone), nullptr);
        }
        if (!hasFailed)
            break;  // fewer are asked for
        ASSERT_LT(number, 100'000u);
    }
}

TEST_F(Malformed, ALoadSurvivesEveryAllocationThatFails)
{
    const TempFile text(".vkt", m_Text);
    const TempFile bytes(".vkt", m_Bytes);
    for (const TempFile* file : {&text, &bytes})
        FailEachAllocation([&](XModel& model, std::size_t number) {
            const AllocationMeter meter(number);
            const XFileResult result = model.Load(file->Path());
            EXPECT_TRUE(result == FileOk || result == FileCorrupt);
            return meter.HasFailed();
        });
}

TEST_F(Malformed, ASaveSurvivesEveryAllocationThatFails)
{
    const TempFile file(".vkt");
    for (const bool asText : {true, false})
        FailEachAllocation([&](XModel& model, std::size_t number) {
            if (!asText)
                model.GetSaveFlags().Clear(SaveAscii);
            const std::string before = SaveText(model);
            bool hasFailed = false;
            {
                const AllocationMeter meter(number);
                const XFileResult result = model.Save(file.Path());
                EXPECT_TRUE(result == FileOk || result == FileCorrupt);
                hasFailed = meter.HasFailed();
            }
            EXPECT_EQ(SaveText(model), before);
            return hasFailed;
        });
}

}  // namespace
}  // namespace VKT
