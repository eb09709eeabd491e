#pragma once

#include <iosfwd>
#include <memory>

#include "VKT/base/FileResult.h"
#include "VKT/base/FlagStack.h"
#include "VKT/document/BoneLinks.h"
#include "VKT/document/ImageTable.h"
#include "VKT/document/Info.h"
#include "VKT/document/InstanceTable.h"
#include "VKT/document/LoadReport.h"
#include "VKT/document/NodeTable.h"
#include "VKT/document/TypeDeclarations.h"
#include "VKT/document/UserCounts.h"
#include "VKT/stream/FileVersion.h"

namespace VKT {

class XAnimCycle;
class XShape;

// The document: the single owner of all nodes of one scene. It creates nodes, gives
// them ids and unique names, finds them, keeps the instances that hang shapes under
// bones, and reads and writes itself as a text or a binary file.
//
// One document is used by one caller at a time. Several live side by side; they share
// the type registry alone.
class XModel {
public:
    XModel();
    virtual ~XModel();
    // Deletes all nodes, instances, images, definitions of node types and the file
    // information, and starts counting ids anew. The flags stay.
    virtual void Clear();
    XModel(const XModel&) = delete;
    XModel& operator=(const XModel&) = delete;

    // A new node of the type, with the next id and the first free name of `node1`,
    // `node2`, ... Null, with a logged error, when the type is abstract or unknown.
    XBase* CreateNode(u32 type);
    // The same by class: `model.CreateNode<XBone>()`.
    template <class T>
    T* CreateNode()
    {
        return XCast<T>(CreateNode(T::kType));
    }

    // The same for an instance of a user-defined type, a definition of this document. Null
    // for a definition that leads to no class.
    XBase* CreateNode(const XInheritedNode& definition);
    XBase* CreateNode(const XNewNode& definition);

    // Declares a node type under a chunk key of its own (see XInheritedNode and XNewNode).
    // Null, with a logged error, when the key is empty, holds white space or is taken.
    XInheritedNode* AddInheritedNode(u32 baseType, const XString& header)
    {
        return m_Declarations.AddInherited(baseType, header);
    }
    XNewNode* AddNewNode(u32 family, const XString& typeName, const XString& header)
    {
        return m_Declarations.AddNew(family, typeName, header);
    }
    // In the order of their numbers, and by chunk key.
    const XVector<std::unique_ptr<XInheritedNode>>& GetInheritedNodes() const
    {
        return m_Declarations.GetInherited();
    }
    const std::map<XString, std::unique_ptr<XNewNode>>& GetNewNodes() const
    {
        return m_Declarations.GetNew();
    }
    // The built-in type behind the type number of a binary chunk, through the definitions
    // of inherited types; `kFnBase`, which has no nodes, where they lead nowhere.
    u32 FindBuiltInType(u32 type) const { return m_Declarations.FindBuiltInType(type); }

    // The node of that id or name, or null; nothing is logged. With equal names the
    // first in order.
    XBase* FindNode(u32 id) const { return m_Nodes.Find(id); }
    XBase* FindNode(std::string_view name) const { return m_Nodes.Find(name); }
    bool HasNode(u32 id) const { return FindNode(id) != nullptr; }
    // Whether the pointer is among the document's nodes and cycles. Any pointer may be asked about,
    // also one whose node is gone, so this is a linear scan.
    bool IsValid(const XBase* node) const;
    // The same for a node that is known to live, in constant time.
    bool Holds(const XBase& node) const { return node.GetModel() == this && XNodeTable::Holds(node); }

    // Fills `out` with the nodes of a class and its subclasses, or of exactly that
    // class, in name order. Answers whether there are any.
    bool List(XNodeList& out, u32 type, bool exact = false) const;
    // Fills `out` with the bones without a parent, in name order.
    bool ListRootBones(XBoneList& out) const;
    // All of them, by name.
    const XNodeTable& GetNodes() const { return m_Nodes; }
    // The animation cycles, in the order of creation. They have ids and are no nodes of the
    // document: nothing finds or lists them, and their names need not be unique.
    const XVector<std::unique_ptr<XAnimCycle>>& GetCycles() const { return m_Cycles; }

    // Gives the node the requested name, blanks and tabs replaced by `_`, with a number
    // behind it when another node has it; the node's own present name counts as taken.
    // Answers the name that it got, empty for a null node.
    XString SetName(XBase* node, std::string_view requested);

