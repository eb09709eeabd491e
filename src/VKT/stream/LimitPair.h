#pragma once

#include "VKT/stream/Limit.h"

namespace VKT {

// The range that one channel of a transform may move in; open on both sides at first.
struct XLimitPair {
    f32 lower = NoLowerLimit();
    f32 upper = NoUpperLimit();
};

}  // namespace VKT
