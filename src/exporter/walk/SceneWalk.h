#pragma once

#include "exporter/walk/ExportCore.h"

namespace VKTMax {

// What a walk takes along. Modifiers, materials and textures are handed on; whether they
// are exported is decided by the options where they are met.
struct WalkScope {
    bool shape = true;
    bool children = true;
    bool modifiers = true;
    bool materials = true;
    bool textures = true;
};

// Export a node and, by the scope, what is below it. In the first form bones of all nodes
// stand before the first shape, and shapes of children before those of their parent; in
// the second, bones and shapes of selected nodes alone, in the order of the walk, so that
// a selected node below an unselected one becomes a root.
//
// False when a node could not be created; what was built until then stays.
bool ExportAllNodes(VKTExportCore& core, INode* node, const WalkScope& scope);
bool ExportSelectedNodes(VKTExportCore& core, INode* node, const WalkScope& scope);

}  // namespace VKTMax
