#pragma once

#include "VKT/node/Base.h"

namespace VKT {

// The definition of a node type that is a built-in type under another chunk key. A file
// declares it ahead of its nodes; its instances are read and written like their base and
// keep the key (`XBase::GetInheritedFrom`).
class XInheritedNode {
public:
    // Definitions that the type numbers of binary chunks can tell apart.
    static constexpr u32 kMostInBinary = 4096;

    // `index` is the definition's place among those of its document. `baseType` is the id
    // of a built-in type or the file type of another definition.
    explicit XInheritedNode(u32 index, u32 baseType = 0, const XString& header = "");

    // The chunk key of the instances.
    const XString& GetHeader() const { return m_Header; }
    u32 GetBaseType() const { return m_BaseType; }
    // The type number of an instance's binary chunk.
    u32 GetFileType() const { return kChunkInheritedInstances + m_Index; }

    // The `INHERITED_NODE` chunk of a text file. Nothing is written when the base has no
    // chunk key, as other definitions have none, or the header is empty.
    bool Write(XTextWriter& out) const;
    // Reads behind the opening brace. False, logged but for an unknown base, when a key is
    // missing or the header is the chunk key of a built-in type.
    bool Read(XTextReader& in);
    // Header and body of the binary chunk. Kept on purpose: the size in the header is 2
    // above what the chunk takes, so that no reader may seek by it.
    bool DoHeader(XFileIO& file);
    bool DoData(XFileIO& file);

private:
    u32 m_Index;
    u32 m_BaseType;
    XString m_Header;
};

// A new node, of no document yet, for the type number of a binary chunk: of a built-in
// type, or of the built-in type at the end of a chain of definitions. Null when there is
// none, also where a chain runs in a circle.
std::unique_ptr<XBase> XInheritedCreate(XModel* model, u32 type);
// The same for an instance of a definition of the document.
std::unique_ptr<XBase> XInheritedCreateFrom(const XInheritedNode& definition, XModel* model);

}  // namespace VKT
