#include "VKT/node/ExtraAttributes.h"

#include <gtest/gtest.h>

#include "VKT/deformers/NonLinearWave.h"
#include "VKT/hierarchy/Bone.h"
#include "VKT/support/LogCatcher.h"
#include "VKT/support/TestModel.h"

namespace VKT::Test {
namespace {

constexpr const char* kWaveBody =
    "\taffected 0 \n\tenvelope_weight 1\n\thandle 0\n\tmax_radius 1\n\tmin_radius 0\n\tamplitude 0\n"
    "\twavelength 1\n\tdropoff 0\n\tdropoff_position 0\n\toffset 0\n";

class ExtraAttributes : public ::testing::Test {
protected:
    RegistryScope m_Registry;
    XModel m_Model;
    XNonLinearWave* m_Wave = m_Model.CreateNode<XNonLinearWave>();

    std::string Chunk(const std::string& blocks) const
    {
        return "NONLINEAR_WAVE node1\n{\n\tid 1\n" + std::string(kWaveBody) + blocks + "}\n";
    }
    std::string File(const std::string& blocks) const { return "|VKT_004A#0000#00000000|\n" + Chunk(blocks); }
};

TEST_F(ExtraAttributes, EmptyBlockHasNoConnections)
{
    m_Wave->CreateExtraAttribute("a");
    XBase* const copy = m_Wave->Clone();
    EXPECT_NE(copy->GetExtraAttribute("a"), nullptr);
    XModel other;
    EXPECT_EQ(LoadText(other, File("\tEXTRA_ATTRIBUTES\n\t{\n\t}\n")), FileOk);
    EXPECT_EQ(SaveText(other), File("\tEXTRA_ATTRIBUTES\n\t{\n\t}\n"));
}

TEST_F(ExtraAttributes, ATakenNameAnswersNullAndAddsNothing)
{
    EXPECT_NE(m_Wave->CreateExtraAttribute("a"), nullptr);
    EXPECT_EQ(m_Wave->CreateExtraAttribute("a"), nullptr);
    XStringList names;
    m_Wave->ListExtraAttributes(names);
    EXPECT_EQ(names, XStringList{"a"});
    EXPECT_EQ(m_Wave->GetExtraAttribute("A"), nullptr);
}

TEST_F(ExtraAttributes, BlocksStandBehindTheBodyAndReadBack)
{
    const std::string blocks =
        "\tEXTRA_ATTRIBUTES\n\t{\n"
        "\t\tspeed float 1.5\n"
        "\t\tweights vector<float> 3 { 1 2 3  }\n"
        "\t}\n"
        "\tCONNECTIONS\n\t{\n"
        "\t\tATTR speed 0\n\t\t{\n\t\t\tinput 1 offset\n\t\t\toutput 0\n\t\t}\n"
        "\t\tATTR weights 1\n\t\t{\n\t\t\tinput 0\n\t\t\toutput 2\n\t\t\t\t1 x\n\t\t\t\t0 y\n\t\t}\n"
        "\t\tATTR weights 2\n\t\t{\n\t\t\tinput 1 z[0]\n\t\t\toutput 0\n\t\t}\n"
        "\t}\n";
    XAttribute* speed = m_Wave->CreateExtraAttribute("speed");
    speed->Set(1.5f);
    speed->SetInput(0, 1, "offset");
    XAttribute* weights = m_Wave->CreateExtraAttribute("weights");
    weights->Set(XFloatArray{1, 2, 3});
    weights->SetInput(2, 1, "z[0]");
    weights->AddOutput(1, 1, "x");
    weights->AddOutput(1, 99, "y");  // a node that is gone prints as 0
    EXPECT_EQ(SaveText(m_Model), File(blocks));

    XModel loaded;
    EXPECT_EQ(LoadText(loaded, File(blocks)), FileOk);
    EXPECT_EQ(SaveText(loaded), File(blocks));
    EXPECT_EQ(LoadBytes(loaded, SaveBinaryBytes(m_Model)), FileOk);
    EXPECT_EQ(SaveText(loaded), File(blocks));
}

TEST_F(ExtraAttributes, InputOfNoNodeIsNone)
{
    XAttribute* a = m_Wave->CreateExtraAttribute("a");
    a->SetInput(0, 0, "x");
    a->AddOutput(0, 1, "y");
    const std::string blocks =
        "\tEXTRA_ATTRIBUTES\n\t{\n\t\ta bool 0\n\t}\n"
        "\tCONNECTIONS\n\t{\n\t\tATTR a 0\n\t\t{\n\t\t\tinput 0\n\t\t\toutput 1\n\t\t\t\t1 y\n\t\t}\n\t}\n";
    EXPECT_EQ(SaveText(m_Model), File(blocks));
    XModel loaded;
    EXPECT_EQ(LoadText(loaded, File(blocks)), FileOk);
    EXPECT_EQ(SaveText(loaded), File(blocks));
}

// The text form lists the elements there are; the binary form holds whatever was connected.
TEST_F(ExtraAttributes, ConnectionsBeyondTheElementsAreInBytesAlone)
{
    XAttribute* a = m_Wave->CreateExtraAttribute("a");
    a->Set(XFloatArray{1, 2});
    a->SetInput(1, 1, "x");
    a->SetInput(2, 1, "y");
    XAttribute* b = m_Wave->CreateExtraAttribute("b");
    b->AddOutput(1, 1, "z");
    EXPECT_EQ(SaveText(m_Model),
              File("\tEXTRA_ATTRIBUTES\n\t{\n\t\ta vector<float> 2 { 1 2  }\n\t\tb bool 0\n\t}\n"
                   "\tCONNECTIONS\n\t{\n\t\tATTR a 1\n\t\t{\n\t\t\tinput 1 x\n\t\t\toutput 0\n\t\t}\n\t}\n"));
    XModel loaded;
    ASSERT_EQ(LoadBytes(loaded, SaveBinaryBytes(m_Model)), FileOk);
    EXPECT_TRUE(loaded.FindNode(1)->GetExtraAttribute("a")->HasInput(2));
    EXPECT_TRUE(loaded.FindNode(1)->GetExtraAttribute("b")->HasOutput(1));
}

TEST_F(ExtraAttributes, BinaryBlockStandsAheadOfTheBody)
{
    m_Wave->CreateExtraAttribute("a")->Set(7);
    EXPECT_EQ(Hex(BodyOf(*m_Wave)).substr(0, 3 * 45 - 1),
              "05 00 6e 6f 64 65 31 01 00 00 00 "              // name and id
              "01 00 00 00 8e 00 00 00 01 00 61 07 00 00 00 "  // one attribute
              "00 00 00 00 00 00 00 00 "                       // no connections
              "00 00 00 00 00 00 80 3f 00 00 00");             // affected, envelope weight, handle
    EXPECT_EQ(m_Wave->GetDataSize(), 8 + BodyOf(*m_Wave).size());
}

TEST_F(ExtraAttributes, TheSaveFlagLeavesThemOut)
{
    m_Wave->CreateExtraAttribute("a")->Set(7);
    m_Model.GetSaveFlags().Clear(SaveExtraAttributes);
    EXPECT_EQ(SaveText(m_Model), File(""));
    XModel loaded;
    EXPECT_EQ(LoadBytes(loaded, SaveBinaryBytes(m_Model)), FileOk);
    EXPECT_EQ(SaveText(loaded), File(""));
}

TEST_F(ExtraAttributes, ConnectionsOfAnAttributeThatIsNotThereAreDropped)
{
    XModel loaded;
    EXPECT_EQ(
        LoadText(loaded,
                 File("\tEXTRA_ATTRIBUTES\n\t{\n\t\ta int 1\n\t}\n\tCONNECTIONS\n\t{\n"
                      "\t\tATTR b 0\n\t\t{\n\t\t\tinput 1 x\n\t\t\toutput 1\n\t\t\t\t1 y\n\t\t}\n\t}\n")),
        FileOk);
    EXPECT_EQ(SaveText(loaded), File("\tEXTRA_ATTRIBUTES\n\t{\n\t\ta int 1\n\t}\n"));
}

TEST_F(ExtraAttributes, ConnectionsWithoutAttributesEndTheNodeAtTheirFirstBrace)
{
    LogCatcher log;
    XModel loaded;
    EXPECT_EQ(LoadText(loaded, File("\tCONNECTIONS\n\t{\n\t}\n") + Chunk("")), FileCorrupt);
    EXPECT_EQ(loaded.GetNodes().size(), 1u);
}

TEST_F(ExtraAttributes, ABrokenBlockIsLeftToTheTrailer)
{
    LogCatcher log;
    XModel loaded;
    EXPECT_EQ(LoadText(loaded, File("\tEXTRA_ATTRIBUTES\n\t{\n\t\ta vector<int> 1 [ 5 }\n")), FileOk);
    EXPECT_EQ(log.Text(), "Error : Expected { got [ [.\\src\\VKT\\ExtraAttributes:1]\n");
    EXPECT_NE(loaded.FindNode("node1"), nullptr);
}

TEST_F(ExtraAttributes, CopiesAreDeep)
{
    m_Wave->CreateExtraAttribute("a")->Set(XIntList{1, 2});
    XBase* const copy = m_Wave->Clone();
    copy->GetExtraAttribute("a")->SetElement(0, 9);
    i32 value = 0;
    m_Wave->GetExtraAttribute("a")->GetElement(0, value);
    EXPECT_EQ(value, 1);
}

TEST_F(ExtraAttributes, ADeathReachesThem)
{
    m_Wave->CreateExtraAttribute("a")->SetInput(0, 42, "x");
    XBone* const bone = m_Model.CreateNode<XBone>();
    bone->CreateExtraAttribute("b")->AddOutput(0, 42, "y");
    bone->NodeDeath(42);
    EXPECT_FALSE(bone->GetExtraAttribute("b")->HasConnections());
}

TEST_F(ExtraAttributes, ManyClaimedAttributesFailWithoutMemory)
{
    LogCatcher log;
    m_Wave->CreateExtraAttribute("a")->Set(7);
    std::string body = BodyOf(*m_Wave);
    body.replace(11, 4, "\xff\xff\xff\xff");
    XModel model;
    XNonLinearWave wave(&model);
    XFileIO measure = XFileIO::Measuring();
    wave.CreateExtraAttribute("there");
    EXPECT_FALSE(ReadBody(wave, body));
}

}  // namespace
}  // namespace VKT::Test
