#pragma once

#include "exporter/walk/ExportCore.h"

namespace VKTMax {

// Writes what a node carries beside transform and shape as extra attributes of its bone:
// the wire colour and, by the options, the user properties. Nothing happens for a node
// without a bone.
void WriteNodeAttributes(const VKTExportCore& core, INode* node);

}  // namespace VKTMax
