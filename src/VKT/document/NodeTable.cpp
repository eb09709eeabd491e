#include "VKT/document/NodeTable.h"

#include <algorithm>
#include <limits>

namespace VKT {
namespace {

XString Numbered(std::string_view stem, u32 number)
{
    return XString(stem) + std::to_string(number);
}

}  // namespace

XBase* XNodeTable::Enter(std::unique_ptr<XBase> node)
{
    XBase* const entered = node.get();
    const std::string_view name = entered->m_Name;
    const bool isLast = m_ByName.empty() || m_ByName.rbegin()->first <= name;
    XNameMap::value_type entry(name, std::move(node));
    entered->m_NameEntry =
        isLast ? m_ByName.insert(m_ByName.end(), std::move(entry)) : m_ByName.insert(std::move(entry));
    entered->m_IsHeld = true;
    m_ById.Insert(entered->m_ID, entered);
    m_LastId = std::max(m_LastId, entered->m_ID);
    return entered;
}

void XNodeTable::Rename(XBase& node, const XString& name)
{
    if (!node.m_IsHeld) {
        node.m_Name = name;
        return;
    }
    ForgetNumber(node.m_Name);
    auto entry = m_ByName.extract(node.m_NameEntry);
    node.m_Name = name;
    entry.key() = node.m_Name;
    node.m_NameEntry = m_ByName.insert(std::move(entry));
}

void XNodeTable::Number(XBase& node)
{
    if (m_LastId != std::numeric_limits<u32>::max()) {
        node.m_ID = ++m_LastId;
        return;
    }
    while (m_ById.Find(m_FirstFreeId))
        ++m_FirstFreeId;
    node.m_ID = m_FirstFreeId++;
}

void XNodeTable::Delete(XBase& node)
{
    ForgetNumber(node.m_Name);
    m_ById.Erase(node.m_ID, &node);
    m_ByName.erase(node.m_NameEntry);
}

// Nodes go ahead of their entries: large and small blocks freed in turns cost more.
void XNodeTable::Clear()
{
    for (auto& [name, node] : m_ByName)
        node.reset();
    m_ByName.clear();
    m_ById.Clear();
    m_NextNumber.clear();
    m_LastId = 0;
    m_FirstFreeId = 1;
}

XBase* XNodeTable::Find(std::string_view name) const
{
    const auto found = m_ByName.lower_bound(name);
    return found != m_ByName.end() && found->first == name ? found->second.get() : nullptr;
}

XString XNodeTable::FirstFreeName(std::string_view stem)
{
    u32& next = m_NextNumber.try_emplace(XString(stem), 1).first->second;
    XString name = Numbered(stem, next);
    while (Contains(name))
        name = Numbered(stem, ++next);
    return name;
}

// A name that goes frees its number for every stem that it can be read as.
void XNodeTable::ForgetNumber(const XString& name)
{
    u64 number = 0;
    u64 place = 1;
    for (std::size_t begin = name.size(); begin > 0 && place <= 1'000'000'000; place *= 10) {
        const char digit = name[--begin];
        if (digit < '0' || digit > '9')
            return;
        number += place * static_cast<u64>(digit - '0');
        if (digit == '0')
            continue;  // no number is written with a leading zero
        const auto found = m_NextNumber.find(name.substr(0, begin));
        if (found != m_NextNumber.end() && number < found->second)
            found->second = static_cast<u32>(number);
    }
}

}  // namespace VKT
