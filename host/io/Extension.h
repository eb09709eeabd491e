#pragma once

#include <filesystem>
#include <string>

namespace maxhost::io {

// Without the dot, ASCII letters in lower case: "GLB" in "scene.GLB" gives "glb".
inline std::string LowerExtension(const std::filesystem::path& path)
{
    std::string extension = path.extension().string();
    if (!extension.empty())
        extension.erase(0, 1);
    for (char& c : extension)
        if (c >= 'A' && c <= 'Z')
            c = static_cast<char>(c - 'A' + 'a');
    return extension;
}

}  // namespace maxhost::io
