#pragma once

#include "VKT/base/Lists.h"

namespace VKT {

class XModel;

// All nodes that the document's save flags ask for, in the order of the file: group by group,
// so that what a group refers to stands ahead of it, and within a group by name.
XNodeList ListForSave(const XModel& model);

}  // namespace VKT
