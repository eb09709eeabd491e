#include "VKT/node/Attribute.h"

#include <gtest/gtest.h>

#include "VKT/hierarchy/Bone.h"
#include "VKT/support/LogCatcher.h"
#include "VKT/support/TestModel.h"

namespace VKT::Test {
namespace {

std::string TextOf(const XAttribute& attribute)
{
    XTextWriter out;
    attribute.Write(out);
    return out.TakeText();
}

// Reads an entry behind its name.
XAttribute Read(std::string_view text)
{
    XTextReader in(text);
    XAttribute attribute;
    attribute.SetName("a");
    attribute.Read(in);
    return attribute;
}

template <class T>
XAttribute With(T value)
{
    XAttribute attribute;
    attribute.SetName("a");
    attribute.Set(std::move(value));
    return attribute;
}

std::string BytesOf(XAttribute attribute, u32 version = 4)
{
    const TempFile file(".bin");
    {
        XFileIO out(file.Path(), false);
        out.SetVersion(version);
        EXPECT_TRUE(attribute.DoData(out));
    }
    return file.Bytes();
}

TEST(Attribute, FreshOneIsTheBoolFalseCalledDefault)
{
    const XAttribute attribute;
    EXPECT_EQ(attribute.GetType(), 136u);
    EXPECT_EQ(attribute.GetName(), "default");
    bool value = true;
    EXPECT_TRUE(attribute.Get(value));
    EXPECT_FALSE(value);
    EXPECT_FALSE(attribute.HasConnections());
    EXPECT_EQ(attribute.Size(), 1u);
}

TEST(Attribute, TheTypeIsWhatWasSetLast)
{
    XAttribute attribute;
    attribute.Set(XString("text"));
    EXPECT_EQ(attribute.GetType(), 146u);
    attribute.Set(7);
    EXPECT_EQ(attribute.GetType(), 142u);
    XString text = "kept";
    EXPECT_FALSE(attribute.Get(text));
    EXPECT_EQ(text, "kept");
}

TEST(Attribute, KeywordsOfAllTypes)
{
    const char* const keywords[] = {"bool",
                                    "colour",
                                    "float",
                                    "float2",
                                    "float3",
                                    "float4",
                                    "int",
                                    "int2",
                                    "int3",
                                    "int4",
                                    "string",
                                    "message",
                                    "matrix",
                                    "vector<bool>",
                                    "vector<colour>",
                                    "vector<float>",
                                    "vector<float2>",
                                    "vector<float3>",
                                    "vector<float4>",
                                    "vector<int>",
                                    "vector<int2>",
                                    "vector<int3>",
                                    "vector<int4>",
                                    "vector<string>",
                                    "vector<message>",
                                    "vector<matrix>"};
    for (u32 i = 0; i < 26; ++i)
        EXPECT_STREQ(GetAttributeKeyword(136 + i), keywords[i]);
    EXPECT_EQ(GetAttributeKeyword(135), nullptr);
    EXPECT_EQ(GetAttributeKeyword(162), nullptr);
}

TEST(Attribute, ScalarsInText)
{
    EXPECT_EQ(TextOf(With(true)), "\t\ta bool 1\n");
    EXPECT_EQ(TextOf(With(XColour{0.5f, 0.25f, 1, 0.125f})), "\t\ta colour 0.5 0.25 1\n");
    EXPECT_EQ(TextOf(With(1.5f)), "\t\ta float 1.5\n");
    EXPECT_EQ(TextOf(With(XVector2{1, 2})), "\t\ta float2 1 2\n");
    EXPECT_EQ(TextOf(With(XVector3{1, 2, 3, 0})), "\t\ta float3 1 2 3\n");
    EXPECT_EQ(TextOf(With(XVector4{1, 2, 3, 4})), "\t\ta float4 1 2 3 4\n");
    EXPECT_EQ(TextOf(With(-3)), "\t\ta int -3\n");
    EXPECT_EQ(TextOf(With(XInt2{1, 2})), "\t\ta int2 1 2\n");
    EXPECT_EQ(TextOf(With(XInt3{1, 2, 3})), "\t\ta int3 1 2 3\n");
    EXPECT_EQ(TextOf(With(XInt4{1, 2, 3, 4})), "\t\ta int4 1 2 3 4\n");
    EXPECT_EQ(TextOf(With(XString("x y"))), "\t\ta string \"x y\"\n");
    EXPECT_EQ(TextOf(With(XMessage{})), "\t\ta message\n");
    EXPECT_EQ(TextOf(With(kIdentityMatrix)), "\t\ta matrix 1 0 0 0 0 1 0 0 0 0 1 0 0 0 0 1 \n");
}

TEST(Attribute, ArraysInText)
{
    EXPECT_EQ(TextOf(With(XVector<u8>{1, 0})), "\t\ta vector<bool> 2 { 1 0  }\n");
    EXPECT_EQ(TextOf(With(XFloatArray{})), "\t\ta vector<float> 0 {  }\n");
    EXPECT_EQ(TextOf(With(XFloatArray{1.5f, 2})), "\t\ta vector<float> 2 { 1.5 2  }\n");
    EXPECT_EQ(TextOf(With(XIntList{-1, 2})), "\t\ta vector<int> 2 { -1 2  }\n");
    EXPECT_EQ(TextOf(With(XColourArray{{1, 2, 3, 4}})), "\t\ta vector<colour> 1 {\n\t\t\t1 2 3\n }\n");
    EXPECT_EQ(TextOf(With(XVector<XVector2>{{1, 2}, {3, 4}})),
              "\t\ta vector<float2> 2\n\t\t{\n1  2\n3  4\n\t\t}\n");
    EXPECT_EQ(TextOf(With(XVector3Array{{1, 2, 3, 0}})),
              "\t\ta vector<float3> 1\n\t\t{\n\t\t\t1  2  3\n\t\t}\n");
    EXPECT_EQ(TextOf(With(XVector<XVector4>{{1, 2, 3, 4}})),
              "\t\ta vector<float4> 1\n\t\t{\n\t\t\t1  2  3  4\n\t\t}\n");
    EXPECT_EQ(TextOf(With(XVector<XInt2>{{1, 2}})), "\t\ta vector<int2> 1\n\t\t{\n\t\t\t1  2\n\t\t}\n");
    EXPECT_EQ(TextOf(With(XVector<XInt3>{{1, 2, 3}})), "\t\ta vector<int3> 1\n\t\t{\n\t\t\t1  2  3\n\t\t}\n");
    EXPECT_EQ(TextOf(With(XVector<XInt4>{{1, 2, 3, 4}})),
              "\t\ta vector<int4> 1\n\t\t{\n\t\t\t1  2  3  4\n\t\t}\n");
    EXPECT_EQ(TextOf(With(XStringList{"x", "y z"})),
              "\t\ta vector<string> 2\n\t\t{\n\t\t\t\"x\"\n\t\t\t\"y z\"\n\t\t}\n");
    EXPECT_EQ(TextOf(With(XMessageArray{3})), "\t\ta vector<message> 3\n");
    EXPECT_EQ(TextOf(With(XMatrixArray{kIdentityMatrix})),
              "\t\ta vector<matrix> 1\t\t{\n\t\t\t1 0 0 0 0 1 0 0 0 0 1 0 0 0 0 1 \n\t\t}\n");
}

// Text and binary of every type read back to the same text.
TEST(Attribute, EveryTypeReadsBack)
{
    const XAttribute all[] = {With(true),
                              With(XColour{0.5f, 0.25f, 1, 1}),
                              With(1.5f),
                              With(XVector2{1, 2}),
                              With(XVector3{1, 2, 3, 0}),
                              With(XVector4{1, 2, 3, 4}),
                              With(-3),
                              With(XInt2{1, 2}),
                              With(XInt3{1, 2, 3}),
                              With(XInt4{1, 2, 3, 4}),
                              With(XString("x\ty\"z\\q")),
                              With(XMessage{}),
                              With(XMatrix{{1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15, 16}}),
                              With(XVector<u8>{1, 0, 1}),
                              With(XColourArray{{1, 2, 3, 1}, {4, 5, 6, 1}}),
                              With(XFloatArray{1, 2}),
                              With(XVector<XVector2>{{1, 2}, {3, 4}}),
                              With(XVector3Array{{1, 2, 3, 0}}),
                              With(XVector<XVector4>{{1, 2, 3, 4}}),
                              With(XIntList{1, -2}),
                              With(XVector<XInt2>{{1, 2}}),
                              With(XVector<XInt3>{{1, 2, 3}}),
                              With(XVector<XInt4>{{1, 2, 3, 4}}),
                              With(XStringList{"", "b c"}),
                              With(XMessageArray{3}),
                              With(XMatrixArray{kIdentityMatrix})};
    for (const XAttribute& attribute : all) {
        const std::string text = TextOf(attribute);
        SCOPED_TRACE(text);
        EXPECT_EQ(TextOf(Read(text.substr(4))), text);  // behind "\t\ta "

        const std::string bytes = BytesOf(attribute);
        const TempFile file(".bin", bytes);
        XFileIO in(file.Path(), true);
        XAttribute copy;
        EXPECT_TRUE(copy.DoData(in));
        EXPECT_EQ(TextOf(copy), text);
        EXPECT_EQ(BytesOf(copy), bytes);
        EXPECT_EQ(in.Remaining(), 0u);
    }
}

TEST(Attribute, EscapesInText)
{
    EXPECT_EQ(TextOf(With(XString("\0\a\t\n\r\"\\", 7))), "\t\ta string \"\\0\\a\\t\\n\\r\\\"\\\"\n");
    XString text;
    Read("string \"a\\tb\\\"c\\q\\\\\"").Get(text);
    // The last quote is escaped by the backslash before it: a text that ends in one is lost so.
    EXPECT_EQ(text, "a\tb\"c\\q\\\"");
}

TEST(Attribute, ColourFromTextHasAlphaOne)
{
    XColour colour{};
    EXPECT_TRUE(Read("colour 0.5 0.25 0.125\n").Get(colour));
    EXPECT_EQ(colour, (XColour{0.5f, 0.25f, 0.125f, 1.0f}));
}

TEST(Attribute, UnknownKeywordLeavesABool)
{
    EXPECT_EQ(Read("quaternion 1 2 3 4\n").GetType(), 136u);
}

TEST(Attribute, WrongBraceIsLogged)
{
    LogCatcher log;
    XTextReader in("vector<int> 1 [ 5 ]");
    XAttribute attribute;
    EXPECT_FALSE(attribute.Read(in));
    EXPECT_EQ(log.Text(), "Error : Expected { got [ [.\\src\\VKT\\ExtraAttributes:1]\n");
}

TEST(Attribute, BinaryLayout)
{
    EXPECT_EQ(Hex(BytesOf(With(XInt2{1, 2}))),
              "8f 00 00 00 01 00 61 01 00 00 00 02 00 00 00 00 00 00 00 00 00 00 00");
    XAttribute attribute = With(XMessageArray{2});
    attribute.SetInput(1, 5, "b");
    EXPECT_EQ(Hex(BytesOf(attribute)),
              "a0 00 00 00 01 00 61 02 00 00 00 "
              "01 00 00 00 05 00 00 00 01 00 00 00 01 00 62 "
              "00 00 00 00");
}

TEST(Attribute, FilesOfVersionTwoHaveNoConnections)
{
    EXPECT_EQ(Hex(BytesOf(With(XInt2{1, 2}), 2)), "8f 00 00 00 01 00 61 01 00 00 00 02 00 00 00");
    EXPECT_EQ(Hex(BytesOf(With(XMessageArray{2}), 2)), "a0 00 00 00 01 00 61");
}

TEST(Attribute, TypesThatAreNoneAreRefused)
{
    LogCatcher log;
    const TempFile file(".bin", std::string("\x87\0\0\0\1\0a\0", 8));
    XFileIO in(file.Path(), true);
    XAttribute attribute;
    EXPECT_FALSE(attribute.DoData(in));
    EXPECT_EQ(log.Text(), "Error : 135 is no type of an extra attribute\n");
}

TEST(Attribute, ConnectionsGoByElement)
{
    RegistryScope registry;
    XModel model;
    const u32 first = model.CreateNode<XBone>()->GetID();
    const u32 second = model.CreateNode<XBone>()->GetID();
    XAttribute attribute = With(XFloatArray{1, 2, 3});
    EXPECT_TRUE(attribute.SetInput(1, first, "x"));
    EXPECT_TRUE(attribute.SetInput(1, second, "y"));  // replaces
    EXPECT_TRUE(attribute.AddOutput(2, first, "u"));
    EXPECT_FALSE(attribute.AddOutput(2, first, "u"));
    EXPECT_TRUE(attribute.AddOutput(2, first, "v"));

    EXPECT_FALSE(attribute.HasInput(0));
    EXPECT_TRUE(attribute.HasInput(1));
    EXPECT_EQ(attribute.GetInput(model, 1), model.FindNode(second));
    EXPECT_EQ(attribute.GetInputAttribute(model, 1), "y");
    EXPECT_EQ(attribute.NumOutputs(2), 2u);
    EXPECT_EQ(attribute.GetOutput(model, 2, 1), model.FindNode(first));
    EXPECT_EQ(attribute.GetOutputAttribute(model, 2, 1), "v");
    EXPECT_EQ(attribute.GetOutput(model, 2, 2), nullptr);
    EXPECT_EQ(attribute.GetOutputAttribute(model, 2, 2), "");
}

TEST(Attribute, DeathRemovesWhatTheFlagsSay)
{
    RegistryScope registry;
    XModel model;
    XAttribute attribute;
    attribute.SetInput(0, 7, "x");
    attribute.AddOutput(0, 7, "y");
    model.GetDeleteFlags().Clear(512);
    attribute.NodeDeath(model, 7);
    EXPECT_FALSE(attribute.HasInput(0));
    EXPECT_TRUE(attribute.HasOutput(0));
    model.GetDeleteFlags().Set(512);
    attribute.NodeDeath(model, 7);
    EXPECT_FALSE(attribute.HasOutput(0));
}

TEST(Attribute, SetElementKeepsToItsArray)
{
    XAttribute attribute = With(XFloatArray{1, 2});
    EXPECT_TRUE(attribute.SetElement(1, 5.0f));
    EXPECT_FALSE(attribute.SetElement(2, 5.0f));
    EXPECT_FALSE(attribute.SetElement(0, 5));
    f32 value = 0;
    EXPECT_TRUE(attribute.GetElement(1, value));
    EXPECT_EQ(value, 5.0f);
    EXPECT_EQ(attribute.Size(), 2u);
}

}  // namespace
}  // namespace VKT::Test
