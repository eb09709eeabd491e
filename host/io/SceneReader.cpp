#include "host/io/SceneReader.h"

#include "host/io/AssimpReader.h"
#include "host/io/Extension.h"
#include "host/io/GltfReader.h"

namespace maxhost::io {

namespace {

bool IsGltf(std::string_view extension)
{
    return extension == "gltf" || extension == "glb";
}

}  // namespace

bool IsSceneExtension(std::string_view extension)
{
    return IsGltf(extension) || AssimpReads(extension);
}

ReadResult ReadSceneFile(const std::filesystem::path& path)
{
    ReadResult result = IsGltf(LowerExtension(path)) ? ReadGltf(path) : ReadWithAssimp(path);
    if (!result.Succeeded())
        result.error = path.string() + ": " + result.error;
    return result;
}

}  // namespace maxhost::io
