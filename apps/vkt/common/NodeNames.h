#pragma once

#include <string>

namespace VKT {
class XBase;
}

namespace tool {

// The name of a node's type, as the registry has it; of a type that a file declares its
// chunk key.
std::string TypeNameOf(const VKT::XBase& node);

// "plate (bone)", cleaned for a terminal.
std::string NameAndType(const VKT::XBase& node);

}  // namespace tool
