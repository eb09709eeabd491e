#include "plugin/PluginEntry.h"

#include <iterator>

#include "VKT/node/FnRegistry.h"
#include "plugin/MaxExporter.h"
#include "plugin/ModuleStrings.h"

namespace VKTMax {
namespace {

VKTMaxExporterClassDesc s_ExporterClass;
ClassDesc* const s_Classes[] = {&s_ExporterClass};

}  // namespace

// The host takes the result for a pointer to exactly this base.
void* VKTMaxExporterClassDesc::Create(BOOL)
{
    return static_cast<SceneExport*>(new VKTMaxExporter);
}

const MCHAR* VKTMaxExporterClassDesc::ClassName()
{
    return GetModuleString(kStringClassName);
}

const MCHAR* VKTMaxExporterClassDesc::Category()
{
    return GetModuleString(kStringCategory);
}

HINSTANCE VKTMaxExporterClassDesc::HInstance()
{
    return GetModuleInstance();
}

const char* DescribePlugin()
{
    const char* text = GetModuleString(kStringDescription);
    return text && *text ? text : nullptr;
}

int CountPluginClasses()
{
    return static_cast<int>(std::size(s_Classes));
}

ClassDesc* FindPluginClass(int i)
{
    return i >= 0 && i < CountPluginClasses() ? s_Classes[i] : nullptr;
}

bool StartPlugin()
{
    VKT::XRegisterTypes(nullptr);
    return true;
}

bool StopPlugin()
{
    return VKT::XFnShutdown();
}

}  // namespace VKTMax
