#pragma once

#include <filesystem>
#include <functional>
#include <string>
#include <system_error>

#include "VKT/base/FileResult.h"

namespace tool {

class Log;

// The file that a command writes.
//
// It is written in a private folder beside its target and takes the target's place when it
// is complete and on the disk, so that whatever ends a run leaves the old file. Where OUT is
// a link, the file that it leads to is the target.
class OutputFile {
public:
    explicit OutputFile(const std::string& path);

    // Asked before any work. Refuses what is no regular file, what its owner or the system
    // protects, and `input` under another name. OUT may go by the very name of the input
    // when `mayReplaceInput`. Answers `kSuccess`, or the exit status after a message.
    int Check(const std::string& input, bool mayReplaceInput, Log& log) const;

    // `write` makes the file of that path and answers an exit status. Unless that is
    // `kSuccess`, and the file can take its place, the old one stays.
    //
    // The path ends in .vkt whatever OUT ends in: the exporter and the loader go by that.
    using Writer = std::function<int(const std::string& workingPath)>;
    int Replace(Log& log, const Writer& write) const;

    // For a `Writer` that failed: says so, with the reason when the disk takes no more.
    // Answers the exit status.
    int SayWriteFailed(const std::string& workingPath, VKT::XFileResult result, Log& log) const;
    // Whether the disk takes more of that file.
    static std::error_code TryMore(const std::string& workingPath);

    const std::string& GetPath() const { return m_Path; }

private:
    // Each answers why OUT cannot be written; empty when it can.
    std::string FindRefusal(const std::string& input, bool mayReplaceInput) const;
    std::string FindRefusalOfOld(const std::string& input, bool mayReplaceInput) const;
    int Refuse(const std::string& reason, Log& log) const;

    std::string m_Path;  // as it was given
    std::filesystem::path m_Target;
};

}  // namespace tool
