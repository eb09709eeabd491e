#include "exporter/geometry/ShapePlacement.h"

#include "VKT/shading/Lambert.h"
#include "exporter/walk/SceneWalk.h"
#include "scenes/ExportScenes.h"

namespace VKTMax {
namespace {

using namespace export_scenes;
using maxhost::MakeNode;

// Six faces over three points; what is looked at is their material numbers.
TriObject* MakeFaces(const std::vector<MtlID>& numbers)
{
    TriObject* object = maxhost::MakeTriangles({Point3(0, 0, 0), Point3(1, 0, 0), Point3(0, 1, 0)},
                                               std::vector<maxhost::Triangle>(numbers.size(), {0, 1, 2}));
    for (std::size_t face = 0; face < numbers.size(); ++face)
        object->mesh.setFaceMtlIndex(static_cast<int>(face), numbers[face]);
    return object;
}

class ShapePlacementTest : public ExportTest {
protected:
    void SetUp() override
    {
        ExportTest::SetUp();
        red = maxhost::MakeMaterial("red");
        green = maxhost::MakeMaterial("green");
        blue = maxhost::MakeMaterial("blue");
    }
    // Enters a material as if it had been exported, and answers the id of its node.
    VKT::u32 Exported(Mtl* material)
    {
        VKT::XBase* node = model.CreateNode<VKT::XLambert>();
        core.Remember(material, *node);
        return node->GetID();
    }
    // The instance of the mesh on a node of that object and material.
    const VKT::XInstance& Place(Object* object, Mtl* material)
    {
        INode* node = MakeNode("a", object);
        node->SetMtl(material);
        EXPECT_TRUE(ExportAllNodes(core, Root(), {}));
        VKT::XInstanceList instances;
        EXPECT_TRUE(BoneOf("a")->ListInstances(instances));
        return *instances.front();
    }

    VKTExportCore core{model, false};
    StdMat2* red = nullptr;
    StdMat2* green = nullptr;
    StdMat2* blue = nullptr;
};

TEST_F(ShapePlacementTest, OneMaterialCoversTheWholeShape)
{
    const VKT::u32 id = Exported(red);
    const VKT::XInstance& instance = Place(MakeFaces({0, 5}), red);
    EXPECT_EQ(instance.GetMaterial(), id);
    EXPECT_TRUE(instance.GetMaterialGroups().empty());
    EXPECT_EQ(instance.GetParent(), BoneOf("a"));
    EXPECT_EQ(instance.GetShape(), MeshOf("a"));
}

TEST_F(ShapePlacementTest, MaterialThatWasNotExportedIsNotAssigned)
{
    const VKT::XInstance& instance = Place(MakeFaces({0}), red);
    EXPECT_EQ(instance.GetMaterial(), 0u);
}

TEST_F(ShapePlacementTest, WithoutMaterialsNothingIsAssigned)
{
    Exported(red);
    options.SetIncludeMaterials(false);
    const VKT::XInstance& instance = Place(MakeFaces({0}), red);
    EXPECT_EQ(instance.GetMaterial(), 0u);
}

TEST_F(ShapePlacementTest, FacesOfAMultiMaterialAreGrouped)
{
    const VKT::u32 redId = Exported(red);
    const VKT::u32 blueId = Exported(blue);
    Exported(green);
    const VKT::XInstance& instance =
        Place(MakeFaces({2, 0, 2, 0, 0}), maxhost::MakeMultiMaterial("multi", {red, green, blue}));
    EXPECT_EQ(instance.GetMaterial(), 0u);
    const auto& groups = instance.GetMaterialGroups();
    ASSERT_EQ(groups.size(), 2u);
    EXPECT_EQ(groups[0]->m_Material, redId);
    EXPECT_EQ(groups[0]->m_Faces, (VKT::XIndexList{1, 3, 4}));
    EXPECT_EQ(groups[1]->m_Material, blueId);
    EXPECT_EQ(groups[1]->m_Faces, (VKT::XIndexList{0, 2}));
}

TEST_F(ShapePlacementTest, FaceNumbersCountModuloTheSubMaterials)
{
    Exported(red);
    const VKT::u32 greenId = Exported(green);
    const VKT::XInstance& instance =
        Place(MakeFaces({7, 7, 7}), maxhost::MakeMultiMaterial("multi", {red, green}));
    EXPECT_EQ(instance.GetMaterial(), greenId);
    EXPECT_TRUE(instance.GetMaterialGroups().empty());
}

TEST_F(ShapePlacementTest, OnlyBucketWithoutAnExportedMaterialAssignsNone)
{
    Exported(red);
    const VKT::XInstance& instance =
        Place(MakeFaces({1, 1}), maxhost::MakeMultiMaterial("multi", {red, green}));
    EXPECT_EQ(instance.GetMaterial(), 0u);
    EXPECT_TRUE(instance.GetMaterialGroups().empty());
}

TEST_F(ShapePlacementTest, BucketWithoutAnExportedMaterialLeavesTheLastGroupEmpty)
{
    const VKT::u32 blueId = Exported(blue);
    const VKT::XInstance& instance =
        Place(MakeFaces({0, 2}), maxhost::MakeMultiMaterial("multi", {red, nullptr, blue}));
    const auto& groups = instance.GetMaterialGroups();
    ASSERT_EQ(groups.size(), 2u);
    EXPECT_EQ(groups[0]->m_Material, blueId);
    EXPECT_EQ(groups[0]->m_Faces, (VKT::XIndexList{1}));
    EXPECT_EQ(groups[1]->m_Material, 0u);
    EXPECT_TRUE(groups[1]->m_Faces.empty());
}

TEST_F(ShapePlacementTest, MultiMaterialWithoutSubMaterialsAssignsNone)
{
    const VKT::XInstance& instance = Place(MakeFaces({0, 3}), maxhost::MakeMultiMaterial("multi", {}));
    EXPECT_EQ(instance.GetMaterial(), 0u);
    EXPECT_TRUE(instance.GetMaterialGroups().empty());
}

TEST_F(ShapePlacementTest, MeshWithoutFacesAssignsNone)
{
    Exported(red);
    const VKT::XInstance& instance = Place(maxhost::MakeTriangles({Point3(0, 0, 0)}, {}),
                                           maxhost::MakeMultiMaterial("multi", {red, green}));
    EXPECT_EQ(instance.GetMaterial(), 0u);
    EXPECT_TRUE(instance.GetMaterialGroups().empty());
}

}  // namespace
}  // namespace VKTMax
