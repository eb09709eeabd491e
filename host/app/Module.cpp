#include "host/app/Module.h"

namespace maxhost {

namespace {

using DescriptionFunction = const MCHAR*();
using NumberFunction = int();
using ClassFunction = ClassDesc*(int);
using VersionFunction = ULONG();

constexpr ULONG kVersion = VERSION_3DSMAX;

}  // namespace

Module::Module(const std::string& path, ClassDirectory& directory, std::string& error)
    : m_Path(path), m_Directory(directory), m_File(path, error)
{
}

std::unique_ptr<Module> Module::Load(const std::string& path, ClassDirectory& classes, std::string& error)
{
    std::string reason;
    std::unique_ptr<Module> module(new Module(path, classes, reason));
    if (module->m_File.IsOpen() && module->Start(reason) && module->Register(reason))
        return module;
    error = path + ": " + reason;
    return nullptr;
}

bool Module::Start(std::string& error)
{
    for (const char* name : {"LibVersion", "LibDescription", "LibNumberClasses", "LibClassDesc"}) {
        if (!ModuleFile::FindSymbol(m_File.GetHandle(), name)) {
            error = std::string("is no plug-in: it does not export ") + name;
            return false;
        }
    }
    const ULONG version = m_File.Find<VersionFunction>("LibVersion")();
    if (version != kVersion) {
        error = "was built for version " + std::to_string(version) + " of the host, this is version " +
                std::to_string(kVersion);
        return false;
    }
    NumberFunction* initialize = m_File.Find<NumberFunction>("LibInitialize");
    if (initialize && initialize() == 0) {
        error = "refused to start";
        return false;
    }
    m_Started = true;
    const MCHAR* description = m_File.Find<DescriptionFunction>("LibDescription")();
    m_Description = description ? description : "";
    return true;
}

bool Module::Register(std::string& error)
{
    const int count = m_File.Find<NumberFunction>("LibNumberClasses")();
    ClassFunction* describe = m_File.Find<ClassFunction>("LibClassDesc");
    for (int i = 0; i < count; ++i) {
        ClassDesc* desc = describe(i);
        if (!desc) {
            error = "has no class " + std::to_string(i) + " of " + std::to_string(count);
            return false;
        }
        if (!m_Directory.Add(*desc)) {
            error = std::string("brings class \"") + desc->ClassName() + "\", which is there already";
            return false;
        }
        m_Classes.push_back(desc);
    }
    return true;
}

Module::~Module()
{
    for (ClassDesc* desc : m_Classes)
        m_Directory.Remove(*desc);
    NumberFunction* shutdown = m_Started ? m_File.Find<NumberFunction>("LibShutdown") : nullptr;
    if (shutdown)
        shutdown();
}

}  // namespace maxhost
