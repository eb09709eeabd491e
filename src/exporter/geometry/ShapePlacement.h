#pragma once

#include "exporter/walk/ExportCore.h"
#include "max/Node.h"
#include "max/TriangleMesh.h"

namespace VKT {
class XShape;
}  // namespace VKT

namespace VKTMax {

// Hangs the shape under the node's bone, if any, with the materials of the node that have
// been exported: one for all faces, or a group for each that faces use.
void PlaceShape(const VKTExportCore& core, VKT::XShape* shape, const HostNode& node,
                const TriangleMesh& mesh);

}  // namespace VKTMax
