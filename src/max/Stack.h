#pragma once

#include <vector>

#include "max/HostClasses.h"
#include "max/HostObject.h"

namespace VKTMax {

// A modifier on the stack of a node.
struct StackModifier {
    HostClass type;
    // What lies below the part of the stack that holds the modifier: the object at the
    // bottom, or another such part. Modifiers of one part have the same.
    HostObject below;
};

// The modifiers of a node, the top one first; empty when it has none.
std::vector<StackModifier> ReadStack(INode* node);

}  // namespace VKTMax