    // Hangs the shape under the bone, once: a second call answers the same instance.
    XInstance* CreateInstance(XBone* bone, XShape* shape);
    // Takes over an instance that a bone has read.
    XInstance* AddInstance(std::unique_ptr<XInstance> instance)
    {
        return m_Instances.Add(std::move(instance));
    }
    // Removes an instance from the document and from its bone's list. False when there
    // is none of that id.
    bool DeleteInstance(u32 id) { return m_Instances.Delete(id); }
    XInstance* FindInstance(u32 id) const { return m_Instances.Find(id); }
    // The first instance of `shape` in the bone's list, or null.
    XInstance* FindInstance(const XBone& bone, const XShape& shape) const
    {
        return m_Instances.Find(bone, shape);
    }
    bool ListInstances(XInstanceList& out) const { return m_Instances.List(out); }
    // Ids of the instances that show the shape, in the document's order.
    void ListInstancesOf(u32 shape, XIndexList& ids) const { m_Instances.ListOf(shape, ids); }

    // Deletes a node and what goes along with it: the nodes that its `PreDelete` asks for
    // under the delete flags, those that theirs ask for, and survivors that answer the death
    // of a node that they name by `NodeDeath` with false. Instances whose bone or shape goes
    // are deleted, and uv sets of textures that go are dropped from the others. False when
    // there is no node of that id.
    bool DeleteNode(u32 id);
    // The same for many nodes in one go, which is what deleting many should cost. Ids of no
    // node are passed over. Answers how many nodes went.
    u32 DeleteNodes(const std::set<u32>& ids);
    // How much depends on each shading node.
    std::shared_ptr<const XUserCounts> CountUsers() const;

    // What bones keep in step when their links change.
    XBoneLinks& GetBoneLinks() { return m_BoneLinks; }
    // Builds the current matrices of all bones that are reached from a root.
    void UpdateWorldMatrices();

    // Replaces the document by the content of a file; with `loadCycles` false animation
    // cycles are skipped. After a failure the document holds what was read before it.
    XFileResult Load(const char* path, bool loadCycles = true);
    // Writes the document in the form that `SaveAscii` of the save flags asks for. The
    // version becomes 4.
    XFileResult Save(const char* path);
    // The text form over standard streams; `path` is where side files are looked for.
    XFileResult Load(std::istream& in, const char* path, bool loadCycles = true);
    XFileResult Save(std::ostream& out);

    // Whether a text save would be taken on: false, with a logged error, for a document that
    // claims far more data than it holds, which a text file would have to pad.
    bool CanSaveAsText() const;

    // 4 in a new document and before every save, after a load that of the file.
    u32 GetVersion() const { return m_Version; }
    // What the last load left out or made up.
    const XLoadReport& GetLoadReport() const { return m_LoadReport; }
    XLoadReport& GetLoadReport() { return m_LoadReport; }
    XFlagStack& GetCopyFlags() { return m_CopyFlags; }
    XFlagStack& GetDeleteFlags() { return m_DeleteFlags; }
    XFlagStack& GetSaveFlags() { return m_SaveFlags; }
    const XFlagStack& GetSaveFlags() const { return m_SaveFlags; }
    // The image table, in the order of the file. A text file has none: its images stand in
    // the side file that its file information names.
    const XVector<std::unique_ptr<XImage>>& GetImages() const { return m_Images.GetImages(); }
    // File information, null when there is none. The document owns it.
    XInfo* GetInfo() const { return m_Info.get(); }
    void SetInfo(std::unique_ptr<XInfo> info) { m_Info = std::move(info); }

private:
    friend class XBase;       // cleans its own name
    friend class XSceneLoad;  // fills the document

    XBase* Adopt(std::unique_ptr<XBase> node);
    XBase* Enter(std::unique_ptr<XBase> node);
    XFileResult SaveAsText(const char* path);
    XFileResult SaveAsBinary(const char* path);

    u32 m_Version = kCurrentVersion;
    std::unique_ptr<XInfo> m_Info;
    XImageTable m_Images;
    XInstanceTable m_Instances;
    XVector<std::unique_ptr<XAnimCycle>> m_Cycles;
    XNodeTable m_Nodes;
    XTypeDeclarations m_Declarations;
    XFlagStack m_CopyFlags{127};
    XFlagStack m_DeleteFlags{0xFFFFFFFF};
    XFlagStack m_SaveFlags{511};
    XLoadReport m_LoadReport;
    XBoneLinks m_BoneLinks;
    // What `CountUsers` answers while the nodes that are to go are being collected.
    std::shared_ptr<const XUserCounts> m_UserCounts;
};

}  // namespace VKT
