#include "types/TypeList.h"

#include <algorithm>
#include <map>
#include <memory>
#include <stdexcept>

#include "VKT/document/Model.h"
#include "VKT/node/BodyRowWords.h"
#include "VKT/node/FnRegistry.h"
#include "VKT/stream/TextWriter.h"

namespace tool {
namespace {

// The classes by their ids.
using Infos = std::map<VKT::u32, const VKT::XFnInfo*>;

// A new node of each concrete class, which tell what tables leave to nodes: the names of
// inputs, and what is written before anybody sets anything.
class NewNodes {
public:
    explicit NewNodes(const std::vector<const VKT::XFnInfo*>& types)
    {
        for (const VKT::XFnInfo* info : types)
            if (auto node = info->Create(&m_Model))
                m_Nodes.push_back(std::move(node));
    }
    // One of that very class, or of the first below an abstract one.
    const VKT::XBase& Find(VKT::u32 type) const
    {
        const auto isIt = [=](const auto& node) { return node->GetApiType() == type; };
        const auto isBelow = [=](const auto& node) { return VKT::IsOfType(*node, type); };
        auto found = std::find_if(m_Nodes.begin(), m_Nodes.end(), isIt);
        if (found == m_Nodes.end())
            found = std::find_if(m_Nodes.begin(), m_Nodes.end(), isBelow);
        if (found == m_Nodes.end())
            throw std::logic_error("an abstract class without a concrete one below it");
        return **found;
    }

private:
    VKT::XModel m_Model;
    std::vector<std::unique_ptr<VKT::XBase>> m_Nodes;
};

BodyRow Describe(const VKT::XBodyRow& row, const VKT::XBase& node)
{
    const VKT::XKind kind = VKT::KindOf(row.stored);
    BodyRow out;
    out.name = VKT::KeyOf(row, node);
    out.kind = kind.name;
    out.bytes = kind.bytes;
    for (const char* word : VKT::WordsOf(row.stored))
        out.words.push_back(word);
    out.gate = VKT::GateName(row.gate);
    out.version = row.version;
    return out;
}

std::string Written(const VKT::XBodyTable& table, std::size_t row, const VKT::XBase& node)
{
    VKT::XTextWriter out;
    VKT::WriteTextBody(node, {table.source, table.rows.subspan(row, 1)}, out);
    return out.TakeText();
}

std::vector<BodyRow> DescribeText(const VKT::XBodyTable& table, const VKT::XBase& node)
{
    std::vector<BodyRow> rows;
    for (std::size_t i = 0; i < table.rows.size(); ++i) {
        rows.push_back(Describe(table.rows[i], node));
        rows.back().written = Written(table, i, node);
    }
    return rows;
}

// Where a field's name may be found: the text rows of a class, and of its bases.
std::vector<VKT::XBodyRow> ListTextRows(VKT::u32 type, const Infos& infos)
{
    std::vector<VKT::XBodyRow> rows;
    for (;;) {
        const VKT::XClassTables tables = infos.at(type)->GetTables();
        for (const VKT::XBodyTable& table : {tables.text, tables.oldText})
            rows.insert(rows.end(), table.rows.begin(), table.rows.end());
        if (type == VKT::kFnBase)
            return rows;
        type = tables.base;
    }
}

// Rows that have no name of their own go by the key of the same field in text files.
std::vector<BodyRow> DescribeBinary(const VKT::XBodyTable& table, const std::vector<VKT::XBodyRow>& text,
                                    const VKT::XBase& node)
{
    std::vector<BodyRow> rows;
    for (const VKT::XBodyRow& row : table.rows) {
        rows.push_back(Describe(row, node));
        const auto same = std::find_if(text.begin(), text.end(), [&](const VKT::XBodyRow& other) {
            return VKT::IsSameField(row.stored, other.stored);
        });
        if (rows.back().name.empty() && same != text.end())
            rows.back().name = VKT::KeyOf(*same, node);
    }
    return rows;
}

PropertyRow Describe(const VKT::XPropertyInfo& row)
{
    return {row.id,
            row.name,
            VKT::XPropertyTypeName(row.type),
            (row.flags & VKT::kAnimatable) != 0,
            (row.flags & VKT::kReadOnly) != 0,
            (row.flags & VKT::kList) != 0,
            row.nodeType == 0 ? "" : VKT::XFnTypeName(row.nodeType)};
}

// A class without properties of its own has the object of its base.
std::vector<PropertyRow> DescribeProperties(const VKT::XClassTables& tables, bool isRoot, const Infos& infos)
{
    std::vector<PropertyRow> rows;
    if (isRoot || infos.at(tables.base)->GetTables().properties != tables.properties)
        for (const VKT::XPropertyInfo& row : tables.properties->GetRows())
            rows.push_back(Describe(row));
    return rows;
}

TypeDescription Describe(const VKT::XFnInfo& info, const Infos& infos, const NewNodes& nodes)
{
    const VKT::XClassTables tables = info.GetTables();
    const VKT::XBase& node = nodes.Find(info.GetType());
    const std::vector<VKT::XBodyRow> textRows = ListTextRows(info.GetType(), infos);
    const bool isRoot = info.GetType() == VKT::kFnBase;
    TypeDescription out;
    out.name = info.GetTypeName();
    out.id = info.GetType();
    out.chunk = info.GetChunkName();
    out.base = isRoot ? "" : VKT::XFnTypeName(tables.base);
    out.hasTextCode = tables.hasTextCode;
    out.hasBinaryCode = tables.hasBinaryCode;
    out.formsAgree = tables.text.rows.data() == tables.binary.rows.data();
    out.text = DescribeText(tables.text, node);
    out.binary = DescribeBinary(tables.binary, textRows, node);
    out.oldBelow = std::max(tables.oldText.below, tables.oldBinary.below);
    out.oldText = DescribeBinary(tables.oldText, textRows, node);
    out.oldBinary = DescribeBinary(tables.oldBinary, textRows, node);
    out.properties = DescribeProperties(tables, isRoot, infos);
    out.numProperties = tables.properties->GetNumProperties();
    return out;
}

}  // namespace

TypeList DescribeTypes()
{
    const std::vector<const VKT::XFnInfo*> inOrder = VKT::XFnListTypes();
    const NewNodes nodes(inOrder);
    Infos infos;
    for (const VKT::XFnInfo* info : inOrder)
        infos.emplace(info->GetType(), info);
    TypeList types;
    for (const VKT::XFnInfo* info : inOrder)
        types.push_back(Describe(*info, infos, nodes));
    return types;
}

TypeTotals CountTypes(const TypeList& types)
{
    TypeTotals totals;
    totals.types = types.size();
    for (const TypeDescription& type : types) {
        totals.concrete += !type.chunk.empty();
        totals.properties += type.properties.size();
    }
    return totals;
}

std::string ShowWhiteSpace(const std::string& text)
{
    std::string shown;
    for (const char c : text)
        if (c == '\t')
            shown += "\\t";
        else if (c == '\n')
            shown += "\\n";
        else
            shown += c;
    return shown;
}

}  // namespace tool
