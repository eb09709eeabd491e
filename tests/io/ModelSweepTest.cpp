// Every model of Debian's package assimp-testmodels that has a reader: it loads into a
// scene that holds together, or is refused with a reason.

#include <gtest/gtest.h>

#include <filesystem>
#include <set>

#include "host/io/SceneReader.h"

namespace maxhost::io {
namespace {

const std::filesystem::path kModels = "/usr/share/assimp/models";

std::string Lower(std::string text)
{
    for (char& c : text)
        c = static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
    return text;
}

std::vector<std::filesystem::path> Models()
{
    std::set<std::filesystem::path> models;
    for (const auto& entry : std::filesystem::recursive_directory_iterator(kModels)) {
        const std::string extension = Lower(entry.path().extension().string());
        if (entry.is_regular_file() && !extension.empty() && IsSceneExtension(extension.substr(1)))
            models.insert(entry.path());
    }
    return {models.begin(), models.end()};
}

// Whether all numbers that the scene refers by exist.
void ExpectHoldsTogether(const NeutralScene& scene)
{
    const auto below = [](auto index, std::size_t count) {
        return index == -1 || (index >= 0 && static_cast<std::size_t>(index) < count);
    };
    for (std::size_t i = 0; i < scene.nodes.size(); ++i) {
        const NeutralNode& node = scene.nodes[i];
        EXPECT_FALSE(node.name.empty());
        EXPECT_LT(node.parent, static_cast<int>(i));
        EXPECT_TRUE(below(node.mesh, scene.meshes.size()));
        EXPECT_TRUE(below(node.skin, scene.skins.size()));
        EXPECT_TRUE(below(node.camera, scene.cameras.size()));
        EXPECT_TRUE(below(node.light, scene.lights.size()));
        EXPECT_TRUE(IsFinite(ToMatrix(node.local)));
    }
    for (const NeutralMesh& mesh : scene.meshes) {
        std::size_t corners = 0;
        for (const std::uint32_t count : mesh.cornerCounts) {
            EXPECT_GE(count, 3u);
            corners += count;
        }
        EXPECT_EQ(mesh.corners.size(), corners);
        EXPECT_EQ(mesh.materials.size(), mesh.cornerCounts.size());
        for (const std::uint32_t corner : mesh.corners)
            EXPECT_LT(corner, mesh.points.size());
        for (const int material : mesh.materials)
            EXPECT_TRUE(below(material, scene.materials.size()));
        for (const MapChannel& channel : mesh.uvs) {
            EXPECT_EQ(channel.corners.size(), corners);
            for (const std::uint32_t corner : channel.corners)
                EXPECT_LT(corner, channel.values.size());
        }
        if (!mesh.influences.empty()) {
            ASSERT_EQ(mesh.influenceStarts.size(), mesh.points.size() + 1);
            EXPECT_EQ(mesh.influenceStarts.back(), mesh.influences.size());
        }
        for (const MorphTarget& target : mesh.targets)
            EXPECT_EQ(target.deltas.size(), mesh.points.size());
    }
    for (const NeutralAnimation& animation : scene.animations) {
        for (const NeutralTrack& track : animation.tracks) {
            EXPECT_LT(static_cast<std::size_t>(track.node), scene.nodes.size());
            EXPECT_FALSE(track.times.empty());
            EXPECT_EQ(track.values.size(), track.times.size() * track.width *
                                               (track.interpolation == Interpolation::Cubic ? 3u : 1u));
        }
    }
}

TEST(ModelSweep, EveryModelLoadsOrIsRefusedWithAReason)
{
    if (!std::filesystem::exists(kModels))
        GTEST_SKIP() << "assimp-testmodels is not installed";
    std::size_t loaded = 0, refused = 0;
    for (const std::filesystem::path& path : Models()) {
        SCOPED_TRACE(path);
        const ReadResult result = ReadSceneFile(path);
        if (result.Succeeded()) {
            ++loaded;
            ExpectHoldsTogether(result.scene);
        } else {
            ++refused;
            EXPECT_GT(result.error.size(), path.string().size() + 5);
        }
    }
    EXPECT_GE(loaded, 160u);
    EXPECT_LE(refused, 30u);
}

}  // namespace
}  // namespace maxhost::io
