#include "VKT/base/Allocator.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <cstring>

#include "VKT/base/Lists.h"
#include "VKT/support/Sanitizers.h"

namespace VKT {
namespace {

// Counts what goes through it and hands on to the default allocator.
class CountingAllocator final : public XAllocator {
public:
    explicit CountingAllocator(XAllocator* base) : m_Base(base) {}
    void* Allocate(std::size_t bytes) override
    {
        ++m_Blocks;
        return bytes > m_Most ? nullptr : m_Base->Allocate(bytes);
    }
    void* AllocateZeroed(std::size_t bytes) override { return m_Base->AllocateZeroed(bytes); }
    void Free(void* block) override
    {
        --m_Blocks;
        m_Base->Free(block);
    }
    int m_Blocks = 0;
    std::size_t m_Most = static_cast<std::size_t>(-1);

private:
    XAllocator* m_Base;
};

class AllocatorTest : public testing::Test {
protected:
    ~AllocatorTest() override { XSetAllocator(nullptr); }
    CountingAllocator counting{XGetAllocator()};
};

TEST_F(AllocatorTest, DefaultBlocksAreAlignedTo16Bytes)
{
    XAllocator* allocator = XGetAllocator();
    for (const std::size_t bytes : {1, 3, 16, 17, 1000}) {
        void* block = allocator->Allocate(bytes);
        ASSERT_NE(block, nullptr);
        EXPECT_EQ(reinterpret_cast<std::uintptr_t>(block) % 16, 0u);
        std::memset(block, 1, bytes);
        allocator->Free(block);
    }
}

TEST_F(AllocatorTest, ZeroedBlocksAreZero)
{
    XAllocator* allocator = XGetAllocator();
    auto* block = static_cast<unsigned char*>(allocator->AllocateZeroed(100));
    ASSERT_NE(block, nullptr);
    for (int i = 0; i < 100; ++i)
        EXPECT_EQ(block[i], 0);
    allocator->Free(block);
}

TEST_F(AllocatorTest, TheDefaultTakesBackNullAndAnswersNullWhenMemoryIsOut)
{
    XAllocator* allocator = XGetAllocator();
    allocator->Free(nullptr);
#ifdef VKT_ADDRESS_SANITIZER
    GTEST_SKIP() << "the sanitizer ends the program instead";
#endif
    EXPECT_EQ(allocator->Allocate(std::size_t{1} << 62), nullptr);
    EXPECT_EQ(allocator->AllocateZeroed(std::size_t{1} << 62), nullptr);
}

TEST_F(AllocatorTest, AnInstalledOneIsAnsweredUntilTheDefaultIsBack)
{
    XAllocator* const standard = XGetAllocator();
    XSetAllocator(&counting);
    EXPECT_EQ(XGetAllocator(), &counting);
    XSetAllocator(nullptr);
    EXPECT_EQ(XGetAllocator(), standard);
}

TEST_F(AllocatorTest, AVectorKeepsTheAllocatorItWasBuiltWith)
{
    XIndexList early{1};
    XSetAllocator(&counting);
    early.resize(1000, 7);  // grows on the default one
    EXPECT_EQ(counting.m_Blocks, 0);
    {
        XIndexList late(10, 7);
        EXPECT_EQ(counting.m_Blocks, 1);
        XSetAllocator(nullptr);
        late.resize(1000, 7);
        EXPECT_EQ(counting.m_Blocks, 1);
        EXPECT_EQ(late.back(), 7u);
    }
    EXPECT_EQ(counting.m_Blocks, 0);
}

TEST_F(AllocatorTest, VectorsOnDifferentAllocatorsAssignMoveAndSwap)
{
    XIndexList a{1, 2, 3};
    XSetAllocator(&counting);
    {
        XIndexList b{4, 5};
        b = a;
        EXPECT_EQ(b, (XIndexList{1, 2, 3}));
        b = XIndexList{6};
        swap(a, b);
        EXPECT_EQ(a, XIndexList{6});
        EXPECT_EQ(b, (XIndexList{1, 2, 3}));
        b = std::move(a);
        EXPECT_EQ(b, XIndexList{6});
    }
    a = XIndexList();
    EXPECT_EQ(counting.m_Blocks, 0);
}

TEST_F(AllocatorTest, AVectorThatGetsNoMemoryThrowsAndKeepsItsContent)
{
    counting.m_Most = 100;
    XSetAllocator(&counting);
    XIndexList list{1, 2};
    EXPECT_THROW(list.resize(1000), std::bad_alloc);
    EXPECT_EQ(list, (XIndexList{1, 2}));
}

TEST_F(AllocatorTest, ResizeWithAValueFillsAndWithoutOneLeavesStringsEmpty)
{
    XIndexList numbers;
    numbers.resize(3, 0);
    EXPECT_EQ(numbers, (XIndexList{0, 0, 0}));
    XStringList texts;
    texts.resize(2);
    EXPECT_EQ(texts, (XStringList{"", ""}));
}

}  // namespace
}  // namespace VKT
