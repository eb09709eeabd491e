#include "VKT/document/NodeTable.h"

#include "VKT/hierarchy/Bone.h"
#include "VKT/support/NodeTest.h"

using namespace VKT;
using namespace VKT::Test;

namespace {

class NodeTable : public NodeTest {
protected:
    XBase& Enter(const char* name)
    {
        auto node = std::make_unique<XBone>(&m_Model);
        m_Table.Number(*node);
        m_Table.Rename(*node, name);
        return *m_Table.Enter(std::move(node));
    }
    std::string Names() const
    {
        std::string names;
        for (const auto& [name, node] : m_Table)
            names += std::string(name) + std::to_string(node->GetID()) + ' ';
        return names;
    }

    XNodeTable m_Table;
};

TEST_F(NodeTable, AWalkGoesByNameAndEqualNamesByArrival)
{
    EXPECT_TRUE(m_Table.empty());
    Enter("b");
    Enter("a");
    Enter("b");
    Enter("");
    EXPECT_EQ(Names(), "4 a2 b1 b3 ");
    EXPECT_EQ(m_Table.size(), 4u);
    EXPECT_EQ(m_Table.Find("b")->GetID(), 1u);
    EXPECT_EQ(m_Table.Find("c"), nullptr);
}

TEST_F(NodeTable, ANodeIsHeldFromItsEntryOn)
{
    XBone alone(&m_Model);
    EXPECT_FALSE(XNodeTable::Holds(alone));
    m_Table.Rename(alone, "alone");
    EXPECT_STREQ(alone.GetName(), "alone");
    EXPECT_FALSE(m_Table.Contains("alone"));
    EXPECT_TRUE(XNodeTable::Holds(Enter("a")));
}

TEST_F(NodeTable, ARenamedNodeStandsAtItsNewPlace)
{
    XBase& node = Enter("a");
    Enter("b");
    m_Table.Rename(node, "c");
    EXPECT_EQ(Names(), "b2 c1 ");
    m_Table.Rename(node, node.GetName());
    EXPECT_EQ(Names(), "b2 c1 ");
}

TEST_F(NodeTable, ADeletedNodeIsFoundByNeitherAndFreesItsNumber)
{
    Enter("arm1");
    XBase& second = Enter("arm2");
    EXPECT_EQ(m_Table.FirstFreeName("arm"), "arm3");
    m_Table.Delete(second);
    EXPECT_EQ(Names(), "arm11 ");
    EXPECT_EQ(m_Table.Find(2), nullptr);
    EXPECT_EQ(m_Table.FirstFreeName("arm"), "arm2");
}

TEST_F(NodeTable, AnEmptiedTableBeginsAnew)
{
    Enter("a1");
    EXPECT_EQ(m_Table.FirstFreeName("a"), "a2");
    m_Table.Clear();
    EXPECT_EQ(m_Table.FirstFreeName("a"), "a1");
    EXPECT_EQ(Enter("b").GetID(), 1u);
}

}  // namespace
