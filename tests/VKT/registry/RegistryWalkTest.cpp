#include <algorithm>
#include <set>

#include "VKT/animation/AnimCycle.h"
#include "VKT/geometry/ParametricCurve.h"
#include "VKT/registry/UserNode.h"
#include "VKT/support/NodeTest.h"
#include "VKT/support/RegistryRows.h"

// Every class by every number: what is created, and what is cast to what.

using namespace VKT;
using namespace VKT::Test;

namespace {

class RegistryWalk : public NodeTest {
protected:
    static const RegistryRow& RowOf(u32 type)
    {
        return *std::ranges::find(kRegistryRows, type, &RegistryRow::type);
    }

    // The class and all those above it.
    static std::set<u32> LineOf(u32 type)
    {
        std::set<u32> line = {type};
        while (type != RowOf(type).base)
            line.insert(type = RowOf(type).base);
        return line;
    }

    // That both casts of a node answer for these ids and no others.
    static void ExpectCasts(XBase& node, const std::set<u32>& ids, const std::set<u32>& constIds)
    {
        const XBase& constNode = node;
        for (u32 type = 0; type < 200; ++type) {
            EXPECT_EQ(node.HasFn(type), ids.contains(type) ? &node : nullptr) << type;
            EXPECT_EQ(constNode.HasFn(type), constIds.contains(type) ? &node : nullptr) << type;
            EXPECT_EQ(IsOfType(constNode, type), ids.contains(type)) << type;
        }
    }
};

TEST_F(RegistryWalk, NinetyOfAHundredAndNineClassesAreConcrete)
{
    EXPECT_EQ(XFnListTypes().size(), 109u);
    std::size_t created = 0;
    for (const XFnInfo* info : XFnListTypes()) {
        const std::unique_ptr<XBase> node(info->Create(&m_Model));
        EXPECT_EQ(node == nullptr, info->GetChunkName().empty()) << info->GetTypeName();
        created += node != nullptr;
    }
    EXPECT_EQ(created, 90u);
}

TEST_F(RegistryWalk, ClassesTellTheirBase)
{
    const std::vector<const XFnInfo*> types = XFnListTypes();
    ASSERT_EQ(types.size(), std::size(kRegistryRows));
    for (std::size_t i = 0; i < types.size(); ++i)
        EXPECT_EQ(types[i]->GetTables().base, kRegistryRows[i].base) << kRegistryRows[i].typeName;
}

// Kept on purpose: the const casts of these skip the classes between them and the root.
const std::set<u32> kShortConstCasts = {34, 39};  // NURBS curves and surfaces

TEST_F(RegistryWalk, NodesAreCastAlongTheirBases)
{
    for (const RegistryRow& row : kRegistryRows) {
        const std::unique_ptr<XBase> node(XFnCreateFromChunk(row.chunkName, &m_Model));
        EXPECT_EQ(node == nullptr, *row.chunkName == '\0') << row.typeName;
        if (!node)
            continue;
        SCOPED_TRACE(row.typeName);
        EXPECT_EQ(node->GetApiType(), row.type);
        const std::set<u32> line = LineOf(row.type);
        ExpectCasts(*node, line, kShortConstCasts.contains(row.type) ? std::set<u32>{row.type, 0} : line);
    }
}

TEST_F(RegistryWalk, CastsOfConstNodesGoByTheOtherForm)
{
    const std::unique_ptr<XBase> curve(XFnCreate(kFnNurbsCurve, &m_Model));
    const XBase* const constCurve = curve.get();
    EXPECT_EQ(constCurve->HasFn(kFnParametricCurve), nullptr);
    EXPECT_EQ(XCast<XParametricCurve>(constCurve), curve.get());
}

// Families of user-defined types: the id of their nodes, and the class behind them.
constexpr struct {
    u32 family;
    u32 type;
    u32 base;
} kFamilies[] = {
    {0, 1, 0},     {1, 17, 7},    {2, 85, 25},   {3, 84, 76}, {4, 88, 86},
    {5, 102, 101}, {6, 104, 103}, {8, 115, 114}, {9, 134, 0}, {10, 19, 18},
};

TEST_F(RegistryWalk, UserDefinedNodesAreCastAlongTheirBases)
{
    for (const auto& [family, type, base] : kFamilies) {
        SCOPED_TRACE(type);
        const XNewNode* const definition =
            m_Model.AddNewNode(family, "mine", "MINE" + std::to_string(family));
        ASSERT_NE(definition, nullptr);
        XBase* const node = m_Model.CreateNode(*definition);
        ASSERT_NE(node, nullptr);
        EXPECT_EQ(node->GetApiType(), type);
        std::set<u32> line = LineOf(base);
        line.insert(type);
        ExpectCasts(*node, line, line);
        EXPECT_EQ(XFnCreate(type, &m_Model), nullptr);
    }
}

TEST_F(RegistryWalk, InheritedNodesAreNodesOfTheirBase)
{
    for (const RegistryRow& row : kRegistryRows) {
        if (*row.chunkName == '\0')
            continue;
        SCOPED_TRACE(row.typeName);
        const XInheritedNode* const definition =
            m_Model.AddInheritedNode(row.type, XString("MY_") + row.chunkName);
        ASSERT_NE(definition, nullptr);
        XBase* const node = m_Model.CreateNode(*definition);
        ASSERT_NE(node, nullptr);
        EXPECT_EQ(node->GetApiType(), row.type);
        EXPECT_EQ(node->HasFn(row.base), node);
    }
}

TEST_F(RegistryWalk, NodesAreListedByEachClassTheyBelongTo)
{
    for (const RegistryRow& row : kRegistryRows)
        if (*row.chunkName != '\0')
            m_Model.CreateNode(row.type);
    EXPECT_EQ(m_Model.GetNodes().size(), 89u);  // all but the cycle, which the document keeps apart
    for (const RegistryRow& row : kRegistryRows) {
        SCOPED_TRACE(row.typeName);
        std::set<u32> expected;
        for (const RegistryRow& other : kRegistryRows)
            if (*other.chunkName != '\0' && other.type != kFnAnimCycle &&
                LineOf(other.type).contains(row.type))
                expected.insert(other.type);
        std::set<u32> listed;
        XNodeList nodes;
        EXPECT_EQ(m_Model.List(nodes, row.type), !expected.empty());
        for (const XBase* node : nodes)
            listed.insert(node->GetApiType());
        EXPECT_EQ(listed, expected);
        EXPECT_EQ(nodes.size(), expected.size());
        EXPECT_EQ(m_Model.List(nodes, row.type, true), expected.contains(row.type));
        EXPECT_EQ(nodes.size(), expected.contains(row.type));
    }
}

}  // namespace
