#include "exporter/options/ExportOptions.h"

#include <gtest/gtest.h>

#include <map>
#include <set>
#include <string>

#include "exporter/options/OptionTable.h"
#include "exporter/options/Presets.h"

namespace VKTMax {
namespace {

using Values = std::map<std::string, double>;

Values Snapshot(const ExportOptions& store)
{
    Values values;
    for (const ExportOption& option : ListExportOptions())
        std::visit([&](auto access) { values[option.name] = (store.*access.get)(); }, option.access);
    return values;
}

class ExportOptionsTest : public testing::Test {
protected:
    void TearDown() override { store = ExportOptions(); }

    ExportOptions& store = GetExportOptions();
    const Values defaults = Snapshot(ExportOptions());
};

// What a preset sets, whatever stood there: it is tried over defaults and over a store in
// which every value is another one.
void ExpectPreset(void (*apply)(), const Values& expected)
{
    ExportOptions& store = GetExportOptions();
    for (const bool turned : {false, true}) {
        store = ExportOptions();
        if (turned)
            for (const ExportOption& option : ListExportOptions())
                std::visit(
                    [&]<class T>(OptionAccess<T> access) {
                        (store.*access.set)(static_cast<T>((store.*access.get)() == T{}));
                    },
                    option.access);
        Values wanted = Snapshot(store);
        for (const auto& [name, value] : expected)
            wanted.at(name) = value;
        apply();
        EXPECT_EQ(Snapshot(store), wanted) << (turned ? "over a turned store" : "over the defaults");
    }
}

TEST_F(ExportOptionsTest, StartsWithItsDefaults)
{
    const Values expected = {
        {"IncludeMaterials", 1},
        {"IncludeTextures", 1},
        {"IncludeExtraAttributes", 1},
        {"IncludeCameras", 1},
        {"IncludeLights", 1},
        {"IncludeGizmos", 1},
        {"IncludeMeshes", 1},
        {"IncludeNurbsCurves", 1},
        {"IncludeNurbsSurfaces", 1},
        {"IncludeSkinning", 1},
        {"IncludeBlendShapes", 1},
        {"IncludeNonLinearDeformers", 1},
        {"IncludeLattices", 1},
        {"IncludeProperties", 1},
        {"IncludeAnimation", 1},
        {"UseTimeline", 1},
        {"StartFrame", 0},
        {"EndFrame", 24},
        {"StaticFrame", 0},
        {"Yup", 0},
        {"Zup", 1},
        {"ScaleFactor", 1},
        {"RemoveScale", 1},
        {"IncludeDummies", 1},
        {"IncludeModifiers", 1},
        {"IncludeTexCoords", 1},
        {"IncludeVertexNormals", 1},
        {"IncludeVertexColours", 1},
        {"UseXMesh", 0},
        {"UseXAnimCycle", 0},
        {"ExportAscii", 1},
        {"IncludeTextureAnims", 1},
        {"IncludeMaterialAnims", 1},
        {"IncludeLightAnims", 1},
        {"IncludeCameraAnims", 1},
        {"IncludeGeometryAnims", 1},
        {"IncludeDeformerAnims", 1},
        {"AnimTakeOptions", 0},
        {"FrameRate", 30},
        {"IncludeDependentTransforms", 0},
        {"IncludeBipedMeshes", 0},
        {"UseCurrentPoseAsBindpose", 0},
        {"ReservedOption", 4},
    };
    EXPECT_EQ(defaults, expected);
}

TEST_F(ExportOptionsTest, SetterChangesItsOwnOptionAlone)
{
    for (const ExportOption& option : ListExportOptions()) {
        const std::string name = option.name;
        if (name == "Yup" || name == "Zup")
            continue;
        store = ExportOptions();
        Values expected = defaults;
        const auto turn = [&expected, &name, &turned = store]<class T>(OptionAccess<T> access) {
            const T other = static_cast<T>((turned.*access.get)() == T{});
            (turned.*access.set)(other);
            expected[name] = other;
        };
        std::visit(turn, option.access);
        EXPECT_EQ(Snapshot(store), expected) << name;
    }
}

TEST_F(ExportOptionsTest, UpAxesAreOppositesOfEachOther)
{
    store.SetYup(true);
    EXPECT_TRUE(store.GetYup());
    EXPECT_FALSE(store.GetZup());
    store.SetZup(true);
    EXPECT_TRUE(store.GetZup());
    EXPECT_FALSE(store.GetYup());
    store.SetZup(false);
    EXPECT_FALSE(store.GetZup());
    EXPECT_TRUE(store.GetYup());
}

TEST_F(ExportOptionsTest, ValuesAreStoredUnchecked)
{
    store.SetStartFrame(100);
    store.SetEndFrame(-100);
    store.SetScaleFactor(0.0f);
    store.SetAnimTakeOptions(77);
    EXPECT_EQ(store.GetStartFrame(), 100);
    EXPECT_EQ(store.GetEndFrame(), -100);
    EXPECT_EQ(store.GetScaleFactor(), 0.0f);
    EXPECT_EQ(store.GetAnimTakeOptions(), 77);
}

TEST_F(ExportOptionsTest, RigPresetYieldsSkinnedMeshAndSkeleton)
{
    ExpectPreset(ApplyRigPreset, {
                                     {"ExportAscii", 1},
                                     {"RemoveScale", 1},
                                     {"IncludeMaterials", 0},
                                     {"IncludeTextures", 0},
                                     {"IncludeExtraAttributes", 0},
                                     {"IncludeCameras", 0},
                                     {"IncludeLights", 0},
                                     {"IncludeGizmos", 0},
                                     {"IncludeMeshes", 1},
                                     {"IncludeNurbsCurves", 0},
                                     {"IncludeNurbsSurfaces", 0},
                                     {"IncludeSkinning", 1},
                                     {"IncludeBlendShapes", 0},
                                     {"IncludeNonLinearDeformers", 0},
                                     {"IncludeLattices", 0},
                                     {"IncludeProperties", 0},
                                     {"IncludeAnimation", 0},
                                     {"IncludeDummies", 0},
                                     {"IncludeModifiers", 1},
                                     {"IncludeTexCoords", 0},
                                     {"IncludeVertexNormals", 0},
                                     {"IncludeVertexColours", 0},
                                     {"IncludeDependentTransforms", 1},
                                     {"IncludeBipedMeshes", 0},
                                     {"UseCurrentPoseAsBindpose", 0},
                                     {"UseXMesh", 0},
                                 });
}

TEST_F(ExportOptionsTest, AnimationPresetYieldsSampledTransformsOfTheTimeline)
{
    ExpectPreset(ApplyAnimationPreset, {
                                           {"ExportAscii", 1},
                                           {"RemoveScale", 1},
                                           {"IncludeMaterials", 0},
                                           {"IncludeTextures", 0},
                                           {"IncludeExtraAttributes", 0},
                                           {"IncludeCameras", 0},
                                           {"IncludeLights", 0},
                                           {"IncludeGizmos", 0},
                                           {"IncludeMeshes", 0},
                                           {"IncludeNurbsCurves", 0},
                                           {"IncludeNurbsSurfaces", 0},
                                           {"IncludeSkinning", 0},
                                           {"IncludeBlendShapes", 0},
                                           {"IncludeNonLinearDeformers", 0},
                                           {"IncludeLattices", 0},
                                           {"IncludeProperties", 0},
                                           {"IncludeAnimation", 1},
                                           {"IncludeDummies", 0},
                                           {"IncludeModifiers", 0},
                                           {"IncludeTexCoords", 0},
                                           {"IncludeVertexNormals", 0},
                                           {"IncludeVertexColours", 0},
                                           {"IncludeDependentTransforms", 0},
                                           {"IncludeBipedMeshes", 0},
                                           {"UseCurrentPoseAsBindpose", 0},
                                           {"UseXAnimCycle", 0},
                                           {"IncludeTextureAnims", 0},
                                           {"IncludeMaterialAnims", 0},
                                           {"IncludeLightAnims", 0},
                                           {"IncludeCameraAnims", 0},
                                           {"IncludeGeometryAnims", 0},
                                           {"IncludeDeformerAnims", 0},
                                           {"AnimTakeOptions", 0},
                                           {"UseTimeline", 1},
                                       });
}

}  // namespace
}  // namespace VKTMax
