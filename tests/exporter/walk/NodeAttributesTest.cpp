#include "exporter/walk/NodeAttributes.h"

#include "VKT/node/Attribute.h"
#include "exporter/walk/SceneWalk.h"
#include "scenes/ExportScenes.h"

namespace VKTMax {
namespace {

using namespace export_scenes;
using maxhost::MakeNode;

class NodeAttributesTest : public ExportTest {
protected:
    INode* MakeNodeWith(const char* properties)
    {
        INode* node = MakeNode("a");
        node->SetUserPropBuffer(properties);
        return node;
    }
    VKT::XStringList AttributesOf(const std::string& bone)
    {
        VKT::XStringList names;
        BoneOf(bone)->ListExtraAttributes(names);
        return names;
    }
    // Fails the test when the bone has no such attribute of that type.
    template <class T>
    T ValueOf(const char* attribute)
    {
        T value{};
        const VKT::XAttribute* found = BoneOf("a")->GetExtraAttribute(attribute);
        EXPECT_TRUE(found && found->Get(value)) << attribute;
        return value;
    }
};

using Names = VKT::XStringList;

TEST_F(NodeAttributesTest, WireColourIsAnAttributeOfEachBone)
{
    MakeNode("a")->SetWireColor(RGB(255, 51, 102));
    ExportScene();
    const VKT::XColour colour = ValueOf<VKT::XColour>("wire_colour");
    EXPECT_EQ(colour.r, 1.0f);
    EXPECT_EQ(colour.g, 0.2f);
    EXPECT_EQ(colour.b, 0.4f);
    EXPECT_EQ(colour.a, 1.0f);
    EXPECT_EQ(AttributesOf("Scene_Root"), (Names{"wire_colour"}));
}

// The host then hands out a string without characters, not one of length 0.
TEST_F(NodeAttributesTest, NodeWithoutPropertiesHasTheWireColourAlone)
{
    INode* node = MakeNode("a");
    MSTR text;
    node->GetUserPropBuffer(text);
    ASSERT_EQ(text.data(), nullptr);
    ExportScene();
    EXPECT_EQ(AttributesOf("a"), (Names{"wire_colour"}));
}

TEST_F(NodeAttributesTest, PropertiesFollowTheWireColour)
{
    MakeNodeWith("a = 1\r\nb=2.5\r\nc = yes\r\nd=TRUE\r\ne = false\r\nf = -3\r\n");
    ExportScene();
    EXPECT_EQ(AttributesOf("a"), (Names{"wire_colour", "a", "b", "c", "d", "e", "f"}));
    EXPECT_EQ(ValueOf<i32>("a"), 1);
    EXPECT_EQ(ValueOf<f32>("b"), 2.5f);
    EXPECT_EQ(ValueOf<VKT::XString>("c"), "yes");
    EXPECT_EQ(ValueOf<bool>("d"), true);
    EXPECT_EQ(ValueOf<bool>("e"), false);
    EXPECT_EQ(ValueOf<VKT::XString>("f"), "-3");
}

TEST_F(NodeAttributesTest, NumbersAreWhatTheHostReads)
{
    // The host knows the name with its blank, the attribute has none.
    MakeNodeWith("empty =\nlarge = 99999999999\npoint = .\nmy count = 7\n");
    ExportScene();
    EXPECT_EQ(ValueOf<i32>("empty"), 0);
    EXPECT_EQ(ValueOf<i32>("large"), 0);
    EXPECT_EQ(ValueOf<f32>("point"), 0.0f);
    EXPECT_EQ(ValueOf<i32>("mycount"), 0);
}

TEST_F(NodeAttributesTest, FirstOfEqualNamesCounts)
{
    MakeNodeWith("wire_colour = red\nsize = small\nsize = large\n");
    ExportScene();
    EXPECT_EQ(AttributesOf("a"), (Names{"wire_colour", "size"}));
    EXPECT_EQ(ValueOf<VKT::XString>("size"), "small");
    EXPECT_EQ(ValueOf<VKT::XColour>("wire_colour").a, 1.0f);
}

TEST_F(NodeAttributesTest, OptionLeavesPropertiesOutAndKeepsTheWireColour)
{
    MakeNodeWith("size = 1\n");
    options.SetIncludeProperties(false);
    ExportScene();
    EXPECT_EQ(AttributesOf("a"), (Names{"wire_colour"}));
}

TEST_F(NodeAttributesTest, SelectionTakesThoseOfSelectedNodes)
{
    INode* node = MakeNodeWith("size = 1\n");
    INode* other = MakeNode("other", nullptr, node);
    other->SetUserPropBuffer("size = 2\n");
    host.GetInterface().SelectNode(node, 0);
    ExportSelection();
    EXPECT_EQ(AttributesOf("a"), (Names{"wire_colour", "size"}));
    EXPECT_EQ(model.GetNodes().size(), 1u);
}

// The tree below a selected node is built whole, but only the walk gives attributes.
TEST_F(NodeAttributesTest, BoneThatTheWalkPassesOverHasNone)
{
    INode* node = MakeNodeWith("size = 1\n");
    INode* below = MakeNode("below", nullptr, node);
    below->SetUserPropBuffer("size = 2\n");
    host.GetInterface().SelectNode(node, 0);
    VKTExportCore core(model, true);
    ASSERT_TRUE(ExportAllNodes(core, Root(), {}));
    EXPECT_EQ(AttributesOf("a"), (Names{"wire_colour", "size"}));
    EXPECT_EQ(AttributesOf("below"), Names{});
}

}  // namespace
}  // namespace VKTMax
