#pragma once

#include <string>

#include "max/HostTypes.h"

namespace VKTMax {

// What a user wrote on a node: lines "name = value"; empty when nothing was written.
std::string UserPropertyText(INode* node);

// The number of the line of that name, as the host reads it; 0 where there is no such line.
i32 UserPropertyInt(INode* node, const std::string& name);
f32 UserPropertyFloat(INode* node, const std::string& name);

}  // namespace VKTMax
