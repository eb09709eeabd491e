#include "VKT/hierarchy/Shape.h"

#include "VKT/hierarchy/Joint.h"
#include "VKT/lights/SpotLight.h"
#include "VKT/shading/Lambert.h"
#include "VKT/support/NodeTest.h"

using namespace VKT;
using namespace VKT::Test;

namespace {

class Shape : public NodeTest {
protected:
    XShape& m_Light = *m_Model.CreateNode<XSpotLight>();
    XShape& m_Other = *m_Model.CreateNode<XSpotLight>();
    XBone& m_First = *m_Model.CreateNode<XBone>();
    XBone& m_Second = *m_Model.CreateNode<XJoint>();
};

TEST_F(Shape, StoresNothing)
{
    XShape shape(&m_Model);
    EXPECT_EQ(shape.GetApiType(), 25u);
    EXPECT_EQ(shape.HasFn(25), &shape);
    EXPECT_EQ(shape.HasFn(0), &shape);
    EXPECT_EQ(shape.HasFn(26), nullptr);
    EXPECT_EQ(TextOf(shape), "");
    EXPECT_EQ(Hex(BodyOf(shape)), "00 00 00 00 00 00");
    EXPECT_EQ(shape.GetDataSize(), 14u);
    EXPECT_TRUE(ReadText(shape, ""));
}

TEST_F(Shape, ListsItsInstancesInTheDocumentsOrder)
{
    XInstanceList instances;
    EXPECT_FALSE(m_Light.GetObjectInstances(instances));
    XInstance* first = m_Model.CreateInstance(&m_Second, &m_Light);
    m_Model.CreateInstance(&m_First, &m_Other);
    XInstance* second = m_Model.CreateInstance(&m_First, &m_Light);
    instances.push_back(nullptr);  // what stood there goes
    EXPECT_TRUE(m_Light.GetObjectInstances(instances));
    EXPECT_EQ(instances, (XInstanceList{first, second}));
    m_Model.DeleteInstance(first->GetID());
    EXPECT_TRUE(m_Light.GetObjectInstances(instances));
    EXPECT_EQ(instances, XInstanceList{second});
}

TEST_F(Shape, PostLoadFindsTheInstancesAnewAndOnce)
{
    XInstance* instance = m_Model.CreateInstance(&m_First, &m_Light);
    m_Light.PostLoad();
    m_Light.PostLoad();
    XInstanceList instances;
    EXPECT_TRUE(m_Light.GetObjectInstances(instances));
    EXPECT_EQ(instances, XInstanceList{instance});
    EXPECT_FALSE(m_Light.NodeDeath(m_First.GetID()));  // a second entry would count as left
}

TEST_F(Shape, LastTransformThatDiesTakesTheReasonToLive)
{
    const u32 id = m_Model.CreateInstance(&m_First, &m_Light)->GetID();
    EXPECT_FALSE(m_Light.NodeDeath(m_First.GetID()));
    EXPECT_EQ(m_Model.FindInstance(id), nullptr);
    EXPECT_TRUE(m_First.GetInstanceIds().empty());
    XInstanceList instances;
    EXPECT_FALSE(m_Light.GetObjectInstances(instances));
}

TEST_F(Shape, OneOfTwoTransformsLeavesTheOther)
{
    m_Model.CreateInstance(&m_First, &m_Light);
    XInstance* staying = m_Model.CreateInstance(&m_Second, &m_Light);
    EXPECT_TRUE(m_Light.NodeDeath(m_First.GetID()));
    XInstanceList instances;
    EXPECT_TRUE(m_Light.GetObjectInstances(instances));
    EXPECT_EQ(instances, XInstanceList{staying});
}

TEST_F(Shape, DeathElsewhereIsNothingToIt)
{
    m_Model.CreateInstance(&m_First, &m_Light);
    EXPECT_TRUE(m_Light.NodeDeath(m_Second.GetID()));
    EXPECT_TRUE(m_Other.NodeDeath(m_First.GetID()));
    EXPECT_EQ(m_First.GetInstanceIds().size(), 1u);
}

class ShapeDeletion : public Shape {
protected:
    // What goes along when exactly these flags are set.
    std::set<u32> Deleted(u32 flags)
    {
        m_Model.GetDeleteFlags().Clear(0xFFFFFFFF);
        m_Model.GetDeleteFlags().Set(flags);
        std::set<u32> ids;
        m_Light.PreDelete(ids);
        return ids;
    }
};

TEST_F(ShapeDeletion, TakesPlainBonesAndNoSubclasses)
{
    m_Model.CreateInstance(&m_First, &m_Light);
    m_Model.CreateInstance(&m_Second, &m_Light);
    EXPECT_EQ(Deleted(DeleteTransforms), std::set<u32>{m_First.GetID()});
    EXPECT_TRUE(Deleted(~u32{DeleteTransforms}).empty());
}

TEST_F(ShapeDeletion, TakesTheMaterialThatNoOtherShapeHas)
{
    const u32 own = m_Model.CreateNode(kFnLambert)->GetID();
    m_Model.CreateInstance(&m_First, &m_Light)->SetMaterial(own);
    m_Model.CreateInstance(&m_Second, &m_Light)->SetMaterial(own);  // the same shape twice
    EXPECT_EQ(Deleted(DeleteMaterials), std::set<u32>{own});
    EXPECT_TRUE(Deleted(DeleteTextures).empty());
    m_Model.CreateInstance(&m_First, &m_Other)->SetMaterial(own);
    EXPECT_TRUE(Deleted(DeleteMaterials).empty());
}

TEST_F(ShapeDeletion, TakesMaterialsOfGroupsAndThenNotTheSingleOne)
{
    const u32 single = m_Model.CreateNode(kFnLambert)->GetID();
    const u32 own = m_Model.CreateNode(kFnLambert)->GetID();
    const u32 shared = m_Model.CreateNode(kFnLambert)->GetID();
    XInstance& instance = *m_Model.CreateInstance(&m_First, &m_Light);
    instance.SetMaterial(single);
    instance.SetNumMaterialGroups(4);
    instance.SetMaterial(own, 0);
    instance.SetMaterial(shared, 1);
    instance.SetMaterial(99, 2);               // no node
    instance.SetMaterial(m_First.GetID(), 3);  // no material
    XInstance& other = *m_Model.CreateInstance(&m_First, &m_Other);
    other.SetNumMaterialGroups(1);
    other.SetMaterial(shared, 0);
    EXPECT_EQ(Deleted(DeleteMaterials), std::set<u32>{own});
}

}  // namespace
