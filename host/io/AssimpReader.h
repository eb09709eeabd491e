#pragma once

#include <filesystem>
#include <string_view>

#include "host/io/NeutralScene.h"

namespace maxhost::io {

// True for the extensions (lower case, without the dot) that ReadWithAssimp takes:
// a fixed list, as some of Assimp's other readers crash on damaged files.
bool AssimpReads(std::string_view extension);

// Reads FBX 7.1 and later, COLLADA, OBJ, BVH, 3DS and a few plainer formats.
//
// Everything in Assimp refers by name, so where names are shared, bones and tracks
// go to the first node that bears the name, with a warning. What FBX files say and
// Assimp does not apply is reported as far as it can be told. Never throws.
ReadResult ReadWithAssimp(const std::filesystem::path& path);

}  // namespace maxhost::io
