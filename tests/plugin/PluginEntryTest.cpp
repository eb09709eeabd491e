#include "plugin/PluginEntry.h"

#include "scenes/ExportScenes.h"

namespace VKTMax {
namespace {

using namespace export_scenes;
using maxhost::MakeNode;

// The plug-in's doors, as the tests can reach them: without a module around.

TEST(PluginEntry, WithoutAModuleThereIsNoDescription)
{
    EXPECT_EQ(DescribePlugin(), nullptr);
}

TEST(PluginEntry, OneClassIsDescribed)
{
    EXPECT_EQ(CountPluginClasses(), 1);
    EXPECT_EQ(FindPluginClass(-1), nullptr);
    EXPECT_EQ(FindPluginClass(1), nullptr);
    EXPECT_EQ(FindPluginClass(3), nullptr);
    ClassDesc* exporter = FindPluginClass(0);
    ASSERT_NE(exporter, nullptr);
    EXPECT_EQ(exporter->IsPublic(), 1);
    EXPECT_EQ(exporter->SuperClassID(), 0xA20u);
    EXPECT_EQ(exporter->ClassID(), Class_ID(0x876628ED, 0x39833063));
    EXPECT_STREQ(exporter->InternalName(), "VKTMaxExporter");
}

TEST(PluginEntry, DescriptorMakesAnExporter)
{
    auto* made = static_cast<SceneExport*>(FindPluginClass(0)->Create());
    EXPECT_STREQ(made->Ext(0), "vkt");
    delete made;
}

TEST(PluginEntry, StartMayBeRepeated)
{
    EXPECT_TRUE(StartPlugin());
    EXPECT_TRUE(StartPlugin());
    VKT::XModel model;
    EXPECT_NE(model.CreateNode(VKT::kFnBone), nullptr);
    EXPECT_TRUE(StopPlugin());
    EXPECT_EQ(model.CreateNode(VKT::kFnBone), nullptr);
}

// The module itself, loaded by the host.
class ModuleTest : public ExportTest {
protected:
    void TearDown() override
    {
        host.UnloadModules();
        ExportTest::TearDown();
    }
};

TEST_F(ModuleTest, HostLoadsItAndExportsThroughIt)
{
    std::string error;
    ASSERT_TRUE(host.LoadModule(VKT_PLUGIN_PATH, error)) << error;
    MakeNode("box", maxhost::MakeBox(Point3(1, 2, 3)));
    EXPECT_EQ(host.Export(PathOf("scene.vkt"), {}, error), IMPEXP_SUCCESS) << error;
    ASSERT_EQ(model.Load(PathOf("scene.vkt").c_str()), VKT::FileOk);
    EXPECT_NE(MeshOf("box"), nullptr);
}

TEST_F(ModuleTest, StringsComeFromItsTable)
{
    std::string error;
    ASSERT_TRUE(host.LoadModule(VKT_PLUGIN_PATH, error)) << error;
    ClassDesc* exporter = host.GetClasses().Find(SCENE_EXPORT_CLASS_ID, Class_ID(0x876628ED, 0x39833063));
    ASSERT_NE(exporter, nullptr);
    const char* name = exporter->ClassName();
    EXPECT_STREQ(exporter->Category(), "");
    EXPECT_STREQ(name, "VKTMaxExporter");
    char text[64];
    EXPECT_GT(LoadString(exporter->HInstance(), 1, text, sizeof text), 0);
    EXPECT_STREQ(text, "Exports VKT Files");
    EXPECT_GT(LoadString(exporter->HInstance(), 4, text, sizeof text), 0);
    EXPECT_STREQ(text, "Parameters");
    EXPECT_GT(LoadString(exporter->HInstance(), 5, text, sizeof text), 0);
    EXPECT_STREQ(text, "Spin");
    EXPECT_EQ(LoadString(exporter->HInstance(), 2, text, sizeof text), 0);
}

}  // namespace
}  // namespace VKTMax
