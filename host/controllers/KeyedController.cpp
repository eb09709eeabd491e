#include "host/controllers/KeyedController.h"

namespace maxhost {

namespace {

CurveKey ViewOf(const IBezFloatKey& key)
{
    return {key.time, key.flags, key.val, key.intan, key.inLength, key.outtan, key.outLength};
}

CurveKey ViewOf(const IBezPoint3Key& key, int axis)
{
    return {key.time,           key.flags,        key.val[axis],      key.intan[axis],
            key.inLength[axis], key.outtan[axis], key.outLength[axis]};
}

CurveKey ViewOf(const IBezScaleKey& key, int axis)
{
    return {key.time,           key.flags,        key.val.s[axis],    key.intan[axis],
            key.inLength[axis], key.outtan[axis], key.outLength[axis]};
}

template <class Key, class... Axis>
float Interpolated(const Key* before, const Key& left, const Key& right, const Key* after, TimeValue t,
                   Axis... axis)
{
    const CurveKey first = before ? ViewOf(*before, axis...) : CurveKey();
    const CurveKey last = after ? ViewOf(*after, axis...) : CurveKey();
    return EvaluateBezier(before ? &first : nullptr, ViewOf(left, axis...), ViewOf(right, axis...),
                          after ? &last : nullptr, t);
}

template <class Key>
Point3 InterpolatedPoint(const Key* before, const Key& left, const Key& right, const Key* after, TimeValue t)
{
    return Point3(Interpolated(before, left, right, after, t, 0),
                  Interpolated(before, left, right, after, t, 1),
                  Interpolated(before, left, right, after, t, 2));
}

float PartOfSegment(const IKey& left, const IKey& right, TimeValue t)
{
    return static_cast<float>(t - left.time) / static_cast<float>(right.time - left.time);
}

}  // namespace

float LinearFloatKind::Between(const Key*, const Key& left, const Key& right, const Key*, TimeValue t)
{
    return left.val + (right.val - left.val) * PartOfSegment(left, right, t);
}

float BezierFloatKind::Between(const Key* before, const Key& left, const Key& right, const Key* after,
                               TimeValue t)
{
    return Interpolated(before, left, right, after, t);
}

Point3 BezierPositionKind::Between(const Key* before, const Key& left, const Key& right, const Key* after,
                                   TimeValue t)
{
    return InterpolatedPoint(before, left, right, after, t);
}

ScaleValue BezierScaleKind::Shifted(const ScaleValue& value, const ScaleValue& from, const ScaleValue& to)
{
    Point3 scale = value.s;
    for (int i = 0; i < 3; ++i)
        scale[i] = from.s[i] != 0.0f ? scale[i] * (to.s[i] / from.s[i]) : to.s[i];
    return ScaleValue(scale, to.q);
}

ScaleValue BezierScaleKind::Between(const Key* before, const Key& left, const Key& right, const Key* after,
                                    TimeValue t)
{
    return ScaleValue(InterpolatedPoint(before, left, right, after, t),
                      Slerp(left.val.q, right.val.q, PartOfSegment(left, right, t)));
}

}  // namespace maxhost
