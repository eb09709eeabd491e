#pragma once

#include "max/HostMesh.h"

namespace VKT {
class XBone;
class XPolygonMesh;
class XShape;
}  // namespace VKT

namespace VKTMax {

class VKTExportCore;

// Builds the shape of a node whose object, `evaluated` at the end of its stack, is
// geometry, and places it under the node's bone. Nothing happens for an object that is
// unwanted, is no mesh, or has no vertices.
void ExportGeometry(VKTExportCore& core, INode* node, Object* evaluated);

// The object that a deformed mesh is read from: beneath the lowest modifier that the
// document has a deformer for (Physique, Skin, Morpher); `evaluated` when there is none.
Object* FindUndeformedObject(INode* node, Object* evaluated);

// Whether the options want the object as a mesh.
bool IsMeshWanted(Object* object);

// The mesh as a node of the document, with uv sets and colours as the options say; null
// for a mesh without vertices.
VKT::XPolygonMesh* BuildPolygonMesh(const VKTExportCore& core, const HostMesh& mesh, INode* node);

// Hangs the shape under the bone, if any, with the materials of the node that have been
// exported: one for all faces, or a group for each that faces use.
void PlaceShape(const VKTExportCore& core, VKT::XBone* bone, VKT::XShape* shape, INode* node,
                const HostMesh& mesh);

}  // namespace VKTMax
