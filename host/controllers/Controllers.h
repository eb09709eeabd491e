#pragma once

#include "host/core/ClassDirectory.h"

namespace maxhost {

// Enters the controllers of this folder.
void AddControllerClasses(ClassDirectory& classes);

}  // namespace maxhost
