#include <filesystem>
#include <fstream>
#include <random>
#include <sstream>

#include "HostTest.h"
#include "host/app/Module.h"

namespace {

class ModuleTest : public HostTest {
protected:
    ModuleTest()
    {
        Host().SetDebugListener([this](const char* text) { m_Heard += std::string(text) + ";"; });
        m_Folder = std::filesystem::temp_directory_path() /
                   ("vkt_module_test_" + std::to_string(std::random_device()()));
        std::filesystem::create_directory(m_Folder);
    }
    ~ModuleTest() override
    {
        Host().UnloadModules();
        Host().SetDebugListener(nullptr);
        std::filesystem::remove_all(m_Folder);
    }

    static std::string PathOf(const std::string& name)
    {
        return TEST_MODULE_FOLDER "/test_module_" + name + TEST_MODULE_SUFFIX;
    }
    bool Load(const std::string& name) { return Host().LoadModule(PathOf(name), m_Error); }
    static std::string TextOf(const std::filesystem::path& path)
    {
        std::stringstream text;
        text << std::ifstream(path).rdbuf();
        return text.str();
    }

    std::filesystem::path m_Folder;
    std::string m_Heard;
    std::string m_Error;
};

TEST_F(ModuleTest, AGoodModuleIsStartedRegisteredAndShutDown)
{
    ASSERT_TRUE(Load("good")) << m_Error;
    ASSERT_EQ(Host().GetModules().size(), 1u);
    EXPECT_EQ(Host().GetModules()[0]->GetDescription(), "Test module");
    ClassDesc* desc = Host().GetClasses().Find(SCENE_EXPORT_CLASS_ID, Class_ID(0x7e57, 0x7e57));
    ASSERT_NE(desc, nullptr);
    EXPECT_STREQ(desc->ClassName(), "TestExport");
    Host().UnloadModules();
    EXPECT_EQ(Host().GetClasses().Find(SCENE_EXPORT_CLASS_ID, Class_ID(0x7e57, 0x7e57)), nullptr);
    EXPECT_EQ(m_Heard, "started;shut down;");
}

TEST_F(ModuleTest, AModuleOfAnotherReleaseIsRefusedBeforeItStarts)
{
    EXPECT_FALSE(Load("old"));
    EXPECT_EQ(m_Error,
              PathOf("old") + ": was built for version 655365888 of the host, this is version 720902400");
    EXPECT_EQ(m_Heard, "");
    EXPECT_TRUE(Host().GetModules().empty());
}

TEST_F(ModuleTest, AModuleThatDoesNotStartIsNotShutDownEither)
{
    EXPECT_FALSE(Load("refusing"));
    EXPECT_EQ(m_Error, PathOf("refusing") + ": refused to start");
    EXPECT_EQ(m_Heard, "started;");
}

TEST_F(ModuleTest, WhatIsNoModuleIsRefused)
{
    EXPECT_FALSE(Load("no_version"));
    EXPECT_EQ(m_Error, PathOf("no_version") + ": is no plug-in: it does not export LibVersion");
    EXPECT_FALSE(Host().LoadModule("/nowhere/plugin.dlu", m_Error));
    EXPECT_EQ(m_Error.rfind("/nowhere/plugin.dlu: ", 0), 0u) << m_Error;
    EXPECT_GT(m_Error.size(), std::string("/nowhere/plugin.dlu: ").size());
}

TEST_F(ModuleTest, TheSameClassComesOnce)
{
    ASSERT_TRUE(Load("good"));
    EXPECT_FALSE(Load("no_selection"));
    EXPECT_EQ(m_Error, PathOf("no_selection") + ": brings class \"TestExport\", which is there already");
    EXPECT_NE(Host().GetClasses().Find(SCENE_EXPORT_CLASS_ID, Class_ID(0x7e57, 0x7e57)), nullptr);
    EXPECT_EQ(Host().GetModules().size(), 1u);
}

TEST_F(ModuleTest, ExportGoesToTheClassThatTakesTheExtension)
{
    ASSERT_TRUE(Load("good"));
    Host().SetDirectory(APP_PLUGCFG_DIR, "/private/config");
    maxhost::MakeNode("a");
    maxhost::MakeNode("b");
    EXPECT_EQ(Host().Export((m_Folder / "out.TST").string(), {}, m_Error), IMPEXP_SUCCESS) << m_Error;
    EXPECT_EQ(TextOf(m_Folder / "out.TST"), "2\n1\n1\n0\n1\n/private/config\n");
    EXPECT_EQ(m_Heard, "started;exported;");

    maxhost::HeadlessHost::ExportOptions options;
    options.selectedOnly = true;
    options.suppressPrompts = false;
    EXPECT_EQ(Host().Export((m_Folder / "selected.tst").string(), options, m_Error), IMPEXP_SUCCESS);
    EXPECT_EQ(TextOf(m_Folder / "selected.tst"), "2\n1\n0\n1\n1\n/private/config\n");
}

TEST_F(ModuleTest, ExportSaysWhyItCannot)
{
    EXPECT_EQ(Host().Export("scene.tst", {}, m_Error), IMPEXP_FAIL);
    EXPECT_EQ(m_Error, "no loaded module exports files of type \"tst\"");
    ASSERT_TRUE(Load("no_selection"));
    maxhost::HeadlessHost::ExportOptions options;
    options.selectedOnly = true;
    EXPECT_EQ(Host().Export("scene.tst", options, m_Error), IMPEXP_FAIL);
    EXPECT_EQ(m_Error, "Test can't export a selection");
    EXPECT_EQ(Host().Export("scene.boom", {}, m_Error), IMPEXP_FAIL);
    EXPECT_EQ(m_Error, "the exporter failed: no such thing");
}

TEST_F(ModuleTest, StringsComeFromTheModule)
{
    char text[5] = "????";
    EXPECT_EQ(LoadString(nullptr, 1, text, sizeof text), 0);
    EXPECT_STREQ(text, "????");
    ASSERT_TRUE(Load("good"));
    HINSTANCE module = Host().GetModules()[0]->GetClasses()[0]->HInstance();
    EXPECT_EQ(LoadString(module, 1, text, sizeof text), 4);
    EXPECT_STREQ(text, "Test");
    EXPECT_EQ(LoadString(module, 2, text, sizeof text), 0);
}

}  // namespace
