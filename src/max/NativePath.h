#pragma once

#include <string>

namespace VKTMax {

// The path as this system opens it. Paths are made with `\`, the host's separator; where
// the system knows only `/` they are turned on their way to the file.
std::string NativePath(std::string path);

}  // namespace VKTMax
