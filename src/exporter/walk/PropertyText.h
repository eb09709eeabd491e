#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace VKTMax {

// What the value of a user property looks like, which decides the type of the attribute
// that it becomes.
enum class PropertyKind {
    False,
    True,
    Whole,   // digits alone, or nothing
    Number,  // digits with one point among them
    Text,
};

// A line "name = value" of the text that a user wrote on a node.
struct UserProperty {
    std::string name;
    std::string value;
    PropertyKind kind;

    bool operator==(const UserProperty&) const = default;
};

// The properties of such a text, in its order.
//
// A name loses all its blanks, a value those in front of it and its carriage returns, and
// empty lines between properties vanish. Kept on purpose: a minus sign makes a value text,
// and lines without "=" become part of the next name, since a name ends at "=" alone.
// Such lines at the end are dropped.
std::vector<UserProperty> ParsePropertyText(std::string_view text);

}  // namespace VKTMax
