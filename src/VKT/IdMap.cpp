#include "VKT/IdMap.h"

namespace VKT {

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
    m_Shift = 32;
    m_Used = 0;
}

void XIdMap::Grow()
{
    XVector<Slot> old = std::move(m_Slots);
    const std::size_t size = old.empty() ? 64 : 2 * old.size();
    m_Shift = old.empty() ? 32 - 6 : m_Shift - 1;
    m_Slots = XVector<Slot>(size, Slot{});
    m_Used = 0;
    for (const Slot& slot : old)
        Insert(slot.id, slot.node);
}

}  // namespace VKT
