#pragma once

#include "max/HostTypes.h"

namespace VKTMax {

// An object of the host and what tells it from others. All is empty where there is none.
struct HostObject {
    Object* handle = nullptr;
    u32 superClass = 0;  // one of `kSuper...`, or another
    bool isBipedPart = false;
    bool isBoneObject = false;

    explicit operator bool() const { return handle != nullptr; }
};

// `object` may be null.
HostObject ReadObject(Object* object);

}  // namespace VKTMax
