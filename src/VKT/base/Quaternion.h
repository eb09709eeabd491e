#pragma once

#include "VKT/base/Vectors.h"

namespace VKT {

// A rotation, w last; right-handed, acting on column vectors. The identity is
// 0, 0, 0, 1.
struct alignas(16) XQuaternion {
    f32 x, y, z, w;
    bool operator==(const XQuaternion&) const = default;
};

inline constexpr XQuaternion kIdentityQuaternion{0.0f, 0.0f, 0.0f, 1.0f};

// The product of two rotations: `b` acts first.
XQuaternion operator*(const XQuaternion& a, const XQuaternion& b);

// The rotation by three angles.
//
// angles   x, y, z in radians
// order    0 to 5: xyz, xzy, yxz, yzx, zxy, zyx, the first letter acting first;
//          6 to 8 act like 0; above 8 `q` becomes the identity
void XEulerToQuaternion(const XVector3& angles, u32 order, XQuaternion& q);

}  // namespace VKT
