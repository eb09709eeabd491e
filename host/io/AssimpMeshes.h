#pragma once

#include "host/io/AssimpNodes.h"

namespace maxhost::io {

// Gives every node its mesh: the meshes that Assimp split by material are joined,
// nodes that share meshes share the joined one. Bones become skins, with the bone
// nodes marked; the geometric offset of a skinned mesh goes into its points, as the
// bind matrices do not contain it.
void ReadAssimpMeshes(const aiScene& source, AssimpNodes& nodes, NeutralScene& scene);

void ReadAssimpMaterials(const aiScene& source, NeutralScene& scene);

}  // namespace maxhost::io
