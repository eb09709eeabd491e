#pragma once

#include <functional>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include "host/core/ClassDirectory.h"
#include "max.h"

namespace maxhost {

class Module;
class Scene;

// The host as a process runs it: one scene, one clock, one class directory, the loaded
// modules. There is one, as plug-ins reach it through free functions.
class CoreExport HeadlessHost {
public:
    static HeadlessHost& Get();

    // What plug-ins get by GetCOREInterface.
    Interface& GetInterface();
    ClassDirectory& GetClasses() { return m_Classes; }
    Scene& GetScene() { return *m_Scene; }

    // Closes the scene: every object of it is freed, the clock and the animation range
    // are as at the start. Modules, folders and the listener stay.
    void Reset();

    // What Interface::GetDir answers for an APP_*_DIR number. All start as the system's
    // folder for temporary files.
    void SetDirectory(int which, const std::string& path);
    const std::string& GetDirectory(int which);

    // Loads a plug-in module and registers its classes. False when it can't be loaded,
    // is no plug-in, was built for another release or refuses; `error` then says why.
    bool LoadModule(const std::string& path, std::string& error);
    // Shuts down and unloads all modules, last one first.
    void UnloadModules();
    const std::vector<std::unique_ptr<Module>>& GetModules() const { return m_Modules; }

    struct ExportOptions {
        bool selectedOnly = false;
        bool suppressPrompts = true;
    };
    // Writes the scene by the exporter that takes the path's extension. Answers what
    // the exporter did, one of IMPEXP_*; IMPEXP_FAIL with `error` set when there is
    // none, it can't export a selection, or it threw.
    int Export(const std::string& path, const ExportOptions& options, std::string& error);

    // Who hears OutputDebugString; nobody at the start.
    using DebugListener = std::function<void(const char* text)>;
    void SetDebugListener(DebugListener listener) { m_DebugListener = std::move(listener); }
    void WriteDebugText(const char* text) const;

private:
    HeadlessHost();
    ~HeadlessHost();
    SceneExport* FindExporter(const std::string& extension);

    ClassDirectory m_Classes;
    std::unique_ptr<Scene> m_Scene;
    std::unique_ptr<Interface> m_Interface;
    std::vector<std::unique_ptr<Module>> m_Modules;
    std::map<int, std::string> m_Directories;
    DebugListener m_DebugListener;
};

}  // namespace maxhost
