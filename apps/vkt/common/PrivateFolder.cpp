#include "common/PrivateFolder.h"

#include <mutex>
#include <random>
#include <set>
#include <string>

namespace tool {
namespace {

namespace fs = std::filesystem;

constexpr const char* kStem = ".vkt-run-";

std::string NewName()
{
    constexpr const char* digits = "0123456789abcdef";
    std::random_device random;
    std::string name = kStem;
    for (int i = 0; i < 8; ++i)
        name += digits[random() % 16];
    return name;
}

// The folders of this run. They outlive all other objects, as a signal may come at the end.
struct Folders {
    std::mutex mutex;
    std::set<fs::path> paths;

    static Folders& Get()
    {
        static Folders* const folders = new Folders;
        return *folders;
    }
};

// The lock is not given back: the process ends, and no other thread makes a folder until it
// does.
void RemoveAll()
{
    Folders& folders = Folders::Get();
    folders.mutex.lock();
    std::error_code ignored;
    for (const fs::path& path : folders.paths)
        fs::remove_all(path, ignored);
}

// Removes the folders that nobody holds. Those of other users stay.
void RemoveLeftovers(const fs::path& parent)
{
    std::error_code error;
    for (fs::directory_iterator entry(parent, error), end; !error && entry != end; entry.increment(error)) {
        if (entry->path().filename().string().rfind(kStem, 0) != 0)
            continue;
        std::error_code ignored;
        if (const FolderHold hold(entry->path()); hold.GetState() == FolderHold::Held)
            fs::remove_all(entry->path(), ignored);
    }
}

}  // namespace

PrivateFolder::PrivateFolder(const fs::path& parent)
{
    CallBeforeEnding(&RemoveAll);
    RemoveLeftovers(parent);
    Folders& folders = Folders::Get();
    const std::lock_guard lock(folders.mutex);
    std::error_code error;
    for (int attempt = 0; attempt < 100; ++attempt) {
        m_Path = parent / NewName();
        error = CreatePrivateFolder(m_Path);
        if (error == std::errc::file_exists)
            continue;
        if (error)
            break;
        // Until it is held, another run may take the folder for a leftover.
        m_Hold = FolderHold(m_Path);
        if (m_Hold.GetState() != FolderHold::None && fs::exists(m_Path)) {
            folders.paths.insert(m_Path);
            return;
        }
        fs::remove(m_Path, error);
    }
    throw fs::filesystem_error("no folder for temporary files", parent,
                               error ? error : std::make_error_code(std::errc::io_error));
}

PrivateFolder::~PrivateFolder()
{
    Folders& folders = Folders::Get();
    const std::lock_guard lock(folders.mutex);
    std::error_code ignored;
    fs::remove_all(m_Path, ignored);
    folders.paths.erase(m_Path);
}

}  // namespace tool
