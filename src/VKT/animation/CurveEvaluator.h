#pragma once

#include "VKT/animation/AnimCurve.h"

namespace VKT {

// Evaluates a curve, all in single precision.
//
// numKeys  how many keys the evaluation sees: those at or beyond it read as zeroes.
//          `XAnimCurve::Evaluate` passes the curve's bound, which is 0; who wants the
//          curve that the table draws passes `curve.GetNumKeys()`.
// time     in the unit of the keys
// value    within the keys' range the value is added; a constant or linear infinity
//          replaces it; a cycle with offset moves it by the curve's rise for each turn
// errors   false, and `value` as it was, for an interpolation or infinity without meaning
//
// Tangents are not scaled by the time between two keys.
bool XEvaluateCurve(const XAnimCurve& curve, u32 numKeys, f32 time, f32& value);

}  // namespace VKT
