#include "VKT/document/Info.h"

#include <gtest/gtest.h>

#include "VKT/stream/Platform.h"
#include "VKT/support/LogCatcher.h"
#include "VKT/support/TestModel.h"

namespace VKT {
namespace {

using Test::Bytes;
using Test::Hex;
using Test::LoadText;
using Test::RegistryScope;
using Test::SaveText;
using Test::TempFile;

constexpr XDate kMarch{5, 3, 2009, 14, 7, 9};

// What a file of the year 2009 holds: one month and 1900 years more.
constexpr char kText[] =
    "{\n"
    "\tuser \"anna\"\n"
    "\thost \"studio 7\"\n"
    "\ttexture_file \"none\"\n"
    "\tformat_version VKT_004A\n"
    "\tsend_bug_reports_to vkt-bugs@vkt.invalid\n"
    "\tapplication \"a tool\"\n"
    "\toriginal_file \"c:\\a b\\scene.max\"\n"
    "\tdate 5/4/3909\n"
    "\ttime 14.7:9\n"
    "}\n";

bool Read(XInfo& info, std::string_view text)
{
    XTextReader in(text);
    return info.Read(in);
}

// `kText` with one line changed.
std::string With(std::string_view line, std::string_view other)
{
    std::string text = kText;
    return text.replace(text.find(line), line.size(), other);
}

TEST(Info, AFreshOneKnowsNothingButTheTime)
{
    const XInfo info;
    EXPECT_EQ(info.GetOriginalFile(), "unknown");
    EXPECT_EQ(info.GetApplication(), "VKT_SDK");
    EXPECT_EQ(info.GetTextureFile(), "");
    EXPECT_EQ(info.GetUser(), "");
    EXPECT_EQ(info.GetHost(), "");
    EXPECT_EQ(info.GetDate().year, LocalTime().year);
}

TEST(Info, WritesItsChunk)
{
    XInfo info;
    info.SetApplication("a tool");
    info.SetOriginalFile("c:\\a b\\scene.max");
    info.SetUser("not written");
    info.SetHost("not written");
    info.SetDate({1, 1, 1, 1, 1, 1});
    XTextWriter out;
    EXPECT_TRUE(info.Write(out, "anna", "studio 7", kMarch));
    EXPECT_EQ(out.Text(), std::string("INFO info\n") + kText);
}

TEST(Info, EmptyNamesAreUnknownAndAnEmptyTextureFileIsNone)
{
    XInfo info;
    info.SetTextureFile("images.vtt");
    XTextWriter out;
    info.Write(out, "", "", kMarch);
    EXPECT_EQ(out.Text(),
              "INFO info\n{\n"
              "\tuser \"unknown\"\n"
              "\thost \"unknown\"\n"
              "\ttexture_file \"images.vtt\"\n"
              "\tformat_version VKT_004A\n"
              "\tsend_bug_reports_to vkt-bugs@vkt.invalid\n"
              "\tapplication \"VKT_SDK\"\n"
              "\toriginal_file \"unknown\"\n"
              "\tdate 5/4/3909\n"
              "\ttime 14.7:9\n"
              "}\n");
}

TEST(Info, TextFilesSayWhoWritesThemNowAndWhere)
{
    XTextWriter out;
    const XDate before = LocalTime();
    XInfo().Write(out);
    const XString user = LoginName().empty() ? "unknown" : LoginName();
    const XString host = ComputerName().empty() ? "unknown" : ComputerName();
    EXPECT_TRUE(out.Text().starts_with("INFO info\n{\n\tuser \"" + user + "\"\n\thost \"" + host + "\"\n"));
    XInfo back;
    EXPECT_TRUE(Read(back, out.Text().substr(sizeof "INFO info\n" - 1)));
    EXPECT_GE(back.GetDate().year, before.year + 1900);
    EXPECT_EQ(back.GetUser(), user);
    EXPECT_EQ(back.GetHost(), host);
}

TEST(Info, ReadsItsChunk)
{
    const LogCatcher log;
    XInfo info;
    ASSERT_TRUE(Read(info, kText));
    EXPECT_EQ(info.GetUser(), "anna");
    EXPECT_EQ(info.GetHost(), "studio 7");
    EXPECT_EQ(info.GetTextureFile(), "none");
    EXPECT_EQ(info.GetApplication(), "a tool");
    EXPECT_EQ(info.GetOriginalFile(), "c:\\a b\\scene.max");
    EXPECT_EQ(info.GetDate(), (XDate{5, 4, 3909, 14, 7, 9}));
    EXPECT_EQ(log.Text(), "");
}

TEST(Info, EmptyStringsLeaveWhatWasThereAndTwoAreClearedFirst)
{
    XInfo info;
    info.SetUser("before");
    info.SetTextureFile("before");
    ASSERT_TRUE(Read(info,
                     "{ user \"\" host \"\" texture_file \"\" format_version VKT_004A send_bug_reports_to x "
                     "application \"\" original_file \"\" date 1/2/3 time 4.5:6 }"));
    EXPECT_EQ(info.GetUser(), "before");
    EXPECT_EQ(info.GetTextureFile(), "before");
    EXPECT_EQ(info.GetApplication(), "");
    EXPECT_EQ(info.GetOriginalFile(), "");
}

TEST(Info, AWrongKeyIsLoggedWithItsPlace)
{
    const struct {
        const char* line;
        const char* message;
    } cases[] = {
        {"user ", "Error : Expected user got uxer [.\\src\\VKT\\Info:1]\n"},
        {"host ", "Error : Expected host got uxer [.\\src\\VKT\\Info:2]\n"},
        {"texture_file ", "Error : Expected texture_file got uxer [.\\src\\VKT\\Info:3]\n"},
        {"format_version ", "Error : Expected format_version got uxer [.\\src\\VKT\\Info:4]\n"},
        {"send_bug_reports_to ", "Error : Expected send_bug_reports_to got uxer [.\\src\\VKT\\Info:5]\n"},
        {"application ", "Error : Expected application got uxer [.\\src\\VKT\\Info:6]\n"},
        {"original_file ", "Error : Expected original_file got uxer [.\\src\\VKT\\Info:7]\n"},
        {"}", "Error : Expected } got uxer [.\\src\\VKT\\Info:8]\n"},
    };
    for (const auto& [line, message] : cases) {
        const LogCatcher log;
        XInfo info;
        EXPECT_FALSE(Read(info, With(line, "UXER "))) << line;
        EXPECT_EQ(log.Text(), message);
    }
}

TEST(Info, KeysAreReadWithoutRegardToCaseAndSomeUnchecked)
{
    XInfo info;
    EXPECT_TRUE(Read(info, With("user ", "USER ")));
    EXPECT_TRUE(Read(info, With("{", "anything")));
    EXPECT_TRUE(Read(info, With("date ", "when ")));
    EXPECT_TRUE(Read(info, With("time ", "o'clock ")));
}

TEST(Info, TheFormatMustBeOursAndNotNewer)
{
    const auto read = [](const char* version) {
        XInfo info;
        return Read(info, With("VKT_004A", version));
    };
    LogCatcher log;
    EXPECT_TRUE(read("VKT_003A"));
    EXPECT_TRUE(read("VKT_004B"));
    EXPECT_TRUE(read("VKT_"));
    EXPECT_TRUE(read("VKT_xyz"));
    EXPECT_EQ(log.Text(), "");
    EXPECT_FALSE(read("VKT_005A"));
    EXPECT_FALSE(read("VKT_999"));
    EXPECT_EQ(log.Text(),
              "Error : This version of VKT is not supported by this version of the SDK\n"
              "Error : This version of VKT is not supported by this version of the SDK\n");
    log.Clear();
    EXPECT_FALSE(read("XYZ_004A"));
    EXPECT_FALSE(read("VKT"));
    EXPECT_EQ(log.Text(), "Error : Incorrect format\nError : Incorrect format\n");
}

TEST(Info, DateAndTimeAreScannedAsFarAsTheyGo)
{
    const auto date = [](const char* line) {
        XInfo info;
        info.SetDate({91, 92, 93, 94, 95, 96});
        EXPECT_TRUE(Read(info, With("5/4/3909", line)));
        return info.GetDate();
    };
    EXPECT_EQ(date("5"), (XDate{5, 92, 93, 14, 7, 9}));
    EXPECT_EQ(date("5/6"), (XDate{5, 6, 93, 14, 7, 9}));
    EXPECT_EQ(date("5-6-7"), (XDate{5, 92, 93, 14, 7, 9}));
    EXPECT_EQ(date("x"), (XDate{91, 92, 93, 14, 7, 9}));
    EXPECT_EQ(date("+5/-1/99999999999"), (XDate{5, 0xFFFFFFFF, 93, 14, 7, 9}));
    const auto time = [](const char* line) {
        XInfo info;
        info.SetDate({91, 92, 93, 94, 95, 96});
        EXPECT_TRUE(Read(info, With("14.7:9", line)));
        return info.GetDate();
    };
    EXPECT_EQ(time("1:2.3"), (XDate{5, 4, 3909, 1, 2, 3}));
    EXPECT_EQ(time("1..2"), (XDate{5, 4, 3909, 1, 2, 96}));
    EXPECT_EQ(time("1h2"), (XDate{5, 4, 3909, 1, 95, 96}));
}

TEST(Info, EveryPrefixOfTheChunkFails)
{
    const std::string_view text = kText;
    for (std::size_t length = 0; length + 2 < text.size(); ++length) {
        const LogCatcher log;
        XInfo info;
        EXPECT_FALSE(Read(info, text.substr(0, length))) << length;
    }
}

TEST(Info, TheBinaryChunk)
{
    XInfo info;
    info.SetOriginalFile("o");
    info.SetApplication("app");
    info.SetUser("us");
    info.SetHost("");
    info.SetTextureFile("not in the binary form");
    info.SetDate(kMarch);
    const TempFile file(".bin");
    {
        XFileIO out(file.Path(), false);
        EXPECT_TRUE(info.DoData(out));
    }
    EXPECT_EQ(Hex(file.Bytes()),
              "a2 00 00 00 32 00 00 00 "  // type 162, flags, size 44 + 6
              "30 00 00 00 "              // revision 48
              "01 00 6f 03 00 61 70 70 02 00 75 73 00 00 "
              "05 00 00 00 03 00 00 00 d9 07 00 00 0e 00 00 00 07 00 00 00 09 00 00 00");
    EXPECT_EQ(file.Bytes().size(), 50u);

    XFileIO in(file.Path(), true);
    in.Skip(8);  // the document has consumed the header
    XInfo back;
    ASSERT_TRUE(back.DoData(in));
    EXPECT_EQ(back.GetOriginalFile(), "o");
    EXPECT_EQ(back.GetApplication(), "app");
    EXPECT_EQ(back.GetUser(), "us");
    EXPECT_EQ(back.GetHost(), "");
    EXPECT_EQ(back.GetTextureFile(), "");
    EXPECT_EQ(back.GetDate(), kMarch);
}

TEST(Info, TheRevisionIsCarriedAlong)
{
    const TempFile file(".bin", Bytes("07 00 00 00 00 00 00 00 00 00 00 00") + std::string(24, '\0'));
    XInfo info;
    {
        XFileIO in(file.Path(), true);
        ASSERT_TRUE(info.DoData(in));
    }
    XFileIO out(file.Path(), false);
    info.DoData(out);
    out.Close();
    EXPECT_EQ(Hex(file.Bytes().substr(8, 4)), "07 00 00 00");
}

TEST(Info, TheSizeOfAChunkIsThatOfTheCutStrings)
{
    XInfo info;
    info.SetOriginalFile("");
    info.SetApplication(XString(70'000, 'a'));
    info.SetUser(XString(65'535, 'u'));
    const TempFile file(".bin");
    {
        XFileIO out(file.Path(), false);
        EXPECT_TRUE(info.DoData(out));
    }
    EXPECT_EQ(file.Bytes().size(), 44u + 65'535 + 65'535);
    EXPECT_EQ(Hex(file.Bytes().substr(4, 4)), "2a 00 02 00");
}

TEST(Info, ABinaryChunkThatEndsEarlyFails)
{
    XInfo info;
    const TempFile whole(".bin");
    {
        XFileIO out(whole.Path(), false);
        info.DoData(out);
    }
    const std::string body = whole.Bytes().substr(8);
    for (std::size_t length = 0; length < body.size(); ++length) {
        const LogCatcher log;
        const TempFile file(".bin", body.substr(0, length));
        XFileIO in(file.Path(), true);
        EXPECT_FALSE(XInfo().DoData(in)) << length;
        EXPECT_EQ(log.Text(), "Error : XFileIO::DoData : expected to read/write 1 elements got 0\n");
    }
}

class InfoInDocument : public testing::Test {
protected:
    LogCatcher m_Log;
    RegistryScope m_Registry;
    XModel m_Model;
};

TEST_F(InfoInDocument, ADocumentHoldsTheRecordOfItsFile)
{
    ASSERT_EQ(LoadText(m_Model, std::string("|VKT_004A#0000#00000000|\nINFO info\n") + kText), FileOk);
    ASSERT_NE(m_Model.GetInfo(), nullptr);
    EXPECT_EQ(m_Model.GetInfo()->GetUser(), "anna");
    EXPECT_EQ(m_Log.Text(), "");  // "none" is no side file to look for
}

TEST_F(InfoInDocument, AFileWithoutARecordGivesNoneAndASaveWritesNone)
{
    ASSERT_EQ(LoadText(m_Model, "|VKT_004A#0000#00000000|\n"), FileOk);
    EXPECT_EQ(m_Model.GetInfo(), nullptr);
    EXPECT_EQ(SaveText(m_Model), "|VKT_004A#0000#00000000|\n");
}

TEST_F(InfoInDocument, ADamagedRecordEndsTheLoadWithoutARecord)
{
    const std::string text = std::string("|VKT_004A#0000#00000000|\nINFO info\n") + With("host", "hosts");
    EXPECT_EQ(LoadText(m_Model, text), FileCorrupt);
    EXPECT_EQ(m_Model.GetInfo(), nullptr);
    EXPECT_EQ(m_Log.Text(), "Error : Expected host got hosts [.\\src\\VKT\\Info:2]\n");
}

TEST_F(InfoInDocument, OfSeveralRecordsTheLastCounts)
{
    const std::string text =
        std::string("|VKT_004A#0000#00000000|\nINFO a\n") + kText + "INFO b\n" + With("anna", "ben");
    ASSERT_EQ(LoadText(m_Model, text), FileOk);
    EXPECT_EQ(m_Model.GetInfo()->GetUser(), "ben");
}

}  // namespace
}  // namespace VKT
