#include "VKT/document/InheritedNode.h"

#include "VKT/document/Model.h"
#include "VKT/node/FnRegistry.h"
#include "VKT/stream/BlockReader.h"
#include "VKT/stream/FileIO.h"
#include "VKT/stream/TextWriter.h"

namespace VKT {
namespace {

constexpr char kSource[] = ".\\src\\VKT\\InheritedNode";

}  // namespace

XInheritedNode::XInheritedNode(u32 index, u32 baseType, const XString& header)
    : m_Index(index), m_BaseType(baseType), m_Header(header)
{
}

bool XInheritedNode::Write(XTextWriter& out) const
{
    const XString base = XFnChunkName(m_BaseType);
    if (!base.empty() && !m_Header.empty())
        out << "INHERITED_NODE\n{\n\tbase_type " << base << "\n\theader " << m_Header << "\n}\n";
    return out.IsGood();
}

bool XInheritedNode::Read(XTextReader& in)
{
    XBlockReader block(in, kSource);
    XString base;
    if (!block.Read("base_type", base))
        return false;
    m_BaseType = XFnTypeFromChunk(base);
    if (m_BaseType == 0 || !block.Read("header", m_Header))
        return false;
    if (XFnTypeFromChunk(m_Header) != 0) {
        GetLogger()->Log(kError, "The inherited node type cannot use a reserved chunk name");
        return false;
    }
    return block.Expect("}");
}

bool XInheritedNode::DoHeader(XFileIO& file)
{
    u16 type = kChunkInheritedNode;
    u16 flags = 0;
    u32 size = 16 + static_cast<u32>(std::min<std::size_t>(m_Header.size(), 0xFFFF));  // what is stored
    return file.DoData(type) && file.DoData(flags) && file.DoData(size);
}

bool XInheritedNode::DoData(XFileIO& file)
{
    return file.DoData(m_BaseType) && file.DoData(m_Header);
}

std::unique_ptr<XBase> XInheritedCreate(XModel* model, u32 type)
{
    if (auto node = XFnCreate(type, model))
        return node;
    if (type < kChunkInheritedInstances)
        return nullptr;
    const auto& definitions = model->GetInheritedNodes();
    const u32 index = type % XInheritedNode::kMostInBinary;
    return index < definitions.size() ? XInheritedCreateFrom(*definitions[index], model) : nullptr;
}

std::unique_ptr<XBase> XInheritedCreateFrom(const XInheritedNode& definition, XModel* model)
{
    auto node = XFnCreate(model->FindBuiltInType(definition.GetBaseType()), model);
    if (node)
        node->m_InheritedFrom = &definition;
    return node;
}

}  // namespace VKT
