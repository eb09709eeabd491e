#include "max/HostObject.h"

#include "max/ClassId.h"

namespace VKTMax {

HostObject ReadObject(Object* object)
{
    if (!object)
        return {};
    return {.handle = object,
            .superClass = static_cast<u32>(object->SuperClassID()),
            .isBipedPart = IsSubClassOf(*object, kBipedPart),
            .isBoneObject = IsSubClassOf(*object, kBoneObject)};
}

}  // namespace VKTMax
