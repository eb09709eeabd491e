#pragma once

#include <cstdio>
#include <memory>
#include <string>

namespace tool {

class Log;

// While one lives, nothing reaches standard output: what a plug-in prints there, its
// messages above all, goes to the log. A verbose log shows it at once, else it follows
// when the plug-in is done, but for messages that come by rule.
class PluginOutput {
public:
    explicit PluginOutput(Log& log);
    ~PluginOutput();
    PluginOutput(const PluginOutput&) = delete;
    PluginOutput& operator=(const PluginOutput&) = delete;

private:
    struct CloseFile {
        void operator()(std::FILE* file) const { std::fclose(file); }
    };

    void PassOn();
    void Take(const std::string& line);

    Log& m_Log;
    std::unique_ptr<std::FILE, CloseFile> m_Kept;  // null when all goes to standard error
    int m_Saved;
};

}  // namespace tool
