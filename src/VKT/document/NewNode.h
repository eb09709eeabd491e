#pragma once

#include "VKT/node/FnRegistry.h"

namespace VKT {

// What an instance of a new node type is apart from its own body.
enum XNodeFamily : u32 {
    kFamilyNone = 0,
    kFamilyMaterial = 1,
    kFamilyObject = 2,  // a shape
    kFamilyLight = 3,
    kFamilyTransform = 4,  // a bone
    kFamilyEmitter = 5,
    kFamilyField = 6,
    kFamilyDeformer = 8,
    kFamilyAnim = 9,
    kFamilyHwShader = 10,
};

// The definition of a node type that the library does not know: a chunk key and a family.
// The body of its instances behind that of the family's class is kept as raw text (see
// UserNode.h).
class XNewNode {
public:
    using Creator = XUserNodeCreator;

    XNewNode() = default;
    XNewNode(u32 family, const XString& typeName, const XString& header);

    // An `XNodeFamily`, or a number that names none and has no instances.
    u32 GetFamily() const { return m_BaseType; }
    // A name that describes the type.
    const XString& GetTypeName() const { return m_TypeName; }
    // The chunk key of the instances.
    const XString& GetHeader() const { return m_Header; }
    // A creator alone decides what the instances are.
    void SetCreator(Creator creator) { m_Create = creator; }

    // A new instance, of no document yet; null for a family that does not exist.
    std::unique_ptr<XBase> CreateNode(XModel* model) const;

    // The `NEW_NODE` chunk of a text file; a family without a word is written as `none`.
    bool Write(XTextWriter& out) const;
    // Reads behind the opening brace; a word that is no family gives `kFamilyNone`. False
    // after a logged failure.
    bool Read(XTextReader& in);
    // Header and body of the binary chunk.
    bool DoHeader(XFileIO& file);
    bool DoData(XFileIO& file);

private:
    u32 m_BaseType = kFamilyNone;
    u32 m_Reserved = 4096;  // no reader
    XString m_TypeName;
    XString m_Header;
    Creator m_Create = nullptr;
};

}  // namespace VKT
