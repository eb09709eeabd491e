#include "VKT/rigging/NodeCollection.h"

#include "VKT/hierarchy/Bone.h"
#include "VKT/rigging/DisplayLayer.h"
#include "VKT/rigging/ObjectSet.h"
#include "VKT/rigging/RenderLayer.h"
#include "VKT/support/NodeTest.h"
#include "VKT/support/PropertyRows.h"

using namespace VKT;
using namespace VKT::Test;

namespace {

class NodeCollection : public NodeTest {
protected:
    XBone& m_First = *m_Model.CreateNode<XBone>();  // id 1
    XBone& m_Second = *m_Model.CreateNode<XBone>();
    XDisplayLayer m_Layer{&m_Model};
    XObjectSet m_Set{&m_Model};
};

constexpr const char kText[] = "\tnum_items 3\n\t\t1\n\t\t2\n\t\t1\n";
constexpr const char kBytes[] = "00 00 00 00 00 00 03 00 00 00 01 00 00 00 02 00 00 00 01 00 00 00";
const std::string kSetText = kText + std::string("\tannotation \"loose\"\n");
const std::string kSetBytes = kBytes + std::string(" 05 00 6c 6f 6f 73 65");

TEST_F(NodeCollection, FreshOnesWriteTheirDefaults)
{
    EXPECT_EQ(ChunkOf(*m_Model.CreateNode<XDisplayLayer>()),
              "DISPLAY_LAYER node3\n{\n\tid 3\n\tnum_items 0\n}\n");
    EXPECT_EQ(ChunkOf(*m_Model.CreateNode<XRenderLayer>()),
              "RENDER_LAYER node4\n{\n\tid 4\n\tnum_items 0\n}\n");
    EXPECT_EQ(ChunkOf(*m_Model.CreateNode<XObjectSet>()),
              "OBJECT_SET node5\n{\n\tid 5\n\tnum_items 0\n\tannotation \"\"\n}\n");
    EXPECT_EQ(m_Layer.GetDataSize(), 14u + 4);
    EXPECT_EQ(m_Set.GetDataSize(), 14u + 4 + 2);
    for (const u32 type : {22u, 167u, 0u})
        EXPECT_EQ(m_Set.HasFn(type), &m_Set) << type;
    EXPECT_EQ(m_Layer.HasFn(20), &m_Layer);
    EXPECT_EQ(m_Layer.HasFn(21), nullptr);
}

TEST_F(NodeCollection, TextReadsBack)
{
    EXPECT_TRUE(ReadText(m_Layer, kText));
    EXPECT_EQ(TextOf(m_Layer), kText);
    EXPECT_TRUE(ReadText(m_Set, kSetText));
    EXPECT_EQ(TextOf(m_Set), kSetText);
    EXPECT_EQ(m_Set.GetAnnotation(), "loose");
}

TEST_F(NodeCollection, BytesReadBackAndHaveNoGates)
{
    MakeOlder();
    XRenderLayer layer(&m_Model);
    EXPECT_TRUE(ReadBody(layer, Bytes(kBytes)));
    EXPECT_EQ(TextOf(layer), kText);
    EXPECT_EQ(Hex(BodyOf(layer)), kBytes);
    EXPECT_TRUE(ReadText(layer, kText));
    EXPECT_EQ(layer.GetDataSize(), 14u + 4 + 4 * 3);
    XObjectSet set(&m_Model);
    EXPECT_TRUE(ReadBody(set, Bytes(kSetBytes)));
    EXPECT_EQ(TextOf(set), kSetText);
    EXPECT_EQ(Hex(BodyOf(set)), kSetBytes);
    EXPECT_EQ(set.GetDataSize(), 14u + 4 + 4 * 3 + 2 + 5);
    const std::string bytes = Bytes(kSetBytes);
    for (std::size_t length = 0; length < bytes.size(); ++length)
        EXPECT_FALSE(ReadBody(set, bytes.substr(0, length))) << length;
}

TEST_F(NodeCollection, MembersComeAndGo)
{
    XDisplayLayer& layer = *m_Model.CreateNode<XDisplayLayer>();
    EXPECT_TRUE(layer.AddItem(&m_First));
    EXPECT_TRUE(layer.AddItem(&m_Second));
    EXPECT_TRUE(layer.AddItem(&m_First));
    EXPECT_EQ(TextOf(layer), kText);
    EXPECT_TRUE(layer.HasItem(&m_Second));
    XNodeList items;
    EXPECT_TRUE(layer.GetItems(items));
    EXPECT_EQ(items, (XNodeList{&m_First, &m_Second, &m_First}));
    EXPECT_TRUE(layer.RemoveItem(&m_First));
    EXPECT_EQ(TextOf(layer), "\tnum_items 2\n\t\t2\n\t\t1\n");
    EXPECT_TRUE(layer.RemoveItem(&m_Second));
    EXPECT_FALSE(layer.RemoveItem(&m_Second));
    EXPECT_FALSE(layer.HasItem(&m_Second));
    EXPECT_FALSE(layer.HasItem(nullptr));
    EXPECT_FALSE(layer.RemoveItem(nullptr));
    XModel other;
    EXPECT_FALSE(layer.AddItem(nullptr));
    EXPECT_FALSE(layer.AddItem(other.CreateNode(kFnBone)));
    EXPECT_EQ(layer.GetNumItems(), 1u);
    // Any node may be a member, and one that is gone is left out.
    EXPECT_TRUE(layer.AddItem(&layer));
    ASSERT_TRUE(ReadText(layer, "num_items 2 99 3"));
    EXPECT_TRUE(layer.GetItems(items));
    EXPECT_EQ(items, (XNodeList{&layer}));
}

TEST_F(NodeCollection, DeathRemovesTheFirstEntry)
{
    ASSERT_TRUE(ReadText(m_Layer, kText));
    EXPECT_TRUE(m_Layer.NodeDeath(1));
    EXPECT_EQ(TextOf(m_Layer), "\tnum_items 2\n\t\t2\n\t\t1\n");
    EXPECT_TRUE(m_Layer.NodeDeath(99));
    EXPECT_EQ(m_Layer.GetNumItems(), 2u);
    std::set<u32> ids;
    m_Layer.PreDelete(ids);
    EXPECT_TRUE(ids.empty());
}

TEST_F(NodeCollection, DeletedMemberShortensTheItems)
{
    XDisplayLayer& layer = *m_Model.CreateNode<XDisplayLayer>();
    XObjectSet& set = *m_Model.CreateNode<XObjectSet>();
    for (XNodeCollection* items :
         {static_cast<XNodeCollection*>(&layer), static_cast<XNodeCollection*>(&set)}) {
        items->AddItem(&m_First);
        items->AddItem(&m_Second);
    }
    EXPECT_TRUE(m_Model.DeleteNode(m_First.GetID()));
    EXPECT_EQ(TextOf(layer), "\tnum_items 1\n\t\t2\n");
    EXPECT_EQ(TextOf(set), "\tnum_items 1\n\t\t2\n\tannotation \"\"\n");
}

TEST_F(NodeCollection, WrongKeysAreLogged)
{
    EXPECT_FALSE(ReadText(m_Set, Replaced(kSetText, "num_items", "items")));
    EXPECT_FALSE(ReadText(m_Set, Replaced(kSetText, "annotation", "remark")));
    EXPECT_FALSE(ReadText(m_Set, Replaced(kSetText, "items 3", "items 4294967295")));
    EXPECT_EQ(m_Log.Text(),
              "Error : Expected num_items got items [.\\src\\VKT\\NodeCollection:1]\n"
              "Error : Expected annotation got remark [.\\src\\VKT\\ObjectSet:1]\n"
              "Error : Expected annotation got  [.\\src\\VKT\\ObjectSet:1]\n");
}

// Kept on purpose.
TEST_F(NodeCollection, AnnotationIsCutAtItsFirstBlankInText)
{
    XObjectSet& set = *m_Model.CreateNode<XObjectSet>();
    set.SetAnnotation("loose parts of \"it\"");
    const std::string text = SaveText(m_Model);
    EXPECT_NE(text.find("\tannotation \"loose parts of \"it\"\"\n"), std::string::npos);
    const std::string bytes = SaveBinaryBytes(m_Model);
    ASSERT_EQ(LoadText(m_Model, text), FileOk);
    EXPECT_EQ(XCast<XObjectSet>(m_Model.FindNode(3))->GetAnnotation(), "loose");
    ASSERT_EQ(LoadBytes(m_Model, bytes), FileOk);
    EXPECT_EQ(XCast<XObjectSet>(m_Model.FindNode(3))->GetAnnotation(), "loose parts of \"it\"");
}

TEST_F(NodeCollection, AnnotationLosesAQuoteOnEitherSide)
{
    for (const auto& [word, annotation] :
         {std::pair{"\"\"", ""}, std::pair{"a", "a"}, std::pair{"\"", ""}, std::pair{"\"a", "a"},
          std::pair{"a\"", "a"}, std::pair{"\"\"\"", "\""}}) {
        EXPECT_TRUE(ReadText(m_Set, "num_items 0 annotation " + std::string(word)));
        EXPECT_EQ(m_Set.GetAnnotation(), annotation) << word;
    }
}

TEST_F(NodeCollection, CloneHasAllValues)
{
    XObjectSet& set = *m_Model.CreateNode<XObjectSet>();
    ASSERT_TRUE(ReadText(set, kSetText));
    EXPECT_EQ(TextOf(*set.Clone()), kSetText);
}

TEST_F(NodeCollection, PropertiesReachTheFields)
{
    EXPECT_EQ(RowsOf(XNodeCollection::ClassProperties()), "1 properties\nitems nodes 1 l of 86\n");
    EXPECT_EQ(RowsOf(XObjectSet::ClassProperties()), "2 properties\nannotation string 2\n");
    EXPECT_EQ(XDisplayLayer::ClassProperties(), XNodeCollection::ClassProperties());
    EXPECT_EQ(XRenderLayer::ClassProperties(), XNodeCollection::ClassProperties());
    const XNodeProperties& properties = *m_Set.GetNodeProperties();
    EXPECT_TRUE(properties.SetNodeArray(&m_Set, 1, {&m_First, &m_Second, &m_First}));
    EXPECT_TRUE(properties.SetString(&m_Set, 2, "loose"));
    EXPECT_EQ(TextOf(m_Set), kSetText);
    XString annotation;
    EXPECT_TRUE(properties.GetString(&m_Set, 2, annotation));
    EXPECT_EQ(annotation, "loose");
}

}  // namespace
