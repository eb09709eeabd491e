#pragma once

#include <filesystem>
#include <string_view>

#include "host/io/NeutralScene.h"

namespace maxhost::io {

// True for the extensions (lower case, without the dot) that ReadSceneFile takes.
bool IsSceneExtension(std::string_view extension);

// Reads a scene file by the reader that takes its extension. The error of a file that
// can't be read names the file. Never throws.
ReadResult ReadSceneFile(const std::filesystem::path& path);

}  // namespace maxhost::io
