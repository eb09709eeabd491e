#include <gtest/gtest.h>

#include <sstream>

#include "VKT/base/Lists.h"
#include "VKT/stream/TextReader.h"
#include "VKT/support/EachReader.h"

using namespace VKT;

namespace {

TEST(TextReader, VectorsGetAZeroBehindThreeFloats)
{
    WithEachReader("1 2 3\n4 5 6\n7 8", [](XTextReader& in) {
        XVector3 vectors[4] = {};
        vectors[0].w = vectors[1].w = 9.0f;
        vectors[2] = {1.0f, 1.0f, 1.0f, 1.0f};
        EXPECT_EQ(in.ReadSome(vectors, 4), 2u);
        EXPECT_EQ(vectors[0], (XVector3{1.0f, 2.0f, 3.0f, 0.0f}));
        EXPECT_EQ(vectors[1], (XVector3{4.0f, 5.0f, 6.0f, 0.0f}));
        EXPECT_EQ(vectors[2], (XVector3{1.0f, 1.0f, 1.0f, 1.0f}));  // untouched
        EXPECT_TRUE(in.HasFailed());
    });
}

TEST(TextReader, BoneWeightsHaveTheInfluenceInFront)
{
    WithEachReader("3 0.25 4294967295 1 7", [](XTextReader& in) {
        XBoneWeight weights[3] = {{9, 9}, {9, 9}, {9, 9}};
        EXPECT_EQ(in.ReadSome(weights, 3), 2u);
        EXPECT_EQ(weights[0], (XBoneWeight{0.25f, 3}));
        EXPECT_EQ(weights[1], (XBoneWeight{1.0f, 4294967295}));
        EXPECT_EQ(weights[2], (XBoneWeight{9.0f, 9}));  // untouched
        EXPECT_TRUE(in.HasFailed());
    });
}

TEST(TextReader, ArrayIsZeroBehindAFailure)
{
    WithEachReader("1 2 x 4", [](XTextReader& in) {
        i32 values[4] = {9, 9, 9, 9};
        EXPECT_FALSE(in.ReadArray(values, 4));
        EXPECT_EQ(values[0], 1);
        EXPECT_EQ(values[1], 2);
        EXPECT_EQ(values[2], 0);
        EXPECT_EQ(values[3], 0);
    });
}

TEST(TextReader, ArrayLeavesWhatStandsBehindIt)
{
    WithEachReader("{ 1 2 3 }", [](XTextReader& in) {
        XString token;
        in.ReadToken(token);
        u32 values[3] = {};
        EXPECT_TRUE(in.ReadArray(values, 3));
        EXPECT_TRUE(in.ReadToken(token));
        EXPECT_EQ(token, "}");
        EXPECT_TRUE(in.IsAtEnd());
    });
}

TEST(TextReader, TokenWithoutEndIsNotWalkedForEachNumberInIt)
{
    // "1.1.1.1...": a number for every two characters and no white space anywhere.
    std::string text;
    for (int i = 0; i < 1000000; ++i)
        text += ".1";
    XTextReader in{std::string_view(text)};
    XFloatArray values;
    EXPECT_TRUE(in.ReadNumbers(values, 1000000));
    EXPECT_EQ(values.back(), 0.1f);
}

TEST(TextReader, ListIsSizedByItsCount)
{
    WithEachReader(" 5 6 7 }", [](XTextReader& in) {
        XIndexList list(9, 1);
        EXPECT_TRUE(in.ReadNumbers(list, 3));
        EXPECT_EQ(list, (XIndexList{5, 6, 7}));
        EXPECT_TRUE(in.ReadNumbers(list, 0));
        EXPECT_TRUE(list.empty());
    });
}

TEST(TextReader, ListKeepsWhatCame)
{
    WithEachReader(" 5 6 } 8 9 10 11 12", [](XTextReader& in) {
        XIndexList list;
        EXPECT_FALSE(in.ReadNumbers(list, 4));
        EXPECT_EQ(list, (XIndexList{5, 6}));
        EXPECT_TRUE(in.HasFailed());
    });
}

TEST(TextReader, ImpossibleCountTakesNoMemory)
{
    for (const u64 count : {u64{20}, u64{0xFFFFFFFF}, ~u64{0}}) {
        WithEachReader(" 1 2 3 }", [&](XTextReader& in) {
            XVector3Array list;
            EXPECT_FALSE(in.ReadNumbers(list, count));
            EXPECT_EQ(list.capacity(), 0u);
            EXPECT_TRUE(in.HasFailed());
        });
    }
}

// A source that cannot tell its length.
class Pipe final : public std::streambuf {
public:
    explicit Pipe(std::string text) : m_Text(std::move(text))
    {
        setg(m_Text.data(), m_Text.data(), m_Text.data() + m_Text.size());
    }

private:
    std::string m_Text;
};

TEST(TextReader, ListOfUnknownLengthGrowsWithWhatComes)
{
    std::string text;
    for (int i = 0; i < 10000; ++i)
        text += std::to_string(i) + ' ';
    Pipe pipe(text + "}");
    std::istream stream(&pipe);
    XTextReader in(stream);
    EXPECT_EQ(in.Remaining(), XTextReader::kUnknown);
    XIntList list;
    EXPECT_FALSE(in.ReadNumbers(list, ~u64{0} / 2));
    ASSERT_EQ(list.size(), 10000u);
    EXPECT_EQ(list.back(), 9999);
    EXPECT_LT(list.capacity(), 40000u);
}

TEST(TextReader, RemainingCountsDown)
{
    WithEachReader("ab cd", [](XTextReader& in) {
        EXPECT_EQ(in.Remaining(), 5u);
        XString token;
        in.ReadToken(token);
        EXPECT_EQ(in.Remaining(), 3u);
        in.HandBack(token);
        EXPECT_EQ(in.Remaining(), 5u);
        in.ReadToken(token);
        in.ReadToken(token);
        EXPECT_EQ(in.Remaining(), 0u);
    });
}

TEST(TextReader, StartsWhereTheSourceStands)
{
    std::istringstream stream("skipped 12 13");
    std::string word;
    stream >> word;
    XTextReader in(stream);
    EXPECT_EQ(in.Remaining(), 6u);
    i32 value = 0;
    EXPECT_TRUE(in.Read(value));
    EXPECT_EQ(value, 12);
}

TEST(TextReader, TakesOverTheStateOfAStream)
{
    std::istringstream failed("12");
    failed.setstate(std::ios::failbit);
    EXPECT_TRUE(XTextReader(failed).HasFailed());

    std::istringstream ended("word");
    std::string word;
    ended >> word;
    XTextReader in(ended);
    EXPECT_TRUE(in.IsAtEnd());
    EXPECT_FALSE(in.HasFailed());
    EXPECT_FALSE(in.ReadToken(word));
}

TEST(TextReader, TokenComesBackHoweverLong)
{
    for (const std::size_t length : {1, 7, 63, 64, 65, 200, 5000}) {
        const std::string word(length, 'w');
        WithEachReader("first " + word + "\n3 last", [&](XTextReader& in) {
            XString token;
            in.ReadToken(token);
            for (int i = 0; i < 3; ++i) {
                EXPECT_TRUE(in.ReadToken(token));
                EXPECT_EQ(token, word);
                in.HandBack(token);
            }
            in.ReadToken(token);
            i32 value = 0;
            EXPECT_TRUE(in.Read(value));
            EXPECT_EQ(value, 3);
            in.ReadToken(token);
            EXPECT_EQ(token, "last");
            EXPECT_TRUE(in.IsAtEnd());
            in.HandBack(token);
            EXPECT_FALSE(in.IsAtEnd());
            EXPECT_TRUE(in.ReadToken(token));
            EXPECT_EQ(token, "last");
            EXPECT_TRUE(in.IsAtEnd());
            EXPECT_TRUE(in.IsGood());
            EXPECT_FALSE(in.ReadToken(token));
        });
    }
}

TEST(TextReader, HandedBackCharactersNeedNotBeThoseOfTheSource)
{
    WithEachReader("ABC 5", [](XTextReader& in) {
        XString token;
        in.ReadToken(token);
        in.HandBack("abc");
        in.ReadToken(token);
        EXPECT_EQ(token, "abc");
        in.HandBack("12");
        i32 value = 0;
        EXPECT_TRUE(in.Read(value));
        EXPECT_EQ(value, 12);
        EXPECT_TRUE(in.Read(value));
        EXPECT_EQ(value, 5);
    });
}

TEST(TextReader, UnreadableFileFails)
{
    std::FILE* file = std::fopen("/dev/null", "wb");
    if (!file)
        GTEST_SKIP() << "no null device to open for writing alone";
    XTextReader in(file);
    XString token;
    EXPECT_FALSE(in.ReadToken(token));
    EXPECT_TRUE(in.HasFailed());
    std::fclose(file);
}

}  // namespace
