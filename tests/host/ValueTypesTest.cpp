#include "HostTest.h"

namespace {

TEST(ClassIds, HaveThirtyTwoBitParts)
{
    EXPECT_EQ(sizeof(ULONG), 4u);
    EXPECT_EQ(sizeof(DWORD), 4u);
    EXPECT_EQ(VERSION_3DSMAX, 720902400);
    const Class_ID id(0xfffffffe, 3);
    EXPECT_EQ(id.PartA(), 0xfffffffeu);
    EXPECT_TRUE(id != Class_ID(0xfffffffe, 4));
    EXPECT_TRUE(Class_ID(1, 9) < Class_ID(2, 0));
    EXPECT_TRUE(Class_ID() == Class_ID(0xffffffff, 0xffffffff));
}

TEST(Interval, StartsAsNeverAndOrdersItsEnds)
{
    EXPECT_TRUE(Interval().Empty());
    EXPECT_FALSE(Interval().InInterval(TIME_NegInfinity));
    const Interval swapped(20, 10);
    EXPECT_EQ(swapped.Start(), 10);
    EXPECT_EQ(swapped.End(), 20);
    EXPECT_TRUE(swapped.InInterval(10));
    EXPECT_FALSE(swapped.InInterval(21));
}

TEST(Interval, TheCommonPartOfStrangersIsNever)
{
    EXPECT_TRUE((Interval(0, 10) & Interval(5, 20)) == Interval(5, 10));
    EXPECT_TRUE((Interval(0, 4) & Interval(5, 20)).Empty());
    EXPECT_TRUE((FOREVER & Interval(5, 20)) == Interval(5, 20));
    EXPECT_TRUE((NEVER & FOREVER).Empty());
}

TEST(Box3, ACubeHasItsPointInTheMiddle)
{
    Box3 box;
    EXPECT_TRUE(box.IsEmpty());
    box.MakeCube(Point3(1, 2, 3), 4.0f);
    ExpectNear(box.Min(), Point3(-1, 0, 1));
    ExpectNear(box.Max(), Point3(3, 4, 5));
    ExpectNear((box * RotateZMatrix(1.57079633f)).Min(), Point3(-4, -1, 1));
}

TEST(CStr, OwnsItsText)
{
    CStr text("bone");
    CStr copy = text;
    copy.data()[0] = 'c';
    EXPECT_STREQ(text, "bone");
    EXPECT_STREQ(copy, "cone");
}

TEST(CStr, OneThatWasNeverAssignedHasNoText)
{
    CStr text;
    EXPECT_EQ(text.data(), nullptr);
    EXPECT_EQ(static_cast<const char*>(text), nullptr);
    EXPECT_EQ(CStr(static_cast<const char*>(nullptr)).data(), nullptr);
    EXPECT_EQ(CStr(text).data(), nullptr);
    EXPECT_TRUE(text.isNull());
    EXPECT_EQ(text.Length(), 0);
    EXPECT_EQ(text.first('a'), -1);
    EXPECT_TRUE(text == CStr(""));
    EXPECT_STREQ((text + "a").data(), "a");
    EXPECT_STREQ(text.Substr(0, 1).data(), "");
    text.toUpper();
    EXPECT_EQ(text.data(), nullptr);
    text = "";
    EXPECT_STREQ(text.data(), "");
    text = L"wide";
    EXPECT_STREQ(text.data(), "wide");
}

TEST(CStr, IsAsLongAsWhatItsBufferHolds)
{
    CStr text;
    text.Resize(100);
    std::snprintf(text.data(), 100, "frame %d", 12);
    EXPECT_EQ(text.Length(), 8);
    text += CStr("!");
    EXPECT_STREQ(text, "frame 12!");
}

TEST(CStr, FindsCutsAndCompares)
{
    CStr text("a.b.c");
    EXPECT_EQ(text.first('.'), 1);
    EXPECT_EQ(text.last('.'), 3);
    EXPECT_EQ(text.first('x'), -1);
    EXPECT_STREQ(text.Substr(2, 9).data(), "b.c");
    EXPECT_STREQ(text.remove(1, 2).data(), "a.c");
    EXPECT_TRUE(CStr("a") < CStr("b"));
    EXPECT_TRUE(CStr("a") == CStr("a"));
    text.toUpper();
    EXPECT_STREQ(text, "A.C");
    EXPECT_EQ(text.printf("%s%03d", "n", 7), 4);
    EXPECT_STREQ(text, "n007");
}

TEST(Tab, CopiesItsElementsBitByBit)
{
    Tab<int> tab;
    int values[] = {1, 2, 3};
    EXPECT_EQ(tab.Append(3, values), 0);
    EXPECT_EQ(tab.Append(1, values), 3);
    tab.Insert(1, 2, values + 1);
    tab.Delete(0, 1);
    Tab<int> copy = tab;
    copy[0] = 9;
    EXPECT_EQ(tab.Count(), 5);
    EXPECT_EQ(tab[0], 2);
    EXPECT_EQ(tab[1], 3);
    EXPECT_EQ(tab[2], 2);
    EXPECT_EQ(tab[4], 1);
    tab.SetCount(2);
    EXPECT_EQ(tab.Count(), 2);
}

TEST(Color, ReadsAColourWord)
{
    const Color colour(DWORD(0x00336699));
    EXPECT_FLOAT_EQ(colour.r, 0x99 / 255.0f);
    EXPECT_FLOAT_EQ(colour.g, 0x66 / 255.0f);
    EXPECT_FLOAT_EQ(colour.b, 0x33 / 255.0f);
}

}  // namespace
