#pragma once

#include <unordered_set>

#include "VKT/base/IdMap.h"
#include "VKT/hierarchy/Bone.h"

namespace VKT {

// A walk down the hierarchy, depth first, children in the order of their lists. Each edge is
// walked once in all, whatever it is started from: a child under two parents is visited
// twice, and a ring of a damaged file ends.
//
// Bones remember by which edge the walk first came to them; a set holds the others, which
// sound files do not have. One walk goes on at a time in a document.
class XBoneWalk {
public:
    explicit XBoneWalk(XModel& model);

    // Calls `visit(child, parent)` for all bones below `top`.
    template <class Visit>
    void Below(XBone& top, Visit visit)
    {
        Arrive(top, 0);
        m_Pending.assign(1, {&top, 0});
        while (!m_Pending.empty()) {
            auto& [bone, next] = m_Pending.back();
            XBone& parent = *bone;
            if (next == parent.GetChildIds().size()) {
                m_Pending.pop_back();
                continue;
            }
            XBone* const child = TakeEdge(parent, parent.GetChildIds()[next++]);
            if (!child)
                continue;
            visit(*child, parent);
            m_Pending.push_back({child, 0});
        }
    }
    // Bones that the walk was started from or came to.
    std::size_t GetNumVisited() const { return m_NumVisited; }
    bool HasVisited(const XBone& bone) const { return bone.m_Walk == m_Number; }

private:
    bool Arrive(XBone& bone, u32 from);
    // The child at the end of an edge that was not walked yet, or null.
    XBone* TakeEdge(const XBone& parent, u32 child);

    const XModel& m_Model;
    u32 m_Number;
    std::size_t m_NumVisited = 0;
    XVector<std::pair<XBone*, std::size_t>> m_Pending;  // the way down, with the next child of each
    std::unordered_set<u64, XIdHash> m_OtherEdges;      // the parent's id and the child's in one number
};

}  // namespace VKT
