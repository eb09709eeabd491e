#include "layers/Layers.h"

#include <gmock/gmock.h>

using namespace layers;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

// The tables. A new folder gets a row; a folder of the project whose layers are to be held gets
// a table and a test of its own below.

const std::vector<Room> kSceneRooms = {
    {"src/VKT/base", {}},
    {"src/VKT/stream", {"src/VKT/base"}},
    {"src/VKT/node", {"src/VKT/stream"}},
    {"src/VKT/document", {"src/VKT/node"}},
    {"src/VKT/hierarchy", {"src/VKT/document"}},
    {"src/VKT/shading", {"src/VKT/hierarchy"}},
    {"src/VKT/geometry", {"src/VKT/hierarchy"}},
    {"src/VKT/animation", {"src/VKT/hierarchy"}},
    {"src/VKT/rigging", {"src/VKT/hierarchy"}},
    {"src/VKT/lights", {"src/VKT/shading", "src/VKT/geometry", "src/VKT/animation", "src/VKT/rigging"}},
    {"src/VKT/deformers", {"src/VKT/shading", "src/VKT/geometry", "src/VKT/animation", "src/VKT/rigging"}},
    {"src/VKT/dynamics", {"src/VKT/shading", "src/VKT/geometry", "src/VKT/animation", "src/VKT/rigging"}},
    {"src/VKT/registry", {"src/VKT/lights", "src/VKT/deformers", "src/VKT/dynamics"}},
    {"src/utils", {"src/VKT/registry"}},
};

const std::vector<Exception> kSceneExceptions = {
    {"src/VKT/node", "src/VKT/document/Model.h", "a node asks its document for others"},
    {"src/VKT/node", "src/VKT/document/InheritedNode.h", "names the chunk of what users define"},
    {"src/VKT/node", "src/VKT/document/NewNode.h", "names the chunk of what users define"},
    {"src/VKT/document", "src/VKT/hierarchy/Bone.h", "owns the instances and knows who lists a bone"},
    {"src/VKT/document", "src/VKT/hierarchy/BoneWalk.h", "a load ends with the matrices of all bones"},
    {"src/VKT/document", "src/VKT/hierarchy/Shape.h", "owns the instances, which tie bones to shapes"},
    {"src/VKT/document", "src/VKT/animation/AnimCycle.h", "cycles are the document's own"},
    {"src/VKT/document", "src/VKT/shading/ShadingNode.h", "counts what feeds the inputs of shaders"},
};

// The plug-in, over the scene library. The importer and the script interface get their rows when
// they come: the importer over src/max and the library, the script over src/exporter/driver.
const std::vector<Room> kPluginRooms = {
    {"src/max", {"src/VKT/base"}},
    {"src/exporter/math", {"src/VKT/base"}},
    {"src/exporter/options", {"src/max"}},
    {"src/exporter/walk", {"src/exporter/math", "src/exporter/options", "src/utils"}},
    {"src/exporter/deformers", {"src/exporter/walk"}},
    {"src/exporter/geometry", {"src/exporter/deformers"}},
    {"src/exporter/driver", {"src/exporter/geometry"}},
    {"src/plugin", {"src/exporter/driver"}},
};

const std::vector<Exception> kPluginExceptions = {
    {"src/exporter/walk", "src/exporter/geometry/MeshExport.h",
     "sends each object to where its shape is built"},
};

// The headless host. Its classes of controllers, objects, modifiers and materials don't see
// each other.
const std::vector<Room> kHostRooms = {
    {"sdk/include", {}},
    {"host/core", {"sdk/include"}},
    {"host/controllers", {"host/core"}},
    {"host/objects", {"host/core"}},
    {"host/modifiers", {"host/core"}},
    {"host/materials", {"host/core"}},
    {"host/app", {"host/controllers", "host/objects", "host/modifiers", "host/materials"}},
    {"host/build", {"host/app"}},
    {"host/io", {"host/build"}},
};

// Where headers of the host may be seen, and those of the operating system.
const std::vector<std::string> kForeignPlaces = {"src/max", "src/plugin", "src/VKT/stream/Platform.cpp"};

