#pragma once

#include "VKT/base/Types.h"

// Objects of the host, as all but this folder sees them: opaque pointers that are kept as
// keys of maps and handed back to the border. They are the host's own.
class INode;
class Interface;
class Mtl;
class Object;

namespace VKTMax {

using VKT::f32;
using VKT::i32;
using VKT::u32;

}  // namespace VKTMax
