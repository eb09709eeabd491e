#pragma once

#include "max/HostTypes.h"

namespace VKTMax {

// A class of the host, by both words of its id.
struct HostClass {
    u32 a;
    u32 b;
    bool operator==(const HostClass&) const = default;
};

// The classes that are told apart by their ids. Where the host's own headers name one, the
// numbers are compared with theirs when this is compiled (HostClasses.cpp).
// clang-format off

// Objects.
inline constexpr HostClass kTriObject     {0x00000009, 0x00000000};
inline constexpr HostClass kPolyObject    {0x5D21369A, 0x00000000};
inline constexpr HostClass kPatchObject   {0x00001030, 0x00000000};
inline constexpr HostClass kObject40      {0x00000040, 0x00000000};  // known by its number alone
inline constexpr HostClass kBipedPart     {0x00009125, 0x00000000};
inline constexpr HostClass kBoneObject    {0x28BF6E8D, 0x2ECCA840};

// Modifiers.
inline constexpr HostClass kPhysique      {0x00000100, 0x00000000};
inline constexpr HostClass kSkin          {0x0095C723, 0x00015666};
inline constexpr HostClass kMorpher       {0x17BB6854, 0xA5CBA2A3};

// Super classes: the kinds of things that classes belong to.
inline constexpr u32 kSuperGeometry = 0x0010;

// clang-format on

}  // namespace VKTMax
