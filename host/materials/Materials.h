#pragma once

#include "host/core/ClassDirectory.h"

namespace maxhost {

// Enters the materials, maps and placements of this folder.
void AddMaterialClasses(ClassDirectory& classes);

}  // namespace maxhost
