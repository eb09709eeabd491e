#include "host/modifiers/Modifiers.h"

#include "host/modifiers/IdentityModifier.h"
#include "iskin.h"

namespace maxhost {

void AddModifierClasses(ClassDirectory& classes)
{
    const struct {
        const char* name;
        Class_ID classID;
    } identities[] = {
        {"Skin", SKIN_CLASSID},
        {"Physique", Class_ID(0x100, 0)},
        {"Morpher", Class_ID(0x17bb6854, 0xa5cba2a3)},
        {"Bend", Class_ID(0x10, 0)},
        {"Taper", Class_ID(0x20, 0)},
        {"Twist", Class_ID(0x90, 0)},
        {"Ripple", Class_ID(0x45, 0)},
        {"Wave", Class_ID(0x47, 0)},
        {"Stretch", Class_ID(0x100b0, 0xbc2d21)},
        {"FFD 2x2x2", Class_ID(0x21325596, 0x2cd10bd0)},
        {"FFD 3x3x3", Class_ID(0x21325596, 0x2cd10bd9)},
        {"FFD 4x4x4", Class_ID(0x21325596, 0x2cd10bd8)},
        {"FFD(box)", Class_ID(0x8ab36cc5, 0x82d7fe74)},
        {"FFD(cyl)", Class_ID(0x98f37a63, 0x3ffe9bca)},
    };
    for (const auto& one : identities)
        classes.AddBuiltIn(
            std::make_unique<BuiltInClass<Modifier, IdentityModifier>>(one.name, OSM_CLASS_ID, one.classID));
}

}  // namespace maxhost
