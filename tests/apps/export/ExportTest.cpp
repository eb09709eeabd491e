#include <fstream>
#include <nlohmann/json.hpp>

#include "apps/support/Documents.h"
#include "apps/support/ToolRun.h"

namespace {

using Json = nlohmann::json;

class Export : public ToolTest {
protected:
    // A plate shown by two nodes, a stretched node with a turned one below it, a mirrored
    // node with one below it, and a camera.
    const std::string kScene = VKT_TEST_DATA "/losses.gltf";

    Json Describe(const std::string& name) { return Json::parse(Run({"info", name, "--json"}).out); }
};

TEST_F(Export, SceneBecomesADocumentAndAReport)
{
    const ToolResult result = Run({"export", kScene, "out.vkt"});
    EXPECT_EQ(result.status, 0) << result.err;
    EXPECT_EQ(result.out,
              "out.vkt: 8 nodes (0 joints), 4 shapes, 16 points, 8 polygons\n"
              "nodes without a shape: 1\n"
              "  \"twin\": shares the object of \"plate\", which has the shape\n"
              "transforms that the format cannot carry: 2\n"
              "  \"turned\": is sheared\n"
              "  \"below mirror\": a node above it is mirrored\n"
              "warnings of the reader: 1\n"
              "  node \"eye\": its camera is left out\n");
    EXPECT_EQ(ListFiles(), "out.vkt ");
    const Json document = Describe("out.vkt");
    EXPECT_EQ(document["form"], "text");
    EXPECT_EQ(document["record"], nullptr);
    EXPECT_EQ(document["nodesByType"], Json({{"bone", 8}, {"polygonMesh", 4}}));
    EXPECT_EQ(document["geometry"][2]["name"], "plateShape");
    EXPECT_EQ(document["geometry"][2]["points"], 4);
    EXPECT_EQ(document["geometry"][2]["polygons"], 2);
}

TEST_F(Export, OutMayEndInXld)
{
    EXPECT_EQ(Run({"export", kScene, "out.xld"}).status, 0);
    EXPECT_EQ(Describe("out.xld")["nodes"], 12);
}

TEST_F(Export, SelectedNodesAloneAreExported)
{
    const ToolResult result =
        Run({"export", kScene, "out.vkt", "--select", "turned", "--select", "twin", "--select", "plate"});
    EXPECT_EQ(result.status, 0) << result.err;
    EXPECT_EQ(result.out,
              "out.vkt: 3 nodes (0 joints), 2 shapes, 8 points, 4 polygons\n"
              "nodes without a shape: 1\n"
              "  \"twin\": shares the object of \"plate\", which has the shape\n"
              "transforms that the format cannot carry: 1\n"
              "  \"turned\": is sheared\n"
              "warnings of the reader: 1\n"
              "  node \"eye\": its camera is left out\n");
}

// Without the mirrored node above it, the transform of the lower one can be carried.
TEST_F(Export, NodesThatAreNotExportedBendNoTransforms)
{
    const ToolResult result = Run({"export", kScene, "out.vkt", "--select", "below mirror"});
    EXPECT_EQ(result.out.find("cannot carry"), std::string::npos) << result.out;
}

TEST_F(Export, PropertiesOfASceneBecomeAttributes)
{
    Json scene = Json::parse(std::ifstream(kScene));
    scene["nodes"][1]["extras"] = {{"count", 12}, {"ratio", 0.5}, {"solid", true}, {"note", "red wine"}};
    WriteFile("scene.gltf", scene.dump());
    ASSERT_EQ(Run({"export", "scene.gltf", "out.vkt", "--select", "twin"}).status, 0);
    EXPECT_NE(ReadFile("out.vkt").find("\tEXTRA_ATTRIBUTES\n"
                                       "\t{\n"
                                       "\t\twire_colour colour 0.501961 0.501961 0.501961\n"
                                       "\t\tcount int 12\n"
                                       "\t\tnote string \"red wine\"\n"
                                       "\t\tratio float 0.5\n"
                                       "\t\tsolid bool 1\n"
                                       "\t}\n"),
              std::string::npos)
        << ReadFile("out.vkt");
}

TEST_F(Export, NameThatNoNodeHasIsAFailure)
{
    WriteFile("out.vkt", "old");
    const ToolResult result = Run({"export", kScene, "out.vkt", "--select", "plate", "--select", "plat"});
    EXPECT_EQ(result.status, 1);
    EXPECT_EQ(result.err, "vkt: the scene has no node \"plat\"\n");
    EXPECT_EQ(ReadFile("out.vkt"), "old");
}

// The plug-in has an error for each node by rule, which says nothing of the scene.
TEST_F(Export, SuccessLooksLikeSuccessUnlessVerbose)
{
    const auto count = [](const std::string& text, const std::string& part) {
        int found = 0;
        for (std::size_t at = text.find(part); at != std::string::npos; at = text.find(part, at + 1))
            ++found;
        return found;
    };
    const ToolResult plain = Run({"export", kScene, "out.vkt"});
    EXPECT_EQ(plain.status, 0);
    EXPECT_EQ(plain.err, "");
    const ToolResult verbose = Run({"export", kScene, "out.vkt", "--verbose"});
    EXPECT_EQ(verbose.out, plain.out);
    EXPECT_EQ(verbose.err.find(".vkt-run-"), std::string::npos) << verbose.err;
    EXPECT_EQ(count(verbose.err, "Error : Cannot add "), 7) << verbose.err;
}

TEST_F(Export, LongListsAreCutUnlessVerbose)
{
    Json scene = Json::parse(std::ifstream(kScene));
    for (int i = 0; i < 20; ++i) {
        scene["scenes"][0]["nodes"].push_back(scene["nodes"].size());
        scene["nodes"].push_back({{"name", "copy" + std::to_string(i)}, {"mesh", 0}});
    }
    WriteFile("copies.gltf", scene.dump());
    const ToolResult cut = Run({"export", "copies.gltf", "out.vkt"});
    EXPECT_NE(cut.out.find("nodes without a shape: 21\n"), std::string::npos) << cut.out;
    EXPECT_NE(cut.out.find("  ... and 11 more (--verbose lists them)\n"), std::string::npos);
    EXPECT_EQ(cut.out.find("\"copy19\""), std::string::npos);
    const ToolResult all = Run({"export", "copies.gltf", "out.vkt", "--verbose"});
    EXPECT_NE(all.out.find("  \"copy19\": shares the object of"), std::string::npos) << all.out;
}

// Which kinds the plug-in exports is its own business: the report must agree with the file.
TEST_F(Export, KindsThatTheDocumentLacksAreReported)
{
    Json scene = Json::parse(std::ifstream(kScene));
    scene["materials"] = {{{"name", "red"}, {"pbrMetallicRoughness", {{"baseColorFactor", {1, 0, 0, 1}}}}}};
    scene["meshes"][0]["primitives"][0]["material"] = 0;
    // The plate moves along its own first two points within a second.
    scene["accessors"].push_back(
        {{"bufferView", 2}, {"componentType", 5126}, {"count", 2}, {"type", "SCALAR"}});
    scene["accessors"].back().update({{"min", {0}}, {"max", {1}}});
    scene["accessors"].push_back(
        {{"bufferView", 0}, {"componentType", 5126}, {"count", 2}, {"type", "VEC3"}});
    scene["bufferViews"].push_back({{"buffer", 0}, {"byteOffset", 8}, {"byteLength", 8}});
    scene["animations"] = {
        {{"name", "slide"},
         {"channels", {{{"sampler", 0}, {"target", {{"node", 0}, {"path", "translation"}}}}}},
         {"samplers", {{{"input", 2}, {"output", 3}}}}}};
    WriteFile("scene.gltf", scene.dump());
    const ToolResult result = Run({"export", "scene.gltf", "out.vkt"});
    ASSERT_EQ(result.status, 0) << result.err;
    const std::string text = ReadFile("out.vkt");
    EXPECT_EQ(result.out.find("  1 material\n") == std::string::npos,
              text.find("\nBLINN ") != std::string::npos || text.find("\nPHONG ") != std::string::npos ||
                  text.find("\nLAMBERT ") != std::string::npos)
        << result.out;
    EXPECT_EQ(result.out.find("  1 animation\n") == std::string::npos,
              text.find("\nANIMATION_TAKE ") != std::string::npos)
        << result.out;
}

TEST_F(Export, ScenesThatCannotBeReadKeepTheOldFile)
{
    WriteFile("out.vkt", "old");
    WriteFile("broken.gltf", "{\"asset\":");
    WriteFile("broken.fbx", "Kaydara");
    WriteFile("scene.unknown", "");
    for (const std::string scene : {"missing.gltf", "broken.gltf", "broken.fbx", "scene.unknown"}) {
        const ToolResult result = Run({"export", scene, "out.vkt"});
        EXPECT_EQ(result.status, 1) << scene;
        EXPECT_EQ(result.out, "") << scene;
        EXPECT_EQ(result.err.rfind("vkt: ", 0), 0u) << result.err;
        EXPECT_NE(result.err.find(scene), std::string::npos) << result.err;
    }
    EXPECT_EQ(ReadFile("out.vkt"), "old");
    EXPECT_EQ(ListFiles(), "broken.fbx broken.gltf out.vkt scene.unknown ");
}

// The exporter reports success whatever its save came to. The size limit stands for a
// disk that runs full.
TEST_F(Export, SaveThatFailedInThePluginIsNoticed)
{
    WriteFile("out.vkt", "old");
    const std::string command = "cd '" + PathOf("") +
                                "' && trap '' XFSZ && ulimit -f 1 && exec " VKT_TOOL_PATH " export '" +
                                kScene + "' out.vkt";
    const ToolResult result = RunProgram("/bin/bash", {"-c", command});
    EXPECT_EQ(result.status, 4) << result.err;
    EXPECT_EQ(result.err, "vkt: \"out.vkt\" could not be written to its end: file too large\n");
    EXPECT_EQ(ReadFile("out.vkt"), "old");
    EXPECT_EQ(ListFiles(), "out.vkt ");
}

TEST_F(Export, FolderThatIsNotThereIsAFailedSave)
{
    EXPECT_EQ(Run({"export", kScene, "nowhere/out.vkt"}).status, 3);
}

TEST_F(Export, FolderThatThePluginCannotNameIsRefused)
{
    std::filesystem::create_directory(PathOf("back\\slash"));
    const ToolResult result = Run({"export", kScene, "back\\slash/out.vkt"});
    EXPECT_EQ(result.status, 1);
    EXPECT_NE(result.err.find("vkt: the plug-in cannot write to a folder with \\ in its name"),
              std::string::npos);
    EXPECT_TRUE(std::filesystem::is_empty(PathOf("back\\slash")));
}

TEST_F(Export, PluginCanBeNamed)
{
    std::filesystem::copy_file(VKT_PLUGIN_PATH, PathOf("other-name.so"));
    EXPECT_EQ(Run({"export", kScene, "out.vkt", "--plugin", "other-name.so"}).status, 0);
    WriteFile("no-module.so", "nothing to load");
    for (const std::string plugin : {"missing.so", "no-module.so", VKT_TOOL_PATH}) {
        const ToolResult result = Run({"export", kScene, "out.vkt", "--plugin", plugin});
        EXPECT_EQ(result.status, 1) << plugin;
        EXPECT_EQ(result.err.rfind("vkt: the plug-in cannot be loaded: ", 0), 0u) << result.err;
    }
}

TEST_F(Export, RunLeavesNoConfigurationBehind)
{
    std::filesystem::create_directory(PathOf("temporary"));
    const ToolResult result = Run({"export", kScene, "out.vkt"}, {.temporaryFiles = PathOf("temporary")});
    EXPECT_EQ(result.status, 0) << result.err;
    EXPECT_TRUE(std::filesystem::is_empty(PathOf("temporary")));
    EXPECT_EQ(ListFiles(), "out.vkt temporary ");
}

// A scene made by others: one node with a mesh, a camera and a light.
TEST_F(Export, ForeignSceneIsExported)
{
    const std::string duck = "/usr/share/assimp/models/Collada/duck.dae";
    if (!std::filesystem::exists(duck))
        GTEST_SKIP() << "needs the package assimp-testmodels";
    const ToolResult result = Run({"export", duck, "duck.vkt"});
    EXPECT_EQ(result.status, 0) << result.err;
    EXPECT_EQ(result.out.rfind("duck.vkt: 4 nodes (0 joints), 1 shape, 2108 points, 4212 polygons\n", 0), 0u)
        << result.out;
    // A load computes matrices anew, from numbers of six digits: from then on they stay.
    ASSERT_EQ(Run({"convert", "duck.vkt", "first.vkt", "--strict"}).status, 0);
    ASSERT_EQ(Run({"convert", "first.vkt", "binary.vkt", "--binary", "--strict"}).status, 0);
    ASSERT_EQ(Run({"convert", "binary.vkt", "second.vkt", "--ascii", "--strict"}).status, 0);
    EXPECT_TRUE(ReadFile("second.vkt") == ReadFile("first.vkt"));
}

}  // namespace
