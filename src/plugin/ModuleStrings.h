#pragma once

#include <max.h>

namespace VKTMax {

// Numbers of the module's string table.
enum StringId : UINT {
    kStringDescription = 1,
    kStringCategory = 2,
    kStringClassName = 3,
    kNumStrings = 6,
};

// The loaded module, whose resources strings and dialogs come from; null until its entry
// function has told.
HINSTANCE GetModuleInstance();
void SetModuleInstance(HINSTANCE module);

// A string of the module, cut to 255 characters; empty when the table does not have it,
// null while the module is not known. It stays good as long as the module.
const char* GetModuleString(StringId id);

}  // namespace VKTMax
