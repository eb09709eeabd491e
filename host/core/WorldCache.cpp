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
    const auto next = std::upper_bound(m_entries.begin(), m_entries.end(), t, StartsAfter);
    return next != m_entries.begin() && (next - 1)->valid.InInterval(t) ? &*(next - 1) : nullptr;
}

void WorldCache::Add(TimeValue t, const Entry& entry)
{
    const auto next = std::upper_bound(m_entries.begin(), m_entries.end(), t, StartsAfter);
    Entry clipped = entry;
    if (next != m_entries.begin())
        clipped.valid.SetStart(std::max(entry.valid.Start(), (next - 1)->valid.End() + 1));
    if (next != m_entries.end())
        clipped.valid.SetEnd(std::min(entry.valid.End(), next->valid.Start() - 1));
    m_entries.insert(next, clipped);
    m_pool.Added(*this);
}

void WorldCache::Clear()
{
    if (!m_entries.empty())
        m_pool.Cleared(*this);
    m_entries = {};
}

void WorldCachePool::Added(WorldCache& cache)
{
    ++m_entries;
    if (m_newest != &cache) {
        if (cache.m_entries.size() > 1)
            Unlink(cache);
        cache.m_older = m_newest;
        (m_newest ? m_newest->m_newer : m_oldest) = &cache;
        m_newest = &cache;
    }
    while (m_entries > m_limit && m_oldest != &cache)
        m_oldest->Clear();
}

void WorldCachePool::Cleared(WorldCache& cache)
{
    m_entries -= cache.m_entries.size();
    Unlink(cache);
}

void WorldCachePool::Unlink(WorldCache& cache)
{
    (cache.m_newer ? cache.m_newer->m_older : m_newest) = cache.m_older;
    (cache.m_older ? cache.m_older->m_newer : m_oldest) = cache.m_newer;
    cache.m_newer = nullptr;
    cache.m_older = nullptr;
}

}  // namespace maxhost
