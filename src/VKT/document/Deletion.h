#pragma once

#include <memory>
#include <set>

#include "VKT/base/Lists.h"
#include "VKT/base/Types.h"

namespace VKT {

class XModel;
class XUserCounts;

// Which nodes go when some are deleted, and what those that stay are told of it: what goes is
// collected, the survivors are told, and those that see no reason to live on go too, with
// what they take along. The document deletes the nodes when all is said.
class XDeletion {
public:
    // `userCounts` is what the document answers to `CountUsers` while it is set: nothing
    // changes as long as the deaths are being collected.
    XDeletion(XModel& model, std::shared_ptr<const XUserCounts>& userCounts);

    // The nodes of the ids and all that go along with them, no longer shown by any instance
    // nor named by any survivor.
    XNodeList Prepare(const std::set<u32>& ids);

private:
    XNodeList Collect(const std::set<u32>& ids);
    std::set<u32> Announce(const XNodeList& deaths);
    void TellShapes(const XNodeList& deaths, std::set<u32>& unwilling) const;
    void DeleteInstancesOf(const XNodeList& deaths);
    void DeleteInstancesUnder(const XNodeList& deaths);

    XModel& m_Model;
    std::shared_ptr<const XUserCounts>& m_UserCounts;
    std::set<u32> m_Dying;
};

}  // namespace VKT
