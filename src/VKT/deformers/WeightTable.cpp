#include "VKT/deformers/WeightTable.h"

#include <algorithm>

namespace VKT {
namespace {

// Weights in a block: each has room for twice as many as the one before, within bounds.
constexpr std::size_t kSmallestBlock = 64;
constexpr std::size_t kLargestBlock = 1 << 17;  // 1 MiB

}  // namespace

XWeightTable& XWeightTable::operator=(const XWeightTable& other)
{
    if (this == &other)
        return *this;
    Clear();
    std::size_t total = 0;
    for (const List& list : other.m_Lists)
        total += list.count;
    AddBlock(total);
    m_Lists.resize(other.m_Lists.size());
    for (std::size_t point = 0; point < m_Lists.size(); ++point)
        std::ranges::copy(other[point], Grow(point, other[point].size()).begin());
    return *this;
}

void XWeightTable::Resize(std::size_t points)
{
    m_Lists.resize(points);
    if (points > 0)
        return;
    m_Blocks.clear();
    m_Next = m_End = nullptr;
}

void XWeightTable::KeepLast(std::size_t point, std::size_t count)
{
    List& list = m_Lists[point];
    const u32 dropped = list.count - static_cast<u32>(count);
    list.first += dropped;
    list.count -= dropped;
    list.capacity -= dropped;
}

// With twice the room that it had, so that a list that keeps growing seldom moves.
void XWeightTable::Move(List& list, std::size_t size)
{
    const std::size_t capacity = std::max(size, std::size_t{list.capacity} * 2);
    if (static_cast<std::size_t>(m_End - m_Next) < capacity)
        AddBlock(std::max(capacity, std::clamp(2 * (m_Blocks.empty() ? 0 : m_Blocks.back().size()),
                                               kSmallestBlock, kLargestBlock)));
    std::copy_n(list.first, list.count, m_Next);
    list.first = m_Next;
    list.capacity = static_cast<u32>(capacity);
    m_Next += capacity;
}

void XWeightTable::AddBlock(std::size_t size)
{
    XWeightList& block = m_Blocks.emplace_back(size);
    m_Next = block.data();
    m_End = m_Next + size;
}

}  // namespace VKT
