#include <nlohmann/json.hpp>

#include "common/TerminalText.h"
#include "diff/Differences.h"

namespace tool {
namespace {

using Json = nlohmann::ordered_json;

std::string NodeText(const Difference& difference)
{
    std::string out = CleanText(difference.node) + " (" + CleanText(difference.type) + ")";
    return difference.place > 0 ? out + " #" + std::to_string(difference.place) : out;
}

std::string ValueText(const std::optional<std::string>& value)
{
    return value ? CleanText(*value) : "<absent>";
}

}  // namespace

std::string ToText(const std::vector<Difference>& differences, const std::string& fileA,
                   const std::string& fileB)
{
    std::string out;
    for (const Difference& difference : differences) {
        if (difference.field.empty()) {
            out += NodeText(difference) + ": only in " + CleanText(difference.a ? fileA : fileB) + "\n";
            continue;
        }
        if (!difference.type.empty())
            out += NodeText(difference) + ": ";
        out +=
            CleanText(difference.field) + ": " + ValueText(difference.a) + " -> " + ValueText(difference.b);
        if (difference.count > 1)
            out += " (and " + std::to_string(difference.count - 1) + " more)";
        out += "\n";
    }
    return out;
}

std::string ToJson(const std::vector<Difference>& differences, const std::string& fileA,
                   const std::string& fileB, double tolerance)
{
    const auto orNull = [](const std::optional<std::string>& text) { return text ? Json(*text) : Json(); };
    Json out = {{"a", fileA},
                {"b", fileB},
                {"tolerance", tolerance},
                {"equal", differences.empty()},
                {"differences", Json::array()}};
    for (const Difference& difference : differences) {
        const bool isOfNode = !difference.type.empty();
        out["differences"].push_back({{"node", isOfNode ? Json(difference.node) : Json()},
                                      {"type", isOfNode ? Json(difference.type) : Json()},
                                      {"place", difference.place},
                                      {"field", difference.field.empty() ? Json() : Json(difference.field)},
                                      {"a", orNull(difference.a)},
                                      {"b", orNull(difference.b)},
                                      {"count", difference.count}});
    }
    // Names may hold any bytes: what is no UTF-8 becomes U+FFFD.
    return out.dump(2, ' ', true, Json::error_handler_t::replace) + "\n";
}

}  // namespace tool
