#include "VKT/animation/CurveEvaluator.h"

#include <algorithm>
#include <cmath>
#include <cstring>
#include <functional>
#include <limits>
#include <vector>

#include "VKT/support/CurveText.h"

// The formulas of the curves, with all keys in sight. They are held against values that are
// computed by other means, in double precision: cubics by the construction of de Casteljau,
// tangents turned into its control points, and times solved for by halving until nothing
// changes any more.

using namespace VKT;
using namespace VKT::Test;

namespace {

constexpr int kTimesPerSegment = 97;

f32 At(const XAnimCurve& curve, f32 time)
{
    f32 value = 0;
    EXPECT_TRUE(XEvaluateCurve(curve, curve.GetNumKeys(), time, value));
    return value;
}

double Mix(double a, double b, double u)
{
    return a + (b - a) * u;
}

// The Bezier cubic of four control points.
struct Cubic {
    double a, b, c, d;
    double operator()(double u) const
    {
        const double ab = Mix(a, b, u), bc = Mix(b, c, u), cd = Mix(c, d, u);
        return Mix(Mix(ab, bc, u), Mix(bc, cd, u), u);
    }
};

Cubic FromTangents(double start, double startTangent, double endTangent, double end)
{
    return {start, start + startTangent / 3, end - endTangent / 3, end};
}

// Where a cubic that rises takes the value `x`.
double Solve(const Cubic& cubic, double x)
{
    double low = 0;
    double high = 1;
    for (int i = 0; i < 200; ++i) {
        const double middle = (low + high) / 2;
        (cubic(middle) < x ? low : high) = middle;
    }
    return low;
}

// The keys of a curve in double precision.
struct Keys {
    explicit Keys(const XAnimCurve& of) : curve(of), last(static_cast<int>(of.GetNumKeys()) - 1) {}
    double Get(int key, u32 part) const
    {
        return curve.GetKey(static_cast<u32>(std::clamp(key, 0, last)), part);
    }
    double T(int key) const { return Get(key, 0); }
    double V(int key) const { return Get(key, 1); }
    const XAnimCurve& curve;
    int last;
};

// Holds a curve against `expected`, which is told the first key of the segment and the
// time, all over each segment.
void ExpectCurve(const XAnimCurve& curve, double tolerance,
                 const std::function<double(const Keys&, int, double)>& expected)
{
    const Keys keys(curve);
    double largest = 0;
    for (int key = 0; key < keys.last; ++key)
        for (int i = 0; i < kTimesPerSegment; ++i) {
            const f32 time =
                static_cast<f32>(Mix(keys.T(key), keys.T(key + 1), double(i) / kTimesPerSegment));
            const double error = std::fabs(At(curve, time) - expected(keys, key, time));
            EXPECT_LE(error, tolerance) << "at " << time << " of segment " << key;
            largest = std::max(largest, error);
        }
    testing::Test::RecordProperty("largest_error", std::to_string(largest));
    EXPECT_NEAR(At(curve, static_cast<f32>(keys.T(keys.last))), keys.V(keys.last), tolerance);
}

double Fraction(const Keys& k, int key, double t)
{
    return (t - k.T(key)) / (k.T(key + 1) - k.T(key));
}

// Half of the way between the neighbours; at the ends a key stands in for the missing one.
double CatmullRom(const Keys& k, int key, u32 part)
{
    return (k.Get(key + 1, part) - k.Get(key - 1, part)) / 2;
}

struct Weights {
    double before, behind;
};
double TcbTangent(const Keys& k, int key, u32 part, Weights w)
{
    return w.before * (k.Get(key, part) - k.Get(key - 1, part)) +
           w.behind * (k.Get(key + 1, part) - k.Get(key, part));
}
Weights Incoming(const Keys& k, int key)
{
    const double t = k.Get(key, 2), c = k.Get(key, 3), b = k.Get(key, 4);
    return {(1 + b) * (1 - t) * (1 - c) / 2, (1 - b) * (1 - t) * (1 + c) / 2};
}
Weights Outgoing(const Keys& k, int key)
{
    const double t = k.Get(key, 2), c = k.Get(key, 3), b = k.Get(key, 4);
    return {(1 + b) * (1 - t) * (1 + c) / 2, (1 - b) * (1 - t) * (1 - c) / 2};
}

constexpr const char kPlainKeys[] = "-1 2  0.5 -3  1 4  3 3.5  4.25 -1";

TEST(CurveEvaluator, StepsHoldTheValueUpToTheNextKey)
{
    const XAnimCurve curve = CurveOf("STEP", 5, kPlainKeys);
    ExpectCurve(curve, 0, [](const Keys& k, int key, double) { return k.V(key); });
}

TEST(CurveEvaluator, LinesJoinTheKeys)
{
    const XAnimCurve curve = CurveOf("LINEAR", 5, kPlainKeys);
    ExpectCurve(curve, 2e-6, [](const Keys& k, int key, double t) {
        return Mix(k.V(key), k.V(key + 1), Fraction(k, key, t));
    });
}

double CatmullRomValue(const Keys& k, int key, double t)
{
    return FromTangents(k.V(key), CatmullRom(k, key, 1), CatmullRom(k, key + 1, 1),
                        k.V(key + 1))(Fraction(k, key, t));
}

TEST(CurveEvaluator, CatmullRomTangentsAreHalfTheWayBetweenTheNeighbours)
{
    ExpectCurve(CurveOf("CATMULL_ROM", 5, kPlainKeys), 4e-6, CatmullRomValue);
}

TEST(CurveEvaluator, CardinalCurvesRunAsCatmullRomWhateverTheirTension)
{
    const XAnimCurve curve = CurveOf("CARDINAL", 5, "-1 2 0.5  0.5 -3 0.9  1 4 -1  3 3.5 0.25  4.25 -1 1");
    ExpectCurve(curve, 4e-6, CatmullRomValue);
}

constexpr const char kTcbKeys[] =
    "-1 2 0.5 0.25 -0.5   0.5 -3 -0.5 0.75 0.125   1.5 4 0 -1 0.5   3 3.5 0.25 0.5 0.75   4.25 -1 0.1 0.2 "
    "0.3";

TEST(CurveEvaluator, TcbTakesTheIncomingTangentAtBothEnds)
{
    ExpectCurve(CurveOf("TCB", 5, kTcbKeys), 4e-6, [](const Keys& k, int key, double t) {
        return FromTangents(k.V(key), TcbTangent(k, key, 1, Incoming(k, key)),
                            TcbTangent(k, key + 1, 1, Incoming(k, key + 1)),
                            k.V(key + 1))(Fraction(k, key, t));
    });
}

TEST(CurveEvaluator, Bezier1DGoesByControlPointsInTheSpaceOfValues)
{
    const XAnimCurve curve = CurveOf("BEZIER_1D", 4, "-1 2 9 3  0.5 -3 -2 -4  1 4 5 1  3 3.5 2 8");
    ExpectCurve(curve, 4e-6, [](const Keys& k, int key, double t) {
        return Cubic{k.V(key), k.Get(key, 3), k.Get(key + 1, 2), k.V(key + 1)}(Fraction(k, key, t));
    });
}

TEST(CurveEvaluator, Hermite1DGoesByInAndOutTangents)
{
    const XAnimCurve curve = CurveOf("HERMITE_1D", 4, "-1 2 9 3  0.5 -3 -2 -4  1 4 5 1  3 3.5 2 8");
    ExpectCurve(curve, 4e-6, [](const Keys& k, int key, double t) {
        return FromTangents(k.V(key), k.Get(key, 3), k.Get(key + 1, 2), k.V(key + 1))(Fraction(k, key, t));
    });
}

double Bezier2DValue(const Keys& k, int key, double t)
{
    const double u = Solve(Cubic{k.T(key), k.Get(key, 4), k.Get(key + 1, 2), k.T(key + 1)}, t);
    return Cubic{k.V(key), k.Get(key, 5), k.Get(key + 1, 3), k.V(key + 1)}(u);
}

// Single precision leaves some 1e-4 of the way between two keys to the solution.
TEST(CurveEvaluator, Bezier2DSolvesForTheTime)
{
    // Segments below 1, below 10, below 1000 and above: each has a scale of its own.
    const XAnimCurve curve = CurveOf("BEZIER_2D", 5,
                                     "0 2 0 0 0.3 3   0.75 -3 0.5 -4 2 5   8 4 7 6 60 9   "
                                     "400 1 300 2 900 -3   2400 6 2000 8 0 0");
    ExpectCurve(curve, 4e-3, Bezier2DValue);
}

TEST(CurveEvaluator, Bezier2DWithEvenlySpacedTimesIsACubicOfTime)
{
    const XAnimCurve curve = CurveOf("BEZIER_2D", 2, "0 1 0 0 1 5  3 2 2 -4 0 0");
    ExpectCurve(curve, 4e-3, Bezier2DValue);
}

TEST(CurveEvaluator, Bezier2DWithThreeRootsHalves)
{
    const XAnimCurve curve = CurveOf("BEZIER_2D", 2, "0 1 0 0 4.9 2  5 3 0.1 4 0 0");
    ExpectCurve(curve, 4e-3, Bezier2DValue);
}

// The halving ends within 0.0001 of the time.
TEST(CurveEvaluator, Hermite2DSolvesForTheTime)
{
    const XAnimCurve curve =
        CurveOf("HERMITE_2D", 4, "0 2 0 0 1 3   1.5 -3 2 -4 2 5   4 4 1 6 3 9   9 1 2 7 0 0");
    ExpectCurve(curve, 2e-3, [](const Keys& k, int key, double t) {
        const double u = Solve(FromTangents(k.T(key), k.Get(key, 4), k.Get(key + 1, 2), k.T(key + 1)), t);
        return FromTangents(k.V(key), k.Get(key, 5), k.Get(key + 1, 3), k.V(key + 1))(u);
    });
}

double TimedCatmullRomValue(const Keys& k, int key, double t)
{
    const double u =
        Solve(FromTangents(k.T(key), CatmullRom(k, key, 0), CatmullRom(k, key + 1, 0), k.T(key + 1)), t);
    return FromTangents(k.V(key), CatmullRom(k, key, 1), CatmullRom(k, key + 1, 1), k.V(key + 1))(u);
}

TEST(CurveEvaluator, TimedCatmullRomSolvesForTheTime)
{
    XAnimCurve curve = CurveOf("LINEAR", 5, "-1 2  0.5 -3  1.25 4  3 3.5  4.25 -1");
    curve.SetInterpolation(kTimedCatmullRom);
    ExpectCurve(curve, 2e-3, TimedCatmullRomValue);
}

TEST(CurveEvaluator, TimedCardinalHasNoTensionEither)
{
    XAnimCurve curve = CurveOf("CARDINAL", 5, "-1 2 0.5  0.5 -3 0.9  1.25 4 -1  3 3.5 0.25  4.25 -1 1");
    curve.SetInterpolation(kTimedCardinal);
    ExpectCurve(curve, 2e-3, TimedCatmullRomValue);
}

TEST(CurveEvaluator, TimedTcbTakesOutgoingAndIncomingTangents)
{
    XAnimCurve curve = CurveOf("TCB", 4,
                               "-1 2 0.5 0.25 -0.5   0.5 -3 0.25 0.5 0.125   "
                               "1.5 4 0 -0.5 0.25   3 3.5 0.25 0.5 0.75");
    curve.SetInterpolation(kTimedTCB);
    ExpectCurve(curve, 2e-3, [](const Keys& k, int key, double t) {
        const auto cubic = [&](u32 part) {
            return FromTangents(k.Get(key, part), TcbTangent(k, key, part, Outgoing(k, key)),
                                TcbTangent(k, key + 1, part, Incoming(k, key + 1)), k.Get(key + 1, part));
        };
        return cubic(1)(Solve(cubic(0), t));
    });
}

XAnimCurve SmoothedSteps(const std::string& keys, int numKeys)
{
    XAnimCurve curve = CurveOf("CARDINAL", numKeys, keys);
    curve.SetInterpolation(kSmoothedStep);
    return curve;
}

double Smooth(double y)
{
    return y * y * (3 - 2 * y);
}

TEST(CurveEvaluator, SmoothedStepsBlendAcrossEachKey)
{
    const XAnimCurve curve = SmoothedSteps("0 1 0.25  2 5 0.5  4 -3 0.75  7 2 0.125  9 8 0.1", 5);
    for (f32 t = 0; t < 9; t += 0.03125f) {
        const Keys k(curve);
        int left = 0;
        while (left < k.last && k.T(left + 1) <= t)
            ++left;
        double expected = 0;
        if (left == 0 || t - k.Get(left, 2) > k.T(left)) {
            if (left >= 3) {
                expected = k.V(3);
            } else {
                const double middle = k.T(left + 1);
                const double width = k.Get(left, 2);
                expected = t < middle - width
                               ? k.V(left)
                               : Mix(k.V(left), k.V(left + 1), Smooth((t - (middle - width)) / (2 * width)));
            }
        } else {
            const double middle = k.T(left);
            const double width = k.Get(left + 1, 2);
            expected = t > middle + width
                           ? k.V(left + 1)
                           : Mix(k.V(left), k.V(left + 1), Smooth((t - (middle - width)) / (2 * width)));
        }
        EXPECT_NEAR(At(curve, t), expected, 1e-5) << t;
    }
    EXPECT_EQ(At(curve, 9), 2) << "the last key gives the value of the one before it";
}

TEST(CurveEvaluator, SmoothedStepsWithoutWidthAreSteps)
{
    const XAnimCurve curve = SmoothedSteps("0 1 0  2 5 0  4 -3 0  6 8 0", 4);
    EXPECT_EQ(At(curve, 1.999f), 1);
    EXPECT_EQ(At(curve, 2), -3) << "the second value from there on: at a key that is the next key's";
    EXPECT_EQ(At(curve, 2.001f), 5);
    EXPECT_EQ(At(curve, 3), 5);
    const XAnimCurve together = SmoothedSteps("0 1 0.5  0 5 0.5  0 -3 0.5  0 8 0.5", 4);
    EXPECT_FALSE(std::isnan(At(together, 0)));
}

TEST(CurveEvaluator, SmoothedStepsOfFewerThanTwoKeysHaveTheFirstValue)
{
    EXPECT_EQ(At(SmoothedSteps("3 7 1", 1), 3), 7);
    EXPECT_EQ(At(SmoothedSteps("", 0), 0), 0);
    const XAnimCurve two = SmoothedSteps("0 7 1  2 9 1", 2);
    EXPECT_EQ(At(two, 1), 7);
    EXPECT_EQ(At(two, 2), 7);
}

TEST(CurveEvaluator, KeysOfOneTimeAreAStep)
{
    for (const char* interpolation : {"STEP", "LINEAR", "CATMULL_ROM"}) {
        const XAnimCurve curve = CurveOf(interpolation, 3, "1 2  1 5  1 9");
        EXPECT_EQ(At(curve, 1), 9) << interpolation;
    }
    const XAnimCurve none = CurveOf("LINEAR", 0, "");
    EXPECT_EQ(At(none, 0), 0);
    EXPECT_EQ(At(none, 5), 0);
}

// Infinities: a curve from 2 at 1 to 5 at 3, by way of 8 at 2.
constexpr const char kBump[] = "1 2  2 8  3 5";

TEST(CurveEvaluator, WithinTheKeysTheValueIsAdded)
{
    const XAnimCurve curve = CurveOf("LINEAR", 3, kBump);
    f32 value = 100;
    EXPECT_TRUE(XEvaluateCurve(curve, 3, 1.5f, value));
    EXPECT_EQ(value, 105);
}

TEST(CurveEvaluator, ConstantInfinityReplacesTheValue)
{
    const XAnimCurve curve = CurveOf("LINEAR", 3, kBump);
    f32 value = 100;
    EXPECT_TRUE(XEvaluateCurve(curve, 3, -7, value));
    EXPECT_EQ(value, 2);
    EXPECT_TRUE(XEvaluateCurve(curve, 3, 9, value));
    EXPECT_EQ(value, 5);
}

TEST(CurveEvaluator, LinearInfinityRunsOnWithTheSlopeOfTheEnd)
{
    const XAnimCurve curve = CurveOf("LINEAR", 3, kBump, "kInfinityLinear", "kInfinityLinear");
    f32 value = 100;
    EXPECT_TRUE(XEvaluateCurve(curve, 3, -1, value));
    EXPECT_NEAR(value, 2 - 6 * 2, 1e-3);
    EXPECT_TRUE(XEvaluateCurve(curve, 3, 5, value));
    EXPECT_NEAR(value, 5 - 3 * 2, 1e-3);
    const XAnimCurve bent =
        CurveOf("HERMITE_1D", 2, "0 0 0 4  2 3 -1 0", "kInfinityLinear", "kInfinityLinear");
    const Cubic cubic = FromTangents(0, 4, -1, 3);
    EXPECT_NEAR(At(bent, -2), -2 * cubic(0.005) * 100, 2e-3);
    EXPECT_NEAR(At(bent, 5), 3 + 3 * (3 - cubic(0.995)) * 100, 2e-2);
}

TEST(CurveEvaluator, CycleStartsAnew)
{
    const XAnimCurve curve = CurveOf("LINEAR", 3, kBump, "kInfinityCycle", "kInfinityCycle");
    for (const f32 turns : {-14.0f, -4.0f, -2.0f, 2.0f, 4.0f, 200.0f})
        for (const f32 t : {1.25f, 1.75f, 2.0f, 2.5f})
            EXPECT_NEAR(At(curve, t + turns), At(curve, t), 1e-3) << t << " " << turns;
    EXPECT_EQ(At(curve, 5), 5) << "the end of a turn is no start of the next";
    EXPECT_EQ(At(curve, -1), 2);
}

TEST(CurveEvaluator, CycleWithOffsetRisesWithEachTurn)
{
    const XAnimCurve curve =
        CurveOf("LINEAR", 3, kBump, "kInfinityCycleWithOffset", "kInfinityCycleWithOffset");
    for (const int turns : {-7, -2, -1, 1, 2, 100})
        for (const f32 t : {1.25f, 1.75f, 2.0f, 2.5f})
            EXPECT_NEAR(At(curve, t + 2 * static_cast<f32>(turns)), At(curve, t) + 3 * turns, 1e-3)
                << t << " " << turns;
}

TEST(CurveEvaluator, OscillateRunsBackEverySecondTurn)
{
    const XAnimCurve curve = CurveOf("LINEAR", 3, kBump, "kInfinityOscillate", "kInfinityOscillate");
    for (const int turns : {-3, -2, -1, 1, 2, 3, 40, 41})
        for (const f32 t : {1.25f, 1.75f, 2.0f, 2.5f}) {
            const f32 mirrored = turns % 2 == 0 ? t : 4 - t;
            EXPECT_NEAR(At(curve, t + 2 * static_cast<f32>(turns)), At(curve, mirrored), 1e-3)
                << t << " " << turns;
        }
}

// A damaged file can ask for more turns than there is time.
TEST(CurveEvaluator, NoTimeIsTooFar)
{
    for (const char* infinity : {"kInfinityOscillate", "kInfinityCycle", "kInfinityCycleWithOffset"}) {
        const XAnimCurve curve = CurveOf("LINEAR", 2, "0 1  1e-30 2", infinity, infinity);
        for (const f32 time : {1e-10f, -1e-10f, 1e30f, -1e30f, std::numeric_limits<f32>::infinity(),
                               -std::numeric_limits<f32>::infinity()}) {
            f32 value = 0;
            EXPECT_TRUE(XEvaluateCurve(curve, 2, time, value)) << infinity << " " << time;
        }
        const XAnimCurve far = CurveOf("LINEAR", 2, "0 1  1 2", infinity, infinity);
        f32 value = 0;
        EXPECT_TRUE(XEvaluateCurve(far, 2, 3000000.0f, value));
        const bool rises = std::string(infinity) == "kInfinityCycleWithOffset";
        EXPECT_GE(value, rises ? 2999999.0f : 1.0f);
        EXPECT_LE(value, rises ? 3000003.0f : 2.0f);
    }
}

TEST(CurveEvaluator, RangeThatIsNotAboveZeroGivesTheFirstKeyAtOnce)
{
    for (const char* infinity : {"kInfinityOscillate", "kInfinityCycle", "kInfinityCycleWithOffset"}) {
        const XAnimCurve one = CurveOf("LINEAR", 1, "2 7", infinity, infinity);
        EXPECT_EQ(At(one, 1), 7) << infinity;
        EXPECT_EQ(At(one, 3), 7) << infinity;
        const XAnimCurve backwards = CurveOf("LINEAR", 2, "2 7  1 9", infinity, infinity);
        EXPECT_TRUE(std::isfinite(At(backwards, 1.5f))) << infinity;
    }
}

TEST(CurveEvaluator, NumbersWithoutMeaningAnswerFalseAndLeaveTheValue)
{
    for (const f32 time : {0.0f, 1.5f, 9.0f}) {
        f32 value = 42;
        for (const u32 interpolation : {9u, 14u, 0xFFFFFFFFu}) {
            XAnimCurve curve = CurveOf("LINEAR", 3, kBump);
            curve.SetInterpolation(interpolation);
            EXPECT_FALSE(XEvaluateCurve(curve, 3, time, value)) << interpolation;
        }
        XAnimCurve curve = CurveOf("LINEAR", 3, kBump);
        curve.SetPreInfinity(5);
        EXPECT_FALSE(XEvaluateCurve(curve, 3, time, value));
        curve.SetPreInfinity(0);
        curve.SetPostInfinity(5);
        EXPECT_FALSE(XEvaluateCurve(curve, 3, time, value));
        EXPECT_EQ(value, 42);
    }
}

TEST(CurveEvaluator, KeysBeyondTheBoundReadAsZeroes)
{
    const XAnimCurve curve = CurveOf("LINEAR", 3, kBump);
    f32 value = 10;
    EXPECT_TRUE(XEvaluateCurve(curve, 0, 0, value));
    EXPECT_EQ(value, 10) << "zeroes are added";
    EXPECT_TRUE(XEvaluateCurve(curve, 0, 2, value));
    EXPECT_EQ(value, 0) << "behind the last time, which is 0 too";
    // The last key stands at time 0 and has the value 0.
    EXPECT_TRUE(XEvaluateCurve(curve, 2, 2.5f, value));
    EXPECT_EQ(value, 0);
}

TEST(CurveEvaluator, TheSegmentIsThatInFrontOfTheFirstLaterKey)
{
    // In any order of times: found by a plain walk here.
    const char* const tables[] = {"0 1 2 3 4 5 6 7", "0 1 2 3 2 5 2 7 8 9", "0 1 5 2 3 3 7 4 6 5",
                                  "1 1 2 2 0 3 4 4"};
    for (const char* const table : tables) {
        const int numKeys = static_cast<int>(std::count(table, table + std::strlen(table), ' ') + 1) / 2;
        const XAnimCurve curve = CurveOf("STEP", numKeys, table);
        const u32 count = curve.GetNumKeys();
        for (u32 bound = 0; bound <= count; ++bound) {
            const auto at = [&](u32 key, u32 part) { return key < bound ? curve.GetKey(key, part) : 0.0f; };
            for (f32 time = at(0, 0); time <= at(count - 1, 0); time += 0.5f) {
                u32 later = 1;
                while (later < count && !(at(later, 0) > time))
                    ++later;
                f32 value = 0;
                EXPECT_TRUE(XEvaluateCurve(curve, bound, time, value));
                EXPECT_EQ(value, at(later - 1, 1)) << table << " bound " << bound << " time " << time;
            }
        }
    }
}

TEST(CurveEvaluator, NotANumberIsAnswered)
{
    const f32 nan = std::numeric_limits<f32>::quiet_NaN();
    for (const u32 interpolation : {0u, 1u, 2u, 6u, 8u, 10u, 13u}) {
        XAnimCurve curve = CurveOf("BEZIER_2D", 3, "1 2 3 4 5 6  2 3 4 5 6 7  3 4 5 6 7 8");
        curve.SetInterpolation(interpolation);
        for (const u32 infinity : {0u, 1u, 2u, 3u, 4u}) {
            curve.SetPreInfinity(infinity);
            curve.SetPostInfinity(infinity);
            f32 value = 0;
            EXPECT_TRUE(XEvaluateCurve(curve, curve.GetNumKeys(), nan, value));
        }
    }
}

}  // namespace
