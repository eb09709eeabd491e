#include "VKT/animation/FCurveStream.h"

#include <gmock/gmock.h>

#include "VKT/shading/Lambert.h"
#include "VKT/support/AnimationScene.h"
#include "VKT/support/CurveText.h"

using namespace VKT;
using namespace VKT::Test;

namespace {

class FCurveStream : public AnimationTest {
protected:
    // A line from `from` at time 0 to `to` at time 1, all of it in sight.
    static void Draw(XFCurveStream& stream, i32 component, i32 index, f32 from, f32 to)
    {
        XAnimCurve& curve = *stream.GetCurve(component, index);
        curve.SetInterpolation(kLinear);
        curve.AddKey(0, from);
        curve.AddKey(1, to);
        XAnimCurveBound::Set(curve, 2);
    }
};

TEST_F(FCurveStream, IsMadeOnce)
{
    XAnimatedAttribute& attribute = *m_Entry.CreateAttribute(kTranslate);
    EXPECT_EQ(attribute.GetFCurveStream(), nullptr);
    attribute.CreatePoseStream();
    XFCurveStream* const curves = attribute.CreateFCurveStream();
    EXPECT_EQ(attribute.CreateFCurveStream(), curves);
    EXPECT_EQ(attribute.GetFCurveStream(), curves);
    EXPECT_EQ(curves->AsFCurve(), curves);
    EXPECT_EQ(curves->AsSampled(), nullptr);
}

TEST_F(FCurveStream, GetCurveFindsOrMakes)
{
    XFCurveStream& stream = *m_Entry.CreateAttribute(kTranslate)->CreateFCurveStream();
    EXPECT_EQ(stream.FindCurve(1), nullptr);
    XAnimCurve* const curve = stream.GetCurve(1);
    EXPECT_EQ(curve->GetComponent(), 1);
    EXPECT_EQ(curve->GetIndex(), -1);
    EXPECT_EQ(curve->GetInterpolation(), 6u);
    EXPECT_EQ(curve->GetStride(), 6u);
    EXPECT_EQ(curve->GetPreInfinity(), 0u);
    EXPECT_EQ(stream.GetCurve(1), curve);
    XAnimCurve* const entry = stream.GetCurve(1, 4);
    EXPECT_NE(entry, curve);
    EXPECT_EQ(entry->GetIndex(), 4);
    EXPECT_EQ(stream.GetCurve(1, 4), entry);
    EXPECT_EQ(stream.GetNumCurves(), 2u);
}

TEST_F(FCurveStream, BothFormsAreExact)
{
    XFCurveStream& stream = *m_Entry.CreateAttribute(kTranslate)->CreateFCurveStream();
    XAnimCurve& curve = *stream.GetCurve(2, 3);
    curve.SetInterpolation(kLinear);
    curve.SetPreInfinity(kInfinityCycle);
    curve.SetPostInfinity(kInfinityLinear);
    curve.AddKey(1, 2);
    EXPECT_EQ(BlockOf(stream),
              "\t\t\tFCURVE_STREAM\n\t\t\t{\n"
              "\t\t\t\tnum_fcurves 1\n"
              "\t\t\t\tANIM_CURVE \n"
              "\t\t\t\t{\n"
              "\t\t\t\t\tinterpolation LINEAR\n"
              "\t\t\t\t\tnum_keys 1\n"
              "\t\t\t\t\tpre_infinity kInfinityCycle\n"
              "\t\t\t\t\tpost_infinity kInfinityLinear\n"
              "\t\t\t\t\tcomponent 2\n"
              "\t\t\t\t\tindex 3\n"
              "\t\t\t\t\t\t1 2 \n"
              "\t\t\t\t}\n"
              "\t\t\t}\n");
    EXPECT_EQ(Hex(DataOf(stream)),
              "01 00 00 00 "
              "01 00 00 00 03 00 00 00 01 00 00 00 02 00 00 00 03 00 00 00 "
              "02 00 00 00 00 00 80 3f 00 00 00 40");
    EXPECT_EQ(stream.GetDataSize(), 8u + 4 + 24 + 8);
}

TEST_F(FCurveStream, BinaryHoldsInterpolationsThatTextHasNoWordFor)
{
    XFCurveStream& stream = *m_Entry.CreateAttribute(kTranslate)->CreateFCurveStream();
    XAnimCurve& curve = *stream.GetCurve(0);
    curve.SetInterpolation(kTimedTCB);
    curve.AddKey(1, 2);
    XAnimationTake& copy = *m_Model.CreateNode<XAnimationTake>();
    ASSERT_TRUE(ReadBody(copy, BodyOf(m_Take)));
    const XAnimCurve& read = *copy.GetAnimatedNode(0)->GetAttribute(0)->GetFCurveStream()->FindCurve(0);
    EXPECT_EQ(read.GetInterpolation(), 12u);
    EXPECT_EQ(read.GetStride(), 5u);
    EXPECT_EQ(read.GetKeys(), (XFloatArray{1, 2, 0, 0, 0}));
}

// The count of the keys does not come, whichever number the file ends in.
TEST_F(FCurveStream, EachShortNumberOfACurveIsLogged)
{
    XAnimCurve& curve = *m_Entry.CreateAttribute(kTranslate)->CreateFCurveStream()->GetCurve(2, 3);
    curve.SetInterpolation(kLinear);
    curve.AddKey(1, 2);
    const std::string bytes = BodyOf(m_Take);
    const std::size_t start = bytes.size() - 24 - 8;
    for (std::size_t number = 0; number <= 5; ++number) {
        m_Log.Clear();
        XAnimationTake& take = *m_Model.CreateNode<XAnimationTake>();
        EXPECT_FALSE(ReadBody(take, bytes.substr(0, start + 4 * number + 2)));
        std::string expected;
        for (std::size_t i = number; i <= 5; ++i)
            expected += "Error : XFileIO::DoData : expected to read/write 1 elements got 0\n";
        EXPECT_EQ(m_Log.Text(), expected) << number;
    }
}

TEST_F(FCurveStream, WrongKeyIsLogged)
{
    EXPECT_EQ(ReadAttribute("translate", "FCURVE_STREAM { number 1"), nullptr);
    EXPECT_EQ(m_Log.Text(), "Error : Expected num_fcurves got number [.\\src\\VKT\\FCurveStream:1]\n");
}

TEST_F(FCurveStream, CountThatIsNoneIsLoggedAtTheBrace)
{
    EXPECT_EQ(ReadAttribute("translate", "FCURVE_STREAM { num_fcurves x }"), nullptr);
    EXPECT_EQ(m_Log.Text(), "Error : Expected } got  [.\\src\\VKT\\AnimationTake:17]\n");
}

TEST_F(FCurveStream, EvaluateSeesNoKeys)
{
    XFCurveStream& stream = *m_Entry.CreateAttribute(kTranslate)->CreateFCurveStream();
    XAnimCurve& curve = *stream.GetCurve(0);
    curve.SetInterpolation(kLinear);
    curve.AddKey(0, 5);
    curve.AddKey(2, 7);
    f32 out[3] = {1, 2, 3};
    EXPECT_TRUE(stream.Evaluate(1, out));
    EXPECT_EQ(out[0], 0) << "behind the last key, which stands at 0";
    EXPECT_EQ(out[1], 2);
}

TEST_F(FCurveStream, ElementsHaveTheirOwnCurves)
{
    XFCurveStream& stream = *m_Entry.CreateAttribute(kTranslate)->CreateFCurveStream();
    Draw(stream, 0, -1, 1, 3);
    Draw(stream, 2, -1, 5, 7);
    Draw(stream, 1, 0, 50, 70);  // of an array: not this attribute
    f32 out[3] = {0, 42, 0};
    EXPECT_TRUE(stream.Evaluate(0.5f, out));
    EXPECT_EQ(out[0], 2);
    EXPECT_EQ(out[1], 42);
    EXPECT_EQ(out[2], 6);
}

TEST_F(FCurveStream, ColoursHaveFourCurvesAndTwoFloatsHaveTwo)
{
    XLambert& lambert = *m_Model.CreateNode<XLambert>();
    XFCurveStream& colour = *m_Take.CreateNodeAnimation(&lambert)->CreateAttribute(2)->CreateFCurveStream();
    const auto draw = [](XFCurveStream& stream) {
        for (const i32 component : {0, 1, 3, 4}) {
            const f32 from = 10.0f * static_cast<f32>(component);
            Draw(stream, component, -1, from + 1, from + 3);
        }
    };
    draw(colour);
    f32 out[5] = {0, 0, 42, 0, 42};
    EXPECT_TRUE(colour.Evaluate(0.5f, out));
    EXPECT_THAT(out, testing::ElementsAre(2, 12, 42, 32, 42));
    // No attribute is of two floats; a binary file may say so.
    const std::string bytes = Replaced(BodyOf(m_Take), Bytes("02 00 00 00 03 00 00 00 04 00 00 00"),
                                       Bytes("02 00 00 00 01 00 00 00 00 00 00 00"));
    XAnimationTake& take = *m_Model.CreateNode<XAnimationTake>();
    ASSERT_TRUE(ReadBody(take, bytes));
    XFCurveStream& two = *take.GetAnimatedNode(1)->GetAttribute(0)->GetFCurveStream();
    EXPECT_EQ(two.GetKind(), kVector2);
    draw(two);
    std::fill_n(out, 5, 0.0f);
    EXPECT_TRUE(two.Evaluate(0.5f, out));
    EXPECT_THAT(out, testing::ElementsAre(2, 12, 0, 0, 0));
}

TEST_F(FCurveStream, ScalarsHaveTheCurveOfNoElement)
{
    XFCurveStream& stream = *m_Entry.CreateAttribute(kVisible)->CreateFCurveStream();
    Draw(stream, 0, -1, 10, 30);
    f32 out = 1;
    EXPECT_TRUE(stream.Evaluate(0.5f, &out));
    EXPECT_EQ(out, 1);
    Draw(stream, -1, -1, 1, 3);
    EXPECT_TRUE(stream.Evaluate(0.5f, &out));
    EXPECT_EQ(out, 3) << "added to what was there";
}

TEST_F(FCurveStream, RotationsAreEulerAnglesInTheOrderOfTheBone)
{
    XFCurveStream& stream = *m_Entry.CreateAttribute(kRotation)->CreateFCurveStream();
    Draw(stream, 0, -1, 0.5f, 0.5f);
    Draw(stream, 1, -1, 0.25f, 0.25f);
    Draw(stream, 2, -1, -0.75f, -0.75f);
    for (const u32 order : {0u, 3u, 5u}) {
        m_Bone.SetRotationOrder(order);
        XQuaternion expected;
        XEulerToQuaternion({0.5f, 0.25f, -0.75f, 0}, order, expected);
        XQuaternion out{9, 9, 9, 9};
        EXPECT_TRUE(stream.Evaluate(0.5f, &out.x));
        EXPECT_EQ(out, expected) << order;
    }
    // An attribute of another number is not in the bone's order.
    const XAnimatedAttribute* other = ReadAttribute("joint_orient", "POSE_KEY { 0 0 0 1 }", 4);
    ASSERT_NE(other, nullptr);
    XFCurveStream& orient = *const_cast<XAnimatedAttribute*>(other)->CreateFCurveStream();
    Draw(orient, 0, -1, 0.5f, 0.5f);
    Draw(orient, 1, -1, 0.25f, 0.25f);
    XQuaternion expected;
    XEulerToQuaternion({0.5f, 0.25f, 0, 0}, 0, expected);
    XQuaternion out{};
    EXPECT_TRUE(orient.Evaluate(0.5f, &out.x));
    EXPECT_EQ(out, expected);
}

TEST_F(FCurveStream, ArraysStartAsTheCurrentOne)
{
    XBlendShape& blend = *m_Model.CreateNode<XBlendShape>();
    for (const char* name : {"a", "b", "c"})
        blend.AddTarget({}, name);
    blend.SetWeight(0, 0.25f);
    blend.SetWeight(1, 0.5f);
    blend.SetWeight(2, 0.75f);
    ASSERT_TRUE(ReadText(m_Take, Replaced(TakeText("weights", "FCURVE_STREAM { num_fcurves 0 }", 1, 1),
                                          "ANIM_NODE 1", "ANIM_NODE 3")));
    XFCurveStream& stream = *m_Take.GetAnimatedNode(0)->GetAttribute(0)->GetFCurveStream();
    Draw(stream, 0, 1, 10, 20);
    Draw(stream, 1, 2, 10, 20);  // another element
    Draw(stream, 0, 3, 10, 20);  // beyond the array
    Draw(stream, 0, -1, 10, 20);
    f32 out[3] = {};
    EXPECT_TRUE(stream.Evaluate(0.5f, out));
    EXPECT_EQ(out[0], 0.25f);
    EXPECT_EQ(out[1], 15.5f);
    EXPECT_EQ(out[2], 0.75f);
}

TEST_F(FCurveStream, MatricesHaveNoCurves)
{
    const XAnimatedAttribute* attribute = ReadAttribute("world", "FCURVE_STREAM { num_fcurves 0 }", 16);
    ASSERT_NE(attribute, nullptr);
    f32 out[16] = {3};
    EXPECT_FALSE(attribute->GetStream(0)->Evaluate(0, out));
    EXPECT_EQ(out[0], 3);
}

}  // namespace
