#include "VKT/stream/TextReader.h"

#include <gtest/gtest.h>

#include <bit>
#include <cstring>
#include <random>
#include <sstream>

#include "VKT/support/CommaLocale.h"
#include "VKT/support/EachReader.h"

using namespace VKT;

namespace {

std::istringstream ClassicStream(const std::string& text)
{
    std::istringstream stream(text);
    stream.imbue(std::locale::classic());
    return stream;
}

void ExpectSameState(const XTextReader& in, const std::istream& stream)
{
    ASSERT_EQ(in.HasFailed(), stream.fail());
    ASSERT_EQ(in.IsGood(), !stream.fail());
    ASSERT_EQ(in.IsAtEnd(), stream.eof());
}

template <class T>
bool SameBits(const T& a, const T& b)
{
    return std::memcmp(&a, &b, sizeof(T)) == 0;
}

// A failed stream leaves what it was given; a reader answers zero.
template <class T>
void ExpectSameNumber(XTextReader& in, std::istream& stream)
{
    T expected{};
    T value = static_cast<T>(1);
    stream >> expected;
    const bool answer = in.Read(value);
    ASSERT_TRUE(SameBits(value, expected)) << value << " for " << expected;
    ASSERT_EQ(answer, !stream.fail());
    ExpectSameState(in, stream);
}

template <class T>
void ExpectSameNumbers(XTextReader& in, std::istream& stream, std::size_t count)
{
    std::vector<T> expected(count, T{});
    std::size_t wanted = 0;
    while (wanted < count && stream >> expected[wanted])
        ++wanted;
    if (wanted < count)
        expected[wanted] = T{};
    std::vector<T> values(count, static_cast<T>(1));
    ASSERT_EQ(in.ReadArray(values.data(), count), wanted == count);
    ASSERT_TRUE(count == 0 || std::memcmp(values.data(), expected.data(), count * sizeof(T)) == 0);
    ExpectSameState(in, stream);
}

void ExpectSameToken(XTextReader& in, std::istream& stream)
{
    std::string expected;
    XString token = "stale";
    stream >> expected;
    const bool answer = in.ReadToken(token);
    ASSERT_EQ(token, expected);
    ASSERT_EQ(answer, !stream.fail());
    ExpectSameState(in, stream);
}

void ExpectSameStep(XTextReader& in, std::istream& stream, unsigned kind)
{
    switch (kind % 16) {
        case 0:
            return ExpectSameToken(in, stream);
        case 1:
            return ExpectSameNumber<bool>(in, stream);
        case 2:
        case 3:
            return ExpectSameNumber<i32>(in, stream);
        case 4:
        case 5:
            return ExpectSameNumber<u32>(in, stream);
        case 6:
            return ExpectSameNumber<u64>(in, stream);
        case 7:
        case 8:
        case 9:
            return ExpectSameNumber<f32>(in, stream);
        case 10:
            return ExpectSameNumbers<f32>(in, stream, 5);
        case 11:
            return ExpectSameNumbers<i32>(in, stream, 4);
        case 12:
            return ExpectSameNumbers<u32>(in, stream, 3);
        case 13: {
            ASSERT_EQ(in.Get(), stream.get());
            return ExpectSameState(in, stream);
        }
        case 14: {
            ASSERT_EQ(in.Peek(), stream.peek());
            return ExpectSameState(in, stream);
        }
        default: {
            std::string expected;
            XString line = "stale";
            std::getline(stream, expected);
            in.ReadLine(line);
            ASSERT_EQ(line, expected);
            return ExpectSameState(in, stream);
        }
    }
}

template <class T>
void ExpectSameReadings(std::initializer_list<const char*> tokens)
{
    for (const char* const token : tokens) {
        for (const char* const behind : {"", " ", "\n7", "x", ".", "e", "-"}) {
            const std::string text = std::string(" ") + token + behind;
            SCOPED_TRACE("\"" + text + "\"");
            WithEachReader(text, [&](XTextReader& in) {
                std::istringstream stream = ClassicStream(text);
                ExpectSameNumber<T>(in, stream);
                ExpectSameToken(in, stream);
            });
        }
    }
}

TEST(TextReader, ReadsFloatsAsStreamsDo)
{
    ExpectSameReadings<f32>({
        "",
        "0",
        "-0",
        "+0",
        "00",
        "1",
        "+1.5",
        "-2.25",
        ".5",
        "-.5",
        "5.",
        "-5.",
        ".",
        "-",
        "+",
        "-.",
        "--1",
        "+-1",
        "1e5",
        "1E5",
        "1e+05",
        "1e-05",
        "1e-005",
        "1e",
        "1e+",
        "1e-",
        "1ee5",
        "1e5e",
        "1e5.5",
        "1.5.5",
        "..5",
        ".e5",
        "e5",
        "0.1",
        "0.100000",
        "0.00012345",
        "123456",
        "12345678",
        "123456789",
        "16777216",
        "16777217",
        "16777218",
        "16777219",
        "0.16777217",
        "1.23456789012345",
        "3.4028234e38",
        "3.4028235e38",
        "3.4028236e38",
        "1e39",
        "-1e39",
        "1e999999999999",
        "-1e999999999999",
        "1e-45",
        "7e-46",
        "7.1e-46",
        "-1e-60",
        "1e-999999999999",
        "1.17549e-38",
        "0e999999999999",
        "nan",
        "inf",
        "-inf",
        "infinity",
        "0x10",
        "1,5",
        "1'000",
        "1_000",
        "1\v",
        "0.0",
        "0.",
        "0..1",
        "0.0.1",
        "1/2",
        "00000000000000000000000000000000000000000000000000000000000000000000000001.5",
        "1000000000000000000000000000000000000000000000000000000000000000000000000e-70",
        "0.0000000000000000000000000000000000000000000000000000000000000000000000001e73",
        "1.00000005960464477539062",
        "1.000000059604644775390625",
        "1.0000000596046447753906251",
        "100000000",
        "99999999",
        "-99999999",
    });
}

TEST(TextReader, ReadsSignedIntegersAsStreamsDo)
{
    ExpectSameReadings<i32>({
        "",
        "0",
        "-0",
        "+0",
        "007",
        "1",
        "-1",
        "+1",
        "12345678",
        "123456789",
        "2147483647",
        "2147483648",
        "-2147483647",
        "-2147483648",
        "-2147483649",
        "4294967295",
        "99999999999999999999999",
        "-",
        "+",
        "--1",
        "-99999999999999999999999",
        "x",
        "0x10",
        "1.5",
        "1e3",
        "1,000",
        "1'000",
        "9223372036854775808",
    });
}

TEST(TextReader, ReadsUnsignedIntegersAsStreamsDo)
{
    const auto tokens = {
        "",
        "0",
        "-0",
        "+7",
        "-1",
        "-2",
        "4294967295",
        "4294967296",
        "-4294967295",
        "-4294967296",
        "-4294967297",
        "18446744073709551615",
        "18446744073709551616",
        "-18446744073709551615",
        "-18446744073709551616",
        "99999999999999999999999",
        "-",
        "x",
        "0x10",
        "1.5",
        "12345678",
        "123456789",
    };
    ExpectSameReadings<u32>(tokens);
    ExpectSameReadings<u64>(tokens);
}

TEST(TextReader, ReadsBoolsAsStreamsDo)
{
    ExpectSameReadings<bool>({"", "0", "1", "-0", "+1", "2", "-1", "01", "10", "true", "false", "-",
                              "99999999999999999999999", "-99999999999999999999999", "4294967296"});
}

TEST(TextReader, UnsignedTakesMinusOne)
{
    XTextReader in("-1 -1");
    u32 value = 0;
    EXPECT_TRUE(in.Read(value));
    EXPECT_EQ(value, 4294967295u);
    u64 large = 0;
    EXPECT_TRUE(in.Read(large));
    EXPECT_EQ(large, 18446744073709551615u);
}

TEST(TextReader, FailureSticksAndAnswersZero)
{
    XTextReader in("1 x 2 3");
    i32 value = 0;
    EXPECT_TRUE(in.Read(value));
    EXPECT_FALSE(in.Read(value));
    f32 real = 5.0f;
    EXPECT_FALSE(in.Read(real));
    EXPECT_EQ(real, 0.0f);
    XString token = "stale";
    EXPECT_FALSE(in.ReadToken(token));
    EXPECT_EQ(token, "");
    EXPECT_FALSE(in.ReadLine(token));
    EXPECT_FALSE(in.TakeKey("x"));
    in.HandBack("2");
    EXPECT_EQ(in.Get(), -1);
    EXPECT_EQ(in.Peek(), -1);
    EXPECT_EQ(in.Remaining(), 0u);
    EXPECT_FALSE(in.IsAtEnd());
}

TEST(TextReader, WhiteSpaceIsThatOfTheClassicLocale)
{
    std::string text;
    for (int character = 1; character < 256; ++character)
        text += std::string("a") + static_cast<char>(character);
    WithEachReader(text, [&](XTextReader& in) {
        std::istringstream stream = ClassicStream(text);
        for (int i = 0; i < 10; ++i)
            ExpectSameToken(in, stream);
    });
}

TEST(TextReader, RandomInputReadsAsStreamsDo)
{
    std::mt19937 random(20);
    const auto pick = [&](unsigned n) { return static_cast<unsigned>(random() % n); };
    const auto number = [&] {
        std::string text;
        if (pick(3) == 0)
            text += "+-"[pick(2)];
        const unsigned longest = pick(10) ? 9 : 80;
        for (unsigned i = pick(longest); i > 0; --i)
            text += static_cast<char>('0' + pick(10));
        if (pick(2)) {
            text += '.';
            for (unsigned i = pick(longest); i > 0; --i)
                text += static_cast<char>('0' + pick(10));
        }
        if (pick(6) == 0) {
            text += pick(2) ? "e" : "E-";
            for (unsigned i = pick(4); i > 0; --i)
                text += static_cast<char>('0' + pick(10));
        }
        return text;
    };
    for (int round = 0; round < 4000; ++round) {
        std::string text;
        for (int token = 0; token < 30; ++token) {
            if (pick(12) == 0)
                for (unsigned i = pick(9); i > 0; --i)
                    text += std::string_view("0123456789+-.eEx{}\"#\1\xff\0nif", 26)[pick(26)];
            else
                text += number();
            for (unsigned i = pick(20) ? 1 : pick(80); i > 0; --i)
                text += " \n\t\r\v\f"[pick(6)];
        }
        SCOPED_TRACE("round " + std::to_string(round) + " \"" + text + "\"");
        const unsigned seed = static_cast<unsigned>(random());
        WithEachReader(text, [&](XTextReader& in) {
            std::istringstream stream = ClassicStream(text);
            std::mt19937 steps(seed);
            for (int step = 0; step < 40 && !testing::Test::HasFatalFailure(); ++step)
                ExpectSameStep(in, stream, static_cast<unsigned>(steps()));
        });
        if (HasFatalFailure())
            return;
    }
}

TEST(TextReader, LongArraysReadAsStreamsDo)
{
    std::mt19937 random(21);
    std::uniform_real_distribution<float> real(-1.0f, 1.0f);
    std::ostringstream out;
    constexpr std::size_t kCount = 60000;  // several windows
    for (std::size_t i = 0; i < kCount; ++i)
        out << (i % 3 ? "  " : "\n\t\t") << real(random) * (i % 7 ? 1.0f : 1e-6f);
    const std::string text = out.str();
    WithEachReader(text, [&](XTextReader& in) {
        std::istringstream stream = ClassicStream(text);
        ExpectSameNumbers<f32>(in, stream, kCount - 1);
        ExpectSameNumber<f32>(in, stream);
        EXPECT_TRUE(in.IsAtEnd());
    });
}

TEST(TextReader, GlobalLocaleChangesNothing)
{
    const CommaLocale locale;
    XTextReader in("1234.5 1,5 2.5e3");
    f32 value = 0.0f;
    EXPECT_TRUE(in.Read(value));
    EXPECT_EQ(value, 1234.5f);
    EXPECT_TRUE(in.Read(value));
    EXPECT_EQ(value, 1.0f);
    XString token;
    EXPECT_TRUE(in.ReadToken(token));
    EXPECT_EQ(token, ",5");
    EXPECT_TRUE(in.Read(value));
    EXPECT_EQ(value, 2500.0f);
}

}  // namespace
