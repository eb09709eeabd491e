// Every real scene of Debian's package assimp-testmodels goes the whole way: reader, host,
// exporter, file in both forms, and back. The test prints one line for each scene and the
// counts at the end.

#include <gtest/gtest.h>
#include <max.h>

#include <algorithm>
#include <cstdio>
#include <filesystem>
#include <map>
#include <set>

#include "VKT/support/LogCatcher.h"
#include "VKT/support/TestModel.h"
#include "exporter/options/ExportOptions.h"
#include "exporter/walk/BindPose.h"
#include "exporter/walk/SceneWalk.h"
#include "host/app/HeadlessHost.h"
#include "host/io/BuildScene.h"
#include "host/io/SceneReader.h"
#include "plugin/MaxExporter.h"
#include "scenes/WorldPositions.h"

namespace {

namespace fs = std::filesystem;
using maxhost::HeadlessHost;
using VKT::XModel;

const fs::path kModels = "/usr/share/assimp/models";

// Distances are parts of the scene's size.
constexpr double kTolerance = 1e-5;

std::set<fs::path> ListModels()
{
    std::set<fs::path> models;
    for (const fs::directory_entry& entry : fs::recursive_directory_iterator(kModels)) {
        std::string extension = entry.path().extension().string();
        std::transform(extension.begin(), extension.end(), extension.begin(),
                       [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
        if (entry.is_regular_file() && !extension.empty() &&
            maxhost::io::IsSceneExtension(extension.substr(1)))
            models.insert(entry.path());
    }
    return models;
}

// A number that is none, as text files print it.
bool HasNonFinite(const std::string& text)
{
    for (const char* word : {" nan", " -nan", " inf", " -inf", "\tnan", "\t-nan", "\tinf", "\t-inf"})
        if (text.find(word) != std::string::npos)
            return true;
    return false;
}

class RealScenes : public ::testing::Test {
protected:
    void SetUp() override
    {
        if (!fs::exists(kModels))
            GTEST_SKIP() << "the package assimp-testmodels is not installed";
        const VKT::Test::TempFile unique("");  // a path of this process alone
        m_Folder = std::string(unique.Path()) + "-folder";
        fs::create_directories(m_Folder);
        HeadlessHost::Get().SetDirectory(APP_PLUGCFG_DIR, m_Folder.string());
        VKTMax::GetExportOptions() = {};
    }
    void TearDown() override
    {
        HeadlessHost::Get().Reset();
        VKTMax::GetExportOptions() = {};
        std::error_code ignored;
        fs::remove_all(m_Folder, ignored);
    }

    // Reads a scene file into the host. Empty, or why the file is refused.
    std::string Open(const fs::path& path)
    {
        HeadlessHost::Get().Reset();
        const maxhost::io::ReadResult read = maxhost::io::ReadSceneFile(path);
        if (read.Succeeded())
            maxhost::io::BuildScene(read.scene);
        return read.error;
    }
    // Exports the host's scene as the host would, and gives the file's bytes.
    std::string Export(bool ascii)
    {
        const std::string path = (m_Folder / "scene.vkt").string();
        VKTMax::GetExportOptions().SetExportAscii(ascii);
        VKTMax::VKTMaxExporter exporter;
        EXPECT_EQ(exporter.DoExport(path.c_str(), nullptr, &HeadlessHost::Get().GetInterface(), TRUE, 0), 1);
        std::ifstream file(path, std::ios::binary);
        return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
    }

    fs::path m_Folder;
};

TEST_F(RealScenes, ExportInBothFormsAndReadBackUnchanged)
{
    std::size_t tried = 0, refused = 0, exported = 0, identical = 0, nonFinite = 0;
    std::map<std::string, std::size_t> byExtension;
    for (const fs::path& path : ListModels()) {
        SCOPED_TRACE(path);
        LogCatcher log;
        ++tried;
        const std::string refusal = Open(path);
        if (!refusal.empty()) {
            ++refused;
            std::printf("refused   %s\n", refusal.c_str());
            continue;
        }
        const std::string first = Export(true);
        const std::string binary = Export(false);
        ++exported;
        ++byExtension[path.extension().string()];

        const VKT::Test::RegistryScope registry;
        XModel model;
        if (HasNonFinite(first)) {
            ++nonFinite;
            std::printf("non-finite %s\n", path.c_str());
            continue;
        }
        EXPECT_EQ(VKT::Test::LoadBytes(model, first), VKT::FileOk);
        const std::string text = VKT::Test::SaveText(model);
        EXPECT_EQ(VKT::Test::LoadText(model, text), VKT::FileOk);
        const bool sameText = VKT::Test::SaveText(model) == text;
        EXPECT_TRUE(sameText) << "text -> text";
        const std::string bytes = VKT::Test::SaveBinaryBytes(model);
        EXPECT_EQ(VKT::Test::LoadBytes(model, bytes), VKT::FileOk);
        const bool sameBinary = VKT::Test::SaveText(model) == text;
        EXPECT_TRUE(sameBinary) << "text -> binary -> text";
        EXPECT_EQ(VKT::Test::LoadBytes(model, binary), VKT::FileOk);
        identical += sameText && sameBinary;
    }
    for (const auto& [extension, count] : byExtension)
        std::printf("%-6s %zu\n", extension.c_str(), count);
    std::printf("%zu files tried, %zu refused, %zu exported, %zu identical, %zu with non-finite numbers\n",
                tried, refused, exported, identical, nonFinite);
    EXPECT_GE(exported, 160u);
    EXPECT_EQ(tried, refused + exported);
    EXPECT_EQ(exported, identical + nonFinite);
}

// Where the vertices stand: before the document is saved and again from its binary file.
class RealPositions : public RealScenes, public ::testing::WithParamInterface<bool> {};

TEST_P(RealPositions, AreThoseOfTheHost)
{
    const bool removeScale = GetParam();
    VKTMax::GetExportOptions().SetRemoveScale(removeScale);
    world_positions::Rules rules;
    rules.removeScale = removeScale;

    world_positions::Report all;
    std::size_t scenes = 0;
    for (const fs::path& path : ListModels()) {
        SCOPED_TRACE(path);
        LogCatcher log;
        if (!Open(path).empty())
            continue;
        const VKT::Test::RegistryScope registry;
        XModel model;
        VKTMax::VKTExportCore core(model, false);
        INode* const root = HeadlessHost::Get().GetInterface().GetRootNode();
        ASSERT_TRUE(VKTMax::ExportAllNodes(core, root, {}));
        VKTMax::ApplyBindPose(core);
        if (HasNonFinite(VKT::Test::SaveText(model)))
            continue;
        ++scenes;
        const world_positions::Report built = Compare(root, model, rules);
        XModel loaded;
        EXPECT_EQ(VKT::Test::LoadBytes(loaded, VKT::Test::SaveBinaryBytes(model)), VKT::FileOk);
        const world_positions::Report read = Compare(root, loaded, rules);
        for (const world_positions::Report* report : {&built, &read}) {
            EXPECT_LE(report->exactError, kTolerance) << report->exactWorst;
            EXPECT_LE(report->ruleError, kTolerance) << report->ruleWorst;
            for (const std::string& problem : report->problems)
                ADD_FAILURE() << problem;
        }
        if (built.points > 0)
            std::printf("%5zu exact (%.1e) %4zu by rule (%.1e) %3zu degenerate %3zu shared %8zu points  %s\n",
                        built.exactNodes, std::max(built.exactError, read.exactError), built.ruleNodes,
                        std::max(built.ruleError, read.ruleError), built.degenerateNodes, built.sharedNodes,
                        built.points, fs::relative(path, kModels).c_str());
        all.exactNodes += built.exactNodes;
        all.ruleNodes += built.ruleNodes;
        all.degenerateNodes += built.degenerateNodes;
        all.sharedNodes += built.sharedNodes;
        all.points += built.points;
    }
    std::printf(
        "%zu scenes: %zu nodes exact, %zu by the exporter's rules, %zu degenerate, %zu share an object; %zu "
        "points\n",
        scenes, all.exactNodes, all.ruleNodes, all.degenerateNodes, all.sharedNodes, all.points);
    EXPECT_GT(all.exactNodes, 0u);
    EXPECT_GT(all.ruleNodes, 0u);
}

INSTANTIATE_TEST_SUITE_P(, RealPositions, ::testing::Values(true, false),
                         [](const auto& param) { return param.param ? "ScaleRemoved" : "ScaleKept"; });

}  // namespace
