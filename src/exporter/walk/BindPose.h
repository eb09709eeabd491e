#pragma once

#include "exporter/walk/ExportCore.h"

namespace VKTMax {

// The pose that a document is saved in, once all nodes have been met: one of these two.

// Each bone takes the transform of its node relative to the one of its parent bone, by
// their bind matrices.
void ApplyBindPose(const VKTExportCore& core);

// Keeps the bones as they stand and brings their world matrices up to date. Moving skinned
// meshes into the pose comes with the export of skins.
void RebuildBindPoseFromCurrent(const VKTExportCore& core);

}  // namespace VKTMax
