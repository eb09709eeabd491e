#include "common/Platform.h"

#ifdef _WIN32
#include <io.h>
#include <windows.h>
#else
#include <unistd.h>
#endif

namespace tool {

#ifdef _WIN32

namespace {

const auto duplicate = _dup;
const auto pointAt = _dup2;
const auto closeDescriptor = _close;
const auto descriptorOf = _fileno;

}  // namespace

bool IsStandardErrorTerminal()
{
    return _isatty(2) != 0;
}

unsigned long ProcessNumber()
{
    return GetCurrentProcessId();
}

std::filesystem::path ProgramFolder()
{
    wchar_t path[32768];
    const DWORD length = GetModuleFileNameW(nullptr, path, static_cast<DWORD>(std::size(path)));
    return std::filesystem::path(path, path + length).parent_path();
}

#else

namespace {

const auto duplicate = dup;
const auto pointAt = dup2;
const auto closeDescriptor = close;
const auto descriptorOf = fileno;

}  // namespace

bool IsStandardErrorTerminal()
{
    return isatty(STDERR_FILENO) != 0;
}

unsigned long ProcessNumber()
{
    return static_cast<unsigned long>(getpid());
}

std::filesystem::path ProgramFolder()
{
    std::error_code none;
    return std::filesystem::read_symlink("/proc/self/exe", none).parent_path();
}

#endif

int RedirectStandardOutput(std::FILE* to)
{
    std::fflush(stdout);
    const int saved = duplicate(descriptorOf(stdout));
    if (saved >= 0)
        pointAt(descriptorOf(to), descriptorOf(stdout));
    return saved;
}

void RestoreStandardOutput(int saved)
{
    std::fflush(stdout);
    pointAt(saved, descriptorOf(stdout));
    closeDescriptor(saved);
}

}  // namespace tool
