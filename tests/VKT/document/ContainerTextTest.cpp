#include <gtest/gtest.h>

#include <sstream>

#include "VKT/hierarchy/Bone.h"
#include "VKT/support/LogCatcher.h"
#include "VKT/support/TestModel.h"

// Loading of the text form: the walk over the chunks, and what it says of damaged ones.

namespace VKT {
namespace {

using Test::LoadBytes;
using Test::LoadText;
using Test::RegistryScope;
using Test::SaveText;
using Test::TempFile;

constexpr char kHeader[] = "|VKT_004A#0000#00000000|\n";

std::string Wave(const std::string& name, const std::string& id)
{
    return "NONLINEAR_WAVE " + name + "\n{\n\tid " + id +
           "\n"
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
           "}\n";
}

class ContainerText : public testing::Test {
protected:
    XFileResult Load(std::string_view text) { return LoadText(m_Model, text); }

    LogCatcher m_Log;
    RegistryScope m_Registry;
    XModel m_Model;
};

TEST_F(ContainerText, AFileOfTheHeaderAloneIsAnEmptyDocument)
{
    EXPECT_EQ(Load(kHeader), FileOk);
    EXPECT_TRUE(m_Model.GetNodes().empty());
    EXPECT_EQ(m_Model.GetVersion(), 4u);
    EXPECT_EQ(Load("|VKT_004A#0000#00000000|"), FileOk);
    EXPECT_EQ(m_Log.Text(), "");
}

TEST_F(ContainerText, TheReservedWordsAreNotLookedAt)
{
    EXPECT_EQ(Load("|VKT_004Axyz " + Wave("w", "1")), FileOk);
    EXPECT_NE(m_Model.FindNode("w"), nullptr);
}

TEST_F(ContainerText, AFileWithoutTheMarkIsRefused)
{
    EXPECT_EQ(Load("|VKU_004A#0000#00000000|\n"), FileNotVkt);
    EXPECT_EQ(m_Log.Text(), "Error : File is \"memory.vkt\" is not an vkt file\n");
    m_Log.Clear();
    EXPECT_EQ(Load(""), FileNotVkt);
    EXPECT_EQ(Load("|VKT"), FileNotVkt);
    EXPECT_EQ(m_Log.Text(),
              "Error : File is \"memory.vkt\" is not an vkt file\n"
              "Error : File is \"memory.vkt\" is not an vkt file\n");
}

TEST_F(ContainerText, AStreamOfTheBinaryFormIsRefused)
{
    EXPECT_EQ(Load("|VKT_004B#0000#00000000|\n"), FileNotVkt);
    EXPECT_EQ(Load("|VKT_004"), FileNotVkt);
    EXPECT_EQ(m_Log.Text(),
              "Error : File is \"memory.vkt\" is not an ascii vkt file\n"
              "Error : File is \"memory.vkt\" is not an ascii vkt file\n");
}

TEST_F(ContainerText, ANewerFileIsRefusedAndLeavesTheDocumentEmpty)
{
    m_Model.CreateNode(kFnBone);
    EXPECT_EQ(Load("|VKT_005A#0000#00000000|\n" + Wave("w", "1")), FileTooNew);
    EXPECT_EQ(m_Log.Text(), "Error : opening file: file version 5 is newer than vkt version 4\n");
    EXPECT_TRUE(m_Model.GetNodes().empty());
    EXPECT_EQ(m_Model.GetVersion(), 4u);
    m_Log.Clear();
    EXPECT_EQ(LoadBytes(m_Model, "|VKT_999A#0000#00000000|\n"), FileTooNew);
    EXPECT_TRUE(
        m_Log.Text().ends_with("Error : opening file: file version 999 is newer than vkt version 4\n"));
}

TEST_F(ContainerText, AnOlderFileLoadsWithAWarning)
{
    std::string wave = Wave("w", "1");
    const std::string newer = "\tenvelope_weight 1\n";  // files of then have no such line
    wave.erase(wave.find(newer), newer.size());
    EXPECT_EQ(Load("|VKT_003A#0000#00000000|\n" + wave), FileOk);
    EXPECT_EQ(
        m_Log.Text(),
        "Warning : File is from an older vkt version. If saved it will be unreadable by versions of vkt "
        "older than version 4\n");
    EXPECT_EQ(m_Model.GetVersion(), 3u);
    EXPECT_NE(m_Model.FindNode("w"), nullptr);
    EXPECT_EQ(SaveText(m_Model), kHeader + Wave("w", "1"));
    EXPECT_EQ(m_Model.GetVersion(), 4u);
}

TEST_F(ContainerText, NodesComeWithTheIdsAndNamesOfTheFile)
{
    ASSERT_EQ(Load(kHeader + Wave("b", "7") + Wave("a", "3")), FileOk);
    EXPECT_EQ(m_Model.GetNodes().size(), 2u);
    EXPECT_STREQ(m_Model.FindNode(7u)->GetName(), "b");
    EXPECT_EQ(m_Model.FindNode("a")->GetID(), 3u);
    EXPECT_EQ(m_Model.FindNode(3u)->GetApiType(), kFnNonLinearWave);
    EXPECT_EQ(m_Model.CreateNode(kFnBone)->GetID(), 8u);  // above the largest
    EXPECT_EQ(m_Log.Text(), "");
}

TEST_F(ContainerText, TwoNodesOfOneNameAreBothHeld)
{
    ASSERT_EQ(Load(kHeader + Wave("w", "2") + Wave("w", "1")), FileOk);
    XNodeList nodes;
    m_Model.List(nodes, kFnBase);
    ASSERT_EQ(nodes.size(), 2u);
    EXPECT_EQ(m_Model.FindNode("w"), nodes[0]);
    EXPECT_EQ(nodes[0]->GetID(), 2u);  // in the order of arrival
    EXPECT_EQ(nodes[1]->GetID(), 1u);
    EXPECT_EQ(SaveText(m_Model), kHeader + Wave("w", "2") + Wave("w", "1"));
}

TEST_F(ContainerText, OfTwoNodesOfOneIdTheFirstIsFound)
{
    ASSERT_EQ(Load(kHeader + Wave("b", "1") + Wave("a", "1")), FileOk);
    EXPECT_STREQ(m_Model.FindNode(1u)->GetName(), "b");
    EXPECT_EQ(m_Model.GetNodes().size(), 2u);
    // A rename moves the entry of this very node.
    XBase* const second = m_Model.FindNode("a");
    EXPECT_EQ(m_Model.SetName(second, "c"), "c");
    EXPECT_EQ(m_Model.FindNode("c"), second);
    EXPECT_STREQ(m_Model.FindNode("b")->GetName(), "b");
    EXPECT_EQ(m_Model.FindNode("a"), nullptr);
}

TEST_F(ContainerText, ANodeWithIdZeroIsHeldByNameAloneAndNotSaved)
{
    ASSERT_EQ(Load(kHeader + Wave("w", "0")), FileOk);
    EXPECT_NE(m_Model.FindNode("w"), nullptr);
    EXPECT_EQ(m_Model.FindNode(0u), nullptr);
    EXPECT_EQ(SaveText(m_Model), kHeader);
}

TEST_F(ContainerText, AnUnknownChunkIsSkippedWithAWarning)
{
    EXPECT_EQ(
        Load(kHeader + std::string("NEWER_KIND thing\n{\n\tblock { a } { {b }c }\n}\n") + Wave("w", "1")),
        FileOk);
    EXPECT_EQ(m_Log.Text(), "Warning : Dumping Unknown Chunk: header: NEWER_KIND name: thing\n");
    EXPECT_NE(m_Model.FindNode("w"), nullptr);
    ASSERT_EQ(m_Model.GetLoadReport().GetChunks().GetCount(), 1u);
    EXPECT_EQ(m_Model.GetLoadReport().GetChunks().GetFirst()[0].key, "NEWER_KIND");
    EXPECT_EQ(m_Model.GetLoadReport().GetChunks().GetFirst()[0].name, "thing");
    EXPECT_FALSE(m_Model.GetLoadReport().GetChunks().GetFirst()[0].isDamaged);
}

TEST_F(ContainerText, BracesCountWhereverTheyBeginAToken)
{
    // "{{" opens one block and "}}" closes one; a brace inside of a token is none.
    EXPECT_EQ(Load(kHeader + std::string("A a { {{ x{ y} }} } ") + Wave("w", "1")), FileOk);
    EXPECT_NE(m_Model.FindNode("w"), nullptr);
    // A text with a brace at its begin counts too: the chunk swallows the next.
    EXPECT_EQ(Load(kHeader + std::string("A a { {x } ") + Wave("w", "1")), FileOk);
    EXPECT_EQ(m_Model.FindNode("w"), nullptr);
}

TEST_F(ContainerText, AMillionNestedBracesAreSkipped)
{
    std::string nested;
    for (int i = 0; i < 1'000'000; ++i)
        nested += "{ ";
    for (int i = 0; i < 1'000'000; ++i)
        nested += "} ";
    EXPECT_EQ(Load(kHeader + ("A a " + nested) + Wave("w", "1")), FileOk);
    EXPECT_NE(m_Model.FindNode("w"), nullptr);
}

TEST_F(ContainerText, AKeyOfAnotherCaseIsUnknown)
{
    EXPECT_EQ(Load(kHeader + std::string("nonlinear_wave w { }\n")), FileOk);
    EXPECT_EQ(m_Log.Text(), "Warning : Dumping Unknown Chunk: header: nonlinear_wave name: w\n");
}

TEST_F(ContainerText, AnUnknownChunkMustBeginWithABrace)
{
    EXPECT_EQ(Load(kHeader + Wave("w", "1") + "A a\nb {\n}\n" + Wave("v", "2")), FileCorrupt);
    EXPECT_EQ(m_Log.Text(),
              "Warning : Dumping Unknown Chunk: header: A name: a\n"
              "Error : Missing Bracket '{' after chunk name\n");
    EXPECT_NE(m_Model.FindNode("w"), nullptr);  // what was read before stays
    EXPECT_EQ(m_Model.FindNode("v"), nullptr);
    m_Log.Clear();
    EXPECT_EQ(Load(kHeader + std::string("A a {{ }\n")), FileCorrupt);
    EXPECT_EQ(Load(kHeader + std::string("A a \n")), FileCorrupt);
    EXPECT_EQ(m_Log.Text(),
              "Warning : Dumping Unknown Chunk: header: A name: a\n"
              "Error : Missing Bracket '{' after chunk name\n"
              "Warning : Dumping Unknown Chunk: header: A name: a\n"
              "Error : Missing Bracket '{' after chunk name\n");
}

TEST_F(ContainerText, AFileThatEndsInsideAnUnknownChunkIsFine)
{
    EXPECT_EQ(Load(kHeader + std::string("A a { b { c")), FileOk);
    EXPECT_EQ(Load(kHeader + std::string("A a { b { c\n")), FileOk);
    EXPECT_EQ(Load(kHeader + std::string("A a {")), FileOk);
}

TEST_F(ContainerText, AFileThatEndsInsideAChunksKeyOrNameIsFine)
{
    EXPECT_EQ(Load(kHeader + Wave("w", "1") + "NONLINEAR_WAVE"), FileOk);
    EXPECT_EQ(Load(kHeader + Wave("w", "1") + "NONLINEAR_WAVE v"), FileOk);
    EXPECT_EQ(Load(kHeader + Wave("w", "1") + "NONLINEAR_WAVE\n"), FileOk);
    EXPECT_EQ(m_Log.Text(), "");
    EXPECT_EQ(Load(kHeader + Wave("w", "1") + "NONLINEAR_WAVE v\n"), FileCorrupt);
    EXPECT_EQ(m_Log.Text(), "Error : File IO error, malformed chunk header in chunk \n");
    EXPECT_NE(m_Model.FindNode("w"), nullptr);
}

TEST_F(ContainerText, TheLastLineEndMayBeMissing)
{
    std::string text = kHeader + Wave("w", "1");
    text.pop_back();
    EXPECT_EQ(Load(text), FileOk);
    EXPECT_NE(m_Model.FindNode("w"), nullptr);
    EXPECT_EQ(m_Log.Text(), "");
}

TEST_F(ContainerText, LineEndsOfEitherKindAreWhiteSpace)
{
    std::string text = kHeader + Wave("w", "1");
    for (std::size_t i = 0; (i = text.find('\n', i)) != text.npos; i += 2)
        text.insert(i, 1, '\r');
    EXPECT_EQ(Load(text), FileOk);
    EXPECT_EQ(SaveText(m_Model), kHeader + Wave("w", "1"));
}

TEST_F(ContainerText, ADamagedNodeEndsTheLoadAndWhatCameBeforeIsLinked)
{
    std::string damaged = Wave("v", "2");
    damaged.replace(damaged.find("min_radius"), 10, "mean_radius");
    EXPECT_EQ(Load(kHeader + Wave("w", "9") + damaged + Wave("u", "3")), FileCorrupt);
    EXPECT_EQ(m_Log.Text(),
              "Error : Expected min_radius got mean_radius [.\\src\\VKT\\NonLinearDeformer:2]\n");
    EXPECT_NE(m_Model.FindNode("w"), nullptr);
    EXPECT_EQ(m_Model.FindNode("v"), nullptr);
    EXPECT_EQ(m_Model.FindNode(2u), nullptr);
    EXPECT_EQ(m_Model.FindNode("u"), nullptr);
    EXPECT_EQ(m_Model.CreateNode(kFnBone)->GetID(), 10u);
}

TEST_F(ContainerText, NewerKeysInFrontOfTheClosingBraceAreSkipped)
{
    std::string wave = Wave("w", "1");
    wave.insert(wave.size() - 2, "\tnewer_key 1 2 3\n");
    EXPECT_EQ(Load(kHeader + wave + Wave("v", "2")), FileOk);
    EXPECT_EQ(m_Model.GetNodes().size(), 2u);
    EXPECT_EQ(SaveText(m_Model), kHeader + Wave("v", "2") + Wave("w", "1"));
}

TEST_F(ContainerText, WithoutARegistryEveryChunkIsUnknown)
{
    XFnShutdown();
    EXPECT_EQ(Load(kHeader + Wave("w", "1")), FileOk);
    EXPECT_EQ(m_Log.Text(), "Warning : Dumping Unknown Chunk: header: NONLINEAR_WAVE name: w\n");
}

TEST_F(ContainerText, ALoadReplacesTheDocument)
{
    m_Model.CreateNode(kFnBone);
    m_Model.SetInfo(std::make_unique<XInfo>());
    EXPECT_EQ(Load(kHeader + Wave("w", "1")), FileOk);
    EXPECT_EQ(m_Model.GetNodes().size(), 1u);
    EXPECT_EQ(m_Model.GetInfo(), nullptr);
    EXPECT_EQ(Load("no scene"), FileNotVkt);
    EXPECT_TRUE(m_Model.GetNodes().empty());
}

TEST_F(ContainerText, AStreamThatHasFailedIsNoFile)
{
    std::istringstream in(kHeader);
    in.setstate(std::ios::failbit);
    EXPECT_EQ(m_Model.Load(in, "memory.vkt"), FileNotVkt);
}

TEST_F(ContainerText, APathSaysWhatItLoads)
{
    const TempFile file(".vkt", kHeader + Wave("w", "1"));
    EXPECT_EQ(m_Model.Load(file.Path()), FileOk);
    EXPECT_EQ(m_Log.Text(), "Info : loading \"" + std::string(file.Path()) + "\"\n");
    EXPECT_NE(m_Model.FindNode("w"), nullptr);
}

TEST_F(ContainerText, TheExtensionDecidesWithoutRegardToCase)
{
    for (const char* extension : {".vkt", ".VKT", ".xld", ".Xld", "vkt"}) {
        const TempFile file(extension, kHeader + Wave("w", "1"));
        EXPECT_EQ(m_Model.Load(file.Path()), FileOk) << extension;
        EXPECT_NE(m_Model.FindNode("w"), nullptr) << extension;
    }
}

TEST_F(ContainerText, AForeignExtensionIsRefusedWithoutAMessage)
{
    const TempFile file(".txt", kHeader + Wave("w", "1"));
    EXPECT_EQ(m_Model.Load(file.Path()), FileNotVkt);
    EXPECT_EQ(m_Log.Text(), "Info : loading \"" + std::string(file.Path()) + "\"\n");
    EXPECT_TRUE(m_Model.GetNodes().empty());
    EXPECT_EQ(m_Model.Load(""), FileNotVkt);
}

TEST_F(ContainerText, AMissingFileCannotBeOpened)
{
    EXPECT_EQ(m_Model.Load("/nowhere/at/all.vkt"), FileOpenFailed);
    EXPECT_EQ(m_Log.Text(), "Info : loading \"/nowhere/at/all.vkt\"\n");
}

TEST_F(ContainerText, AFileOfFewerThanFiveBytesIsNoScene)
{
    for (const char* bytes : {"", "|", "|VKT"}) {
        m_Log.Clear();
        const TempFile file(".vkt", bytes);
        EXPECT_EQ(m_Model.Load(file.Path()), FileNotVkt) << bytes;
        const std::string path = file.Path();
        EXPECT_EQ(m_Log.Text(),
                  "Info : loading \"" + path + "\"\nError : File is \"" + path + "\" is not an vkt file\n");
    }
}

std::string Bone(const std::string& name, const std::string& id, const std::string& parent,
                 const std::string& children)
{
    return "BONE " + name + "\n{\n\tid " + id +
           "\n"
           "\tvisible\t1\n"
           "\tscale_pivot\t0 0 0\n"
           "\trotate_pivot\t0 0 0\n"
           "\tmin_bound\t0 0 0\n"
           "\tmax_bound\t0 0 0\n"
           "\tscale\t1 1 1\n"
           "\ttranslate\t1 2 3\n"
           "\trotation_orient\t0 0 0 1\n"
           "\trotation\t0 0 0 1\n"
           "\tjoint_orient\t0 0 0 1\n"
           "\tbind_pose_matrix\n"
           "\t\t1 0 0 0\n"
           "\t\t0 1 0 0\n"
           "\t\t0 0 1 0\n"
           "\t\t1 2 3 1\n"
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
           "\tparent " +
           parent + "\n\tchild_joints " + children + "\n\tINSTANCE_LIST\n\t{\n\t}\n}\n";
}

TEST_F(ContainerText, ALoadBuildsTheMatricesFromTheBindPose)
{
    ASSERT_EQ(Load(kHeader + Bone("top", "1", "0", "1\n\t\t2 ") + Bone("child", "2", "1", "0")), FileOk);
    const XBone* const child = XCast<XBone>(m_Model.FindNode("child"));
    EXPECT_EQ(child->GetTranslate(false), (XVector3{1, 2, 3, 0}));
    EXPECT_EQ(child->GetWorld(false), TranslationMatrix({2, 4, 6, 0}));
    EXPECT_EQ(child->GetWorld(true), TranslationMatrix({2, 4, 6, 0}));
    EXPECT_EQ(child->GetLocal(true), TranslationMatrix({1, 2, 3, 0}));
    EXPECT_EQ(child->GetInverseWorld(true), TranslationMatrix({-2, -4, -6, 0}));
    EXPECT_EQ(SaveText(m_Model), kHeader + Bone("child", "2", "1", "0") + Bone("top", "1", "0", "1\n\t\t2 "));
}

// The inverses of a bone that is too small to have any are those of a fresh pose, in which
// its orient takes part already.
TEST_F(ContainerText, TinyBonesKeepTheInverseOfAFreshPose)
{
    std::string tiny = Bone("tiny", "1", "0", "0");
    for (const auto& [what, with] : {std::pair{"scale\t1 1 1", "scale\t0.01 0.01 0.01"},
                                     std::pair{"rotation_orient\t0 0 0 1", "rotation_orient\t0 0 1 0"}})
        tiny.replace(tiny.find(what), std::string_view(what).size(), with);
    ASSERT_EQ(Load(kHeader + tiny + Bone("other", "2", "0", "0")), FileOk);
    const XBone* const bone = XCast<XBone>(m_Model.FindNode("tiny"));
    EXPECT_EQ(bone->GetWorld(false)[0], -0.01f);
    EXPECT_EQ(bone->GetInverseWorld(false), RotationMatrix({0, 0, -1, 0}));
    EXPECT_EQ(bone->GetInverseWorld(true), RotationMatrix({0, 0, -1, 0}));
    EXPECT_EQ(bone->GetTranslate(false), (XVector3{1, 2, 3, 0}));
    EXPECT_EQ(XCast<XBone>(m_Model.FindNode("other"))->GetInverseWorld(true),
              TranslationMatrix({-1, -2, -3, 0}));
}

TEST_F(ContainerText, RingsOfBonesLoadAndKeepIdentityMatrices)
{
    ASSERT_EQ(Load(kHeader + Bone("a", "1", "3", "1\n\t\t2 ") + Bone("b", "2", "1", "1\n\t\t3 ") +
                   Bone("c", "3", "2", "1\n\t\t1 ") + Bone("self", "4", "4", "1\n\t\t4 ")),
              FileOk);
    for (const char* name : {"a", "b", "c", "self"})
        EXPECT_EQ(XCast<XBone>(m_Model.FindNode(name))->GetWorld(false), kIdentityMatrix) << name;
    const XBone* const a = XCast<XBone>(m_Model.FindNode("a"));
    EXPECT_TRUE(a->HasDescendant(a));
    EXPECT_FALSE(a->HasDescendant(XCast<XBone>(m_Model.FindNode("self"))));
}

TEST_F(ContainerText, ARingBelowARootEndsAfterEachEdgeOnce)
{
    ASSERT_EQ(Load(kHeader + Bone("root", "1", "0", "1\n\t\t2 ") + Bone("b", "2", "1", "2\n\t\t1 2 ")),
              FileOk);
    // root, b below it, root below b, and b below itself: the edge to b is walked.
    EXPECT_EQ(XCast<XBone>(m_Model.FindNode("root"))->GetWorld(false), TranslationMatrix({3, 6, 9, 0}));
    EXPECT_EQ(XCast<XBone>(m_Model.FindNode("b"))->GetWorld(false), TranslationMatrix({3, 6, 9, 0}));
}

TEST_F(ContainerText, ARingThroughARootLeavesOtherRingsAtIdentity)
{
    ASSERT_EQ(Load(kHeader + Bone("a", "1", "0", "1\n\t\t2 ") + Bone("b", "2", "1", "1\n\t\t1 ") +
                   Bone("c", "3", "4", "1\n\t\t4 ") + Bone("d", "4", "3", "1\n\t\t3 ")),
              FileOk);
    EXPECT_EQ(XCast<XBone>(m_Model.FindNode("b"))->GetWorld(true), TranslationMatrix({2, 4, 6, 0}));
    EXPECT_EQ(XCast<XBone>(m_Model.FindNode("a"))->GetWorld(true), TranslationMatrix({3, 6, 9, 0}));
    EXPECT_EQ(XCast<XBone>(m_Model.FindNode("c"))->GetLocal(true), kIdentityMatrix);
    EXPECT_EQ(XCast<XBone>(m_Model.FindNode("d"))->GetLocal(true), kIdentityMatrix);
}

TEST_F(ContainerText, ChildrenThatAreNoBonesOrNotThereAreSteppedOver)
{
    ASSERT_EQ(Load(kHeader + Wave("w", "2") + Bone("root", "1", "0", "4\n\t\t2 99 0 1 ")), FileOk);
    XBoneList children;
    const XBone* const root = XCast<XBone>(m_Model.FindNode("root"));
    EXPECT_TRUE(root->ListChildren(children));  // itself
    EXPECT_EQ(children.size(), 1u);
    EXPECT_EQ(root->GetChildIds(), (XIndexList{2, 99, 0, 1}));
}

}  // namespace
}  // namespace VKT
