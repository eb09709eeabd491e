#include "VKT/deformers/WeightTable.h"

#include <gtest/gtest.h>

#include "VKT/base/Allocator.h"

using namespace VKT;

namespace {

XWeightList ListOf(const XWeightTable& table, std::size_t point)
{
    return {table[point].begin(), table[point].end()};
}

// Counts the blocks that vectors take.
class CountingAllocator final : public XAllocator {
public:
    CountingAllocator() { XSetAllocator(this); }
    ~CountingAllocator() override { XSetAllocator(nullptr); }
    void* Allocate(std::size_t bytes) override
    {
        ++m_Calls;
        m_Bytes += bytes;
        return m_Default.Allocate(bytes);
    }
    void* AllocateZeroed(std::size_t bytes) override { return m_Default.AllocateZeroed(bytes); }
    void Free(void* block) override { m_Default.Free(block); }

    std::size_t m_Calls = 0;
    std::size_t m_Bytes = 0;

private:
    XAllocator& m_Default = *XGetAllocator();
};

TEST(WeightTable, StartsEmptyAndHoldsEmptyLists)
{
    XWeightTable table;
    EXPECT_EQ(table.GetNumPoints(), 0u);
    table.Resize(2);
    table.AddPoint();
    EXPECT_EQ(table.GetNumPoints(), 3u);
    for (u32 point = 0; point < 3; ++point)
        EXPECT_TRUE(table[point].empty());
}

TEST(WeightTable, ListsGrowInAnyOrder)
{
    XWeightTable table;
    table.Resize(7);
    for (u32 i = 0; i < 100; ++i)
        for (u32 point = 0; point < 7; ++point)
            if (i % (point + 1) == 0)
                table.Append(6 - point, {static_cast<f32>(point), i});
    for (u32 point = 0; point < 7; ++point) {
        XWeightList expected;
        for (u32 i = 0; i < 100; i += point + 1)
            expected.push_back({static_cast<f32>(point), i});
        EXPECT_EQ(ListOf(table, 6 - point), expected) << point;
    }
}

TEST(WeightTable, CutListsAreGoneAndNewOnesEmpty)
{
    XWeightTable table;
    table.Resize(3);
    table.Append(0, {0.5f, 1});
    table.Append(2, {0.25f, 2});
    table.Resize(2);
    table.Resize(4);
    EXPECT_EQ(ListOf(table, 0), (XWeightList{{0.5f, 1}}));
    EXPECT_TRUE(table[2].empty());
    table.Append(3, {1, 3});
    EXPECT_EQ(ListOf(table, 3), (XWeightList{{1, 3}}));
    table.Clear();
    EXPECT_EQ(table.GetNumPoints(), 0u);
    table.AddPoint();
    table.Append(0, {1, 4});
    EXPECT_EQ(ListOf(table, 0), (XWeightList{{1, 4}}));
}

TEST(WeightTable, KeepsTheLastWeightsAndGrowsBehindThem)
{
    XWeightTable table;
    table.Resize(2);
    for (u32 i = 0; i < 5; ++i)
        table.Append(0, {0.5f, i});
    table.Append(1, {1, 9});
    table.KeepLast(0, 2);
    EXPECT_EQ(ListOf(table, 0), (XWeightList{{0.5f, 3}, {0.5f, 4}}));
    table.Append(0, {0.5f, 5});
    table.KeepLast(1, 0);
    EXPECT_EQ(ListOf(table, 0), (XWeightList{{0.5f, 3}, {0.5f, 4}, {0.5f, 5}}));
    EXPECT_TRUE(table[1].empty());
}

TEST(WeightTable, CopyStandsForItself)
{
    XWeightTable table;
    table.Resize(3);
    table.Append(0, {0.5f, 1});
    table.Append(2, {1, 2});
    table.Append(0, {0.25f, 3});
    XWeightTable copy(table);
    copy.Append(1, {1, 4});
    copy[0][0].m_Weight = 9;
    EXPECT_EQ(ListOf(table, 0), (XWeightList{{0.5f, 1}, {0.25f, 3}}));
    EXPECT_TRUE(table[1].empty());
    const XWeightTable& itself = table;
    table = itself;
    EXPECT_EQ(ListOf(table, 2), (XWeightList{{1, 2}}));
    table = copy;
    EXPECT_EQ(ListOf(table, 0), (XWeightList{{9, 1}, {0.25f, 3}}));
    EXPECT_EQ(ListOf(table, 1), (XWeightList{{1, 4}}));
    table = XWeightTable();
    EXPECT_EQ(table.GetNumPoints(), 0u);
}

TEST(WeightTable, ManyShortListsTakeFewBlocks)
{
    constexpr std::size_t kPoints = 200000;
    CountingAllocator counter;
    {
        XWeightTable table;
        table.Reserve(kPoints);
        for (u32 point = 0; point < kPoints; ++point) {
            table.AddPoint();
            table.Grow(point, 4);
        }
        EXPECT_LE(counter.m_Calls, kPoints / 1000);
        EXPECT_LE(counter.m_Bytes, kPoints * (16 + 4 * sizeof(XBoneWeight)) + (std::size_t{2} << 20));
    }
}

TEST(WeightTable, ListsThatGrowInTurnsTakeNoMoreThanAMultiple)
{
    constexpr std::size_t kPoints = 10000;
    CountingAllocator counter;
    {
        XWeightTable table;
        table.Resize(kPoints);
        for (u32 i = 0; i < 32; ++i)
            for (u32 point = 0; point < kPoints; ++point)
                table.Append(point, {1, i});
        EXPECT_LE(counter.m_Bytes, kPoints * (16 + 3 * 32 * sizeof(XBoneWeight)));
    }
}

}  // namespace
