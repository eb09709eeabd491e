#pragma once

#include "max/HostClasses.h"

namespace VKTMax {

// Whether the document deforms what a modifier of that class deforms in the host, so that
// a mesh is read beneath it. That is so whatever the options say of the modifier itself.
bool IsDeforming(HostClass modifier);

}  // namespace VKTMax
