#pragma once

namespace VKTMax {

// Presets set options of the store: a skinned mesh with its skeleton and no animation, and
// the sampled transforms of the whole timeline and nothing else. Options that a preset does
// not name stay.
void ApplyRigPreset();
void ApplyAnimationPreset();

}  // namespace VKTMax
