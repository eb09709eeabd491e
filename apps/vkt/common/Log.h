#pragma once

#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "VKT/base/FileResult.h"
#include "VKT/base/Logger.h"

namespace tool {

// Everything that goes to standard error: the library's messages under its prefixes and
// the tool's own under "vkt: ".
//
// A scene can bring out one message a thousand times. Messages are therefore kept until
// `Flush` and come out in the order of their first appearance, each in one line with a
// count: those that are equal, and those that differ in what they quote alone, of which
// the first is shown. A verbose log shows each message at once.
class Log final : public VKT::XLogger {
public:
    Log() = default;
    Log(const Log&) = delete;
    Log& operator=(const Log&) = delete;
    ~Log() override { Flush(); }

    void SetVerbose(bool verbose) { m_Verbose = verbose; }
    bool IsVerbose() const { return m_Verbose; }

    void LogString(VKT::XLogLevel level, const VKT::XString& message) override;
    // Takes a line of another logger, with its prefix.
    void AddLine(const std::string& line);
    void Flush();
    // From now on messages show `name` wherever they hold `path`, such as that of a working
    // file.
    void ShowAs(std::string path, std::string name);

    // The tool's own words, behind all that is kept.
    void Say(std::string_view text);
    // Says what a failed load came to, and answers the exit status for it.
    int SayLoadFailed(std::string_view path, VKT::XFileResult result);

    // What is being done, for someone who waits: one line that the next output replaces.
    // Shown when standard error is a terminal and the log is not verbose.
    void ShowProgress(std::string_view text);

private:
    // Messages that are alike but for what they quote.
    struct Kind {
        std::string first;
        std::size_t equal = 0;  // to the first, which counts
        std::size_t others = 0;
    };

    std::string Renamed(std::string line) const;
    void Print(std::string_view line);
    void ClearProgress();

    std::vector<Kind> m_Kinds;
    std::unordered_map<std::string, std::size_t> m_KindByPattern;
    std::string m_HiddenPath;  // empty for none
    std::string m_ShownName;
    bool m_Verbose = false;
    bool m_ShowsProgress = false;
};

}  // namespace tool
