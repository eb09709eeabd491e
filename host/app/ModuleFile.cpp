#include "host/app/ModuleFile.h"

#ifndef _WIN32
#include <dlfcn.h>
#endif

namespace maxhost {

#ifdef _WIN32

ModuleFile::ModuleFile(const std::string& path, std::string& error) : m_Handle(LoadLibraryA(path.c_str()))
{
    if (!m_Handle)
        error = "system error " + std::to_string(GetLastError());
}

ModuleFile::~ModuleFile()
{
    if (m_Handle)
        FreeLibrary(m_Handle);
}

void* ModuleFile::FindSymbol(HINSTANCE handle, const char* name)
{
    return reinterpret_cast<void*>(GetProcAddress(handle, name));
}

#else

namespace {

using EntryFunction = int(HINSTANCE, DWORD, LPVOID);

}  // namespace

ModuleFile::ModuleFile(const std::string& path, std::string& error)
    : m_Handle(static_cast<HINSTANCE>(dlopen(path.c_str(), RTLD_NOW | RTLD_LOCAL)))
{
    if (!m_Handle)
        error = dlerror();
    else if (EntryFunction* entry = Find<EntryFunction>("DllMain"))
        entry(m_Handle, DLL_PROCESS_ATTACH, nullptr);
}

ModuleFile::~ModuleFile()
{
    if (!m_Handle)
        return;
    if (EntryFunction* entry = Find<EntryFunction>("DllMain"))
        entry(m_Handle, DLL_PROCESS_DETACH, nullptr);
    dlclose(m_Handle);
}

void* ModuleFile::FindSymbol(HINSTANCE handle, const char* name)
{
    return handle ? dlsym(handle, name) : nullptr;
}

#endif

}  // namespace maxhost