Files SceneFiles()
{
    return ReadFiles(VKT_SOURCE_ROOT, {"src/VKT", "src/utils"});
}

TEST(Layers, RoomsOfTheSceneLibraryKnowThoseBelowAlone)
{
    EXPECT_THAT(Check(SceneFiles(), kSceneRooms, kSceneExceptions), IsEmpty());
}

// A gate that goes by what is current is another gate with each new version.
TEST(Layers, CurrentVersionIsTheBusinessOfStreamsAndTheDocumentAlone)
{
    for (const auto& [file, text] : SceneFiles())
        if (!file.starts_with("src/VKT/stream/") && !file.starts_with("src/VKT/document/")) {
            EXPECT_EQ(text.find("kCurrentVersion"), std::string::npos) << file;
        }
}

Files PluginFiles()
{
    Files files = ReadFiles(VKT_SOURCE_ROOT, {"src"});
    // Arithmetic without a host: anyone may use it.
    files.erase("src/max/RowMatrix.h");
    return files;
}

std::vector<Room> PluginRooms()
{
    std::vector<Room> rooms = kSceneRooms;
    rooms.insert(rooms.end(), kPluginRooms.begin(), kPluginRooms.end());
    return rooms;
}

std::vector<Exception> PluginExceptions()
{
    std::vector<Exception> exceptions = kSceneExceptions;
    exceptions.insert(exceptions.end(), kPluginExceptions.begin(), kPluginExceptions.end());
    return exceptions;
}

TEST(Layers, RoomsOfThePluginKnowThoseBelowAlone)
{
    EXPECT_THAT(Check(PluginFiles(), PluginRooms(), PluginExceptions()), IsEmpty());
}

TEST(Layers, HeadersOfTheHostAreForTheBorderAndTheModuleAlone)
{
    EXPECT_THAT(CheckForeign(PluginFiles(), kForeignPlaces), IsEmpty());
}

TEST(Layers, RoomsOfTheHeadlessHostKnowThoseBelowAlone)
{
    EXPECT_THAT(Check(ReadFiles(VKT_SOURCE_ROOT, {"host", "sdk"}), kHostRooms, {}), IsEmpty());
}

// The checks themselves, on what is planted.

TEST(LayersCheck, FindsHeadersOfTheHostBeyondTheBorder)
{
    Files files = PluginFiles();
    files["src/VKT/base/IdMap.cpp"] += "#include <windows.h>\n";
    files["src/exporter/driver/ExportDriver.cpp"] += "#include \"exporter/walk/Pose.h\"\n";
    files["src/exporter/walk/Pose.h"] = "#include \"max/Matrix.h\"\n";
    files["src/max/NativePath.cpp"] += "#include <max.h>\n";
    const std::vector<std::string> found = CheckForeign(files, kForeignPlaces);
    EXPECT_THAT(found, testing::IsSupersetOf({"src/VKT/base/IdMap.cpp sees windows.h",
                                              "src/exporter/driver/ExportDriver.cpp sees max.h",
                                              "src/exporter/walk/Pose.h sees max.h"}));
    EXPECT_THAT(found, testing::Not(testing::Contains(testing::HasSubstr("NativePath"))));
}

TEST(LayersCheck, FindsRoomsOfThePluginThatKnowTooMuch)
{
    Files files = PluginFiles();
    files["src/max/Node.h"] += "#include \"VKT/node/Base.h\"\n";
    files["src/exporter/math/TransformDecomposition.cpp"] += "#include \"max/Node.h\"\n";
    files["src/exporter/options/Presets.cpp"] += "#include \"exporter/walk/ExportCore.h\"\n";
    files["src/exporter/walk/SceneWalk.h"] += "#include \"exporter/geometry/MeshExport.h\"\n";
    EXPECT_THAT(Check(files, PluginRooms(), PluginExceptions()),
                ElementsAre("src/exporter/math/TransformDecomposition.cpp includes src/max/Node.h",
                            "src/exporter/options/Presets.cpp includes src/exporter/walk/ExportCore.h",
                            "src/exporter/walk/SceneWalk.h includes src/exporter/geometry/MeshExport.h",
                            "src/max/Node.h includes src/VKT/node/Base.h"));
}

