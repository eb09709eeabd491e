#pragma once

#include <vector>

#include "host/io/GltfAccessors.h"
#include "host/io/NeutralScene.h"

namespace maxhost::io {

// Turns every mesh of the file into one mesh, with the primitives' materials on the
// faces. Points and lines, and faces that name vertices which do not exist, are left
// out with a warning. Texture coordinates are turned upside down: glTF counts the
// second one from the image's upper edge.
// Throws Refusal.
std::vector<NeutralMesh> ReadGltfMeshes(const tinygltf::Model& model, GltfAccessors& accessors,
                                        std::vector<std::string>& warnings);

}  // namespace maxhost::io
