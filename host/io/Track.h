#pragma once

#include <span>

#include "host/io/NeutralScene.h"

namespace maxhost::io {

// The value of key `index`, without its tangents; `width` numbers.
std::span<const double> KeyValue(const NeutralTrack& track, std::size_t index);

// What the track says at a time in seconds; before the first and behind the last
// key it holds still. Needs a key at least. Rotations come out normalised, linear
// ones by way of the shorter arc.
void Sample(const NeutralTrack& track, double seconds, std::span<double> out);
Vector SampleVector(const NeutralTrack& track, double seconds);
Quaternion SampleRotation(const NeutralTrack& track, double seconds);

}  // namespace maxhost::io
