#pragma once

#include <iosfwd>
#include <memory>
#include <unordered_map>

#include "VKT/base/FileResult.h"
#include "VKT/base/FlagStack.h"
#include "VKT/base/IdMap.h"
#include "VKT/document/BoneLinks.h"
#include "VKT/document/Image.h"
#include "VKT/document/Info.h"
#include "VKT/document/InheritedNode.h"
#include "VKT/document/Instance.h"
#include "VKT/document/NewNode.h"
#include "VKT/document/UserCounts.h"
#include "VKT/node/Base.h"
#include "VKT/stream/FileVersion.h"

namespace VKT {

class XAnimCycle;
class XShape;

// A chunk that a load could not use and skipped.
struct XDroppedChunk {
    XString key;     // as text files have it; of a binary chunk without one the number of its type
    XString name;    // as far as it was read
    bool isDamaged;  // else there is no class for it
};

// What an instance in a text file named and a load could not use: no node of that kind stands
// ahead of it in the file. Without its shape the whole instance is dropped.
struct XDroppedReference {
    XString bone;
    XString instance;
    const char* kind;  // "shape", "material" or "texture"
    u32 id;

    bool IsShape() const { return std::string_view(kind) == "shape"; }
};

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
    XInheritedNode* AddInheritedNode(u32 baseType, const XString& header);
    XNewNode* AddNewNode(u32 family, const XString& typeName, const XString& header);
    // In the order of their numbers, and by chunk key.
    const XVector<std::unique_ptr<XInheritedNode>>& GetInheritedNodes() const { return m_InheritedNodes; }
    const std::map<XString, std::unique_ptr<XNewNode>>& GetNewNodes() const { return m_NewNodes; }
    // The built-in type behind the type number of a binary chunk, through the definitions
    // of inherited types; `kFnBase`, which has no nodes, where they lead nowhere.
    u32 FindBuiltInType(u32 type) const;

    // The node of that id or name, or null; nothing is logged. With equal names the
    // first in order.
    XBase* FindNode(u32 id) const { return m_NodesById.Find(id); }
    XBase* FindNode(std::string_view name) const;
    bool HasNode(u32 id) const { return FindNode(id) != nullptr; }
    // Whether the pointer is among the document's nodes and cycles. Any pointer may be asked about,
    // also one whose node is gone, so this is a linear scan.
    bool IsValid(const XBase* node) const;
    // The same for a node that is known to live, in constant time.
    bool Holds(const XBase& node) const { return node.m_Model == this && node.m_NameEntry != m_Nodes.end(); }

    // Fills `out` with the nodes of a class and its subclasses, or of exactly that
    // class, in name order. Answers whether there are any.
    bool List(XNodeList& out, u32 type, bool exact = false) const;
    // Fills `out` with the bones without a parent, in name order.
    bool ListRootBones(XBoneList& out) const;
    const XNameMap& GetNodes() const { return m_Nodes; }
    // The animation cycles, in the order of creation. They have ids and are no nodes of the
    // document: nothing finds or lists them, and their names need not be unique.
    const XVector<std::unique_ptr<XAnimCycle>>& GetCycles() const { return m_Cycles; }

    // Gives the node the requested name, blanks and tabs replaced by `_`, with a number
    // behind it when another node has it; the node's own present name counts as taken.
    // Answers the name that it got, empty for a null node.
    XString SetName(XBase* node, std::string_view requested);

    // Hangs the shape under the bone, once: a second call answers the same instance.
    XInstance* CreateInstance(XBone* bone, XShape* shape);
    // Removes an instance from the document and from its bone's list. False when there
    // is none of that id.
    bool DeleteInstance(u32 id);
    XInstance* FindInstance(u32 id) const;
    // The first instance of `shape` in the bone's list, or null.
    XInstance* FindInstance(const XBone& bone, const XShape& shape) const;
    bool ListInstances(XInstanceList& out) const;
    // Ids of the instances that show the shape, in the document's order.
    void ListInstancesOf(u32 shape, XIndexList& ids) const;

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
    // Chunks that the last load could not use and skipped: how many, and the first thousand
    // of them in the order of the file.
    u32 GetNumDroppedChunks() const { return m_NumDroppedChunks; }
    const XVector<XDroppedChunk>& GetDroppedChunks() const { return m_DroppedChunks; }
    // References that the last load dropped, of the same length.
    u32 GetNumDroppedReferences() const { return m_NumDroppedReferences; }
    const XVector<XDroppedReference>& GetDroppedReferences() const { return m_DroppedReferences; }
    XFlagStack& GetCopyFlags() { return m_CopyFlags; }
    XFlagStack& GetDeleteFlags() { return m_DeleteFlags; }
    XFlagStack& GetSaveFlags() { return m_SaveFlags; }
    // The image table, in the order of the file. A text file has none: its images stand in
    // the side file that its file information names.
    const XVector<std::unique_ptr<XImage>>& GetImages() const { return m_Images; }
    // File information, null when there is none. The document owns it.
    XInfo* GetInfo() const { return m_Info.get(); }
    void SetInfo(std::unique_ptr<XInfo> info) { m_Info = std::move(info); }

private:
    friend class XBase;           // starts outside of m_Nodes
    friend class XBone;           // instances that a bone reads
    friend class XBoneWalk;       // its number
    friend class XInstance;       // what an instance could not use
    friend class XSampledStream;  // samples that a file claims

    u32 NextId();
    XBase* Adopt(std::unique_ptr<XBase> node);
    void Enter(std::unique_ptr<XBase> node, std::string_view name);
    void Rename(XBase& node, XString name);
    XString FirstFreeName(std::string_view stem);
    void ForgetNumber(const XString& name);
    XInstance* AddInstance(std::unique_ptr<XInstance> instance);
    void LeavePlace(const XInstance& instance);
    XVector<std::unique_ptr<XInstance>>::const_iterator PlaceOf(u32 id) const;

