#pragma once

#include <map>
#include <unordered_map>

#include "max/HostTypes.h"
#include "max/RowMatrix.h"

namespace VKT {
class XBase;
class XBone;
class XModel;
}  // namespace VKT

namespace VKTMax {

// The state of a walk: the document that it fills, and what has become of every host
// object met so far. The functions that do the walking take it along.
//
// One core serves one document. The document owns all nodes; host objects are keys only
// and stay the host's. What is not remembered is found as null, as are null and gaps.
class VKTExportCore {
public:
    // With `selectedOnly`, `ExportAllNodes` passes over what is not selected.
    VKTExportCore(VKT::XModel& model, bool selectedOnly) : m_Model(model), m_SelectedOnly(selectedOnly) {}
    VKTExportCore(const VKTExportCore&) = delete;
    VKTExportCore& operator=(const VKTExportCore&) = delete;

    VKT::XModel& GetModel() const { return m_Model; }
    bool IsSelectedOnly() const { return m_SelectedOnly; }

    // The first that a host object was remembered with stays.
    void Remember(INode* node, VKT::XBone& bone);
    void Remember(Object* evaluated, VKT::XBase& shape);
    void Remember(Mtl* material, VKT::XBase& node);

    VKT::XBone* FindBone(INode* node) const;
    INode* FindNode(const VKT::XBone* bone) const;
    // By the object at the end of the stack.
    VKT::XBase* FindShape(Object* evaluated) const;
    VKT::XBase* FindMaterial(Mtl* material) const;

    const std::map<INode*, VKT::XBone*>& GetNodes() const { return m_Bones; }

    // The world matrix in which a skin bound the node, else that of time 0; the identity
    // for null.
    RowMatrix GetBindMatrix(INode* node) const;
    void SetBindMatrix(INode* node, const RowMatrix& world);

private:
    VKT::XModel& m_Model;
    bool m_SelectedOnly;
    // Ordered by address, as takes list them.
    std::map<INode*, VKT::XBone*> m_Bones;
    std::unordered_map<const VKT::XBone*, INode*> m_NodesByBone;
    std::map<Object*, VKT::XBase*> m_Shapes;
    std::map<Mtl*, VKT::XBase*> m_Materials;
    std::map<INode*, RowMatrix> m_BindMatrices;
};

}  // namespace VKTMax
