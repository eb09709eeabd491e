#pragma once

#include "exporter/walk/ExportCore.h"
#include "max/Node.h"
#include "max/TriangleMesh.h"

namespace VKT {
class XPolygonMesh;
}  // namespace VKT

namespace VKTMax {

// Builds the shape of a node whose object is geometry, and places it under the node's
// bone. Nothing happens for an object that is unwanted, is no mesh, or has no vertices.
void ExportGeometry(VKTExportCore& core, const HostNode& node);

// The object that a deformed mesh is read from: beneath the lowest modifier that the
// document has a deformer for; the node's own object when there is none.
HostObject FindUndeformedObject(const HostNode& node);

// Whether the options want the object as a mesh.
bool IsMeshWanted(const HostObject& object);

// The mesh as a node of the document, with uv sets and colours as the options say; null
// for a mesh without vertices.
VKT::XPolygonMesh* BuildPolygonMesh(const VKTExportCore& core, const TriangleMesh& mesh,
                                    const HostNode& node);

}  // namespace VKTMax
