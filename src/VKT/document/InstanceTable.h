#pragma once

#include <memory>
#include <unordered_map>

#include "VKT/base/IdMap.h"
#include "VKT/base/Lists.h"
#include "VKT/document/Instance.h"

namespace VKT {

// The instances of a document: which shape shows under which bone. The table owns them, gives
// them their ids, and finds them by id, by bone and shape, and by shape, so that neither
// hanging nor linking a shape walks a list.
//
// Ids ascend in the order of arrival, which is the document's order.
class XInstanceTable {
public:
    // A new instance of the shape under the bone, noted with both.
    XInstance* Create(XModel& model, XBone& bone, XShape& shape);
    // Takes over an instance that names its bone and shape, under the next id. The bone that
    // has read it notes the id itself, and the shape does when the load ends.
    XInstance* Add(std::unique_ptr<XInstance> instance);
    // Removes an instance here and from its bone's list; false when there is none of that id.
    // It may live on for a while, but nothing finds it.
    bool Delete(u32 id);
    // All instances go, and ids begin anew.
    void Clear() { *this = {}; }

    XInstance* Find(u32 id) const;
    // The first instance of `shape` in the bone's list, or null.
    XInstance* Find(const XBone& bone, const XShape& shape) const;
    // Fills `out` with all instances, or `ids` with the ids of those that show a shape.
    bool List(XInstanceList& out) const;
    void ListOf(u32 shape, XIndexList& ids) const;

private:
    // Where instances of one shape stand under one bone: the first of them, and how many.
    struct Place {
        u32 first;
        u32 count;
    };
    using Instances = XVector<std::unique_ptr<XInstance>>;

    Instances::const_iterator PlaceOf(u32 id) const;
    void LeavePlace(const XInstance& instance);

    u32 m_LastId = 0;
    Instances m_Instances;   // by ascending id
    std::size_t m_Dead = 0;  // of these; they leave together, so that deleting one moves no others
    std::unordered_map<u64, Place, XIdHash> m_ByPlace;
    std::unordered_map<u32, XIndexList, XIdHash> m_ByShape;
};

}  // namespace VKT
