#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "coreexp.h"

namespace maxhost {

// The user property text of a node: lines "key = value", each ended by CR LF or LF.
// Keys are told apart by case. Numbers are read as C does: what follows them on the
// line doesn't matter, and what is no number reads as 0.
class CoreExport UserProperties {
public:
    const std::string& GetText() const { return m_Text; }
    void SetText(std::string text) { m_Text = std::move(text); }

    // Without the blanks around it; nothing when the key isn't there.
    std::optional<std::string> GetString(std::string_view key) const;
    std::optional<int> GetInt(std::string_view key) const;
    std::optional<float> GetFloat(std::string_view key) const;
    // "true" and "yes" in any case, and numbers other than 0.
    std::optional<bool> GetBool(std::string_view key) const;

    // Replaces the line of the key, or adds one at the end.
    void Set(std::string_view key, std::string_view value);
    void Set(std::string_view key, int value);
    void Set(std::string_view key, float value);
    void Set(std::string_view key, bool value);

private:
    // Where in the text the line of a key begins and where its line end does.
    struct Line {
        std::size_t begin;
        std::size_t end;
        std::string_view value;
    };
    std::optional<Line> Find(std::string_view key) const;

    std::string m_Text;
};

}  // namespace maxhost
