#include "VKT/node/BodyTable.h"

#include <bit>

#include "VKT/node/NodeClass.h"
#include "VKT/support/NodeTest.h"

using namespace VKT;
using namespace VKT::Test;

namespace {

// A class with a field of every kind.
class Record : public XNodeClass<Record, XBase, 1000> {
public:
    using XNodeClass::XNodeClass;

    static XBodyTable TextBody()
    {
        static constexpr XBodyRow rows[] = {
            {"\tflag ", &Record::flag},
            {"\tnumber\t", &Record::number},
            {"\tcount ", &Record::count},
            {"\t\tpair ", &Record::first, " "},
            {"", &Record::second},
            {"\tvector ", &Record::vector},
            {"\tcolour ", &Record::colour},
            {"\tthree ", FirstThree(&Record::three)},
            {"\tquaternion ", &Record::quaternion},
            {"\tmatrix\n", &Record::matrix},
            {"\tlimits ", &Record::limits},
            &Record::input,
            InputId(&Record::connected),
            {"\tnode ", NodeId(&Record::node)},
            {"\tids ", &Record::ids},
            {"\tbyte ", &Record::byte},
            {"\tshort ", &Record::narrow},
            {"\tkind ", Word(&Record::kind, kKinds, UnknownKind)},
            {"\tline ", InOneLine(&Record::line)},
            {"\tcolumn ", LinePerNumber(&Record::column)},
            {"\tword ", XStoredText{WriteWord, ReadWord}},
            Since(4, {"\tlater ", &Record::later}),
            ReadSince(4, {"\tread_later ", &Record::readLater}),
            Below(4, {"\tearlier ", FirstOf(&Record::grown)}),
            Since(4, {"\tgrown ", &Record::grown}),
        };
        return {".\\src\\VKT\\Record", rows};
    }
    static XBodyTable BinaryBody()
    {
        static constexpr XBodyRow rows[] = {
            &Record::flag,
            &Record::number,
            &Record::count,
            &Record::first,
            &Record::second,
            &Record::vector,
            &Record::colour,
            FirstThree(&Record::three),
            &Record::quaternion,
            &Record::matrix,
            &Record::limits,
            &Record::input,
            InputId(&Record::connected),
            NodeId(&Record::node),
            &Record::ids,
            &Record::byte,
            &Record::narrow,
            Word(&Record::kind, kKinds, UnknownKind),
            InOneLine(&Record::line),
            LinePerNumber(&Record::column),
            Since(4, &Record::later),
            ReadSince(4, &Record::readLater),
            Below(4, FirstOf(&Record::grown)),
            Since(4, &Record::grown),
        };
        return {".\\src\\VKT\\Record", rows};
    }

    static void WriteWord(const XBase& node, XTextWriter& out)
    {
        out << static_cast<const Record&>(node).word << '\n';
    }
    static bool ReadWord(XBase& node, XTextReader& in)
    {
        return in.ReadToken(static_cast<Record&>(node).word);
    }

    static constexpr const char* kKinds[] = {"NONE", "SOME", "ALL"};
    static void UnknownKind(XBase&, const XString& word)
    {
        GetLogger()->LogFormat(kWarning, "no kind %s", word.c_str());
    }

