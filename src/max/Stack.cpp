#include "max/Stack.h"

#include <max.h>
// The umbrella header leaves this out.
#include <modstack.h>

#include "max/ClassId.h"

namespace VKTMax {

std::vector<StackModifier> ReadStack(INode* node)
{
    std::vector<StackModifier> modifiers;
    Object* object = node->GetObjectRef();
    while (object && object->SuperClassID() == GEN_DERIVOB_CLASS_ID) {
        IDerivedObject* part = static_cast<IDerivedObject*>(object);
        object = part->GetObjRef();
        const HostObject below = ReadObject(object);
        for (int i = 0; i < part->NumModifiers(); ++i)
            modifiers.push_back({ToHostClass(part->GetModifier(i)->ClassID()), below});
    }
    return modifiers;
}

}  // namespace VKTMax
