#pragma once

#include <map>

#include "VKT/base/Lists.h"
#include "VKT/document/InheritedNode.h"
#include "VKT/document/NewNode.h"

namespace VKT {

// The node types that a document declares itself, each under a chunk key of its own.
class XTypeDeclarations {
public:
    // Null, with a logged error, when the key is empty, holds white space or is taken.
    XInheritedNode* AddInherited(u32 baseType, const XString& header);
    XNewNode* AddNew(u32 family, const XString& typeName, const XString& header);
    // The definition that comes next in a file, of the next number and not entered yet.
    std::unique_ptr<XInheritedNode> MakeInherited() const;
    // Takes over what a file declares, whatever its key. A second new type of one key is dropped.
    void Enter(std::unique_ptr<XInheritedNode> definition);
    void Enter(std::unique_ptr<XNewNode> definition);
    void Clear() { *this = {}; }

    // In the order of their numbers, and by chunk key.
    const XVector<std::unique_ptr<XInheritedNode>>& GetInherited() const { return m_Inherited; }
    const std::map<XString, std::unique_ptr<XNewNode>>& GetNew() const { return m_New; }
    // By chunk key, or null; of equal keys the first.
    const XInheritedNode* FindInherited(const XString& header) const;
    const XNewNode* FindNew(const XString& header) const;
    // The built-in type behind the type number of a binary chunk, through the definitions of
    // inherited types; `kFnBase`, which has no nodes, where they lead nowhere.
    u32 FindBuiltInType(u32 type) const;

private:
    bool IsFreeChunkKey(const XString& key) const;

    XVector<std::unique_ptr<XInheritedNode>> m_Inherited;
    std::map<XString, std::unique_ptr<XNewNode>> m_New;
    std::map<std::string_view, const XInheritedNode*>
        m_InheritedByHeader;  // the key looks into the definition
    // What `FindBuiltInType` has found for each definition, so that long chains are walked
    // once; empty after a definition was added.
    mutable XIndexList m_BuiltInTypes;
};

}  // namespace VKT
