#include "VKT/animation/AnimCycle.h"
#include "VKT/animation/AnimationTake.h"
#include "VKT/hierarchy/Bone.h"
#include "VKT/support/BinaryFile.h"
#include "VKT/support/NodeTest.h"

// Cycles and takes in a document and in its files.

using namespace VKT;
using namespace VKT::Test;

namespace {

constexpr const char kTextMark[] = "|VKT_004A#0000#00000000|\n";
constexpr const char kCycle[] =
    "ANIM_CYCLE \"walk\"\n{\n\tnum_bones 0\n\tstart 1\n\tend 2\n\tnum_frames 0\n\tfps 24\n}\n";
constexpr const char kSecondCycle[] =
    "ANIM_CYCLE \"run\"\n{\n\tnum_bones 0\n\tstart 3\n\tend 4\n\tnum_frames 0\n\tfps 25\n}\n";
constexpr const char kTake[] =
    "ANIMATION_TAKE jump\n{\n\tid 7\n\tstart_time 1\n\tend_time 2\n\tfps 24\n\tcurrent_time 1\n"
    "\tnum_animated_nodes 0\n\tnum_event_tracks 0\n}\n";

class ContainerAnimation : public NodeTest {
protected:
    void SetUp() override { m_Log.Clear(); }
};

TEST_F(ContainerAnimation, CyclesHaveIdsAndAreNoNodes)
{
    XBone* const bone = m_Model.CreateNode<XBone>();
    XAnimCycle* const cycle = m_Model.CreateNode<XAnimCycle>();
    XAnimCycle* const second = m_Model.CreateNode<XAnimCycle>();
    XBone* const last = m_Model.CreateNode<XBone>();
    EXPECT_EQ(cycle->GetID(), 2u);
    EXPECT_STREQ(cycle->GetName(), "");
    EXPECT_EQ(last->GetID(), 4u);
    EXPECT_STREQ(last->GetName(), "node2") << "cycles use no names up";
    ASSERT_EQ(m_Model.GetCycles().size(), 2u);
    EXPECT_EQ(m_Model.GetCycles()[1].get(), second);
    EXPECT_EQ(m_Model.FindNode(2), nullptr);
    EXPECT_FALSE(m_Model.HasNode(2));
    EXPECT_EQ(m_Model.GetNodes().size(), 2u);
    XNodeList list;
    EXPECT_FALSE(m_Model.List(list, kFnAnimCycle));
    EXPECT_TRUE(m_Model.IsValid(cycle));
    EXPECT_TRUE(m_Model.IsValid(bone));
    const XAnimCycle stranger(&m_Model);
    EXPECT_FALSE(m_Model.IsValid(&stranger));
    m_Model.Clear();
    EXPECT_TRUE(m_Model.GetCycles().empty());
    EXPECT_EQ(m_Model.CreateNode<XAnimCycle>()->GetID(), 1u);
}

TEST_F(ContainerAnimation, NamesOfCyclesGiveWayToNodesAlone)
{
    XBone* const bone = m_Model.CreateNode<XBone>();
    bone->SetName("walk");
    XAnimCycle* const cycle = m_Model.CreateNode<XAnimCycle>();
    EXPECT_EQ(m_Model.SetName(cycle, "a walk"), "a_walk");
    EXPECT_EQ(m_Model.SetName(cycle, "walk"), "walk1");
    EXPECT_EQ(m_Model.SetName(m_Model.CreateNode<XAnimCycle>(), "walk1"), "walk1") << "cycles share names";
    EXPECT_EQ(m_Model.SetName(bone, "walk1"), "walk1") << "nor do nodes mind them";
    EXPECT_EQ(m_Model.FindNode("walk1"), bone);
}

TEST_F(ContainerAnimation, CloneOfACycleIsACycle)
{
    ASSERT_EQ(LoadText(m_Model, std::string(kTextMark) + kCycle), FileOk);
    const XBase* const clone = m_Model.GetCycles()[0]->Clone();
    ASSERT_EQ(m_Model.GetCycles().size(), 2u);
    EXPECT_EQ(m_Model.GetCycles()[1].get(), clone);
    EXPECT_EQ(TextOf(*clone), kCycle);
}

TEST_F(ContainerAnimation, CyclesStandBehindAllNodes)
{
    ASSERT_EQ(LoadText(m_Model, std::string(kTextMark) + kCycle + kTake + kSecondCycle), FileOk);
    ASSERT_EQ(m_Model.GetCycles().size(), 2u);
    EXPECT_EQ(m_Model.GetCycles()[0]->GetID(), 0u) << "texts hold no ids of cycles";
    EXPECT_EQ(SaveText(m_Model), std::string(kTextMark) + kTake + kCycle + kSecondCycle);
    const std::string bytes = SaveBinaryBytes(m_Model);
    XModel fromBytes;
    ASSERT_EQ(LoadBytes(fromBytes, bytes), FileOk);
    EXPECT_EQ(SaveText(fromBytes), SaveText(m_Model));
    EXPECT_EQ(SaveBinaryBytes(fromBytes), bytes);
}

TEST_F(ContainerAnimation, CyclesAreLeftOutOfASaveByTheirFlag)
{
    ASSERT_EQ(LoadText(m_Model, std::string(kTextMark) + kTake + kCycle), FileOk);
    m_Model.GetSaveFlags().Clear(SaveAnimCycles);
    EXPECT_EQ(SaveText(m_Model), std::string(kTextMark) + kTake);
    XModel fromBytes;
    ASSERT_EQ(LoadBytes(fromBytes, SaveBinaryBytes(m_Model)), FileOk);
    EXPECT_TRUE(fromBytes.GetCycles().empty());
    EXPECT_NE(fromBytes.FindNode("jump"), nullptr);
}

TEST_F(ContainerAnimation, CyclesAreLeftOutOfALoadOnRequest)
{
    const std::string text = std::string(kTextMark) + kCycle + kTake;
    ASSERT_EQ(LoadText(m_Model, text), FileOk);
    for (const std::string& bytes : {text, SaveBinaryBytes(m_Model)}) {
        m_Log.Clear();
        const TempFile file(".vkt", bytes);
        ASSERT_EQ(m_Model.Load(file.Path(), false), FileOk);
        EXPECT_TRUE(m_Model.GetCycles().empty());
        EXPECT_NE(m_Model.FindNode("jump"), nullptr) << "takes stay";
        EXPECT_EQ(m_Model.GetLoadReport().GetChunks().GetCount(), 0u)
            << "nothing was dropped against the caller's will";
        const bool isText = bytes == text;
        EXPECT_EQ(
            m_Log.Text().find("Dumping Unknown Chunk: header: ANIM_CYCLE name: walk") != std::string::npos,
            isText);
    }
}

TEST_F(ContainerAnimation, BadCycleOrTakeEndsATextLoad)
{
    const std::string cycle = Replaced(kCycle, "fps", "rate");
    EXPECT_EQ(LoadText(m_Model, std::string(kTextMark) + kTake + cycle), FileCorrupt);
    EXPECT_TRUE(m_Model.GetCycles().empty());
    EXPECT_NE(m_Model.FindNode("jump"), nullptr);
    EXPECT_EQ(LoadText(m_Model, std::string(kTextMark) + kCycle + Replaced(kTake, "fps", "rate")),
              FileCorrupt);
    EXPECT_EQ(m_Model.GetCycles().size(), 1u);
    EXPECT_EQ(m_Model.FindNode("jump"), nullptr);
}

TEST_F(ContainerAnimation, BadCycleCostsItselfAloneInABinaryFile)
{
    ASSERT_EQ(LoadText(m_Model, std::string(kTextMark) + kCycle), FileOk);
    const std::string body = BodyOf(*m_Model.GetCycles()[0]);
    const std::string bad = Replaced(body, Word(0, 8), Word(0x7FFFFFFF, 4) + Word(0, 4));
    XModel model;
    ASSERT_EQ(LoadBytes(model, Start() + Chunk(133, bad) + Chunk(133, body)), FileOk);
    ASSERT_EQ(model.GetCycles().size(), 1u);
    EXPECT_EQ(TextOf(*model.GetCycles()[0]), kCycle);
    EXPECT_EQ(model.GetLoadReport().GetChunks().GetCount(), 1u);
}

TEST_F(ContainerAnimation, CyclesWithExtraAttributesComeBackFromBinary)
{
    XAnimCycle* const cycle = m_Model.CreateNode<XAnimCycle>();
    cycle->CreateExtraAttribute("note");
    XModel model;
    ASSERT_EQ(LoadBytes(model, SaveBinaryBytes(m_Model)), FileOk);
    ASSERT_EQ(model.GetCycles().size(), 1u);
    EXPECT_NE(model.GetCycles()[0]->GetExtraAttribute("note"), nullptr);
}

TEST_F(ContainerAnimation, NewIdsGoOnBehindTheNodes)
{
    XModel model;
    ASSERT_EQ(LoadText(model, std::string(kTextMark) + kCycle + kTake), FileOk);
    EXPECT_EQ(model.CreateNode<XBone>()->GetID(), 8u);
}

TEST_F(ContainerAnimation, IdsOfCyclesAreNotGivenAgainWhenAllAreUsedUp)
{
    ASSERT_EQ(LoadText(m_Model, std::string(kTextMark) + Replaced(kTake, "id 7", "id 4294967295")), FileOk);
    EXPECT_EQ(m_Model.CreateNode<XAnimCycle>()->GetID(), 1u);
    EXPECT_EQ(m_Model.CreateNode<XBone>()->GetID(), 2u);
}

TEST_F(ContainerAnimation, DeletedBonesLeaveTheCycles)
{
    XBone* const bone = m_Model.CreateNode<XBone>();
    XAnimCycle* const cycle = m_Model.CreateNode<XAnimCycle>();
    cycle->AddBoneAnim(bone->GetID());
    cycle->AddBoneAnim(77);
    cycle->AddCurveList("lamp", bone->GetID());
    EXPECT_TRUE(m_Model.DeleteNode(bone->GetID()));
    EXPECT_EQ(cycle->GetBoneAnims().size(), 1u);
    EXPECT_TRUE(cycle->GetCurveLists().empty());
}

TEST_F(ContainerAnimation, TextThatPadsWithoutEndIsRefused)
{
    XAnimCycle* const cycle = m_Model.CreateNode<XAnimCycle>();
    cycle->SetFrameRange(0, 0, 4000000000u);
    EXPECT_NE(SaveText(m_Model), "") << "no table, no padding";
    cycle->AddBoneAnim(1);
    m_Log.Clear();
    EXPECT_EQ(SaveText(m_Model), "");
    EXPECT_EQ(m_Log.Text(), "Error : the document's cycles claim more frames than their tables hold\n");
    const TempFile file;
    EXPECT_EQ(m_Model.Save(file.Path()), FileCorrupt);
    EXPECT_FALSE(std::filesystem::exists(file.Path()));
}

TEST_F(ContainerAnimation, TakesAreNodesLikeOthers)
{
    ASSERT_EQ(LoadText(m_Model, std::string(kTextMark) + Replaced(kTake, "jump", "\"ju/mp\"")), FileOk);
    EXPECT_NE(XCast<XAnimationTake>(m_Model.FindNode("jump")), nullptr);
    EXPECT_EQ(SaveText(m_Model), std::string(kTextMark) + kTake);
}

}  // namespace
