#pragma once

#include <cstddef>
#include <vector>

#include "coreexp.h"
#include "interval.h"
#include "matrix3.h"

namespace maxhost {

class WorldCachePool;

// World matrices of one node at the times that were asked for. Animation is sampled
// node after node, each over all its frames, and every sample needs the parent's at
// the same time: with one matrix a node, each would evaluate all its ancestors again.
class CoreExport WorldCache {
public:
    struct Entry {
        Interval valid;
        Matrix3 tm;
    };

    explicit WorldCache(WorldCachePool& pool) : m_Pool(pool) {}
    WorldCache(const WorldCache&) = delete;
    WorldCache& operator=(const WorldCache&) = delete;
    ~WorldCache() { Clear(); }

    // Null when the time isn't known. Good until the next call of Add for any node.
    const Entry* Find(TimeValue t) const;
    // For a time that isn't known yet and that lies in the entry's interval.
    void Add(TimeValue t, const Entry& entry);
    void Clear();

private:
    friend class WorldCachePool;

    WorldCachePool& m_Pool;
    std::vector<Entry> m_Entries;  // by time, without overlap
    WorldCache* m_Newer = nullptr;
    WorldCache* m_Older = nullptr;
};

// Bounds what all caches of a scene hold: beyond it, those that were added to the
// longest ago are emptied.
class CoreExport WorldCachePool {
public:
    explicit WorldCachePool(std::size_t entryLimit) : m_Limit(entryLimit) {}
    std::size_t CountEntries() const { return m_Entries; }

private:
    friend class WorldCache;
    void Added(WorldCache& cache);
    void Cleared(WorldCache& cache);
    void Unlink(WorldCache& cache);

    std::size_t m_Limit;
    std::size_t m_Entries = 0;
    WorldCache* m_Newest = nullptr;
    WorldCache* m_Oldest = nullptr;
};

}  // namespace maxhost
