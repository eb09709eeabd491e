#pragma once

#include <string_view>

#include "VKT/base/Types.h"

namespace VKT {

// What a node's name becomes on its way into or out of a file: double quotes, slashes
// and backslashes vanish, blanks become `_`.
XString CleanName(std::string_view name);

// A name as text readers take it, in one word: `_` stands for each white-space character
// and for an empty name. A change is logged as a warning, since the name reads back so.
XString NameAsToken(std::string_view name);

// The same in double quotes, between which an empty name may stay empty.
XString NameInQuotes(std::string_view name);

}  // namespace VKT
