#include <gmock/gmock.h>

#include <nlohmann/json.hpp>

#include "Documents.h"
#include "ToolRun.h"

namespace {

using Json = nlohmann::json;
using Info = ToolTest;
using ::testing::AnyOf;

TEST_F(Info, TellsWhatATextFileHolds)
{
    WriteFile("plate.vkt", kPlate);
    const ToolResult info = Run({"info", "plate.vkt"});
    EXPECT_EQ(info.status, 0);
    EXPECT_EQ(info.out,
              "file        plate.vkt\n"
              "size        " +
                  std::to_string(kPlate.size()) +
                  " bytes\n"
                  "form        text\n"
                  "version     4\n"
                  "record      none\n"
                  "nodes       2\n"
                  "  1 bone\n"
                  "  1 polygonMesh\n"
                  "instances   1\n"
                  "images      0\n"
                  "geometry    4 points, 2 polygons, 6 corners\n"
                  "  plateShape (polygonMesh): 4 points, 2 polygons, 6 corners\n"
                  "    index set \"points\": 6\n"
                  "    index set \"uvset1\": 6\n"
                  "    vertex set \"uvset1\": 2 x 2 floats, texCoord, by \"uvset1\"\n");
    EXPECT_EQ(info.err, "Info : loading \"plate.vkt\"\n");
}

TEST_F(Info, JsonHoldsTheSame)
{
    WriteFile("plate.vkt", kPlate);
    const ToolResult info = Run({"info", "plate.vkt", "--json"});
    ASSERT_EQ(info.status, 0);
    const Json expected = {
        {"file", "plate.vkt"},
        {"bytes", kPlate.size()},
        {"form", "text"},
        {"version", 4},
        {"record", nullptr},
        {"nodes", 2},
        {"nodesByType", {{"bone", 1}, {"polygonMesh", 1}}},
        {"instances", 1},
        {"images", 0},
        {"droppedChunks", 0},
        {"points", 4},
        {"polygons", 2},
        {"corners", 6},
        {"geometry",
         {{{"name", "plateShape"},
           {"type", "polygonMesh"},
           {"points", 4},
           {"polygons", 2},
           {"corners", 6},
           {"indexSets", {{{"name", "points"}, {"indices", 6}}, {{"name", "uvset1"}, {"indices", 6}}}},
           {"vertexSets",
            {{{"name", "uvset1"},
              {"usage", "texCoord"},
              {"elements", 2},
              {"elementSize", 2},
              {"indexSet", "uvset1"}}}}}}}};
    EXPECT_EQ(Json::parse(info.out), expected);
}

TEST_F(Info, BothFormsOfADocumentSayTheSame)
{
    WriteFile("plate.vkt", kPlate);
    ASSERT_EQ(Run({"convert", "plate.vkt", "binary.xld", "--binary"}).status, 0);
    Json text = Json::parse(Run({"info", "plate.vkt", "--json"}).out);
    Json binary = Json::parse(Run({"info", "binary.xld", "--json"}).out);
    EXPECT_EQ(binary["form"], "binary");
    EXPECT_EQ(binary["bytes"], ReadFile("binary.xld").size());
    for (const char* key : {"file", "bytes", "form"}) {
        text.erase(key);
        binary.erase(key);
    }
    EXPECT_EQ(binary, text);
}

TEST_F(Info, RecordIsShownWithTheDateThatItStandsFor)
{
    std::string text = kPlate;
    text.insert(text.find("POLYGON_MESH"),
                "INFO info\n{\n\tuser \"ann\"\n\thost \"forge\"\n\ttexture_file \"none\"\n"
                "\tformat_version VKT_004A\n\tsend_bug_reports_to vkt-bugs@vkt.invalid\n"
                "\tapplication \"a modeller\"\n\toriginal_file \"plate.max\"\n"
                "\tdate 31/6/3909\n\ttime 12.30:05\n}\n");
    WriteFile("plate.vkt", text);
    const Json record = Json::parse(Run({"info", "plate.vkt", "--json"}).out)["record"];
    EXPECT_EQ(record, Json({{"application", "a modeller"},
                            {"originalFile", "plate.max"},
                            {"textureFile", "none"},
                            {"user", "ann"},
                            {"host", "forge"},
                            {"date", "2009-05-31 12:30:05"}}));
    EXPECT_NE(Run({"info", "plate.vkt"})
                  .out.find("written by  a modeller\n"
                            "from        plate.max\n"
                            "user        ann\n"
                            "machine     forge\n"
                            "date        2009-05-31 12:30:05\n"),
              std::string::npos);
}

TEST_F(Info, DroppedChunksAreCountedAndNamed)
{
    WriteFile("plate.vkt", PlateWithUnknownChunk());
    const ToolResult info = Run({"info", "plate.vkt"});
    EXPECT_EQ(info.status, 0);
    EXPECT_NE(info.out.find("dropped     1 chunk that could not be read\n"), std::string::npos);
    EXPECT_EQ(info.err,
              "Info : loading \"plate.vkt\"\n"
              "Warning : Dumping Unknown Chunk: header: FLAVOUR name: sweet\n");
}

TEST_F(Info, FailedLoadsAnswerTheirResult)
{
    WriteFile("new.vkt", "|VKT_005A#0000#00000000|\n");
    WriteFile("cut.vkt", kPlate.substr(0, kPlate.find("deformer_queue")));
    WriteFile("other.vkt", "Hello, world. This is no scene.\n");
    WriteFile("empty.vkt", "");
    WriteFile("plate.txt", kPlate);
    const std::vector<std::pair<const char*, int>> files = {{"new.vkt", 2},   {"missing.vkt", 3},
                                                            {"cut.vkt", 4},   {"other.vkt", 5},
                                                            {"empty.vkt", 5}, {"plate.txt", 5}};
    for (const auto& [name, status] : files) {
        const ToolResult info = Run({"info", name, "--json"});
        EXPECT_EQ(info.status, status) << name;
        EXPECT_EQ(info.out, "") << name;
        EXPECT_NE(info.err.find(std::string("vkt: \"") + name + "\" "), std::string::npos) << info.err;
    }
}

TEST_F(Info, EveryPrefixOfAFileIsAnswered)
{
    WriteFile("plate.vkt", kPlate);
    ASSERT_EQ(Run({"convert", "plate.vkt", "binary.vkt", "--binary"}).status, 0);
    const std::string binary = ReadFile("binary.vkt");
    for (const std::string& bytes : {kPlate, binary})
        for (std::size_t length = 0; length < bytes.size(); length += 37) {
            WriteFile("cut.vkt", bytes.substr(0, length));
            EXPECT_THAT(Run({"info", "cut.vkt"}).status, AnyOf(0, 2, 3, 4, 5)) << length << " bytes";
        }
}

TEST_F(Info, NamesDoNotSteerTheTerminal)
{
    std::string text = kPlate;
    const std::string name = "\x1b[2Jplate\x07\xc2\x9b\xff\xe2\x80\xae\xc3\xa4";
    text.replace(text.find("plateShape"), 10, name);
    text.insert(text.find("BONE"), "FLAVOUR \x1b]0;sweet\n{\n}\n");
    WriteFile("plate.vkt", text);
    const ToolResult info = Run({"info", "plate.vkt"});
    EXPECT_NE(info.out.find("  \\x1b[2Jplate\\x07\\xc2\\x9b\\xff\\xe2\\x80\\xae\xc3\xa4 (polygonMesh)"),
              std::string::npos)
        << info.out;
    EXPECT_NE(info.err.find("name: \\x1b]0;sweet\n"), std::string::npos) << info.err;
    const ToolResult json = Run({"info", "plate.vkt", "--json"});
    EXPECT_EQ(
        json.out.find_first_not_of("\n !\"#$%&'()*+,-./0123456789:;<=>?@ABCDEFGHIJKLMNOPQRSTUVWXYZ[\\]^_`"
                                   "abcdefghijklmnopqrstuvwxyz{|}~"),
        std::string::npos);
    EXPECT_EQ(Json::parse(json.out)["geometry"][0]["name"],
              "\x1b[2Jplate\x07\xc2\x9b\xef\xbf\xbd\xe2\x80\xae\xc3\xa4");  // \xff is no UTF-8
}

TEST_F(Info, ProgressIsShownToATerminalAlone)
{
    WriteFile("plate.vkt", kPlate);
    EXPECT_EQ(Run({"info", "plate.vkt"}).err, "Info : loading \"plate.vkt\"\n");
    EXPECT_EQ(Run({"info", "plate.vkt"}, {.terminal = true}).err,
              "reading plate.vkt\r\x1b[KInfo : loading \"plate.vkt\"\r\n");
}

TEST_F(Info, ResultThatCannotBeWrittenIsAFailure)
{
    WriteFile("plate.vkt", kPlate);
    const std::string command = std::string(VKT_TOOL_PATH) + " info " + PathOf("plate.vkt") + " > /dev/full";
    EXPECT_EQ(RunProgram("/bin/sh", {"-c", command}).status, 1);
}

}  // namespace
