#include "VKT/document/NewNode.h"

#include <algorithm>

#include "VKT/registry/UserNode.h"
#include "VKT/stream/FileIO.h"
#include "VKT/stream/NodeName.h"
#include "VKT/stream/TextSyntax.h"
#include "VKT/stream/TextWriter.h"

namespace VKT {
namespace {

constexpr char kSource[] = ".\\src\\VKT\\NewNode";

// What the instances of one family are.
struct Family {
    XNodeFamily family;
    const char* word;
    u32 type;
    XBase* (*create)(const XNewNode& definition, XModel* model);
    const XNewNode& (*definitionOf)(const XBase& node);
};

template <class Node>
constexpr Family Row(XNodeFamily family, const char* word)
{
    return {
        family, word, Node::kType,
        [](const XNewNode& definition, XModel* model) -> XBase* { return new Node(model, definition); },
        [](const XBase& node) -> const XNewNode& { return static_cast<const Node&>(node).GetDefinition(); }};
}

// The number 7 does not exist.
constexpr Family kFamilies[] = {
    Row<XNewBase>(kFamilyNone, "none"),           Row<XNewMaterial>(kFamilyMaterial, "material"),
    Row<XNewShape>(kFamilyObject, "object"),      Row<XNewLight>(kFamilyLight, "light"),
    Row<XNewBone>(kFamilyTransform, "transform"), Row<XNewEmitter>(kFamilyEmitter, "emitter"),
    Row<XNewField>(kFamilyField, "field"),        Row<XNewDeformer>(kFamilyDeformer, "deformer"),
    Row<XNewAnim>(kFamilyAnim, "anim"),           Row<XNewHwShader>(kFamilyHwShader, "hw_shader"),
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

XBase* XNewNode::CreateNode(XModel* model) const
{
    if (m_Create)
        return m_Create(*this, model);
    const Family* family = FindFamily([this](const Family& row) { return row.family == m_BaseType; });
    return family ? family->create(*this, model) : nullptr;
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
    XString word;
    if (!Expect("base_type", in, kSource, 1))
        return false;
    in.ReadToken(word);
    const Family* family = FindFamily([&](const Family& row) { return row.word == word; });
    m_BaseType = family ? family->family : kFamilyNone;
    if (!Expect("type_name", in, kSource, 2))
        return false;
    in.ReadToken(m_TypeName);
    if (!Expect("header", in, kSource, 3))
        return false;
    in.ReadToken(m_Header);
    return Expect("}", in, kSource, 4);
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

const XNewNode* GetUserDefinition(const XBase& node)
{
    const Family* family = FindFamily([&](const Family& row) { return row.type == node.GetApiType(); });
    return family ? &family->definitionOf(node) : nullptr;
}

}  // namespace VKT
