#pragma once

#include <string>
#include <vector>

#include "host/io/NeutralScene.h"
#include "max.h"

namespace maxhost::io {

// The materials of a mesh in the order of their face numbers; -1 stands for faces
// without one. A mesh of one material has no need of face numbers.
std::vector<int> MaterialsOf(const NeutralMesh& mesh);

// A triangle object, or a polygon object where a face has more than three corners,
// with texture coordinates in map channels from 1 on and colours in channel 0. The
// mesh has a polygon at least.
Object* BuildMesh(const NeutralMesh& mesh, std::vector<std::string>& warnings);

}  // namespace maxhost::io