TEST(LayersCheck, FindsRoomsOfTheHeadlessHostThatKnowTooMuch)
{
    Files files = ReadFiles(VKT_SOURCE_ROOT, {"host", "sdk"});
    files["host/core/Scene.cpp"] += "#include \"host/controllers/PRSController.h\"\n";
    files["host/objects/Objects.cpp"] += "#include \"host/materials/Materials.h\"\n";
    EXPECT_THAT(Check(files, kHostRooms, {}),
                ElementsAre("host/core/Scene.cpp includes host/controllers/PRSController.h",
                            "host/objects/Objects.cpp includes host/materials/Materials.h"));
}

TEST(LayersCheck, FindsAnIncludeThatPointsUp)
{
    Files files = SceneFiles();
    files["src/VKT/base/Vector.h"] += "#include \"VKT/shading/Material.h\"\n";
    files["src/VKT/shading/Blinn.cpp"] += "#include \"VKT/lights/Light.h\"\n";
    files["src/VKT/node/Attribute.h"] += "#include \"VKT/document/Model.h\"\n";
    files["src/VKT/rigging/IkChain.h"] += "#include \"VKT/animation/AnimCurve.h\"\n";
    files["src/VKT/registry/UserNode.cpp"] += "#include \"utils/SkinPruner.h\"\n";
    EXPECT_THAT(Check(files, kSceneRooms, kSceneExceptions),
                ElementsAre("src/VKT/base/Vector.h includes src/VKT/shading/Material.h",
                            "src/VKT/node/Attribute.h includes src/VKT/document/Model.h",
                            "src/VKT/registry/UserNode.cpp includes src/utils/SkinPruner.h",
                            "src/VKT/rigging/IkChain.h includes src/VKT/animation/AnimCurve.h",
                            "src/VKT/shading/Blinn.cpp includes src/VKT/lights/Light.h"));
}

TEST(LayersCheck, LetsPassWhatPointsDown)
{
    const Files files = {{"src/low/Low.h", "#include <vector>\n#include \"foreign.h\"\n"},
                         {"src/low/Other.h", "#include \"Low.h\"\n#include \"low/Low.h\"\n"},
                         {"src/mid/Mid.h", "#include \"low/Low.h\"\n"},
                         {"src/top/Top.cpp", "#include \"../low/Low.h\"\n#include \"mid/Mid.h\"\n"}};
    EXPECT_THAT(Check(files, {{"src/low", {}}, {"src/mid", {"src/low"}}, {"src/top", {"src/mid"}}}, {}),
                IsEmpty());
}

TEST(LayersCheck, ExceptionsAreForSourcesAndAreUsed)
{
    const Files files = {{"src/low/Low.h", "#include \"top/Top.h\"\n"},
                         {"src/low/Low.cpp", "#include \"top/Top.h\"\n"},
                         {"src/top/Top.h", ""}};
    const std::vector<Room> rooms = {{"src/low", {}}, {"src/top", {"src/low"}}};
    EXPECT_THAT(Check(files, rooms, {{"src/low", "src/top/Top.h", ""}}),
                ElementsAre("src/low/Low.h includes src/top/Top.h"));
    EXPECT_THAT(Check(files, rooms, {{"src/top", "src/low/Low.h", ""}}),
                ElementsAre("src/low/Low.cpp includes src/top/Top.h", "src/low/Low.h includes src/top/Top.h",
                            "src/top needs no exception for src/low/Low.h"));
}

TEST(LayersCheck, AFileHasARoom)
{
    EXPECT_THAT(Check({{"src/cellar/Trunk.h", ""}}, kSceneRooms, {}),
                ElementsAre("src/cellar/Trunk.h is in no room"));
}

TEST(LayersCheck, TheInnermostRoomOfAFileCounts)
{
    const std::vector<Room> rooms = {{"src/a", {}}, {"src/a/inner", {"src/a"}}};
    EXPECT_THAT(
        Check({{"src/a/A.h", "#include \"a/inner/B.h\"\n"}, {"src/a/inner/B.h", "#include \"a/A.h\"\n"}},
              rooms, {}),
        ElementsAre("src/a/A.h includes src/a/inner/B.h"));
}

}  // namespace
