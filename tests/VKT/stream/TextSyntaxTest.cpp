#include "VKT/stream/TextSyntax.h"

#include <gtest/gtest.h>

#include <sstream>

#include "VKT/support/LogCatcher.h"

using namespace VKT;

namespace {

TEST(TextSyntax, KeysFoldCase)
{
    XTextReader in("VISIBLE 1 instance_list {");
    XString token;
    i32 value = 0;
    EXPECT_TRUE(ExpectKey("visible", in, token));
    EXPECT_TRUE(in.Read(value));
    EXPECT_TRUE(ExpectKey("INSTANCE_LIST", in, token));
    EXPECT_TRUE(ExpectKey("{", in, token));  // the last characters: no white space behind
    EXPECT_TRUE(in.IsAtEnd());
}

TEST(TextSyntax, OnlyLettersFold)
{
    XString token;
    for (const char* const text : {"a[ ", "a{c ", "A ", "a", "a{{ "}) {
        XTextReader in(text);
        EXPECT_FALSE(ExpectKey("a{", in, token)) << text;
    }
    XTextReader in("\xC4 ");
    EXPECT_FALSE(ExpectKey("\xE4", in, token));
}

TEST(TextSyntax, KeyIsFoundAcrossWindows)
{
    for (const std::size_t window : {1, 2, 5, 6, 7, 8}) {
        std::istringstream stream("  \n\tNum_Points 3 num_points");
        XTextReader in(stream, window);
        XString token;
        i32 value = 0;
        EXPECT_TRUE(ExpectKey("num_points", in, token)) << window;
        EXPECT_TRUE(in.Read(value));
        EXPECT_TRUE(ExpectKey("num_points", in, token)) << window;
    }
}

TEST(TextSyntax, WrongKeyIsHandedOutInLowerCase)
{
    LogCatcher log;
    XTextReader in("Distance 5");
    XString token;
    EXPECT_FALSE(ExpectKey("near", in, token));
    EXPECT_EQ(token, "distance");
    EXPECT_EQ(log.Text(), "");
    i32 value = 0;
    EXPECT_TRUE(in.Read(value));  // the wrong key is consumed
    EXPECT_EQ(value, 5);
}

TEST(TextSyntax, FailedReaderHoldsNoKey)
{
    XTextReader in("near near");
    XString token = "near";
    in.SetFailed();
    EXPECT_FALSE(ExpectKey("near", in, token));
    EXPECT_EQ(token, "");
}

TEST(TextSyntax, ExpectLogsWhatCame)
{
    LogCatcher log;
    XTextReader in("Near 1 Distance");
    i32 value = 0;
    EXPECT_TRUE(Expect("near", in, ".\\src\\VKT\\Camera", 2));
    EXPECT_TRUE(in.Read(value));
    EXPECT_EQ(log.Text(), "");
    EXPECT_FALSE(Expect("visible", in, ".\\src\\VKT\\Camera", 3));
    EXPECT_FALSE(Expect("}", in, ".\\src\\VKT\\Camera", 4));
    EXPECT_EQ(log.Text(),
              "Error : Expected visible got distance [.\\src\\VKT\\Camera:3]\n"
              "Error : Expected } got  [.\\src\\VKT\\Camera:4]\n");
}

struct Quoted {
    bool answer;
    std::string text;
    int next;  // the character that is read next
    bool operator==(const Quoted&) const = default;
};

void PrintTo(const Quoted& quoted, std::ostream* out)
{
    *out << quoted.answer << " \"" << quoted.text << "\" " << quoted.next;
}

template <class Function>
Quoted ReadWith(Function read, const char* source)
{
    XTextReader in(source);
    XString text = "old";
    const bool answer = read(in, text);
    return {answer, text, in.Get()};
}

TEST(TextSyntax, QuotedString)
{
    EXPECT_EQ(ReadWith(ReadQuoted, " \t\r\n\"a b\" c"), (Quoted{true, "a b", ' '}));
    EXPECT_EQ(ReadWith(ReadQuoted, "\"two\nlines\\\""), (Quoted{true, "two\nlines\\", -1}));
    EXPECT_EQ(ReadWith(ReadQuoted, "\"\"x"), (Quoted{true, "old", 'x'}));
    EXPECT_EQ(ReadWith(ReadQuoted, "\"open"), (Quoted{false, "open", -1}));
    EXPECT_EQ(ReadWith(ReadQuoted, "  "), (Quoted{false, "old", -1}));
}

TEST(TextSyntax, BareWordDoublesItsFirstLetter)
{
    EXPECT_EQ(ReadWith(ReadQuoted, " abc\nx"), (Quoted{true, "aabc", 'x'}));
    EXPECT_EQ(ReadWith(ReadQuoted, "abc def"), (Quoted{true, "aabc", 'd'}));
    EXPECT_EQ(ReadWith(ReadQuoted, "a\tb"), (Quoted{true, "aa", 'b'}));
    EXPECT_EQ(ReadWith(ReadQuoted, "a\"b\" "), (Quoted{true, "aa\"b\"", -1}));
    EXPECT_EQ(ReadWith(ReadQuoted, "abc"), (Quoted{false, "aabc", -1}));
}

TEST(TextSyntax, UncheckedQuotedString)
{
    EXPECT_EQ(ReadWith(ReadQuotedUnchecked, " \t\"a b\"\n"), (Quoted{true, "a b", '\n'}));
    EXPECT_EQ(ReadWith(ReadQuotedUnchecked, " \"\"x"), (Quoted{true, "", 'x'}));
    EXPECT_EQ(ReadWith(ReadQuotedUnchecked, "\n\"a\""), (Quoted{true, "", 'a'}));
    EXPECT_EQ(ReadWith(ReadQuotedUnchecked, "word {\n\"next\""), (Quoted{true, "ord {\n", 'n'}));
    EXPECT_EQ(ReadWith(ReadQuotedUnchecked, "\"open"), (Quoted{false, "open", -1}));
    EXPECT_EQ(ReadWith(ReadQuotedUnchecked, " "), (Quoted{false, "", -1}));
}

}  // namespace
