#pragma once

#include <span>

#include "VKT/base/BoneWeight.h"

namespace VKT {

// A list of weights for each point of a geometry. Lists are many and short, so they lie
// side by side in a few blocks of memory. A list that outgrows its place moves to the end
// and leaves a gap; the gaps that growth leaves are no larger than what the lists take.
//
// Points are numbered from 0; to ask for one out of range is an error of the caller.
class XWeightTable {
public:
    XWeightTable() = default;
    // A copy has no gaps.
    XWeightTable(const XWeightTable& other) { *this = other; }
    XWeightTable& operator=(const XWeightTable& other);

    u32 GetNumPoints() const { return static_cast<u32>(m_Lists.size()); }
    // The weights of a point. They stand there until the table changes.
    std::span<const XBoneWeight> operator[](std::size_t point) const
    {
        return {m_Lists[point].first, m_Lists[point].count};
    }
    std::span<XBoneWeight> operator[](std::size_t point)
    {
        return {m_Lists[point].first, m_Lists[point].count};
    }

    // Cuts the table to so many points, or adds points without weights.
    void Resize(std::size_t points);
    void Clear() { Resize(0); }
    // Room for so many points in all, where their number is known ahead.
    void Reserve(std::size_t points) { m_Lists.reserve(points); }
    // Adds a point without weights.
    void AddPoint() { m_Lists.emplace_back(List{m_Next, 0, 0}); }
    // Adds so many weights to a point, which the caller fills in.
    std::span<XBoneWeight> Grow(std::size_t point, std::size_t more);
    // Adds a weight, which does not stand in this table, to a point.
    void Append(std::size_t point, const XBoneWeight& weight) { Grow(point, 1).front() = weight; }
    // Drops all but the last `count` weights of a point, which has at least so many.
    void KeepLast(std::size_t point, std::size_t count);

private:
    struct List {
        XBoneWeight* first = nullptr;
        u32 count = 0;
        u32 capacity = 0;
    };

    void Extend(List& list, std::size_t more);
    void Move(List& list, std::size_t size);
    void AddBlock(std::size_t size);

    XVector<List> m_Lists;
    XVector<XWeightList> m_Blocks;
    XBoneWeight* m_Next = nullptr;  // what is free of the last block
    XBoneWeight* m_End = nullptr;
};

// The list at the end of what is taken grows in its place, any other one moves there.
inline void XWeightTable::Extend(List& list, std::size_t more)
{
    if (list.first + list.capacity != m_Next || static_cast<std::size_t>(m_End - m_Next) < more)
        return Move(list, list.capacity + more);
    m_Next += more;
    list.capacity += static_cast<u32>(more);
}

inline std::span<XBoneWeight> XWeightTable::Grow(std::size_t point, std::size_t more)
{
    List& list = m_Lists[point];
    const std::size_t size = list.count + more;
    if (size > list.capacity)
        Extend(list, size - list.capacity);
    XBoneWeight* const added = list.first + list.count;
    list.count = static_cast<u32>(size);
    return {added, more};
}

}  // namespace VKT
