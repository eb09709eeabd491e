#include "VKT/node/BodyRowWords.h"

#include <gtest/gtest.h>

#include "VKT/node/FnRegistry.h"
#include "VKT/node/NodeClass.h"
#include "VKT/support/TestModel.h"

using namespace VKT;

namespace {

constexpr const char* kKinds[] = {"round", "square"};

class Record : public XNodeClass<Record, XBase, 1000> {
public:
    using XNodeClass::XNodeClass;

    f32 number = 0;
    f32 other = 0;
    u32 kind = 0;
    XColour colour{};
    XVector3 vector{};
    XIndexList ids;
    XRealList reals;
    XShaderInput input{"sheen"};
    XString text;
};

std::string Name(const XStored& stored)
{
    return KindOf(stored).name;
}
std::string Bytes(const XStored& stored)
{
    return KindOf(stored).bytes;
}

TEST(BodyRowWords, KindsSayHowAValueStandsInFiles)
{
    EXPECT_EQ(Name(Seen(&Record::number)), "f32");
    EXPECT_EQ(Bytes(Seen(&Record::number)), "4");
    EXPECT_EQ(Name(FirstThree(&Record::colour)), "rgb");
    EXPECT_EQ(Bytes(FirstThree(&Record::colour)), "12");
    EXPECT_EQ(Bytes(Seen(&Record::colour)), "16");
    EXPECT_EQ(Bytes(Seen(&Record::vector)), "12");
    EXPECT_EQ(Name(FirstOf(&Record::vector)), "first");
    EXPECT_EQ(Name(NodeIds(&Record::ids)), "nodeList");
    EXPECT_EQ(Name(Seen(&Record::ids)), "u32List");
    EXPECT_EQ(Name(InOneLine(&Record::ids)), "nodeRow");
    EXPECT_EQ(Name(LinePerNumber(&Record::ids)), "nodeRows");
    EXPECT_EQ(Name(InOneLine(&Record::reals)), "f32Row");
    EXPECT_EQ(Name(LinePerNumber(&Record::reals)), "f32Rows");
    EXPECT_EQ(Name(OldInput(&Record::input, "sheen")), "oldInput");
    EXPECT_EQ(Name(DroppedInput()), "droppedInput");
    EXPECT_EQ(Name(DroppedNumber()), "dropped");
    EXPECT_EQ(Bytes(XStoredText{}), "");
}

TEST(BodyRowWords, WordsAreThoseOfAnEnumerationAlone)
{
    const XStored word = Word(&Record::kind, kKinds);
    ASSERT_EQ(WordsOf(word).size(), 2u);
    EXPECT_STREQ(WordsOf(word)[1], "square");
    EXPECT_TRUE(WordsOf(Seen(&Record::kind)).empty());
}

TEST(BodyRowWords, RowsOfOneMemberAreTheSameFieldInWhateverKind)
{
    EXPECT_TRUE(IsSameField(Seen(&Record::number), Seen(&Record::number)));
    EXPECT_FALSE(IsSameField(Seen(&Record::number), Seen(&Record::other)));
    EXPECT_TRUE(IsSameField(Word(&Record::kind, kKinds), Seen(&Record::kind)));
    EXPECT_TRUE(IsSameField(FirstThree(&Record::colour), Seen(&Record::colour)));
    EXPECT_TRUE(IsSameField(InOneLine(&Record::ids), NodeIds(&Record::ids)));
    EXPECT_FALSE(IsSameField(Seen(&Record::number), Seen(&Record::kind)));
    EXPECT_FALSE(IsSameField(DroppedInput(), DroppedInput()));
    EXPECT_FALSE(IsSameField(DroppedNumber(), DroppedNumber()));
}

TEST(BodyRowWords, KeyOfAnInputIsItsName)
{
    XModel model;
    const Record record(&model);
    EXPECT_EQ(KeyOf({"\tnumber ", &Record::number}, record), "number");
    EXPECT_EQ(KeyOf(&Record::input, record), "sheen");
    EXPECT_EQ(KeyOf(InputId(&Record::input), record), "sheen");
    EXPECT_EQ(KeyOf(&Record::number, record), "");
}

TEST(BodyRowWords, GatesHaveNames)
{
    EXPECT_STREQ(GateName(XGate::kAlways), "");
    EXPECT_STREQ(GateName(XGate::kSince), "since");
    EXPECT_STREQ(GateName(XGate::kSinceBoth), "sinceBoth");
    EXPECT_STREQ(GateName(XGate::kReadSince), "readSince");
    EXPECT_STREQ(GateName(XGate::kBelow), "below");
}

// The compiler finds out; here stand classes of all four cases, and one whose base has no
// type of its own.
TEST(BodyRowWords, RegistryTellsWhoHasCodeBesidesTables)
{
    const VKT::Test::RegistryScope registry;
    const auto code = [](const char* name) {
        const XClassTables tables = XFnFindByName(name)->GetTables();
        return std::pair(tables.hasTextCode, tables.hasBinaryCode);
    };
    EXPECT_EQ(code("phong"), std::pair(false, false));
    EXPECT_EQ(code("cubeMap"), std::pair(true, false));
    EXPECT_EQ(code("bone"), std::pair(false, true));
    EXPECT_EQ(code("polygonMesh"), std::pair(true, true));
    EXPECT_EQ(code("cluster"), std::pair(true, true));
    EXPECT_EQ(code("base"), std::pair(true, true));
}

}  // namespace