    bool flag = false;
    i32 number = 0;
    u32 count = 0;
    f32 first = 0;
    f32 second = 0;
    XVector3 vector{};
    XColour colour{};
    XColour three{0, 0, 0, 0.25f};
    XQuaternion quaternion{};
    XMatrix matrix = kIdentityMatrix;
    XLimitPair limits;
    XShaderInput input{"glow"};
    XShaderInput connected{"bump"};
    u32 node = 0;
    XIndexList ids;
    u8 byte = 0;
    u16 narrow = 0;
    u32 kind = 0;
    XRealList line;
    XIndexList column;
    XString word = "nothing";
    f32 later = 0;
    f32 readLater = 0;
    XVector3 grown{};
};

void Fill(Record& record)
{
    record.flag = true;
    record.number = -2;
    record.count = 3;
    record.first = 4;
    record.second = 5;
    record.vector = {6, 7, 8, 0};
    record.colour = {9, 10, 11, 12};
    record.three = {13, 14, 15, 16};
    record.quaternion = {17, 18, 19, 20};
    for (int i = 0; i < 16; ++i)
        record.matrix[static_cast<std::size_t>(i)] = static_cast<f32>(21 + i);
    record.limits = {37, 38};
    record.input.colour = {39, 40, 41, 42};
    record.input.input = 43;
    record.connected.input = 44;
    record.node = 45;
    record.ids = {46, 47};
    record.byte = 200;
    record.narrow = 60000;
    record.kind = 2;
    record.line = {51, 52.5f};
    record.column = {53, 54};
    record.word = "fortyeight";
    record.later = 49;
    record.readLater = 50;
    record.grown = {55, 56, 57, 0};
}

constexpr const char kFilledText[] =
    "\tflag 1\n"
    "\tnumber\t-2\n"
    "\tcount 3\n"
    "\t\tpair 4 5\n"
    "\tvector 6 7 8\n"
    "\tcolour 9 10 11 12\n"
    "\tthree 13 14 15\n"
    "\tquaternion 17 18 19 20\n"
    "\tmatrix\n"
    "\t\t21 22 23 24\n"
    "\t\t25 26 27 28\n"
    "\t\t29 30 31 32\n"
    "\t\t33 34 35 36\n"
    "\tlimits 37 38\n"
    "\tglow 39 40 41 42 input 43\n"
    "\tbump 44\n"
    "\tnode 45\n"
    "\tids 2 46 47\n"
    "\tbyte 200\n"
    "\tshort 60000\n"
    "\tkind ALL\n"
    "\tline 2\n"
    "\t\t51 52.5 \n"
    "\tcolumn 2\n"
    "\t\t53\n"
    "\t\t54\n"
    "\tword fortyeight\n"
    "\tlater 49\n"
    "\tread_later 50\n"
    "\tgrown 55 56 57\n";

constexpr const char kFilledBytes[] =
    "00 00 00 00 00 00 "        // no name, id 0
    "01 "                       // flag
    "fe ff ff ff 03 00 00 00 "  // number, count
    "00 00 80 40 00 00 a0 40 "  // the pair
    "00 00 c0 40 00 00 e0 40 00 00 00 41 "
    "00 00 10 41 00 00 20 41 00 00 30 41 00 00 40 41 "
    "00 00 50 41 00 00 60 41 00 00 70 41 "  // three of four
    "00 00 88 41 00 00 90 41 00 00 98 41 00 00 a0 41 "
    "00 00 a8 41 00 00 b0 41 00 00 b8 41 00 00 c0 41 "
    "00 00 c8 41 00 00 d0 41 00 00 d8 41 00 00 e0 41 "
    "00 00 e8 41 00 00 f0 41 00 00 f8 41 00 00 00 42 "
    "00 00 04 42 00 00 08 42 00 00 0c 42 00 00 10 42 "
    "00 00 14 42 00 00 18 42 "  // limits
    "2b 00 00 00 00 00 1c 42 00 00 20 42 00 00 24 42 00 00 28 42 04 00 67 6c 6f 77 "
    "2c 00 00 00 "  // the connected node alone
    "2d 00 00 00 "
    "02 00 00 00 2e 00 00 00 2f 00 00 00 "
    "c8 60 ea 02 00 00 00 "  // byte, short, kind
    "02 00 00 00 00 00 4c 42 00 00 52 42 "
    "02 00 00 00 35 00 00 00 36 00 00 00 "
    "00 00 44 42 00 00 48 42 "
    "00 00 5c 42 00 00 60 42 00 00 64 42";

class BodyTable : public NodeTest {};

TEST_F(BodyTable, EachKindIsWrittenAsItsRowSays)
{
    Record record(&m_Model);
    Fill(record);
    EXPECT_EQ(TextOf(record), kFilledText);
}

TEST_F(BodyTable, TextReadsBack)
{
    Record record(&m_Model);
    EXPECT_TRUE(ReadText(record, kFilledText));
    EXPECT_EQ(TextOf(record), kFilledText);
    EXPECT_EQ(record.vector.w, 0.0f);
    EXPECT_EQ(record.three.a, 0.25f);
    EXPECT_EQ(m_Log.Text(), "");
}

TEST_F(BodyTable, EachKindHasItsBytes)
{
    Record record(&m_Model);
    Fill(record);
    EXPECT_EQ(Hex(BodyOf(record)), kFilledBytes);
    EXPECT_EQ(record.GetDataSize(), 8 + BodyOf(record).size());
}

TEST_F(BodyTable, BytesReadBack)
{
    Record record(&m_Model);
    record.word = "fortyeight";  // has no binary form
    EXPECT_TRUE(ReadBody(record, Bytes(kFilledBytes)));
    EXPECT_EQ(TextOf(record), kFilledText);
    EXPECT_EQ(record.three.a, 0.25f);
}

TEST_F(BodyTable, CopyTakesWhatTheBinaryBodyListsAndNoMore)
{
    Record record(&m_Model);
    Fill(record);
    Record copy(&m_Model);
    copy.DoCopy(&record);
    EXPECT_EQ(TextOf(copy), Replaced(kFilledText, "fortyeight", "nothing"));
    EXPECT_EQ(copy.three.a, 16.0f);
}

TEST_F(BodyTable, CopyFromAForeignClassDoesNothing)
{
    const XBase* bone = m_Model.CreateNode(kFnBone);
    Record record(&m_Model);
    Fill(record);
    record.DoCopy(bone);
    record.DoCopy(nullptr);
    EXPECT_EQ(TextOf(record), kFilledText);
}

TEST_F(BodyTable, KeysAreReadWithoutRegardToCaseAndLineEnds)
{
    Record record(&m_Model);
    std::string text = kFilledText;
    for (char& c : text)
        c = c == '\n' || c == '\t' ? ' ' : c;
    text = Replaced(Replaced(text, "flag", "FLAG"), "bump", "Bump");
    EXPECT_TRUE(ReadText(record, text));
    EXPECT_EQ(TextOf(record), kFilledText);
}

TEST_F(BodyTable, WrongKeyIsLoggedWithSourceAndRow)
{
    Record record(&m_Model);
    EXPECT_FALSE(ReadText(record, "flag 1 number 2 KNOT 3"));
    EXPECT_EQ(m_Log.Text(), "Error : Expected count got knot [.\\src\\VKT\\Record:3]\n");
    EXPECT_TRUE(record.flag);
    EXPECT_EQ(record.number, 2);
}

TEST_F(BodyTable, WrongKeyOfAnInputIsLoggedWithTheInputsName)
{
    Record record(&m_Model);
    EXPECT_FALSE(ReadText(record, Replaced(kFilledText, "glow", "shine")));
    EXPECT_EQ(m_Log.Text(), "Error : Expected glow got shine [.\\src\\VKT\\Record:12]\n");
    m_Log.Clear();
    EXPECT_FALSE(ReadText(record, Replaced(kFilledText, "input", "tex")));
    EXPECT_EQ(m_Log.Text(), "Error : Expected input got tex [.\\src\\VKT\\Record:12]\n");
    m_Log.Clear();
    EXPECT_FALSE(ReadText(record, Replaced(kFilledText, "bump", "bulge")));
    EXPECT_EQ(m_Log.Text(), "Error : Expected bump got bulge [.\\src\\VKT\\Record:13]\n");
}

TEST_F(BodyTable, NumberThatIsNoneIsSeenAtTheNextKey)
{
    Record record(&m_Model);
    EXPECT_FALSE(ReadText(record, "flag 1 number x count 3"));
    EXPECT_EQ(m_Log.Text(), "Error : Expected count got  [.\\src\\VKT\\Record:3]\n");
}

TEST_F(BodyTable, WordOutsideTheTableIsToldAndLeavesTheValue)
{
    Record record(&m_Model);
    record.kind = 1;
    EXPECT_TRUE(ReadText(record, Replaced(kFilledText, "kind ALL", "kind all")));
    EXPECT_EQ(m_Log.Text(), "Warning : no kind all\n");
    EXPECT_EQ(record.kind, 1u);
    record.kind = 3;
    EXPECT_EQ(TextOf(record), Replaced(kFilledText, "kind ALL", "kind NONE"));
    m_Log.Clear();
    EXPECT_FALSE(ReadText(record, std::string(kFilledText).substr(0, std::string(kFilledText).find("ALL"))));
    EXPECT_EQ(m_Log.Text(), "Error : Expected line got  [.\\src\\VKT\\Record:19]\n");
}

TEST_F(BodyTable, NumberBeyondTheWidthOfItsFieldIsCut)
{
    Record record(&m_Model);
    EXPECT_TRUE(ReadText(record, Replaced(Replaced(kFilledText, "byte 200", "byte 258"), "60000", "65539")));
    EXPECT_EQ(record.byte, 2u);
    EXPECT_EQ(record.narrow, 3u);
}

TEST_F(BodyTable, EmptyListsHaveTheirLines)
{
    Record record(&m_Model);
    EXPECT_NE(TextOf(record).find("\tline 0\n\t\t\n\tcolumn 0\n\tword"), std::string::npos);
}

TEST_F(BodyTable, ListThatClaimsTooMuchIsSeenAtTheNextKeyAndTakesNoMemory)
{
    Record record(&m_Model);
    EXPECT_FALSE(ReadText(record, Replaced(kFilledText, "ids 2", "ids 4294967295")));
    EXPECT_EQ(m_Log.Text(), "Error : Expected byte got  [.\\src\\VKT\\Record:16]\n");
    EXPECT_LT(record.ids.capacity(), 100u);
}

TEST_F(BodyTable, LastNumberThatIsNoneFailsWithoutAMessage)
{
    Record record(&m_Model);
    EXPECT_FALSE(ReadText(record, Replaced(kFilledText, "grown 55 56 57", "grown 55 56 ?")));
    EXPECT_EQ(m_Log.Text(), "");
}

TEST_F(BodyTable, OlderTextLacksGatedRowsButIsWrittenWithThem)
{
    MakeOlder();
    Record record(&m_Model);
    const std::string later = "\tlater 49\n\tread_later 50\n\tgrown 55 56 57\n";
    EXPECT_TRUE(ReadText(record, Replaced(kFilledText, later, "\tearlier 58\n")));
    EXPECT_EQ(TextOf(record), Replaced(kFilledText, later, "\tlater 0\n\tread_later 0\n\tgrown 58 0 0\n"));
}

TEST_F(BodyTable, OlderBytesLackGatedRowsAndReadGatesLeaveWritesAlone)
{
    MakeOlder();
    Record record(&m_Model);
    const std::string later = "00 00 44 42 00 00 48 42 00 00 5c 42 00 00 60 42 00 00 64 42";
    EXPECT_TRUE(ReadBody(record, Bytes(Replaced(kFilledBytes, later, "00 00 68 42"))));
    EXPECT_EQ(record.later, 0.0f);
    EXPECT_EQ(record.grown, (XVector3{58, 0, 0, 0}));
    record.readLater = 50;
    EXPECT_EQ(Hex(BodyOf(record)), Replaced(kFilledBytes, later, "00 00 48 42 00 00 68 42"));
}

TEST_F(BodyTable, MeasureIsThatOfASaveWhateverTheVersion)
{
    MakeOlder();
    Record record(&m_Model);
    Fill(record);
    EXPECT_EQ(record.GetDataSize(), 8 + Bytes(kFilledBytes).size());
}

TEST_F(BodyTable, EveryCutOfTheBytesFails)
{
    const std::string bytes = Bytes(kFilledBytes);
    for (std::size_t length = 0; length < bytes.size(); ++length) {
        Record record(&m_Model);
        EXPECT_FALSE(ReadBody(record, bytes.substr(0, length))) << length;
    }
    EXPECT_TRUE(
        m_Log.Text().starts_with("Error : XFileIO::DoData : expected to read/write 1 elements got 0\n"));
}

TEST_F(BodyTable, EveryCutOfTheTextFailsUpToItsLastNumber)
{
    const std::string text = kFilledText;
    for (std::size_t length = 0; length < text.find("57"); ++length) {
        Record record(&m_Model);
        EXPECT_FALSE(ReadText(record, text.substr(0, length))) << length;
    }
}

TEST_F(BodyTable, LimitsPrintTheirSentinels)
{
    Record record(&m_Model);
    EXPECT_NE(TextOf(record).find("\tlimits -INF +INF\n"), std::string::npos);
    EXPECT_TRUE(ReadText(record, Replaced(kFilledText, "limits 37 38", "limits -INF +INF")));
    EXPECT_TRUE(IsNoLowerLimit(record.limits.lower));
    EXPECT_TRUE(IsNoUpperLimit(record.limits.upper));
}

// Lists of every number, and a row that old documents neither read nor write.
class Listing : public XNodeClass<Listing, XBase, 1002> {
public:
    using XNodeClass::XNodeClass;

