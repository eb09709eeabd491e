#include "HostTest.h"

#include <random>

#include "host/core/WorldCache.h"

namespace {

using maxhost::MakeNode;
using maxhost::Track;

class NodeTest : public HostTest {};

TEST_F(NodeTest, TheRootIsANodeOfItsOwn)
{
    INode* root = Core().GetRootNode();
    EXPECT_STREQ(root->GetName(), "Scene Root");
    EXPECT_TRUE(root->IsRootNode());
    EXPECT_EQ(root->GetParentNode(), nullptr);
    EXPECT_EQ(root->GetObjectRef(), nullptr);
    EXPECT_EQ(root->EvalWorldState(0).obj, nullptr);
    EXPECT_TRUE(root->GetNodeTM(0) == Matrix3(TRUE));
}

TEST_F(NodeTest, AnswersItselfForTheNodeInterface)
{
    INode* node = MakeNode("n");
    ReferenceTarget* target = node;
    EXPECT_EQ(static_cast<INode*>(target->GetInterface(INODE_INTERFACE)), node);
    ReferenceTarget* other = NewDefaultStdMat();
    EXPECT_EQ(other->GetInterface(INODE_INTERFACE), nullptr);
}

TEST_F(NodeTest, WorldIsLocalTimesParent)
{
    INode* parent = MakeNode("parent");
    INode* child = MakeNode("child", nullptr, parent);
    maxhost::SetRotation(*parent, Point3(0.0f, 0.0f, 1.57079633f));
    maxhost::SetPosition(*parent, Point3(10, 0, 0));
    maxhost::SetPosition(*child, Point3(0, 2, 0));
    ExpectNear(child->GetNodeTM(0).GetTrans(), Point3(8, 0, 0));
    ExpectNear(child->GetParentTM(0), parent->GetNodeTM(0));
}

TEST_F(NodeTest, APointIsScaledFirstAndMovedLast)
{
    INode* node = MakeNode("n");
    maxhost::SetScale(*node, Point3(2, 1, 1));
    maxhost::SetRotation(*node, Point3(0.0f, 0.0f, 1.57079633f));
    maxhost::SetPosition(*node, Point3(0, 0, 5));
    ExpectNear(Point3(1, 0, 0) * node->GetNodeTM(0), Point3(0, 2, 5));
}

TEST_F(NodeTest, TheObjectOffsetStandsBeforeTheNode)
{
    INode* node = MakeNode("n");
    maxhost::SetRotation(*node, Point3(0.3f, 0.2f, 0.1f));
    maxhost::SetPosition(*node, Point3(1, 2, 3));
    const Quat turn(AngAxis(Point3(0.0f, 0.6f, 0.8f), 0.5f));
    node->SetObjOffsetPos(Point3(4, 5, 6));
    node->SetObjOffsetRot(turn);
    node->SetObjOffsetScale(ScaleValue(Point3(2, 3, 4)));

    Matrix3 rotation;
    turn.MakeMatrix(rotation);
    const Matrix3 expected =
        ScaleMatrix(Point3(2, 3, 4)) * rotation * TransMatrix(Point3(4, 5, 6)) * node->GetNodeTM(0);
    ExpectNear(node->GetObjectTM(0), expected, 1e-4f);
}

TEST_F(NodeTest, SetNodeTMIsWorldAndComesBack)
{
    INode* parent = MakeNode("parent");
    maxhost::SetRotation(*parent, Point3(0.5f, 0.6f, 0.7f));
    maxhost::SetScale(*parent, Point3(2, 2, 2));
    INode* child = MakeNode("child", nullptr, parent);
    Matrix3 tm = RotateXMatrix(1.0f) * TransMatrix(Point3(3, 4, 5));
    tm.PreScale(Point3(1, 2, 3));
    child->SetNodeTM(0, tm);
    ExpectNear(child->GetNodeTM(0), tm, 1e-4f);
}

TEST_F(NodeTest, MatricesWithShearOrMirrorComeBack)
{
    std::mt19937 random(5);
    std::uniform_real_distribution<float> value(-2.0f, 2.0f);
    for (int i = 0; i < 200; ++i) {
        const auto row = [&] { return Point3(value(random), value(random), value(random)); };
        Matrix3 tm(row(), row(), row(), row());
        INode* node = MakeNode("n");
        node->SetNodeTM(0, tm);
        ExpectNear(node->GetNodeTM(0), tm, 2e-4f);
    }
}

TEST_F(NodeTest, AMatrixWithoutExtentComesBack)
{
    for (const Point3& scale : {Point3(0, 2, 3), Point3(2, 0, 0), Point3(0, 0, 0)}) {
        INode* node = MakeNode("n");
        Matrix3 tm = RotateXMatrix(0.4f) * RotateYMatrix(0.3f);
        tm.PreScale(scale);
        node->SetNodeTM(0, tm);
        ExpectNear(node->GetNodeTM(0), tm);
    }
}

TEST_F(NodeTest, ScaleOfATurnedMatrixHasNoAxesOfItsOwn)
{
    INode* node = MakeNode("n");
    Matrix3 tm = RotateXMatrix(0.4f) * RotateYMatrix(0.3f) * RotateZMatrix(2.0f);
    tm.PreScale(Point3(2, 2, 3));
    node->SetNodeTM(0, tm);
    ScaleValue scale;
    Interval valid = FOREVER;
    node->GetTMController()->GetScaleController()->GetValue(0, &scale, valid);
    EXPECT_TRUE(scale.q == Quat());
    ExpectNear(scale.s, Point3(2, 2, 3));
}

TEST_F(NodeTest, KeysMoveTheNodeAndTheOnesBelow)
{
    INode* parent = MakeNode("parent");
    INode* child = MakeNode("child", nullptr, parent);
    maxhost::AddKey(*parent, Track::PositionX, 0, 0.0f);
    maxhost::AddKey(*parent, Track::PositionX, 1600, 10.0f);
    maxhost::SetPosition(*child, Point3(0, 1, 0));
    Interval valid = FOREVER;
    ExpectNear(child->GetNodeTM(800, &valid).GetTrans(), Point3(5, 1, 0));
    EXPECT_TRUE(valid == Interval(800, 800));
    ExpectNear(child->GetNodeTM(0).GetTrans(), Point3(0, 1, 0));
    ExpectNear(child->GetNodeTM(9999).GetTrans(), Point3(10, 1, 0));
    ExpectNear(child->GetNodeTM(800).GetTrans(), Point3(5, 1, 0));
}

TEST_F(NodeTest, AChangeReachesWhatWasEvaluatedBelow)
{
    INode* top = MakeNode("top");
    INode* middle = MakeNode("middle", nullptr, top);
    INode* bottom = MakeNode("bottom", nullptr, middle);
    ExpectNear(bottom->GetNodeTM(0).GetTrans(), Point3(0, 0, 0));
    maxhost::SetPosition(*top, Point3(1, 0, 0));
    ExpectNear(bottom->GetNodeTM(0).GetTrans(), Point3(1, 0, 0));
    maxhost::AddKey(*middle, Track::PositionY, 0, 7.0f);
    ExpectNear(bottom->GetNodeTM(0).GetTrans(), Point3(1, 7, 0));
    Control* controller = static_cast<Control*>(
        Core().CreateInstance(CTRL_MATRIX3_CLASS_ID, Class_ID(PRS_CONTROL_CLASS_ID, 0)));
    top->SetTMController(controller);
    ExpectNear(bottom->GetNodeTM(0).GetTrans(), Point3(0, 7, 0));
}

TEST_F(NodeTest, ATransformControllerIsSetByAPacketWhateverTheMethod)
{
    INode* parent = MakeNode("parent");
    maxhost::SetPosition(*parent, Point3(5, 0, 0));
    INode* child = MakeNode("child", nullptr, parent);
    const Matrix3 world = RotateZMatrix(0.5f) * TransMatrix(Point3(1, 2, 3));
    for (const GetSetMethod method : {CTRL_ABSOLUTE, CTRL_RELATIVE}) {
        SetXFormPacket packet(world, parent->GetNodeTM(0));
        EXPECT_EQ(packet.command, static_cast<DWORD>(XFORM_SET));
        child->GetTMController()->SetValue(0, &packet, 1, method);
        ExpectNear(child->GetNodeTM(0), world);
    }
    SetXFormPacket local(TransMatrix(Point3(1, 0, 0)));
    child->GetTMController()->SetValue(0, &local);
    ExpectNear(child->GetNodeTM(0).GetTrans(), Point3(6, 0, 0));
}

TEST_F(NodeTest, AttachingKeepsTheWorldMatrixOnRequest)
{
    INode* parent = MakeNode("parent");
    maxhost::SetPosition(*parent, Point3(5, 0, 0));
    INode* kept = MakeNode("kept");
    INode* moved = MakeNode("moved");
    maxhost::SetPosition(*kept, Point3(1, 1, 1));
    maxhost::SetPosition(*moved, Point3(1, 1, 1));
    parent->AttachChild(kept);
    parent->AttachChild(moved, 0);
    ExpectNear(kept->GetNodeTM(0).GetTrans(), Point3(1, 1, 1));
    ExpectNear(moved->GetNodeTM(0).GetTrans(), Point3(6, 1, 1));
    EXPECT_EQ(parent->NumberOfChildren(), 2);
    moved->Detach(0);
    EXPECT_EQ(moved->GetParentNode(), Core().GetRootNode());
    ExpectNear(moved->GetNodeTM(0).GetTrans(), Point3(6, 1, 1));
}

TEST_F(NodeTest, AttachingDoesNotMakeARing)
{
    INode* top = MakeNode("top");
    INode* below = MakeNode("below", nullptr, top);
    below->AttachChild(top);
    top->AttachChild(top);
    EXPECT_EQ(top->GetParentNode(), Core().GetRootNode());
    EXPECT_EQ(below->GetParentNode(), top);
}

TEST_F(NodeTest, ChildrenKeepTheirOrderWhenOneLeaves)
{
    INode* a = MakeNode("a");
    INode* b = MakeNode("b");
    INode* c = MakeNode("c");
    a->AttachChild(b);
    INode* root = Core().GetRootNode();
    ASSERT_EQ(root->NumberOfChildren(), 2);
    EXPECT_EQ(root->GetChildNode(0), a);
    EXPECT_EQ(root->GetChildNode(1), c);
    a->AttachChild(c);
    EXPECT_EQ(root->NumberOfChildren(), 1);
    EXPECT_EQ(a->GetChildNode(1), c);
}

TEST_F(NodeTest, DeletingANodeLeavesItsChildrenWhereTheyStand)
{
    INode* parent = MakeNode("parent");
    INode* child = MakeNode("child", nullptr, parent);
    maxhost::SetPosition(*parent, Point3(5, 0, 0));
    Core().SelectNode(parent);
    Core().DeleteNode(parent);
    EXPECT_EQ(child->GetParentNode(), Core().GetRootNode());
    ExpectNear(child->GetNodeTM(0).GetTrans(), Point3(5, 0, 0));
    EXPECT_EQ(Core().GetSelNodeCount(), 0);
    EXPECT_EQ(Core().GetINodeByName("parent"), nullptr);
}

TEST_F(NodeTest, SelectionIsKnownToNodesAndTheHost)
{
    INode* a = MakeNode("a");
    INode* b = MakeNode("b");
    Core().SelectNode(a);
    Core().SelectNode(b, 0);
    EXPECT_TRUE(a->Selected());
    EXPECT_EQ(Core().GetSelNodeCount(), 2);
    EXPECT_EQ(Core().GetSelNode(1), b);
    Core().SelectNode(b);
    EXPECT_FALSE(a->Selected());
    EXPECT_EQ(Core().GetSelNodeCount(), 1);
    Core().ClearNodeSelection();
    EXPECT_FALSE(b->Selected());
}

TEST_F(NodeTest, KeepsItsSettings)
{
    INode* node = MakeNode("n");
    EXPECT_FALSE(node->IsHidden());
    EXPECT_EQ(node->GetVisibility(0), 1.0f);
    EXPECT_FALSE(node->GetBoneNodeOnOff());
    node->Hide(TRUE);
    node->SetVisibility(0, 0.25f);
    node->SetWireColor(RGB(1, 2, 3));
    node->SetBoneNodeOnOff(TRUE, 0);
    EXPECT_TRUE(node->IsHidden());
    EXPECT_EQ(node->GetVisibility(100), 0.25f);
    EXPECT_EQ(node->GetWireColor(), 0x030201u);
    EXPECT_TRUE(node->GetBoneNodeOnOff());
    EXPECT_NE(node->GetHandle(), MakeNode("other")->GetHandle());
}

TEST_F(NodeTest, ANewNodeIsNamedAfterItsObjectsClass)
{
    INode* node = Core().CreateObjectNode(maxhost::MakeBox(Point3(1, 1, 1)));
    EXPECT_STREQ(node->GetName(), "Editable Poly01");
    EXPECT_EQ(Core().GetINodeByName("Editable Poly01"), node);
}

// Everything below takes linear time; done node by node through all ancestors, or by
// recursion, these would run for minutes or out of stack.

constexpr int kMany = 100000;

TEST_F(NodeTest, ADeepChainIsBuiltEvaluatedAndFreed)
{
    std::vector<INode*> chain;
    for (int i = 0; i < kMany; ++i) {
        chain.push_back(MakeNode("n", nullptr, chain.empty() ? nullptr : chain.back()));
        Matrix3 tm = TransMatrix(Point3(0.0f, 0.0f, static_cast<float>(i)));
        chain.back()->SetNodeTM(0, tm);
    }
    ExpectNear(chain.back()->GetNodeTM(0).GetTrans(), Point3(0.0f, 0.0f, kMany - 1.0f));
    maxhost::SetPosition(*chain.front(), Point3(1, 0, 0));
    for (INode* node : chain)
        ASSERT_EQ(node->GetNodeTM(0).GetTrans().x, 1.0f);
    EXPECT_EQ(Core().GetINodeByName("missing"), nullptr);
}

TEST_F(NodeTest, AnAnimatedDeepChainIsSampledNodeAfterNode)
{
    std::vector<INode*> chain;
    for (int i = 0; i < 4000; ++i)
        chain.push_back(MakeNode("n", nullptr, chain.empty() ? nullptr : chain.back()));
    maxhost::AddKey(*chain.front(), Track::PositionX, 0, 0.0f);
    maxhost::AddKey(*chain.front(), Track::PositionX, 16000, 100.0f);
    for (INode* node : chain)
        for (int frame = 0; frame <= 100; ++frame)
            ASSERT_NEAR(node->GetNodeTM(frame * 160).GetTrans().x, static_cast<float>(frame), 1e-3f);
}

TEST_F(NodeTest, AWideFanIsMovedToAnotherParent)
{
    std::vector<INode*> fan;
    for (int i = 0; i < kMany; ++i)
        fan.push_back(MakeNode("n"));
    INode* parent = MakeNode("parent");
    for (INode* node : fan)
        parent->AttachChild(node);
    EXPECT_EQ(Core().GetRootNode()->NumberOfChildren(), 1);
    ASSERT_EQ(parent->NumberOfChildren(), kMany);
    EXPECT_EQ(parent->GetChildNode(12345), fan[12345]);
}

TEST(WorldCache, ForgetsTheLongestUntouchedBeyondItsLimit)
{
    maxhost::WorldCachePool pool(3);
    maxhost::WorldCache a(pool), b(pool), c(pool);
    const auto entry = [](TimeValue t) { return maxhost::WorldCache::Entry{Interval(t, t), Matrix3(TRUE)}; };
    a.Add(1, entry(1));
    b.Add(1, entry(1));
    a.Add(2, entry(2));
    c.Add(1, entry(1));
    EXPECT_EQ(b.Find(1), nullptr);
    EXPECT_NE(a.Find(1), nullptr);
    EXPECT_EQ(pool.CountEntries(), 3u);
    c.Add(2, entry(2));
    EXPECT_EQ(a.Find(2), nullptr);
    EXPECT_NE(c.Find(1), nullptr);
    EXPECT_EQ(pool.CountEntries(), 2u);
    c.Clear();
    EXPECT_EQ(pool.CountEntries(), 0u);
}

TEST(WorldCache, NewEntriesDoNotReachIntoOldOnes)
{
    maxhost::WorldCachePool pool(10);
    maxhost::WorldCache cache(pool);
    cache.Add(50, {Interval(40, 60), TransMatrix(Point3(1, 0, 0))});
    cache.Add(10, {Interval(0, 45), TransMatrix(Point3(2, 0, 0))});
    cache.Add(70, {FOREVER, TransMatrix(Point3(3, 0, 0))});
    EXPECT_EQ(cache.Find(39)->tm.GetTrans().x, 2.0f);
    EXPECT_EQ(cache.Find(40)->tm.GetTrans().x, 1.0f);
    EXPECT_EQ(cache.Find(61)->tm.GetTrans().x, 3.0f);
    EXPECT_EQ(cache.Find(-1), nullptr);
}

}  // namespace
