#pragma once

#include <optional>

#include "max/HostTypes.h"

namespace VKTMax {

// The values of the three single-axis controllers of a part of a transform; none where
// there is no such controller, or one that is no float.
struct AxisValues {
    std::optional<f32> x, y, z;
};

struct TransformTracks {
    AxisValues position;  // in the host's units
    AxisValues rotation;  // Euler angles in radians
    AxisValues scale;
};

// The tracks of a node's transform, at a time in ticks; nothing when the node has no
// transform controller.
std::optional<TransformTracks> ReadTransformTracks(INode* node, i32 ticks);

}  // namespace VKTMax