    static XBodyTable TextBody()
    {
        static constexpr XBodyRow rows[] = {
            {"\tsigned ", &Listing::integers},
            {"\treal ", &Listing::reals},
            SinceBoth(4, {"\tnew ", &Listing::renewed}),
        };
        return {".\\src\\VKT\\Listing", rows};
    }
    static XBodyTable BinaryBody() { return TextBody(); }

    XIntList integers{-1, 2};
    XRealList reals{0.5f, 4, 8};
    u32 renewed = 3;
};

constexpr const char kListText[] = "\tsigned 2 -1 2\n\treal 3 0.5 4 8\n\tnew 3\n";
constexpr const char kListBytes[] =
    "00 00 00 00 00 00 "
    "02 00 00 00 ff ff ff ff 02 00 00 00 "
    "03 00 00 00 00 00 00 3f 00 00 80 40 00 00 00 41 "
    "03 00 00 00";

void ClearLists(Listing& listing)
{
    listing.integers.clear();
    listing.reals.clear();
    listing.renewed = 0;
}

TEST_F(BodyTable, ListsOfAnyNumberReadBack)
{
    Listing listing(&m_Model);
    EXPECT_EQ(TextOf(listing), kListText);
    EXPECT_EQ(Hex(BodyOf(listing)), kListBytes);
    ClearLists(listing);
    EXPECT_EQ(TextOf(listing), "\tsigned 0 \n\treal 0 \n\tnew 0\n");
    EXPECT_TRUE(ReadText(listing, kListText));
    EXPECT_EQ(TextOf(listing), kListText);
    ClearLists(listing);
    EXPECT_TRUE(ReadBody(listing, Bytes(kListBytes)));
    EXPECT_EQ(TextOf(listing), kListText);
}

TEST_F(BodyTable, RowOfNewDocumentsIsInNeitherFormOfOlderOnes)
{
    MakeOlder();
    Listing listing(&m_Model);
    const std::string older = Replaced(kListText, "\tnew 3\n", "");
    EXPECT_EQ(TextOf(listing), older);
    EXPECT_EQ(Hex(BodyOf(listing)) + " 03 00 00 00", kListBytes);
    ClearLists(listing);
    EXPECT_TRUE(ReadText(listing, older));
    EXPECT_EQ(TextOf(listing), older);
    EXPECT_EQ(listing.renewed, 0u);
}

TEST(BodyRow, KeyIsTheLiteralWithoutItsWhiteSpace)
{
    EXPECT_EQ(XBodyRow::KeyOf("\t\tleft\t"), "left");
    EXPECT_EQ(XBodyRow::KeyOf("\tmatrix\n"), "matrix");
    EXPECT_EQ(XBodyRow::KeyOf("plain"), "plain");
    EXPECT_EQ(XBodyRow::KeyOf(" "), "");
    EXPECT_EQ(XBodyRow::KeyOf(""), "");
}

}  // namespace
