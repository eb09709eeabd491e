#pragma once

#include <string>
#include <vector>

namespace tool {

// The warnings of a reader as a user wants to meet them: what touches geometry, skins and
// morphs first, then materials, animation, cameras and lights, then the rest; of one weight
// in their order. Several that say the same of different things are one line: "62 nodes: its
// camera is left out".
std::vector<std::string> FoldWarnings(const std::vector<std::string>& warnings);

}  // namespace tool
