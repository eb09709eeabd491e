#pragma once

#include <optional>
#include <string>
#include <vector>

#include "common/NodeFields.h"

namespace tool {

// A field that two descriptions hold otherwise.
struct FieldDifference {
    std::string field;  // its path, and where in it: `#2` for a line, `[2]` for a row
    std::optional<std::string> a;
    std::optional<std::string> b;
    std::size_t count;  // of lines or rows that differ, of which this is the first
};

// Words are compared as they are, numbers with the tolerance of `FindDifferences`.
std::vector<FieldDifference> CompareFields(const NodeFields& a, const NodeFields& b, double tolerance);

}  // namespace tool
