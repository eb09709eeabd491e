#include "VKT/animation/CurveSolver.h"

#include <gtest/gtest.h>

#include <bit>
#include <cmath>

// The solvers, bit for bit against a second writing of their steps. CurveEvaluatorTest holds
// them against the true cubics, which is blind to the last digits: scales, bounds, rounds and
// exponent show there alone.

using namespace VKT;

namespace {

// Control points of a Bezier, or value and tangent at the start, tangent and value at the end.
struct Points {
    f32 x0, x1, x2, x3;
};

f32 BezierX(const Points& p, f32 u)
{
    const f32 s = 1 - u;
    const f32 first = s * s * s * p.x0;
    const f32 second = 3 * p.x1 * s * s * u;
    const f32 third = 3 * p.x2 * s * u * u;
    const f32 fourth = u * u * u * p.x3;
    return ((first + second) + third) + fourth;
}

f32 HermiteX(const Points& p, f32 u)
{
    const f32 u2 = u * u;
    const f32 u3 = u2 * u;
    const f32 h00 = (2 * u3 - 3 * u2) + 1;
    const f32 h10 = (u3 - 2 * u2) + u;
    const f32 h01 = 3 * u2 - 2 * u3;
    const f32 h11 = u3 - u2;
    return ((h10 * p.x1 + h00 * p.x0) + h01 * p.x3) + h11 * p.x2;
}

f32 Bisect(f32 t, const Points& p, f32 (*x)(const Points&, f32))
{
    if (p.x0 + 1e-8f > t)
        return 0;
    if (t > p.x3 - 1e-8f)
        return 1;
    f32 low = 0, high = 1, u = 0.5f;
    for (int rounds = 20; rounds > 0 && !(std::fabs(t - x(p, u)) < 0.0001f); --rounds) {
        (x(p, u) > t ? high : low) = u;
        u = (low + high) * 0.5f;
    }
    return u;
}

f32 ThirdRoot(f32 value)
{
    return value < 0 ? -std::pow(-value, 0.33333334f) : std::pow(value, 0.33333334f);
}

f32 Cardano(f32 t, Points p, bool& isHalved)
{
    const f32 range = p.x3 - p.x0;
    const f32 scale = range < 1 ? 1e6f : range < 10 ? 1e5f : range < 1000 ? 1e3f : 1.0f;
    t = t * scale;
    p = {p.x0 * scale, p.x1 * scale, p.x2 * scale, p.x3 * scale};
    const f32 a = ((3 * p.x1 - p.x0) - 3 * p.x2) + p.x3;
    const f32 inv = a != 0 ? 1 / a : 1.0f;
    const f32 b2 = ((3 * p.x0 - 6 * p.x1) + 3 * p.x2) * inv;
    const f32 b1 = (3 * p.x1 - 3 * p.x0) * inv;
    const f32 q1 = b1 - b2 * b2 / 3;
    const f32 q0 = (inv * (p.x0 - t) - b1 * b2 / 3) + 2 * (b2 * b2 * b2) / 27;
    const f32 d = q1 * q1 * q1 / 27 + q0 * q0 / 4;
    isHalved = d < 0;
    if (isHalved)
        return Bisect(t, p, BezierX);
    const f32 r = std::sqrt(d);
    return (ThirdRoot(-q0 / 2 - r) + ThirdRoot(r - q0 / 2)) - b2 / 3;
}

u32 Bits(f32 value)
{
    return std::bit_cast<u32>(value);
}

// Shapes of a range of 1. Those that end at 3/4 have no leading factor, or next to none.
constexpr Points kShapes[] = {{0, 0.3f, 0.6f, 1},       {0, 0.1f, 0.2f, 1}, {0, 0.9f, 0.1f, 1},
                              {0, 1.5f, -0.5f, 1},      {0, 0, 1, 1},       {0, 0.25f, 0.5f, 0.75f},
                              {0, 0.25f, 0.5f, 0.7501f}};
constexpr f32 kParts[] = {0.001f, 0.1f, 0.37f, 0.5f, 0.613f, 0.9f, 0.999f};
// Ranges on both sides of each change of the scale.
constexpr f32 kRanges[] = {1e-4f, 0.5f, 0.99f, 1, 9.9f, 10, 999, 1000, 2500, 1e6f};

template <class Check>
void ForEachCase(Check check)
{
    for (const f32 range : kRanges)
        for (const f32 start : {0.0f, -0.25f * range, 7.0f})
            for (const Points& s : kShapes)
                for (const f32 part : kParts)
                    check(start + part * range, Points{start + s.x0 * range, start + s.x1 * range,
                                                       start + s.x2 * range, start + s.x3 * range});
}

TEST(CurveSolver, BezierHalvesAsToldToTheBit)
{
    ForEachCase([](f32 t, const Points& p) {
        EXPECT_EQ(Bits(SolveBezier(t, p.x0, p.x1, p.x2, p.x3)), Bits(Bisect(t, p, BezierX)));
    });
}

TEST(CurveSolver, HermiteHalvesAsToldToTheBit)
{
    ForEachCase([](f32 t, const Points& p) {
        EXPECT_EQ(Bits(SolveHermite(t, p.x0, p.x1, p.x3, p.x2)), Bits(Bisect(t, p, HermiteX)));
    });
}

TEST(CurveSolver, CubicIsCardanosFormulaToTheBit)
{
    int halved = 0;
    int direct = 0;
    ForEachCase([&](f32 t, const Points& p) {
        bool isHalved = false;
        EXPECT_EQ(Bits(SolveCubic(t, p.x0, p.x1, p.x2, p.x3)), Bits(Cardano(t, p, isHalved)));
        ++(isHalved ? halved : direct);
    });
    EXPECT_GT(halved, 0);
    EXPECT_GT(direct, 0);
}

TEST(CurveSolver, EndsOfTheRangeAreTakenClosely)
{
    EXPECT_EQ(SolveBezier(0.9e-8f, 0, 300, 600, 1000), 0.0f);
    EXPECT_GT(SolveBezier(1.1e-8f, 0, 300, 600, 1000), 0.0f);
    EXPECT_EQ(SolveBezier(-0.9e-8f, -1000, -700, -300, 0), 1.0f);
    EXPECT_LT(SolveBezier(-1.1e-8f, -1000, -700, -300, 0), 1.0f);
    EXPECT_EQ(SolveHermite(0.9e-8f, 0, 1000, 1000, 1000), 0.0f);
    EXPECT_GT(SolveHermite(1.1e-8f, 0, 1000, 1000, 1000), 0.0f);
    EXPECT_EQ(SolveHermite(-0.9e-8f, -1000, 1000, 0, 1000), 1.0f);
    EXPECT_LT(SolveHermite(-1.1e-8f, -1000, 1000, 0, 1000), 1.0f);
}

}  // namespace
