#include "host/core/WorldCache.h"

#include <algorithm>

namespace maxhost {

namespace {

bool StartsAfter(TimeValue t, const WorldCache::Entry& entry)
{
    return t < entry.valid.Start();
}

}  // namespace

const WorldCache::Entry* WorldCache::Find(TimeValue t) const
{
    const auto next = std::upper_bound(m_Entries.begin(), m_Entries.end(), t, StartsAfter);
    return next != m_Entries.begin() && (next - 1)->valid.InInterval(t) ? &*(next - 1) : nullptr;
}

void WorldCache::Add(TimeValue t, const Entry& entry)
{
    const auto next = std::upper_bound(m_Entries.begin(), m_Entries.end(), t, StartsAfter);
    Entry clipped = entry;
    if (next != m_Entries.begin())
        clipped.valid.SetStart(std::max(entry.valid.Start(), (next - 1)->valid.End() + 1));
    if (next != m_Entries.end())
        clipped.valid.SetEnd(std::min(entry.valid.End(), next->valid.Start() - 1));
    m_Entries.insert(next, clipped);
    m_Pool.Added(*this);
}

void WorldCache::Clear()
{
    if (!m_Entries.empty())
        m_Pool.Cleared(*this);
    m_Entries = {};
}

void WorldCachePool::Added(WorldCache& cache)
{
    ++m_Entries;
    if (m_Newest != &cache) {
        if (cache.m_Entries.size() > 1)
            Unlink(cache);
        cache.m_Older = m_Newest;
        (m_Newest ? m_Newest->m_Newer : m_Oldest) = &cache;
        m_Newest = &cache;
    }
    while (m_Entries > m_Limit && m_Oldest != &cache)
        m_Oldest->Clear();
}

void WorldCachePool::Cleared(WorldCache& cache)
{
    m_Entries -= cache.m_Entries.size();
    Unlink(cache);
}

void WorldCachePool::Unlink(WorldCache& cache)
{
    (cache.m_Newer ? cache.m_Newer->m_Older : m_Newest) = cache.m_Older;
    (cache.m_Older ? cache.m_Older->m_Newer : m_Oldest) = cache.m_Newer;
    cache.m_Newer = nullptr;
    cache.m_Older = nullptr;
}

}  // namespace maxhost
