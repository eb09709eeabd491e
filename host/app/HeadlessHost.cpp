#include "host/app/HeadlessHost.h"

#include <algorithm>
#include <cctype>
#include <cstdlib>
#include <exception>
#include <filesystem>

#include "host/app/HostInterface.h"
#include "host/app/Module.h"
#include "host/controllers/Controllers.h"
#include "host/controllers/PRSController.h"
#include "host/core/Scene.h"
#include "host/materials/Materials.h"
#include "host/modifiers/Modifiers.h"
#include "host/objects/Objects.h"
#include "impapi.h"

namespace maxhost {

namespace {

std::string LowerCase(std::string text)
{
    std::transform(text.begin(), text.end(), text.begin(),
                   [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
    return text;
}

std::unique_ptr<Scene> NewScene()
{
    return std::make_unique<Scene>([] { return new PRSController; });
}

}  // namespace

HeadlessHost& HeadlessHost::Get()
{
    static HeadlessHost host;
    return host;
}

HeadlessHost::HeadlessHost() : m_Scene(NewScene()), m_Interface(std::make_unique<HostInterface>(*this))
{
    AddObjectClasses(m_Classes);
    AddModifierClasses(m_Classes);
    AddControllerClasses(m_Classes);
    AddMaterialClasses(m_Classes);
}

HeadlessHost::~HeadlessHost()
{
    m_Scene.reset();
    SceneObjects::FreeAll();
}

Interface& HeadlessHost::GetInterface()
{
    return *m_Interface;
}

void HeadlessHost::Reset()
{
    m_Scene.reset();
    SceneObjects::FreeAll();
    m_Scene = NewScene();
}

void HeadlessHost::SetDirectory(int which, const std::string& path)
{
    m_Directories[which] = path;
}

const std::string& HeadlessHost::GetDirectory(int which)
{
    std::string& path = m_Directories[which];
    if (path.empty())
        path = std::filesystem::temp_directory_path().string();
    return path;
}

bool HeadlessHost::LoadModule(const std::string& path, std::string& error)
{
    std::unique_ptr<Module> module = Module::Load(path, m_Classes, error);
    if (!module)
        return false;
    m_Modules.push_back(std::move(module));
    // A module that is still loaded when the program ends is shut down before its own
    // static objects die: they were made before this handler is entered.
    std::atexit([] { Get().UnloadModules(); });
    return true;
}

void HeadlessHost::UnloadModules()
{
    while (!m_Modules.empty())
        m_Modules.pop_back();
}

SceneExport* HeadlessHost::FindExporter(const std::string& extension)
{
    for (ClassDesc* desc : m_Classes.FindAll(SCENE_EXPORT_CLASS_ID)) {
        SceneExport* exporter = static_cast<SceneExport*>(desc->Create(FALSE));
        if (!exporter)
            continue;
        for (int i = 0; i < exporter->ExtCount(); ++i)
            if (LowerCase(exporter->Ext(i)) == extension)
                return exporter;
        delete exporter;
    }
    return nullptr;
}

int HeadlessHost::Export(const std::string& path, const ExportOptions& options, std::string& error)
{
    std::string extension = LowerCase(std::filesystem::path(path).extension().string());
    extension.erase(0, 1);
    try {
        const std::unique_ptr<SceneExport> exporter(FindExporter(extension));
        if (!exporter) {
            error = "no loaded module exports files of type \"" + extension + "\"";
            return IMPEXP_FAIL;
        }
        const DWORD flags = options.selectedOnly ? SCENE_EXPORT_SELECTED : 0;
        if (flags != 0 && !exporter->SupportsOptions(0, flags)) {
            error = std::string(exporter->ShortDesc()) + " can't export a selection";
            return IMPEXP_FAIL;
        }
        ExpInterface expInterface;
        return exporter->DoExport(path.c_str(), &expInterface, m_Interface.get(), options.suppressPrompts,
                                  flags);
    } catch (const std::exception& exception) {
        error = std::string("the exporter failed: ") + exception.what();
        return IMPEXP_FAIL;
    }
}

void HeadlessHost::WriteDebugText(const char* text) const
{
    if (m_DebugListener)
        m_DebugListener(text);
}

}  // namespace maxhost
