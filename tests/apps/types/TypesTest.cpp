#include <algorithm>
#include <map>
#include <nlohmann/json.hpp>
#include <sstream>

#include "apps/support/ToolRun.h"

namespace {

using Json = nlohmann::json;

class Types : public ToolTest {
protected:
    void SetUp() override
    {
        ToolTest::SetUp();
        m_All = Json::parse(Run({"types", "--json"}).out);
    }
    const Json& All() const { return m_All; }
    const Json& Find(const std::string& name) const
    {
        const Json& types = m_All["types"];
        const auto found =
            std::find_if(types.begin(), types.end(), [&](const Json& type) { return type["name"] == name; });
        EXPECT_NE(found, types.end()) << name;
        return found == types.end() ? m_All : *found;
    }
    // What the text output tells of a class.
    std::string TextOf(const std::string& heading) const
    {
        const std::string out = "\n" + Run({"types"}).out;
        std::string text;
        const std::size_t at = out.find("\n" + heading + "\n");
        EXPECT_NE(at, std::string::npos) << heading;
        std::istringstream lines(out.substr(std::min(at + heading.size() + 2, out.size())));
        for (std::string line; std::getline(lines, line) && line.starts_with("  ");)
            text += line + "\n";
        return text;
    }

private:
    Json m_All;
};

TEST_F(Types, TellsOfAllClasses)
{
    const ToolResult run = Run({"types"});
    EXPECT_EQ(run.status, 0);
    EXPECT_EQ(run.err, "");
    EXPECT_TRUE(run.out.ends_with("\n109 types, 90 of them with a chunk; 383 properties\n"));
    EXPECT_EQ(All()["numTypes"], 109);
    EXPECT_EQ(All()["numConcrete"], 90);
    EXPECT_EQ(All()["numProperties"], 383);
    EXPECT_EQ(All()["types"].size(), 109u);
    EXPECT_EQ(All()["types"].front()["name"], "base");
    EXPECT_EQ(All()["types"].back()["name"], "wrapDeformer");
}

TEST_F(Types, EachBaseIsAClassAndChainsEndAtTheRoot)
{
    std::map<std::string, Json> byName;
    for (const Json& type : All()["types"])
        byName[type["name"]] = type;
    ASSERT_EQ(byName.size(), 109u);
    for (const auto& [name, type] : byName) {
        std::string at = name;
        for (int steps = 0; at != "base"; ++steps) {
            ASSERT_LT(steps, 10) << name;
            ASSERT_TRUE(byName[at]["base"].is_string()) << at;
            at = byName[at]["base"];
            ASSERT_TRUE(byName.contains(at)) << name;
        }
    }
    EXPECT_TRUE(byName["base"]["base"].is_null());
    EXPECT_TRUE(byName["base"]["chunk"].is_null());
}

TEST_F(Types, ClassOfOneTableForBothForms)
{
    EXPECT_EQ(TextOf("nonLinearTwist (127), chunk NONLINEAR_TWIST, base nonLinear"),
              "  text and binary\n"
              "    low_bound    f32\n"
              "    high_bound   f32\n"
              "    start_angle  f32\n"
              "    end_angle    f32\n"
              "  properties\n"
              "    4   low_bound    float, animatable\n"
              "    5   high_bound   float, animatable\n"
              "    6   start_angle  float, animatable\n"
              "    7   end_angle    float, animatable\n");
}

TEST_F(Types, ClassOfTwoTablesWithGatesAndNodes)
{
    EXPECT_EQ(TextOf("particleShape (40), chunk PARTICLE, base geometry"),
              "  code of its own for binary; rows may not be all\n"
              "  text\n"
              "    fields           nodeRows\n"
              "    depth_sort       bool        from version 4\n"
              "    lifespan_type    word        from version 4\n"
              "        0 LIVE_FOREVER\n"
              "        1 CONSTANT\n"
              "        2 RANDOM\n"
              "    lifespan         f32         from version 4\n"
              "    lifespan_random  f32         from version 4\n"
              "    particle_type    word        from version 4\n"
              "        0 POINT\n"
              "        1 POINT_SPRITES\n"
              "        2 STREAK\n"
              "        3 SPHERE\n"
              "        4 MULTI_POINT\n"
              "        5 MULTI_STREAK\n"
              "        6 SPRITES\n"
              "        7 NUMERIC\n"
              "    material         node        from version 4\n"
              "  binary\n"
              "    fields           nodeRows\n"
              "    depth_sort       bool        from version 4\n"
              "    lifespan_type    u32         from version 4\n"
              "    lifespan         f32         from version 4\n"
              "    lifespan_random  f32         from version 4\n"
              "    particle_type    u32         from version 4\n"
              "    material         node        from version 5\n"
              "  properties\n"
              "    4   emitters         nodeArray of emitter, list\n"
              "    5   fields           nodeArray of field, list\n"
              "    6   depth_sort       bool\n"
              "    7   lifespan_type    integer\n"
              "    8   lifespan         float\n"
              "    9   lifespan_random  float\n"
              "    10  particle_type    integer\n");
}

TEST_F(Types, ClassWithoutRowsSaysSo)
{
    EXPECT_EQ(TextOf("geometry (26), abstract, base shape"),
              "  code of its own for text and binary; rows may not be all\n"
              "  properties\n"
              "    1   points               vectorArray, animatable, list\n"
              "    2   deformer_queue       nodeArray of deformer, list\n"
              "    3   intermediate_object  bool\n");
    EXPECT_EQ(TextOf("locator (49), chunk LOCATOR, base shape"), "");
}

TEST_F(Types, JsonOfAClassIsTheDocumentedOne)
{
    const auto row = [](Json name, const std::string& kind, Json written = nullptr) {
        const bool isInput = kind == "input" || kind == "oldInput" || kind == "droppedInput";
        return Json{{"name", name},      {"kind", kind},    {"bytes", isInput ? "22 + n" : "4"},
                    {"words", nullptr},  {"gate", nullptr}, {"version", nullptr},
                    {"written", written}};
    };
    const auto property = [](int number, const char* name, const char* type, bool animatable, Json nodeType) {
        return Json{{"number", number},  {"name", name},  {"type", type},        {"animatable", animatable},
                    {"readOnly", false}, {"list", false}, {"nodeType", nodeType}};
    };
    const Json expected = {
        {"name", "lambert"},
        {"id", 10},
        {"chunk", "LAMBERT"},
        {"base", "material"},
        {"textCode", false},
        {"binaryCode", false},
        {"text",
         {row("ambient_colour", "input", "\tambient_colour 0.2 0.2 0.2 1 input 0\n"),
          row("incandescence", "input", "\tincandescence 0 0 0 1 input 0\n"),
          row("transparency", "input", "\ttransparency 0 0 0 1 input 0\n"),
          row("bump_map", "inputNode", "\tbump_map 0\n"), row("env_map", "inputNode", "\tenv_map 0\n")}},
        {"binary",
         {row("ambient_colour", "input"), row("incandescence", "input"), row("transparency", "input"),
          row("bump_map", "inputNode"), row("env_map", "inputNode")}},
        {"oldText",
         {row("ambient_color", "oldInput"), row("color", "oldInput"), row("incandescence", "oldInput"),
          row("transparency", "oldInput"), row("bump_map", "inputNode"), row("env_map", "inputNode"),
          row("hw_shader", "node")}},
        {"oldBinary",
         {row("ambient_color", "oldInput"), row("color", "oldInput"), row("specular_color", "droppedInput"),
          row("incandescence", "input"), row("transparency", "input"), row(nullptr, "dropped"),
          row("bump_map", "inputNode"), row("env_map", "inputNode"), row("hw_shader", "node")}},
        {"properties",
         {property(3, "ambient", "colour", true, nullptr), property(4, "emission", "colour", true, nullptr),
          property(5, "transparency", "colour", true, nullptr),
          property(6, "bump_map", "node", false, "bumpMap"),
          property(7, "env_map", "node", false, "envMap")}},
        {"numProperties", 7},
    };
    EXPECT_EQ(Find("lambert"), expected);
}

TEST_F(Types, JsonTellsWordsAndGates)
{
    const Json field = Find("field");
    EXPECT_EQ(field["text"][5], Json({{"name", "volume_shape"},
                                      {"kind", "word"},
                                      {"bytes", "4"},
                                      {"words", {"NONE", "CUBE", "CYLINDER", "CONE", "SPHERE", "TORUS"}},
                                      {"gate", "since"},
                                      {"version", 4},
                                      {"written", "\n\tvolume_shape NONE\n"}}));
    EXPECT_EQ(Find("turbulence")["text"][1]["gate"], "below");
    EXPECT_EQ(Find("joint")["text"][0]["gate"], "readSince");
    EXPECT_EQ(Find("baseLattice")["text"][0]["gate"], "sinceBoth");
}

TEST_F(Types, BinaryFieldsGoByTheKeysOfTheText)
{
    std::vector<std::string> names;
    for (const Json& row : Find("bone")["binary"])
        names.push_back(row["name"]);
    names.resize(6);
    EXPECT_EQ(names, (std::vector<std::string>{"rotation", "translate", "scale", "visible", "scale_pivot",
                                               "rotate_pivot"}));
    EXPECT_TRUE(Find("emitter")["binary"][13]["name"].is_null());  // no key, no known meaning
    EXPECT_EQ(Find("emitter")["binary"][13]["kind"], "f32");
}

TEST_F(Types, ClassesWithoutATypeOfTheirOwnCountAsCodeOfThoseBelow)
{
    for (const char* name : {"cluster", "jointCluster"}) {
        EXPECT_EQ(Find(name)["textCode"], true) << name;
        EXPECT_EQ(Find(name)["binaryCode"], true) << name;
    }
    EXPECT_EQ(Find("phong")["textCode"], false);
    EXPECT_EQ(Find("cubeMap")["textCode"], true);
    EXPECT_EQ(Find("cubeMap")["binaryCode"], false);
}

}  // namespace
