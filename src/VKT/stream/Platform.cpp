#include "VKT/stream/Platform.h"

#include <ctime>

#ifdef _WIN32
#include <io.h>
#include <sys/stat.h>
#ifndef NOMINMAX
#define NOMINMAX
#endif
#include <windows.h>
#else
#include <pwd.h>
#include <sys/stat.h>
#include <unistd.h>
#endif

namespace VKT {
namespace {

XDate DateOf(std::time_t moment)
{
    std::tm parts{};
#ifdef _WIN32
    localtime_s(&parts, &moment);
#else
    localtime_r(&moment, &parts);
#endif
    const auto word = [](int value) { return static_cast<u32>(value); };
    return {word(parts.tm_mday), word(parts.tm_mon + 1), word(parts.tm_year + 1900),
            word(parts.tm_hour), word(parts.tm_min),     word(parts.tm_sec)};
}

}  // namespace

XDate LocalTime()
{
    return DateOf(std::time(nullptr));
}

#ifdef _WIN32

bool SeekFile(std::FILE* file, i64 offset, int origin)
{
    return _fseeki64(file, offset, origin) == 0;
}

i64 TellFile(std::FILE* file)
{
    return _ftelli64(file);
}

bool GetFileTimeAndSize(const char* path, XDate& time, u64& size)
{
    struct _stat64 status;
    if (_stat64(path, &status) != 0)
        return false;
    time = DateOf(status.st_mtime);
    size = static_cast<u64>(status.st_size);
    return true;
}

XString LoginName()
{
    char name[257];
    DWORD length = sizeof name;
    return GetUserNameA(name, &length) ? name : "";
}

XString ComputerName()
{
    char name[257];
    DWORD length = sizeof name;
    return GetComputerNameA(name, &length) ? name : "";
}

#else

bool SeekFile(std::FILE* file, i64 offset, int origin)
{
    return fseeko(file, offset, origin) == 0;
}

i64 TellFile(std::FILE* file)
{
    return ftello(file);
}

bool GetFileTimeAndSize(const char* path, XDate& time, u64& size)
{
    struct stat status;
    if (stat(path, &status) != 0)
        return false;
    time = DateOf(status.st_mtime);
    size = static_cast<u64>(status.st_size);
    return true;
}

XString LoginName()
{
    const passwd* entry = getpwuid(getuid());
    return entry && entry->pw_name ? entry->pw_name : "";
}

XString ComputerName()
{
    char name[257] = "";
    return gethostname(name, sizeof name - 1) == 0 ? name : "";
}

#endif

}  // namespace VKT