    // ModelDelete.cpp
    XNodeList CollectDeaths(const std::set<u32>& ids, std::set<u32>& dying);
    std::set<u32> AnnounceDeaths(const XNodeList& deaths, const std::set<u32>& dying);
    void DeleteInstancesOf(const XNodeList& deaths);
    void DeleteInstancesUnder(const XNodeList& deaths);
    // ModelUserTypes.cpp
    bool IsFreeChunkKey(const XString& key) const;
    void Enter(std::unique_ptr<XInheritedNode> definition);
    void Enter(std::unique_ptr<XNewNode> definition);
    const XInheritedNode* FindInheritedNode(const XString& header) const;
    const XNewNode* FindNewNode(const XString& header) const;
    // ModelImages.cpp
    bool DoImages(XFileIO& file);
    bool TryTextureFile(const XString& path);
    void FindTextureFile(const XString& scenePath);
    // ModelLoad.cpp, ModelSave.cpp
    template <class Reading>
    XFileResult LoadSafely(const char* path, Reading read);
    XFileResult CheckHeader(std::string_view start, const char* path);
    void PostLoad();
    bool BuildBindMatrices(const XVector<XBone*>& bones, const XVector<XBone*>& roots);
    void Abandon(XBase& node);
    void Drop(XDroppedChunk chunk);
    void Drop(XDroppedReference reference);
    void ListForSave(XNodeList& out) const;
    bool CanSaveAsBinary() const;
    // ModelText.cpp
    XFileResult LoadAscii(const char* path, bool loadCycles);
    XFileResult LoadAsciiStream(XTextReader& in, const char* path, bool loadCycles);
    XFileResult ReadTextChunks(XTextReader& in, const char* path, bool loadCycles);
    XFileResult ReadTextChunk(XTextReader& in, const char* path, const XString& key, const XString& name,
                              bool loadCycles);
    XFileResult ReadTextNode(XTextReader& in, std::unique_ptr<XBase> node, const XString& name);
    XFileResult SkipTextChunk(XTextReader& in, const XString& key, const XString& name);
    XFileResult SaveAscii(XTextWriter& out);
    // ModelBinary.cpp
    struct BinaryChunk;
    enum class ChunkUse { kRead, kDropped, kFatal };
    XFileResult LoadBin(const char* path, bool loadCycles);
    ChunkUse UseBinaryChunk(XFileIO& file, const BinaryChunk& chunk, bool loadCycles);
    bool ReadBinaryNode(XFileIO& file, const BinaryChunk& chunk);
    XFileResult SaveBinary(XFileIO& file);
    // ModelAnimation.cpp
    XFileResult ReadTextCycle(XTextReader& in, std::unique_ptr<XBase> cycle, const XString& name);
    void WriteTextCycles(XTextWriter& out) const;
    bool WriteBinaryCycles(XFileIO& file) const;
    bool CanSaveCyclesAsText() const;
    static constexpr u64 kMostSamplePadding = 1 << 20;
    bool AllowSamplePadding(u64 floats);

    u32 m_Version = kCurrentVersion;
    std::unique_ptr<XInfo> m_Info;
    XVector<std::unique_ptr<XImage>> m_Images;
    XVector<std::unique_ptr<XInstance>> m_Instances;  // by ascending id; see m_DeadInstances
    XVector<std::unique_ptr<XAnimCycle>> m_Cycles;
    XNameMap m_Nodes;
    XIdMap m_NodesById;
    u32 m_LastInstanceId = 0;
    XVector<std::unique_ptr<XInheritedNode>> m_InheritedNodes;
    std::map<XString, std::unique_ptr<XNewNode>> m_NewNodes;
    u32 m_LastId = 0;
    u32 m_FirstFreeId = 1;  // ids below it are taken; asked for once all others are
    XFlagStack m_CopyFlags{127};
    XFlagStack m_ReservedFlags1{1};
    XFlagStack m_DeleteFlags{0xFFFFFFFF};
    XFlagStack m_SaveFlags{511};
    XFlagStack m_ReservedFlags2{127};

    u32 m_NumDroppedChunks = 0;
    XVector<XDroppedChunk> m_DroppedChunks;
    u32 m_NumDroppedReferences = 0;
    XVector<XDroppedReference> m_DroppedReferences;
    u64 m_SamplePadding = 0;  // zeroes that stand for samples which the file did not hold
    // The first instance by (bone, shape) and how many there are, and those of each shape in
    // the document's order, so that neither hanging nor linking a shape walks a list.
    struct Place {
        u32 first;
        u32 count;
    };
    std::unordered_map<u64, Place, XIdHash> m_InstancesByPlace;
    std::unordered_map<u32, XIndexList, XIdHash> m_InstancesByShape;
    XBoneLinks m_BoneLinks;
    u32 m_LastBoneWalk = 0;
    // Of equal keys the first; the key looks into the definition.
    std::map<std::string_view, const XInheritedNode*> m_InheritedByHeader;
    // What `FindBuiltInType` has found for each definition, so that long chains are walked
    // once; empty after a definition was added.
    mutable XIndexList m_BuiltInTypes;
    // Instances that were deleted and still stand in m_Instances: they leave it together, so
    // that deleting one moves no others.
    std::size_t m_DeadInstances = 0;
    // What `CountUsers` answers while the nodes that are to go are being collected.
    std::shared_ptr<const XUserCounts> m_UserCounts;
    // For stems of numbered names: the number below which all are taken.
    std::unordered_map<XString, u32> m_NextNumber;
};

}  // namespace VKT
