#pragma once

#include "VKT/Vector.h"

namespace VKT {

class XBase;

// Nodes by id: an open-addressing table, since a document of a million nodes asks it
// for every parent, child and shape. Of several nodes with one id the first keeps the
// entry. Id 0 means none and never enters.
class XIdMap {
public:
    XBase* Find(u32 id) const;
    void Insert(u32 id, XBase* node);
    // Removes the entry of this very node; one of another node with its id stays.
    void Erase(u32 id, const XBase* node);
    void Clear();

private:
    struct Slot {
        u32 id;
        XBase* node;
    };
    std::size_t Home(u32 id) const { return (id * 0x9E3779B9u) >> m_Shift; }
    void Grow();

    XVector<Slot> m_Slots;  // a power of two of them, at most two thirds in use
    u32 m_Shift = 32;
    std::size_t m_Used = 0;
};

}  // namespace VKT
