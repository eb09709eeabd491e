#pragma once

#include <filesystem>

namespace tool {

// A new folder for temporary files of this run, which goes with all it holds.
class PrivateFolder {
public:
    // Throws std::filesystem::filesystem_error when the system gives none.
    PrivateFolder();
    ~PrivateFolder();
    PrivateFolder(const PrivateFolder&) = delete;
    PrivateFolder& operator=(const PrivateFolder&) = delete;

    const std::filesystem::path& GetPath() const { return m_Path; }

private:
    std::filesystem::path m_Path;
};

}  // namespace tool
