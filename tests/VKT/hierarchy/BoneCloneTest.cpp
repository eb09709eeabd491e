#include <new>

#include "VKT/geometry/PolygonMesh.h"
#include "VKT/hierarchy/Joint.h"
#include "VKT/node/FnRegistry.h"
#include "VKT/support/NodeTest.h"

// Clones of whole hierarchies, damaged ones included.

using namespace VKT;
using namespace VKT::Test;

namespace {

class BoneClone : public NodeTest {
protected:
    XBone& Bone(const char* name, XBone* parent = nullptr)
    {
        XBone& bone = *m_Model.CreateNode<XBone>();
        bone.SetName(name);
        if (parent)
            parent->AddChild(&bone);
        return bone;
    }
    // Names of the bones below, depth first, with a brace around the children of each.
    std::string TreeOf(const XBone& bone)
    {
        std::string text = bone.GetName();
        XBoneList children;
        if (bone.ListChildren(children)) {
            text += '(';
            for (const XBone* child : children)
                text += TreeOf(*child) + ' ';
            text.back() = ')';
        }
        return text;
    }
    // Gives a bone the children of these ids, whatever they are, as a file can.
    void SetChildren(XBone& bone, const std::string& count, const std::string& ids)
    {
        std::string text = TextOf(bone);
        text.replace(text.find("\tchild_joints "),
                     text.find("\tINSTANCE_LIST") - text.find("\tchild_joints "),
                     "\tchild_joints " + count + "\n\t\t" + ids + "\n");
        ASSERT_TRUE(ReadText(bone, text));
    }
};

TEST_F(BoneClone, TheTreeIsCopiedDepthFirst)
{
    XBone& top = Bone("top");
    XBone& left = Bone("left", &top);
    Bone("right", &top);
    Bone("a", &left);
    Bone("b", &left);
    const XBone& copy = *XCast<XBone>(top.Clone());
    EXPECT_EQ(TreeOf(copy), "top1(left1(a1 b1) right1)");
    EXPECT_EQ(copy.GetID(), 6u);
    EXPECT_EQ(m_Model.FindNode("left1")->GetID(), 7u);
    EXPECT_EQ(m_Model.FindNode("a1")->GetID(), 8u);
    EXPECT_EQ(m_Model.FindNode("right1")->GetID(), 10u);
    EXPECT_EQ(TreeOf(top), "top(left(a b) right)");
    EXPECT_TRUE(m_Model.GetCopyFlags().Test(CopyParent));
    EXPECT_TRUE(m_Model.GetCopyFlags().Test(CopyChildren));
    EXPECT_TRUE(m_Model.GetCopyFlags().Test(CopyInstances));
    EXPECT_EQ(m_Log.Text(), "");
}

TEST_F(BoneClone, EachCopyIsOfItsSourcesClass)
{
    XBone& top = Bone("top");
    XJoint& joint = *m_Model.CreateNode<XJoint>();
    joint.SetName("knee");
    top.AddChild(&joint);
    top.Clone();
    EXPECT_EQ(m_Model.FindNode("knee1")->GetApiType(), kFnJoint);
}

TEST_F(BoneClone, InstancesOfTheChildrenAreMadeAheadOfThoseOfTheirParent)
{
    m_Model.GetCopyFlags().Clear(CopyShareInstances);
    XBone& top = Bone("top");
    XBone& child = Bone("child", &top);
    XPolygonMesh& mesh = *m_Model.CreateNode<XPolygonMesh>();
    m_Model.CreateInstance(&top, &mesh);
    m_Model.CreateInstance(&child, &mesh);
    const XBone& copy = *XCast<XBone>(top.Clone());
    EXPECT_EQ(copy.GetInstanceIds(), XIndexList{4});
    EXPECT_EQ(XCast<XBone>(m_Model.FindNode("child1"))->GetInstanceIds(), XIndexList{3});
}

TEST_F(BoneClone, ARingIsCopiedOnce)
{
    XBone& a = Bone("a");
    XBone& b = Bone("b", &a);
    SetChildren(b, "2", "1 2");  // its parent and itself
    const XBone& copy = *XCast<XBone>(a.Clone());
    EXPECT_EQ(TreeOf(copy), "a1(b1)");
    EXPECT_EQ(m_Model.GetNodes().size(), 4u);
}

TEST_F(BoneClone, AChildUnderTwoParentsIsCopiedUnderTheFirst)
{
    XBone& top = Bone("top");
    XBone& left = Bone("left", &top);
    XBone& right = Bone("right", &top);
    Bone("shared", &left);
    SetChildren(right, "2", "4 4");
    EXPECT_EQ(TreeOf(*XCast<XBone>(top.Clone())), "top1(left1(shared1) right1)");
}

TEST_F(BoneClone, ABoneThatIsItsOwnParentIsCopiedOnce)
{
    XBone& self = Bone("self");
    std::string text = TextOf(self);
    ASSERT_TRUE(ReadText(self, Replaced(text, "\tparent 0", "\tparent 1")));
    const XBone& copy = *XCast<XBone>(self.Clone());
    EXPECT_EQ(copy.GetParent(), &self);
    EXPECT_EQ(TreeOf(copy), "self1");
    EXPECT_EQ(m_Model.GetNodes().size(), 2u);
}

TEST_F(BoneClone, AChainOfAHundredThousandBonesIsCopiedWithoutRecursion)
{
    constexpr u32 kBones = 100'000;
    XBone* bone = &Bone("b");
    XBone& top = *bone;
    for (u32 i = 1; i < kBones; ++i)
        bone = &Bone("b", bone);
    const XBone* copy = XCast<XBone>(top.Clone());
    u32 depth = 0;
    for (XBoneList children; copy; copy = copy->ListChildren(children) ? children[0] : nullptr)
        ++depth;
    EXPECT_EQ(depth, kBones);
    EXPECT_EQ(m_Model.GetNodes().size(), 2 * kBones);
}

// A class of a user of the library whose copies fail.
class Uncopied final : public XBone {
public:
    static constexpr u32 kType = 1000;
    using XBone::XBone;
    u32 GetApiType() const override { return kType; }
    void DoCopy(const XBase*) override { throw std::bad_alloc(); }
};

class UncopiedInfo final : public XFnInfo {
public:
    u32 GetType() const override { return Uncopied::kType; }
    XString GetTypeName() const override { return "uncopied"; }
    XString GetChunkName() const override { return "UNCOPIED"; }
    std::unique_ptr<XBase> Create(XModel* model) const override { return std::make_unique<Uncopied>(model); }
};

TEST_F(BoneClone, TheCopyFlagsStayWhateverEndsTheWalk)
{
    ASSERT_TRUE(XFnRegister(new UncopiedInfo));
    XBone& top = Bone("top");
    top.AddChild(XCast<XBone>(m_Model.CreateNode(Uncopied::kType)));
    EXPECT_THROW(top.Clone(), std::bad_alloc);
    for (const u32 flag : {CopyParent, CopyChildren, CopyInstances})
        EXPECT_TRUE(m_Model.GetCopyFlags().Test(flag)) << flag;
}

}  // namespace
