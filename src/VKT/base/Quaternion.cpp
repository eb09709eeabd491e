#include "VKT/base/Quaternion.h"

#include <cmath>

namespace VKT {
namespace {

// The rotation about one axis of the frame. The axis is normalised with a guard: one
// whose squared length is not above 0.0001 counts as null.
XQuaternion AxisRotation(const XVector3& axis, f32 radians)
{
    const f32 squared = axis.x * axis.x + axis.y * axis.y + axis.z * axis.z;
    const f32 scale = squared > 0.0001f ? 1.0f / std::sqrt(squared) : 0.0f;
    const f32 sine = std::sin(radians * 0.5f) * scale;
    return {axis.x * sine, axis.y * sine, axis.z * sine, std::cos(radians * 0.5f)};
}

}  // namespace

XQuaternion operator*(const XQuaternion& a, const XQuaternion& b)
{
    return {a.w * b.x + a.x * b.w + a.y * b.z - a.z * b.y, a.w * b.y - a.x * b.z + a.y * b.w + a.z * b.x,
            a.w * b.z + a.x * b.y - a.y * b.x + a.z * b.w, a.w * b.w - a.x * b.x - a.y * b.y - a.z * b.z};
}

void XEulerToQuaternion(const XVector3& angles, u32 order, XQuaternion& q)
{
    if (order > 8) {
        q = kIdentityQuaternion;
        return;
    }
    const XQuaternion turn[3] = {AxisRotation({1, 0, 0, 0}, angles.x), AxisRotation({0, 1, 0, 0}, angles.y),
                                 AxisRotation({0, 0, 1, 0}, angles.z)};
    static constexpr u8 axes[6][3] = {{0, 1, 2}, {0, 2, 1}, {1, 0, 2}, {1, 2, 0}, {2, 0, 1}, {2, 1, 0}};
    const u8* axis = axes[order > 5 ? 0 : order];
    q = turn[axis[2]] * turn[axis[1]] * turn[axis[0]];
}

}  // namespace VKT
