#include "common/Output.h"

#include <cstdio>

namespace tool {

bool WriteResult(std::string_view text)
{
    return std::fwrite(text.data(), 1, text.size(), stdout) == text.size() && std::fflush(stdout) == 0;
}

}  // namespace tool
