#pragma once

#include <max.h>

#include "max/HostClasses.h"

namespace VKTMax {

inline Class_ID ToClassId(HostClass type)
{
    return Class_ID(type.a, type.b);
}

inline HostClass ToHostClass(Class_ID type)
{
    return {static_cast<u32>(type.PartA()), static_cast<u32>(type.PartB())};
}

inline bool IsSubClassOf(Object& object, HostClass type)
{
    return object.IsSubClassOf(ToClassId(type)) != 0;
}

}  // namespace VKTMax
