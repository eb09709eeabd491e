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

void PluginOutput::PassOn()
{
    std::rewind(m_Kept.get());
    std::string line;
    for (int c; (c = std::fgetc(m_Kept.get())) != EOF;) {
        if (c != '\n') {
            line += static_cast<char>(c);
            continue;
        }
        m_Log.AddLine(line);
        line.clear();
    }
    if (!line.empty())
        m_Log.AddLine(line);
}

}  // namespace tool
