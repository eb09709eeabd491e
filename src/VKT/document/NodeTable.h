#pragma once

#include <iterator>
#include <unordered_map>

#include "VKT/base/IdMap.h"
#include "VKT/node/Base.h"

namespace VKT {

// The nodes of a document, which it owns, by name and by id. A walk over it goes by name in
// ascending byte order, equal names in the order of their arrival:
//
//     for (const auto& [name, node] : model.GetNodes())
//
// Names need not be unique: files may hold nodes of one name, and of one id, of which the
// first keeps the id. New names are made unique by a number behind them. The numbers found
// taken are remembered, so that a million equal names are numbered in one pass.
class XNodeTable {
public:
    class Iterator;
    using value_type = std::pair<std::string_view, XBase*>;

    // Takes the node over under its name and id. Files come in the order of names, so the end
    // is tried first.
    XBase* Enter(std::unique_ptr<XBase> node);
    // Gives the node the name as it is, whether or not it is here.
    void Rename(XBase& node, const XString& name);
    // Gives a node that is not here yet the next id. Ids run on; behind the last one that a
    // u32 holds, the lowest that is free.
    void Number(XBase& node);
    void Delete(XBase& node);
    // All nodes go, and ids begin anew.
    void Clear();

    XBase* Find(u32 id) const { return m_ById.Find(id); }
    // With equal names the first.
    XBase* Find(std::string_view name) const;
    bool Contains(std::string_view name) const { return m_ByName.contains(name); }
    // Whether the node is in a table; it is that of its document.
    static bool Holds(const XBase& node) { return node.m_IsHeld; }
    // The stem with the first number from 1 that gives a name nobody has.
    XString FirstFreeName(std::string_view stem);

    Iterator begin() const;
    Iterator end() const;
    std::size_t size() const { return m_ByName.size(); }
    bool empty() const { return m_ByName.empty(); }

private:
    void ForgetNumber(const XString& name);

    XNameMap m_ByName;
    XIdMap m_ById;
    u32 m_LastId = 0;
    u32 m_FirstFreeId = 1;  // ids below it are taken; asked for once all others are
    // For stems of numbered names: the number below which all are taken.
    std::unordered_map<XString, u32> m_NextNumber;
};

class XNodeTable::Iterator {
public:
    using iterator_category = std::input_iterator_tag;
    using value_type = XNodeTable::value_type;
    using difference_type = std::ptrdiff_t;
    using pointer = void;
    using reference = value_type;

    explicit Iterator(XNameMap::const_iterator place) : m_Place(place) {}
    value_type operator*() const { return {m_Place->first, m_Place->second.get()}; }
    Iterator& operator++()
    {
        ++m_Place;
        return *this;
    }
    bool operator==(const Iterator&) const = default;

private:
    XNameMap::const_iterator m_Place;
};

inline XNodeTable::Iterator XNodeTable::begin() const
{
    return Iterator(m_ByName.begin());
}
inline XNodeTable::Iterator XNodeTable::end() const
{
    return Iterator(m_ByName.end());
}

}  // namespace VKT
