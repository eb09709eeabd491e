#include "common/PrivateFolder.h"

#include <string>

#include "common/Platform.h"

namespace tool {

namespace fs = std::filesystem;

PrivateFolder::PrivateFolder()
{
    const std::string stem = "vkt-" + std::to_string(ProcessNumber()) + "-";
    const fs::path parent = fs::temp_directory_path();
    int number = 0;
    do
        m_Path = parent / (stem + std::to_string(number++));
    while (!fs::create_directory(m_Path));  // false for one that is there already
    fs::permissions(m_Path, fs::perms::owner_all);
}

PrivateFolder::~PrivateFolder()
{
    std::error_code ignored;
    fs::remove_all(m_Path, ignored);
}

}  // namespace tool
