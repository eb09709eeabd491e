#pragma once

#include <vector>

#include "host/io/GltfAccessors.h"
#include "host/io/NeutralScene.h"

namespace maxhost::io {

// Appends the file's animations. A channel whose node stands outside the scene, or
// whose times do not rise, is left out with a warning.
// Throws Refusal.
void ReadGltfAnimations(const GltfFile& file, const std::vector<int>& neutralOfNode, GltfAccessors& accessors,
                        NeutralScene& scene);

}  // namespace maxhost::io
