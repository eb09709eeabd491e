#include "VKT/node/NodeClass.h"
#include "VKT/support/NodeTest.h"

using namespace VKT;
using namespace VKT::Test;

namespace {

class BodyTableOlder : public NodeTest {};

// A class that had another body in older files.
class Renewed : public XNodeClass<Renewed, XBase, 1001> {
public:
    using XNodeClass::XNodeClass;

    static XBodyTable TextBody()
    {
        static constexpr XBodyRow rows[] = {{&Renewed::colour}, {"\tgloss ", &Renewed::gloss}};
        return {".\\src\\VKT\\Renewed", rows};
    }
    static XBodyTable BinaryBody() { return TextBody(); }
    static XBodyTable OldTextBody()
    {
        static constexpr XBodyRow rows[] = {
            {"old_gloss", &Renewed::gloss},
            {"old_hue", OldInput(&Renewed::colour, "hue")},
            {"old_sheen", DroppedInput()},
            {"old_shine", DroppedNumber()},
        };
        return BodyBelow(4, {".\\src\\VKT\\Renewed", rows});
    }
    static XBodyTable OldBinaryBody()
    {
        static constexpr XBodyRow rows[] = {
            {"old_gloss", &Renewed::gloss},
            {"old_hue", OldInput(&Renewed::colour, "hue")},
            {"old_sheen", DroppedInput()},
            DroppedInput(),  // of any name
            DroppedNumber(),
        };
        return BodyBelow(4, {".\\src\\VKT\\Renewed", rows});
    }

    XShaderInput colour{"hue"};
    f32 gloss = 0;
};

constexpr const char kOldText[] = "old_gloss 1 old_hue 2 3 4 5 tex 6 old_sheen 7 8 9 10 tex 11 old_shine 12";
constexpr const char kOldBytes[] =
    "00 00 00 00 00 00 "
    "00 00 80 3f "
    "06 00 00 00 00 00 00 40 00 00 40 40 00 00 80 40 00 00 a0 40 07 00 6f 6c 64 5f 68 75 65 "
    "0b 00 00 00 00 00 e0 40 00 00 00 41 00 00 10 41 00 00 20 41 09 00 6f 6c 64 5f 73 68 65 65 6e "
    "0b 00 00 00 00 00 e0 40 00 00 00 41 00 00 10 41 00 00 20 41 03 00 61 6e 79 "
    "00 00 40 41";
constexpr const char kRenewedText[] = "\thue 2 3 4 5 input 6\n\tgloss 1\n";

TEST_F(BodyTableOlder, OldBodyReplacesTheWholeOneInOlderText)
{
    MakeOlder();
    Renewed node(&m_Model);
    EXPECT_TRUE(ReadText(node, kOldText));
    EXPECT_EQ(TextOf(node), kRenewedText);
    EXPECT_FALSE(ReadText(node, kRenewedText));
    EXPECT_EQ(m_Log.Text(), "Error : Expected old_gloss got hue [.\\src\\VKT\\Renewed:1]\n");
}

TEST_F(BodyTableOlder, OldBodyReplacesTheWholeOneInOlderBytes)
{
    MakeOlder();
    Renewed node(&m_Model);
    EXPECT_TRUE(ReadBody(node, Bytes(kOldBytes)));
    EXPECT_EQ(TextOf(node), kRenewedText);
}

// A class behind it has no old body of its own.
class Refined : public XNodeClass<Refined, Renewed, 1004> {
public:
    using XNodeClass::XNodeClass;

    static XBodyTable TextBody()
    {
        static constexpr XBodyRow rows[] = {{"\tpolish ", &Refined::polish}};
        return {".\\src\\VKT\\Refined", rows};
    }
    static XBodyTable BinaryBody() { return TextBody(); }

    f32 polish = 0;
};

TEST_F(BodyTableOlder, OwnRowsOfDerivedClassesFollowTheOldBody)
{
    MakeOlder();
    Refined fromText(&m_Model);
    EXPECT_TRUE(ReadText(fromText, std::string(kOldText).append(" polish 13")));
    EXPECT_EQ(TextOf(fromText), std::string(kRenewedText).append("\tpolish 13\n"));
    Refined fromBytes(&m_Model);
    EXPECT_TRUE(ReadBody(fromBytes, Bytes(std::string(kOldBytes).append(" 00 00 50 41"))));
    EXPECT_EQ(TextOf(fromBytes), TextOf(fromText));
}

TEST_F(BodyTableOlder, NumberThatIsNoneIsSeenAtTheNextKeyOfADerivedClass)
{
    Refined node(&m_Model);
    EXPECT_FALSE(ReadText(node, "hue 2 3 4 5 input 6 gloss x polish 13"));
    EXPECT_EQ(m_Log.Text(), "Error : Expected polish got  [.\\src\\VKT\\Refined:1]\n");
    m_Log.Clear();
    MakeOlder();
    EXPECT_FALSE(ReadText(node, Replaced(kOldText, "shine 12", "shine x") + " polish 13"));
    EXPECT_EQ(m_Log.Text(), "Error : Expected polish got  [.\\src\\VKT\\Refined:1]\n");
}

TEST_F(BodyTableOlder, OldBodyIsNeverWritten)
{
    MakeOlder();
    Renewed node(&m_Model);
    ASSERT_TRUE(ReadText(node, kOldText));
    EXPECT_EQ(Hex(BodyOf(node)),
              "00 00 00 00 00 00 "
              "06 00 00 00 00 00 00 40 00 00 40 40 00 00 80 40 00 00 a0 40 03 00 68 75 65 "
              "00 00 80 3f");
}

TEST_F(BodyTableOlder, WrongNameOfAnOldInputIsRefusedInSilence)
{
    MakeOlder();
    for (const char* name : {"6f 6c 64 5f 68 75 65", "6f 6c 64 5f 73 68 65 65 6e"}) {
        Renewed node(&m_Model);
        std::string bytes = Replaced(kOldBytes, name, "6e" + std::string(name).substr(2));
        EXPECT_FALSE(ReadBody(node, Bytes(bytes)));
    }
    EXPECT_EQ(m_Log.Text(), "");
}

TEST_F(BodyTableOlder, OldKeysAreCheckedLikeAllOthers)
{
    MakeOlder();
    Renewed node(&m_Model);
    EXPECT_FALSE(ReadText(node, Replaced(kOldText, "tex 11", "input 11")));
    EXPECT_FALSE(ReadText(node, Replaced(kOldText, "old_shine", "shine")));
    EXPECT_EQ(m_Log.Text(),
              "Error : Expected tex got input [.\\src\\VKT\\Renewed:3]\n"
              "Error : Expected old_shine got shine [.\\src\\VKT\\Renewed:4]\n");
}

}  // namespace
