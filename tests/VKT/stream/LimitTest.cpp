#include "VKT/stream/Limit.h"

#include <gtest/gtest.h>

#include <limits>

#include "VKT/support/CommaLocale.h"

using namespace VKT;

namespace {

u32 Lower(const char* text)
{
    XTextReader in(text);
    return std::bit_cast<u32>(XReadLowerLimit(in));
}

u32 Upper(const char* text)
{
    XTextReader in(text);
    return std::bit_cast<u32>(XReadUpperLimit(in));
}

u32 BitsOf(f32 value)
{
    return std::bit_cast<u32>(value);
}

std::string Written(u32 bits)
{
    XTextWriter out;
    XWriteLimit(out, std::bit_cast<f32>(bits));
    return out.TakeText();
}

TEST(Limit, SentinelsReadAsTheirWords)
{
    EXPECT_EQ(Lower("-INF"), 0xFFFFFFFFu);
    EXPECT_EQ(Upper("+INF"), 0x7FFFFFFFu);
}

TEST(Limit, ForeignSentinelIsNoNumber)
{
    EXPECT_EQ(Lower("+INF"), 0xFFFFFFFFu);
    EXPECT_EQ(Upper("-INF"), 0x7FFFFFFFu);
}

TEST(Limit, TokenWithoutANumberGivesTheSentinel)
{
    for (const char* const text : {"", "x", "-inf", "inf", "nan", "-", ".", "e5", "-x", "INF"}) {
        EXPECT_EQ(Lower(text), 0xFFFFFFFFu) << text;
        EXPECT_EQ(Upper(text), 0x7FFFFFFFu) << text;
    }
}

TEST(Limit, NumberInFrontOfATokenCounts)
{
    EXPECT_EQ(Lower("3.5"), BitsOf(3.5f));
    EXPECT_EQ(Upper("3.5"), BitsOf(3.5f));
    EXPECT_EQ(Lower("+3.5"), BitsOf(3.5f));
    EXPECT_EQ(Lower("-0"), BitsOf(-0.0f));
    EXPECT_EQ(Lower("-1e-005"), BitsOf(-1e-5f));
    EXPECT_EQ(Upper("2.5abc"), BitsOf(2.5f));
    EXPECT_EQ(Upper("1,5"), BitsOf(1.0f));
    EXPECT_EQ(Upper("1e"), BitsOf(1.0f));
    EXPECT_EQ(Upper("1e99"), BitsOf(std::numeric_limits<f32>::infinity()));
    EXPECT_EQ(Lower("-1e99"), BitsOf(-std::numeric_limits<f32>::infinity()));
    EXPECT_EQ(Lower("-1e-99"), BitsOf(-0.0f));
}

TEST(Limit, TakesOneToken)
{
    XTextReader in("-INF +INF 7");
    EXPECT_TRUE(IsNoLowerLimit(XReadLowerLimit(in)));
    EXPECT_TRUE(IsNoUpperLimit(XReadUpperLimit(in)));
    i32 value = 0;
    EXPECT_TRUE(in.Read(value));
    EXPECT_EQ(value, 7);
}

TEST(Limit, WordsAreWrittenByTheirBits)
{
    EXPECT_EQ(Written(0xFFFFFFFF), "-INF");
    EXPECT_EQ(Written(0x7FFFFFFF), "+INF");
    EXPECT_EQ(Written(BitsOf(-3.5f)), "-3.5");
    EXPECT_EQ(Written(0x7F800000), "inf");
    EXPECT_EQ(Written(0xFF800000), "-inf");
    EXPECT_EQ(Written(0x7FC00000), "nan");
    EXPECT_EQ(Written(0xFFFFFFFE), "-nan");
    EXPECT_EQ(Written(BitsOf(NoLowerLimit())), "-INF");
    EXPECT_EQ(Written(BitsOf(NoUpperLimit())), "+INF");
}

TEST(Limit, GlobalLocaleChangesNothing)
{
    const CommaLocale locale;
    EXPECT_EQ(Lower("1234.5"), BitsOf(1234.5f));
    EXPECT_EQ(Written(BitsOf(1234.5f)), "1234.5");
}

}  // namespace
