#include "export/BoneMatch.h"

#include <gmock/gmock.h>

#include "VKT/deformers/NonLinearBend.h"
#include "apps/export/HandMadeDocument.h"

namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using VKT::XBone;

class BoneMatch : public HandMadeDocument {
protected:
    // "node=bone", in the order of the match.
    std::vector<std::string> Pairs(bool selectedOnly = false)
    {
        const tool::BoneMatch match = tool::MatchBones(Root(), m_Document, selectedOnly);
        m_Missing.clear();
        for (INode* node : match.missing)
            m_Missing.push_back(node->GetName());
        std::vector<std::string> pairs;
        for (const tool::PlacedNode& placed : match.nodes)
            pairs.push_back(std::string(placed.node->GetName()) + "=" + placed.bone->GetName());
        return pairs;
    }

    const std::string kRoot = std::string(Root().GetName()) + "=" + m_RootBone.GetName();
    std::vector<std::string> m_Missing;
};

TEST_F(BoneMatch, HandlesOfDeformersAreNoNodes)
{
    INode& bent = Node("bent");
    Node("BendHandle", &bent);
    XBone& bentBone = Bone("bent", &m_RootBone);
    // In an export of a selection the handle stands before the children.
    XBone& handle = Bone("BendHandle", &bentBone);
    Bone("BendHandle1", &bentBone);
    auto* bend = VKT::XCast<VKT::XNonLinearBend>(m_Document.CreateNode(VKT::kFnNonLinearBend));
    bend->SetHandle(&handle);
    EXPECT_THAT(Pairs(), ElementsAre(kRoot, "bent=bent", "BendHandle=BendHandle1"));
    EXPECT_THAT(m_Missing, IsEmpty());
}

TEST_F(BoneMatch, BonesThatStrangersMadeArePassedOver)
{
    INode& arm = Node("arm");
    Node("hand", &arm);
    XBone& armBone = Bone("arm", &m_RootBone);
    Bone("something", &armBone);
    Bone("hand", &armBone);
    EXPECT_THAT(Pairs(), ElementsAre(kRoot, "arm=arm", "hand=hand"));
}

// A skin makes its bones before the walk comes to them.
TEST_F(BoneMatch, OrderOfBonesDoesNotMatter)
{
    INode& mesh = Node("mesh");
    INode& hip = Node("hip");
    Node("leg", &hip);
    XBone& hipBone = Bone("hip", &m_RootBone);
    Bone("leg", &hipBone);
    Bone("mesh", &m_RootBone);
    EXPECT_THAT(Pairs(), ElementsAre(kRoot, "mesh=mesh", "hip=hip", "leg=leg"));
    (void)mesh;
}

TEST_F(BoneMatch, NamesThatAreTakenHaveNumbers)
{
    INode& left = Node("left side");
    INode& right = Node("right");
    Node("arm", &left);
    Node("arm", &left);
    Node("arm", &right);
    Node("arm1", &right);
    XBone& leftBone = Bone("left side", &m_RootBone);
    XBone& rightBone = Bone("right", &m_RootBone);
    Bone("arm", &leftBone);
    Bone("arm", &leftBone);
    Bone("arm", &rightBone);
    Bone("arm1", &rightBone);
    EXPECT_THAT(Pairs(), ElementsAre(kRoot, "left side=left_side", "arm=arm", "arm=arm1", "right=right",
                                     "arm=arm2", "arm1=arm11"));
}

TEST_F(BoneMatch, NodesWithoutABoneAreToldAndTheOthersMatched)
{
    Node("gone");
    Node("there");
    Bone("there", &m_RootBone);
    EXPECT_THAT(Pairs(), ElementsAre(kRoot, "there=there"));
    EXPECT_THAT(m_Missing, ElementsAre("gone"));
}

TEST_F(BoneMatch, OfASelectionTheRestMayHaveBones)
{
    INode& hip = Node("hip");
    INode& leg = Node("leg", &hip);
    INode& foot = Node("foot", &leg);
    Node("other");
    Select(leg);
    Select(foot);
    m_Document.Clear();
    XBone& legBone = Bone("leg");
    Bone("foot", &legBone);
    EXPECT_THAT(Pairs(true), ElementsAre("leg=leg", "foot=foot"));
    EXPECT_THAT(m_Missing, IsEmpty());
    // Now as the influence of a skin made it: with the bone above it.
    m_Document.Clear();
    XBone& hipBone = Bone("hip");
    XBone& lowerLeg = Bone("leg", &hipBone);
    Bone("foot", &lowerLeg);
    EXPECT_THAT(Pairs(true), ElementsAre("hip=hip", "leg=leg", "foot=foot"));
}

// "arm" has no bone, and must not take that of "arm1".
TEST_F(BoneMatch, ANodeThatNeedsNoBoneTakesNoNumberedOne)
{
    Node("arm");
    Select(Node("arm1"));
    m_Document.Clear();
    Bone("arm1");
    EXPECT_THAT(Pairs(true), ElementsAre("arm1=arm1"));
}

}  // namespace
