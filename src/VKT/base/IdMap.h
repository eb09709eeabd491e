#pragma once

#include "VKT/base/Vector.h"

namespace VKT {

class XBase;

// Hashes an id, or a pair of ids in one number. Ids come from files: each table has a
// seed of its own, so that no file can be made whose ids all fall on one place of it.
class XIdHash {
public:
    XIdHash();
    std::size_t operator()(u64 id) const noexcept
    {
        id = (id ^ m_Seed) * 0x9E3779B97F4A7C15u;
        id = (id ^ id >> 32) * 0xD6E8FEB86659FD93u;
        return static_cast<std::size_t>(id ^ id >> 32);
    }

private:
    u64 m_Seed;
};

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
    // Ids are mostly handed out one after the other: sixteen neighbours stay together, so
    // that a walk over a document meets slots that are in the cache.
    std::size_t Home(u32 id) const { return (m_Hash(id >> 4) << 4 | (id & 15)) & (m_Slots.size() - 1); }
    void Grow();

    XIdHash m_Hash;
    XVector<Slot> m_Slots;  // a power of two of them, at most two thirds in use
    std::size_t m_Used = 0;
};

}  // namespace VKT
