#include "max/NativePath.h"

#include <algorithm>

namespace VKTMax {

std::string NativePath(std::string path)
{
#ifndef _WIN32
    std::replace(path.begin(), path.end(), '\\', '/');
#endif
    return path;
}

}  // namespace VKTMax
