#include "HostTest.h"

#include <clocale>

#include "host/core/UserProperties.h"

namespace {

using maxhost::UserProperties;

UserProperties FromText(const char* text)
{
    UserProperties properties;
    properties.SetText(text);
    return properties;
}

TEST(UserProperties, ReadsLinesOfEitherEnd)
{
    const UserProperties properties = FromText("a = 1\r\n\tb=2.5\nc =  red wine \r\nlast= -7");
    EXPECT_EQ(properties.GetInt("a"), 1);
    EXPECT_EQ(properties.GetFloat("b"), 2.5f);
    EXPECT_EQ(properties.GetString("c"), "red wine");
    EXPECT_EQ(properties.GetInt("last"), -7);
}

TEST(UserProperties, TellsKeysApartByCase)
{
    const UserProperties properties = FromText("Key = 1\nkey = 2\n");
    EXPECT_EQ(properties.GetInt("key"), 2);
    EXPECT_FALSE(properties.GetString("KEY"));
    EXPECT_FALSE(properties.GetString("ke"));
}

TEST(UserProperties, ReadsNumbersAsCDoes)
{
    const UserProperties properties = FromText("a = 12abc\nb = x\nc = +4\nd = 1e3 m\n");
    EXPECT_EQ(properties.GetInt("a"), 12);
    EXPECT_EQ(properties.GetInt("b"), 0);
    EXPECT_EQ(properties.GetInt("c"), 4);
    EXPECT_EQ(properties.GetFloat("d"), 1000.0f);
}

TEST(UserProperties, ReadsTruthInSeveralWords)
{
    const UserProperties properties = FromText("a = TRUE\nb = yes\nc = 1\nd = false\ne = 0\n");
    EXPECT_EQ(properties.GetBool("a"), true);
    EXPECT_EQ(properties.GetBool("b"), true);
    EXPECT_EQ(properties.GetBool("c"), true);
    EXPECT_EQ(properties.GetBool("d"), false);
    EXPECT_EQ(properties.GetBool("e"), false);
}

TEST(UserProperties, SettingReplacesTheLineOrAddsOne)
{
    UserProperties properties = FromText("a = 1\r\nb = 2");
    properties.Set("a", std::string_view("one"));
    properties.Set("c", 3);
    properties.Set("d", 0.5f);
    properties.Set("e", true);
    EXPECT_EQ(properties.GetText(), "a = one\r\nb = 2\r\nc = 3\r\nd = 0.5\r\ne = true\r\n");
}

class UserPropertyTest : public HostTest {};

TEST_F(UserPropertyTest, NodesLeaveTheValueAloneWhenTheKeyIsMissing)
{
    INode* node = maxhost::MakeNode("n");
    node->SetUserPropBuffer("a = 5\r\n");
    int number = 9;
    EXPECT_TRUE(node->GetUserPropInt("a", number));
    EXPECT_EQ(number, 5);
    EXPECT_FALSE(node->GetUserPropInt("b", number));
    EXPECT_EQ(number, 5);
    float real = 1.5f;
    EXPECT_FALSE(node->GetUserPropFloat("b", real));
    EXPECT_EQ(real, 1.5f);
    MSTR text("old");
    EXPECT_FALSE(node->GetUserPropString("b", text));
    EXPECT_STREQ(text, "old");
    EXPECT_FALSE(node->UserPropExists("b"));
}

TEST_F(UserPropertyTest, ANodeWithoutPropertiesAnswersAStringWithoutText)
{
    MSTR buffer("old");
    maxhost::MakeNode("n")->GetUserPropBuffer(buffer);
    EXPECT_EQ(buffer.data(), nullptr);
}

TEST_F(UserPropertyTest, NodesReadBackWhatTheySet)
{
    INode* node = maxhost::MakeNode("n");
    node->SetUserPropString("s", "two words");
    node->SetUserPropInt("i", -3);
    node->SetUserPropFloat("f", 0.1f);
    node->SetUserPropBool("b", FALSE);
    MSTR buffer;
    node->GetUserPropBuffer(buffer);
    EXPECT_STREQ(buffer, "s = two words\r\ni = -3\r\nf = 0.1\r\nb = false\r\n");
    BOOL flag = TRUE;
    EXPECT_TRUE(node->GetUserPropBool("b", flag));
    EXPECT_FALSE(flag);
    float real = 0.0f;
    EXPECT_TRUE(node->GetUserPropFloat("f", real));
    EXPECT_EQ(real, 0.1f);
}

}  // namespace
