#pragma once

#include "VKT/base/Types.h"

namespace VKT {

// One end of a tie between an extra attribute and an attribute of another node.
struct XConnection {
    u32 m_Node = 0;       // id of the node at the other end
    u32 m_Index = 0;      // element of this attribute; 0 for a scalar
    XString m_Attribute;  // the other end's name, with an element suffix for an array

    bool operator==(const XConnection&) const = default;
};

}  // namespace VKT
