#include "VKT/geometry/PolygonMesh.h"
#include "VKT/hierarchy/Joint.h"
#include "VKT/support/NodeTest.h"

// What a clone of a bone takes along, as the copy flags say.

using namespace VKT;
using namespace VKT::Test;

namespace {

class BoneCopy : public NodeTest {
protected:
    BoneCopy()
    {
        m_Source.SetName("arm");
        m_Parent.AddChild(&m_Source);
        m_Source.AddChild(&m_Child);
        m_Instance = m_Model.CreateInstance(&m_Source, &m_Mesh);
        m_Instance->SetName("drawn");
        m_Instance->SetNumMaterialGroups(1);
        m_Instance->SetMaterial(70, 0);
        m_Instance->AddFaces(0, {1, 2});
        m_Instance->AddUvSet(71, "map1");
    }

    // A clone of the source under exactly these copy flags.
    XBone& Clone(u32 flags)
    {
        m_Model.GetCopyFlags().Clear(0xFFFFFFFF);
        m_Model.GetCopyFlags().Set(flags);
        return *XCast<XBone>(m_Source.Clone());
    }

    XBone& m_Parent = *m_Model.CreateNode<XBone>();
    XBone& m_Source = *m_Model.CreateNode<XBone>();
    XBone& m_Child = *m_Model.CreateNode<XBone>();
    XPolygonMesh& m_Mesh = *m_Model.CreateNode<XPolygonMesh>();
    XInstance* m_Instance = nullptr;
};

TEST_F(BoneCopy, WithoutFlagsTheCopyStandsAlone)
{
    const XBone& copy = Clone(0);
    EXPECT_STREQ(copy.GetName(), "arm1");
    EXPECT_NE(copy.GetID(), m_Source.GetID());
    EXPECT_EQ(copy.GetParentId(), 0u);
    EXPECT_TRUE(copy.GetChildIds().empty());
    EXPECT_TRUE(copy.GetInstanceIds().empty());
}

TEST_F(BoneCopy, AllOwnFieldsAreCopied)
{
    m_Source.SetRotation({1, 2, 3, 4});
    m_Source.SetTranslate({5, 6, 7, 0});
    m_Source.SetScale({8, 9, 10, 0});
    m_Source.SetRotation({11, 12, 13, 14}, true);
    m_Source.SetTranslate({15, 16, 17, 0}, true);
    m_Source.SetScale({18, 19, 20, 0}, true);
    m_Source.UpdateWorldMatrix(TranslationMatrix({21, 22, 23, 0}), false);
    m_Source.CopyMatricesToBind();
    m_Source.SetTranslate({24, 25, 26, 0});
    m_Source.UpdateWorldMatrix(TranslationMatrix({27, 28, 29, 0}), false);
    m_Source.SetVisible(false);
    m_Source.SetInheritsTransform(false);
    m_Source.SetRotationOrder(5);
    m_Source.SetJointOrient({30, 31, 32, 33});
    m_Source.SetRotationOrient({34, 35, 36, 37});
    m_Source.SetMinBound({38, 39, 40, 0});
    m_Source.SetMaxBound({41, 42, 43, 0});
    m_Source.SetScalePivot({44, 45, 46, 0});
    m_Source.SetRotatePivot({47, 48, 49, 0});
    m_Source.SetScalePivotTranslate({50, 51, 52, 0});
    m_Source.SetRotatePivotTranslate({53, 54, 55, 0});
    m_Source.SetShearing({56, 57, 58, 0});
    for (u32 index = 0; index < 18; ++index)
        m_Source.SetLimit(index, static_cast<f32>(60 + index));

    const XBone& copy = Clone(0);
    for (const bool bind : {false, true}) {
        EXPECT_EQ(copy.GetRotation(bind), m_Source.GetRotation(bind));
        EXPECT_EQ(copy.GetTranslate(bind), m_Source.GetTranslate(bind));
        EXPECT_EQ(copy.GetScale(bind), m_Source.GetScale(bind));
        EXPECT_EQ(copy.GetLocal(bind), m_Source.GetLocal(bind));
        EXPECT_EQ(copy.GetWorld(bind), m_Source.GetWorld(bind));
        EXPECT_EQ(copy.GetInverseWorld(bind), m_Source.GetInverseWorld(bind));
        EXPECT_EQ(copy.GetInverseTransposeWorld(bind), m_Source.GetInverseTransposeWorld(bind));
    }
    EXPECT_NE(copy.GetLocal(true), copy.GetLocal(false));
    std::string text = TextOf(m_Source);
    text = Replaced(text, "\tparent 1\n\tchild_joints 1\n\t\t3 \n", "\tparent 0\n\tchild_joints 0\n");
    text = text.substr(0, text.find("\t\tINSTANCE ")) + "\t}\n";
    EXPECT_EQ(TextOf(copy), text);
}

TEST_F(BoneCopy, CopyHangsUnderTheSameParentWhenAsked)
{
    const XBone& copy = Clone(CopyParent);
    EXPECT_EQ(copy.GetParent(), &m_Parent);
    EXPECT_EQ(m_Parent.GetChildIds(), (XIndexList{m_Source.GetID(), copy.GetID()}));
}

TEST_F(BoneCopy, ChildrenAreClonedAndOnlyTheTopJoinsTheParent)
{
    const XBone& copy = Clone(CopyParent | CopyChildren);
    EXPECT_EQ(copy.GetParent(), &m_Parent);
    ASSERT_EQ(copy.GetChildIds().size(), 1u);
    XBoneList children;
    copy.ListChildren(children);
    EXPECT_NE(children[0], &m_Child);
    EXPECT_EQ(children[0]->GetParent(), &copy);
    EXPECT_EQ(m_Source.GetChildIds(), XIndexList{m_Child.GetID()});
    EXPECT_TRUE(m_Model.GetCopyFlags().Test(CopyParent));
    EXPECT_EQ(m_Log.Text(), "");
}

TEST_F(BoneCopy, FlagOfTheParentStaysClearWhenItWas)
{
    const XBone& copy = Clone(CopyChildren);
    EXPECT_EQ(copy.GetParentId(), 0u);
    EXPECT_EQ(copy.GetChildIds().size(), 1u);
    EXPECT_FALSE(m_Model.GetCopyFlags().Test(CopyParent));
}

TEST_F(BoneCopy, InstancesAreRebuiltUnderTheCopy)
{
    XBone& copy = Clone(CopyInstances);
    ASSERT_EQ(copy.GetInstanceIds().size(), 1u);
    const XInstance& instance = *m_Model.FindInstance(copy.GetInstanceIds()[0]);
    EXPECT_NE(&instance, m_Instance);
    EXPECT_EQ(instance.GetParent(), &copy);
    EXPECT_EQ(instance.GetShape(), &m_Mesh);
    EXPECT_STREQ(instance.GetName(), "drawn");
    ASSERT_EQ(instance.GetMaterialGroups().size(), 1u);
    EXPECT_EQ(instance.GetMaterialGroups()[0]->m_Material, 70u);
    EXPECT_EQ(instance.GetMaterialGroups()[0]->m_Faces, (XIndexList{1, 2}));
    ASSERT_EQ(instance.GetUvSets().size(), 1u);
    EXPECT_EQ(instance.GetUvSets()[0]->m_SetName, "map1");
    EXPECT_EQ(m_Source.GetInstanceIds(), XIndexList{m_Instance->GetID()});
    XInstanceList shown;
    m_Mesh.GetObjectInstances(shown);
    EXPECT_EQ(shown.size(), 2u);
}

TEST_F(BoneCopy, SharedInstancesAreTheSameIds)
{
    XBone& copy = Clone(CopyInstances | CopyShareInstances);
    EXPECT_EQ(copy.GetInstanceIds(), m_Source.GetInstanceIds());
    EXPECT_EQ(m_Instance->GetParent(), &m_Source);
    EXPECT_EQ(m_Model.CreateInstance(&copy, &m_Mesh), m_Instance);
    EXPECT_EQ(copy.GetInstanceIds(), m_Source.GetInstanceIds());
    EXPECT_TRUE(Clone(CopyShareInstances).GetInstanceIds().empty());
}

TEST_F(BoneCopy, CopyOfItselfAndOfOtherClassesDoesNothing)
{
    const std::string before = TextOf(m_Source);
    m_Source.DoCopy(&m_Source);
    m_Source.DoCopy(&m_Mesh);
    m_Source.DoCopy(nullptr);
    EXPECT_EQ(TextOf(m_Source), before);
}

TEST_F(BoneCopy, JointCopiesItsOwnField)
{
    XJoint& joint = *m_Model.CreateNode<XJoint>();
    joint.SetSegmentScaleCompensate(false);
    joint.SetTranslate({1, 2, 3, 0});
    const XJoint* copy = XCast<XJoint>(joint.Clone());
    ASSERT_NE(copy, nullptr);
    EXPECT_FALSE(copy->GetSegmentScaleCompensate());
    EXPECT_EQ(copy->GetTranslate(false), (XVector3{1, 2, 3, 0}));
}

}  // namespace
