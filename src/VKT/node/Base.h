#pragma once

#include <map>
#include <memory>
#include <set>
#include <string_view>

#include "VKT/base/Lists.h"
#include "VKT/node/BodyTable.h"
#include "VKT/node/Fn.h"
#include "VKT/node/NodeProperties.h"

namespace VKT {

class XAttribute;
class XExtraAttributes;
class XFileIO;
class XInheritedNode;
class XModel;
class XNewNode;
class XTextReader;
class XTextWriter;

// The nodes of a document by name. Equal names keep their order of arrival. The key
// looks into the node's own name.
using XNameMap = std::multimap<std::string_view, std::unique_ptr<XBase>>;

// The root of all node classes: identity, owning document, and the protocol through
// which the document creates, reads, writes, copies, links and deletes a node without
// knowing its class.
//
// A node is made by its document (`XModel::CreateNode`) or by a loader and belongs to
// the document. Nodes name each other by id, never by pointer; 0 means none. An
// override of a chained operation calls its base class first.
class XBase {
public:
    static constexpr u32 kType = kFnBase;

    explicit XBase(XModel* model);
    virtual ~XBase();
    XBase(const XBase&) = delete;
    XBase& operator=(const XBase&) = delete;

    // The property object of the class: one for all its nodes.
    virtual const XNodeProperties* GetNodeProperties() const { return ClassProperties(); }
    // The exact type id of the most derived class.
    virtual u32 GetApiType() const { return kType; }
    // The library's run-time cast: the node itself when `type` is the id of its class
    // or of any class on the way up to `XBase` (0), else null. See `XCast`.
    virtual const XBase* HasFn(u32 type) const { return type == kType ? this : nullptr; }
    virtual XBase* HasFn(u32 type) { return type == kType ? this : nullptr; }
    // Bytes of the whole binary chunk, its 8-byte header included, as a save under the
    // document's flags would write it. Changes nothing on the node.
    virtual u32 GetDataSize() const;
    // The same for a chunk of any length: the size in a header ends at 4 GiB.
    u64 MeasureChunk() const;
    // Appends the ids of all nodes that this one names, in its binary chunk or in memory
    // alone; repeated ones and 0 for none are among them. Fields alone leave out the
    // connections of extra attributes, which stand at both their ends.
    void ListReferences(XIndexList& ids) const;
    void ListFieldReferences(XIndexList& ids) const;
    // Drops every reference to the dying node `id`. False tells the document that this
    // node has no reason to live on.
    virtual bool NodeDeath(u32 id);
    // Adds the ids of the nodes that must go along with this one, as the document's
    // delete flags say.
    virtual void PreDelete(std::set<u32>& ids);
    // Reads or writes the body of the binary chunk. False after a logged failure.
    virtual bool DoData(XFileIO& file);
    // Takes over the fields of `source`, a node of a compatible class.
    virtual void DoCopy(const XBase* source);
    // Writes and reads the class's own lines between header and trailer of a text chunk.
    virtual bool WriteChunk(XTextWriter& out) const;
    bool ReadChunk(XTextReader& in);
    // What `ReadChunk` reads, class by class. False after a logged failure; a number that
    // fails to come is seen at the next key, be it that of a class below, and in silence
    // by `ReadChunk` where none follows.
    virtual bool ReadFields(XTextReader&) { return true; }
    // Called on every node, in name order, once the whole file is read.
    virtual void PostLoad() {}

    u32 GetID() const { return m_ID; }
    const char* GetName() const { return m_Name.c_str(); }
    // Asks the document for this name, made unique there.
    void SetName(const char* name);
    XModel* GetModel() const { return m_Model; }
    // Whether the document still holds `node`, or a node of id `id`.
    bool IsValid(const XBase* node) const;
    bool IsValidId(u32 id) const;
    // A new node of the same class in the same document, with a name made unique and
    // the fields of this one, as far as the document's copy flags reach. Null when the
    // type cannot be created.
    XBase* Clone() const;

