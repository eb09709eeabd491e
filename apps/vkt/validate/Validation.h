#pragma once

#include <string>
#include <vector>

#include "validate/checks/Findings.h"

namespace tool {

// What is suspicious or broken in a document that was loaded.
std::vector<Finding> Validate(const VKT::XModel& model);

// A line for each, names cleaned.
std::string ToText(const std::vector<Finding>& findings);

}  // namespace tool
