#pragma once

#include "control.h"

namespace maxhost {

// What a transform controller stores of a matrix: scaled along the axes of the scale's
// turn first, then turned, then moved.
struct AffineParts {
    Point3 position;
    Quat rotation;  // left-handed, as all of the SDK's
    ScaleValue scale;
};

// Takes a matrix apart. A mirrored one has three negative scales. Where an axis has no
// length, any direction that completes the rotation is taken.
AffineParts TakeApart(const Matrix3& tm);

// Angles in radians with RotateXMatrix * RotateYMatrix * RotateZMatrix equal to
// `rotation`: of all such triples the one nearest to `nearby`.
Point3 EulerAnglesNear(const Matrix3& rotation, const Point3& nearby);

}  // namespace maxhost
