#include <algorithm>

#include "types/TypeList.h"

namespace tool {
namespace {

std::string Padded(std::string text, std::size_t width)
{
    text.resize(std::max(text.size(), width), ' ');
    return text;
}

std::string GateText(const BodyRow& row)
{
    if (row.gate.empty())
        return "";
    const char* const words = row.gate == "below"       ? "below version "
                              : row.gate == "readSince" ? "read from version "
                                                        : "from version ";
    return words + std::to_string(row.version);
}

void AddRows(const std::string& title, const std::vector<BodyRow>& rows, std::string& out)
{
    if (rows.empty())
        return;
    std::size_t width = 0;
    for (const BodyRow& row : rows)
        width = std::max(width, row.name.size());
    out += "  " + title + "\n";
    for (const BodyRow& row : rows) {
        std::string line =
            "    " + Padded(row.name, width) + "  " + Padded(row.kind, 10) + "  " + GateText(row);
        line.resize(line.find_last_not_of(' ') + 1);
        out += line + "\n";
        for (std::size_t i = 0; i < row.words.size(); ++i)
            out += std::string(8, ' ') + std::to_string(i) + ' ' + row.words[i] + "\n";
    }
}

void AddProperties(const TypeDescription& type, std::string& out)
{
    if (type.properties.empty())
        return;
    std::size_t width = 0;
    for (const PropertyRow& row : type.properties)
        width = std::max(width, row.name.size());
    out += "  properties\n";
    for (const PropertyRow& row : type.properties) {
        out +=
            "    " + Padded(std::to_string(row.number), 3) + ' ' + Padded(row.name, width) + "  " + row.type;
        if (!row.nodeType.empty())
            out += " of " + row.nodeType;
        out += std::string(row.isAnimatable ? ", animatable" : "") + (row.isReadOnly ? ", read-only" : "") +
               (row.isList ? ", list" : "") + "\n";
    }
}

std::string CodeText(const TypeDescription& type)
{
    if (!type.hasTextCode && !type.hasBinaryCode)
        return "";
    const char* const forms = !type.hasBinaryCode ? "text" : !type.hasTextCode ? "binary" : "text and binary";
    return std::string("  code of its own for ") + forms + "; rows may not be all\n";
}

}  // namespace

std::string ToText(const TypeList& types)
{
    std::string out;
    for (const TypeDescription& type : types) {
        out += type.name + " (" + std::to_string(type.id) + ')';
        out += type.chunk.empty() ? ", abstract" : ", chunk " + type.chunk;
        out += type.base.empty() ? "\n" : ", base " + type.base + "\n";
        out += CodeText(type);
        AddRows(type.formsAgree ? "text and binary" : "text", type.text, out);
        if (!type.formsAgree)
            AddRows("binary", type.binary, out);
        const std::string old = " below version " + std::to_string(type.oldBelow) + ", the whole body";
        AddRows("text" + old, type.oldText, out);
        AddRows("binary" + old, type.oldBinary, out);
        AddProperties(type, out);
    }
    const TypeTotals totals = CountTypes(types);
    return out + std::to_string(totals.types) + " types, " + std::to_string(totals.concrete) +
           " of them with a chunk; " + std::to_string(totals.properties) + " properties\n";
}

}  // namespace tool
