#include "VKT/node/Base.h"

#include <gtest/gtest.h>

#include "VKT/deformers/NonLinearWave.h"
#include "VKT/geometry/PolygonMesh.h"
#include "VKT/hierarchy/Bone.h"
#include "VKT/hierarchy/Joint.h"
#include "VKT/lights/SpotLight.h"
#include "VKT/stream/NodeName.h"
#include "VKT/support/LogCatcher.h"
#include "VKT/support/TestModel.h"

namespace VKT {
namespace {

using Test::BodyOf;
using Test::Bytes;
using Test::ChunkOf;
using Test::Hex;
using Test::LoadText;
using Test::ReadBody;
using Test::RegistryScope;
using Test::TempFile;
using Test::TextOf;

// `XBase` itself serves as the node without a body: what is left is header and trailer.
class BaseTest : public testing::Test {
protected:
    bool Read(std::string_view text)
    {
        XTextReader in(text);
        const bool answer = m_Node.Read(in);
        m_Rest.clear();
        in.ReadToken(m_Rest);
        return answer;
    }

    LogCatcher m_Log;
    RegistryScope m_Registry;
    XModel m_Model;
    XBase m_Node{&m_Model};
    XString m_Rest;  // the first token behind what the last `Read` took
};

TEST_F(BaseTest, AFreshNodeHasNoIdNoNameAndNoBody)
{
    EXPECT_EQ(m_Node.GetID(), 0u);
    EXPECT_STREQ(m_Node.GetName(), "");
    EXPECT_EQ(m_Node.GetModel(), &m_Model);
    EXPECT_EQ(m_Node.GetApiType(), 0u);
    EXPECT_EQ(TextOf(m_Node), "");
    EXPECT_TRUE(m_Node.NodeDeath(1));
    std::set<u32> ids;
    m_Node.PreDelete(ids);
    EXPECT_TRUE(ids.empty());
    m_Node.PostLoad();
}

TEST_F(BaseTest, HasFnAnswersForItsClassAndAllAboveIt)
{
    XJoint joint(&m_Model);
    EXPECT_EQ(joint.HasFn(0), &joint);
    EXPECT_EQ(joint.HasFn(86), &joint);
    EXPECT_EQ(joint.HasFn(87), &joint);
    EXPECT_EQ(joint.HasFn(25), nullptr);
    EXPECT_EQ(joint.HasFn(0xFFFFFFFF), nullptr);
    XBone bone(&m_Model);
    EXPECT_EQ(bone.HasFn(0), &bone);
    EXPECT_EQ(bone.HasFn(86), &bone);
    EXPECT_EQ(bone.HasFn(87), nullptr);
    EXPECT_EQ(m_Node.HasFn(0), &m_Node);
    EXPECT_EQ(m_Node.HasFn(86), nullptr);
    const XBase& asConst = joint;
    EXPECT_EQ(asConst.HasFn(86), &joint);
    EXPECT_EQ(asConst.HasFn(25), nullptr);
    XNonLinearWave wave(&m_Model);
    for (const u32 type : {0u, 114u, 122u, 128u})
        EXPECT_EQ(wave.HasFn(type), &wave) << type;
    EXPECT_EQ(wave.HasFn(123), nullptr);
    XSpotLight light(&m_Model);
    for (const u32 type : {0u, 25u, 76u, 78u, 82u})
        EXPECT_EQ(light.HasFn(type), &light) << type;
    XPolygonMesh mesh(&m_Model);
    for (const u32 type : {0u, 25u, 26u, 166u})
        EXPECT_EQ(mesh.HasFn(type), &mesh) << type;
}

TEST_F(BaseTest, XCastGoesByHasFnAndTakesNull)
{
    XJoint joint(&m_Model);
    XBase* const base = &joint;
    EXPECT_EQ(XCast<XBone>(base), &joint);
    EXPECT_EQ(XCast<XPolygonMesh>(base), nullptr);
    EXPECT_EQ(XCast<XBone>(static_cast<XBase*>(nullptr)), nullptr);
    EXPECT_EQ(XCast<XBone>(static_cast<const XBase*>(base)), &joint);
}

TEST_F(BaseTest, AChunkIsKeyNameIdBodyAndBrace)
{
    XNonLinearWave* const wave = m_Model.CreateNode<XNonLinearWave>();
    wave->SetName("ripple");
    EXPECT_EQ(ChunkOf(*wave),
              "NONLINEAR_WAVE ripple\n"
              "{\n"
              "\tid 1\n"
              "\taffected 0 \n"
              "\tenvelope_weight 1\n"
              "\thandle 0\n"
              "\tmax_radius 1\n"
              "\tmin_radius 0\n"
              "\tamplitude 0\n"
              "\twavelength 1\n"
              "\tdropoff 0\n"
              "\tdropoff_position 0\n"
              "\toffset 0\n"
              "}\n");
}

TEST_F(BaseTest, ANodeWithIdZeroWritesNothingAndAnswersFalse)
{
    XTextWriter out;
    XBone bone(&m_Model);
    EXPECT_FALSE(bone.Write(out));
    EXPECT_EQ(out.Text(), "");
    EXPECT_TRUE(m_Model.CreateNode<XBone>()->Write(out));
}

TEST_F(BaseTest, ReadsHeaderAndTrailer)
{
    EXPECT_TRUE(Read("{ id 5 } next"));
    EXPECT_EQ(m_Node.GetID(), 5u);
    EXPECT_EQ(m_Rest, "next");
    EXPECT_EQ(m_Log.Text(), "");
}

TEST_F(BaseTest, TheBraceOfTheHeaderIsCheckedByItsFirstCharacter)
{
    EXPECT_TRUE(Read("{x id 5 }"));
    EXPECT_FALSE(Read("x{ id 5 }"));
    EXPECT_FALSE(Read(""));
    EXPECT_EQ(m_Log.Text(),
              "Error : File IO error, malformed chunk header in chunk x{\n"
              "Error : File IO error, malformed chunk header in chunk \n");
}

TEST_F(BaseTest, TheIdIsCheckedByTwoLettersAndFailsInSilence)
{
    EXPECT_TRUE(Read("{ identifier 6 }"));
    EXPECT_EQ(m_Node.GetID(), 6u);
    EXPECT_FALSE(Read("{ ID 5 }"));
    EXPECT_FALSE(Read("{ i 5 }"));
    EXPECT_FALSE(Read("{"));
    EXPECT_FALSE(Read("{ id x }"));
    EXPECT_FALSE(Read("{ id 4294967296 }"));
    EXPECT_EQ(m_Log.Text(), "");
}

TEST_F(BaseTest, AChunkThatEndsBehindItsIdIsAnUnexpectedEnd)
{
    EXPECT_FALSE(Read("{ id 5"));
    EXPECT_EQ(m_Log.Text(), "Error : Unexpected end of file\n");
}

TEST_F(BaseTest, AClosingBraceAtTheVeryEndEndsANodeAsTheFirstTokenAlone)
{
    EXPECT_TRUE(Read("{ id 5 }"));
    EXPECT_EQ(m_Log.Text(), "");
    EXPECT_FALSE(Read("{ id 5 newer 1 }"));
    EXPECT_EQ(m_Log.Text(), "Error : Unexpected end of file\n");
    EXPECT_TRUE(Read("{ id 5 newer 1 }\n"));
}

TEST_F(BaseTest, UnknownKeysAreSkippedTokenByToken)
{
    EXPECT_TRUE(Read("{ id 5 newer 1 2 three { four } next"));
    EXPECT_EQ(m_Rest, "next");  // the first token that begins with a brace ends the node
    EXPECT_TRUE(Read("{ id 5 newer }x next"));
    EXPECT_EQ(m_Rest, "next");
    EXPECT_TRUE(Read("{ id 5 }x y } next"));  // as the first token, it must be a brace alone
    EXPECT_EQ(m_Rest, "next");
    EXPECT_EQ(m_Log.Text(), "");
}

TEST_F(BaseTest, UnknownKeysUpToTheEndAreACorruptFile)
{
    EXPECT_FALSE(Read("{ id 5 newer\n"));
    EXPECT_EQ(m_Log.Text(), "Error : corrupt file\n");
    m_Log.Clear();
    EXPECT_FALSE(Read("{ id 5 newer 1"));
    EXPECT_EQ(m_Log.Text(), "Error : Unexpected end of file\n");
}

TEST_F(BaseTest, ConnectionsWithoutExtraAttributesAreNotParsed)
{
    EXPECT_TRUE(Read("{ id 5 CONNECTIONS { CONNECTION { a b } } } next"));
    EXPECT_EQ(m_Rest, "}");
}

TEST_F(BaseTest, NamesFromFilesAreCleaned)
{
    EXPECT_EQ(CleanName("a\"b/c d"), "abc_d");
    EXPECT_EQ(CleanName("\\\"/"), "");
    EXPECT_EQ(CleanName("a\tb"), "a\tb");
    EXPECT_EQ(CleanName(""), "");

    const std::string chunk =
        "NONLINEAR_WAVE a\"b/c\\d\n{\n\tid 3\n" + TextOf(XNonLinearWave(&m_Model)) + "}\n";
    ASSERT_EQ(LoadText(m_Model, "|VKT_004A#0000#00000000|\n" + chunk), FileOk);
    ASSERT_NE(m_Model.FindNode(3u), nullptr);
    EXPECT_STREQ(m_Model.FindNode(3u)->GetName(), "abcd");
    EXPECT_EQ(m_Model.FindNode("abcd"), m_Model.FindNode(3u));
}

TEST_F(BaseTest, NamesThatAreNoSingleWordAreWrittenAsOneWithAWarning)
{
    EXPECT_EQ(NameAsToken("arm"), "arm");
    EXPECT_EQ(m_Log.Text(), "");
    EXPECT_EQ(NameAsToken(" a\tb\nc\r"), "_a_b_c_");
    EXPECT_EQ(NameAsToken(""), "_");
    EXPECT_EQ(m_Log.Text(),
              "Warning : the name \" a\tb\nc\r\" is written as _a_b_c_: names in text files are one word\n"
              "Warning : the name \"\" is written as _: names in text files are one word\n");
    m_Log.Clear();
    XBone* const bone = m_Model.CreateNode<XBone>();
    bone->SetName("line\nend");
    EXPECT_TRUE(ChunkOf(*bone).starts_with("BONE line_end\n{\n\tid 1\n"));
    EXPECT_STREQ(bone->GetName(), "line\nend");
}

TEST_F(BaseTest, TheBinaryBodyIsNameAndId)
{
    ASSERT_TRUE(ReadBody(m_Node, Bytes("07 00 61 22 62 2f 63 20 64 05 00 00 00")));
    EXPECT_STREQ(m_Node.GetName(), "abc_d");  // the cleaner runs when reading ...
    EXPECT_EQ(m_Node.GetID(), 5u);
    EXPECT_EQ(Hex(BodyOf(m_Node)), "05 00 61 62 63 5f 64 05 00 00 00");
    EXPECT_EQ(m_Node.GetDataSize(), 14u + 5);

    XBone* const bone = m_Model.CreateNode<XBone>();
    bone->SetName("a/b");
    EXPECT_EQ(Hex(BodyOf(*bone).substr(0, 8)), "02 00 61 62 01 00 00 00");  // ... and when writing
    EXPECT_EQ(bone->GetDataSize(), 14u + 2 + 310);  // the size is that of what is written
    EXPECT_STREQ(bone->GetName(), "a/b");
}

TEST_F(BaseTest, TheBinaryHeaderIsTypeFlagReservedAndSize)
{
    XBone* const bone = m_Model.CreateNode<XBone>();
    bone->SetName("b");
    const TempFile file(".bin");
    {
        XFileIO out(file.Path(), false);
        EXPECT_TRUE(bone->DoHeader(out));
    }
    EXPECT_EQ(Hex(file.Bytes()), "56 00 00 00 45 01 00 00");  // 14 + 1 + 310
    XFileIO in(file.Path(), true);
    EXPECT_TRUE(bone->DoHeader(in));
    EXPECT_EQ(in.Tell(), 8);
    EXPECT_FALSE(bone->DoHeader(in));
}

TEST_F(BaseTest, TheBinaryHeaderTellsOfExtraAttributes)
{
    XBone* const bone = m_Model.CreateNode<XBone>();
    bone->SetName("b");
    bone->CreateExtraAttribute("e");
    const auto header = [&] {
        const TempFile file(".bin");
        XFileIO out(file.Path(), false);
        EXPECT_TRUE(bone->DoHeader(out));
        EXPECT_TRUE(out.Close());
        return file.Bytes();
    };
    EXPECT_EQ(Hex(header()), "56 00 01 00 59 01 00 00");  // and 4 + 4 + 3 + 1 + 4 + 4
    XBone fresh(&m_Model);
    const TempFile file(".bin", header());
    XFileIO in(file.Path(), true);
    EXPECT_TRUE(fresh.DoHeader(in));
    EXPECT_NE(fresh.GetExtraAttributes(), nullptr);
    m_Model.GetSaveFlags().Clear(SaveExtraAttributes);
    EXPECT_EQ(Hex(header()), "56 00 00 00 45 01 00 00");
}

TEST_F(BaseTest, ABodyThatEndsEarlyFails)
{
    EXPECT_FALSE(ReadBody(m_Node, Bytes("05 00 61 62")));
    EXPECT_EQ(m_Log.Text(), "Error : XFileIO::DoData : expected to read/write 1 elements got 0\n");
    m_Log.Clear();
    EXPECT_FALSE(ReadBody(m_Node, Bytes("01 00 61 05 00 00")));
    EXPECT_EQ(m_Log.Text(), "Error : XFileIO::DoData : expected to read/write 1 elements got 0\n");
}

TEST_F(BaseTest, ANameLongerThan65535IsCutInItsSizeToo)
{
    XNonLinearWave* const wave = m_Model.CreateNode<XNonLinearWave>();
    const u32 others = wave->GetDataSize() - 5;  // "node1"
    wave->SetName(XString(70'000, 'n').c_str());
    EXPECT_EQ(wave->GetDataSize(), others + 65535);
    EXPECT_EQ(BodyOf(*wave).size() + 8, wave->GetDataSize());
}

TEST_F(BaseTest, CloneOfANodeThatCannotBeCreatedIsNull)
{
    EXPECT_EQ(m_Node.Clone(), nullptr);
    EXPECT_EQ(
        m_Log.Text(),
        "Error : Could not create type base. This is either because the type is abstract, or invalid...\n");
}

}  // namespace
}  // namespace VKT
