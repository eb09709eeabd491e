#pragma once

#include <functional>
#include <map>
#include <unordered_map>
#include <utility>
#include <vector>

#include "VKT/document/Model.h"
#include "exporter/math/TransformDecomposition.h"
#include "max/HostAccess.h"

class Modifier;
class Texmap;

namespace VKT {
class XBone;
}  // namespace VKT

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

// Reads the pose of a bone from the single-axis controllers of its node at time 0, as
// they stand, without the scale factor. A missing controller counts as 0, for scale 1;
// a node without a transform controller leaves the bone alone.
void CaptureControllerTransform(INode* node, VKT::XBone& bone);

// Turns the host's tree of nodes into the bones of a document and sends each object to
// where its shape is built. It knows what has become of every host object met so far.
//
// One core serves one document. The document owns all nodes; host objects are keys only
// and stay the host's. Operations answer false when a node could not be created; what
// was built until then stays. No walk recurses: hierarchies may be a million deep.
class VKTExportCore {
public:
    // With `selectedOnly`, `ExportAllNodes` passes over what is not selected.
    VKTExportCore(VKT::XModel& model, bool selectedOnly) : m_Model(model), m_SelectedOnly(selectedOnly) {}
    VKTExportCore(const VKTExportCore&) = delete;
    VKTExportCore& operator=(const VKTExportCore&) = delete;

    VKT::XModel& GetModel() const { return m_Model; }

    // The bone of a node, and the node of a bone; null when there is none, or for null.
    VKT::XBone* FindBone(INode* node) const;
    INode* FindNode(const VKT::XBone* bone) const;
    const std::map<INode*, VKT::XBase*>& GetNodes() const { return m_Nodes; }

    // Exports a node and what is below it. In the first form bones of all nodes stand
    // before the first shape, and shapes of children before those of their parent; in
    // the second, bones and shapes of selected nodes alone, in the order of the walk, so
    // that a selected node below an unselected one becomes a root.
    bool ExportAllNodes(INode* node, const WalkScope& scope);
    bool ExportSelectedNodes(INode* node, const WalkScope& scope);

    // Makes the bone of a node that has none yet, with its local transform at time 0, and
    // hangs it under its parent's and the bones of its children under it. `recursive`
    // makes those of all nodes below first.
    bool CreateBoneTree(INode* node, bool recursive);

    // Fixes the pose of all bones: each takes the transform of its node relative to the
    // one of its parent bone, by their bind matrices.
    void ApplyBindPose();
    // Keeps the bones as they stand and brings their world matrices up to date. Moving
    // skinned meshes into the pose comes with the export of skins.
    void RebuildBindPoseFromCurrent();

    // The transform of a node relative to its parent.
    TransformParts GetLocalTransform(INode* node, i32 ticks) const;
    // What multiplies the vertices of the node's object.
    Vector3d GetVertexScale(INode* node, i32 ticks) const;
    // The world matrix in which a skin bound the node, else that of time 0; the identity
    // for null.
    RowMatrix GetBindMatrix(INode* node) const;

    // What has been built from which host object. A deformer goes with the shape that it
    // was built for, as nodes may share a modifier.
    std::map<Object*, VKT::XBase*> shapes;
    std::map<Mtl*, VKT::XBase*> materials;
    std::map<Texmap*, VKT::XBase*> textures;
    std::map<Modifier*, std::vector<std::pair<VKT::XBase*, VKT::XBase*>>> deformers;
    std::map<INode*, RowMatrix> bindTransforms;
    // Nodes that an animation covers.
    std::vector<INode*> animNodes;
    // How a selection export reads the pose of a bone.
    std::function<void(INode*, VKT::XBone&)> captureTransform = CaptureControllerTransform;

private:
    bool CreateSelectedBone(INode* node);
    VKT::XBone* CreateBone(INode* node);
    void FinishBone(INode* node, VKT::XBone& bone);
    // Extra attributes of the node's bone, if it has one (NodeAttributes.cpp).
    void WriteWireColour(INode* node) const;
    void WriteUserProperties(INode* node) const;
    bool ExportNodeContent(INode* node, const WalkScope& scope);

    VKT::XModel& m_Model;
    bool m_SelectedOnly;
    std::map<INode*, VKT::XBase*> m_Nodes;
    std::unordered_map<const VKT::XBase*, INode*> m_NodesByBone;
};

// The scale options of the store.
ScaleRules CurrentScaleRules();

}  // namespace VKTMax
