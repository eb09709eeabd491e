#pragma once

#include <unistd.h>
#include <atomic>
#include <filesystem>
#include <fstream>
#include <string>
#include <string_view>

namespace maxhost::io {

// A file of given content that is gone at the end of the test.
class TempFile {
public:
    TempFile(std::string_view content, const std::string& extension)
    {
        static std::atomic<int> last = 0;
        m_Path = std::filesystem::temp_directory_path() /
                 ("vkt_io_" + std::to_string(getpid()) + "_" + std::to_string(++last) + "." + extension);
        std::ofstream(m_Path, std::ios::binary)
            .write(content.data(), static_cast<std::streamsize>(content.size()));
    }
    TempFile(const TempFile&) = delete;
    TempFile& operator=(const TempFile&) = delete;
    ~TempFile() { std::filesystem::remove(m_Path); }

    const std::filesystem::path& Path() const { return m_Path; }

private:
    std::filesystem::path m_Path;
};

}  // namespace maxhost::io
