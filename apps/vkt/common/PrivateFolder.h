#pragma once

#include <filesystem>

#include "common/Platform.h"

namespace tool {

// A new folder for files of this run alone. It goes with all it holds, also when SIGINT,
// SIGTERM or SIGHUP end the run. What a run leaves that was killed or crashed, the next
// one in the same place removes.
class PrivateFolder {
public:
    // Throws std::filesystem::filesystem_error when the system gives none.
    explicit PrivateFolder(const std::filesystem::path& parent = std::filesystem::temp_directory_path());
    ~PrivateFolder();
    PrivateFolder(const PrivateFolder&) = delete;
    PrivateFolder& operator=(const PrivateFolder&) = delete;

    const std::filesystem::path& GetPath() const { return m_Path; }

private:
    std::filesystem::path m_Path;
    FolderHold m_Hold;  // tells other runs that this one is alive
};

}  // namespace tool
