#include "VKT/animation/CurveEvaluator.h"

#include <algorithm>
#include <cmath>

#include "VKT/animation/CurveSolver.h"

namespace VKT {
namespace {

// A cycle is unrolled turn by turn up to here; what is further away is reached at once,
// so that no time takes long.
constexpr u32 kMostTurns = 10000;

bool IsInterpolation(u32 interpolation)
{
    return interpolation <= kHermite2D ||
           (interpolation >= kTimedCatmullRom && interpolation <= kSmoothedStep);
}

// A curve without its infinities.
class Interpolator {
public:
    Interpolator(const XAnimCurve& curve, u32 bound)
        : m_Curve(curve),
          m_Bound(bound),
          m_NumKeys(curve.GetNumKeys()),
          m_Last(m_NumKeys > 0 ? m_NumKeys - 1 : 0)
    {
    }

    f32 T(u32 key) const { return At(key, 0); }
    f32 V(u32 key) const { return At(key, 1); }
    u32 Last() const { return m_Last; }

    // The curve's value; the interpolation has a meaning.
    f32 operator()(f32 t) const;

private:
    struct Segment {
        u32 left;
        u32 right;
    };
    // The tangents at both ends of a segment.
    struct Tangents {
        f32 left;
        f32 right;
    };

    f32 At(u32 key, u32 part) const { return key < m_Bound ? m_Curve.GetKey(key, part) : 0.0f; }
    // At the ends a key stands in for its missing neighbour.
    u32 Previous(u32 key) const { return key > 0 ? key - 1 : key; }
    u32 Next(u32 key) const { return key < m_Last ? key + 1 : key; }

    Segment Find(f32 t) const;
    f32 Bezier2D(f32 t, Segment s) const;
    f32 Hermite2D(f32 t, Segment s) const;
    f32 SmoothedStep(f32 t, Segment s) const;
    f32 Timed(f32 t, Segment s, Tangents times, Tangents values) const;
    f32 Hermite(f32 u, Segment s, Tangents values) const
    {
        return HermitePoint(u, values.left, V(s.left), V(s.right), values.right);
    }

    // Half the way between the neighbours, of times (part 0) or values (part 1).
    f32 CatmullRom(u32 key, u32 part) const { return (At(Next(key), part) - At(Previous(key), part)) * 0.5f; }
    Tangents CatmullRom(Segment s, u32 part) const
    {
        return {CatmullRom(s.left, part), CatmullRom(s.right, part)};
    }
    f32 Incoming(u32 key, u32 part) const;
    f32 Outgoing(u32 key, u32 part) const;

