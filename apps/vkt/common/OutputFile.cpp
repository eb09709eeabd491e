#include "common/OutputFile.h"

#include <cerrno>
#include <cstdio>
#include <memory>
#include <optional>
#include <vector>

#include "common/Command.h"
#include "common/Log.h"
#include "common/Platform.h"
#include "common/PrivateFolder.h"
#include "common/TerminalText.h"

namespace tool {
namespace {

namespace fs = std::filesystem;

// Also where the last link leads to nothing, which the standard library does not follow.
fs::path FollowLinks(fs::path path)
{
    constexpr int mostLinks = 40;  // as many as the system follows; links may form a ring
    std::error_code error;
    for (int i = 0; i < mostLinks && fs::is_symlink(path, error); ++i)
        path = path.parent_path() / fs::read_symlink(path, error);
    return path;
}

fs::path FolderOf(const fs::path& path)
{
    return path.has_parent_path() ? path.parent_path() : fs::path(".");
}

const char* NameOfKind(fs::file_type type)
{
    switch (type) {
        case fs::file_type::directory:
            return "a folder";
        case fs::file_type::block:
        case fs::file_type::character:
            return "a device";
        case fs::file_type::fifo:
            return "a pipe";
        case fs::file_type::socket:
            return "a socket";
        default:
            return "no regular file";
    }
}

bool IsSameName(const fs::path& a, const fs::path& b)
{
    return fs::absolute(a).lexically_normal() == fs::absolute(b).lexically_normal();
}

// Also for those whom the system lets write all files: protection is the owner's word.
bool IsWriteProtected(fs::perms permissions)
{
    constexpr fs::perms write = fs::perms::owner_write | fs::perms::group_write | fs::perms::others_write;
    return (permissions & write) == fs::perms::none;
}

}  // namespace

OutputFile::OutputFile(const std::string& path) : m_Path(path), m_Target(FollowLinks(path)) {}

std::string OutputFile::FindRefusalOfOld(const std::string& input, bool mayReplaceInput) const
{
    std::error_code error;
    const fs::file_status old = fs::status(m_Target, error);
    if (old.type() == fs::file_type::none)
        return ReasonOf(error);
    if (!fs::exists(old))
        return {};
    if (!fs::is_regular_file(old))
        return (fs::is_symlink(m_Path, error) ? "it leads to " : "it is ") +
               std::string(NameOfKind(old.type()));
    if (fs::equivalent(m_Target, input, error) && !(mayReplaceInput && IsSameName(m_Path, input)))
        return "it is the input " + Quoted(input) + " under another name";
    if (IsWriteProtected(old.permissions()))
        return "it is write-protected";
    error = CheckWritable(m_Target);
    return error ? ReasonOf(error) : "";
}

std::string OutputFile::FindRefusal(const std::string& input, bool mayReplaceInput) const
{
    if (const std::string reason = FindRefusalOfOld(input, mayReplaceInput); !reason.empty())
        return reason;
    const fs::path folder = FolderOf(m_Target);
    std::error_code error;
    if (!fs::is_directory(folder, error))
        return "there is no folder " + Quoted(folder.string());
    error = CheckWritable(folder);
    return error ? "its folder cannot be changed: " + ReasonOf(error) : "";
}

int OutputFile::Refuse(const std::string& reason, Log& log) const
{
    log.Say(Quoted(m_Path) + " cannot be written: " + reason);
    return VKT::FileOpenFailed;
}

int OutputFile::Check(const std::string& input, bool mayReplaceInput, Log& log) const
{
    const std::string reason = FindRefusal(input, mayReplaceInput);
    return reason.empty() ? kSuccess : Refuse(reason, log);
}

int OutputFile::Replace(Log& log, const Writer& write) const
{
    const fs::path folder = FolderOf(m_Target);
    std::optional<PrivateFolder> working;
    try {
        working.emplace(folder);
    } catch (const fs::filesystem_error& error) {
        return Refuse(ReasonOf(error.code()), log);
    }
    const std::string path = (working->GetPath() / "out.vkt").string();
    log.ShowAs(path, m_Path);
    if (const int status = write(path); status != kSuccess)
        return status;
    std::error_code error;
    if (const fs::file_status old = fs::status(m_Target, error); fs::exists(old))
        fs::permissions(path, old.permissions(), error);
    error = FlushToDisk(path);
    if (!error)
        fs::rename(path, m_Target, error);
    if (error)
        return Refuse(ReasonOf(error), log);
    FlushToDisk(folder);  // some file systems flush no folders
    return kSuccess;
}

std::error_code OutputFile::TryMore(const std::string& workingPath)
{
    const std::unique_ptr<std::FILE, int (*)(std::FILE*)> file(std::fopen(workingPath.c_str(), "ab"),
                                                               &std::fclose);
    if (file)
        std::setvbuf(file.get(), nullptr, _IONBF, 0);
    const std::vector<char> more(1 << 20);
    if (file && std::fwrite(more.data(), 1, more.size(), file.get()) == more.size())
        return {};
    return {errno, std::generic_category()};
}

int OutputFile::SayWriteFailed(const std::string& workingPath, VKT::XFileResult result, Log& log) const
{
    const std::error_code error = TryMore(workingPath);
    log.Say(Quoted(m_Path) + " could not be written to its end" + (error ? ": " + ReasonOf(error) : ""));
    return result;
}

}  // namespace tool
