#include "host/controllers/BezierCurve.h"

#include <algorithm>

namespace maxhost {

namespace {

// The two ends of a straight line: value per tick.
double Slope(const CurveKey& from, const CurveKey& to)
{
    return to.time == from.time ? 0.0 : (static_cast<double>(to.value) - from.value) / (to.time - from.time);
}

// Value per tick, away from `key` towards `other`, of a tangent of one kind. `beyond`
// is the neighbour on the other side.
double TangentTowards(int kind, float userTangent, const CurveKey& key, const CurveKey& other,
                      const CurveKey* beyond, double length)
{
    const double direction = other.time >= key.time ? 1.0 : -1.0;
    const double straight = direction * Slope(key, other);
    switch (kind) {
        case BEZKEY_SMOOTH:
            return beyond ? direction * Slope(*beyond, other) : straight;
        case BEZKEY_LINEAR:
            return straight;
        case BEZKEY_FAST:  // the handle reaches the other key's value: as steep as can be
            return length > 0.0 ? straight / length : straight;
        case BEZKEY_USER:
            return userTangent;
        default:  // slow and flat leave the key level
            return 0.0;
    }
}

double Cubic(double u, double p0, double p1, double p2, double p3)
{
    const double s = 1.0 - u;
    return s * s * s * p0 + 3.0 * s * s * u * p1 + 3.0 * s * u * u * p2 + u * u * u * p3;
}

// Where the curve stands at part `x` of the segment's time. Handles of at most the
// segment's length keep time running forwards, so that halving finds it.
double ParameterAt(double x, double outLength, double inLength)
{
    double low = 0.0;
    double high = 1.0;
    for (int round = 0; round < 40; ++round) {
        const double u = (low + high) / 2.0;
        (Cubic(u, 0.0, outLength, 1.0 - inLength, 1.0) < x ? low : high) = u;
    }
    return (low + high) / 2.0;
}

}  // namespace

float EvaluateBezier(const CurveKey* before, const CurveKey& left, const CurveKey& right,
                     const CurveKey* after, TimeValue t)
{
    const int outKind = GetOutTanType(left.flags);
    const int inKind = GetInTanType(right.flags);
    if (t <= left.time || (outKind == BEZKEY_STEP && t < right.time))
        return left.value;
    if (t >= right.time || inKind == BEZKEY_STEP)
        return right.value;

    const double span = static_cast<double>(right.time) - left.time;
    const double x = (t - left.time) / span;
    if (outKind == BEZKEY_LINEAR && inKind == BEZKEY_LINEAR)
        return static_cast<float>(left.value + x * (static_cast<double>(right.value) - left.value));

    const double outLength = std::clamp(static_cast<double>(left.outLength), 0.0, 1.0);
    const double inLength = std::clamp(static_cast<double>(right.inLength), 0.0, 1.0);
    const double outTangent = TangentTowards(outKind, left.outTangent, left, right, before, outLength);
    const double inTangent = TangentTowards(inKind, right.inTangent, right, left, after, inLength);
    const double u = ParameterAt(x, outLength, inLength);
    return static_cast<float>(Cubic(u, left.value, left.value + outTangent * outLength * span,
                                    right.value + inTangent * inLength * span, right.value));
}

}  // namespace maxhost
