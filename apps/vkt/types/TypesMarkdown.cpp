#include <algorithm>
#include <set>

#include "types/TypeList.h"

namespace tool {
namespace {

std::string Code(const std::string& text)
{
    return text.empty() ? "" : '`' + ShowWhiteSpace(text) + '`';
}

std::string KindText(const BodyRow& row)
{
    std::string text = row.kind;
    for (std::size_t i = 0; i < row.words.size(); ++i)
        text += (i == 0 ? ": " : ", ") + std::to_string(i) + ' ' + Code(row.words[i]);
    return text;
}

// Writers write the newest version, so that readers need not know which way a gate goes.
std::string VersionText(const BodyRow& row)
{
    if (row.gate.empty())
        return "";
    return (row.gate == "below" ? "below " : "from ") + std::to_string(row.version);
}

// The fields that came or went with a version, one behind the other.
std::string ChangedFields(const std::vector<BodyRow>& rows, VKT::u32 version)
{
    std::string out;
    for (const BodyRow& row : rows)
        if (!row.gate.empty() && row.version == version)
            out += (out.empty() ? "" : ", ") + (row.name.empty() ? "(no name)" : Code(row.name)) +
                   (row.gate == "below" ? " (before alone)" : "");
    return out;
}

// Cells between bars.
class Table {
public:
    explicit Table(std::vector<std::string> header) : m_Rows{std::move(header)} {}
    void Add(std::vector<std::string> row) { m_Rows.push_back(std::move(row)); }
    std::string Text() const
    {
        std::string out;
        for (std::size_t i = 0; i < m_Rows.size(); ++i) {
            out += Line(m_Rows[i]);
            if (i == 0)
                out += Line(std::vector<std::string>(m_Rows[0].size(), "---"));
        }
        return out + "\n";
    }

private:
    std::string Line(const std::vector<std::string>& cells) const
    {
        std::string line = "|";
        for (const std::string& cell : cells)
            line += cell.empty() ? " |" : ' ' + cell + " |";
        return line + "\n";
    }

    std::vector<std::vector<std::string>> m_Rows;
};

// What stands in the text form: what a new node writes, or no more than the key of what
// only other versions have.
std::string TextCell(const BodyRow& row)
{
    return Code(row.written.empty() ? row.name : row.written);
}

std::string OneTable(const std::vector<BodyRow>& rows)
{
    Table table({"text", "kind", "bytes", "version"});
    for (const BodyRow& row : rows)
        table.Add({TextCell(row), KindText(row), row.bytes, VersionText(row)});
    return table.Text();
}

std::string BothTables(const std::vector<BodyRow>& text, const std::vector<BodyRow>& binary)
{
    Table table({"text", "kind", "version", "binary", "kind", "bytes", "version"});
    for (std::size_t i = 0; i < std::max(text.size(), binary.size()); ++i) {
        std::vector<std::string> cells(7);
        if (i < text.size()) {
            cells[0] = TextCell(text[i]);
            cells[1] = KindText(text[i]);
            cells[2] = VersionText(text[i]);
        }
        if (i < binary.size()) {
            cells[3] = binary[i].name.empty() ? "(no name)" : Code(binary[i].name);
            cells[4] = binary[i].kind;
            cells[5] = binary[i].bytes;
            cells[6] = VersionText(binary[i]);
        }
        table.Add(cells);
    }
    return table.Text();
}

// Anchors in lower case, which all renderers of Markdown agree about.
std::string Anchor(const char* prefix, std::string name)
{
    for (char& c : name)
        if (c >= 'A' && c <= 'Z')
            c = static_cast<char>(c - 'A' + 'a');
    return prefix + name;
}

std::string BodyText(const TypeDescription& type)
{
    std::string out;
    if (type.formsAgree && !type.text.empty())
        out += OneTable(type.text);
    else if (!type.text.empty() || !type.binary.empty())
        out += BothTables(type.text, type.binary);
    else if (!type.hasTextCode && !type.hasBinaryCode)
        out += "Adds nothing to its base.\n\n";
    if (!type.oldText.empty())
        out += "The whole body below version " + std::to_string(type.oldBelow) +
               ", in place of all of the above and of the bases:\n\n" +
               BothTables(type.oldText, type.oldBinary);
    return out;
}

std::string PropertyText(const TypeDescription& type)
{
    if (type.properties.empty())
        return "";
    Table table({"no.", "property", "type", "flags"});
    for (const PropertyRow& row : type.properties) {
        std::string flags;
        for (const auto& [isSet, word] :
             {std::pair(row.isAnimatable, "animatable"), std::pair(row.isReadOnly, "read-only"),
              std::pair(row.isList, "list")})
            if (isSet)
                flags += (flags.empty() ? "" : ", ") + std::string(word);
        table.Add({std::to_string(row.number), Code(row.name),
                   row.type + (row.nodeType.empty() ? "" : " of " + row.nodeType), flags});
    }
    return table.Text();
}

std::string TypeText(const TypeDescription& type)
{
    std::string out = "<a id=\"" + Anchor("class-", type.name) + "\"></a>\n### " + type.name + "\n\n";
    out += type.chunk.empty() ? "Abstract" : Code(type.chunk);
    out += ", id " + std::to_string(type.id);
    if (!type.base.empty())
        out += ", base [" + type.base + "](#" + Anchor("class-", type.base) + ")";
    out += ".";
    if (type.hasTextCode || type.hasBinaryCode)
        out += std::string(" Code of its own for ") +
               (!type.hasBinaryCode ? "the text form"
                : !type.hasTextCode ? "the binary form"
                                    : "both forms") +
               ": [see there](#" + Anchor("by-hand-", type.name) + ").";
    return out + "\n\n" + BodyText(type) + PropertyText(type);
}

// The versions that gates and old bodies name.
std::set<VKT::u32> VersionsIn(const TypeList& types)
{
    std::set<VKT::u32> versions;
    for (const TypeDescription& type : types) {
        for (const std::vector<BodyRow>* rows : {&type.text, &type.binary})
            for (const BodyRow& row : *rows)
                if (!row.gate.empty())
                    versions.insert(row.version);
        if (type.oldBelow > 0)
            versions.insert(type.oldBelow);
    }
    return versions;
}

std::string ChangesText(const TypeList& types, VKT::u32 version)
{
    Table table({"class", "text", "binary"});
    for (const TypeDescription& type : types) {
        const std::string name = "[" + type.name + "](#" + Anchor("class-", type.name) + ")";
        std::string text = ChangedFields(type.text, version);
        std::string binary = ChangedFields(type.binary, version);
        if (type.oldBelow == version)
            text = binary = "another body before";
        if (!text.empty() || !binary.empty())
            table.Add({name, text, binary});
    }
    const std::string number = std::to_string(version);
    return "<a id=\"changed-in-" + number + "\"></a>\n### Changed in version " + number + "\n\n" +
           table.Text();
}

}  // namespace

std::string ToMarkdown(const TypeList& types)
{
    const TypeTotals totals = CountTypes(types);
    std::string out = std::to_string(totals.types) + " classes, " + std::to_string(totals.concrete) +
                      " of them with a chunk, " + std::to_string(totals.properties) + " properties.\n\n";
    for (const VKT::u32 version : VersionsIn(types))
        out += ChangesText(types, version);
    for (const TypeDescription& type : types)
        out += TypeText(type);
    out.pop_back();
    return out;
}

}  // namespace tool
