#include "VKT/hierarchy/Bone.h"

#include <bit>

#include "VKT/geometry/PolygonMesh.h"
#include "VKT/hierarchy/Joint.h"
#include "VKT/shading/Lambert.h"
#include "VKT/support/NodeTest.h"

using namespace VKT;
using namespace VKT::Test;

namespace {

class Bone : public NodeTest {
protected:
    XBone& New(const char* name, XBone* parent = nullptr)
    {
        XBone& bone = *m_Model.CreateNode<XBone>();
        bone.SetName(name);
        if (parent)
            parent->AddChild(&bone);
        return bone;
    }
};

TEST_F(Bone, IsACastAwayFromItsBases)
{
    const XBone& bone = New("bone");
    const XBase& joint = *m_Model.CreateNode(kFnJoint);
    EXPECT_EQ(bone.GetApiType(), 86u);
    EXPECT_EQ(bone.HasFn(0), &bone);
    EXPECT_EQ(bone.HasFn(86), &bone);
    EXPECT_EQ(bone.HasFn(87), nullptr);
    EXPECT_EQ(bone.HasFn(25), nullptr);
    EXPECT_EQ(joint.GetApiType(), 87u);
    EXPECT_EQ(joint.HasFn(86), &joint);
    EXPECT_EQ(joint.HasFn(87), &joint);
    EXPECT_EQ(joint.HasFn(0), &joint);
}

TEST_F(Bone, ChildIsEnteredOnBothSides)
{
    XBone& hip = New("hip");
    XBone& knee = New("knee");
    EXPECT_TRUE(hip.AddChild(&knee));
    EXPECT_EQ(hip.GetChildIds(), XIndexList{knee.GetID()});
    EXPECT_EQ(knee.GetParentId(), hip.GetID());
    EXPECT_EQ(knee.GetParent(), &hip);
    EXPECT_EQ(hip.GetParent(), nullptr);
    XBoneList children;
    EXPECT_TRUE(hip.ListChildren(children));
    EXPECT_EQ(children, XBoneList{&knee});
    EXPECT_FALSE(knee.ListChildren(children));
    EXPECT_TRUE(children.empty());
}

TEST_F(Bone, ChildThatIsBelowAlreadyIsRefused)
{
    XBone& hip = New("hip");
    XBone& knee = New("knee", &hip);
    XBone& foot = New("foot", &knee);
    EXPECT_FALSE(hip.AddChild(&knee));
    EXPECT_FALSE(hip.AddChild(&foot));
    EXPECT_EQ(m_Log.Text(),
              "Error : Cannot add \"knee\" as a child, since it is already a child of \"hip\" or one of it's "
              "children....\n"
              "Error : Cannot add \"foot\" as a child, since it is already a child of \"hip\" or one of it's "
              "children....\n");
    EXPECT_EQ(hip.GetChildIds(), XIndexList{knee.GetID()});
    EXPECT_EQ(foot.GetParent(), &knee);
}

TEST_F(Bone, ChildThatIsAboveIsRefused)
{
    XBone& hip = New("hip");
    XBone& knee = New("knee", &hip);
    XBone& foot = New("foot", &knee);
    EXPECT_FALSE(foot.AddChild(&hip));
    EXPECT_EQ(
        m_Log.Text(),
        "Error : Cannot add \"hip\" as a child, since it is a parent of this node \"foot\" or one of it's "
        "children....\n");
    EXPECT_TRUE(foot.GetChildIds().empty());
    EXPECT_EQ(hip.GetParentId(), 0u);
}

TEST_F(Bone, NoBoneItselfAndForeignBonesAreRefusedInSilence)
{
    XBone& hip = New("hip");
    XModel other;
    XBone loose(&m_Model);
    EXPECT_FALSE(hip.AddChild(nullptr));
    EXPECT_FALSE(hip.AddChild(&hip));
    EXPECT_FALSE(hip.AddChild(other.CreateNode<XBone>()));
    EXPECT_FALSE(hip.AddChild(&loose));
    EXPECT_TRUE(hip.GetChildIds().empty());
    EXPECT_EQ(m_Log.Text(), "");
}

TEST_F(Bone, ChildCanMoveToAnotherBoneAndStaysListedByTheFirst)
{
    XBone& first = New("first");
    XBone& second = New("second");
    XBone& child = New("child", &first);
    EXPECT_TRUE(second.AddChild(&child));
    EXPECT_EQ(child.GetParent(), &second);
    EXPECT_EQ(first.GetChildIds(), XIndexList{child.GetID()});
}

TEST_F(Bone, ChildrenAreReplacedAsAList)
{
    XBone& hip = New("hip");
    XBone& a = New("a", &hip);
    XBone& b = New("b");
    XBone& c = New("c");
    EXPECT_TRUE(hip.AddChildren({&c, &b}));
    EXPECT_EQ(hip.GetChildIds(), (XIndexList{c.GetID(), b.GetID()}));
    XModel other;
    EXPECT_FALSE(hip.AddChildren({&a, nullptr}));
    EXPECT_FALSE(hip.AddChildren({&a, other.CreateNode<XBone>()}));
    EXPECT_EQ(hip.GetChildIds(), (XIndexList{c.GetID(), b.GetID()}));
    EXPECT_TRUE(hip.AddChildren({}));
    EXPECT_TRUE(hip.GetChildIds().empty());
}

// Lists and parents need not tell the same: what counts is what stands below in the lists.
TEST_F(Bone, ListsDecideWhatIsBelow)
{
    XBone& a = New("a");
    XBone& b = New("b");
    ASSERT_TRUE(a.AddChildren({&b}));
    EXPECT_FALSE(a.AddChild(&b));
    EXPECT_FALSE(b.AddChild(&a));
    EXPECT_EQ(a.GetChildIds(), XIndexList{b.GetID()});
    EXPECT_TRUE(b.GetChildIds().empty());
    EXPECT_EQ(m_Log.Text(),
              "Error : Cannot add \"b\" as a child, since it is already a child of \"a\" or one of it's "
              "children....\n"
              "Error : Cannot add \"a\" as a child, since it is a parent of this node \"b\" or one of it's "
              "children....\n");

    XBone& first = New("first");
    XBone& second = New("second");
    XBone& moved = New("moved", &first);
    ASSERT_TRUE(second.AddChild(&moved));
    EXPECT_FALSE(first.AddChild(&moved));  // which lists it still
    EXPECT_EQ(first.GetChildIds(), XIndexList{moved.GetID()});

    XBone& dropped = New("dropped", &a);
    ASSERT_TRUE(a.AddChildren({}));
    EXPECT_TRUE(a.AddChild(&dropped));
    EXPECT_EQ(a.GetChildIds(), XIndexList{dropped.GetID()});
}

// What `XBoneLinks` answers is what `HasDescendant` finds in the lists.
TEST_F(Bone, LinksAreKnownWhateverHasMovedThem)
{
    m_Model.GetCopyFlags().Clear(CopyChildren);  // the number of bones stays
    XBoneList bones;
    for (int i = 0; i < 8; ++i)
        bones.push_back(&New(("bone" + std::to_string(i)).c_str()));
    u32 seed = 1;
    const auto pick = [&](std::size_t below) {
        seed = seed * 1664525u + 1013904223u;
        return static_cast<std::size_t>(seed >> 16) % below;
    };
    int added = 0;
    int refused = 0;
    for (int step = 0; step < 4000; ++step) {
        XBone& bone = *bones[pick(bones.size())];
        switch (pick(16)) {
            case 0:
                bone.AddChildren({bones[pick(bones.size())], bones[pick(bones.size())]});
                break;
            case 1:
            case 2:
                bone.AddChildren({});
                break;
            case 3:
                bone.NodeDeath(bones[pick(bones.size())]->GetID());
                break;
            case 4:
                bone.DoCopy(bones[pick(bones.size())]);
                break;
            default: {
                XBone& child = *bones[pick(bones.size())];
                if (&child == &bone)
                    break;
                const bool mayAdd = !bone.HasDescendant(&child) && !child.HasDescendant(&bone);
                ASSERT_EQ(bone.AddChild(&child), mayAdd) << step;
                ++(mayAdd ? added : refused);
            }
        }
        m_Log.Clear();
    }
    EXPECT_GT(added, 500);
    EXPECT_GT(refused, 500);
}

TEST_F(Bone, ListsOfAFileDecideWhatIsBelow)
{
    XBone& a = New("a");
    XBone& b = New("b");
    ASSERT_TRUE(a.AddChildren({&b}));
    for (const std::string& file : {SaveText(m_Model), SaveBinaryBytes(m_Model)}) {
        XModel loaded;
        ASSERT_EQ(LoadBytes(loaded, file), FileOk);
        EXPECT_FALSE(XCast<XBone>(loaded.FindNode("b"))->AddChild(XCast<XBone>(loaded.FindNode("a"))));
    }
}

TEST_F(Bone, DescendantsAreFoundAtAnyDepth)
{
    XBone& hip = New("hip");
    XBone& knee = New("knee", &hip);
    XBone& foot = New("foot", &knee);
    XModel other;
    EXPECT_TRUE(hip.HasDescendant(&knee));
    EXPECT_TRUE(hip.HasDescendant(&foot));
    EXPECT_FALSE(hip.HasDescendant(&hip));
    EXPECT_FALSE(knee.HasDescendant(&hip));
    EXPECT_FALSE(hip.HasDescendant(nullptr));
    EXPECT_FALSE(hip.HasDescendant(other.CreateNode<XBone>()));
}

TEST_F(Bone, DescendantsOfARingAreFoundOnce)
{
    XBone& a = New("a");
    XBone& b = New("b", &a);
    b.AddChildren({&a});
    EXPECT_TRUE(a.HasDescendant(&a));
    EXPECT_FALSE(a.HasDescendant(&New("c")));
    EXPECT_FALSE(a.AddChild(&b));
    EXPECT_TRUE(New("d").AddChild(&a));
}

TEST_F(Bone, ChildrenThatAreGoneOrNoBonesAreNotListed)
{
    XBone& hip = New("hip");
    XBone& knee = New("knee", &hip);
    const XBase* light = m_Model.CreateNode(kFnSpotLight);
    const std::string ids = "3 " + std::to_string(light->GetID()) + " 77 " + std::to_string(knee.GetID());
    ASSERT_TRUE(
        ReadText(hip, Replaced(TextOf(hip), "child_joints 1\n\t\t2 \n", "child_joints " + ids + "\n")));
    XBoneList children;
    EXPECT_TRUE(hip.ListChildren(children));
    EXPECT_EQ(children, XBoneList{&knee});
    EXPECT_EQ(hip.GetChildIds().size(), 3u);
}

TEST_F(Bone, WideTreesAndLongChainsBuildFromEitherEnd)
{
    constexpr int kBones = 100'000;
    XBone& root = New("root");
    for (int i = 0; i < kBones; ++i)
        root.AddChild(m_Model.CreateNode<XBone>());
    EXPECT_EQ(root.GetChildIds().size(), std::size_t{kBones});
    XBone* below = m_Model.CreateNode<XBone>();
    for (int i = 0; i < kBones; ++i) {
        XBone* bone = m_Model.CreateNode<XBone>();
        ASSERT_TRUE(bone->AddChild(below));
        below = bone;
    }
}

TEST_F(Bone, PoseAccessorsPickBindOrCurrent)
{
    XBone& bone = New("bone");
    bone.SetRotation({1, 0, 0, 0});
    bone.SetTranslate({1, 2, 3, 0});
    bone.SetScale({4, 5, 6, 0});
    bone.SetRotation({0, 1, 0, 0}, true);
    bone.SetTranslate({7, 8, 9, 0}, true);
    bone.SetScale({10, 11, 12, 0}, true);
    EXPECT_EQ(bone.GetRotation(false), (XQuaternion{1, 0, 0, 0}));
    EXPECT_EQ(bone.GetTranslate(false), (XVector3{1, 2, 3, 0}));
    EXPECT_EQ(bone.GetScale(false), (XVector3{4, 5, 6, 0}));
    bone.CopyBindToCurrent();
    EXPECT_EQ(bone.GetRotation(false), (XQuaternion{0, 1, 0, 0}));
    EXPECT_EQ(bone.GetTranslate(false), (XVector3{7, 8, 9, 0}));
    EXPECT_EQ(bone.GetScale(false), (XVector3{10, 11, 12, 0}));
}

// The lines of the limits, in the order of the text.
std::string LimitLines(const XBone& bone)
{
    const std::string text = TextOf(bone);
    const std::size_t begin = text.find("\ttranslate_limit_x");
    return text.substr(begin, text.find("\tparent") - begin);
}

TEST_F(Bone, LimitsByIndexHaveTheirOwnOrderAndOneStandsTwice)
{
    XBone& bone = New("bone");
    for (u32 index = 0; index < 18; ++index) {
        if (index == 6)
            continue;
        EXPECT_FALSE(bone.HasLimit(index)) << index;
        bone.SetLimit(index, static_cast<f32>(100 + index));
        EXPECT_TRUE(bone.HasLimit(index)) << index;
        EXPECT_EQ(bone.GetLimit(index), static_cast<f32>(100 + index));
    }
    EXPECT_EQ(LimitLines(bone),
              "\ttranslate_limit_x 113 112\n"
              "\ttranslate_limit_y 115 114\n"
              "\ttranslate_limit_z 117 116\n"
              "\trotate_limit_x 107 +INF\n"  // rotate x has no index for its upper limit
              "\trotate_limit_y 109 108\n"
              "\trotate_limit_z 111 110\n"
              "\tscale_limit_x 101 100\n"
              "\tscale_limit_y 103 102\n"
              "\tscale_limit_z 105 104\n");
    EXPECT_EQ(bone.GetLimit(6), 100);
    bone.SetLimit(6, 7);
    EXPECT_EQ(bone.GetLimit(0), 7);
}

TEST_F(Bone, LimitIndexOutOfRangeAnswersTrueAndZero)
{
    XBone& bone = New("bone");
    const std::string before = TextOf(bone);
    for (const u32 index : {18u, 0xFFFFFFFFu}) {
        EXPECT_TRUE(bone.HasLimit(index));
        EXPECT_EQ(bone.GetLimit(index), 0.0f);
        bone.SetLimit(index, 5);
    }
    EXPECT_EQ(TextOf(bone), before);
}

TEST_F(Bone, LimitOpensAgainWithEitherSentinel)
{
    XBone& bone = New("bone");
    bone.SetLimit(1, 3);
    bone.SetLimit(1, NoUpperLimit());
    EXPECT_FALSE(bone.HasLimit(1));
    bone.SetLimit(1, NoLowerLimit());
    EXPECT_FALSE(bone.HasLimit(1));
}

TEST_F(Bone, EachPropertyOfALimitIsItsOwn)
{
    XBone& bone = New("bone");
    const XNodeProperties& properties = *bone.GetNodeProperties();
    for (u32 id = 38; id <= 55; ++id) {
        const u32 has = id - 18;  // the flags stand 18 numbers ahead of the values
        bool flag = true;
        EXPECT_TRUE(properties.GetBool(&bone, has, flag));
        EXPECT_FALSE(flag) << properties.GetPropertyName(has);
        EXPECT_TRUE(properties.SetFloat(&bone, id, static_cast<f32>(id)));
        EXPECT_TRUE(properties.GetBool(&bone, has, flag));
        EXPECT_TRUE(flag) << properties.GetPropertyName(has);
    }
    EXPECT_EQ(LimitLines(bone),
              "\ttranslate_limit_x 38 47\n"
              "\ttranslate_limit_y 39 48\n"
              "\ttranslate_limit_z 40 49\n"
              "\trotate_limit_x 44 53\n"
              "\trotate_limit_y 45 54\n"
              "\trotate_limit_z 46 55\n"
              "\tscale_limit_x 41 50\n"
              "\tscale_limit_y 42 51\n"
              "\tscale_limit_z 43 52\n");
    f32 value = 0;
    EXPECT_TRUE(properties.GetFloat(&bone, 53, value));
    EXPECT_EQ(value, 53);
}

TEST_F(Bone, PropertiesReachTheCurrentPoseAndTheHierarchy)
{
    XBone& bone = New("bone");
    XBone& child = New("child", &bone);
    const XNodeProperties& properties = *bone.GetNodeProperties();
    EXPECT_TRUE(properties.SetQuaternion(&bone, 1, {1, 2, 3, 4}));
    EXPECT_TRUE(properties.SetVector(&bone, 2, {5, 6, 7, 0}));
    EXPECT_TRUE(properties.SetVector(&bone, 3, {8, 9, 10, 0}));
    EXPECT_TRUE(properties.SetBool(&bone, 4, false));
    EXPECT_TRUE(properties.SetQuaternion(&bone, 5, {11, 12, 13, 14}));
    EXPECT_TRUE(properties.SetQuaternion(&bone, 6, {15, 16, 17, 18}));
    EXPECT_TRUE(properties.SetVector(&bone, 7, {19, 20, 21, 0}));
    EXPECT_TRUE(properties.SetVector(&bone, 8, {22, 23, 24, 0}));
    EXPECT_TRUE(properties.SetVector(&bone, 17, {25, 26, 27, 0}));
    EXPECT_TRUE(properties.SetBool(&bone, 18, false));
    EXPECT_TRUE(properties.SetInteger(&bone, 19, 4));
    EXPECT_EQ(bone.GetRotation(false), (XQuaternion{1, 2, 3, 4}));
    EXPECT_EQ(bone.GetScale(false), (XVector3{5, 6, 7, 0}));
    EXPECT_EQ(bone.GetTranslate(false), (XVector3{8, 9, 10, 0}));
    EXPECT_FALSE(bone.IsVisible());
    EXPECT_EQ(bone.GetJointOrient(), (XQuaternion{11, 12, 13, 14}));
    EXPECT_EQ(bone.GetRotationOrient(), (XQuaternion{15, 16, 17, 18}));
    EXPECT_EQ(bone.GetRotatePivot(), (XVector3{19, 20, 21, 0}));
    EXPECT_EQ(bone.GetScalePivot(), (XVector3{22, 23, 24, 0}));
    EXPECT_EQ(bone.GetShearing(), (XVector3{25, 26, 27, 0}));
    EXPECT_FALSE(bone.InheritsTransform());
    EXPECT_EQ(bone.GetRotationOrder(), 4u);

    XNodeList children;
    EXPECT_TRUE(properties.GetNodeArray(&bone, 15, children));
    EXPECT_EQ(children, XNodeList{&child});
    XBase* parent = nullptr;
    EXPECT_TRUE(properties.GetNode(&child, 16, parent));
    EXPECT_EQ(parent, &bone);
    EXPECT_TRUE(properties.GetNode(&bone, 16, parent));
    EXPECT_EQ(parent, nullptr);
    EXPECT_TRUE(properties.SetNodeArray(&child, 15, {}));
    EXPECT_FALSE(properties.SetNodeArray(&bone, 15, {m_Model.CreateNode(kFnSpotLight)}));
    EXPECT_TRUE(properties.SetNodeArray(&bone, 15, {}));
    EXPECT_TRUE(bone.GetChildIds().empty());
    EXPECT_FALSE(properties.SetNode(&child, 16, nullptr));
}

TEST_F(Bone, MatrixPropertiesAreThoseOfTheCurrentPose)
{
    XBone& bone = New("bone");
    bone.SetTranslate({1, 2, 3, 0});
    bone.UpdateWorldMatrix(TranslationMatrix({10, 0, 0, 0}), false);
    const XNodeProperties& properties = *bone.GetNodeProperties();
    XMatrix m;
    EXPECT_TRUE(properties.GetMatrix(&bone, 11, m));
    EXPECT_EQ(m, bone.GetLocal(false));
    EXPECT_TRUE(properties.GetMatrix(&bone, 12, m));
    EXPECT_EQ(m, bone.GetWorld(false));
    EXPECT_TRUE(properties.GetMatrix(&bone, 13, m));
    EXPECT_EQ(m, bone.GetInverseWorld(false));
    EXPECT_TRUE(properties.GetMatrix(&bone, 14, m));
    EXPECT_EQ(m, bone.GetInverseTransposeWorld(false));
    EXPECT_EQ(m[3], -11);
}

TEST_F(Bone, DeathOfRelativesClearsThem)
{
    XBone& hip = New("hip");
    XBone& knee = New("knee", &hip);
    XBone& foot = New("foot", &knee);
    knee.AddChildren({&foot, &hip, &foot});
    EXPECT_TRUE(knee.NodeDeath(foot.GetID()));
    EXPECT_EQ(knee.GetChildIds(), (XIndexList{hip.GetID(), foot.GetID()}));  // the first alone
    EXPECT_TRUE(knee.NodeDeath(99));
    EXPECT_EQ(knee.GetParent(), &hip);
    EXPECT_TRUE(knee.NodeDeath(hip.GetID()));
    EXPECT_EQ(knee.GetParentId(), 0u);
    EXPECT_EQ(knee.GetChildIds(), XIndexList{foot.GetID()});
}

TEST_F(Bone, DeathOfAShapeDeletesItsInstance)
{
    XBone& bone = New("bone");
    XPolygonMesh* mesh = m_Model.CreateNode<XPolygonMesh>();
    XPolygonMesh* other = m_Model.CreateNode<XPolygonMesh>();
    const u32 dying = m_Model.CreateInstance(&bone, mesh)->GetID();
    const u32 staying = m_Model.CreateInstance(&bone, other)->GetID();
    EXPECT_TRUE(bone.NodeDeath(mesh->GetID()));
    EXPECT_EQ(m_Model.FindInstance(dying), nullptr);
    EXPECT_EQ(bone.GetInstanceIds(), XIndexList{staying});
}

TEST_F(Bone, DeathOfAMaterialLeavesItsInstancesBare)
{
    XBone& bone = New("bone");
    XInstance* whole = m_Model.CreateInstance(&bone, m_Model.CreateNode<XPolygonMesh>());
    XInstance* grouped = m_Model.CreateInstance(&bone, m_Model.CreateNode<XPolygonMesh>());
    whole->SetMaterial(50);
    grouped->SetNumMaterialGroups(2);
    grouped->SetMaterial(50, 0);
    grouped->SetMaterial(51, 1);
    EXPECT_TRUE(bone.NodeDeath(50));
    EXPECT_EQ(whole->GetMaterial(), 0u);
    EXPECT_EQ(grouped->GetMaterialGroups()[0]->m_Material, 0u);
    EXPECT_EQ(grouped->GetMaterialGroups()[1]->m_Material, 51u);
    EXPECT_EQ(bone.GetInstanceIds().size(), 2u);
}

TEST_F(Bone, DeletingTakesChildrenAndShapesAsTheFlagsSay)
{
    XBone& bone = New("bone");
    const u32 child = New("child", &bone).GetID();
    XPolygonMesh* mesh = m_Model.CreateNode<XPolygonMesh>();
    m_Model.CreateInstance(&bone, mesh);
    std::set<u32> ids;
    bone.PreDelete(ids);
    EXPECT_EQ(ids, (std::set<u32>{child, mesh->GetID()}));
    m_Model.GetDeleteFlags().Clear(DeleteShapes);
    ids.clear();
    bone.PreDelete(ids);
    EXPECT_EQ(ids, std::set<u32>{child});
    m_Model.GetDeleteFlags().Set(DeleteShapes);
    m_Model.GetDeleteFlags().Clear(DeleteChildren);
    ids.clear();
    bone.PreDelete(ids);
    EXPECT_EQ(ids, std::set<u32>{mesh->GetID()});
}

}  // namespace
