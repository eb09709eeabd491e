#include "max/Node.h"

#include "max/UserProperties.h"
#include "scenes/ExportScenes.h"

namespace VKTMax {
namespace {

using namespace export_scenes;
using maxhost::MakeNode;

class NodeBorderTest : public ExportTest {};

Vector3d Row(const RowMatrix& matrix, int row)
{
    return {matrix.m[row][0], matrix.m[row][1], matrix.m[row][2]};
}
void ExpectRow(const RowMatrix& matrix, int row, double x, double y, double z)
{
    const Vector3d read = Row(matrix, row);
    EXPECT_NEAR(read.x, x, 1e-6);
    EXPECT_NEAR(read.y, y, 1e-6);
    EXPECT_NEAR(read.z, z, 1e-6);
}

TEST_F(NodeBorderTest, NodeIsReadAsItStandsAtTimeZero)
{
    TriObject* object = MakeTriangle();
    INode* parent = MakeNode("parent");
    maxhost::SetPosition(*parent, Point3(10, 0, 0));
    INode* node = MakeNode("a", object, parent);
    maxhost::AddKey(*node, maxhost::Track::PositionX, 0, 1.0f);
    maxhost::AddKey(*node, maxhost::Track::PositionX, 4800, 5.0f);
    Mtl* material = maxhost::MakeMaterial("red");
    node->SetMtl(material);
    node->Hide(TRUE);
    node->SetVisibility(0, 0.25f);
    node->SetBoneNodeOnOff(TRUE, 0);
    node->SetWireColor(RGB(255, 51, 102));
    node->SetObjOffsetPos(Point3(0, 0, 7));
    node->SetObjOffsetScale(ScaleValue(Point3(2, 3, 4)));

    const HostNode read = ReadNode(node);
    EXPECT_EQ(read.handle, node);
    EXPECT_EQ(read.name, "a");
    EXPECT_EQ(read.object.handle, object);
    EXPECT_EQ(read.object.superClass, GEOMOBJECT_CLASS_ID);
    EXPECT_FALSE(read.object.isBipedPart);
    EXPECT_FALSE(read.object.isBoneObject);
    EXPECT_EQ(read.material, material);
    EXPECT_TRUE(read.isHidden);
    EXPECT_EQ(read.visibility, 0.25f);
    EXPECT_TRUE(read.isBone);
    EXPECT_EQ(read.wireColour, (VKT::XColour{1.0f, 0.2f, 0.4f, 1.0f}));
    ExpectRow(read.world, 3, 11, 0, 0);
    ExpectRow(read.objectOffset, 0, 2, 0, 0);
    ExpectRow(read.objectOffset, 1, 0, 3, 0);
    ExpectRow(read.objectOffset, 2, 0, 0, 4);
    ExpectRow(read.objectOffset, 3, 0, 0, 7);
    ExpectRow(WorldMatrix(node, 4800), 3, 15, 0, 0);
}

TEST_F(NodeBorderTest, NodeWithNothingOnIt)
{
    const HostNode read = ReadNode(MakeNode("a"));
    EXPECT_FALSE(read.object);
    EXPECT_EQ(read.object.superClass, 0u);
    EXPECT_EQ(read.material, nullptr);
    EXPECT_FALSE(read.isHidden);
    EXPECT_EQ(read.visibility, 1.0f);
    EXPECT_FALSE(read.isBone);
}

TEST_F(NodeBorderTest, ObjectsOfSkeletonsAreTold)
{
    const HostObject biped = ReadObject(MakeOddMesh(Class_ID(0x9125, 0)));
    EXPECT_TRUE(biped.isBipedPart);
    EXPECT_FALSE(biped.isBoneObject);
    const HostObject bone = ReadObject(MakeOddMesh(Class_ID(0x28BF6E8D, 0x2ECCA840)));
    EXPECT_FALSE(bone.isBipedPart);
    EXPECT_TRUE(bone.isBoneObject);
    EXPECT_FALSE(ReadObject(nullptr));
}

TEST_F(NodeBorderTest, TreeIsReadInItsOrder)
{
    INode* a = MakeNode("a");
    INode* a1 = MakeNode("a1", nullptr, a);
    INode* a2 = MakeNode("a2", nullptr, a);
    EXPECT_EQ(ChildrenOf(a), (std::vector<INode*>{a1, a2}));
    EXPECT_TRUE(ChildrenOf(a2).empty());
    EXPECT_EQ(ParentOf(a1), a);
    EXPECT_EQ(ParentOf(Root()), nullptr);
    host.GetInterface().SelectNode(a1, 0);
    EXPECT_TRUE(IsSelected(a1));
    EXPECT_FALSE(IsSelected(a));
}

TEST_F(NodeBorderTest, NodeWithoutUserPropertiesHasNoText)
{
    INode* node = MakeNode("a");
    EXPECT_EQ(UserPropertyText(node), "");
    EXPECT_EQ(UserPropertyInt(node, "size"), 0);
    EXPECT_EQ(UserPropertyFloat(node, "size"), 0.0f);
}

}  // namespace
}  // namespace VKTMax
