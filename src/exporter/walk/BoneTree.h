#pragma once

#include "exporter/walk/ExportCore.h"

namespace VKTMax {

// How a node becomes a bone: its class, name, place in the tree, pose and visibility. A
// bone that is known stays as it is. False when a bone could not be created.

// Makes the bone of a node, with its local transform at time 0, and hangs it under its
// parent's and the bones of its children under it. `recursive` makes those of all nodes
// below first.
bool CreateBoneTree(VKTExportCore& core, INode* node, bool recursive);

// Makes the bone of a node that is selected, with the pose of its controllers, and hangs
// it under its parent's.
bool CreateSelectedBone(VKTExportCore& core, INode* node);

// Reads the pose of a bone from the single-axis controllers of its node at time 0, as
// they stand, without the scale factor. A missing controller counts as 0, for scale 1;
// a node without a transform controller leaves the bone alone.
void CaptureControllerTransform(INode* node, VKT::XBone& bone);

}  // namespace VKTMax
