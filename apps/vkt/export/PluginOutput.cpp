#include "export/PluginOutput.h"

#include <string>

#include "common/Log.h"
#include "common/Platform.h"

namespace tool {

PluginOutput::PluginOutput(Log& log)
    : m_Log(log),
      m_Kept(log.IsVerbose() ? nullptr : std::tmpfile()),
      m_Saved(RedirectStandardOutput(m_Kept ? m_Kept.get() : stderr))
{
}

PluginOutput::~PluginOutput()
{
    if (m_Saved < 0)
        return;
    RestoreStandardOutput(m_Saved);
    if (m_Kept)
        PassOn();
}

namespace {

// The exporter's walk hangs each bone under its parent a second time, which the library
// refuses with this line: it says nothing of the scene.
bool ComesByRule(const std::string& line)
{
    return line.rfind("Error : Cannot add \"", 0) == 0;
}

}  // namespace

void PluginOutput::PassOn()
{
    std::rewind(m_Kept.get());
    std::string line;
    for (int c; (c = std::fgetc(m_Kept.get())) != EOF;) {
        if (c != '\n') {
            line += static_cast<char>(c);
            continue;
        }
        Take(line);
        line.clear();
    }
    if (!line.empty())
        Take(line);
}

void PluginOutput::Take(const std::string& line)
{
    if (!ComesByRule(line))
        m_Log.AddLine(line);
}

}  // namespace tool
