#pragma once

#include "host/io/AssimpNodes.h"

namespace maxhost::io {

// Appends the animations. `isFbx` says that the pivot rules of FBX hold and that keys
// stand for curves whose tangents Assimp dropped, which is reported.
void ReadAssimpAnimations(const aiScene& source, bool isFbx, AssimpNodes& nodes, NeutralScene& scene);

}  // namespace maxhost::io
