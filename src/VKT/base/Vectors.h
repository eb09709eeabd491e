#pragma once

#include "VKT/base/Types.h"

namespace VKT {

// The small value types. All are trivial, so that large arrays of them need not be
// cleared before a read fills them; write `XVector3 v{}` where zeroes are wanted.

struct XVector2 {
    f32 x, y;
    bool operator==(const XVector2&) const = default;
};

// Three floats, held as four for alignment. The fourth is not stored in files and
// stays 0.
struct alignas(16) XVector3 {
    f32 x, y, z, w;
    bool operator==(const XVector3&) const = default;
};

struct alignas(16) XVector4 {
    f32 x, y, z, w;
    bool operator==(const XVector4&) const = default;
};

// Red, green, blue and alpha, nominally 0 to 1.
struct alignas(16) XColour {
    f32 r, g, b, a;
    bool operator==(const XColour&) const = default;
};

inline XVector3 operator+(const XVector3& a, const XVector3& b)
{
    return {a.x + b.x, a.y + b.y, a.z + b.z, 0.0f};
}
inline XVector3 operator-(const XVector3& a, const XVector3& b)
{
    return {a.x - b.x, a.y - b.y, a.z - b.z, 0.0f};
}
inline XVector3 operator-(const XVector3& a)
{
    return {-a.x, -a.y, -a.z, 0.0f};
}
inline XVector3 operator*(const XVector3& a, f32 factor)
{
    return {a.x * factor, a.y * factor, a.z * factor, 0.0f};
}

}  // namespace VKT
