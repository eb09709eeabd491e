#pragma once

#include <bit>

#include "VKT/base/Types.h"

namespace VKT {

// What the angle of a cone starts at, in radians: a quarter of a half circle, less three
// units in its last place. The very word matters, since binary files hold it.
inline constexpr f32 kDefaultConeAngle = std::bit_cast<f32>(u32{0x3F490FD8});

}  // namespace VKT
