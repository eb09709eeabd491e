#include "plugin/ModuleStrings.h"

namespace VKTMax {
namespace {

HINSTANCE s_Module = nullptr;

}  // namespace

HINSTANCE GetModuleInstance()
{
    return s_Module;
}

void SetModuleInstance(HINSTANCE module)
{
    s_Module = module;
}

// Each string has a buffer of its own: the host may hold several at a time.
const char* GetModuleString(StringId id)
{
    static char buffers[kNumStrings][256];
    if (!s_Module)
        return nullptr;
    char* buffer = buffers[id];
    if (LoadString(s_Module, id, buffer, sizeof(buffers[id])) == 0)
        buffer[0] = '\0';
    return buffer;
}

}  // namespace VKTMax
