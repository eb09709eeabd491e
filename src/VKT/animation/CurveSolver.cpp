#include "VKT/animation/CurveSolver.h"

#include <cmath>

namespace VKT {
namespace {

// Halves the range from 0 to 1 down to where `position` is `t`.
template <class Position>
f32 Halve(f32 t, f32 start, f32 end, Position position)
{
    if (start + 1e-8f > t)
        return 0.0f;
    if (t > end - 1e-8f)
        return 1.0f;
    f32 low = 0.0f;
    f32 high = 1.0f;
    f32 u = 0.5f;
    for (int round = 0; round < 20; ++round) {
        const f32 x = position(u);
        if (std::fabs(t - x) < 0.0001f)
            break;
        if (x > t) {
            high = u;
            u = (u + low) * 0.5f;
        } else {
            low = u;
            u = (u + high) * 0.5f;
        }
    }
    return u;
}

// The real third root, with the sign of `value`.
f32 CubeRoot(f32 value)
{
    const f32 sign = value < 0.0f ? -1.0f : 1.0f;
    return sign * std::pow(sign * value, 0.33333334f);
}

// Brings a range of times to a size at which the formula loses little.
f32 ScaleFor(f32 range)
{
    if (range < 1.0f)
        return 1000000.0f;
    if (range < 10.0f)
        return 100000.0f;
    return range < 1000.0f ? 1000.0f : 1.0f;
}

}  // namespace

f32 HermitePoint(f32 u, f32 startTangent, f32 start, f32 end, f32 endTangent)
{
    const f32 squared = u * u;
    const f32 cubed = squared * u;
    const f32 h00 = 2.0f * cubed - 3.0f * squared + 1.0f;
    const f32 h10 = cubed - 2.0f * squared + u;
    const f32 h01 = 3.0f * squared - 2.0f * cubed;
    const f32 h11 = cubed - squared;
    return h10 * startTangent + h00 * start + h01 * end + h11 * endTangent;
}

f32 BezierValue(f32 u, f32 start, f32 out, f32 in, f32 end)
{
    const f32 s = 1.0f - u;
    return 3.0f * out * s * s * u + s * s * s * start + 3.0f * in * s * u * u + u * u * u * end;
}

f32 SolveHermite(f32 t, f32 start, f32 startTangent, f32 end, f32 endTangent)
{
    return Halve(t, start, end, [=](f32 u) { return HermitePoint(u, startTangent, start, end, endTangent); });
}

f32 SolveBezier(f32 t, f32 start, f32 out, f32 in, f32 end)
{
    return Halve(t, start, end, [=](f32 u) {
        const f32 s = 1.0f - u;
        return s * s * s * start + 3.0f * out * s * s * u + 3.0f * in * s * u * u + u * u * u * end;
    });
}

f32 SolveCubic(f32 t, f32 start, f32 out, f32 in, f32 end)
{
    const f32 scale = ScaleFor(end - start);
    t *= scale;
    start *= scale;
    out *= scale;
    in *= scale;
    end *= scale;
    // The cubic over its leading factor, where it has one, and without its square.
    const f32 leading = 3.0f * out - start - 3.0f * in + end;
    const f32 inverse = std::fabs(leading) > 0.0f ? 1.0f / leading : 1.0f;
    const f32 b2 = (3.0f * start - 6.0f * out + 3.0f * in) * inverse;
    const f32 b1 = (3.0f * out - 3.0f * start) * inverse;
    const f32 q1 = b1 - b2 * b2 / 3.0f;
    const f32 q0 = inverse * (start - t) - b1 * b2 / 3.0f + 2.0f * b2 * b2 * b2 / 27.0f;
    const f32 discriminant = q1 * q1 * q1 / 27.0f + q0 * q0 / 4.0f;
    if (discriminant < 0.0f)
        return SolveBezier(t, start, out, in, end);
    const f32 root = std::sqrt(discriminant);
    return CubeRoot(-q0 / 2.0f - root) + CubeRoot(root - q0 / 2.0f) - b2 / 3.0f;
}

}  // namespace VKT
