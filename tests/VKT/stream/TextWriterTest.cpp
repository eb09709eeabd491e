#include "VKT/stream/TextWriter.h"

#include <gtest/gtest.h>

#include <bit>
#include <cmath>
#include <limits>
#include <random>
#include <sstream>

#include "VKT/support/CommaLocale.h"

using namespace VKT;

namespace {

std::ostringstream ClassicStream()
{
    std::ostringstream stream;
    stream.imbue(std::locale::classic());
    return stream;
}

// Writes the same numbers to both and compares block by block.
template <class T>
class Comparison {
public:
    void Add(T value)
    {
        m_Stream << value << '\n';
        m_Writer << value << '\n';
        if (++m_Count % 1000 == 0)
            Check();
    }
    void Check()
    {
        ASSERT_EQ(m_Writer.TakeText(), m_Stream.str());
        m_Stream.str("");
    }

private:
    std::ostringstream m_Stream = ClassicStream();
    XTextWriter m_Writer;
    unsigned m_Count = 0;
};

void AddAround(Comparison<f32>& floats, f32 value)
{
    f32 above = value;
    f32 below = value;
    for (int i = 0; i < 50; ++i) {
        floats.Add(above);
        floats.Add(-below);
        above = std::nextafter(above, std::numeric_limits<f32>::infinity());
        below = std::nextafter(below, 0.0f);
    }
}

TEST(TextWriter, PrintsSpecialFloatsAsStreamsDo)
{
    XTextWriter out;
    for (const u32 bits : {0x00000000u, 0x80000000u, 0x7F800000u, 0xFF800000u, 0x7FC00000u, 0xFFC00000u,
                           0x7FFFFFFFu, 0xFFFFFFFFu, 0x00000001u, 0x7F7FFFFFu, 0x00800000u})
        out << std::bit_cast<f32>(bits) << ' ';
    EXPECT_EQ(out.Text(), "0 -0 inf -inf nan -nan nan -nan 1.4013e-45 3.40282e+38 1.17549e-38 ");
}

TEST(TextWriter, PrintsSixDigits)
{
    XTextWriter out;
    for (const f32 value : {1.0f, -1.5f, 0.1f, 100000.0f, 999999.0f, 999999.5f, 1e6f, 1e-4f, 1e-5f, 123456.5f,
                            123457.5f, 0.0009999995f, 9.999995f, 0.333333333f, 12345.25f, 12345.75f})
        out << value << ' ';
    EXPECT_EQ(out.Text(),
              "1 -1.5 0.1 100000 999999 1e+06 1e+06 0.0001 1e-05 123456 123458 "
              "0.000999999 10 0.333333 12345.2 12345.8 ");
}

TEST(TextWriter, PrintsRandomFloatsAsStreamsDo)
{
    Comparison<f32> floats;
    std::mt19937 random(30);
    for (int i = 0; i < 700000; ++i)
        floats.Add(std::bit_cast<f32>(static_cast<u32>(random())));
    std::uniform_real_distribution<f32> fraction(-1.0f, 1.0f);
    std::uniform_real_distribution<f32> large(-1e6f, 1e6f);
    for (int i = 0; i < 700000; ++i) {
        floats.Add(fraction(random));
        floats.Add(large(random));
    }
    floats.Check();
}

TEST(TextWriter, PrintsTiesAndBoundsAsStreamsDo)
{
    Comparison<f32> floats;
    for (int power = -45; power <= 38; ++power)
        AddAround(floats, std::pow(10.0f, static_cast<f32>(power)));
    for (int power = -20; power <= 20; ++power)
        AddAround(floats, std::ldexp(1.0f, power));
    AddAround(floats, 999999.5f);
    for (int i = 0; i < 100000; ++i) {
        const f32 whole = static_cast<f32>(100000 + 9 * i);
        floats.Add(whole + 0.5f);
        floats.Add((whole + 0.5f) / 4.0f);
        floats.Add((whole + 0.5f) / 1024.0f);
        floats.Add(static_cast<f32>(i) / 100.0f);
    }
    floats.Check();
}

TEST(TextWriter, PrintsIntegersAsStreamsDo)
{
    Comparison<i32> signedOnes;
    Comparison<u32> unsignedOnes;
    Comparison<u64> largeOnes;
    const auto add = [&](u64 value) {
        signedOnes.Add(static_cast<i32>(static_cast<u32>(value)));
        unsignedOnes.Add(static_cast<u32>(value));
        largeOnes.Add(value);
    };
    for (u64 power = 1, digits = 0; digits < 20; ++digits, power *= 10) {
        for (u64 offset = 0; offset < 5; ++offset) {
            add(power - 2 + offset);
            add(0 - (power - 2 + offset));
        }
    }
    for (u32 bit = 0; bit < 64; ++bit)
        for (u64 offset = 0; offset < 5; ++offset)
            add((u64{1} << bit) - 2 + offset);
    std::mt19937_64 random(31);
    for (int i = 0; i < 200000; ++i)
        add(random() >> (random() % 64));
    signedOnes.Check();
    unsignedOnes.Check();
    largeOnes.Check();
}

TEST(TextWriter, PrintsTextCharactersAndBools)
{
    XTextWriter out;
    const XString name = "name";
    const char* const literal = "a pointer to text is no bool";
    out << "id " << i32{-7} << '\n' << name << ' ' << true << false << std::string_view(" ") << literal;
    EXPECT_EQ(out.Text(), "id -7\nname 10 a pointer to text is no bool");
}

TEST(TextWriter, GlobalLocaleChangesNothing)
{
    const CommaLocale locale;
    XTextWriter out;
    out << 1234.5f << ' ' << 1e-7f << ' ' << 1234567 << ' ' << u64{12345678901} << ' ';
    out.WriteRow(std::span<const f32>({{0.5f, 1e10f}}), {""});
    EXPECT_EQ(out.Text(), "1234.5 1e-07 1234567 12345678901 0.5 1e+10\n");
}

TEST(TextWriter, RowsFollowTheirFormat)
{
    const std::vector<f32> values = {1, 2.5, 3, 4, 5};
    const std::vector<i32> integers = {-1, 2, 3};
    const std::vector<u32> none;
    XTextWriter out;
    out.WriteRows(std::span<const f32>(values), 2, {"\t\t"});
    out.WriteRows(std::span<const f32>(values), 2, {"\t\t\t", true});
    out.WriteRow(std::span<const i32>(integers), {" { ", true, " }\n"});
    out.WriteRow(std::span<const u32>(none), {"<", false, ">"});
    out.WriteRow(std::span<const u32>(none), {"<", true, ">"});
    out.WriteRows(std::span<const u32>(none), 3, {"<"});
    out.WriteRows(std::span<const i32>(integers), 0, {"<"});
    out.WriteRows(std::span<const i32>(integers), 1, {"", false, ","});
    EXPECT_EQ(out.Text(),
              "\t\t1 2.5\n\t\t3 4\n\t\t5\n"
              "\t\t\t1 2.5 \n\t\t\t3 4 \n\t\t\t5 \n"
              " { -1 2 3  }\n"
              "<><>-1,2,3,");
}

TEST(TextWriter, VectorsPrintThreeFloats)
{
    const std::vector<XVector3> points = {{1, 2, 3, 0}, {-4, 0.5, 1e-5f, 7}};
    XTextWriter out;
    out.WriteRows(std::span<const XVector3>(points), {"\t\t"});
    out.WriteRows(std::span<const XVector3>(), {"\t\t"});
    EXPECT_EQ(out.Text(), "\t\t1 2 3\n\t\t-4 0.5 1e-05\n");
}

TEST(TextWriter, LongOutputReachesEveryTarget)
{
    std::vector<f32> values;
    for (int i = 0; i < 50000; ++i)
        values.push_back(-1.17549e-38f - static_cast<f32>(i) * 1e-40f);
    const std::string large(200000, 'x');
    std::ostringstream expected = ClassicStream();
    for (const f32 value : values)
        expected << value << ' ';
    expected << '\n' << large << "end";
    const auto write = [&](XTextWriter& out) {
        out.WriteRow(std::span<const f32>(values), {"", true});
        out << large << "end";
    };

    XTextWriter text;
    write(text);
    EXPECT_EQ(text.TakeText(), expected.str());
    EXPECT_EQ(text.Text(), "");

    std::ostringstream stream;
    {
        XTextWriter out(stream);
        write(out);
        EXPECT_TRUE(out.Flush());
    }
    EXPECT_EQ(stream.str(), expected.str());

    std::FILE* file = std::tmpfile();
    ASSERT_NE(file, nullptr);
    {
        XTextWriter out(file);
        write(out);
    }
    std::string written(expected.str().size() + 1, '\0');
    std::rewind(file);
    written.resize(std::fread(written.data(), 1, written.size(), file));
    std::fclose(file);
    EXPECT_EQ(written, expected.str());
}

TEST(TextWriter, FailureSticks)
{
    std::ostringstream stream;
    stream.setstate(std::ios::badbit);
    XTextWriter out(stream);
    EXPECT_FALSE(out.IsGood());
    out << "lost";
    EXPECT_FALSE(out.Flush());

    std::FILE* file = std::tmpfile();
    ASSERT_NE(file, nullptr);
    std::FILE* const reader = std::freopen(nullptr, "rb", file);
    if (reader) {
        XTextWriter unwritable(reader);
        unwritable << std::string(100000, 'x');
        EXPECT_FALSE(unwritable.IsGood());
        EXPECT_FALSE(unwritable.Flush());
        std::fclose(reader);
    }
}

TEST(TextWriter, DescribesIdsByTheNamesThatItIsTold)
{
    XTextWriter out;
    const u32 ids[] = {7, 0, 8};
    out << XNodeId{7} << '\n';
    out.WriteIds(ids, {"\t", true});
    out.Describe([](u32 id) { return id == 0 ? XString("none") : XString(id, '#'); });
    out << XNodeId{7} << ' ' << u32{7} << '\n';
    out.WriteIds(ids, {"\t", true});
    out.WriteIds(ids, {"\t"});
    out.WriteIds({}, {"\t"});
    EXPECT_EQ(out.Text(),
              "7\n"
              "\t7 0 8 \n"
              "####### 7\n"
              "\t####### none ######## \n"
              "\t####### none ########\n"
              "\t\n");
}

TEST(TextWriter, DescribesFloatsWithAllTheirDigits)
{
    XTextWriter out;
    out.Describe([](u32) { return XString(); });
    const f32 values[] = {0.1f, 1.0f / 3.0f, -16777215.0f, 1e-30f};
    out << 0.30000001192092896f << ' ' << 1234567.0f << '\n';
    out.WriteRow(values, {""});
    EXPECT_EQ(out.Text(), "0.3 1234567\n0.1 0.33333334 -16777215 1e-30\n");
}

}  // namespace
