#include "VKT/animation/SampledStream.h"

#include <cmath>
#include <limits>

#include "VKT/shading/Lambert.h"
#include "VKT/support/AnimationScene.h"

using namespace VKT;
using namespace VKT::Test;

namespace {

class SampledStream : public AnimationTest {};

TEST_F(SampledStream, NewOneHasTheCurrentValueInEveryFrame)
{
    m_Bone.SetTranslate({1, 2, 3, 0});
    m_Bone.SetRotation({0.5f, 0.25f, -0.5f, 1});
    EXPECT_EQ(m_Entry.CreateAttribute(kTranslate)->CreateSampledStream()->GetSamples(),
              (XFloatArray{1, 2, 3, 1, 2, 3, 1, 2, 3}));
    EXPECT_EQ(m_Entry.CreateAttribute(kRotation)->CreateSampledStream()->GetSamples(),
              (XFloatArray{0.5f, 0.25f, -0.5f, 1, 0.5f, 0.25f, -0.5f, 1, 0.5f, 0.25f, -0.5f, 1}));
    EXPECT_EQ(m_Entry.CreateAttribute(kVisible)->CreateSampledStream()->GetSamples(), (XFloatArray{1, 1, 1}));
}

TEST_F(SampledStream, ColoursAndArraysToo)
{
    XLambert& lambert = *m_Model.CreateNode<XLambert>();
    lambert.GetNodeProperties()->SetColour(&lambert, 2, {0.1f, 0.2f, 0.3f, 0.4f});
    XAnimatedNode& shading = *m_Take.CreateNodeAnimation(&lambert);
    EXPECT_EQ(shading.CreateAttribute(2)->CreateSampledStream()->GetSamples(),
              (XFloatArray{0.1f, 0.2f, 0.3f, 0.4f, 0.1f, 0.2f, 0.3f, 0.4f, 0.1f, 0.2f, 0.3f, 0.4f}));
    XBlendShape& blend = *m_Model.CreateNode<XBlendShape>();
    blend.AddTarget({}, "smile");
    blend.SetWeight(0, 0.5f);
    XAnimatedAttribute& weights = *m_Take.CreateNodeAnimation(&blend)->CreateAttribute(3);
    EXPECT_EQ(weights.GetKind(), kScalar);
    EXPECT_EQ(weights.CreateSampledStream()->GetSamples(), (XFloatArray{0, 0, 0})) << "arrays stay zeroes";
}

TEST_F(SampledStream, MatricesStayZeroes)
{
    XAnimatedAttribute* attribute =
        ReadAttribute("world", "POSE_KEY { 1 0 0 0 0 1 0 0 0 0 1 0 0 0 0 1 }", 16);
    ASSERT_NE(attribute, nullptr);
    EXPECT_EQ(attribute->CreateSampledStream()->GetSamples(), XFloatArray(48, 0.0f));
}

TEST_F(SampledStream, IsMadeOnce)
{
    XAnimatedAttribute& attribute = *m_Entry.CreateAttribute(kTranslate);
    attribute.CreateFCurveStream();
    XSampledStream* const samples = attribute.CreateSampledStream();
    EXPECT_EQ(attribute.CreateSampledStream(), samples);
    EXPECT_EQ(samples->AsSampled(), samples);
    EXPECT_EQ(samples->AsPose(), nullptr);
}

TEST_F(SampledStream, SettersAskForTheirNumberOfElements)
{
    XSampledStream& three = *m_Entry.CreateAttribute(kTranslate)->CreateSampledStream();
    EXPECT_TRUE(three.SetSample(2, XVector3{7, 8, 9, 0}));
    EXPECT_FALSE(three.SetSample(3, XVector3{7, 8, 9, 0}));
    EXPECT_FALSE(three.SetSample(0, kIdentityQuaternion));
    EXPECT_TRUE(three.SetSample(1, 5.0f));
    EXPECT_FALSE(three.SetSample(9, 5.0f));
    EXPECT_EQ(three.GetSamples(), (XFloatArray{0, 5, 0, 0, 0, 0, 7, 8, 9}));
    XSampledStream& four = *m_Entry.CreateAttribute(kRotation)->CreateSampledStream();
    EXPECT_FALSE(four.SetSample(0, XVector3{}));
    EXPECT_TRUE(four.SetSample(0, XQuaternion{1, 2, 3, 4}));
    EXPECT_FALSE(four.SetSample(3, XQuaternion{1, 2, 3, 4}));
}

TEST_F(SampledStream, TextHasALineForEachSample)
{
    XSampledStream& samples = *m_Entry.CreateAttribute(kTranslate)->CreateSampledStream();
    samples.SetSample(0, XVector3{1, 2, 3, 0});
    samples.SetSample(1, XVector3{4, 5, 6, 0});
    samples.SetSample(2, XVector3{7, 8, 9.5f, 0});
    EXPECT_EQ(BlockOf(samples),
              "\t\t\tSAMPLED_KEYS\n\t\t\t{\n\n\t\t\t\t1 2 3 \n\t\t\t\t4 5 6 \n\t\t\t\t7 8 9.5 \n\t\t\t}\n");
    EXPECT_EQ(samples.GetDataSize(), 8u + 4 + 36);
    EXPECT_EQ(Hex(DataOf(samples)).substr(0, 35), "09 00 00 00 00 00 80 3f 00 00 00 40");
}

TEST_F(SampledStream, TableOfAnyLengthReadsAndSetsTheFramesOfTheTake)
{
    const XAnimatedAttribute* attribute = ReadAttribute("translate", "SAMPLED_KEYS { 1 2 3 4 5 6 7 8 9 }");
    ASSERT_NE(attribute, nullptr);
    EXPECT_EQ(m_Take.GetNumFrames(), 3u);
    EXPECT_EQ(attribute->GetStream(0)->AsSampled()->GetSamples(), (XFloatArray{1, 2, 3, 4, 5, 6, 7, 8, 9}));

    attribute = ReadAttribute("translate", "SAMPLED_KEYS { 1 2 3 4 5 6 7 8 9 10 11 12 13 14 15 }");
    ASSERT_NE(attribute, nullptr);
    EXPECT_EQ(m_Take.GetNumFrames(), 5u) << "more words make it grow";
    EXPECT_EQ(attribute->GetStream(0)->AsSampled()->GetSamples().back(), 15);

    attribute = ReadAttribute("translate", "SAMPLED_KEYS { 1 2 3 4 }");
    ASSERT_NE(attribute, nullptr);
    EXPECT_EQ(m_Take.GetNumFrames(), 3u) << "fewer leave zeroes";
    EXPECT_EQ(attribute->GetStream(0)->AsSampled()->GetSamples(), (XFloatArray{1, 2, 3, 4, 0, 0, 0, 0, 0}));
    EXPECT_EQ(m_Log.Text(), "");
}

TEST_F(SampledStream, TableThatIsNoWholeNumberOfSamplesFailsInSilence)
{
    EXPECT_EQ(ReadAttribute("translate", "SAMPLED_KEYS { 1 2 3 4 5 6 7 8 9 10 }"), nullptr);
    EXPECT_EQ(ReadAttribute("translate", "SAMPLED_KEYS { 1 }", 0), nullptr);
    EXPECT_EQ(m_Log.Text(), "");
    EXPECT_NE(ReadAttribute("translate", "SAMPLED_KEYS { }", 0), nullptr);
}

TEST_F(SampledStream, WordsThatAreNoNumbersAreZeroes)
{
    const XAnimatedAttribute* attribute =
        ReadAttribute("visible", "SAMPLED_KEYS { 1 nan +2.5e1 3x 123456789.25 {x }", 1);
    ASSERT_NE(attribute, nullptr);
    EXPECT_EQ(attribute->GetStream(0)->AsSampled()->GetSamples(),
              (XFloatArray{1, 0, 25, 3, 123456789.25f, 0}));
}

TEST_F(SampledStream, TextThatEndsInATableFails)
{
    const std::string text = TakeText("translate", "SAMPLED_KEYS { 1 2 3 4 5 6 7 8 9 }");
    EXPECT_FALSE(ReadText(m_Take, text.substr(0, text.find(" 7 "))));
    EXPECT_FALSE(ReadText(m_Take, text.substr(0, text.find(" }"))));
}

// Long tables pass through the reader's window, whose end cuts numbers in two.
TEST_F(SampledStream, LongTablesReadWhole)
{
    constexpr int kFrames = 40000;
    std::string table = "SAMPLED_KEYS {";
    XFloatArray expected;
    for (int i = 0; i < 3 * kFrames; ++i) {
        expected.push_back(static_cast<f32>(i) / 8);
        table += i % 3 == 0 ? "\n" : " ";
        table += std::to_string(i / 8) + "." + std::to_string(i % 8 * 125 + 1000).substr(1);
    }
    const std::string text = Replaced(TakeText("translate", table + " }"), "end_time 12",
                                      "end_time " + std::to_string(10 + kFrames - 1));
    for (const std::string& each : {text, Replaced(text, "end_time 40009", "end_time 12")}) {
        ASSERT_TRUE(ReadText(m_Take, each));
        EXPECT_EQ(m_Take.GetNumFrames(), static_cast<u32>(kFrames));
        EXPECT_EQ(m_Take.GetAnimatedNode(0)->GetAttribute(0)->GetStream(0)->AsSampled()->GetSamples(),
                  expected);
    }
}

TEST_F(SampledStream, ClaimsFarBeyondTheFileFail)
{
    const std::string text = TakeText("translate", "SAMPLED_KEYS { 1 2 3 }");
    // 349,525 samples of three floats are below 2^20, one more is above.
    EXPECT_TRUE(ReadText(m_Take, Replaced(text, "end_time 12", "end_time 349534")));
    m_Model.Clear();
    XBone* const bone = m_Model.CreateNode<XBone>();
    XAnimationTake* const take = m_Model.CreateNode<XAnimationTake>();
    ASSERT_EQ(bone->GetID(), 1u);
    EXPECT_FALSE(ReadText(*take, Replaced(text, "end_time 12", "end_time 349535")));
    EXPECT_EQ(m_Log.Text(), "Error : the file's takes claim more samples than it holds\n");
    m_Log.Clear();
    EXPECT_FALSE(ReadText(*take, Replaced(text, "end_time 12", "end_time 1e30")));
    EXPECT_EQ(m_Log.Text(), "Error : the file's takes claim more samples than it holds\n");
}

TEST_F(SampledStream, ManyEmptyTablesCannotClaimMuchEither)
{
    std::string streams;
    for (int i = 0; i < 4; ++i)
        streams += "SAMPLED_KEYS { }\n";
    const std::string text = Replaced(TakeText("translate", streams, 4), "end_time 12", "end_time 100009");
    EXPECT_FALSE(ReadText(m_Take, text)) << "300,000 zeroes four times over";
    EXPECT_EQ(m_Log.Text(), "Error : the file's takes claim more samples than it holds\n");
}

TEST_F(SampledStream, DamagedTablesAreWrittenAsWholeSamples)
{
    XAnimatedAttribute& attribute = *m_Entry.CreateAttribute(kTranslate);
    attribute.CreateSampledStream();
    std::string bytes = BodyOf(m_Take);
    const std::string count = Bytes("09 00 00 00");
    bytes.replace(bytes.find(count), 4, Bytes("07 00 00 00"));
    XAnimationTake& damaged = *m_Model.CreateNode<XAnimationTake>();
    ASSERT_TRUE(ReadBody(damaged, bytes));
    EXPECT_EQ(damaged.GetNumFrames(), 2u) << "count / elements";
    const std::string text = TextOf(damaged);
    EXPECT_EQ(m_Log.Text(), "Warning : take \"node2\": a table of 7 floats is written as 2 samples of 3\n");
    XAnimationTake& again = *m_Model.CreateNode<XAnimationTake>();
    EXPECT_TRUE(ReadText(again, text));
}

TEST_F(SampledStream, EvaluateIsLinearBetweenTheSamplesAndEndsWithTheTake)
{
    XSampledStream& samples = *m_Entry.CreateAttribute(kTranslate)->CreateSampledStream();
    samples.SetSample(0, XVector3{1, 2, 3, 0});
    samples.SetSample(1, XVector3{5, 0, 3, 0});
    samples.SetSample(2, XVector3{9, 8, -1, 0});
    const f32 infinity = std::numeric_limits<f32>::infinity();
    const f32 nan = std::numeric_limits<f32>::quiet_NaN();
    const struct {
        f32 time, x, y, z;
    } expected[] = {{10, 1, 2, 3},        {10.25f, 2, 1.5f, 3}, {11, 5, 0, 3}, {11.5f, 7, 4, 1},
                    {12, 9, 8, -1},       {13, 9, 8, -1},       {-5, 1, 2, 3}, {infinity, 9, 8, -1},
                    {-infinity, 1, 2, 3}, {nan, 1, 2, 3}};
    for (const auto& [time, x, y, z] : expected) {
        f32 out[3] = {};
        EXPECT_TRUE(samples.Evaluate(time, out));
        EXPECT_EQ(out[0], x) << time;
        EXPECT_EQ(out[1], y) << time;
        EXPECT_EQ(out[2], z) << time;
    }
    m_Take.SetEndTime(11);
    f32 out[3] = {};
    EXPECT_TRUE(samples.Evaluate(12, out));
    EXPECT_EQ(out[0], 5) << "the take ends before the table";
    m_Take.SetEndTime(100);
    EXPECT_TRUE(samples.Evaluate(50, out));
    EXPECT_EQ(out[0], 9) << "the table ends before the take";
}

TEST_F(SampledStream, EvaluateTurnsQuaternions)
{
    XSampledStream& samples = *m_Entry.CreateAttribute(kRotation)->CreateSampledStream();
    const f32 half = std::sqrt(0.5f);
    samples.SetSample(0, XQuaternion{0, 0, 0, 1});
    samples.SetSample(1, XQuaternion{0, 0, half, half});
    XQuaternion q{};
    EXPECT_TRUE(samples.Evaluate(10 + 1 / 3.0f, &q.x));
    EXPECT_NEAR(q.z, std::sin(15 * 3.14159265 / 180), 1e-6);
    EXPECT_NEAR(q.w, std::cos(15 * 3.14159265 / 180), 1e-6);
    EXPECT_TRUE(samples.Evaluate(10, &q.x));
    EXPECT_EQ(q, kIdentityQuaternion);
}

TEST_F(SampledStream, EvaluateTakesTheNearerMatrix)
{
    std::string table;
    for (int i = 0; i < 48; ++i)
        table += std::to_string(i) + " ";
    const XAnimatedAttribute* attribute = ReadAttribute("world", "SAMPLED_KEYS { " + table + "}", 16);
    ASSERT_NE(attribute, nullptr);
    XMatrix m{};
    EXPECT_TRUE(attribute->GetStream(0)->Evaluate(10.25f, m.m));
    EXPECT_EQ(m[3], 3);
    EXPECT_TRUE(attribute->GetStream(0)->Evaluate(10.75f, m.m));
    EXPECT_EQ(m[3], 19);
}

// A file can claim other numbers of elements than the kind has; the caller's room is that
// of the kind.
TEST_F(SampledStream, EvaluateWritesNoMoreThanTheKindHas)
{
    const XAnimatedAttribute* attribute =
        ReadAttribute("translate", "SAMPLED_KEYS { 1 2 3 4 5 6 7 8 9 10 11 12 13 14 15 }", 5);
    ASSERT_NE(attribute, nullptr);
    f32 out[4] = {-1, -1, -1, -1};
    EXPECT_TRUE(attribute->GetStream(0)->Evaluate(11, out));
    EXPECT_EQ(out[2], 8);
    EXPECT_EQ(out[3], -1);
    attribute = ReadAttribute("rotation", "SAMPLED_KEYS { 1 2 3 }", 1);
    ASSERT_NE(attribute, nullptr);
    EXPECT_TRUE(attribute->GetStream(0)->Evaluate(10.5f, out));
    EXPECT_EQ(out[0], 1.5f) << "no quaternion: element by element";
    attribute = ReadAttribute("translate", "SAMPLED_KEYS { }", 0);
    ASSERT_NE(attribute, nullptr);
    EXPECT_FALSE(attribute->GetStream(0)->Evaluate(11, out));
}

TEST(Slerp, KeepsItsOddities)
{
    const XQuaternion a{0, 0, 0, 1};
    EXPECT_EQ(XSlerp(a, a, 0.25f), a);
    const XQuaternion long_{0, 0, 0, 2};  // a product above 1 counts as 0.999999
    EXPECT_NEAR(XSlerp(a, long_, 0.5f).w, 1.5, 1e-3);
    // One below -1 counts as -0.999999, whose sine is far from exact in single precision.
    const double most = std::acos(-0.999999);
    const double expected = 3 * std::sin(most / 2) / std::sin(most);
    EXPECT_NEAR(XSlerp(a, {0, 0, 0, -2}, 0.5f).w, expected, expected / 50);
    // A product below 0 negates the second; the angle is that to the second as it was.
    const XQuaternion b{0.6f, 0, 0, -0.8f};
    const double angle = std::acos(-0.8);
    const XQuaternion q = XSlerp(a, b, 0.25f);
    EXPECT_NEAR(q.x, -0.6 * std::sin(angle * 0.25) / std::sin(angle), 1e-6);
    EXPECT_NEAR(q.w, (std::sin(angle * 0.75) + 0.8 * std::sin(angle * 0.25)) / std::sin(angle), 1e-5);
}

}  // namespace
