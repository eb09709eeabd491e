#include "VKT/document/InheritedNode.h"

#include "VKT/deformers/NonLinearWave.h"
#include "VKT/hierarchy/Joint.h"
#include "VKT/support/BinaryFile.h"
#include "VKT/support/NodeTest.h"

using namespace VKT;
using namespace VKT::Test;

namespace {

constexpr char kHeader[] = "|VKT_004A#0000#00000000|\n";
constexpr char kDefinition[] = "INHERITED_NODE\n{\n\tbase_type NONLINEAR_WAVE\n\theader OCEAN_WAVE\n}\n";
constexpr char kInstance[] =
    "OCEAN_WAVE swell\n{\n\tid 1\n\taffected 0 \n\tenvelope_weight 1\n\thandle 0\n\tmax_radius 5\n"
    "\tmin_radius 0\n\tamplitude 0\n\twavelength 1\n\tdropoff 0\n\tdropoff_position 0\n\toffset 0\n}\n";

class InheritedNode : public NodeTest {
protected:
    XFileResult LoadQuietly(std::string_view text)
    {
        m_Log.Clear();
        const XFileResult result = LoadText(m_Model, text);
        m_Said = m_Log.Text();
        return result;
    }
    XFileResult LoadBinary(std::string_view bytes)
    {
        m_Log.Clear();
        const XFileResult result = LoadBytes(m_Model, bytes);
        m_Said = m_Log.Text().substr(m_Log.Text().find('\n') + 1);
        return result;
    }
    // A definition's chunk; its size is 2 above the truth.
    static std::string Definition(u32 base, const std::string& header)
    {
        return Chunk(kChunkInheritedNode, Word(base, 4) + Word(header.size(), 2) + header,
                     static_cast<u32>(16 + header.size()));
    }
    static std::string Instance(u32 number, const std::string& name)
    {
        XModel model;
        XBase* wave = model.CreateNode(kFnNonLinearWave);
        wave->SetName(name.c_str());
        return Chunk(static_cast<u16>(kChunkInheritedInstances + number), BodyOf(*wave));
    }

