#pragma once

#include "VKT/base/Types.h"

// The cubics that curves are made of, and where they take a given value. All in single
// precision, in the order that is written: files look the same everywhere.
namespace VKT {

// A Hermite cubic at `u` from 0 to 1: tangent and value at its start, value and tangent
// at its end.
f32 HermitePoint(f32 u, f32 startTangent, f32 start, f32 end, f32 endTangent);
// A Bezier cubic at `u` from 0 to 1, of four control points.
f32 BezierValue(f32 u, f32 start, f32 out, f32 in, f32 end);

// Where between 0 and 1 the Hermite or Bezier cubic takes the value `t`: 0 up to its
// start, 1 from its end on. By halving, at most 20 times; near enough is 0.0001.
f32 SolveHermite(f32 t, f32 start, f32 startTangent, f32 end, f32 endTangent);
f32 SolveBezier(f32 t, f32 start, f32 out, f32 in, f32 end);
// The same for a Bezier cubic by Cardano's formula; by `SolveBezier` where the cubic has
// three real roots.
f32 SolveCubic(f32 t, f32 start, f32 out, f32 in, f32 end);

}  // namespace VKT
