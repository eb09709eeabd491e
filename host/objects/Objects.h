#pragma once

#include "host/core/ClassDirectory.h"

namespace maxhost {

// Enters the objects of this folder.
void AddObjectClasses(ClassDirectory& classes);

}  // namespace maxhost
