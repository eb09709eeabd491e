#include "VKT/document/TypeDeclarations.h"

#include <algorithm>

#include "VKT/node/FnRegistry.h"

namespace VKT {
namespace {

constexpr u32 kNotWalked = kFnLimit;

}  // namespace

XInheritedNode* XTypeDeclarations::AddInherited(u32 baseType, const XString& header)
{
    if (!IsFreeChunkKey(header))
        return nullptr;
    Enter(std::make_unique<XInheritedNode>(static_cast<u32>(m_Inherited.size()), baseType, header));
    return m_Inherited.back().get();
}

XNewNode* XTypeDeclarations::AddNew(u32 family, const XString& typeName, const XString& header)
{
    if (!IsFreeChunkKey(header))
        return nullptr;
    Enter(std::make_unique<XNewNode>(family, typeName, header));
    return m_New.find(header)->second.get();
}

std::unique_ptr<XInheritedNode> XTypeDeclarations::MakeInherited() const
{
    return std::make_unique<XInheritedNode>(static_cast<u32>(m_Inherited.size()));
}

void XTypeDeclarations::Enter(std::unique_ptr<XInheritedNode> definition)
{
    m_InheritedByHeader.emplace(definition->GetHeader(), definition.get());
    m_Inherited.push_back(std::move(definition));
    m_BuiltInTypes.clear();
}

void XTypeDeclarations::Enter(std::unique_ptr<XNewNode> definition)
{
    const XString header = definition->GetHeader();
    m_New.emplace(header, std::move(definition));
}

bool XTypeDeclarations::IsFreeChunkKey(const XString& key) const
{
    const bool isToken = !key.empty() && key.find_first_of(" \t\r\n\v\f") == XString::npos;
    const bool isReserved = key == "INFO" || key == "NEW_NODE" || key == "INHERITED_NODE";
    if (isToken && !isReserved && XFnTypeFromChunk(key) == 0 && !FindInherited(key) && !FindNew(key))
        return true;
    GetLogger()->LogFormat(kError, "the chunk key \"%s\" cannot be given to a node type", key.c_str());
    return false;
}

const XInheritedNode* XTypeDeclarations::FindInherited(const XString& header) const
{
    const auto found = m_InheritedByHeader.find(header);
    return found == m_InheritedByHeader.end() ? nullptr : found->second;
}

const XNewNode* XTypeDeclarations::FindNew(const XString& header) const
{
    const auto found = m_New.find(header);
    return found == m_New.end() ? nullptr : found->second.get();
}

u32 XTypeDeclarations::FindBuiltInType(u32 type) const
{
    XIndexList chain;
    while (type >= kChunkInheritedInstances) {
        const u32 index = type % XInheritedNode::kMostInBinary;
        if (index >= m_Inherited.size()) {
            type = kFnBase;
            break;
        }
        if (m_BuiltInTypes.empty())
            m_BuiltInTypes.resize(std::min<std::size_t>(m_Inherited.size(), XInheritedNode::kMostInBinary),
                                  kNotWalked);
        if (m_BuiltInTypes[index] != kNotWalked) {
            type = m_BuiltInTypes[index];
            break;
        }
        m_BuiltInTypes[index] = kFnBase;  // what a chain that comes back here ends at
        chain.push_back(index);
        type = m_Inherited[index]->GetBaseType();
    }
    for (const u32 index : chain)
        m_BuiltInTypes[index] = type;
    return type;
}

}  // namespace VKT
