#include "plugin/MaxExporter.h"

#include "exporter/options/ExportConfig.h"
#include "exporter/options/OptionsDialog.h"
#include "scenes/ExportScenes.h"

namespace VKTMax {
namespace {

using namespace export_scenes;
using maxhost::MakeNode;

class MaxExporterTest : public ExportTest {
protected:
    void TearDown() override
    {
        SetOptionsDialog(nullptr);
        ExportTest::TearDown();
    }
    int Export(bool suppressPrompts = true, DWORD flags = 0)
    {
        return exporter.DoExport(path.c_str(), nullptr, &host.GetInterface(), suppressPrompts, flags);
    }
    // Loads what was written. The export has taken the registry down.
    VKT::XFileResult LoadResult()
    {
        VKT::XRegisterTypes(&log);
        return model.Load(path.c_str());
    }
    std::string Start(std::size_t length)
    {
        const auto bytes = BytesOf(path);
        return std::string(bytes.begin(),
                           bytes.begin() + static_cast<std::ptrdiff_t>(std::min(length, bytes.size())));
    }

    void SetUp() override
    {
        ExportTest::SetUp();
        path = PathOf("scene.vkt");
    }

    std::string path;
    VKTMaxExporter exporter;
};

TEST_F(MaxExporterTest, AnswersTheHostsQuestions)
{
    EXPECT_EQ(exporter.ExtCount(), 1);
    EXPECT_STREQ(exporter.Ext(0), "vkt");
    EXPECT_STREQ(exporter.Ext(7), "vkt");
    EXPECT_STREQ(exporter.LongDesc(), "VKT file exporter");
    EXPECT_STREQ(exporter.ShortDesc(), "VKT");
    EXPECT_STREQ(exporter.AuthorName(), "VKT developers");
    EXPECT_STREQ(exporter.CopyrightMessage(), "Copyright VKT developers");
    EXPECT_STREQ(exporter.OtherMessage1(), "");
    EXPECT_STREQ(exporter.OtherMessage2(), "");
    EXPECT_EQ(exporter.Version(), 400u);
    EXPECT_TRUE(exporter.SupportsOptions(0, SCENE_EXPORT_SELECTED));
    EXPECT_TRUE(exporter.SupportsOptions(9, 0x80));
}

TEST_F(MaxExporterTest, SceneIsSavedAsText)
{
    MakeNode("box", maxhost::MakeBox(Point3(1, 2, 3)));
    ASSERT_EQ(Export(), 1);
    ASSERT_EQ(LoadResult(), VKT::FileOk);
    ASSERT_NE(MeshOf("box"), nullptr);
    EXPECT_EQ(MeshOf("box")->GetNumPoints(), 8u);
    EXPECT_NE(Start(100000).find("POLYGON_MESH"), std::string::npos);
}

TEST_F(MaxExporterTest, SceneIsSavedAsBinary)
{
    MakeNode("box", maxhost::MakeBox(Point3(1, 2, 3)));
    options.SetExportAscii(false);
    ASSERT_EQ(Export(), 1);
    ASSERT_EQ(LoadResult(), VKT::FileOk);
    ASSERT_NE(MeshOf("box"), nullptr);
    EXPECT_EQ(MeshOf("box")->GetNumPoints(), 8u);
    EXPECT_EQ(Start(100000).find("POLYGON_MESH"), std::string::npos);
}

TEST_F(MaxExporterTest, EmptySceneIsSavedWithItsConfiguration)
{
    ASSERT_EQ(Export(), 1);
    EXPECT_EQ(BytesOf(PathOf("VKT_max_plugin.cfg")).size(), 54u);
    ASSERT_EQ(LoadResult(), VKT::FileOk);
    EXPECT_EQ(model.GetNodes().size(), 1u);
}

TEST_F(MaxExporterTest, EmptySelectionIsSavedAsADocumentWithoutNodes)
{
    MakeNode("a", MakeTriangle());
    ASSERT_EQ(Export(true, SCENE_EXPORT_SELECTED), 1);
    ASSERT_EQ(LoadResult(), VKT::FileOk);
    EXPECT_TRUE(model.GetNodes().empty());
}

TEST_F(MaxExporterTest, SelectionAloneIsExported)
{
    MakeNode("a", MakeTriangle());
    host.GetInterface().SelectNode(MakeNode("b", MakeTriangle()));
    ASSERT_EQ(Export(true, SCENE_EXPORT_SELECTED), 1);
    ASSERT_EQ(LoadResult(), VKT::FileOk);
    EXPECT_EQ(model.GetNodes().size(), 2u);
    EXPECT_NE(MeshOf("b"), nullptr);
}

TEST_F(MaxExporterTest, OtherOptionBitsDoNotAskForTheSelection)
{
    MakeNode("a", MakeTriangle());
    ASSERT_EQ(Export(true, 2), 1);
    ASSERT_EQ(LoadResult(), VKT::FileOk);
    EXPECT_NE(MeshOf("a"), nullptr);
}

TEST_F(MaxExporterTest, CancelledDialogIsASuccessAndTouchesNothing)
{
    WriteBytes(path, {1, 2, 3});
    SetOptionsDialog([](void*) { return kDialogCancelled; });
    EXPECT_EQ(Export(false), 1);
    EXPECT_EQ(BytesOf(path), (std::vector<unsigned char>{1, 2, 3}));
    EXPECT_FALSE(std::filesystem::exists(PathOf("VKT_max_plugin.cfg")));
}

TEST_F(MaxExporterTest, DialogReadsTheConfigurationAndSuppressedPromptsDoNot)
{
    options.SetExportAscii(false);
    ASSERT_TRUE(WriteExportConfig(ExportConfigPath()));
    options.SetExportAscii(true);
    ASSERT_EQ(Export(true), 1);
    EXPECT_TRUE(options.GetExportAscii());

    options.SetExportAscii(false);
    ASSERT_TRUE(WriteExportConfig(ExportConfigPath()));
    options.SetExportAscii(true);
    ASSERT_EQ(Export(false), 1);
    EXPECT_FALSE(options.GetExportAscii());
}

TEST_F(MaxExporterTest, SuppressedPromptsStillWriteTheConfiguration)
{
    options.SetFrameRate(77);
    ASSERT_EQ(Export(true), 1);
    EXPECT_EQ(BytesOf(PathOf("VKT_max_plugin.cfg")).at(47), 77);
}

// Puts a folder in the place of the file while the scene is walked.
class Saboteur final : public TriObject {
public:
    explicit Saboteur(const std::string& path) : m_Path(path) {}
    ObjectState Eval(TimeValue t) override
    {
        if (!std::filesystem::exists(m_Path))
            std::filesystem::create_directory(m_Path);
        return TriObject::Eval(t);
    }

private:
    std::string m_Path;
};

TEST_F(MaxExporterTest, FailedSaveLeavesNoOldFileAndIsASuccess)
{
    WriteBytes(path, {1, 2, 3});
    MakeNode("a", maxhost::SceneObjects::Adopt(new Saboteur(path)));
    EXPECT_EQ(Export(), 1);
    EXPECT_FALSE(std::filesystem::is_regular_file(path));
    EXPECT_EQ(BytesOf(PathOf("VKT_max_plugin.cfg")).size(), 54u);
}

TEST_F(MaxExporterTest, FolderOfTheNameIsNotDeleted)
{
    std::filesystem::create_directory(path);
    EXPECT_EQ(Export(), 1);
    EXPECT_TRUE(std::filesystem::is_directory(path));
}

TEST_F(MaxExporterTest, ExistingFileIsReplaced)
{
    WriteBytes(path, std::vector<unsigned char>(100000, 'x'));
    ASSERT_EQ(Export(), 1);
    EXPECT_EQ(Start(100000).find("xxxx"), std::string::npos);
    EXPECT_EQ(LoadResult(), VKT::FileOk);
}

TEST_F(MaxExporterTest, BackslashesInThePathReachTheFile)
{
    MakeNode("a", MakeTriangle());
    const std::string withBackslash = folder.string() + "\\scene.vkt";
    ASSERT_EQ(exporter.DoExport(withBackslash.c_str(), nullptr, &host.GetInterface(), TRUE, 0), 1);
    EXPECT_EQ(LoadResult(), VKT::FileOk);
}

TEST_F(MaxExporterTest, RegistryIsDownAfterEachExportAndUpAgainForTheNext)
{
    MakeNode("a", MakeTriangle());
    for (int run = 0; run < 2; ++run) {
        ASSERT_EQ(Export(), 1);
        EXPECT_EQ(model.CreateNode(VKT::kFnBone), nullptr);
    }
    ASSERT_EQ(LoadResult(), VKT::FileOk);
    EXPECT_NE(MeshOf("a"), nullptr);
}

TEST_F(MaxExporterTest, CurrentPoseKeepsTheBonesAsTheyStand)
{
    INode* a = MakeNode("a");
    maxhost::SetPosition(*a, Point3(1, 2, 3));
    options.SetUseCurrentPoseAsBindpose(true);
    ASSERT_EQ(Export(), 1);
    ASSERT_EQ(LoadResult(), VKT::FileOk);
    EXPECT_EQ(BoneOf("a")->GetTranslate(true), (VKT::XVector3{1, 2, 3, 0}));
}

}  // namespace
}  // namespace VKTMax
