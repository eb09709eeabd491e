#pragma once

#include <cstdint>
#include <filesystem>
#include <string>
#include <vector>

// tinygltf's header alone: image codecs and the JSON parser stay in its library.
#define TINYGLTF_NO_INCLUDE_JSON
#define TINYGLTF_NO_INCLUDE_STB_IMAGE
#define TINYGLTF_NO_INCLUDE_STB_IMAGE_WRITE
#include <tiny_gltf.h>

namespace maxhost::io {

// A glTF file in memory, as tinygltf delivers it, with the buffers read in and
// the images left out.
struct GltfFile {
    tinygltf::Model model;
    std::uint64_t byteCount = 0;  // of the file and its buffers
    // Per animation, as the file has them: tinygltf drops those that drive no node.
    std::vector<std::size_t> channelCounts;
};

// Reads .gltf (JSON) and .glb (binary); the content tells which. Checks first what
// tinygltf takes on trust: the container's sizes, the version, how deep the JSON
// nests and which extensions it can't be read without.
// Throws Refusal.
GltfFile LoadGltfFile(const std::filesystem::path& path);

}  // namespace maxhost::io
