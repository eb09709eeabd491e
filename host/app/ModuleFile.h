#pragma once

#include <string>

#include "maxtypes.h"

namespace maxhost {

// A shared library of the system, open as long as the object lives. Where the system
// doesn't do it, the library's DllMain, if it exports one, is told of both ends.
class ModuleFile {
public:
    // IsOpen is false when that fails; `error` then holds the system's words.
    ModuleFile(const std::string& path, std::string& error);
    ModuleFile(const ModuleFile&) = delete;
    ModuleFile& operator=(const ModuleFile&) = delete;
    ~ModuleFile();

    bool IsOpen() const { return m_Handle != nullptr; }
    HINSTANCE GetHandle() const { return m_Handle; }

    // Null when the library exports no such function.
    template <class Function>
    Function* Find(const char* name) const
    {
        return reinterpret_cast<Function*>(FindSymbol(m_Handle, name));
    }
    static void* FindSymbol(HINSTANCE handle, const char* name);

private:
    HINSTANCE m_Handle = nullptr;
};

}  // namespace maxhost
