#include "VKT/animation/PoseStream.h"

#include "VKT/support/AnimationScene.h"

using namespace VKT;
using namespace VKT::Test;

namespace {

class PoseStream : public AnimationTest {
protected:
    // A blend shape with as many targets, of id 3.
    XBlendShape& AddBlendShape(u32 targets)
    {
        XBlendShape& shape = *m_Model.CreateNode<XBlendShape>();
        for (u32 i = 0; i < targets; ++i)
            shape.AddTarget({}, "target" + std::to_string(i));
        return shape;
    }
    XAnimatedAttribute* ReadWeights(const std::string& streams)
    {
        const std::string text = Replaced(TakeText("weights", streams, 1, 1), "ANIM_NODE 1", "ANIM_NODE 3");
        return ReadText(m_Take, text) ? m_Take.GetAnimatedNode(0)->GetAttribute(0) : nullptr;
    }
};

TEST_F(PoseStream, StartsAsZeroesOfItsKind)
{
    EXPECT_EQ(m_Entry.CreateAttribute(kVisible)->CreatePoseStream()->GetValues(), (XFloatArray{0}));
    EXPECT_EQ(m_Entry.CreateAttribute(kTranslate)->CreatePoseStream()->GetValues(), (XFloatArray{0, 0, 0}));
    EXPECT_EQ(m_Entry.CreateAttribute(kRotation)->CreatePoseStream()->GetValues(), (XFloatArray{0, 0, 0, 0}));
}

TEST_F(PoseStream, IsMadeOnce)
{
    XAnimatedAttribute& attribute = *m_Entry.CreateAttribute(kTranslate);
    XPoseStream* const pose = attribute.CreatePoseStream();
    attribute.CreateSampledStream();
    EXPECT_EQ(attribute.CreatePoseStream(), pose);
    EXPECT_EQ(attribute.GetNumStreams(), 2u);
    EXPECT_EQ(pose->AsPose(), pose);
    EXPECT_EQ(pose->AsSampled(), nullptr);
    EXPECT_EQ(pose->AsFCurve(), nullptr);
    EXPECT_EQ(pose->GetStartTime(), 0);
    EXPECT_EQ(pose->GetEndTime(), 0);
}

TEST_F(PoseStream, ValuesAreSetAsFarAsTheKindHasThem)
{
    XPoseStream& three = *m_Entry.CreateAttribute(kTranslate)->CreatePoseStream();
    three.SetValue(XVector3{1, 2, 3, 0});
    EXPECT_EQ(three.GetValues(), (XFloatArray{1, 2, 3}));
    XPoseStream& four = *m_Entry.CreateAttribute(kRotation)->CreatePoseStream();
    four.SetValue(XQuaternion{4, 5, 6, 7});
    EXPECT_EQ(four.GetValues(), (XFloatArray{4, 5, 6, 7}));
    XPoseStream& one = *m_Entry.CreateAttribute(kVisible)->CreatePoseStream();
    one.SetValue(XQuaternion{8, 9, 10, 11});
    EXPECT_EQ(one.GetValues(), (XFloatArray{8}));
    f32 out[4] = {-1, -1, -1, -1};
    EXPECT_TRUE(four.Evaluate(99, out));
    EXPECT_EQ(out[3], 7);
    EXPECT_TRUE(one.Evaluate(99, out));
    EXPECT_EQ(out[0], 8);
    EXPECT_EQ(out[1], 5) << "no more than the kind has";
}

TEST_F(PoseStream, TextIsOneLine)
{
    XPoseStream& pose = *m_Entry.CreateAttribute(kTranslate)->CreatePoseStream();
    pose.SetValue(XVector3{1, 2.5f, -3, 0});
    EXPECT_EQ(BlockOf(pose), "\t\t\tPOSE_KEY\n\t\t\t{\n\t\t\t\t1 2.5 -3 \n\t\t\t}\n");
    EXPECT_EQ(Hex(DataOf(pose)), "00 00 80 3f 00 00 20 40 00 00 40 c0");
    EXPECT_EQ(pose.GetDataSize(), 8u + 12);
}

TEST_F(PoseStream, MatrixStartsAsTheIdentity)
{
    XAnimatedAttribute* const attribute =
        ReadAttribute("world", "POSE_KEY { 1 2 3 4 5 6 7 8 9 10 11 12 13 14 15 16 }", 16);
    ASSERT_NE(attribute, nullptr);
    EXPECT_EQ(attribute->GetKind(), kMatrix);
    EXPECT_EQ(attribute->GetStream(0)->AsPose()->GetValues()[15], 16);
    XPoseStream fresh(*attribute, kMatrix);
    EXPECT_EQ(BlockOf(fresh), "\t\t\tPOSE_KEY\n\t\t\t{\n\t\t\t\t1 0 0 0 0 1 0 0 0 0 1 0 0 0 0 1 \n\t\t\t}\n");
    EXPECT_EQ(fresh.GetDataSize(), 8u + 64);
}

TEST_F(PoseStream, FloatArrayHasALineForEachEntryAndOneFloatInBinary)
{
    AddBlendShape(3);
    XAnimatedAttribute* const attribute = ReadWeights("POSE_KEY { [0] 0.25 [1] 0.5 [2] 0.75 }");
    ASSERT_NE(attribute, nullptr);
    EXPECT_EQ(attribute->GetKind(), kFloatArray);
    XPoseStream& pose = *attribute->GetStream(0)->AsPose();
    EXPECT_EQ(pose.GetArrayLength(), 3u);
    EXPECT_EQ(BlockOf(pose),
              "\t\t\tPOSE_KEY\n\t\t\t{\n\t\t\t\t[0] 0.25\n\t\t\t\t[1] 0.5\n\t\t\t\t[2] 0.75\n\t\t\t}\n");
    EXPECT_EQ(Hex(DataOf(pose)), "00 00 80 3e");
    EXPECT_EQ(pose.GetDataSize(), 8u + 4);
    EXPECT_EQ(ReadWeights("POSE_KEY { [0] 0.25 [1] 0.5 }"), nullptr) << "an entry is missing";
}

TEST_F(PoseStream, NumbersThatAreNoneAreLoggedAtTheBrace)
{
    const char* const message = "Error : Expected } got  [.\\src\\VKT\\AnimationTake:17]\n";
    EXPECT_EQ(ReadAttribute("translate", "POSE_KEY { 1 x 3 }"), nullptr);
    EXPECT_EQ(m_Log.Text(), message);
    m_Log.Clear();
    AddBlendShape(3);
    EXPECT_EQ(ReadWeights("POSE_KEY { [0] 0.25 [1] x [2] 0.75 }"), nullptr);
    EXPECT_EQ(m_Log.Text(), message);
}

// What a binary file held of an array can be saved as text and read again.
TEST_F(PoseStream, FloatArrayFromABinaryFileReadsBackFromText)
{
    AddBlendShape(2);
    ASSERT_NE(ReadWeights("POSE_KEY { [0] 0.25 [1] 0.5 }"), nullptr);
    XAnimationTake& fromBytes = *m_Model.CreateNode<XAnimationTake>();
    ASSERT_TRUE(ReadBody(fromBytes, BodyOf(m_Take)));
    const std::string text = TextOf(fromBytes);
    EXPECT_NE(text.find("POSE_KEY\n\t\t\t{\n\t\t\t\t0.25 \n\t\t\t}\n"), std::string::npos) << text;
    XAnimationTake& again = *m_Model.CreateNode<XAnimationTake>();
    EXPECT_TRUE(ReadText(again, text));
    EXPECT_EQ(TextOf(again), text);
}

TEST_F(PoseStream, EmptyFloatArrayReadsBack)
{
    AddBlendShape(0);
    ASSERT_NE(ReadWeights("POSE_KEY { }"), nullptr);
    const std::string text = TextOf(m_Take);
    EXPECT_NE(text.find("POSE_KEY\n\t\t\t{\n\t\t\t\t\n\t\t\t}\n"), std::string::npos) << text;
    EXPECT_TRUE(ReadText(m_Take, text));
    EXPECT_NE(ReadWeights("POSE_KEY { 0.5 }"), nullptr) << "from a binary file";
}

}  // namespace
