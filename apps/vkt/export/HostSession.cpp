#include "export/HostSession.h"

#include <filesystem>

#include "common/Log.h"
#include "common/Platform.h"
#include "export/PluginOutput.h"
#include "host/app/HeadlessHost.h"

namespace tool {
namespace {

namespace fs = std::filesystem;
using maxhost::HeadlessHost;

std::string FindPlugin()
{
    const fs::path beside = ProgramFolder() / VKT_PLUGIN_FILE;
    std::error_code ignored;
    if (fs::exists(beside, ignored))
        return beside.string();
    return (ProgramFolder().parent_path() / "lib" / "vkt" / VKT_PLUGIN_FILE).string();
}

}  // namespace

HostSession::HostSession(Log& log) : m_Log(log)
{
    HeadlessHost::Get().SetDirectory(APP_PLUGCFG_DIR, m_Configuration.GetPath().string());
}

HostSession::~HostSession()
{
    const PluginOutput plugin(m_Log);
    HeadlessHost::Get().Reset();
    HeadlessHost::Get().UnloadModules();
}

bool HostSession::LoadPlugin(const std::string& path)
{
    std::string error;
    bool isLoaded;
    {
        const PluginOutput plugin(m_Log);
        // A path without a folder would be looked for among the system's libraries.
        isLoaded =
            HeadlessHost::Get().LoadModule(path.empty() ? FindPlugin() : fs::absolute(path).string(), error);
    }
    if (!isLoaded)
        m_Log.Say("the plug-in cannot be loaded: " + error);
    return isLoaded;
}

bool HostSession::Export(const std::string& path, bool selectedOnly)
{
    std::string error;
    int result;
    {
        const PluginOutput plugin(m_Log);
        result =
            HeadlessHost::Get().Export(path, {.selectedOnly = selectedOnly, .suppressPrompts = true}, error);
    }
    if (result == IMPEXP_SUCCESS)
        return true;
    m_Log.Say(error.empty() ? "the plug-in could not export the scene" : error);
    return false;
}

}  // namespace tool
