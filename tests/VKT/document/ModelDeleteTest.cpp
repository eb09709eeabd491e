#include <ctime>

#include "VKT/deformers/Cluster.h"
#include "VKT/deformers/JointCluster.h"
#include "VKT/deformers/NonLinearWave.h"
#include "VKT/deformers/WrapDeformer.h"
#include "VKT/geometry/PolygonMesh.h"
#include "VKT/hierarchy/Bone.h"
#include "VKT/hierarchy/Joint.h"
#include "VKT/lights/SpotLight.h"
#include "VKT/node/Attribute.h"
#include "VKT/shading/Lambert.h"
#include "VKT/shading/Texture.h"
#include "VKT/support/NodeTest.h"

using namespace VKT;
using namespace VKT::Test;

namespace {

class ModelDelete : public NodeTest {
protected:
    template <class T>
    T* Make(const char* name)
    {
        T* node = m_Model.CreateNode<T>();
        node->SetName(name);
        return node;
    }
    // The names of all nodes, in order.
    std::string Names() const
    {
        std::string names;
        for (const auto& [name, node] : m_Model.GetNodes()) {
            if (!names.empty())
                names += ' ';
            names += name;
        }
        return names;
    }
    void OnlyFlags(u32 flags)
    {
        m_Model.GetDeleteFlags().Clear(0xFFFFFFFF);
        m_Model.GetDeleteFlags().Set(flags);
    }
};

TEST_F(ModelDelete, UnknownIdsAreNoNodes)
{
    Make<XBone>("hip");
    EXPECT_FALSE(m_Model.DeleteNode(0));
    EXPECT_FALSE(m_Model.DeleteNode(7));
    EXPECT_EQ(m_Model.DeleteNodes({0, 7, 8}), 0u);
    EXPECT_EQ(Names(), "hip");
}

TEST_F(ModelDelete, ANodeLeavesBothMapsAndItsNameIsFree)
{
    const u32 id = Make<XBone>("hip")->GetID();
    EXPECT_TRUE(m_Model.DeleteNode(id));
    EXPECT_FALSE(m_Model.HasNode(id));
    EXPECT_EQ(m_Model.FindNode("hip"), nullptr);
    XBone* next = m_Model.CreateNode<XBone>();
    EXPECT_EQ(next->GetID(), id + 1);
    EXPECT_EQ(m_Model.SetName(next, "hip"), "hip");
    EXPECT_STREQ(m_Model.CreateNode<XBone>()->GetName(), "node1");
}

TEST_F(ModelDelete, ABoneTakesItsChildrenUnderTheFlag)
{
    XBone* root = Make<XBone>("a");
    XBone* middle = Make<XBone>("b");
    XBone* leaf = Make<XBone>("c");
    root->AddChild(middle);
    middle->AddChild(leaf);
    OnlyFlags(0);
    EXPECT_EQ(m_Model.DeleteNodes({middle->GetID()}), 1u);
    EXPECT_EQ(Names(), "a c");
    EXPECT_EQ(leaf->GetParentId(), 0u);
    EXPECT_TRUE(root->GetChildIds().empty());
    root->AddChild(leaf);
    OnlyFlags(DeleteChildren);
    EXPECT_EQ(m_Model.DeleteNodes({root->GetID()}), 2u);
    EXPECT_EQ(Names(), "");
}

TEST_F(ModelDelete, AShapeGoesWithItsLastBone)
{
    OnlyFlags(0);
    XBone* left = Make<XBone>("left");
    XBone* right = Make<XBone>("right");
    XPolygonMesh* mesh = Make<XPolygonMesh>("mesh");
    m_Model.CreateInstance(left, mesh);
    m_Model.CreateInstance(right, mesh);
    EXPECT_EQ(m_Model.DeleteNodes({left->GetID()}), 1u);
    EXPECT_EQ(Names(), "mesh right");
    XInstanceList instances;
    mesh->GetObjectInstances(instances);
    EXPECT_EQ(instances.size(), 1u);
    EXPECT_EQ(m_Model.DeleteNodes({right->GetID()}), 2u);
    EXPECT_EQ(Names(), "");
    EXPECT_FALSE(m_Model.ListInstances(instances));
}

TEST_F(ModelDelete, ABoneTakesItsInstancesEvenWhenItStandsInADeformerQueue)
{
    OnlyFlags(0);
    XBone* bone = Make<XBone>("bone");
    XPolygonMesh* mesh = Make<XPolygonMesh>("mesh");
    m_Model.CreateInstance(bone, mesh);
    ASSERT_TRUE(ReadText(*mesh, Replaced(TextOf(*mesh), "deformer_queue 0",
                                         "deformer_queue 1 " + std::to_string(bone->GetID()))));
    EXPECT_EQ(m_Model.DeleteNodes({bone->GetID()}), 1u);
    EXPECT_EQ(Names(), "mesh");
    XInstanceList instances;
    EXPECT_FALSE(m_Model.ListInstances(instances));
}

TEST_F(ModelDelete, AShapeTakesItsInstancesFromBonesThatStay)
{
    OnlyFlags(0);
    XBone* bone = Make<XBone>("bone");
    XPolygonMesh* mesh = Make<XPolygonMesh>("mesh");
    XSpotLight* lamp = Make<XSpotLight>("lamp");
    m_Model.CreateInstance(bone, mesh);
    const XInstance* kept = m_Model.CreateInstance(bone, lamp);
    EXPECT_TRUE(m_Model.DeleteNode(mesh->GetID()));
    EXPECT_EQ(Names(), "bone lamp");
    EXPECT_EQ(bone->GetInstanceIds(), XIndexList{kept->GetID()});
}

TEST_F(ModelDelete, PlainBonesGoWithTheirShapeUnderTheFlag)
{
    OnlyFlags(DeleteTransforms);
    XBone* bone = Make<XBone>("bone");
    XJoint* joint = Make<XJoint>("joint");
    XPolygonMesh* mesh = Make<XPolygonMesh>("mesh");
    m_Model.CreateInstance(bone, mesh);
    m_Model.CreateInstance(joint, mesh);
    EXPECT_EQ(m_Model.DeleteNodes({mesh->GetID()}), 2u);
    EXPECT_EQ(Names(), "joint");
}

TEST_F(ModelDelete, MaterialsOfNoOtherShapeGoWithTheShape)
{
    OnlyFlags(DeleteMaterials);
    XBone* bone = Make<XBone>("bone");
    XPolygonMesh* one = Make<XPolygonMesh>("one");
    XPolygonMesh* two = Make<XPolygonMesh>("two");
    XLambert* own = Make<XLambert>("own");
    XLambert* shared = Make<XLambert>("shared");
    XInstance* first = m_Model.CreateInstance(bone, one);
    first->SetNumMaterialGroups(2);
    first->SetMaterial(own->GetID(), 0);
    first->SetMaterial(shared->GetID(), 1);
    m_Model.CreateInstance(bone, two)->SetMaterial(shared->GetID());
    EXPECT_EQ(shared->GetNumUsers(), 2u);
    EXPECT_EQ(own->GetNumUsers(), 1u);
    EXPECT_EQ(m_Model.DeleteNodes({one->GetID()}), 2u);
    EXPECT_EQ(Names(), "bone shared two");
}

TEST_F(ModelDelete, AMaterialLeavesTheInstancesThatItCovers)
{
    XBone* bone = Make<XBone>("bone");
    XPolygonMesh* mesh = Make<XPolygonMesh>("mesh");
    XLambert* clay = Make<XLambert>("clay");
    XInstance* instance = m_Model.CreateInstance(bone, mesh);
    instance->SetMaterial(clay->GetID());
    EXPECT_TRUE(m_Model.DeleteNode(clay->GetID()));
    EXPECT_EQ(instance->GetMaterial(), 0u);
    EXPECT_EQ(Names(), "bone mesh");
}

TEST_F(ModelDelete, UvSetsOfAGoneTextureAreDropped)
{
    XBone* bone = Make<XBone>("bone");
    XInstance* instance = m_Model.CreateInstance(bone, Make<XPolygonMesh>("mesh"));
    XTexture* going = Make<XTexture>("going");
    XTexture* staying = Make<XTexture>("staying");
    instance->AddUvSet(going->GetID(), "map1");
    instance->AddUvSet(staying->GetID(), "map2");
    EXPECT_TRUE(m_Model.DeleteNode(going->GetID()));
    ASSERT_EQ(instance->GetUvSets().size(), 1u);
    EXPECT_EQ(instance->GetUvSets()[0]->m_SetName, "map2");
}

TEST_F(ModelDelete, ADeformerGoesWithTheLastGeometryThatItAffects)
{
    OnlyFlags(0);
    XPolygonMesh* one = Make<XPolygonMesh>("one");
    XPolygonMesh* two = Make<XPolygonMesh>("two");
    XNonLinearWave* wave = Make<XNonLinearWave>("wave");
    for (XPolygonMesh* mesh : {one, two}) {
        wave->AddAffected(mesh);
        mesh->SetDeformerQueue({wave});
    }
    EXPECT_EQ(m_Model.DeleteNodes({one->GetID()}), 1u);
    EXPECT_EQ(Names(), "two wave");
    EXPECT_EQ(m_Model.DeleteNodes({two->GetID()}), 2u);
    EXPECT_EQ(Names(), "");
}

TEST_F(ModelDelete, ADeformerForgetsWhatDrivesIt)
{
    OnlyFlags(0);
    XPolygonMesh* mesh = Make<XPolygonMesh>("mesh");
    XPolygonMesh* driver = Make<XPolygonMesh>("driver");
    XBone* handle = Make<XBone>("handle");
    XNonLinearWave* wave = Make<XNonLinearWave>("wave");
    XWrapDeformer* wrap = Make<XWrapDeformer>("wrap");
    wave->AddAffected(mesh);
    wave->SetHandle(handle);
    wrap->AddAffected(mesh);
    wrap->SetDriverGeometry(driver);
    EXPECT_EQ(m_Model.DeleteNodes({handle->GetID(), driver->GetID()}), 2u);
    EXPECT_EQ(Names(), "mesh wave wrap");
    EXPECT_NE(TextOf(*wave).find("\thandle 0\n"), std::string::npos);
    EXPECT_NE(TextOf(*wrap).find("\tdriver_geometry 0\n"), std::string::npos);
}

// A joint cluster stays, with the id.
TEST_F(ModelDelete, AClusterGoesWithItsBone)
{
    OnlyFlags(0);
    XPolygonMesh* mesh = Make<XPolygonMesh>("mesh");
    XBone* bone = Make<XBone>("bone");
    XCluster* cluster = Make<XCluster>("cluster");
    XJointCluster* jointCluster = Make<XJointCluster>("joint_cluster");
    for (XPointCluster* each :
         {static_cast<XPointCluster*>(cluster), static_cast<XPointCluster*>(jointCluster)}) {
        each->AddAffected(mesh);
        each->SetBone(bone);
    }
    const std::string text = TextOf(*jointCluster);
    EXPECT_EQ(m_Model.DeleteNodes({bone->GetID()}), 2u);
    EXPECT_EQ(Names(), "joint_cluster mesh");
    EXPECT_EQ(TextOf(*jointCluster), text);
}

// A deformer that was just made affects nothing yet.
TEST_F(ModelDelete, OnlyNodesThatNameTheDeadAreTold)
{
    Make<XNonLinearWave>("wave");
    EXPECT_EQ(m_Model.DeleteNodes({Make<XBone>("bone")->GetID()}), 1u);
    EXPECT_EQ(Names(), "wave");
}

TEST_F(ModelDelete, ConnectionsToTheDeadGoUnderTheirFlags)
{
    XBone* dead = Make<XBone>("dead");
    XAttribute* attribute = Make<XBone>("bone")->CreateExtraAttribute("speed");
    attribute->Set(1.0f);
    attribute->SetInput(0, dead->GetID(), "a");
    attribute->AddOutput(0, dead->GetID(), "b");
    OnlyFlags(DeleteConnectionOutputs);
    EXPECT_TRUE(m_Model.DeleteNode(dead->GetID()));
    EXPECT_TRUE(attribute->HasInput(0));
    EXPECT_FALSE(attribute->HasOutput(0));
}

TEST_F(ModelDelete, RingsOfNodesEnd)
{
    XBone* a = Make<XBone>("a");
    XBone* b = Make<XBone>("b");
    a->AddChild(b);
    std::string text = SaveText(m_Model);  // a damaged file may close the ring
    text.replace(text.rfind("child_joints 0\n"), 15, "child_joints 1\n\t\t1 \n");
    ASSERT_EQ(LoadText(m_Model, text), FileOk);
    EXPECT_EQ(m_Model.DeleteNodes({2}), 2u);
}

TEST_F(ModelDelete, OfTwoNodesOfOneIdTheFirstGoes)
{
    Make<XBone>("a");
    const std::string text = SaveText(m_Model);
    const std::string second = Replaced(text.substr(text.find("BONE")), "BONE a", "BONE b");
    ASSERT_EQ(LoadText(m_Model, text + second), FileOk);
    EXPECT_TRUE(m_Model.DeleteNode(1));
    EXPECT_EQ(Names(), "b");
}

// Deleting half of a document costs about what it holds, not its square.
TEST_F(ModelDelete, DeletionInMassesIsLinear)
{
    const auto seconds = [&](u32 count) {
        m_Model.Clear();
        XBone* root = m_Model.CreateNode<XBone>();
        XLambert* clay = m_Model.CreateNode<XLambert>();
        std::set<u32> going;
        for (u32 i = 0; i < count; ++i) {
            XBone* bone = m_Model.CreateNode<XBone>();
            XPolygonMesh* mesh = m_Model.CreateNode<XPolygonMesh>();
            m_Model.CreateInstance(bone, mesh)->SetMaterial(clay->GetID());
            if (i % 2)
                root->AddChild(bone);
            going.insert(i % 2 ? bone->GetID() : mesh->GetID());
        }
        const std::clock_t start = std::clock();  // of this process, however busy the machine is
        EXPECT_EQ(m_Model.DeleteNodes(going), 2 * count);
        return static_cast<double>(std::clock() - start);
    };
    seconds(2'000);
    const double small = seconds(2'000);
    EXPECT_LT(seconds(32'000), 16 * 8 * small);  // the square would be 256 times as much
}

}  // namespace
