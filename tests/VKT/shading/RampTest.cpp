#include "VKT/shading/Ramp.h"

#include "VKT/support/NodeTest.h"

using namespace VKT;
using namespace VKT::Test;

namespace {

std::string TextOf(const XRamp& ramp)
{
    XTextWriter out;
    ramp.Write(out);
    return out.TakeText();
}

bool ReadText(XRamp& ramp, std::string_view text)
{
    XTextReader in(text);
    return ramp.Read(in);
}

std::string BytesOf(XRamp& ramp)
{
    const TempFile file(".bin");
    {
        XFileIO out(file.Path(), false);
        ramp.DoData(out);
    }
    return file.Bytes();
}

bool ReadBytes(XRamp& ramp, std::string_view bytes)
{
    const TempFile file(".bin", bytes);
    XFileIO in(file.Path(), true);
    return ramp.DoData(in);
}

std::vector<f32> Positions(const XRamp& ramp)
{
    std::vector<f32> positions;
    for (const XRampKey& key : ramp.GetKeys())
        positions.push_back(key.position);
    return positions;
}

class Ramp : public testing::Test {
protected:
    XRamp m_Floats{XRamp::kFloats};
    XRamp m_Colours{XRamp::kColours};
    LogCatcher m_Log;
};

constexpr const char kColourText[] =
    "{\n"
    "\t\ttype colour\n"
    "\t\tcount 2\n"
    "\t\t0 0.25 1 2 3 4 linear\n"
    "\t\t1 0.5 5 6 7 8 spline\n"
    "\t}\n";
constexpr const char kFloatText[] =
    "{\n"
    "\t\ttype curve\n"
    "\t\tcount 2\n"
    "\t\t0 0.25 9 smooth\n"
    "\t\t1 0.5 10 none\n"
    "\t}\n";
constexpr const char kColourBytes[] =
    "01 00 00 00 02 00 00 00 "
    "00 00 80 3f 00 00 00 40 00 00 40 40 00 00 80 40 "
    "00 00 a0 40 00 00 c0 40 00 00 e0 40 00 00 00 41 "
    "01 00 00 00 03 00 00 00 "
    "00 00 80 3e 00 00 00 3f";
constexpr const char kFloatBytes[] =
    "00 00 00 00 02 00 00 00 "
    "00 00 10 41 00 00 20 41 "
    "02 00 00 00 00 00 00 00 "
    "00 00 80 3e 00 00 00 3f";

TEST_F(Ramp, TakesKeysOfItsOwnKindAlone)
{
    EXPECT_FALSE(m_Floats.AddColourKey(0, {1, 2, 3, 4}, kRampNone));
    EXPECT_FALSE(m_Colours.AddFloatKey(0, 1, kRampNone));
    EXPECT_TRUE(m_Floats.GetKeys().empty());
    EXPECT_TRUE(m_Colours.GetKeys().empty());
    EXPECT_TRUE(m_Colours.AddColourKey(0.25f, {1, 2, 3, 4}, kRampLinear));
    EXPECT_TRUE(m_Colours.AddColourKey(0.5f, {5, 6, 7, 8}, kRampSpline));
    EXPECT_EQ(TextOf(m_Colours), kColourText);
    EXPECT_TRUE(m_Floats.AddFloatKey(0.25f, 9, kRampSmooth));
    EXPECT_TRUE(m_Floats.AddFloatKey(0.5f, 10, kRampNone));
    EXPECT_EQ(TextOf(m_Floats), kFloatText);
}

TEST_F(Ramp, KeysAreSortedAndEqualOnesKeepTheirOrder)
{
    for (const auto& [position, value] : {std::pair{2, 20}, {1, 10}, {3, 30}, {2, 21}, {1, 11}, {0, 0}})
        m_Floats.AddFloatKey(static_cast<f32>(position), static_cast<f32>(value), kRampNone);
    EXPECT_EQ(Positions(m_Floats), (std::vector<f32>{0, 1, 1, 2, 2, 3}));
    std::vector<f32> values;
    for (const XRampKey& key : m_Floats.GetKeys())
        values.push_back(key.value.r);
    EXPECT_EQ(values, (std::vector<f32>{0, 10, 11, 20, 21, 30}));
}

TEST_F(Ramp, EitherFormReadsBack)
{
    EXPECT_TRUE(ReadText(m_Colours, kColourText));
    EXPECT_EQ(TextOf(m_Colours), kColourText);
    EXPECT_EQ(Hex(BytesOf(m_Colours)), kColourBytes);
    EXPECT_TRUE(ReadText(m_Floats, kFloatText));
    EXPECT_EQ(TextOf(m_Floats), kFloatText);
    EXPECT_EQ(Hex(BytesOf(m_Floats)), kFloatBytes);
    XRamp colours(XRamp::kColours);
    EXPECT_TRUE(ReadBytes(colours, Bytes(kColourBytes)));
    EXPECT_EQ(TextOf(colours), kColourText);
    XRamp floats(XRamp::kFloats);
    EXPECT_TRUE(ReadBytes(floats, Bytes(kFloatBytes)));
    EXPECT_EQ(TextOf(floats), kFloatText);
}

TEST_F(Ramp, FileSaysOfWhichKindItIs)
{
    EXPECT_TRUE(ReadText(m_Colours, kFloatText));
    EXPECT_EQ(m_Colours.GetKind(), XRamp::kFloats);
    EXPECT_TRUE(ReadBytes(m_Floats, Bytes(kColourBytes)));
    EXPECT_EQ(m_Floats.GetKind(), XRamp::kColours);
    for (const char* word : {"curve", "cur", "curl"}) {
        EXPECT_TRUE(ReadText(m_Colours, "{ type " + std::string(word) + " count 1 0 0.5 9 none }")) << word;
        EXPECT_FALSE(m_Colours.HoldsColours()) << word;
    }
    for (const char* word : {"colour", "cu", "Curve", "gold"}) {
        EXPECT_TRUE(ReadText(m_Floats, "{ type " + std::string(word) + " count 1 0 0.5 9 8 7 6 none }"))
            << word;
        EXPECT_TRUE(m_Floats.HoldsColours()) << word;
    }
}

TEST_F(Ramp, ReadReplacesWhatWasThere)
{
    m_Floats.AddFloatKey(7, 7, kRampNone);
    EXPECT_TRUE(ReadText(m_Floats, kFloatText));
    EXPECT_EQ(TextOf(m_Floats), kFloatText);
    EXPECT_TRUE(ReadBytes(m_Floats, Bytes(kFloatBytes)));
    EXPECT_EQ(TextOf(m_Floats), kFloatText);
}

TEST_F(Ramp, TextIsSortedByPositionWhateverItsIndexColumnSays)
{
    EXPECT_TRUE(ReadText(
        m_Floats, "{ type curve count 4 0 3 30 none 0 1 10 linear 9 2 20 smooth 4294967295 1 11 none }"));
    EXPECT_EQ(TextOf(m_Floats),
              "{\n\t\ttype curve\n\t\tcount 4\n"
              "\t\t0 1 10 linear\n\t\t1 1 11 none\n\t\t2 2 20 smooth\n\t\t3 3 30 none\n\t}\n");
}

TEST_F(Ramp, BytesAreTakenInTheOrderOfTheFile)
{
    const std::string bytes = Replaced(kFloatBytes, "00 00 80 3e 00 00 00 3f", "00 00 00 3f 00 00 80 3e");
    EXPECT_TRUE(ReadBytes(m_Floats, Bytes(bytes)));
    EXPECT_EQ(Positions(m_Floats), (std::vector<f32>{0.5f, 0.25f}));
    EXPECT_EQ(Hex(BytesOf(m_Floats)), bytes);
}

TEST_F(Ramp, UnknownNumbersOfABinaryFileAreKeptAndWrittenAsNone)
{
    const std::string bytes = Replaced(kColourBytes, "03 00 00 00 00 00 80 3e", "07 00 00 00 00 00 80 3e");
    EXPECT_TRUE(ReadBytes(m_Colours, Bytes(bytes)));
    EXPECT_EQ(TextOf(m_Colours), Replaced(kColourText, "spline", "none"));
    EXPECT_EQ(Hex(BytesOf(m_Colours)), bytes);
    const std::string kind = Replaced(kColourBytes, "01 00 00 00 02", "09 00 00 00 02");
    EXPECT_TRUE(ReadBytes(m_Floats, Bytes(kind)));
    EXPECT_EQ(TextOf(m_Floats), kColourText);
    EXPECT_EQ(Hex(BytesOf(m_Floats)), kind);
}

TEST_F(Ramp, UnknownWordIsLoggedAndTheKeysInFrontOfItStay)
{
    EXPECT_FALSE(ReadText(m_Floats, Replaced(kFloatText, "none", "None")));
    EXPECT_EQ(m_Log.Text(),
              "Error : expected \"none\", \"linear\", \"smooth\" or \"spline\"\tgot: \"None\"\n");
    EXPECT_EQ(Positions(m_Floats), std::vector<f32>{0.25f});
    m_Log.Clear();
    EXPECT_FALSE(ReadText(m_Colours, Replaced(kColourText, "spline", "curved")));
    EXPECT_EQ(m_Log.Text(),
              "Error : expected \"none\", \"linear\", \"smooth\" or \"spline\" got: \"curved\"\n");
    EXPECT_EQ(Positions(m_Colours), std::vector<f32>{0.25f});
}

TEST_F(Ramp, WrongKeysAreLogged)
{
    int row = 0;
    for (const std::string key : {"{", "type", "count", "}"}) {
        m_Log.Clear();
        EXPECT_FALSE(ReadText(m_Floats, Replaced(kFloatText, key, "[")));
        EXPECT_EQ(m_Log.Text(),
                  "Error : Expected " + key + " got [ [.\\src\\VKT\\Ramp:" + std::to_string(++row) + "]\n");
    }
}

TEST_F(Ramp, ClaimsThatCannotBeTrueFail)
{
    EXPECT_FALSE(ReadText(m_Floats, "{ type curve count 4294967295 0 1 2 none }"));
    EXPECT_EQ(m_Floats.GetKeys().size(), 1u);
    EXPECT_FALSE(ReadBytes(m_Colours, Bytes("01 00 00 00 ff ff ff ff")));
    EXPECT_TRUE(m_Colours.GetKeys().empty());
}

TEST_F(Ramp, EveryCutFails)
{
    for (const std::string& bytes : {Bytes(kColourBytes), Bytes(kFloatBytes)})
        for (std::size_t length = 0; length < bytes.size(); ++length)
            EXPECT_FALSE(ReadBytes(m_Floats, bytes.substr(0, length))) << length;
    for (const std::string text : {kColourText, kFloatText})
        for (std::size_t length = 0; length < text.rfind('}'); ++length)
            EXPECT_FALSE(ReadText(m_Floats, text.substr(0, length))) << length;
}

TEST_F(Ramp, ManyKeysAgainstTheOrderAreSortedInTime)
{
    constexpr int kKeys = 200000;
    std::string text = "{ type curve count " + std::to_string(kKeys);
    for (int i = 0; i < kKeys; ++i)
        text += " 0 " + std::to_string(kKeys - i) + " 1 none";
    EXPECT_TRUE(ReadText(m_Floats, text + " }"));
    ASSERT_EQ(m_Floats.GetKeys().size(), std::size_t{kKeys});
    EXPECT_EQ(m_Floats.GetKeys().front().position, 1);
    EXPECT_EQ(m_Floats.GetKeys().back().position, kKeys);
}

TEST_F(Ramp, CopyIsWhole)
{
    ASSERT_TRUE(ReadText(m_Colours, kColourText));
    XRamp copy = m_Colours;
    m_Colours.Clear();
    EXPECT_EQ(TextOf(copy), kColourText);
}

}  // namespace
