#include "VKT/stream/NumberText.h"

#include <gtest/gtest.h>

#include <charconv>
#include <cmath>
#include <random>

using namespace VKT;
using namespace VKT::NumberText;

namespace {

// A token in the middle of a text that it must not see.
template <class T>
bool ParseAmid(const std::string& token, T& value)
{
    const std::string text = "99999999" + token + "99999999";
    return ParseShort(text.data() + 8, text.data() + 8 + token.size(), value);
}

TEST(NumberText, FindsTheWhiteSpaceOfTheClassicLocale)
{
    std::string text;
    for (int i = 0; i < 256; ++i)
        text += static_cast<char>(i);
    for (std::size_t block = 0; block < 256; block += 64) {
        u64 expected = 0;
        for (std::size_t i = 0; i < 64; ++i)
            expected |= u64{std::string_view("\t\n\v\f\r ").find(text[block + i]) != std::string_view::npos}
                        << i;
        EXPECT_EQ(FindSpaces(text.data() + block), expected) << block;
    }
}

TEST(NumberText, ShortIntegers)
{
    u32 natural = 0;
    EXPECT_TRUE(ParseAmid("0", natural));
    EXPECT_EQ(natural, 0u);
    EXPECT_TRUE(ParseAmid("12345678", natural));
    EXPECT_EQ(natural, 12345678u);
    i32 value = 0;
    EXPECT_TRUE(ParseAmid("-12345678", value));
    EXPECT_EQ(value, -12345678);
    EXPECT_TRUE(ParseAmid("00000007", value));
    EXPECT_EQ(value, 7);
    for (const char* const text :
         {"", "-", "+1", "123456789", "1.5", "1x", "--1", "1e1", ":", "/", "\xB1", "1\xFF"})
        EXPECT_FALSE(ParseAmid(text, value)) << text;
    EXPECT_FALSE(ParseAmid("-1", natural));
}

TEST(NumberText, ShortFloatsAreTheNearest)
{
    std::mt19937 random(40);
    int parsed = 0;
    for (int i = 0; i < 300000; ++i) {
        std::string text = random() % 2 ? "-" : "";
        if (random() % 3 == 0)
            text += "0.";
        const std::size_t digits = 1 + random() % 9;
        for (std::size_t digit = 0; digit < digits; ++digit)
            text += static_cast<char>('0' + random() % 10);
        if (text.find('.') == text.npos && random() % 3)
            text.insert(text.size() - random() % digits, 1, '.');
        f32 expected = 0.0f;
        std::from_chars(text.data(), text.data() + text.size(), expected);
        f32 value = 0.0f;
        if (ParseAmid(text, value)) {
            ++parsed;
            ASSERT_EQ(std::bit_cast<u32>(value), std::bit_cast<u32>(expected)) << text;
        }
    }
    EXPECT_GT(parsed, 200000);  // the short path is the usual one
}

TEST(NumberText, ShortFloatsRefuseEverythingElse)
{
    f32 value = 0.0f;
    for (const char* const text :
         {"",    "-",   ".",   "-.",  "0.",        "0.5.5",    "1.5.5",      "..", "1e5", "+1",  "1,5",
          "1/5", "inf", "nan", "0x1", "123456789", "16777217", "0.16777217", "1-", "-+1", "1.x", "\xFE.1"})
        EXPECT_FALSE(ParseAmid(text, value)) << text;
    EXPECT_TRUE(ParseAmid("16777216", value));
    EXPECT_EQ(value, 16777216.0f);
    EXPECT_TRUE(ParseAmid("-0.00123456", value));
    EXPECT_EQ(value, -0.00123456f);
    EXPECT_TRUE(ParseAmid("5.", value));
    EXPECT_EQ(value, 5.0f);
}

// How many characters a scan takes, 0 when it refuses.
template <class T>
std::ptrdiff_t Scan(const std::string& text, T& value)
{
    const char* const end = ScanShort(text.c_str(), value);
    return end ? end - text.c_str() : 0;
}

TEST(NumberText, ScansAnswerTheEnd)
{
    u32 natural = 9;
    EXPECT_EQ(Scan("012 ", natural), 3);
    EXPECT_EQ(natural, 12u);
    EXPECT_EQ(Scan("999999999x", natural), 9);
    EXPECT_EQ(natural, 999999999u);
    EXPECT_EQ(Scan("1000000000", natural), 0);
    EXPECT_EQ(Scan("-1", natural), 0);
    EXPECT_EQ(Scan("", natural), 0);
    EXPECT_EQ(natural, 999999999u);
    i32 value = 9;
    EXPECT_EQ(Scan("-999999999", value), 10);
    EXPECT_EQ(value, -999999999);
    EXPECT_EQ(Scan("--1", value), 0);
    EXPECT_EQ(Scan("+1", value), 0);
    f32 real = 9.0f;
    EXPECT_EQ(Scan("-1.25e5", real), 5);  // whoever calls looks at what follows
    EXPECT_EQ(real, -1.25f);
    EXPECT_EQ(Scan(".5.5", real), 2);
    EXPECT_EQ(real, 0.5f);
    EXPECT_EQ(Scan("-0", real), 2);
    EXPECT_EQ(std::bit_cast<u32>(real), 0x80000000u);
    for (const char* const text : {"", "-", ".", "-.", "+1", "16777217", "1.6777217", "0.00000000001",
                                   "0000000000000000000.1", "18446744073709551617", "inf", "e5"})
        EXPECT_EQ(Scan(text, real), 0) << text;
}

TEST(NumberText, ScannedFloatsAreTheNearest)
{
    std::mt19937 random(41);
    int scanned = 0;
    for (int i = 0; i < 300000; ++i) {
        std::string text = std::to_string(random() >> (8 + random() % 24));
        text.insert(random() % (text.size() + 1), 1, '.');
        f32 expected = 0.0f;
        std::from_chars(text.data(), text.data() + text.size(), expected);
        f32 value = 0.0f;
        if (Scan(text, value) != 0) {
            ++scanned;
            ASSERT_EQ(std::bit_cast<u32>(value), std::bit_cast<u32>(expected)) << text;
        }
    }
    EXPECT_GT(scanned, 290000);
}

TEST(NumberText, DecimalAnswersItsLength)
{
    f32 value = 9.0f;
    for (const char* const text : {"", "-", "+", ".", "x1", "inf", "nan", "-inf", "--1", "+-1", " 1"}) {
        EXPECT_EQ(ParseDecimal(text, value), 0u) << text;
        EXPECT_EQ(value, 9.0f);
    }
    EXPECT_EQ(ParseDecimal("-1.5e3x", value), 6u);
    EXPECT_EQ(value, -1500.0f);
    EXPECT_EQ(ParseDecimal("+1e", value), 2u);
    EXPECT_EQ(value, 1.0f);
}

TEST(NumberText, DecimalOutOfRangeKeepsItsSign)
{
    const std::string zeroes(100, '0');
    f32 value = 0.0f;
    for (const std::string& text :
         {std::string("1e39"), "1" + zeroes, "1" + zeroes + "e-50", std::string("9e99999999999999999999")}) {
        EXPECT_EQ(ParseDecimal(text, value), text.size());
        EXPECT_TRUE(std::isinf(value) && value > 0) << text;
        ParseDecimal("-" + text, value);
        EXPECT_TRUE(std::isinf(value) && value < 0) << text;
    }
    for (const std::string& text :
         {std::string("1e-60"), "0." + zeroes + "1", "." + zeroes + "1e50",
          std::string("9e-99999999999999999999"), std::string("0e99999999999999999999")}) {
        EXPECT_EQ(ParseDecimal(text, value), text.size());
        EXPECT_EQ(std::bit_cast<u32>(value), 0u) << text;
        ParseDecimal("-" + text, value);
        EXPECT_EQ(std::bit_cast<u32>(value), 0x80000000u) << text;
    }
}

}  // namespace
