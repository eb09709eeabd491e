#include "VKT/support/RandomDocument.h"

#include <gmock/gmock.h>

#include <regex>

#include "VKT/document/Instance.h"
#include "VKT/node/FnRegistry.h"
#include "VKT/support/NodeTest.h"

// What is true of any document.

using namespace VKT;
using namespace VKT::Test;

namespace {

class RandomDocuments : public NodeTest, public testing::WithParamInterface<u32> {
protected:
    RandomDocuments() : m_Random(GetParam())
    {
        m_Random.Omit({kFnCollisionCapsule, kFnCollisionCylinder});  // no reader takes their texts
    }

    RandomDocument m_Random;
};

INSTANTIATE_TEST_SUITE_P(Seeds, RandomDocuments, testing::Range(0u, 40u));

// The matrices of bones are computed by a load.
std::string WithoutMatrices(const std::string& text)
{
    static const std::regex matrix("\tbind_pose_matrix\n(\t\t.*\n){4}");
    return std::regex_replace(text, matrix, "");
}

TEST_P(RandomDocuments, SizesAreThoseOfTheBytes)
{
    m_Random.Fill(m_Model, 60);
    for (const auto& [name, node] : m_Model.GetNodes())
        EXPECT_EQ(node->GetDataSize(), 8 + BodyOf(*node).size()) << name;
}

TEST_P(RandomDocuments, TextToTextIsTheSameText)
{
    m_Random.Fill(m_Model, 60);
    const std::string first = SaveText(m_Model);
    XModel again;
    ASSERT_EQ(LoadText(again, first), FileOk);
    const std::string second = SaveText(again);
    EXPECT_EQ(WithoutMatrices(second), WithoutMatrices(first));
    XModel last;
    ASSERT_EQ(LoadText(last, second), FileOk);
    EXPECT_EQ(SaveText(last), second);
}

TEST_P(RandomDocuments, BytesToBytesAreTheSameBytes)
{
    m_Random.Fill(m_Model, 60);
    XModel settled;
    ASSERT_EQ(LoadBytes(settled, SaveBinaryBytes(m_Model)), FileOk);
    const std::string first = SaveBinaryBytes(settled);
    XModel again;
    ASSERT_EQ(LoadBytes(again, first), FileOk);
    EXPECT_EQ(Hex(SaveBinaryBytes(again)), Hex(first));
}

// Binary files hold neither the uv sets of instances nor the materials of particles.
std::string WithoutBoth(const std::string& text)
{
    static const std::regex uvSets("\n\t\t\tnum_uv_sets [0-9]+\n(\t\t\t\t[0-9]+ .*\n)*");
    static const std::regex materials("\t material [0-9]+\n");
    return std::regex_replace(std::regex_replace(text, uvSets, "\n\t\t\tnum_uv_sets 0\n"), materials,
                              "\t material 0\n");
}

TEST_P(RandomDocuments, TextToBytesToTextLosesUvSetsAndMaterialsOfParticles)
{
    m_Random.Fill(m_Model, 60);
    XModel settled;
    ASSERT_EQ(LoadText(settled, SaveText(m_Model)), FileOk);
    const std::string text = SaveText(settled);
    XModel again;
    ASSERT_EQ(LoadBytes(again, SaveBinaryBytes(settled)), FileOk);
    EXPECT_EQ(SaveText(again), WithoutBoth(text));
}

TEST_P(RandomDocuments, BytesToTextToBytesAreTheSameBytes)
{
    m_Random.Fill(m_Model, 60);
    XModel settled;
    ASSERT_EQ(LoadText(settled, SaveText(m_Model)), FileOk);
    const std::string bytes = SaveBinaryBytes(settled);
    XModel again;
    ASSERT_EQ(LoadText(again, SaveText(settled)), FileOk);
    EXPECT_EQ(Hex(SaveBinaryBytes(again)), Hex(bytes));
}

// The fields that name a node which the document lacks, as "class field", and instances that
// hang in the air.
std::set<std::string> Dangling(const XModel& model)
{
    std::set<std::string> dangling;
    for (const auto& [name, node] : model.GetNodes()) {
        XTextWriter out;
        out.Describe([&](u32 id) { return XString(id == 0 || model.HasNode(id) ? "1" : "<missing>"); });
        node->Write(out);
        std::istringstream lines(out.TakeText());
        std::string field;
        for (std::string line; std::getline(lines, line);) {
            static const std::regex key("^[\t ]*([A-Za-z_]+).*");
            std::smatch match;
            if (std::regex_match(line, match, key))
                field = match[1];
            if (line.find("<missing>") != std::string::npos)
                dangling.insert(field == "input" ? "connection"
                                                 : XString(XFnTypeName(node->GetApiType())) + ' ' + field);
        }
    }
    XInstanceList instances;
    model.ListInstances(instances);
    for (const XInstance* instance : instances)
        if (!instance->GetParent() || !instance->GetShape())
            dangling.insert("instance");
    return dangling;
}

// What the rules of the classes leave behind.
const std::set<std::string> kMayDangle = {
    "connection",        // unless the delete flags reach them
    "blendShape frown",  // targets, by the names that the sample gives them
    "blendShape smile",
    "emitter emitter_object",
    "emitter emitter_transform",
    "jointCluster joint_id",
    "objectSet num_items",   // of a node listed twice one entry stays
    "particleShape fields",  // likewise
    "particleShape material",
    "sculptDeformer sculpt_object",
    "sculptDeformer start_object",
    "wireDeformer num_wires",
};

TEST_P(RandomDocuments, StayValid)
{
    m_Random.Fill(m_Model, 60);
    ASSERT_THAT(Dangling(m_Model), testing::IsEmpty());
    for (int round = 0; round < 6; ++round) {
        XNodeList nodes;
        m_Model.List(nodes, kFnBase);
        m_Model.GetCopyFlags().Clear(0xFFFFFFFF);
        m_Model.GetCopyFlags().Set(m_Random.Flags(63));
        for (int i = 0; i < 5; ++i)
            m_Random.AnyOf(nodes)->Clone();
        EXPECT_THAT(Dangling(m_Model), testing::IsSubsetOf(kMayDangle)) << "after copies";
        m_Model.GetDeleteFlags().Clear(0xFFFFFFFF);
        m_Model.GetDeleteFlags().Set(m_Random.Flags(0xFFFFFFFF));
        std::set<u32> ids;
        for (int i = 0; i < 4; ++i)
            ids.insert(m_Random.AnyOf(nodes)->GetID());
        m_Model.DeleteNodes(ids);
        EXPECT_THAT(Dangling(m_Model), testing::IsSubsetOf(kMayDangle)) << "after deletions";
    }
}

}  // namespace
