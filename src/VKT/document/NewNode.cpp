#include "VKT/document/NewNode.h"

#include <algorithm>

#include "VKT/stream/BlockReader.h"
#include "VKT/stream/FileIO.h"
#include "VKT/stream/NodeName.h"
#include "VKT/stream/TextWriter.h"

namespace VKT {
namespace {

constexpr char kSource[] = ".\\src\\VKT\\NewNode";

struct Family {
    XNodeFamily family;
    const char* word;
};

// The number 7 does not exist.
constexpr Family kFamilies[] = {
    {kFamilyNone, "none"},          {kFamilyMaterial, "material"},   {kFamilyObject, "object"},
    {kFamilyLight, "light"},        {kFamilyTransform, "transform"}, {kFamilyEmitter, "emitter"},
    {kFamilyField, "field"},        {kFamilyDeformer, "deformer"},   {kFamilyAnim, "anim"},
    {kFamilyHwShader, "hw_shader"},
};

// The row for which `has` holds, or null.
template <class Has>
const Family* FindFamily(Has has)
{
    const auto found = std::find_if(std::begin(kFamilies), std::end(kFamilies), has);
    return found == std::end(kFamilies) ? nullptr : found;
}

}  // namespace

XNewNode::XNewNode(u32 family, const XString& typeName, const XString& header)
    : m_BaseType(family), m_TypeName(typeName), m_Header(header)
{
}

std::unique_ptr<XBase> XNewNode::CreateNode(XModel* model) const
{
    if (m_Create)
        return m_Create(*this, model);
    return XFnCreateOfFamily(m_BaseType, *this, model);
}

bool XNewNode::Write(XTextWriter& out) const
{
    const Family* family = FindFamily([this](const Family& row) { return row.family == m_BaseType; });
    out << "NEW_NODE\n{\n\tbase_type " << (family ? family->word : "none") << "\n\ttype_name "
        << NameAsToken(m_TypeName) << "\n\theader " << m_Header << "\n}\n";
    return out.IsGood();
}

bool XNewNode::Read(XTextReader& in)
{
    XBlockReader block(in, kSource);
    XString word;
    if (!block.Read("base_type", word))
        return false;
    const Family* family = FindFamily([&](const Family& row) { return row.word == word; });
    m_BaseType = family ? family->family : kFamilyNone;
    return block.Read("type_name", m_TypeName) && block.Read("header", m_Header) && block.Expect("}");
}

bool XNewNode::DoHeader(XFileIO& file)
{
    u16 type = kChunkNewNode;
    u16 flags = 0;
    u32 size = 16;
    for (const XString* text : {&m_Header, &m_TypeName})
        size += static_cast<u32>(std::min<std::size_t>(text->size(), 0xFFFF));  // what is stored of it
    return file.DoData(type) && file.DoData(flags) && file.DoData(size);
}

bool XNewNode::DoData(XFileIO& file)
{
    return file.DoData(m_Header) && file.DoData(m_TypeName) && file.DoData(m_BaseType);
}

}  // namespace VKT
