#include <algorithm>

#include "VKT/document/Model.h"
#include "VKT/node/FnRegistry.h"

// The node types that a document declares itself.

namespace VKT {
namespace {

constexpr u32 kNotWalked = kFnLimit;

}  // namespace

XBase* XModel::CreateNode(const XInheritedNode& definition)
{
    return Adopt(std::unique_ptr<XBase>(XInheritedCreateFrom(definition, this)));
}

XBase* XModel::CreateNode(const XNewNode& definition)
{
    return Adopt(std::unique_ptr<XBase>(definition.CreateNode(this)));
}

XInheritedNode* XModel::AddInheritedNode(u32 baseType, const XString& header)
{
    if (!IsFreeChunkKey(header))
        return nullptr;
    const u32 index = static_cast<u32>(m_InheritedNodes.size());
    Enter(std::make_unique<XInheritedNode>(index, baseType, header));
    return m_InheritedNodes.back().get();
}

XNewNode* XModel::AddNewNode(u32 family, const XString& typeName, const XString& header)
{
    if (!IsFreeChunkKey(header))
        return nullptr;
    Enter(std::make_unique<XNewNode>(family, typeName, header));
    return m_NewNodes.find(header)->second.get();
}

bool XModel::IsFreeChunkKey(const XString& key) const
{
    const bool isToken = !key.empty() && key.find_first_of(" \t\r\n\v\f") == XString::npos;
    const bool isReserved = key == "INFO" || key == "NEW_NODE" || key == "INHERITED_NODE";
    if (isToken && !isReserved && XFnTypeFromChunk(key) == 0 && !FindInheritedNode(key) && !FindNewNode(key))
        return true;
    GetLogger()->LogFormat(kError, "the chunk key \"%s\" cannot be given to a node type", key.c_str());
    return false;
}

void XModel::Enter(std::unique_ptr<XInheritedNode> definition)
{
    m_InheritedByHeader.emplace(definition->GetHeader(), definition.get());
    m_InheritedNodes.push_back(std::move(definition));
    m_BuiltInTypes.clear();
}

// A second definition of a key is dropped.
void XModel::Enter(std::unique_ptr<XNewNode> definition)
{
    const XString header = definition->GetHeader();
    m_NewNodes.emplace(header, std::move(definition));
}

const XInheritedNode* XModel::FindInheritedNode(const XString& header) const
{
    const auto found = m_InheritedByHeader.find(header);
    return found == m_InheritedByHeader.end() ? nullptr : found->second;
}

const XNewNode* XModel::FindNewNode(const XString& header) const
{
    const auto found = m_NewNodes.find(header);
    return found == m_NewNodes.end() ? nullptr : found->second.get();
}

u32 XModel::FindBuiltInType(u32 type) const
{
    XIndexList chain;
    while (type >= kChunkInheritedInstances) {
        const u32 index = type % XInheritedNode::kMostInBinary;
        if (index >= m_InheritedNodes.size()) {
            type = kFnBase;
            break;
        }
        if (m_BuiltInTypes.empty())
            m_BuiltInTypes.resize(
                std::min<std::size_t>(m_InheritedNodes.size(), XInheritedNode::kMostInBinary), kNotWalked);
        if (m_BuiltInTypes[index] != kNotWalked) {
            type = m_BuiltInTypes[index];
            break;
        }
        m_BuiltInTypes[index] = kFnBase;  // what a chain that comes back here ends at
        chain.push_back(index);
        type = m_InheritedNodes[index]->GetBaseType();
    }
    for (const u32 index : chain)
        m_BuiltInTypes[index] = type;
    return type;
}

}  // namespace VKT
