#pragma once

#include <vector>

#include "export/BoneMatch.h"

namespace tool {

// What the scene format cannot carry of a node's transform. A bone turns, moves and
// scales along its own axes; it neither shears nor mirrors. A mirror of the node itself
// is kept in its vertices.
enum class TransformLoss {
    None,
    Collapsed,  // a node above it is scaled to nothing
    Mirror,     // a node above it is mirrored
    Shear,      // its axes are not square to each other, in the world or in its parent
};

// By place in the list, at time 0; of several losses the first of the enumeration.
std::vector<TransformLoss> FindTransformLosses(const std::vector<PlacedNode>& nodes);

}  // namespace tool
