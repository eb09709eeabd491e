#include "exporter/walk/PropertyText.h"

#include <algorithm>

#include "VKT/stream/NumberText.h"

namespace VKTMax {
namespace {

void SkipAll(std::string_view& text, std::string_view characters)
{
    text.remove_prefix(std::min(text.find_first_not_of(characters), text.size()));
}

// Takes what stands in front of `end`, or everything, without the `dropped` characters.
std::string TakeUntil(std::string_view& text, char end, char dropped)
{
    const std::string_view taken = text.substr(0, text.find(end));
    text.remove_prefix(taken.size());
    std::string out(taken);
    std::erase(out, dropped);
    return out;
}

PropertyKind KindOf(std::string_view value)
{
    std::string word(value);
    std::transform(word.begin(), word.end(), word.begin(), VKT::NumberText::ToLower);
    if (word == "true")
        return PropertyKind::True;
    if (word == "false")
        return PropertyKind::False;
    if (value.find_first_not_of("0123456789.") != value.npos)
        return PropertyKind::Text;
    switch (std::count(value.begin(), value.end(), '.')) {
        case 0:
            return PropertyKind::Whole;
        case 1:
            return PropertyKind::Number;
        default:
            return PropertyKind::Text;
    }
}

}  // namespace

std::vector<UserProperty> ParsePropertyText(std::string_view text)
{
    std::vector<UserProperty> out;
    while (!text.empty()) {
        std::string name = TakeUntil(text, '=', ' ');
        if (text.empty())
            break;
        text.remove_prefix(1);
        SkipAll(text, " ");
        std::string value = TakeUntil(text, '\n', '\r');
        const PropertyKind kind = KindOf(value);
        out.push_back({std::move(name), std::move(value), kind});
        SkipAll(text, "\r\n");
    }
    return out;
}

}  // namespace VKTMax
