#pragma once

#include <cstdio>
#include <filesystem>
#include <system_error>
#include <utility>

namespace tool {

// What the tool asks of the operating system beyond the standard library.

bool IsStandardErrorTerminal();
// The folder of the running program; empty when the system does not tell.
std::filesystem::path ProgramFolder();

// Points standard output at an open file, for all code of the process. Answers what
// brings it back, negative on failure.
int RedirectStandardOutput(std::FILE* to);
void RestoreStandardOutput(int saved);

// Whether the user may write a file, or into a folder; the reason when not.
std::error_code CheckWritable(const std::filesystem::path& path);
// Makes a folder that its user alone may look into.
std::error_code CreatePrivateFolder(const std::filesystem::path& path);
// Has the system bring a file, or the entries of a folder, to the disk.
std::error_code FlushToDisk(const std::filesystem::path& path);

// Has `cleanUp` called, on another thread, when a signal ends the process: SIGINT, SIGTERM
// or SIGHUP, as far as they are not ignored. Of several calls the first counts.
void CallBeforeEnding(void (*cleanUp)());

// Holds a folder of the user, as one process can at a time; the system lets it go when that
// process ends, however it does. `Unknown` where the system cannot tell, and for folders that
// belong to others.
class FolderHold {
public:
    enum State { None, Held, Unknown };

    FolderHold() = default;
    explicit FolderHold(const std::filesystem::path& folder);
    ~FolderHold();
    FolderHold(FolderHold&& other) noexcept { *this = std::move(other); }
    FolderHold& operator=(FolderHold&& other) noexcept
    {
        std::swap(m_State, other.m_State);
        std::swap(m_Descriptor, other.m_Descriptor);
        return *this;
    }

    State GetState() const { return m_State; }

private:
    State m_State = None;
    int m_Descriptor = -1;
};

}  // namespace tool
