#include "HostTest.h"

#include "host/core/ClassDirectory.h"
#include "host/core/References.h"
#include "units.h"

namespace {

class HeadlessHostTest : public HostTest {};

TEST_F(HeadlessHostTest, TheClockStartsAtThirtyFramesOverAHundred)
{
    EXPECT_EQ(GetFrameRate(), 30);
    EXPECT_EQ(GetTicksPerFrame(), 160);
    EXPECT_TRUE(Core().GetAnimRange() == Interval(0, 16000));
    EXPECT_EQ(Core().GetTime(), 0);
    EXPECT_FALSE(Animating());
}

TEST_F(HeadlessHostTest, FrameRateAndTicksMakeASecond)
{
    for (const int rate : {1, 15, 24, 25, 30, 60, 4800}) {
        SetFrameRate(rate);
        EXPECT_EQ(GetFrameRate(), rate);
        EXPECT_EQ(GetFrameRate() * GetTicksPerFrame(), 4800);
    }
    SetTicksPerFrame(200);
    EXPECT_EQ(GetFrameRate(), 24);
    SetFrameRate(0);
    EXPECT_EQ(GetFrameRate(), 1);
}

TEST_F(HeadlessHostTest, FoldersAreWhatTheyAreSetTo)
{
    EXPECT_GT(std::string(Core().GetDir(APP_IMAGE_DIR)).size(), 0u);
    Host().SetDirectory(APP_PLUGCFG_DIR, "/tmp/private");
    EXPECT_STREQ(Core().GetDir(APP_PLUGCFG_DIR), "/tmp/private");
    Host().Reset();
    EXPECT_STREQ(Core().GetDir(APP_PLUGCFG_DIR), "/tmp/private");
}

TEST_F(HeadlessHostTest, ResetFreesWhatNobodyEnded)
{
    INode* node = maxhost::MakeNode("n", maxhost::MakeBox(Point3(1, 1, 1)));
    maxhost::AddModifier(*node, Class_ID(0x10, 0));
    node->EvalWorldState(0);
    node->SetMtl(maxhost::MakeMultiMaterial("m", {maxhost::MakeMaterial("a"), maxhost::MakeMaterial("b")}));
    maxhost::MakeBitmap("unused", "");
    maxhost::MakeBox(Point3(1, 1, 1))->ConvertToType(0, triObjectClassID);
    node->GetObjectRef()->ConvertToType(0, triObjectClassID);
    EXPECT_GT(maxhost::SceneObjects::Count(), 5u);
    Core().SetTime(800);
    Core().SetAnimRange(Interval(5, 6));
    SetFrameRate(25);
    AnimateOn();
    Core().SelectNode(node);

    Host().Reset();
    EXPECT_EQ(maxhost::SceneObjects::Count(), 0u);
    EXPECT_EQ(Core().GetRootNode()->NumberOfChildren(), 0);
    EXPECT_EQ(Core().GetSelNodeCount(), 0);
    EXPECT_EQ(Core().GetTime(), 0);
    EXPECT_TRUE(Core().GetAnimRange() == Interval(0, 16000));
    EXPECT_EQ(GetFrameRate(), 30);
    EXPECT_FALSE(Animating());
}

TEST_F(HeadlessHostTest, EveryBuiltInClassMakesWhatItSays)
{
    int count = 0;
    for (const SClass_ID superClass :
         {GEOMOBJECT_CLASS_ID, CAMERA_CLASS_ID, LIGHT_CLASS_ID, SHAPE_CLASS_ID, HELPER_CLASS_ID, OSM_CLASS_ID,
          MATERIAL_CLASS_ID, TEXMAP_CLASS_ID, UVGEN_CLASS_ID, CTRL_FLOAT_CLASS_ID, CTRL_MATRIX3_CLASS_ID,
          CTRL_POSITION_CLASS_ID, CTRL_ROTATION_CLASS_ID, CTRL_SCALE_CLASS_ID}) {
        for (ClassDesc* desc : Host().GetClasses().FindAll(superClass)) {
            // All bases of the host's own classes begin with their Animatable.
            auto* made = static_cast<Animatable*>(Core().CreateInstance(superClass, desc->ClassID()));
            ASSERT_NE(made, nullptr) << desc->ClassName();
            EXPECT_EQ(made->SuperClassID(), superClass) << desc->ClassName();
            EXPECT_TRUE(made->ClassID() == desc->ClassID()) << desc->ClassName();
            MSTR name;
            made->GetClassName(name);
            EXPECT_STREQ(name, desc->ClassName());
            ++count;
        }
    }
    EXPECT_GE(count, 48);
}

TEST_F(HeadlessHostTest, UnknownClassesAreNull)
{
    EXPECT_EQ(Core().CreateInstance(GEOMOBJECT_CLASS_ID, Class_ID(1, 2)), nullptr);
    EXPECT_EQ(Core().CreateInstance(LIGHT_CLASS_ID, triObjectClassID), nullptr);
}

class PointlessDesc final : public ClassDesc {
public:
    int IsPublic() override { return 0; }
    void* Create(BOOL) override { return this; }
    const MCHAR* ClassName() override { return "Pointless"; }
    SClass_ID SuperClassID() override { return UTILITY_CLASS_ID; }
    Class_ID ClassID() override { return Class_ID(5, 6); }
    const MCHAR* Category() override { return ""; }
};

TEST(ClassDirectory, GivesEachIdToOneClass)
{
    maxhost::ClassDirectory classes;
    PointlessDesc first;
    PointlessDesc second;
    EXPECT_TRUE(classes.Add(first));
    EXPECT_FALSE(classes.Add(second));
    classes.Remove(second);
    EXPECT_EQ(classes.Find(UTILITY_CLASS_ID, Class_ID(5, 6)), &first);
    EXPECT_EQ(classes.Create(UTILITY_CLASS_ID, Class_ID(5, 6)), &first);
    classes.Remove(first);
    EXPECT_EQ(classes.Find(UTILITY_CLASS_ID, Class_ID(5, 6)), nullptr);
    EXPECT_TRUE(classes.FindAll(UTILITY_CLASS_ID).empty());
}

}  // namespace
