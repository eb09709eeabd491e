#pragma once

#include <string>

namespace VKT {
class XModel;
}

namespace tool {

// The hierarchy of a document, a line for each bone and for each shape that hangs under
// it, then all that stands outside of it. For people: names are cleaned.
//
// Files may list a bone under several parents or in a ring: below the first line of a bone
// its children follow, further ones refer to that. Lines below a depth of 32 are not
// indented further, so that a chain of n bones takes O(n) characters.
std::string DrawTree(const VKT::XModel& model);

}  // namespace tool