    std::string m_Said;
};

TEST_F(InheritedNode, TextToTextIsTheSameText)
{
    const std::string text = std::string(kHeader) + kDefinition + kInstance;
    ASSERT_EQ(LoadQuietly(text), FileOk);
    EXPECT_EQ(m_Said, "");
    const auto* wave = XCast<XNonLinearWave>(m_Model.FindNode("swell"));
    ASSERT_NE(wave, nullptr);
    EXPECT_EQ(wave->GetMaxRadius(), 5.0f);
    EXPECT_EQ(wave->GetApiType(), kFnNonLinearWave);
    ASSERT_NE(wave->GetInheritedFrom(), nullptr);
    EXPECT_EQ(wave->GetInheritedFrom()->GetHeader(), "OCEAN_WAVE");
    EXPECT_EQ(SaveText(m_Model), text);
}

TEST_F(InheritedNode, BinaryKeepsTheKeyToo)
{
    const std::string text = std::string(kHeader) + kDefinition + kInstance;
    ASSERT_EQ(LoadQuietly(text), FileOk);
    const std::string bytes = SaveBinaryBytes(m_Model);
    EXPECT_EQ(bytes.substr(26, 24), Definition(kFnNonLinearWave, "OCEAN_WAVE"));
    EXPECT_EQ(Hex(bytes.substr(26 + 24, 2)), "00 d0");  // number 0
    ASSERT_EQ(LoadBytes(m_Model, bytes), FileOk);
    EXPECT_EQ(SaveText(m_Model), text);
    EXPECT_EQ(SaveBinaryBytes(m_Model), bytes);
}

TEST_F(InheritedNode, ABuiltInChunkKeyIsRefused)
{
    EXPECT_EQ(LoadQuietly(std::string(kHeader) + "INHERITED_NODE\n{\n\tbase_type BONE\n\theader JOINT\n}\n"),
              FileCorrupt);
    EXPECT_EQ(m_Said, "Error : The inherited node type cannot use a reserved chunk name\n");
}

TEST_F(InheritedNode, AnUnknownBaseFailsInSilence)
{
    EXPECT_EQ(LoadQuietly(std::string(kHeader) + "INHERITED_NODE\n{\n\tbase_type TABLE\n\theader X\n}\n"),
              FileCorrupt);
    EXPECT_EQ(m_Said, "");
    EXPECT_TRUE(m_Model.GetInheritedNodes().empty());
}

TEST_F(InheritedNode, WrongKeysAreLogged)
{
    for (const auto& [text, said] : {
             std::pair{"base BONE", "Expected base_type got base [.\\src\\VKT\\InheritedNode:1]"},
             std::pair{"base_type BONE key X", "Expected header got key [.\\src\\VKT\\InheritedNode:2]"},
             std::pair{"base_type BONE header X id", "Expected } got id [.\\src\\VKT\\InheritedNode:3]"},
         }) {
        EXPECT_EQ(LoadQuietly(std::string(kHeader) + "INHERITED_NODE { " + text + " "), FileCorrupt);
        EXPECT_EQ(m_Said, std::string("Error : ") + said + "\n");
    }
}

TEST_F(InheritedNode, DefinitionsAreNumberedInTheOrderOfTheFile)
{
    m_Model.AddInheritedNode(kFnBone, "ZEBRA");
    m_Model.AddInheritedNode(kFnJoint, "ANT");
    XBase* ant = m_Model.CreateNode(*m_Model.GetInheritedNodes()[1]);
    ASSERT_NE(XCast<XJoint>(ant), nullptr);
    EXPECT_EQ(ChunkOf(*ant).substr(0, 9), "ANT node1");
    EXPECT_EQ(m_Model.GetInheritedNodes()[1]->GetFileType(), 53249u);
    EXPECT_EQ(SaveText(m_Model).substr(sizeof kHeader - 1, 97),
              "INHERITED_NODE\n{\n\tbase_type BONE\n\theader ZEBRA\n}\n"
              "INHERITED_NODE\n{\n\tbase_type JOINT\n\theader ANT\n}\n");
}

TEST_F(InheritedNode, TakenKeysAreNotGivenTwice)
{
    EXPECT_NE(m_Model.AddInheritedNode(kFnBone, "LIMB"), nullptr);
    EXPECT_NE(m_Model.AddNewNode(kFamilyNone, "fog", "FOG"), nullptr);
    for (const char* key : {"LIMB", "FOG", "BONE", "INFO", "NEW_NODE", "INHERITED_NODE", "", "A B"}) {
        m_Log.Clear();
        EXPECT_EQ(m_Model.AddInheritedNode(kFnBone, key), nullptr) << key;
        EXPECT_EQ(m_Log.Text(),
                  "Error : the chunk key \"" + std::string(key) + "\" cannot be given to a node type\n");
        EXPECT_EQ(m_Model.AddNewNode(kFamilyNone, "", key), nullptr) << key;
    }
}

TEST_F(InheritedNode, DefinitionsMayChain)
{
    ASSERT_EQ(LoadBinary(Start() + Definition(kFnNonLinearWave, "A") + Definition(53248, "B") +
                         Definition(53249, "C") + Instance(2, "deep")),
              FileOk);
    const XBase* node = m_Model.FindNode("deep");
    ASSERT_NE(node, nullptr);
    EXPECT_EQ(node->GetApiType(), kFnNonLinearWave);
    EXPECT_EQ(node->GetInheritedFrom()->GetHeader(), "C");
}

TEST_F(InheritedNode, AChainMayRunAheadOfItsDefinitions)
{
    ASSERT_EQ(LoadBinary(Start() + Definition(53249, "A") + Instance(0, "early") +
                         Definition(kFnNonLinearWave, "B") + Instance(0, "late")),
              FileOk);
    EXPECT_FALSE(m_Model.FindNode("early"));
    EXPECT_TRUE(m_Model.FindNode("late"));
    EXPECT_EQ(m_Model.GetLoadReport().GetChunks().GetCount(), 1u);
}

TEST_F(InheritedNode, ChainsInACircleOrIntoNothingHaveNoInstances)
{
    ASSERT_EQ(
        LoadBinary(Start() + Definition(53249, "A") + Definition(53248, "B") + Definition(53250, "SELF") +
                   Definition(57343, "GONE") + Definition(60000, "FAR") + Definition(4097, "ODD") +
                   Definition(0, "BASE") + Instance(0, "a") + Instance(1, "b") + Instance(2, "c") +
                   Instance(3, "d") + Instance(4, "e") + Instance(5, "f") + Instance(6, "g") +
                   Chunk(kFnNonLinearWave, Instance(0, "last").substr(8))),
        FileOk);
    EXPECT_EQ(m_Said, "");
    EXPECT_EQ(m_Model.GetLoadReport().GetChunks().GetCount(), 7u);
    EXPECT_EQ(m_Model.GetNodes().size(), 1u);
    EXPECT_TRUE(m_Model.FindNode("last"));
}

TEST_F(InheritedNode, ALongChainUnderManyInstancesIsWalkedOnce)
{
    std::string file = Start() + Definition(kFnNonLinearWave, "0");
    for (u32 i = 1; i < 4096; ++i)
        file += Definition(53248 + i - 1, std::to_string(i));
    const std::string instance = Instance(4095, "w");
    for (u32 i = 0; i < 20'000; ++i)
        file += instance;
    ASSERT_EQ(LoadBinary(file), FileOk);
    EXPECT_EQ(m_Model.GetNodes().size(), 20'000u);
}

TEST_F(InheritedNode, AnInstanceWithoutDefinitionsIsSkippedBySize)
{
    ASSERT_EQ(LoadBinary(Start() + Instance(0, "lost") + Chunk(kFnNonLinearWave, Instance(0, "w").substr(8))),
              FileOk);
    EXPECT_EQ(m_Said, "");
    EXPECT_FALSE(m_Model.FindNode("lost"));
    EXPECT_TRUE(m_Model.FindNode("w"));
}

TEST_F(InheritedNode, ManyOverstatedSizesLoseNoChunk)
{
    std::string file = Start();
    for (int i = 0; i < 100; ++i)
        file += Definition(kFnNonLinearWave, std::to_string(i) + "K");
    ASSERT_EQ(LoadBinary(file + Instance(99, "last")), FileOk);
    EXPECT_TRUE(m_Model.FindNode("last"));
}

TEST_F(InheritedNode, ACutDefinitionEndsTheLoad)
{
    const std::string file = Start() + Instance(0, "a") + Definition(kFnNonLinearWave, "KEY");
    EXPECT_EQ(LoadBinary(file.substr(0, file.size() - 1)), FileCorrupt);
    EXPECT_EQ(m_Said, "Error : XFileIO::DoData : expected to read/write 1 elements got 0\n");
}

TEST_F(InheritedNode, BinaryFilesRefuseMoreDefinitionsThanTheyCanNumber)
{
    const TempFile file(".vkt", "old");
    for (u32 i = 0; i <= XInheritedNode::kMostInBinary; ++i)
        m_Model.AddInheritedNode(kFnBone, std::to_string(i) + "K");
    m_Model.GetSaveFlags().Clear(SaveAscii);
    EXPECT_EQ(m_Model.Save(file.Path()), FileCorrupt);
    EXPECT_EQ(file.Bytes(), "old");
    EXPECT_EQ(m_Log.Text(), "Error : a binary file tells no more than 4096 inherited node types apart\n");
}

TEST_F(InheritedNode, ABaseWithoutAChunkKeyIsNotWritten)
{
    for (const u32 base : {u32{kFnDeformer}, 53248u, 12345u}) {
        XTextWriter out;
        EXPECT_TRUE(XInheritedNode(0, base, "KEY").Write(out));
        EXPECT_EQ(out.TakeText(), "");
    }
    XTextWriter out;
    EXPECT_TRUE(XInheritedNode(0, kFnBone).Write(out));
    EXPECT_EQ(out.TakeText(), "");
}

TEST_F(InheritedNode, ACloneIsOfTheBuiltInType)
{
    const XInheritedNode* definition = m_Model.AddInheritedNode(kFnBone, "LIMB");
    const XBase* clone = m_Model.CreateNode(*definition)->Clone();
    ASSERT_NE(clone, nullptr);
    EXPECT_EQ(clone->GetInheritedFrom(), nullptr);
}

TEST_F(InheritedNode, ClearForgetsDefinitions)
{
    m_Model.AddInheritedNode(kFnBone, "LIMB");
    m_Model.AddNewNode(kFamilyNone, "fog", "FOG");
    m_Model.Clear();
    EXPECT_TRUE(m_Model.GetInheritedNodes().empty());
    EXPECT_TRUE(m_Model.GetNewNodes().empty());
    EXPECT_NE(m_Model.AddInheritedNode(kFnBone, "LIMB"), nullptr);
}

}  // namespace
