#pragma once

#include <string_view>

namespace tool {

// Writes a command's result to standard output, whole. False when it does not take it,
// because a disk is full, for instance.
bool WriteResult(std::string_view text);

}  // namespace tool
