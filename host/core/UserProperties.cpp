#include "host/core/UserProperties.h"

#include <algorithm>
#include <cctype>
#include <charconv>

namespace maxhost {

namespace {

std::string_view Trimmed(std::string_view text)
{
    const std::size_t first = text.find_first_not_of(" \t\r");
    if (first == text.npos)
        return {};
    return text.substr(first, text.find_last_not_of(" \t\r") - first + 1);
}

// As strtod in the C locale would, whatever the process's locale.
double NumberIn(std::string_view text)
{
    if (!text.empty() && text.front() == '+')
        text.remove_prefix(1);
    double number = 0.0;
    std::from_chars(text.data(), text.data() + text.size(), number);
    return number;
}

int IntIn(std::string_view text)
{
    if (!text.empty() && text.front() == '+')
        text.remove_prefix(1);
    int number = 0;
    std::from_chars(text.data(), text.data() + text.size(), number);
    return number;
}

}  // namespace

std::optional<UserProperties::Line> UserProperties::Find(std::string_view key) const
{
    const std::string_view text = m_Text;
    for (std::size_t begin = 0; begin < text.size();) {
        const std::size_t end = std::min(text.find('\n', begin), text.size());
        const std::string_view line = text.substr(begin, end - begin);
        const std::size_t equals = line.find('=');
        if (equals != line.npos && Trimmed(line.substr(0, equals)) == key)
            return Line{begin, end, Trimmed(line.substr(equals + 1))};
        begin = end + 1;
    }
    return std::nullopt;
}

std::optional<std::string> UserProperties::GetString(std::string_view key) const
{
    const std::optional<Line> line = Find(key);
    return line ? std::optional(std::string(line->value)) : std::nullopt;
}

std::optional<int> UserProperties::GetInt(std::string_view key) const
{
    const std::optional<Line> line = Find(key);
    return line ? std::optional(IntIn(line->value)) : std::nullopt;
}

std::optional<float> UserProperties::GetFloat(std::string_view key) const
{
    const std::optional<Line> line = Find(key);
    return line ? std::optional(static_cast<float>(NumberIn(line->value))) : std::nullopt;
}

std::optional<bool> UserProperties::GetBool(std::string_view key) const
{
    std::optional<std::string> word = GetString(key);
    if (!word)
        return std::nullopt;
    std::transform(word->begin(), word->end(), word->begin(),
                   [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
    return *word == "true" || *word == "yes" || NumberIn(*word) != 0.0;
}

void UserProperties::Set(std::string_view key, std::string_view value)
{
    const std::string line = std::string(key) + " = " + std::string(value);
    if (const std::optional<Line> found = Find(key)) {
        const bool returns = found->end > found->begin && m_Text[found->end - 1] == '\r';
        m_Text.replace(found->begin, found->end - found->begin - (returns ? 1 : 0), line);
        return;
    }
    if (!m_Text.empty() && m_Text.back() != '\n')
        m_Text += "\r\n";
    m_Text += line + "\r\n";
}

void UserProperties::Set(std::string_view key, int value)
{
    Set(key, std::string_view(std::to_string(value)));
}

void UserProperties::Set(std::string_view key, float value)
{
    char digits[32];
    const std::to_chars_result end = std::to_chars(digits, digits + sizeof digits, value);
    Set(key, std::string_view(digits, static_cast<std::size_t>(end.ptr - digits)));
}

void UserProperties::Set(std::string_view key, bool value)
{
    Set(key, std::string_view(value ? "true" : "false"));
}

}  // namespace maxhost
