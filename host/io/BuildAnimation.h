#pragma once

#include "host/io/BuildScene.h"

namespace maxhost::io {

// Gives the nodes in `report` the keys of the scene's animations, sets the host's frame
// rate when the file has one, and its animation range to what the keys span.
//
// Positions and scales keep their keys and kinds of interpolation. Rotations become
// Euler keys at every key and every frame between, closer where the straight lines
// between Euler keys would leave the track by more than a part of a degree. A part
// that holds still gets a value instead of keys. `turn` is what the top nodes are
// turned by.
void BuildAnimation(const NeutralScene& scene, const BuildOptions& options, const Quaternion& turn,
                    BuildReport& report);

}  // namespace maxhost::io
