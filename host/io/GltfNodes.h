#pragma once

#include <vector>

#include "host/io/GltfFile.h"
#include "host/io/NeutralScene.h"

namespace maxhost::io {

// Appends the nodes of the file's scene, parents before children, and answers for
// each node of the file its number there, -1 for those that stand outside. A node
// that two parents or a ring of parents claim stays with the first.
// Throws Refusal.
std::vector<int> ReadGltfNodes(const tinygltf::Model& model, NeutralScene& scene);

}  // namespace maxhost::io
