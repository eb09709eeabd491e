#include "common/Log.h"

#include <cstdio>
#include <utility>

#include "common/Platform.h"
#include "common/TerminalText.h"

namespace tool {
namespace {

// A hostile file can bring out any number of different messages.
constexpr std::size_t kKeptKinds = 1000;

// The message without what stands between double quotes.
std::string PatternOf(const std::string& line)
{
    std::string pattern;
    bool isQuoted = false;
    for (const char c : line) {
        if (c == '"')
            isQuoted = !isQuoted;
        if (!isQuoted || c == '"')
            pattern += c;
    }
    return pattern;
}

// How often a message came, and how many were like it.
std::string CountText(std::size_t equal, std::size_t others)
{
    if (others > 0)
        return " (and " + std::to_string(equal - 1 + others) + " more like it, --verbose shows them)";
    return equal > 1 ? " (" + std::to_string(equal) + " times)" : "";
}

const char* LoadFailure(VKT::XFileResult result)
{
    switch (result) {
        case VKT::FileTooNew:
            return "is newer than this program can read";
        case VKT::FileOpenFailed:
            return "cannot be opened";
        case VKT::FileNotVkt:
            return "is no scene file";
        default:
            return "is damaged";
    }
}

}  // namespace

void Log::LogString(VKT::XLogLevel level, const VKT::XString& message)
{
    AddLine(VKT::GetLogPrefix(level) + message);
}

void Log::ShowAs(std::string path, std::string name)
{
    m_HiddenPath = std::move(path);
    m_ShownName = std::move(name);
}

std::string Log::Renamed(std::string line) const
{
    if (!m_HiddenPath.empty())
        for (std::size_t at = 0; (at = line.find(m_HiddenPath, at)) != std::string::npos;
             at += m_ShownName.size())
            line.replace(at, m_HiddenPath.size(), m_ShownName);
    return line;
}

void Log::AddLine(const std::string& told)
{
    const std::string line = Renamed(told);
    if (m_Verbose) {
        Print(line);
        return;
    }
    std::string pattern = PatternOf(line);
    if (m_Kinds.size() == kKeptKinds && !m_KindByPattern.contains(pattern))
        Flush();
    const auto [known, isNew] = m_KindByPattern.try_emplace(std::move(pattern), m_Kinds.size());
    if (isNew)
        m_Kinds.push_back({line});
    Kind& kind = m_Kinds[known->second];
    ++(line == kind.first ? kind.equal : kind.others);
}

void Log::Flush()
{
    ClearProgress();
    const std::vector<Kind> kinds = std::move(m_Kinds);
    m_Kinds.clear();
    m_KindByPattern.clear();
    for (const Kind& kind : kinds)
        Print(kind.first + CountText(kind.equal, kind.others));
}

void Log::Say(std::string_view text)
{
    Flush();
    Print("vkt: " + std::string(text));
}

int Log::SayLoadFailed(std::string_view path, VKT::XFileResult result)
{
    Say(Quoted(path) + " " + LoadFailure(result));
    return result;
}

void Log::ShowProgress(std::string_view text)
{
    if (m_Verbose || !IsStandardErrorTerminal())
        return;
    ClearProgress();
    std::fputs(CleanText(text).c_str(), stderr);
    std::fflush(stderr);
    m_ShowsProgress = true;
}

void Log::ClearProgress()
{
    if (m_ShowsProgress)
        std::fputs("\r\x1b[K", stderr);  // back to the start of the line, and erase it
    m_ShowsProgress = false;
}

void Log::Print(std::string_view line)
{
    ClearProgress();
    std::fputs((CleanText(line) + "\n").c_str(), stderr);
}

}  // namespace tool
