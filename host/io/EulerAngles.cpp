#include "host/io/EulerAngles.h"

#include <cmath>
#include <numbers>
#include <utility>

namespace maxhost::io {

namespace {

constexpr double kPi = std::numbers::pi;

// Whole turns added so that the angle comes nearest to another.
double Unwrapped(double angle, double near)
{
    return angle + 2.0 * kPi * std::round((near - angle) / (2.0 * kPi));
}

Vector Unwrapped(const Vector& angles, const Vector& near)
{
    return {Unwrapped(angles.x, near.x), Unwrapped(angles.y, near.y), Unwrapped(angles.z, near.z)};
}

}  // namespace

Vector EulerAnglesNear(const Quaternion& q, const Vector& near)
{
    const Matrix m = RotationMatrix(q);
    // How far X is from straight up or down, where only the sum or difference of the
    // other two angles is known.
    const double level = std::hypot(m.x.x, m.x.y);
    constexpr double kUpright = 1e-7;
    const double y = std::atan2(-m.x.z, level);
    if (level < kUpright) {
        // The turn about X stays where it was.
        const double sine = m.x.z > 0.0 ? 1.0 : -1.0;
        const double turned = std::atan2(-m.y.x, m.y.y);
        return Unwrapped({near.x, y, turned - sine * near.x}, near);
    }
    const Vector direct = Unwrapped({std::atan2(m.y.z, m.z.z), y, std::atan2(m.x.y, m.x.x)}, near);
    const Vector flipped = Unwrapped({direct.x + kPi, kPi - y, direct.z + kPi}, near);
    return Length(direct - near) <= Length(flipped - near) ? direct : flipped;
}

Quaternion FromEulerAngles(const Vector& angles)
{
    const auto half = [](double angle) { return std::pair(std::sin(angle / 2.0), std::cos(angle / 2.0)); };
    const auto [sx, cx] = half(angles.x);
    const auto [sy, cy] = half(angles.y);
    const auto [sz, cz] = half(angles.z);
    return Quaternion{0.0, 0.0, sz, cz} * Quaternion{0.0, sy, 0.0, cy} * Quaternion{sx, 0.0, 0.0, cx};
}

}  // namespace maxhost::io
