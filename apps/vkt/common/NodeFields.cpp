#include "common/NodeFields.h"

#include <algorithm>
#include <charconv>

#include "VKT/animation/AnimCycle.h"
#include "VKT/node/ExtraAttributes.h"
#include "VKT/stream/TextWriter.h"
#include "common/MessageCatcher.h"

namespace tool {
namespace {

constexpr std::string_view kWhite = " \t\r";

// Behind the closing quote of the text that begins with an opening one.
std::size_t EndOfQuoted(std::string_view text)
{
    std::size_t i = 1;
    while (i < text.size() && text[i] != '"')
        i += text[i] == '\\' ? 2 : 1;
    return std::min(i + 1, text.size());
}

// Lines without those that are white alone. A quoted text may go over several.
std::vector<std::string_view> SplitLines(std::string_view text)
{
    std::vector<std::string_view> lines;
    while (!text.empty()) {
        std::size_t end = 0;
        while (end < text.size() && text[end] != '\n')
            end += text[end] == '"' ? EndOfQuoted(text.substr(end)) : 1;
        const std::string_view line = text.substr(0, end);
        if (line.find_first_not_of(kWhite) != line.npos)
            lines.push_back(line);
        text.remove_prefix(std::min(end + 1, text.size()));
    }
    return lines;
}

std::string_view Trimmed(std::string_view text)
{
    const std::size_t begin = text.find_first_not_of(kWhite);
    return begin == text.npos ? std::string_view()
                              : text.substr(begin, text.find_last_not_of(kWhite) + 1 - begin);
}

std::size_t IndentOf(std::string_view line)
{
    return line.find_first_not_of('\t');
}

// Numbers, quoted texts and what stands for nodes begin a row of values.
bool BeginsRow(std::string_view word)
{
    return word.starts_with('"') || word.starts_with('<') || NumberOf(word).has_value();
}

// A key of a line, with the words behind it that tell blocks apart, such as the name of a
// set. `line` keeps the rest.
std::string TakeBlockLabel(std::string_view& line)
{
    std::string label(TakeWord(line));
    for (std::string_view rest = line;;) {
        const std::string_view word = TakeWord(rest);
        if (word.empty() || word == "{" || NumberOf(word))
            return label;
        label.append(" ").append(word);
        line = rest;
    }
}

}  // namespace

std::optional<double> NumberOf(std::string_view word)
{
    if (word.starts_with('+'))
        word.remove_prefix(1);
    double number = 0;
    const auto [end, error] = std::from_chars(word.data(), word.data() + word.size(), number);
    return error == std::errc() && end == word.data() + word.size() ? std::optional(number) : std::nullopt;
}

std::string_view TakeWord(std::string_view& line)
{
    line = line.substr(std::min(line.find_first_not_of(" \t\r\n"), line.size()));
    std::size_t end = line.starts_with('"') ? EndOfQuoted(line) : 0;
    end = std::min(line.find_first_of(" \t\r\n", end), line.size());
    const std::string_view word = line.substr(0, end);
    line.remove_prefix(end);
    return word;
}

std::string NodeFields::Describe(const VKT::XBase& node, const NodeNamer& nameOf)
{
    const MessageCatcher silence;
    VKT::XTextWriter out;
    out.Describe(nameOf);
    node.WriteChunk(out);
    if (const VKT::XExtraAttributes* attributes = node.GetExtraAttributes())
        attributes->Write(out, *node.GetModel());
    std::string text = out.TakeText();
    if (VKT::XCast<VKT::XAnimCycle>(&node))
        text.erase(0, text.find('\n') + 1);  // a cycle writes its own header
    return text;
}

NodeFields::NodeFields(std::string_view description)
{
    ReadFields(SplitLines(description));
}

const NodeField* NodeFields::Find(const std::string& path) const
{
    const auto found = m_Places.find(path);
    return found == m_Places.end() ? nullptr : &m_Fields[found->second];
}

NodeField& NodeFields::FieldAt(const std::string& path)
{
    const auto [place, isNew] = m_Places.try_emplace(path, m_Fields.size());
    if (isNew)
        m_Fields.push_back({path, {}, {}});
    return m_Fields[place->second];
}

void NodeFields::ReadFields(const std::vector<std::string_view>& lines)
{
    struct Level {
        std::size_t indent;
        std::string path;
    };
    std::vector<Level> levels;
    for (std::size_t i = 0; i < lines.size(); ++i) {
        std::string_view line = Trimmed(lines[i]);
        if (line == "{" || line == "}")
            continue;
        std::string_view rest = line;
        if (BeginsRow(TakeWord(rest))) {
            FieldAt(levels.empty() ? "" : levels.back().path).rows.push_back(line);
            continue;
        }
        const std::size_t indent = IndentOf(lines[i]);
        while (!levels.empty() && levels.back().indent >= indent)
            levels.pop_back();
        std::string path = levels.empty() ? "" : levels.back().path + " / ";
        const bool isBlock = line.ends_with(" {") || (i + 1 < lines.size() && Trimmed(lines[i + 1]) == "{");
        path += isBlock ? TakeBlockLabel(line) : std::string(TakeWord(line));
        line = Trimmed(line);
        if (line.ends_with('{'))
            line = Trimmed(line.substr(0, line.size() - 1));
        FieldAt(path).lines.push_back(line);
        levels.push_back({indent, std::move(path)});
    }
}

}  // namespace tool
