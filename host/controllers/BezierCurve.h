#pragma once

#include "istdplug.h"

namespace maxhost {

// One component of a Bezier key. Tangents in value per tick, away from the key;
// lengths as parts of the segment.
struct CurveKey {
    TimeValue time = 0;
    DWORD flags = 0;
    float value = 0.0f;
    float inTangent = 0.0f;
    float inLength = 0.0f;
    float outTangent = 0.0f;
    float outLength = 0.0f;
};

// The curve between two neighbouring keys, at a time from the left one's up to the
// right one's. The kinds of tangent are those in the keys' flags; smooth ones look at
// the neighbours beyond, null at the ends.
float EvaluateBezier(const CurveKey* before, const CurveKey& left, const CurveKey& right,
                     const CurveKey* after, TimeValue t);

}  // namespace maxhost
