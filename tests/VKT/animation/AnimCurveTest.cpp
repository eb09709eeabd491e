#include "VKT/animation/AnimCurve.h"

#include <limits>

#include "VKT/support/CurveText.h"
#include "VKT/support/LogCatcher.h"
#include "VKT/support/TestModel.h"

namespace VKT {
namespace {

using Test::CurveOf;

std::string TextOf(const XAnimCurve& curve)
{
    XTextWriter out;
    EXPECT_TRUE(curve.WriteChunk(out));
    return out.TakeText();
}

TEST(AnimCurve, RecordStartsWithoutMeaningOrKeys)
{
    const XAnimCurve curve;
    EXPECT_EQ(curve.GetComponent(), -1);
    EXPECT_EQ(curve.GetIndex(), -1);
    EXPECT_EQ(curve.GetInterpolation(), 0u);
    EXPECT_EQ(curve.GetPreInfinity(), 0u);
    EXPECT_EQ(curve.GetPostInfinity(), 0u);
    EXPECT_EQ(curve.GetStride(), 0u);
    EXPECT_EQ(curve.GetNumKeys(), 0u);
}

TEST(AnimCurve, InterpolationSetsTheFloatsOfAKey)
{
    constexpr u32 strides[] = {2, 2, 2, 3, 5, 4, 6, 4, 6};
    XAnimCurve curve;
    for (u32 i = 0; i < std::size(strides); ++i) {
        curve.SetInterpolation(i);
        EXPECT_EQ(curve.GetStride(), strides[i]) << i;
    }
    for (const auto& [interpolation, stride] : {std::pair{10u, 2u}, {11u, 3u}, {12u, 5u}, {13u, 3u}}) {
        curve.SetInterpolation(interpolation);
        EXPECT_EQ(curve.GetStride(), stride) << interpolation;
    }
    for (const u32 unknown : {9u, 14u, 0xFFFFFFFFu}) {
        curve.SetInterpolation(unknown);
        EXPECT_EQ(curve.GetInterpolation(), unknown);
        EXPECT_EQ(curve.GetStride(), 3u) << "left alone";
    }
}

TEST(AnimCurve, AddKeyKeepsTheOrderOfTimes)
{
    XAnimCurve curve;
    curve.SetInterpolation(kBezier2D);
    EXPECT_EQ(curve.AddKey(1, 10), 0u);
    EXPECT_EQ(curve.AddKey(2, 20), 1u);
    EXPECT_EQ(curve.AddKey(3, 30), 2u);
    EXPECT_EQ(curve.AddKey(3, 31), 3u) << "behind the key of its time";
    EXPECT_EQ(curve.AddKey(2.5f, 25), 2u) << "the later ones move up";
    EXPECT_EQ(curve.AddKey(0, 5), 0u);
    EXPECT_EQ(curve.GetKeys(), (XFloatArray{0,    5,  0, 0, 0, 0, 1, 10, 0, 0, 0, 0, 2, 20, 0, 0, 0, 0,
                                            2.5f, 25, 0, 0, 0, 0, 3, 30, 0, 0, 0, 0, 3, 31, 0, 0, 0, 0}));
    EXPECT_EQ(curve.GetNumKeys(), 6u);
    XAnimCurve without;
    EXPECT_EQ(without.AddKey(1, 2), 0u);
    EXPECT_TRUE(without.GetKeys().empty()) << "a curve whose keys have no floats takes none";
}

// As a file may hold them: the key stands in front of the first later one.
TEST(AnimCurve, AddKeyFindsTheFirstLaterKeyWhereTimesDoNotAscend)
{
    XAnimCurve curve = CurveOf("LINEAR", 3, "0 1  10 2  5 3");
    EXPECT_EQ(curve.AddKey(7, 4), 1u);
    EXPECT_EQ(curve.GetKeys(), (XFloatArray{0, 1, 7, 4, 10, 2, 5, 3}));
    EXPECT_EQ(curve.AddKey(10, 5), 4u) << "none is later";
    EXPECT_EQ(curve.AddKey(-1, 6), 0u);
    const f32 nan = std::numeric_limits<f32>::quiet_NaN();
    EXPECT_EQ(curve.AddKey(nan, 7), 6u) << "none is later than no number";
    EXPECT_EQ(curve.AddKey(11, 8), 7u) << "nor is no number later than any";
    EXPECT_EQ(curve.AddKey(9, 9), 3u);
}

TEST(AnimCurve, TellsWhetherItsTimesAscend)
{
    EXPECT_TRUE(XAnimCurve().TimesAscend());
    EXPECT_TRUE(CurveOf("LINEAR", 3, "1 5 2 4 2 3").TimesAscend());
    EXPECT_FALSE(CurveOf("LINEAR", 3, "1 5 2 4 1 3").TimesAscend());

    XAnimCurve curve = CurveOf("LINEAR", 3, "1 5 3 4 5 6");
    curve.AddKey(2, 0);
    curve.AddKey(9, 0);
    EXPECT_TRUE(curve.TimesAscend());
    curve.SetInterpolation(kBezier1D);  // times are 1 and 3 now
    EXPECT_TRUE(curve.TimesAscend());
    curve.SetInterpolation(kTCB);  // 1 and 4
    EXPECT_TRUE(curve.TimesAscend());
    curve.SetInterpolation(kTimedCardinal);  // 1, 0 and 5
    EXPECT_FALSE(curve.TimesAscend());
    curve.SetInterpolation(kLinear);
    curve.AddKey(std::numeric_limits<f32>::quiet_NaN(), 0);
    EXPECT_FALSE(curve.TimesAscend());
}

TEST(AnimCurve, AddKeyFindsTimesInTheLayoutOfNow)
{
    XAnimCurve curve;
    curve.SetInterpolation(kLinear);
    curve.AddKey(1, 20);
    curve.AddKey(2, 10);
    curve.AddKey(3, 10);
    curve.SetInterpolation(kCardinal);  // keys of 1 20 2 and 10 3 10
    EXPECT_EQ(curve.AddKey(5, 6), 1u);
    EXPECT_EQ(curve.GetKeys(), (XFloatArray{1, 20, 2, 5, 6, 0, 10, 3, 10}));
    EXPECT_EQ(curve.AddKey(10, 7), 3u);
}

TEST(AnimCurve, TangentsAreRefusedAndStayZeroes)
{
    for (const u32 interpolation : {kHermite2D, kBezier2D}) {
        XAnimCurve curve;
        curve.SetInterpolation(interpolation);
        curve.AddKey(1, 2);
        EXPECT_FALSE(curve.SetInTangentLength(0, 3));
        EXPECT_FALSE(curve.SetInTangent(0, 4));
        EXPECT_FALSE(curve.SetOutTangentLength(0, 5));
        EXPECT_FALSE(curve.SetOutTangent(0, 6));
        EXPECT_EQ(curve.GetKeys(), (XFloatArray{1, 2, 0, 0, 0, 0}));
    }
}

TEST(AnimCurve, TangentsBelowTheBoundAreThoseOfTwoDimensionalHermiteCurves)
{
    XAnimCurve curve;
    curve.SetInterpolation(kHermite2D);
    curve.AddKey(1, 2);
    curve.AddKey(7, 8);
    XAnimCurveBound::Set(curve, 1);
    EXPECT_TRUE(curve.SetInTangentLength(0, 3));
    EXPECT_TRUE(curve.SetInTangent(0, 4));
    EXPECT_TRUE(curve.SetOutTangentLength(0, 5));
    EXPECT_TRUE(curve.SetOutTangent(0, 6));
    EXPECT_FALSE(curve.SetOutTangent(1, 6));
    EXPECT_EQ(curve.GetKeys(), (XFloatArray{1, 2, 3, 4, 5, 6, 7, 8, 0, 0, 0, 0}));
    XAnimCurveBound::Set(curve, 100);
    EXPECT_FALSE(curve.SetOutTangent(2, 6)) << "nor beyond the table";
    curve.SetInterpolation(kBezier2D);
    EXPECT_FALSE(curve.SetInTangent(0, 9));
}

TEST(AnimCurve, EvaluateSeesNoKeys)
{
    XAnimCurve curve = CurveOf("LINEAR", 2, "0 10  4 20", "kInfinityLinear", "kInfinityCycle");
    f32 value = 42;
    EXPECT_TRUE(curve.Evaluate(0, value));
    EXPECT_EQ(value, 42) << "0 is added";
    EXPECT_TRUE(curve.Evaluate(2, value));
    EXPECT_EQ(value, 42) << "0 is added at the first key, which is at once";
    EXPECT_TRUE(curve.Evaluate(-2, value));
    EXPECT_EQ(value, 0) << "the linear infinity replaces it by 0";
    XAnimCurveBound::Set(curve, 2);
    EXPECT_TRUE(curve.Evaluate(2, value));
    EXPECT_EQ(value, 15);
}

TEST(AnimCurve, TextIsWrittenToTheLetter)
{
    XAnimCurve curve =
        CurveOf("TCB", 2, "1 2 3 4 5  6 7 8 9 10.5", "kInfinityOscillate", "kInfinityCycleWithOffset");
    curve.SetComponent(1);
    curve.SetIndex(7);
    EXPECT_EQ(TextOf(curve),
              "\t\t\t\tANIM_CURVE \n"
              "\t\t\t\t{\n"
              "\t\t\t\t\tinterpolation TCB\n"
              "\t\t\t\t\tnum_keys 2\n"
              "\t\t\t\t\tpre_infinity kInfinityOscillate\n"
              "\t\t\t\t\tpost_infinity kInfinityCycleWithOffset\n"
              "\t\t\t\t\tcomponent 1\n"
              "\t\t\t\t\tindex 7\n"
              "\t\t\t\t\t\t1 2 3 4 5 \n"
              "\t\t\t\t\t\t6 7 8 9 10.5 \n"
              "\t\t\t\t}\n");
}

TEST(AnimCurve, EachWordIsItsNumber)
{
    const char* const words[] = {"STEP",      "LINEAR",    "CATMULL_ROM", "CARDINAL",  "TCB",
                                 "BEZIER_1D", "BEZIER_2D", "HERMITE_1D",  "HERMITE_2D"};
    for (u32 i = 0; i < std::size(words); ++i) {
        const XAnimCurve curve = CurveOf(words[i], 0, "");
        EXPECT_EQ(curve.GetInterpolation(), i);
        EXPECT_NE(TextOf(curve).find(std::string("interpolation ") + words[i] + "\n"), std::string::npos);
    }
    const char* const infinities[] = {"kInfinityConstant", "kInfinityLinear", "kInfinityOscillate",
                                      "kInfinityCycle", "kInfinityCycleWithOffset"};
    for (u32 i = 0; i < std::size(infinities); ++i) {
        EXPECT_EQ(CurveOf("STEP", 0, "", infinities[i]).GetPreInfinity(), i);
        EXPECT_EQ(CurveOf("STEP", 0, "", "kInfinityCycle", infinities[i]).GetPostInfinity(), i);
    }
}

TEST(AnimCurve, UnknownWordsAreNumberZero)
{
    for (const char* word : {"WAVY", "linear", "10"}) {
        const XAnimCurve curve = CurveOf(word, 2, "1 2  3 4", "kinfinitylinear", "never");
        EXPECT_EQ(curve.GetInterpolation(), 0u) << word;
        EXPECT_EQ(curve.GetStride(), 2u);
        EXPECT_EQ(curve.GetPreInfinity(), 0u);
        EXPECT_EQ(curve.GetPostInfinity(), 0u);
    }
}

TEST(AnimCurve, WrongKeysAreLogged)
{
    const char* const keys[] = {"ANIM_CURVE",    "{",         "interpolation", "num_keys", "pre_infinity",
                                "post_infinity", "component", "index",         "}"};
    const std::string text =
        "anim_curve { interpolation STEP num_keys 1 pre_infinity a post_infinity b component 0 index 1 2 3 }";
    for (const char* key : keys) {
        LogCatcher log;
        std::string broken = text;
        const std::string found = key == std::string("ANIM_CURVE") ? "anim_curve" : key;
        broken.replace(broken.find(found), found.size(), "Oops");
        XTextReader in{std::string_view(broken)};
        XAnimCurve curve;
        EXPECT_FALSE(curve.ReadChunk(in)) << key;
        EXPECT_EQ(
            log.Text().find("Error : Expected " + std::string(key) + " got oops [.\\src\\VKT\\FCurveStream:"),
            0u)
            << log.Text();
    }
}

TEST(AnimCurve, EndOfTheInputIsLoggedAtTheNextKey)
{
    const std::string text =
        "ANIM_CURVE { interpolation STEP num_keys 1 pre_infinity a post_infinity b component 0 index 1 2 3 }";
    const std::pair<const char*, const char*> expected[] = {
        {"interpolation", "num_keys"},  {"num_keys", "pre_infinity"}, {"pre_infinity", "post_infinity"},
        {"post_infinity", "component"}, {"component", "index"},       {"index", "}"}};
    for (const auto& [last, next] : expected) {
        LogCatcher log;
        XTextReader in{std::string_view(text).substr(0, text.find(last) + std::string(last).size())};
        XAnimCurve curve;
        EXPECT_FALSE(curve.ReadChunk(in)) << last;
        EXPECT_EQ(log.Text().find("Error : Expected " + std::string(next) + " got  ["), 0u) << log.Text();
    }
}

TEST(AnimCurve, CurvesWithoutAWordAreWrittenAsStepsThatReadBack)
{
    XAnimCurve curve = CurveOf("CARDINAL", 2, "1 2 3  4 5 6");
    curve.SetInterpolation(kSmoothedStep);
    LogCatcher log;
    const std::string text = TextOf(curve);
    EXPECT_EQ(log.Text(), "Warning : a curve of interpolation 13 is written as STEP with 2 keys\n");
    EXPECT_NE(text.find("interpolation STEP\n\t\t\t\t\tnum_keys 2\n"), std::string::npos);
    EXPECT_NE(text.find("index -1\n\t\t\t\t\t\t1 2 \n\t\t\t\t\t\t4 5 \n\t\t\t\t}\n"), std::string::npos);
    XTextReader in{std::string_view(text)};
    XAnimCurve back;
    EXPECT_TRUE(back.ReadChunk(in));
    EXPECT_EQ(back.GetKeys(), (XFloatArray{1, 2, 4, 5}));
}

TEST(AnimCurve, InfinitiesWithoutAWordAreConstant)
{
    XAnimCurve curve = CurveOf("STEP", 0, "");
    curve.SetPreInfinity(77);
    EXPECT_NE(TextOf(curve).find("pre_infinity kInfinityConstant\n"), std::string::npos);
}

TEST(AnimCurve, HugeClaimsFailBeforeTheyTakeMemory)
{
    LogCatcher log;
    XTextReader in{
        std::string_view("ANIM_CURVE { interpolation TCB num_keys 4294967295 pre_infinity a post_infinity b "
                         "component 0 index 1 2 3 }")};
    XAnimCurve curve;
    EXPECT_FALSE(curve.ReadChunk(in));
    EXPECT_TRUE(curve.GetKeys().empty());
    EXPECT_EQ(log.Text(), "Error : Expected } got  [.\\src\\VKT\\FCurveStream:10]\n");
}

}  // namespace
}  // namespace VKT
