#include "common/TerminalText.h"

#include <cstdint>
#include <cstdio>

namespace tool {
namespace {

struct Character {
    std::uint32_t code = 0;
    std::size_t length = 0;  // bytes; 0 when there is no well-formed character
};

// The UTF-8 character at the start of `text`, which is not empty.
Character FirstCharacter(std::string_view text)
{
    const auto byte = [text](std::size_t i) { return static_cast<unsigned char>(text[i]); };
    if (byte(0) < 0x80)
        return {byte(0), 1};
    const std::size_t length = byte(0) >= 0xF0 ? 4 : byte(0) >= 0xE0 ? 3 : 2;
    constexpr std::uint32_t smallest[] = {0, 0, 0x80, 0x800, 0x10000};
    if (byte(0) < 0xC0 || byte(0) > 0xF4 || text.size() < length)
        return {};
    std::uint32_t code = byte(0) & (0x7Fu >> length);
    for (std::size_t i = 1; i < length; ++i) {
        if ((byte(i) & 0xC0) != 0x80)
            return {};
        code = code << 6 | (byte(i) & 0x3Fu);
    }
    const bool isSurrogate = code >= 0xD800 && code <= 0xDFFF;
    return code < smallest[length] || code > 0x10FFFF || isSurrogate ? Character{} : Character{code, length};
}

bool SteersTerminal(std::uint32_t code)
{
    const bool isControl = code < 0x20 || (code >= 0x7F && code < 0xA0);
    const bool turnsDirection = code == 0x061C || code == 0x200E || code == 0x200F ||
                                (code >= 0x2028 && code <= 0x202E) || (code >= 0x2066 && code <= 0x2069);
    return isControl || turnsDirection;
}

void AppendEscaped(std::string& out, char byte)
{
    constexpr char digits[] = "0123456789abcdef";
    const auto value = static_cast<unsigned char>(byte);
    out += {'\\', 'x', digits[value >> 4], digits[value & 15]};
}

}  // namespace

std::string CleanText(std::string_view text)
{
    std::string out;
    out.reserve(text.size());
    while (!text.empty()) {
        const Character first = FirstCharacter(text);
        const std::size_t length = first.length == 0 ? 1 : first.length;
        if (first.length != 0 && !SteersTerminal(first.code))
            out += text.substr(0, length);
        else
            for (const char byte : text.substr(0, length))
                AppendEscaped(out, byte);
        text.remove_prefix(length);
    }
    return out;
}

std::string Quoted(std::string_view text)
{
    std::string out;
    out += '"';
    out += text;
    out += '"';
    return out;
}

std::string Bracketed(std::size_t place)
{
    std::string out = "[";
    return out.append(std::to_string(place)).append("]");
}

std::string Counted(std::size_t count, std::string_view thing)
{
    std::string out = std::to_string(count) + " ";
    out += thing;
    return count == 1 ? out : out + "s";
}

std::string ReasonOf(const std::error_code& error)
{
    std::string reason = error.message();
    if (!reason.empty() && reason[0] >= 'A' && reason[0] <= 'Z')
        reason[0] = static_cast<char>(reason[0] - 'A' + 'a');
    return reason;
}

std::string ShortNumber(double number)
{
    char text[32];
    std::snprintf(text, sizeof text, "%g", number);
    return text;
}

}  // namespace tool
