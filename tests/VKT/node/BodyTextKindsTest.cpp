#include "VKT/node/NodeClass.h"
#include "VKT/support/NodeTest.h"

// Fields whose text form is more than a number: words and quoted strings.

using namespace VKT;
using namespace VKT::Test;

namespace {

constexpr const char* kShapes[] = {"cube", "cone", "torus"};

class Worded : public XNodeClass<Worded, XBase, 1002> {
public:
    using XNodeClass::XNodeClass;

    static XBodyTable TextBody()
    {
        static constexpr XBodyRow rows[] = {
            {"\tshape ", Word(&Worded::shape, kShapes)},
            {"\tvolume\t", Word(&Worded::volume, kShapes, LogUnknown), "\n\n"},
        };
        return {".\\src\\VKT\\Worded", rows};
    }
    static XBodyTable BinaryBody() { return TextBody(); }
    static void LogUnknown(XBase& node, const XString& word)
    {
        GetLogger()->LogFormat(kWarning, "no volume %s of %s", word.c_str(), node.GetName());
        As<Worded>(node).volume = 0;
    }

    u32 shape = 1;
    u32 volume = 2;
};

class BodyWord : public NodeTest {
protected:
    Worded m_Node{&m_Model};
};

TEST_F(BodyWord, TextHoldsTheWordAndBytesTheNumber)
{
    EXPECT_EQ(TextOf(m_Node), "\tshape cone\n\tvolume\ttorus\n\n");
    EXPECT_EQ(Hex(BodyOf(m_Node)), "00 00 00 00 00 00 01 00 00 00 02 00 00 00");
    EXPECT_EQ(m_Node.GetDataSize(), 14u + 8);
}

TEST_F(BodyWord, EitherFormReadsBack)
{
    EXPECT_TRUE(ReadText(m_Node, "shape torus volume cube"));
    EXPECT_EQ(TextOf(m_Node), "\tshape torus\n\tvolume\tcube\n\n");
    EXPECT_TRUE(ReadBody(m_Node, Bytes("00 00 00 00 00 00 00 00 00 00 01 00 00 00")));
    EXPECT_EQ(TextOf(m_Node), "\tshape cube\n\tvolume\tcone\n\n");
    Worded copy(&m_Model);
    copy.DoCopy(&m_Node);
    EXPECT_EQ(TextOf(copy), TextOf(m_Node));
}

TEST_F(BodyWord, UnknownWordLeavesTheValueUnlessTheRowSaysOtherwise)
{
    EXPECT_TRUE(ReadText(m_Node, "shape Cube volume Cube"));  // words are exact
    EXPECT_EQ(m_Node.shape, 1u);
    EXPECT_EQ(m_Node.volume, 0u);
    EXPECT_EQ(m_Log.Text(), "Warning : no volume Cube of \n");
}

TEST_F(BodyWord, NumberWithoutAWordIsKeptInBytesAndWrittenAsTheFirstWord)
{
    const char bytes[] = "00 00 00 00 00 00 03 00 00 00 ff ff ff ff";
    EXPECT_TRUE(ReadBody(m_Node, Bytes(bytes)));
    EXPECT_EQ(Hex(BodyOf(m_Node)), bytes);
    EXPECT_EQ(TextOf(m_Node), "\tshape cube\n\tvolume\tcube\n\n");
}

TEST_F(BodyWord, MissingWordFailsInSilenceAndWrongKeysAreLogged)
{
    EXPECT_FALSE(ReadText(m_Node, "shape cube volume"));
    EXPECT_EQ(m_Log.Text(), "");
    EXPECT_EQ(m_Node.volume, 2u);
    EXPECT_FALSE(ReadText(m_Node, "shape volume cube"));
    EXPECT_EQ(m_Log.Text(), "Error : Expected volume got cube [.\\src\\VKT\\Worded:2]\n");
}

class Titled : public XNodeClass<Titled, XBase, 1003> {
public:
    using XNodeClass::XNodeClass;

    static XBodyTable TextBody()
    {
        static constexpr XBodyRow rows[] = {
            {"\ttitle ", Quoted(&Titled::title, ReadQuoted)},
            {"\tsize ", &Titled::size},
        };
        return {".\\src\\VKT\\Titled", rows};
    }
    static XBodyTable BinaryBody() { return TextBody(); }

    XString title = "none";
    u32 size = 1;
};

class BodyQuoted : public NodeTest {
protected:
    Titled m_Node{&m_Model};
};

TEST_F(BodyQuoted, TextIsQuotedAndBytesAreCounted)
{
    m_Node.title = "a b";
    EXPECT_EQ(TextOf(m_Node), "\ttitle \"a b\"\n\tsize 1\n");
    EXPECT_EQ(Hex(BodyOf(m_Node)), "00 00 00 00 00 00 03 00 61 20 62 01 00 00 00");
    EXPECT_EQ(m_Node.GetDataSize(), 14u + 2 + 3 + 4);
}

TEST_F(BodyQuoted, EitherFormReadsBack)
{
    EXPECT_TRUE(ReadText(m_Node, "title \"c d\" size 2"));
    EXPECT_EQ(TextOf(m_Node), "\ttitle \"c d\"\n\tsize 2\n");
    EXPECT_TRUE(ReadBody(m_Node, Bytes("00 00 00 00 00 00 01 00 65 03 00 00 00")));
    EXPECT_EQ(TextOf(m_Node), "\ttitle \"e\"\n\tsize 3\n");
    Titled copy(&m_Model);
    copy.DoCopy(&m_Node);
    EXPECT_EQ(TextOf(copy), TextOf(m_Node));
}

TEST_F(BodyQuoted, ReaderOfTheRowDecides)
{
    EXPECT_FALSE(ReadText(m_Node, "title \"c d"));
    EXPECT_FALSE(ReadText(m_Node, "name \"c d\" size 2"));
    EXPECT_EQ(m_Log.Text(), "Error : Expected title got name [.\\src\\VKT\\Titled:1]\n");
}

TEST_F(BodyQuoted, WhatCannotBeQuotedIsReplacedInTextWithAWarning)
{
    m_Node.title = "a\"b\nc";
    EXPECT_EQ(TextOf(m_Node), "\ttitle \"a_b_c\"\n\tsize 1\n");
    EXPECT_EQ(m_Log.Text(), "Warning : title is written as \"a_b_c\": text files quote it in one line\n");
    EXPECT_EQ(m_Node.title, "a\"b\nc");
}

}  // namespace
