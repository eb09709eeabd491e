#include <gmock/gmock.h>

#include <algorithm>
#include <initializer_list>
#include <regex>
#include <set>
#include <span>
#include <sstream>

#include "VKT/animation/AnimCycle.h"
#include "VKT/node/Attribute.h"
#include "VKT/node/FnRegistry.h"
#include "VKT/samples/Samples.h"
#include "VKT/support/NodeTest.h"

// What is true of every class that files can hold.

using namespace VKT;
using namespace VKT::Test;

namespace {

// The nodes of a document, and its cycles, which it keeps apart from them.
XNodeList NodesOf(const XModel& model)
{
    XNodeList nodes;
    model.List(nodes, kFnBase);
    for (const auto& cycle : model.GetCycles())
        nodes.push_back(cycle.get());
    return nodes;
}

class RegistrySweep : public NodeTest {
protected:
    static std::vector<u32> ConcreteTypes()
    {
        std::vector<u32> types;
        for (const XFnInfo* info : XFnListTypes())
            if (!info->GetChunkName().empty())
                types.push_back(info->GetType());
        return types;
    }
};

// What becomes of a line of the samples, on purpose.
struct Loss {
    const char* line;
    const char* after;
};

// Written in a way that no reader takes.
constexpr Loss kUnreadableText[] = {
    {"\tlength 10\n", "\tlength10\n"},  // of a capsule
    {"\tlength 18\n", "\tlength18\n"},  // of a cylinder
};
// Not in binary files.
constexpr Loss kLostInBytes[] = {
    {"\t material 692\n", "\t material 0\n"},  // of particles
};

std::string After(std::span<const Loss> losses, std::string text)
{
    for (const Loss& loss : losses)
        if (text.find(loss.line) != std::string::npos)
            text = Replaced(text, loss.line, loss.after);
    return text;
}

class SampleSweep : public RegistrySweep, public testing::WithParamInterface<Sample> {
protected:
    SampleSweep() { EXPECT_EQ(LoadText(m_Model, m_Text), FileOk); }

    XNodeList Nodes() const { return NodesOf(m_Model); }

