#include "HostTest.h"

namespace {

using maxhost::MakeKey;
using maxhost::Track;

class ControllerTest : public HostTest {
protected:
    static Control* Make(SClass_ID superClass, Class_ID classID)
    {
        return static_cast<Control*>(Core().CreateInstance(superClass, classID));
    }
    static Control* MakeFloat(ULONG classID = HYBRIDINTERP_FLOAT_CLASS_ID)
    {
        return Make(CTRL_FLOAT_CLASS_ID, Class_ID(classID, 0));
    }
    static float ValueAt(Control& control, TimeValue t)
    {
        float value = 0.0f;
        Interval valid = FOREVER;
        control.GetValue(t, &value, valid);
        return value;
    }
    static Interval ValidityAt(Control& control, TimeValue t)
    {
        float value = 0.0f;
        Interval valid = FOREVER;
        control.GetValue(t, &value, valid);
        return valid;
    }
    static void Set(Control& control, TimeValue t, float value) { control.SetValue(t, &value); }
    static IKeyControl* KeysOf(Control& control)
    {
        return static_cast<IKeyControl*>(control.GetInterface(I_KEYCONTROL));
    }
};

TEST_F(ControllerTest, AConstantHoldsForever)
{
    Control* control = MakeFloat();
    Set(*control, 0, 2.5f);
    EXPECT_EQ(ValueAt(*control, -1000), 2.5f);
    EXPECT_EQ(ValueAt(*control, 99999), 2.5f);
    EXPECT_TRUE(ValidityAt(*control, 50) == FOREVER);
}

TEST_F(ControllerTest, RelativeReadingAddsToAFloat)
{
    Control* control = MakeFloat();
    Set(*control, 0, 2.0f);
    float value = 10.0f;
    Interval valid = FOREVER;
    control->GetValue(0, &value, valid, CTRL_RELATIVE);
    EXPECT_EQ(value, 12.0f);
}

TEST_F(ControllerTest, KeysHoldOutsideTheirRangeAndNarrowTheValidity)
{
    Control* control = MakeFloat();
    maxhost::SetKeys(*control, {MakeKey(320, 4.0f), MakeKey(160, 1.0f)});
    EXPECT_EQ(ValueAt(*control, 0), 1.0f);
    EXPECT_EQ(ValueAt(*control, 240), 2.5f);
    EXPECT_EQ(ValueAt(*control, 1000), 4.0f);
    EXPECT_TRUE(ValidityAt(*control, 0) == Interval(TIME_NegInfinity, 160));
    EXPECT_TRUE(ValidityAt(*control, 240) == Interval(240, 240));
    EXPECT_TRUE(ValidityAt(*control, 400) == Interval(320, TIME_PosInfinity));
}

TEST_F(ControllerTest, KeysComeBackSorted)
{
    Control* control = MakeFloat();
    maxhost::SetKeys(*control, {MakeKey(320, 4.0f), MakeKey(0, 1.0f), MakeKey(160, 2.0f)});
    ASSERT_EQ(KeysOf(*control)->GetNumKeys(), 3);
    AnyKey any;
    KeysOf(*control)->GetKey(1, any);
    const auto* key = static_cast<IBezFloatKey*>(static_cast<IKey*>(any));
    EXPECT_EQ(key->time, 160);
    EXPECT_EQ(key->val, 2.0f);
    EXPECT_FLOAT_EQ(key->inLength, 1.0f / 3.0f);
    EXPECT_LE(KeysOf(*control)->GetKeySize(), 128);
}

TEST_F(ControllerTest, LinearControllersHaveKeysOfTheirOwnKind)
{
    Control* control = MakeFloat(LININTERP_FLOAT_CLASS_ID);
    ILinFloatKey key;
    key.time = 100;
    key.val = 10.0f;
    KeysOf(*control)->AppendKey(&key);
    key.time = 0;
    key.val = 2.0f;
    KeysOf(*control)->AppendKey(&key);
    KeysOf(*control)->SortKeys();
    EXPECT_EQ(ValueAt(*control, 25), 4.0f);
    EXPECT_EQ(KeysOf(*control)->GetKeySize(), static_cast<int>(sizeof(ILinFloatKey)));
}

TEST_F(ControllerTest, FlatTangentsEaseInAndOut)
{
    Control* control = MakeFloat();
    maxhost::SetKeys(*control, {MakeKey(0, 0.0f, BEZKEY_FLAT), MakeKey(400, 1.0f, BEZKEY_FLAT)});
    // With handles of a third, time runs evenly, and the curve is 3u^2 - 2u^3.
    EXPECT_NEAR(ValueAt(*control, 100), 0.15625f, 1e-5f);
    EXPECT_NEAR(ValueAt(*control, 200), 0.5f, 1e-5f);
    EXPECT_NEAR(ValueAt(*control, 300), 0.84375f, 1e-5f);
}

TEST_F(ControllerTest, UserTangentsPointAwayFromTheirKey)
{
    Control* control = MakeFloat();
    IBezFloatKey first = MakeKey(0, 0.0f, BEZKEY_USER);
    IBezFloatKey second = MakeKey(300, 0.0f, BEZKEY_USER);
    first.outtan = 0.03f;  // up to 3 at a third of 300 ticks
    second.intan = 0.06f;  // up to 6 at a third before the key
    maxhost::SetKeys(*control, {first, second});
    EXPECT_NEAR(ValueAt(*control, 150), 0.375f * 3.0f + 0.375f * 6.0f, 1e-4f);
    EXPECT_NEAR(ValueAt(*control, 75), 0.421875f * 3.0f + 0.140625f * 6.0f, 1e-4f);
}

TEST_F(ControllerTest, HandleLengthsBendTime)
{
    Control* control = MakeFloat();
    IBezFloatKey first = MakeKey(0, 0.0f, BEZKEY_FLAT);
    IBezFloatKey second = MakeKey(1000, 1.0f, BEZKEY_FLAT);
    first.outLength = 1.0f;
    second.inLength = 0.0f;
    maxhost::SetKeys(*control, {first, second});
    // x(u) = 3u(1-u)^2 + 3u^2(1-u) + u^3, y(u) = 3u^2(1-u) + u^3; u = 1/2 is x 7/8.
    EXPECT_NEAR(ValueAt(*control, 875), 0.5f, 1e-4f);
}

TEST_F(ControllerTest, SmoothTangentsFollowTheNeighbours)
{
    Control* control = MakeFloat();
    maxhost::SetKeys(*control, {MakeKey(0, 0.0f, BEZKEY_SMOOTH), MakeKey(100, 1.0f, BEZKEY_SMOOTH),
                                MakeKey(200, 2.0f, BEZKEY_SMOOTH)});
    EXPECT_NEAR(ValueAt(*control, 50), 0.5f, 1e-5f);
    maxhost::SetKeys(*control, {MakeKey(0, 0.0f, BEZKEY_SMOOTH), MakeKey(100, 1.0f, BEZKEY_SMOOTH),
                                MakeKey(200, 0.0f, BEZKEY_SMOOTH)});
    // Level at the top: the second half mirrors the first.
    EXPECT_NEAR(ValueAt(*control, 60), ValueAt(*control, 140), 1e-6f);
    EXPECT_GT(ValueAt(*control, 60), 0.6f);
}

TEST_F(ControllerTest, StepsHoldUntilTheNextKey)
{
    Control* control = MakeFloat();
    maxhost::SetKeys(*control, {MakeKey(0, 1.0f, BEZKEY_STEP), MakeKey(100, 2.0f, BEZKEY_STEP)});
    EXPECT_EQ(ValueAt(*control, 99), 1.0f);
    EXPECT_EQ(ValueAt(*control, 100), 2.0f);
}

TEST_F(ControllerTest, SettingWhileAnimatingMakesKeys)
{
    Control* control = MakeFloat();
    Set(*control, 0, 1.0f);
    AnimateOn();
    EXPECT_TRUE(Animating());
    Set(*control, 0, 2.0f);
    EXPECT_EQ(KeysOf(*control)->GetNumKeys(), 0);  // time 0 changes the constant
    Set(*control, 160, 5.0f);
    ASSERT_EQ(KeysOf(*control)->GetNumKeys(), 2);
    AnimateOff();
    EXPECT_EQ(ValueAt(*control, 0), 2.0f);
    EXPECT_EQ(ValueAt(*control, 160), 5.0f);
}

TEST_F(ControllerTest, SettingWithoutAnimationMovesAllKeys)
{
    Control* control = MakeFloat();
    maxhost::SetKeys(*control, {MakeKey(0, 1.0f), MakeKey(100, 3.0f)});
    Set(*control, 50, 12.0f);
    EXPECT_EQ(KeysOf(*control)->GetNumKeys(), 2);
    EXPECT_EQ(ValueAt(*control, 0), 11.0f);
    EXPECT_EQ(ValueAt(*control, 100), 13.0f);
}

TEST_F(ControllerTest, SuspendedAnimationCountsUntilAllHaveResumed)
{
    AnimateOn();
    SuspendAnimate();
    SuspendAnimate();
    ResumeAnimate();
    EXPECT_FALSE(Animating());
    ResumeAnimate();
    EXPECT_TRUE(Animating());
    AnimateOff();
}

TEST_F(ControllerTest, ANewNodeHasTheHostsDefaultControllers)
{
    INode* node = maxhost::MakeNode("n");
    Control* transform = node->GetTMController();
    EXPECT_EQ(transform->SuperClassID(), 0x9008u);
    EXPECT_TRUE(transform->ClassID() == Class_ID(0x2005, 0));
    EXPECT_NE(transform->GetPositionController()->GetXController(), nullptr);
    EXPECT_NE(transform->GetRotationController()->GetZController(), nullptr);
    EXPECT_TRUE(transform->GetRotationController()->ClassID() == Class_ID(0x2012, 0));
    ASSERT_NE(transform->GetScaleController(), nullptr);
    EXPECT_TRUE(transform->GetScaleController()->ClassID() == Class_ID(0x2010, 0));
    EXPECT_EQ(transform->GetScaleController()->GetXController(), nullptr);
    EXPECT_EQ(transform->GetXController(), nullptr);
    EXPECT_STREQ(transform->SubAnimName(1).data(), "Rotation");
    EXPECT_STREQ(transform->GetPositionController()->SubAnimName(2).data(), "Z Position");
}

TEST_F(ControllerTest, ABezierPositionHasNoParts)
{
    INode* node = maxhost::MakeNode("n");
    Control* position = Make(CTRL_POSITION_CLASS_ID, Class_ID(HYBRIDINTERP_POSITION_CLASS_ID, 0));
    Point3 value(1, 2, 3);
    position->SetValue(0, &value);
    EXPECT_TRUE(node->GetTMController()->SetPositionController(position));
    EXPECT_EQ(node->GetTMController()->GetPositionController()->GetXController(), nullptr);
    ExpectNear(node->GetNodeTM(0).GetTrans(), Point3(1, 2, 3));
}

TEST_F(ControllerTest, ATransformRefusesPartsOfAnotherKind)
{
    INode* node = maxhost::MakeNode("n");
    EXPECT_FALSE(node->GetTMController()->SetScaleController(MakeFloat()));
    EXPECT_NE(node->GetTMController()->GetScaleController(), nullptr);
}

TEST_F(ControllerTest, ScaleXYZKeepsTheScaleAndHasParts)
{
    INode* node = maxhost::MakeNode("n");
    maxhost::SetScale(*node, Point3(2, 3, 4));
    EXPECT_EQ(maxhost::GetTrack(*node, Track::ScaleY), nullptr);
    maxhost::UseScaleXYZ(*node);
    ASSERT_NE(maxhost::GetTrack(*node, Track::ScaleY), nullptr);
    EXPECT_EQ(ValueAt(*maxhost::GetTrack(*node, Track::ScaleY), 0), 3.0f);
    maxhost::AddKey(*node, Track::ScaleX, 0, 2.0f);
    maxhost::AddKey(*node, Track::ScaleX, 160, 6.0f);
    ExpectNear(node->GetNodeTM(80).GetRow(0), Point3(4, 0, 0));
    ExpectNear(node->GetNodeTM(80).GetRow(2), Point3(0, 0, 4));
}

TEST_F(ControllerTest, EulerAnglesTurnAboutXThenYThenZ)
{
    INode* node = maxhost::MakeNode("n");
    maxhost::SetRotation(*node, Point3(0.3f, -0.5f, 1.2f));
    ExpectNear(node->GetNodeTM(0), RotateXMatrix(0.3f) * RotateYMatrix(-0.5f) * RotateZMatrix(1.2f));
    Quat q;
    Interval valid = FOREVER;
    node->GetTMController()->GetRotationController()->GetValue(0, &q, valid);
    Matrix3 m;
    q.MakeMatrix(m);
    ExpectNear(m, node->GetNodeTM(0));
}

TEST_F(ControllerTest, ARotationThatIsSetTakesTheNearestAngles)
{
    INode* node = maxhost::MakeNode("n");
    maxhost::SetRotation(*node, Point3(0.1f, 0.2f, 6.0f));
    Matrix3 tm = RotateXMatrix(0.1f) * RotateYMatrix(0.2f) * RotateZMatrix(6.5f);
    node->SetNodeTM(0, tm);
    EXPECT_NEAR(ValueAt(*maxhost::GetTrack(*node, Track::RotationZ), 0), 6.5f, 1e-4f);
    EXPECT_NEAR(ValueAt(*maxhost::GetTrack(*node, Track::RotationX), 0), 0.1f, 1e-4f);
}

TEST_F(ControllerTest, AGimbalLockedRotationComesOutRight)
{
    for (const float y : {1.57079633f, -1.57079633f}) {
        INode* node = maxhost::MakeNode("n");
        Matrix3 tm = RotateXMatrix(0.4f) * RotateYMatrix(y) * RotateZMatrix(0.7f);
        node->SetNodeTM(0, tm);
        ExpectNear(node->GetNodeTM(0), tm, 1e-5f);
    }
}

TEST_F(ControllerTest, BezierScaleInterpolatesItsKeys)
{
    Control* scale = Make(CTRL_SCALE_CLASS_ID, Class_ID(HYBRIDINTERP_SCALE_CLASS_ID, 0));
    IBezScaleKey key;
    key.intan = key.outtan = Point3(0, 0, 0);
    key.inLength = key.outLength = Point3(1, 1, 1) / 3.0f;
    key.val = ScaleValue(Point3(1, 1, 1));
    SetInTanType(key.flags, BEZKEY_LINEAR);
    SetOutTanType(key.flags, BEZKEY_LINEAR);
    KeysOf(*scale)->AppendKey(&key);
    key.time = 100;
    key.val = ScaleValue(Point3(3, 1, 5));
    KeysOf(*scale)->AppendKey(&key);
    ScaleValue value;
    Interval valid = FOREVER;
    scale->GetValue(50, &value, valid);
    ExpectNear(value.s, Point3(2, 1, 3));
}

}  // namespace
