// The module that the host loads: its entry function, and the functions that the host
// looks for by name.

#include "plugin/ModuleStrings.h"
#include "plugin/PluginEntry.h"

// Systems without entry functions get it called by the host.
extern "C" DllExport BOOL WINAPI DllMain(HINSTANCE module, DWORD reason, LPVOID)
{
    if (reason == DLL_PROCESS_ATTACH)
        VKTMax::SetModuleInstance(module);
    return TRUE;
}

extern "C" DllExport const MCHAR* LibDescription()
{
    return VKTMax::DescribePlugin();
}

extern "C" DllExport int LibNumberClasses()
{
    return VKTMax::CountPluginClasses();
}

extern "C" DllExport ClassDesc* LibClassDesc(int i)
{
    return VKTMax::FindPluginClass(i);
}

// A build against another SDK has its own number, and runs in that release alone.
extern "C" DllExport ULONG LibVersion()
{
    return VERSION_3DSMAX;
}

extern "C" DllExport int LibInitialize()
{
    return VKTMax::StartPlugin();
}

extern "C" DllExport int LibShutdown()
{
    return VKTMax::StopPlugin();
}

#ifndef _WIN32
// Stands in for the string table of a resource section.
extern "C" DllExport const char* ModuleString(unsigned int id)
{
    switch (id) {
#define STRING(number, text) \
    case number:             \
        return text;
#include "plugin/Strings.inc"
#undef STRING
        default:
            return nullptr;
    }
}
#endif
