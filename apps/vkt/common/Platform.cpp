#include "common/Platform.h"

#ifdef _WIN32
#include <direct.h>
#include <io.h>
#include <windows.h>
#else
#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <csignal>
#include <thread>
#endif

#include <cerrno>

namespace tool {
namespace {

std::error_code ErrorUnless(bool isDone)
{
    return isDone ? std::error_code() : std::error_code(errno, std::generic_category());
}

}  // namespace

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

std::filesystem::path ProgramFolder()
{
    wchar_t path[32768];
    const DWORD length = GetModuleFileNameW(nullptr, path, static_cast<DWORD>(std::size(path)));
    return std::filesystem::path(path, path + length).parent_path();
}

std::error_code CheckWritable(const std::filesystem::path& path)
{
    return ErrorUnless(_waccess(path.c_str(), 2) == 0);
}

std::error_code CreatePrivateFolder(const std::filesystem::path& path)
{
    return ErrorUnless(_wmkdir(path.c_str()) == 0);
}

std::error_code FlushToDisk(const std::filesystem::path& path)
{
    std::FILE* const file = _wfopen(path.c_str(), L"ab");
    const std::error_code error = ErrorUnless(file && _commit(_fileno(file)) == 0);
    if (file)
        std::fclose(file);
    return error;
}

void CallBeforeEnding(void (*)()) {}

FolderHold::FolderHold(const std::filesystem::path&) : m_State(Unknown) {}

FolderHold::~FolderHold() = default;

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

std::filesystem::path ProgramFolder()
{
    std::error_code none;
    return std::filesystem::read_symlink("/proc/self/exe", none).parent_path();
}

std::error_code CheckWritable(const std::filesystem::path& path)
{
    return ErrorUnless(faccessat(AT_FDCWD, path.c_str(), W_OK, AT_EACCESS) == 0);
}

std::error_code CreatePrivateFolder(const std::filesystem::path& path)
{
    return ErrorUnless(mkdir(path.c_str(), S_IRWXU) == 0);
}

std::error_code FlushToDisk(const std::filesystem::path& path)
{
    const int file = open(path.c_str(), O_RDONLY | O_CLOEXEC);
    const std::error_code error = ErrorUnless(file >= 0 && fsync(file) == 0);
    if (file >= 0)
        close(file);
    return error;
}

// A thread that waits, not a handler: it may lock, allocate and walk folders.
void CallBeforeEnding(void (*cleanUp)())
{
    static const bool once = [cleanUp] {
        sigset_t ending;
        sigemptyset(&ending);
        for (const int number : {SIGINT, SIGTERM, SIGHUP}) {
            struct sigaction action = {};
            sigaction(number, nullptr, &action);
            if (action.sa_handler != SIG_IGN)  // as under nohup
                sigaddset(&ending, number);
        }
        pthread_sigmask(SIG_BLOCK, &ending, nullptr);
        std::thread([ending, cleanUp] {
            int number = 0;
            sigwait(&ending, &number);
            cleanUp();
            pthread_sigmask(SIG_UNBLOCK, &ending, nullptr);
            std::raise(number);
        }).detach();
        return true;
    }();
    (void)once;
}

FolderHold::FolderHold(const std::filesystem::path& folder)
    : m_Descriptor(open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC))
{
    struct stat status = {};
    if (m_Descriptor < 0 || fstat(m_Descriptor, &status) != 0)
        return;
    if (status.st_uid != geteuid())
        m_State = Unknown;
    else if (flock(m_Descriptor, LOCK_EX | LOCK_NB) == 0)
        m_State = Held;
    else
        m_State = errno == EWOULDBLOCK ? None : Unknown;
}

FolderHold::~FolderHold()
{
    if (m_Descriptor >= 0)
        close(m_Descriptor);
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
