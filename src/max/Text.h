#pragma once

#include <string>

namespace VKTMax {

// A text of the host. One that was never assigned is null there, which counts as empty.
inline std::string TextOrEmpty(const char* text)
{
    return text ? text : "";
}

}  // namespace VKTMax
