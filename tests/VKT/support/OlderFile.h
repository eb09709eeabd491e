#pragma once

#include <string>

#include "VKT/base/Types.h"

// Files of versions that this library reads and does not write.

namespace VKT::Test {

// `kOlderSample` as a text file of `version`, which is below 4.
std::string OlderText(u32 version);

// The same document as a binary file of `version`. It is put together from the words of the
// text and from what is known of the layout of then, without the library.
//
// What a body holds in binary files alone has values of its own here: the alpha of the
// particles' colour, the flag of intermediate objects, points and deformers of particles, and
// the shininess of every material. Below version 3 it has no connections, and nothing of a
// `vector<message>`.
std::string OlderBinary(u32 version);

}  // namespace VKT::Test
