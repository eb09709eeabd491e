#include "VKT/node/ExtraAttributes.h"

#include <algorithm>

#include "VKT/stream/BlockReader.h"
#include "VKT/stream/FileIO.h"
#include "VKT/stream/TextWriter.h"

namespace VKT {
namespace {

constexpr const char* kSource = ".\\src\\VKT\\ExtraAttributes";

}  // namespace

XAttribute* XExtraAttributes::Add(const XString& name)
{
    XAttribute* const attribute = m_Attributes.emplace_back(std::make_unique<XAttribute>()).get();
    attribute->SetName(name);
    return attribute;
}

XAttribute* XExtraAttributes::Find(std::string_view name) const
{
    const auto found = std::find_if(m_Attributes.begin(), m_Attributes.end(),
                                    [=](const auto& attribute) { return attribute->GetName() == name; });
    return found == m_Attributes.end() ? nullptr : found->get();
}

void XExtraAttributes::ListNames(XStringList& names) const
{
    names.clear();
    for (const auto& attribute : m_Attributes)
        names.push_back(attribute->GetName());
}

void XExtraAttributes::Copy(const XExtraAttributes& other)
{
    if (this == &other)
        return;
    m_Attributes.clear();
    for (const auto& attribute : other.m_Attributes)
        m_Attributes.push_back(std::make_unique<XAttribute>(*attribute));
}

void XExtraAttributes::NodeDeath(XModel& model, u32 id)
{
    for (const auto& attribute : m_Attributes)
        attribute->NodeDeath(model, id);
}

void XExtraAttributes::ListConnected(XIndexList& ids) const
{
    for (const auto& attribute : m_Attributes)
        for (const auto* connections : {&attribute->GetInputs(), &attribute->GetOutputs()})
            for (const XConnection& connection : *connections)
                ids.push_back(connection.m_Node);
}

void XExtraAttributes::Write(XTextWriter& out, const XModel& model) const
{
    out << "\tEXTRA_ATTRIBUTES\n\t{\n";
    for (const auto& attribute : m_Attributes)
        attribute->Write(out);
    out << "\t}\n";
    if (std::none_of(m_Attributes.begin(), m_Attributes.end(),
                     [](const auto& attribute) { return attribute->HasConnections(); }))
        return;
    out << "\tCONNECTIONS\n\t{\n";
    for (const auto& attribute : m_Attributes)
        attribute->WriteConnections(out, model);
    out << "\t}\n";
}

void XExtraAttributes::ReadAttributes(XTextReader& in)
{
    if (!XBlockReader(in, kSource).Expect("{"))
        return;
    XString name;
    while (in.ReadToken(name) && !in.IsAtEnd() && !name.starts_with('}'))
        if (!Add(name)->Read(in))
            return;
}

void XExtraAttributes::ReadConnections(XTextReader& in)
{
    if (!XBlockReader(in, kSource).Expect("{"))
        return;
    XString token;
    while (in.ReadToken(token) && token == "ATTR")
        if (!ReadConnection(in))
            return;
}

// One `ATTR` entry. That of an attribute which the node does not have is dropped.
bool XExtraAttributes::ReadConnection(XTextReader& in)
{
    XBlockReader block(in, kSource, 1);  // behind the brace of the list
    XString name;
    XString other;
    u32 element = 0;
    u32 node = 0;
    u32 count = 0;
    in.ReadToken(name);
    in.Read(element);
    XAttribute* const attribute = Find(name);
    if (!block.Expect("{") || !block.Read("input", node))
        return false;
    if (node != 0) {
        in.ReadToken(other);
        if (attribute)
            attribute->SetInput(element, node, other);
    }
    if (!block.Read("output", count))
        return false;
    for (u32 i = 0; i < count && in.IsGood(); ++i) {
        in.Read(node);
        in.ReadToken(other);
        if (attribute && in.IsGood())
            attribute->AddOutput(element, node, other);
    }
    return block.Expect("}");
}

bool XExtraAttributes::DoData(XFileIO& file)
{
    constexpr u64 kLeastBytes = 6;  // a type and an empty name
    u32 count = 0;
    return file.DoCount(count, m_Attributes.size(), kLeastBytes) &&
           file.DoElements(m_Attributes, count,
                           [&](XAttribute& attribute) { return attribute.DoData(file); });
}

}  // namespace VKT
