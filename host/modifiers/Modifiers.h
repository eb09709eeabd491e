#pragma once

#include "host/core/ClassDirectory.h"

namespace maxhost {

// Enters the modifiers of this folder.
void AddModifierClasses(ClassDirectory& classes);

}  // namespace maxhost
