#pragma once

#include "host/io/NeutralScene.h"

namespace maxhost::io {

// The last step of every reader. Names what has no name (from its mesh, its kind
// or a number), reports names that nodes share, and replaces numbers that are not
// finite, with a warning.
void CompleteScene(NeutralScene& scene);

}  // namespace maxhost::io