    // The attributes that users hung on this node. A taken name answers null and adds
    // nothing; names are compared exactly.
    XAttribute* CreateExtraAttribute(const char* name);
    XAttribute* GetExtraAttribute(const char* name) const;
    void ListExtraAttributes(XStringList& names) const;
    // All of them, null for a node that never had any.
    const XExtraAttributes* GetExtraAttributes() const { return m_ExtraAttributes.get(); }

    // The whole text chunk: header, body, trailer. A node of id 0 writes nothing and
    // answers false.
    bool Write(XTextWriter& out) const;
    // The mirror of `Write`; chunk key and name have been consumed.
    bool Read(XTextReader& in);
    // The 8-byte header of the binary chunk.
    bool DoHeader(XFileIO& file);
    // The same for a caller that knows the size of the chunk.
    bool DoHeader(XFileIO& file, u32 size);

    // The definition that makes this an instance of a user-defined subclass of its class,
    // or null. The instance is written under the definition's chunk key.
    const XInheritedNode* GetInheritedFrom() const { return m_InheritedFrom; }
    // The definition of the node type that this is an instance of, null for a built-in type.
    virtual const XNewNode* GetUserDefinition() const { return nullptr; }
    // Numbers that the text form writes over and above what the node holds. A damaged node can
    // ask for more than any disk takes.
    virtual u64 GetTextPadding() const { return 0; }

    // The four operations of the property object that callers use most.
    XString GetPropertyName(u32 property) const { return GetNodeProperties()->GetPropertyName(property); }
    XPropertyType GetPropertyType(u32 property) const
    {
        return GetNodeProperties()->GetPropertyType(property);
    }
    u32 GetPropertyId(const char* name) const { return GetNodeProperties()->GetPropertyId(name); }
    bool IsPropertyAnimated(u32 property) const
    {
        return (GetNodeProperties()->GetPropertyFlags(property) & kAnimatable) != 0;
    }

    // What a class stores, as data; see BodyTable.h. A class without fields of its own
    // inherits these and adds nothing.
    static XBodyTable TextBody() { return {}; }
    static XBodyTable BinaryBody() { return {}; }
    static XBodyTable OldTextBody() { return {}; }
    static XBodyTable OldBinaryBody() { return {}; }
    static XPropertyTable Properties() { return {}; }
    static const XNodeProperties* ClassProperties() { return XNodeProperties::Empty(); }

protected:
    // Cleans the name as if it came from a file; it need not be unique then.
    void CleanOwnName();
    // The key that the node's text chunk begins with.
    XString ChunkKey() const;

private:
    friend class XNodeTable;
    friend class XBinaryLoader;
    friend std::unique_ptr<XBase> XInheritedCreateFrom(const XInheritedNode& definition, XModel* model);

    bool WriteHeader(XTextWriter& out) const;
    bool ReadHeader(XTextReader& in);
    bool ReadTrailer(XTextReader& in);
    // Whether a save writes extra attributes of this node.
    bool SavesExtraAttributes() const;
    XExtraAttributes& RenewExtraAttributes();

    u32 m_ID = 0;
    bool m_IsHeld = false;  // by the table of its document, and where
    XNameMap::iterator m_NameEntry;
    XString m_Name;
    std::unique_ptr<XExtraAttributes> m_ExtraAttributes;
    XModel* m_Model;
    const XInheritedNode* m_InheritedFrom = nullptr;
};

// `node` as a `T`, or null when it is null or of another class.
template <class T>
T* XCast(XBase* node)
{
    return node ? static_cast<T*>(node->HasFn(T::kType)) : nullptr;
}
// By way of the other form of `HasFn`: the const one of some classes knows less.
template <class T>
const T* XCast(const XBase* node)
{
    return XCast<T>(const_cast<XBase*>(node));
}
// Whether a node is of a class or of one below it, as `XCast` has it.
inline bool IsOfType(const XBase& node, u32 type)
{
    return const_cast<XBase&>(node).HasFn(type) != nullptr;
}

}  // namespace VKT
