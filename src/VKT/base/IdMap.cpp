#include "VKT/base/IdMap.h"

#include <chrono>

namespace VKT {

// Nothing that the writer of a file could foresee: the clock, and where the table lies.
XIdHash::XIdHash()
    : m_Seed(static_cast<u64>(std::chrono::steady_clock::now().time_since_epoch().count()) *
                 0x9E3779B97F4A7C15u ^
             reinterpret_cast<std::uintptr_t>(this))
{
}

XBase* XIdMap::Find(u32 id) const
{
    if (m_Slots.empty() || id == 0)
        return nullptr;
    const std::size_t mask = m_Slots.size() - 1;
    for (std::size_t i = Home(id);; i = (i + 1) & mask) {
        if (m_Slots[i].id == id)
            return m_Slots[i].node;
        if (m_Slots[i].id == 0)
            return nullptr;
    }
}

void XIdMap::Insert(u32 id, XBase* node)
{
    if (id == 0)
        return;
    if (3 * (m_Used + 1) > 2 * m_Slots.size())
        Grow();
    const std::size_t mask = m_Slots.size() - 1;
    std::size_t i = Home(id);
    while (m_Slots[i].id != 0 && m_Slots[i].id != id)
        i = (i + 1) & mask;
    if (m_Slots[i].id == id)
        return;
    m_Slots[i] = {id, node};
    ++m_Used;
}

void XIdMap::Erase(u32 id, const XBase* node)
{
    if (Find(id) != node || !node)
        return;
    const std::size_t mask = m_Slots.size() - 1;
    std::size_t hole = Home(id);
    while (m_Slots[hole].id != id)
        hole = (hole + 1) & mask;
    // Entries behind the hole move up unless that would carry one in front of its home.
    for (std::size_t i = (hole + 1) & mask; m_Slots[i].id != 0; i = (i + 1) & mask) {
        if (((i - Home(m_Slots[i].id)) & mask) >= ((i - hole) & mask)) {
            m_Slots[hole] = m_Slots[i];
            hole = i;
        }
    }
    m_Slots[hole] = {};
    --m_Used;
}

void XIdMap::Clear()
{
    m_Slots = {};
    m_Used = 0;
}

void XIdMap::Grow()
{
    XVector<Slot> old(m_Slots.empty() ? 64 : 2 * m_Slots.size(), Slot{});
    m_Slots.swap(old);  // nothing is lost when there is no memory
    m_Used = 0;
    for (const Slot& slot : old)
        Insert(slot.id, slot.node);
}

}  // namespace VKT
