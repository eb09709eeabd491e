#include <gmock/gmock.h>

#include <nlohmann/json.hpp>

#include "VKT/samples/AnimationSample.h"
#include "VKT/samples/DeformerSample.h"
#include "VKT/samples/DynamicsSample.h"
#include "VKT/samples/GeometrySample.h"
#include "apps/support/Documents.h"
#include "apps/support/ToolRun.h"

namespace {

using Json = nlohmann::json;
using Info = ToolTest;
using ::testing::AnyOf;
using ::testing::HasSubstr;

// The object of that name in a list of a JSON output.
Json Find(const Json& list, const std::string& name)
{
    for (const Json& object : list)
        if (object["name"] == name)
            return object;
    return {};
}

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
                  "    vertex set \"uvset1\": 2 x 2 floats, texCoord, by \"uvset1\"\n"
                  "deformers   0\n"
                  "takes       0\n"
                  "cycles      0\n");
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
              {"indexSet", "uvset1"}}}}}}},
        {"deformers", Json::array()},
        {"takes", Json::array()},
        {"cycles", Json::array()}};
    EXPECT_EQ(Json::parse(info.out), expected);
}

TEST_F(Info, EveryKindOfGeometryHasItsSizes)
{
    WriteFile("shapes.vkt", VKT::Test::kGeometrySample);
    const Json geometry = Json::parse(Run({"info", "shapes.vkt", "--json"}).out)["geometry"];
    EXPECT_EQ(Find(geometry, "edge"), Json({{"name", "edge"},
                                            {"type", "nurbsCurve"},
                                            {"points", 1},
                                            {"polygons", 0},
                                            {"corners", 0},
                                            {"degree", 34},
                                            {"knots", 3},
                                            {"indexSets", Json::array()},
                                            {"vertexSets", Json::array()}}));
    EXPECT_EQ(Find(geometry, "face")["normals"], 2);
    EXPECT_EQ(Find(geometry, "face")["colourSets"], 2);
    EXPECT_EQ(Find(geometry, "face")["vertexSets"][1], Json({{"name", "map2"},
                                                             {"usage", "texCoord"},
                                                             {"elements", 1},
                                                             {"elementSize", 2},
                                                             {"indexSet", nullptr}}));
    const std::string text = Run({"info", "shapes.vkt"}).out;
    for (const char* line :
         {"  bow (hermiteCurve): 1 point, 0 polygons, 0 corners\n",
          "  cloth (bezierPatch): 1 point, 0 polygons, 0 corners, controlPointsU 0, controlPointsV 0, "
          "trimRegions 2\n",
          "  face (mesh): 3 points, 2 polygons, 7 corners, normals 2, colourSets 2\n"
          "    vertex set \"map1\": 3 x 2 floats, texCoord\n",
          "  hull (nurbsSurface): 1 point, 0 polygons, 0 corners, controlPointsU 500, controlPointsV 600, "
          "trimRegions 0, degreeU 3, degreeV 4, knotsU 2, knotsV 3\n"})
        EXPECT_THAT(text, HasSubstr(line));
}

TEST_F(Info, ParticlesHaveTheirFieldsAndEmitters)
{
    WriteFile("particles.vkt", VKT::Test::kDynamicsSample);
    EXPECT_THAT(
        Run({"info", "particles.vkt"}).out,
        HasSubstr("  trail (particleShape): 2 points, 0 polygons, 0 corners, fields 2, emitters 1\n"));
}

TEST_F(Info, DeformersHaveTheirSizes)
{
    WriteFile("deformers.vkt", VKT::Test::kDeformerSample);
    const Json info = Json::parse(Run({"info", "deformers.vkt", "--json"}).out);
    EXPECT_EQ(info["deformers"].size(), info["nodes"].get<int>() - 2);  // all but the lattices
    EXPECT_EQ(Find(info["deformers"], "joint_cluster"), Json({{"name", "joint_cluster"},
                                                              {"type", "jointCluster"},
                                                              {"affected", 1},
                                                              {"points", 3},
                                                              {"weights", 3}}));
    EXPECT_EQ(Find(info["deformers"], "blend"),
              Json({{"name", "blend"},
                    {"type", "blendShape"},
                    {"affected", 2},
                    {"targets", {{{"name", "smile"}, {"points", 2}}, {{"name", "frown"}, {"points", 1}}}}}));
    const std::string text = Run({"info", "deformers.vkt"}).out;
    for (const char* line :
         {"  grid (lattice): 2 points, 0 polygons, 0 corners, divisionsS 20, divisionsT 21, "
          "divisionsU 22\n",
          "  bend (nonLinearBend): affected 2\n",
          "  blend (blendShape): affected 2, targets 2\n"
          "    target \"smile\": 2 points\n"
          "    target \"frown\": 1 point\n",
          "  cluster (cluster): affected 2, points 2, weights 2\n",
          "  jiggle (jiggleDeformer): affected 1, points 3\n",
          "  skin (skinCluster): affected 2, influences 3, points 3, weights 5\n",
          "  wire (wireDeformer): affected 1, wires 2\n"})
        EXPECT_THAT(text, HasSubstr(line));
}

TEST_F(Info, TakesAndCyclesHaveTheirSizes)
{
    WriteFile("run.vkt", VKT::Test::kAnimationSample);
    const Json info = Json::parse(Run({"info", "run.vkt", "--json"}).out);
    EXPECT_EQ(info["takes"], Json({{{"name", "walk"},
                                    {"start", 1.25},
                                    {"end", 3.5},
                                    {"framesPerSecond", 25},
                                    {"frames", 4},
                                    {"nodes", 2},
                                    {"attributes", 4},
                                    {"poses", 2},
                                    {"tables", 2},
                                    {"samples", 8},
                                    {"curves", 2},
                                    {"keys", 3}}}));
    EXPECT_EQ(info["cycles"], Json({{{"name", "stride"},
                                     {"start", 6},
                                     {"end", 7},
                                     {"framesPerSecond", 24},
                                     {"frames", 2},
                                     {"bones", 2},
                                     {"curveLists", 1},
                                     {"curves", 2},
                                     {"keys", 2}}}));
    EXPECT_THAT(Run({"info", "run.vkt"}).out,
                HasSubstr("takes       1\n"
                          "  walk: 1.25 to 3.5 at 25 per second, frames 4, nodes 2, attributes 4, poses 2, "
                          "tables 2, samples 8, curves 2, keys 3\n"
                          "cycles      1\n"
                          "  stride: 6 to 7 at 24 per second, frames 2, bones 2, curveLists 1, curves 2, "
                          "keys 2\n"));
}

TEST_F(Info, BothFormsOfADocumentSayTheSame)
{
    for (const std::string& document :
         {kPlate, std::string(VKT::Test::kAnimationSample), std::string(VKT::Test::kDeformerSample)}) {
        WriteFile("text.vkt", document);
        ASSERT_EQ(Run({"convert", "text.vkt", "binary.xld", "--binary"}).status, 0);
        Json text = Json::parse(Run({"info", "text.vkt", "--json"}).out);
        Json binary = Json::parse(Run({"info", "binary.xld", "--json"}).out);
        EXPECT_EQ(binary["form"], "binary");
        EXPECT_EQ(binary["bytes"], ReadFile("binary.xld").size());
        for (const char* key : {"file", "bytes", "form"}) {
            text.erase(key);
            binary.erase(key);
        }
        EXPECT_EQ(binary, text);
    }
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
