#pragma once

#include <unordered_map>
#include <unordered_set>

#include "VKT/base/IdMap.h"
#include "VKT/base/Lists.h"

namespace VKT {

class XBone;
class XModel;

// Who lists a bone as its child. Nearly always that is its parent alone, so only where the
// lists of children and the parents differ is anything kept here: after `AddChildren`, which
// leaves the parents alone, after a child has moved, which its former parent goes on listing,
// and after the load of a damaged file.
//
// It answers by a walk up what is below a bone. A walk down, for each of the bones that are
// hung below one, would cost the square of their number.
class XBoneLinks {
public:
    // Whether the lists lead from `top` down to `bone`, at any depth.
    bool IsBelow(const XModel& model, const XBone& bone, const XBone& top);
    // `bone` gets another parent, which lists it.
    void Move(const XModel& model, const XBone& bone);
    // The list of `bone` goes from `before` to `after`.
    void Relist(const XModel& model, const XBone& bone, const XIndexList& before, const XIndexList& after);
    // Links came or went otherwise: the next question looks at all bones once.
    void Invalidate() { m_IsKnown = false; }
    // The number of a walk over the bones (see XBoneWalk), which none before it had.
    u32 StartWalk() { return ++m_LastWalk; }
    // The bones are gone.
    void Clear();

private:
    void Compare(const XModel& model);

    bool m_IsKnown = true;
    u32 m_LastWalk = 0;
    std::unordered_map<u32, XIndexList, XIdHash> m_OtherListers;  // than its parent, by bone
    std::unordered_set<u32, XIdHash> m_Unlisted;                  // bones whose parent does not list them
};

}  // namespace VKT