    const XAnimCurve& m_Curve;
    u32 m_Bound;
    u32 m_NumKeys;
    u32 m_Last;
};

// The keys around a time: twice the first before it, twice the last behind it.
Interpolator::Segment Interpolator::Find(f32 t) const
{
    if (t < T(0))
        return {0, 0};
    const u32 seen = std::min(m_Bound, m_NumKeys);
    u32 key = 1;
    if (m_Curve.TimesAscend()) {
        for (u32 end = seen; key < end;) {
            const u32 middle = key + (end - key) / 2;
            if (T(middle) > t)
                end = middle;
            else
                key = middle + 1;
        }
    } else {
        while (key < seen && !(T(key) > t))
            ++key;
    }
    // Beyond the bound one key stands for all.
    return key < m_NumKeys && T(key) > t ? Segment{key - 1, key} : Segment{m_Last, m_Last};
}

// The tangents of Kochanek and Bartels, with tension, continuity and bias of the key.
f32 Interpolator::Incoming(u32 key, u32 part) const
{
    const f32 tension = At(key, 2);
    const f32 continuity = At(key, 3);
    const f32 bias = At(key, 4);
    return (1.0f + bias) * (1.0f - tension) * (1.0f - continuity) / 2.0f *
               (At(key, part) - At(Previous(key), part)) +
           (1.0f - bias) * (1.0f - tension) * (1.0f + continuity) / 2.0f *
               (At(Next(key), part) - At(key, part));
}

f32 Interpolator::Outgoing(u32 key, u32 part) const
{
    const f32 tension = At(key, 2);
    const f32 continuity = At(key, 3);
    const f32 bias = At(key, 4);
    return (1.0f + bias) * (1.0f - tension) * (1.0f + continuity) / 2.0f *
               (At(key, part) - At(Previous(key), part)) +
           (1.0f - bias) * (1.0f - tension) * (1.0f - continuity) / 2.0f *
               (At(Next(key), part) - At(key, part));
}

f32 Interpolator::operator()(f32 t) const
{
    const Segment s = Find(t);
    switch (m_Curve.GetInterpolation()) {
        case kStep:
            return V(s.left);
        case kBezier2D:
            return Bezier2D(t, s);
        case kHermite2D:
            return Hermite2D(t, s);
        case kSmoothedStep:
            return SmoothedStep(t, s);
        default:
            break;
    }
    const f32 span = T(s.right) - T(s.left);
    if (!(span > 0.0f))
        return V(s.left);
    const f32 u = (t - T(s.left)) / span;
    switch (m_Curve.GetInterpolation()) {
        case kLinear:
            return V(s.left) + u * (V(s.right) - V(s.left));
        // Kept on purpose: the tension of cardinal keys takes no part, so that they run
        // as Catmull-Rom curves do.
        case kCatmullRom:
        case kCardinal:
            return Hermite(u, s, CatmullRom(s, 1));
        // Kept on purpose: both ends take the incoming tangent.
        case kTCB:
            return Hermite(u, s, {Incoming(s.left, 1), Incoming(s.right, 1)});
        case kBezier1D:
            return BezierValue(u, V(s.left), At(s.left, 3), At(s.right, 2), V(s.right));
        case kHermite1D:
            return Hermite(u, s, {At(s.left, 3), At(s.right, 2)});
        case kTimedCatmullRom:
        case kTimedCardinal:
            return Timed(t, s, CatmullRom(s, 0), CatmullRom(s, 1));
        default:  // kTimedTCB
            return Timed(t, s, {Outgoing(s.left, 0), Incoming(s.right, 0)},
                         {Outgoing(s.left, 1), Incoming(s.right, 1)});
    }
}

f32 Interpolator::Bezier2D(f32 t, Segment s) const
{
    if (!(t > T(s.left)))
        return V(s.left);
    if (!(t < T(s.right)))
        return V(s.right);
    const f32 u = SolveCubic(t, T(s.left), At(s.left, 4), At(s.right, 2), T(s.right));
    return BezierValue(u, V(s.left), At(s.left, 5), At(s.right, 3), V(s.right));
}

f32 Interpolator::Hermite2D(f32 t, Segment s) const
{
    const f32 u = SolveHermite(t, T(s.left), At(s.left, 4), T(s.right), At(s.right, 2));
    return Hermite(u, s, {At(s.left, 5), At(s.right, 3)});
}

f32 Interpolator::Timed(f32 t, Segment s, Tangents times, Tangents values) const
{
    return Hermite(SolveHermite(t, T(s.left), times.left, T(s.right), times.right), s, values);
}

// Kept on purpose: up to its width behind a key the blend runs to the value of the next.
f32 Interpolator::SmoothedStep(f32 t, Segment s) const
{
    if (m_NumKeys < 2)
        return V(0);
    const u32 beforeLast = m_NumKeys - 2;
    const u32 left = s.left;
    const u32 right = s.right;
    f32 start = 0;  // of the scale, whose end is `end`
    f32 end = 0;
    f32 middle = 0;  // of the blend
    f32 width = 0;   // to either side
    if (left == 0 || t - At(left, 2) > T(left)) {
        if (left >= beforeLast)
            return V(beforeLast);
        if (right + 1 > m_Last)
            return V(m_Last);
        start = T(left);
        end = T(right + 1);
        middle = T(right);
        width = At(left, 2);
    } else {
        if (left == m_Last)
            return V(beforeLast);
        start = T(left - 1);
        end = T(right);
        middle = T(left);
        width = At(right, 2);
    }
    const f32 scale = end - start;
    const f32 x = (t - start) / scale;
    const f32 lower = (middle - width - start) / scale;
    const f32 upper = (middle + width - start) / scale;
    if (x < lower)
        return V(left);
    if (x > upper || !(upper > lower))
        return V(right);
    const f32 y = (x - lower) / (upper - lower);
    const f32 smooth = (3.0f - 2.0f * y) * (y * y);
    return (1.0f - smooth) * V(left) + smooth * V(right);
}

}  // namespace

bool XEvaluateCurve(const XAnimCurve& curve, u32 numKeys, f32 time, f32& value)
{
    if (!IsInterpolation(curve.GetInterpolation()) || curve.GetPreInfinity() > kInfinityCycleWithOffset ||
        curve.GetPostInfinity() > kInfinityCycleWithOffset)
        return false;
    const Interpolator f(curve, numKeys);
    const f32 start = f.T(0);
    const f32 end = f.T(f.Last());
    const bool isBefore = time < start;
    if (!isBefore && !(time > end)) {
        value += f(time);
        return true;
    }

    const f32 range = end - start;
    const f32 rise = f.V(f.Last()) - f.V(0);
    const u32 infinity = isBefore ? curve.GetPreInfinity() : curve.GetPostInfinity();
    if (infinity == kInfinityConstant) {
        value = isBefore ? f.V(0) : f.V(f.Last());
        return true;
    }
    if (infinity == kInfinityLinear) {
        const f32 slope =
            isBefore ? (f(start + 0.01f) - f(start)) * 100.0f : (f(end) - f(end - 0.01f)) * 100.0f;
        value = isBefore ? f.V(0) + slope * (time - start) : f.V(f.Last()) + slope * (time - end);
        return true;
    }

    // Turn by turn into the range of the keys.
    f32 t = time;
    bool isOdd = false;
    const f32 step = isBefore ? range : -range;
    const f32 lift = infinity == kInfinityCycleWithOffset ? (isBefore ? -rise : rise) : 0.0f;
    const auto isOutside = [&] { return isBefore ? t < start : t > end; };
    if (!(range > 0.0f))
        t = start;
    for (u32 turn = 0; turn < kMostTurns && isOutside(); ++turn) {
        t += step;
        value += lift;
        isOdd = !isOdd;
    }
    if (isOutside()) {
        const double turns = std::ceil((isBefore ? double{start} - t : double{t} - end) / range);
        if (std::isfinite(turns)) {
            t = std::clamp(static_cast<f32>(t + turns * step), start, end);
            value += static_cast<f32>(turns * lift);
            isOdd ^= std::fmod(turns, 2.0) != 0.0;
        } else {
            t = start;
        }
    }
    if (infinity == kInfinityOscillate && isOdd)
        t = 2.0f * start + range - t;
    value += f(t);
    return true;
}

}  // namespace VKT
