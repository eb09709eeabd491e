#include "exporter/options/OptionsDialog.h"

#include "exporter/options/ExportConfig.h"
#include "exporter/options/Presets.h"
#include "scenes/ExportScenes.h"

namespace VKTMax {
namespace {

class OptionsDialogTest : public export_scenes::ExportTest {
protected:
    void TearDown() override
    {
        SetOptionsDialog(nullptr);
        ExportTest::TearDown();
    }
};

TEST_F(OptionsDialogTest, OpeningReadsTheConfigurationFile)
{
    options.SetFrameRate(12);
    ASSERT_TRUE(WriteExportConfig(ExportConfigPath()));
    options = ExportOptions();
    int rateSeen = 0;
    SetOptionsDialog([&](void*) {
        rateSeen = options.GetFrameRate();
        return kDialogAccepted;
    });
    EXPECT_EQ(ShowExportOptions(nullptr), 0);
    EXPECT_EQ(rateSeen, 12);
}

TEST_F(OptionsDialogTest, MissingFileLeavesTheStore)
{
    options.SetFrameRate(12);
    EXPECT_EQ(ShowExportOptions(nullptr), 0);
    EXPECT_EQ(options.GetFrameRate(), 12);
}

TEST_F(OptionsDialogTest, CancelAfterAPresetKeepsThePresetAndTheFile)
{
    ASSERT_TRUE(WriteExportConfig(ExportConfigPath()));
    const auto file = export_scenes::BytesOf(PathOf("VKT_max_plugin.cfg"));
    SetOptionsDialog([](void*) {
        ApplyRigPreset();
        return kDialogCancelled;
    });
    EXPECT_EQ(ShowExportOptions(nullptr), 1);
    EXPECT_FALSE(options.GetIncludeMaterials());
    EXPECT_TRUE(options.GetIncludeDependentTransforms());
    EXPECT_EQ(export_scenes::BytesOf(PathOf("VKT_max_plugin.cfg")), file);
}

TEST_F(OptionsDialogTest, DialogStandsBeforeTheWindowItIsGiven)
{
    int window = 0;
    void* seen = nullptr;
    SetOptionsDialog([&](void* parent) {
        seen = parent;
        return kDialogAccepted;
    });
    ShowExportOptions(&window);
    EXPECT_EQ(seen, &window);
}

}  // namespace
}  // namespace VKTMax
