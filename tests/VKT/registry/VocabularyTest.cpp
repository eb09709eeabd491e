#include "VKT/support/Vocabulary.h"

#include <algorithm>
#include <map>
#include <set>
#include <string>

#include "VKT/support/NodeTest.h"

// The vocabulary of all classes is, row by row, the one that is written down.

using namespace VKT;
using namespace VKT::Test;

namespace {

static_assert(kAnimatable == 1 && kReadOnly == 2 && kList == 4);

// A row as text: what it is called, then what a caller sees of it.
template <class Row>
std::string Describe(const Row& row, u32 valueType)
{
    return std::string(row.name) + " type " + std::to_string(valueType) + " number " +
           std::to_string(row.id) + " flags " + std::to_string(row.flags) + " of " +
           std::to_string(row.nodeType);
}

std::vector<std::string> WrittenDown(std::string_view type)
{
    std::vector<std::string> rows;
    for (const VocabularyRow& row : ListVocabulary(type))
        rows.push_back(Describe(row, row.valueType));
    return rows;
}

std::vector<std::string> Reported(const XNodeProperties* properties)
{
    std::vector<std::string> rows;
    for (; properties; properties = properties->GetBase())
        for (const XPropertyInfo& row : properties->GetRows())
            rows.push_back(Describe(row, row.type));
    return rows;
}

class Vocabulary : public NodeTest {
protected:
    // The property object of a class, also of an abstract one.
    static const XNodeProperties* PropertiesOf(const char* type)
    {
        return XFnFindByName(type)->GetTables().properties;
    }
};

TEST_F(Vocabulary, ListIsThatOfAllClasses)
{
    std::multiset<std::string> listed;
    for (const VocabularyTable& table : kVocabularyTables)
        listed.insert(table.type);
    for (const SharedVocabulary& shared : kSharedVocabularies)
        listed.insert(shared.type);
    for (const char* type : kNoVocabulary)
        listed.insert(type);
    std::multiset<std::string> registered;
    for (const XFnInfo* info : XFnListTypes())
        registered.insert(info->GetTypeName());
    EXPECT_EQ(listed, registered);
    EXPECT_EQ(listed.size(), 109u);

    EXPECT_EQ(std::size(kVocabularyRows), 383u);
    EXPECT_EQ(std::ranges::count_if(kVocabularyRows,
                                    [](const VocabularyRow& row) { return (row.flags & kReadOnly) != 0; }),
              27);
    std::set<std::string> owners;
    for (const VocabularyRow& row : kVocabularyRows)
        owners.insert(row.type);
    EXPECT_EQ(owners.size(), std::size(kVocabularyTables));
}

TEST_F(Vocabulary, EachClassHasItsRows)
{
    for (const XFnInfo* info : XFnListTypes())
        EXPECT_EQ(Reported(info->GetTables().properties), WrittenDown(info->GetTypeName()))
            << info->GetTypeName();
}

TEST_F(Vocabulary, EachClassReportsItsTotal)
{
    for (const VocabularyTable& table : kVocabularyTables)
        EXPECT_EQ(PropertiesOf(table.type)->GetNumProperties(), table.total) << table.type;
    for (const char* type : kNoVocabulary)
        EXPECT_EQ(PropertiesOf(type)->GetNumProperties(), 0u) << type;
}

TEST_F(Vocabulary, ClassesWithoutRowsOfTheirOwnHaveTheObjectOfAnother)
{
    for (const auto& [type, owner] : kSharedVocabularies)
        EXPECT_EQ(PropertiesOf(type), PropertiesOf(owner)) << type;
    for (const char* type : {"base", "animationTake", "hwShader", "mv", "shadingNode"})
        EXPECT_EQ(PropertiesOf(type), XNodeProperties::Empty()) << type;
}

TEST_F(Vocabulary, NodesAnswerByTheObjectOfTheirClass)
{
    for (const XFnInfo* info : XFnListTypes()) {
        const std::unique_ptr<XBase> node(info->Create(&m_Model));
        if (node) {
            EXPECT_EQ(node->GetNodeProperties(), info->GetTables().properties) << info->GetTypeName();
        }
    }
}

// An instance of a user-defined type is a node of the built-in class behind it.
TEST_F(Vocabulary, UserDefinedNodesHaveThatOfTheirBase)
{
    const XInheritedNode* const hip = m_Model.AddInheritedNode(kFnJoint, "HIP");
    EXPECT_EQ(m_Model.CreateNode(*hip)->GetNodeProperties(), PropertiesOf("joint"));
    const std::pair<u32, const char*> families[] = {
        {0, "base"},    {1, "material"}, {2, "shape"},    {3, "light"}, {4, "bone"},
        {5, "emitter"}, {6, "field"},    {8, "deformer"}, {9, "base"},  {10, "hwShader"},
    };
    for (const auto& [family, base] : families) {
        const XNewNode* const type = m_Model.AddNewNode(family, base, "NEW_" + std::to_string(family));
        ASSERT_NE(type, nullptr);
        EXPECT_EQ(m_Model.CreateNode(*type)->GetNodeProperties(), PropertiesOf(base)) << base;
    }
}

// Of rows with one number or one name the first answers, and the others do not show.
TEST_F(Vocabulary, LookUpsAnswerTheFirstRow)
{
    for (const XFnInfo* info : XFnListTypes()) {
        SCOPED_TRACE(info->GetTypeName());
        const XNodeProperties& properties = *info->GetTables().properties;
        std::map<u32, VocabularyRow> byId;
        std::map<std::string, u32> byName;
        for (const VocabularyRow& row : ListVocabulary(info->GetTypeName())) {
            byId.try_emplace(row.id, row);
            byName.try_emplace(row.name, row.id);
        }
        for (u32 id = 0; id < 100; ++id) {
            const auto row = byId.find(id);
            const VocabularyRow none{"", "", 0, 0};
            const VocabularyRow& expected = row == byId.end() ? none : row->second;
            EXPECT_EQ(properties.GetPropertyName(id), expected.name);
            EXPECT_EQ(properties.GetPropertyType(id), expected.valueType) << expected.name;
            EXPECT_EQ(properties.GetPropertyFlags(id), expected.flags) << expected.name;
            EXPECT_EQ(properties.GetPropertyNodeType(id), expected.nodeType) << expected.name;
        }
        for (const VocabularyRow& row : kVocabularyRows) {
            const auto id = byName.find(row.name);
            EXPECT_EQ(properties.GetPropertyId(row.name), id == byName.end() ? 0 : id->second) << row.name;
        }
    }
}

TEST_F(Vocabulary, NodesForwardTheFourLookUps)
{
    for (const XFnInfo* info : XFnListTypes()) {
        const std::unique_ptr<XBase> node(info->Create(&m_Model));
        if (!node)
            continue;
        const XNodeProperties& properties = *node->GetNodeProperties();
        for (const VocabularyRow& row : ListVocabulary(info->GetTypeName())) {
            EXPECT_EQ(node->GetPropertyId(row.name), properties.GetPropertyId(row.name));
            EXPECT_EQ(node->GetPropertyName(row.id), properties.GetPropertyName(row.id));
            EXPECT_EQ(node->GetPropertyType(row.id), properties.GetPropertyType(row.id));
            EXPECT_EQ(node->IsPropertyAnimated(row.id), (properties.GetPropertyFlags(row.id) & 1) != 0);
        }
    }
}

}  // namespace
