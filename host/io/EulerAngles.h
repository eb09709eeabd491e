#pragma once

#include "host/io/Transform.h"

namespace maxhost::io {

// Angles about X, Y and Z in radians that turn about X first, then Y, then Z. The
// quaternion is of unit length. Of all angles that give it, those nearest to `near`
// are taken, whole turns included, so that neighbouring keys do not jump.
Vector EulerAnglesNear(const Quaternion& q, const Vector& near);

Quaternion FromEulerAngles(const Vector& angles);

}  // namespace maxhost::io
