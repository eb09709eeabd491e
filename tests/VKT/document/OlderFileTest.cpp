#include "VKT/support/OlderFile.h"

#include <algorithm>
#include <filesystem>
#include <iterator>
#include <map>
#include <ostream>
#include <set>
#include <sstream>
#include <vector>

#include "VKT/dynamics/Emitter.h"
#include "VKT/samples/OlderSampleNow.h"
#include "VKT/shading/Specular.h"
#include "VKT/support/NodeTest.h"

// What is true of every file that is older than the current version: one document that meets
// every place where something changed since.

using namespace VKT;
using namespace VKT::Test;

namespace {

struct OlderForm {
    const char* name;
    u32 version;
    std::string (*file)(u32 version);
};

std::ostream& operator<<(std::ostream& out, const OlderForm& form)
{
    return out << form.name;
}

constexpr OlderForm kForms[] = {
    {"TextOfVersion3", 3, OlderText},
    {"BinaryOfVersion3", 3, OlderBinary},
    {"TextOfVersion2", 2, OlderText},
    {"BinaryOfVersion2", 2, OlderBinary},
};

// What the binary form of the document says otherwise than the text form.
struct Difference {
    const char* text;
    const char* binary;
};

constexpr Difference kBytesHoldMore[] = {
    {"PARTICLE dust\n{\n\tid 13\n\tpoints 0\n\tdeformer_queue 0\n\tintermediate_object 0\n",
     "PARTICLE dust\n{\n\tid 13\n\tpoints 1\n\t\t13.1 13.2 13.3\n\tdeformer_queue 1 31\n"
     "\tintermediate_object 1\n"},
    {"\tdeformer_queue 2 31 32\n\tintermediate_object 0\n",
     "\tdeformer_queue 2 31 32\n\tintermediate_object 1\n"},
    {"\tdeformer_queue 1 30\n\tintermediate_object 0\n", "\tdeformer_queue 1 30\n\tintermediate_object 1\n"},
};

// Binary files of version 2 have neither counts of messages nor connections.
constexpr Difference kBytesHoldNoConnections[] = {
    {"\t\tmarks vector<message> 3\n", "\t\tmarks vector<message> 0\n"},
    {"\tCONNECTIONS\n\t{\n"
     "\t\tATTR speed 0\n\t\t{\n\t\t\tinput 20 translate\n\t\t\toutput 0\n\t\t}\n"
     "\t\tATTR marks 2\n\t\t{\n\t\t\tinput 0\n\t\t\toutput 2\n\t\t\t\t2 colour\n\t\t\t\t20 scale\n\t\t}\n"
     "\t}\n",
     ""},
};

// The document as a text file of today.
std::string Expected(const OlderForm& form)
{
    std::string text = kOlderSampleNow;
    if (form.file == OlderText)
        return text;
    for (const auto& [what, with] : kBytesHoldMore)
        text = Replaced(text, what, with);
    if (form.version < 3)
        for (const auto& [what, with] : kBytesHoldNoConnections)
            text = Replaced(text, what, with);
    return text;
}

// What a log says beyond what was loaded.
std::string Complaints(const LogCatcher& log)
{
    std::istringstream in(log.Text());
    std::string complaints;
    for (std::string line; std::getline(in, line);)
        if (!line.starts_with("Info : "))
            complaints += line + '\n';
    return complaints;
}

constexpr char kOlderWarning[] =
    "Warning : File is from an older vkt version. If saved it will be unreadable by versions of vkt older "
    "than version 4\n";

class OlderFile : public NodeTest {};

class OlderFileForms : public OlderFile, public testing::WithParamInterface<OlderForm> {
protected:
    // Into the document of the test.
    void Load() { ASSERT_EQ(LoadBytes(m_Model, GetParam().file(GetParam().version)), FileOk); }
};

INSTANTIATE_TEST_SUITE_P(All, OlderFileForms, testing::ValuesIn(kForms),
                         [](const auto& test) { return std::string(test.param.name); });

// A text file has its header checked twice.
TEST_P(OlderFileForms, LoadsWithNothingButTheWarning)
{
    Load();
    EXPECT_EQ(m_Model.GetVersion(), GetParam().version);
    const std::string warning = kOlderWarning;
    EXPECT_EQ(Complaints(m_Log),
              std::string(GetParam().name).starts_with("Text") ? warning + warning : warning);
}

TEST_P(OlderFileForms, FieldsOfThenComeAndTheOthersKeepTheirDefaults)
{
    Load();
    EXPECT_EQ(SaveText(m_Model), Expected(GetParam()));
}

TEST_P(OlderFileForms, IsSavedAsAFileOfTheCurrentVersion)
{
    Load();
    const std::string text = SaveText(m_Model);
    const std::string bytes = SaveBinaryBytes(m_Model);
    EXPECT_EQ(text.substr(0, 24), "|VKT_004A#0000#00000000|");
    EXPECT_EQ(bytes.substr(0, 24), "|VKT_004B#0000#00000000|");
    for (const std::string& file : {text, bytes}) {
        m_Log.Clear();
        ASSERT_EQ(LoadBytes(m_Model, file), FileOk);
        EXPECT_EQ(m_Model.GetVersion(), 4u);
        EXPECT_EQ(Complaints(m_Log), "");
        EXPECT_EQ(SaveText(m_Model), Expected(GetParam()));
    }
}

TEST_P(OlderFileForms, SizesAreThoseOfASave)
{
    Load();
    XNodeList nodes;
    m_Model.List(nodes, kFnBase);
    std::map<u32, u32> sizes;
    for (XBase* node : nodes)
        sizes[node->GetID()] = node->GetDataSize();
    SaveBinaryBytes(m_Model);
    for (XBase* node : nodes) {
        EXPECT_EQ(sizes[node->GetID()], 8 + BodyOf(*node).size()) << node->GetName();
        EXPECT_EQ(node->GetDataSize(), 8 + BodyOf(*node).size()) << node->GetName();
    }
}

TEST_P(OlderFileForms, EveryCutIsAnswered)
{
    const std::string file = GetParam().file(GetParam().version);
    const TempFile path(".vkt", file);
    ASSERT_EQ(m_Model.Load(path.Path()), FileOk);
    std::size_t mostNodes = m_Model.GetNodes().size();
    for (std::size_t length = file.size(); length-- > 0;) {
        std::filesystem::resize_file(path.Path(), length);
        const XFileResult result = m_Model.Load(path.Path());
        EXPECT_TRUE(result == FileOk || result == FileCorrupt || result == FileNotVkt) << length;
        EXPECT_LE(m_Model.GetNodes().size(), mostNodes) << length;
        mostNodes = m_Model.GetNodes().size();
        m_Log.Clear();
    }
    EXPECT_EQ(mostNodes, 0u);
}

// The classes whose code asks for the version where tables can't say it.
constexpr u32 kGatedByHand[] = {
    kFnBone,           // instances have no uv sets
    kFnGeometry,       // no flag of intermediate objects in text
    kFnParticleShape,  // nor points and deformers
    kFnBlendShape,    kFnWireDeformer, kFnLayeredShader, kFnRampShader,
};

bool IsGated(const XFnInfo& info)
{
    const XClassTables tables = info.GetTables();
    const auto isGated = [](const XBodyRow& row) { return row.gate != XGate::kAlways; };
    return !tables.oldText.rows.empty() || !tables.oldBinary.rows.empty() ||
           std::ranges::any_of(tables.text.rows, isGated) ||
           std::ranges::any_of(tables.binary.rows, isGated) ||
           std::ranges::count(kGatedByHand, info.GetType()) != 0;
}

TEST_F(OlderFile, DocumentHoldsEveryClassWithAGate)
{
    ASSERT_EQ(LoadText(m_Model, OlderText(3)), FileOk);
    XNodeList nodes;
    m_Model.List(nodes, kFnBase);
    u32 numGated = 0;
    for (const XFnInfo* info : XFnListTypes()) {
        if (!IsGated(*info))
            continue;
        ++numGated;
        // An abstract class is met in one that derives from it.
        const bool isAbstract = info->GetChunkName().empty();
        EXPECT_TRUE(std::ranges::any_of(nodes, [&](XBase* node) {
            return isAbstract ? node->HasFn(info->GetType()) != nullptr
                              : node->GetApiType() == info->GetType();
        })) << info->GetTypeName();
    }
    EXPECT_GE(numGated, std::size(kGatedByHand));
    EXPECT_TRUE(
        std::ranges::any_of(nodes, [](const XBase* node) { return node->GetExtraAttribute("speed"); }));
}

// The rows of a class and its bases that have a key in text, of today.
void ListRows(u32 type, std::vector<const XBodyRow*>& rows)
{
    for (const XFnInfo* info : XFnListTypes()) {
        if (info->GetType() != type || type == kFnBase)
            continue;
        const XClassTables tables = info->GetTables();
        ListRows(tables.base, rows);
        for (const XBodyRow& row : tables.text.rows)
            if (!row.key.empty())
                rows.push_back(&row);
    }
}

// Rows of today whose values older files hold otherwise: one float, behind the layers, in the
// body of each material.
const std::set<std::string_view> kHeldOtherwise = {"phase", "compositing_flag", "hw_shader"};

// The line of a key, with the lines below it that stand deeper.
std::string ValueOf(const std::string& text, std::string_view key)
{
    std::istringstream in(text);
    std::string value;
    for (std::string line, word; std::getline(in, line);) {
        if (!value.empty() && !line.starts_with("\t\t"))
            break;
        if (!value.empty() || (std::istringstream(line) >> word && word == key))
            value += line + '\n';
    }
    return value;
}

TEST_F(OlderFile, DocumentChangesEveryFieldOfThenAndNoOther)
{
    ASSERT_EQ(LoadText(m_Model, OlderText(3)), FileOk);
    SaveText(m_Model);  // the document is one of today now
    XNodeList nodes;
    m_Model.List(nodes, kFnBase);
    std::map<const XBodyRow*, bool> changed;
    for (const XBase* node : nodes) {
        std::vector<const XBodyRow*> rows;
        ListRows(node->GetApiType(), rows);
        const std::string text = TextOf(*node);
        const std::string fresh = TextOf(*m_Model.CreateNode(node->GetApiType()));
        if (fresh.empty())  // a cluster of nothing
            continue;
        for (const XBodyRow* row : rows)
            if (row->gate != XGate::kBelow)
                changed[row] |= ValueOf(text, row->key) != ValueOf(fresh, row->key);
    }
    EXPECT_FALSE(changed.empty());
    for (const auto& [row, isChanged] : changed)
        EXPECT_EQ(isChanged, row->gate == XGate::kAlways || kHeldOtherwise.contains(row->key)) << row->key;
}

TEST_F(OlderFile, BytesHoldAnAlphaOfParticlesAndTheShininessOfEveryMaterial)
{
    const auto expect = [this](f32 alpha, f32 shininess) {
        EXPECT_EQ(XCast<XEmitter>(m_Model.FindNode("chimney"))->GetParticleColour().a, alpha);
        EXPECT_EQ(XCast<XSpecular>(m_Model.FindNode("brushed"))->GetShininess(), shininess);
        EXPECT_EQ(XCast<XSpecular>(m_Model.FindNode("honey"))->GetShininess(), shininess);
        EXPECT_EQ(XCast<XSpecular>(m_Model.FindNode("enamel"))->GetShininess(), 67.5f);  // of its own
    };
    ASSERT_EQ(LoadText(m_Model, OlderText(3)), FileOk);
    expect(1.0f, 0.0f);
    ASSERT_EQ(LoadBytes(m_Model, OlderBinary(3)), FileOk);
    expect(0.25f, 9.5f);
}

// Each class of materials read a whole body of its own then, and a class that the library does
// not know has none.
TEST_F(OlderFile, UserDefinedMaterialsHoldRawTextAlone)
{
    const std::string definitions =
        "NEW_NODE\n{\n\tbase_type deformer\n\ttype_name melter\n\theader MELTER\n}\n"
        "NEW_NODE\n{\n\tbase_type material\n\ttype_name toon\n\theader TOON\n}\n";
    const std::string toon = "\tcolor 1 2 3 4 tex 5\n\tsteps { 6 }\n}\n";
    const std::string melter = "\theat 7\n}\n";
    ASSERT_EQ(LoadText(m_Model, "|VKT_003A#0000#00000000|\n" + definitions + "TOON outlined\n{\n\tid 1\n" +
                                    toon + "MELTER wax\n{\n\tid 2\n\taffected 1 8\n" + melter),
              FileOk);
    EXPECT_EQ(Complaints(m_Log), kOlderWarning);
    EXPECT_EQ(SaveText(m_Model),
              "|VKT_004A#0000#00000000|\n" + definitions +
                  "TOON outlined\n{\n\tid 1\n\thw_shader 0\n\tcolour 0.65 0.65 0.65 1 input 0\n" + toon +
                  "MELTER wax\n{\n\tid 2\n\taffected 1 8\n\tenvelope_weight 1\n" + melter);
}

}  // namespace