    const std::string m_Text = GetParam().text;
    const std::string m_Written = After(kUnreadableText, m_Text);
};

INSTANTIATE_TEST_SUITE_P(All, SampleSweep, testing::ValuesIn(kSamples),
                         [](const auto& test) { return std::string(test.param.name); });

std::vector<std::string> Lines(const std::string& text)
{
    std::vector<std::string> lines;
    std::istringstream in(text);
    for (std::string line; std::getline(in, line);)
        lines.push_back(line);
    return lines;
}

// A line's key and what stands behind it, empty when the line is one word.
std::pair<std::string, std::string> Split(const std::string& line)
{
    std::istringstream in(line);
    std::string key;
    in >> key >> std::ws;
    std::string value;
    std::getline(in, value);
    return {key, value};
}

TEST_F(RegistrySweep, SamplesHoldEveryConcreteClass)
{
    std::set<u32> seen;
    for (const Sample& sample : kSamples) {
        XModel model;
        EXPECT_EQ(LoadText(model, sample.text), FileOk) << sample;
        for (const XBase* node : NodesOf(model))
            seen.insert(node->GetApiType());
    }
    for (const u32 type : ConcreteTypes())
        EXPECT_TRUE(seen.contains(type)) << XFnTypeName(type);
}

// Values that cannot differ, or that may.
const std::set<std::string> kUnchanged = {
    "BONE parent 0",             // a root, so that the load builds its matrices
    "VOLUME_LIGHT type colour",  // a ramp keeps its kind
    "VOLUME_LIGHT type curve",
    "ANIMATION_TAKE num_event_tracks 0",
    "CUBE_MAP dynamic 0",  // a dynamic one has no faces in text
    "TEXTURE_PLACEMENT_3D parent 0",
};

TEST_P(SampleSweep, SampleChangesEveryValueOfAFreshNode)
{
    for (const XBase* node : Nodes()) {
        const std::vector<std::string> sample = Lines(TextOf(*node));
        for (const std::string& line : Lines(TextOf(*m_Model.CreateNode(node->GetApiType())))) {
            const auto [key, value] = Split(line);
            const std::string entry = XFnChunkName(node->GetApiType()) + " " + key + " " + value;
            if (value.empty() || value == "{" || kUnchanged.contains(entry))
                continue;
            EXPECT_THAT(sample, testing::Not(testing::Contains(line))) << entry;
        }
    }
}

TEST_P(SampleSweep, TextToTextIsTheSameText)
{
    EXPECT_EQ(SaveText(m_Model), m_Written);
}

TEST_P(SampleSweep, BytesToBytesAreTheSameBytes)
{
    const std::string bytes = SaveBinaryBytes(m_Model);
    XModel model;
    ASSERT_EQ(LoadBytes(model, bytes), FileOk);
    EXPECT_EQ(model.GetLoadReport().GetChunks().GetCount(), 0u);
    EXPECT_EQ(SaveBinaryBytes(model), bytes);
}

TEST_P(SampleSweep, TextToBytesToTextIsTheSameText)
{
    XModel model;
    ASSERT_EQ(LoadBytes(model, SaveBinaryBytes(m_Model)), FileOk);
    EXPECT_EQ(SaveText(model), After(kLostInBytes, m_Written));
}

TEST_P(SampleSweep, SizeIsThatOfTheBytes)
{
    for (XBase* node : Nodes()) {
        EXPECT_EQ(node->GetDataSize(), 8 + BodyOf(*node).size()) << node->GetName();
        XBase* fresh = m_Model.CreateNode(node->GetApiType());
        EXPECT_EQ(fresh->GetDataSize(), 8 + BodyOf(*fresh).size()) << XFnTypeName(node->GetApiType());
    }
}

TEST_P(SampleSweep, MeasuringChangesNothing)
{
    for (const XBase* node : Nodes())
        node->GetDataSize();
    EXPECT_EQ(SaveText(m_Model), m_Written);
}

// Classes whose fresh nodes write what does not read back: nothing, or a number that runs
// into its key.
const std::set<u32> kFreshIsNoText = {kFnCluster, kFnJointCluster, kFnCollisionCapsule, kFnCollisionCylinder};

// What a node of the class reads of the text that it writes: a cycle writes its header too.
std::string ReadableText(const XBase& node)
{
    const std::string text = TextOf(node);
    return node.GetApiType() == kFnAnimCycle ? text.substr(text.find("{\n") + 2) : text;
}

TEST_F(RegistrySweep, FreshNodesReadBackFromEitherForm)
{
    for (const u32 type : ConcreteTypes()) {
        XBase* fresh = m_Model.CreateNode(type);
        const std::string text = TextOf(*fresh);
        XBase* fromText = m_Model.CreateNode(type);
        EXPECT_EQ(ReadText(*fromText, ReadableText(*fresh)), !kFreshIsNoText.contains(type))
            << XFnTypeName(type);
        EXPECT_EQ(TextOf(*fromText), text);
        XBase* fromBytes = m_Model.CreateNode(type);
        EXPECT_TRUE(ReadBody(*fromBytes, BodyOf(*fresh))) << XFnTypeName(type);
        EXPECT_EQ(TextOf(*fromBytes), text);
    }
}

TEST_F(RegistrySweep, LossesAreThoseOfTheSamples)
{
    for (const auto losses : {std::span<const Loss>(kUnreadableText), std::span<const Loss>(kLostInBytes)})
        for (const Loss& loss : losses)
            EXPECT_TRUE(std::ranges::any_of(kSamples, [&](const Sample& sample) {
                return std::string_view(sample.text).find(loss.line) != std::string_view::npos;
            })) << loss.line;
}

// What a clone writes under the flags of the test: they ask neither for children nor for
// deformers.
std::string AsClone(const std::string& text)
{
    static const std::regex children("child_joints [0-9]+\n\t\t[0-9 ]*\n");
    static const std::regex deformers("deformer_queue [0-9 ]+\n");
    return std::regex_replace(std::regex_replace(text, children, "child_joints 0\n"), deformers,
                              "deformer_queue 0\n");
}

// What a clone ends with from the given words on.
const struct {
    u32 type;
    const char* from;
    const char* clone;
} kOtherEndsOfClones[] = {
    {kFnAnimationTake, "\tnum_animated_nodes", "\tnum_animated_nodes 0\n\tnum_event_tracks 0\n"},
};

TEST_P(SampleSweep, CloneWritesTheSameText)
{
    m_Model.GetCopyFlags().Clear(0xFFFFFFFF);
    m_Model.GetCopyFlags().Set(CopyParent | CopyInstances | CopyShareInstances | CopyParticleLinks);
    for (const XBase* node : Nodes()) {
        std::string expected = AsClone(TextOf(*node));
        for (const auto& [type, from, clone] : kOtherEndsOfClones)
            if (node->GetApiType() == type)
                expected = expected.substr(0, expected.find(from)) + clone;
        const XBase* clone = node->Clone();
        ASSERT_NE(clone, nullptr);
        EXPECT_EQ(clone->GetApiType(), node->GetApiType());
        EXPECT_NE(clone->GetID(), node->GetID());
        EXPECT_EQ(TextOf(*clone), expected) << node->GetName();
    }
}

// Properties that stand behind another one of their name or number.
const std::set<std::string> kHiddenProperties = {
    "lattice ffd 5",           "lattice base_lattice 6",
    "skinCluster affected 1",  "wireDeformer base_wires 7",
    "nurbsSurface degree_u 9",  // the degree in v
};

TEST_F(RegistrySweep, NamesAndNumbersOfPropertiesMapToEachOther)
{
    for (const u32 type : ConcreteTypes()) {
        const XBase* node = m_Model.CreateNode(type);
        u32 rows = 0;
        for (const XNodeProperties* level = node->GetNodeProperties(); level; level = level->GetBase())
            for (const XPropertyInfo& row : level->GetRows()) {
                ++rows;
                const std::string entry = XFnTypeName(type) + ' ' + row.name + ' ' + std::to_string(row.id);
                const bool isSeen = node->GetPropertyName(row.id) == row.name &&
                                    node->GetPropertyId(row.name) == row.id &&
                                    node->GetPropertyType(row.id) == row.type;
                EXPECT_EQ(isSeen, !kHiddenProperties.contains(entry)) << entry;
            }
        rows += type == kFnLookAtConstraint;  // which counts one more than there are
        EXPECT_EQ(node->GetNodeProperties()->GetNumProperties(), rows) << XFnTypeName(type);
    }
}

TEST_F(RegistrySweep, AbstractClassesAreNotCreated)
{
    for (const XFnInfo* info : XFnListTypes()) {
        if (!info->GetChunkName().empty())
            continue;
        m_Log.Clear();
        EXPECT_EQ(m_Model.CreateNode(info->GetType()), nullptr);
        EXPECT_EQ(m_Log.Text(), "Error : Could not create type " + info->GetTypeName() +
                                    ". This is either because the type is abstract, or invalid...\n");
    }
}

TEST_P(SampleSweep, EveryNodeIsACastAwayFromTheBaseAndItself)
{
    for (XBase* node : Nodes()) {
        EXPECT_EQ(node->HasFn(kFnBase), node);
        EXPECT_EQ(node->HasFn(node->GetApiType()), node);
        EXPECT_EQ(static_cast<const XBase*>(node)->HasFn(node->GetApiType()), node);
        EXPECT_EQ(XCast<XBase>(static_cast<const XBase*>(node)), node);
        EXPECT_EQ(node->HasFn(kFnLimit), nullptr);
    }
}

TEST_P(SampleSweep, DeathOfAnyOtherNodeIsTakenByEveryNode)
{
    for (XBase* node : Nodes())
        for (u32 id = 0; id < 1000; ++id)
            node->NodeDeath(id);
    for (XBase* node : Nodes())
        EXPECT_EQ(node->GetDataSize(), 8 + BodyOf(*node).size());
}

// The ids that the text of a node names as such.
std::set<u32> IdsIn(const XBase& node)
{
    std::set<u32> ids;
    XTextWriter out;
    out.Describe([&ids](u32 id) {
        ids.insert(id);
        return XString();
    });
    node.WriteChunk(out);
    return ids;
}

// A text that changes when a node dies has held that node's id.
TEST_P(SampleSweep, IdsAreWrittenAsIds)
{
    u32 highest = 0;
    for (const XBase* node : Nodes())
        highest = std::max(highest, node->GetID());
    for (XBase* node : Nodes()) {
        const std::set<u32> written = IdsIn(*node);
        const std::string text = TextOf(*node);
        for (u32 id = 0; id <= highest + 1; ++id) {
            if (written.contains(id))
                continue;
            node->NodeDeath(id);
            ASSERT_EQ(TextOf(*node), text) << node->GetName() << ' ' << id;
        }
    }
}

// A death is told only to nodes that list the dead one among their references.
TEST_P(SampleSweep, WhatTextNamesIsKnownAsAReference)
{
    for (const XBase* node : Nodes()) {
        XIndexList known;
        node->ListReferences(known);
        for (const u32 id : IdsIn(*node))
            EXPECT_THAT(known, testing::Contains(id)) << node->GetName();
    }
}

TEST_P(SampleSweep, ReferencesAreThoseOfAllThatANodeHolds)
{
    for (const XBase* node : Nodes()) {
        XIndexList ids;
        node->ListReferences(ids);
        m_Model.GetSaveFlags().Clear(0xFFFFFFFF);
        XIndexList withoutFlags;
        node->ListReferences(withoutFlags);
        EXPECT_EQ(withoutFlags, ids) << node->GetName();
        EXPECT_FALSE(m_Model.GetSaveFlags().Test(0xFFFFFFFF));
        m_Model.GetSaveFlags().Set(0xFFFFFFFF);
    }
}

TEST_P(SampleSweep, FieldsAloneLeaveOutConnections)
{
    for (XBase* node : Nodes()) {
        XIndexList before;
        node->ListFieldReferences(before);
        XAttribute* const attribute = node->CreateExtraAttribute("connected");
        ASSERT_NE(attribute, nullptr);
        attribute->SetInput(0, 4001, "speed");
        attribute->AddOutput(0, 4002, "speed");
        XIndexList fields;
        node->ListFieldReferences(fields);
        EXPECT_EQ(fields, before) << node->GetName();
        XIndexList all;
        node->ListReferences(all);
        EXPECT_THAT(all, testing::IsSupersetOf(fields));
        EXPECT_THAT(all, testing::IsSupersetOf({4001u, 4002u}));
    }
}

// Everything that comes of reading a node under a version of the stream.
std::string Reading(XModel& model, u32 type, const std::string& text, const std::string& bytes, u32 version)
{
    const LogCatcher log;
    XBase* const fromText = model.CreateNode(type);
    XTextReader in(text);
    in.SetVersion(version);
    const bool isText = fromText->ReadChunk(in);
    const TempFile file(".bin", bytes);
    XFileIO binary(file.Path(), true);
    binary.SetVersion(version);
    XBase* const fromBytes = model.CreateNode(type);
    const bool isBinary = fromBytes->DoData(binary);
    XTextWriter out;
    fromText->WriteChunk(out);
    fromBytes->WriteChunk(out);
    return out.TakeText() + (isText ? "text " : "no text ") + (isBinary ? "bytes\n" : "no bytes\n") +
           log.Text();
}

// Classes that have more to read from version 5 on.
const std::set<u32> kGrowInFive = {kFnParticleShape};

// A version to come reads the files of version 4 as they stand, and no body asks the document
// how old it is.
TEST_P(SampleSweep, BodiesGoByTheVersionOfTheirStream)
{
    XModel older;
    ASSERT_EQ(LoadText(older, "|VKT_003A#0000#00000000|\n"), FileOk);
    XModel current;
    for (XBase* node : Nodes()) {
        const u32 type = node->GetApiType();
        const std::string text = ReadableText(*node);
        const std::string bytes = BodyOf(*node);
        const auto reading = [&](XModel& model, u32 version) {
            model.Clear();
            return Reading(model, type, text, bytes, version);
        };
        for (const u32 version : {2u, 3u, 4u, 5u})
            EXPECT_EQ(reading(older, version), reading(current, version))
                << node->GetName() << ' ' << version;
        EXPECT_EQ(reading(current, 5) == reading(current, 4), !kGrowInFive.contains(type)) << node->GetName();
    }
}

// Whatever comes of a damaged file, it is an answer, and what came can be saved.
void ExpectAnswer(const std::string& file)
{
    XModel model;
    if (file.size() > 8 && file[8] == 'A')
        LoadText(model, file);
    else
        LoadBytes(model, file);
    SaveText(model);
    for (const auto& [name, node] : model.GetNodes())
        node->GetDataSize();
}

TEST_P(SampleSweep, EveryCutOfAFileIsAnswered)
{
    for (const std::string& file : {m_Text, SaveBinaryBytes(m_Model)})
        for (std::size_t length = 0; length < file.size(); length += 3)
            ExpectAnswer(file.substr(0, length));
}

void AlterEachByte(std::string file, std::initializer_list<char> others)
{
    for (char& byte : file)
        for (const char other : others) {
            const char kept = byte;
            byte = other;
            ExpectAnswer(file);
            byte = kept;
        }
}

// Chunk by chunk, so that the work does not grow with the square of the sample.
TEST_P(SampleSweep, EachAlteredByteIsAnswered)
{
    const std::string chunkEnd = "\n}\n";
    for (std::size_t begin = m_Text.find('\n') + 1; begin < m_Text.size();) {
        const std::size_t end = m_Text.find(chunkEnd, begin) + chunkEnd.size();
        const std::string text = "|VKT_004A#0000#00000000|\n" + m_Text.substr(begin, end - begin);
        begin = end;
        AlterEachByte(text, {'9', '-', ' ', '}'});
        XModel model;
        LoadText(model, text);
        AlterEachByte(SaveBinaryBytes(model), {'\0', '\1', '\x7F', '\xFF'});
    }
}

}  // namespace
