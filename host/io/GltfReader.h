#pragma once

#include <filesystem>

#include "host/io/NeutralScene.h"

namespace maxhost::io {

// Reads glTF 2.0, .gltf with its buffers beside it or inside, and .glb.
//
// The default scene is read, or the first one; a file without scenes gives all its
// nodes. Nodes outside it are left out with a warning. Damaged files are refused;
// parts that stand alone (a track, a face) are left out with a warning instead.
// Never throws.
ReadResult ReadGltf(const std::filesystem::path& path);

}  // namespace maxhost::io
