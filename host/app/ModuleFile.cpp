#include "host/app/ModuleFile.h"

#ifndef _WIN32
#include <dlfcn.h>
#endif

namespace maxhost {

#ifdef _WIN32

ModuleFile::ModuleFile(const std::string& path, std::string& error) : m_handle(LoadLibraryA(path.c_str()))
{
    if (!m_handle)
        error = "system error " + std::to_string(GetLastError());
}

ModuleFile::~ModuleFile()
{
    if (m_handle)
        FreeLibrary(m_handle);
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
    : m_handle(static_cast<HINSTANCE>(dlopen(path.c_str(), RTLD_NOW | RTLD_LOCAL)))
{
    if (!m_handle)
        error = dlerror();
    else if (EntryFunction* entry = Find<EntryFunction>("DllMain"))
        entry(m_handle, DLL_PROCESS_ATTACH, nullptr);
}

ModuleFile::~ModuleFile()
{
    if (!m_handle)
        return;
    if (EntryFunction* entry = Find<EntryFunction>("DllMain"))
        entry(m_handle, DLL_PROCESS_DETACH, nullptr);
    dlclose(m_handle);
}

void* ModuleFile::FindSymbol(HINSTANCE handle, const char* name)
{
    return handle ? dlsym(handle, name) : nullptr;
}

#endif

}  // namespace maxhost
