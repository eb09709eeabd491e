#include "exporter/walk/PropertyText.h"

#include <gmock/gmock.h>

namespace VKTMax {
namespace {

using enum PropertyKind;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

std::vector<UserProperty> Parse(std::string_view text)
{
    return ParsePropertyText(text);
}

PropertyKind KindOf(const std::string& value)
{
    return Parse("a=" + value).at(0).kind;
}

TEST(PropertyText, LinesBecomeProperties)
{
    EXPECT_THAT(Parse("a = 1\r\nb=2.5\r\nc = yes\r\nd=TRUE\r\n"),
                ElementsAre(UserProperty{"a", "1", Whole}, UserProperty{"b", "2.5", Number},
                            UserProperty{"c", "yes", Text}, UserProperty{"d", "TRUE", True}));
}

TEST(PropertyText, LastLineNeedsNoEnd)
{
    EXPECT_THAT(Parse("a=1\nb=2"), ElementsAre(UserProperty{"a", "1", Whole}, UserProperty{"b", "2", Whole}));
}

TEST(PropertyText, KindGoesByWhatTheValueLooksLike)
{
    EXPECT_EQ(KindOf("true"), True);
    EXPECT_EQ(KindOf("fAlSe"), False);
    EXPECT_EQ(KindOf("truer"), Text);
    EXPECT_EQ(KindOf("007"), Whole);
    EXPECT_EQ(KindOf(""), Whole);
    EXPECT_EQ(KindOf("1.5"), Number);
    EXPECT_EQ(KindOf(".5"), Number);
    EXPECT_EQ(KindOf("5."), Number);
    EXPECT_EQ(KindOf("."), Number);
    EXPECT_EQ(KindOf("1.2.3"), Text);
    EXPECT_EQ(KindOf("-1"), Text);
    EXPECT_EQ(KindOf("+1"), Text);
    EXPECT_EQ(KindOf("1e5"), Text);
    EXPECT_EQ(KindOf("1 "), Text);
    EXPECT_EQ(KindOf("1\t"), Text);
}

TEST(PropertyText, BlanksAreDroppedFromNamesAndInFrontOfValues)
{
    EXPECT_THAT(Parse("  two words  =   red wine  \n"),
                ElementsAre(UserProperty{"twowords", "red wine  ", Text}));
    EXPECT_THAT(Parse("\ta\t=\tb"), ElementsAre(UserProperty{"\ta\t", "\tb", Text}));
}

TEST(PropertyText, ValueKeepsFurtherEqualSigns)
{
    EXPECT_THAT(Parse("a = b = c"), ElementsAre(UserProperty{"a", "b = c", Text}));
}

TEST(PropertyText, EmptyLinesOfEitherKindVanish)
{
    EXPECT_THAT(Parse("a=1\n\n\nb=2\r\n\r\nc=3\n"),
                ElementsAre(UserProperty{"a", "1", Whole}, UserProperty{"b", "2", Whole},
                            UserProperty{"c", "3", Whole}));
}

TEST(PropertyText, CarriageReturnsAreNoPartOfAValue)
{
    EXPECT_THAT(Parse("a=tr\rue\r\n"), ElementsAre(UserProperty{"a", "true", True}));
}

TEST(PropertyText, LineWithoutEqualSignJoinsTheNextName)
{
    EXPECT_THAT(Parse("a=1\nsome note\nb=2"),
                ElementsAre(UserProperty{"a", "1", Whole}, UserProperty{"somenote\nb", "2", Whole}));
    EXPECT_THAT(Parse("a=1\nsome note\n"), ElementsAre(UserProperty{"a", "1", Whole}));
}

TEST(PropertyText, TextWithoutPropertiesGivesNone)
{
    EXPECT_THAT(Parse(""), IsEmpty());
    EXPECT_THAT(Parse("  \r\n"), IsEmpty());
    EXPECT_THAT(Parse("just a note"), IsEmpty());
}

TEST(PropertyText, NameMayBeEmpty)
{
    EXPECT_THAT(Parse("=="), ElementsAre(UserProperty{"", "=", Text}));
}

}  // namespace
}  // namespace VKTMax
