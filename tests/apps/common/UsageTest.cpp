#include <algorithm>

#include "apps/support/ToolRun.h"

namespace {

using Usage = ToolTest;

TEST_F(Usage, HelpListsTheCommandsThatThereAre)
{
    const ToolResult help = Run({"--help"});
    EXPECT_EQ(help.status, 0);
    EXPECT_EQ(help.err, "");
    for (const char* command : {"info", "tree", "diff", "validate", "curves", "convert", "export", "types"})
        EXPECT_NE(help.out.find(std::string("\n  ") + command + " "), std::string::npos) << command;
    for (const char* command : {"import", "script"})
        EXPECT_EQ(help.out.find(std::string("\n  ") + command), std::string::npos) << command;
}

TEST_F(Usage, HelpOfEachCommandFitsAScreenAndEndsWithAnExample)
{
    for (const std::string command :
         {"info", "tree", "diff", "validate", "curves", "convert", "export", "types"}) {
        const ToolResult help = Run({command, "--help"});
        EXPECT_EQ(help.status, 0);
        EXPECT_LE(std::count(help.out.begin(), help.out.end(), '\n'), 24) << help.out;
        const std::size_t example = help.out.find("Example:\n  vkt " + command + " ");
        ASSERT_NE(example, std::string::npos) << help.out;
        EXPECT_EQ(std::count(help.out.begin() + static_cast<std::ptrdiff_t>(example), help.out.end(), '\n'),
                  2);
        for (std::size_t begin = 0, end; (end = help.out.find('\n', begin)) != std::string::npos;
             begin = end + 1)
            EXPECT_LE(end - begin, 80u) << help.out.substr(begin, end - begin);
    }
}

TEST_F(Usage, VersionIsShown)
{
    const ToolResult version = Run({"--version"});
    EXPECT_EQ(version.status, 0);
    EXPECT_EQ(version.out.rfind("vkt ", 0), 0u);
}

TEST_F(Usage, WrongUsageIs64AndExplainedOnStandardError)
{
    const std::vector<std::vector<std::string>> wrong = {
        {},
        {"frobnicate"},
        {"tree"},
        {"tree", "a.vkt", "b.vkt"},
        {"tree", "a.vkt", "--json"},
        {"--frobnicate"},
        {"info"},
        {"info", "a.vkt", "b.vkt"},
        {"info", "--xml", "a.vkt"},
        {"diff", "a.vkt"},
        {"diff", "a.vkt", "b.vkt", "--tolerance", "-1"},
        {"diff", "a.vkt", "b.vkt", "--tolerance", "little"},
        {"convert", "a.vkt"},
        {"convert", "a.vkt", "b.txt"},
        {"convert", "a.vkt", "vkt"},
        {"convert", "a.vkt", "b.vkt", "--ascii", "--binary"},
        {"curves", "a.vkt"},
        {"curves", "a.vkt", "-o", "a.png"},
        {"export", "a.gltf"},
        {"export", "a.gltf", "b.gltf"},
        {"export", "a.gltf", "b.vkt", "--select"},
        {"types", "polygonMesh"},
        {"types", "--json", "--markdown"},
        {"info", "a.vkt", "convert", "b.vkt", "c.vkt"},
    };
    for (const auto& arguments : wrong) {
        const ToolResult result = Run(arguments);
        EXPECT_EQ(result.status, 64) << ::testing::PrintToString(arguments);
        EXPECT_EQ(result.out, "") << ::testing::PrintToString(arguments);
        EXPECT_NE(result.err, "") << ::testing::PrintToString(arguments);
    }
    EXPECT_EQ(ListFiles(), "");
}

TEST_F(Usage, HelpThatCannotBePrintedIsAFailure)
{
    for (const std::string what : {"--help", "--version", "info --help"})
        EXPECT_EQ(RunProgram("/bin/sh", {"-c", "exec " VKT_TOOL_PATH " " + what + " > /dev/full"}).status, 1)
            << what;
}

TEST_F(Usage, InputThatIsAFolderOrEmptyIsToldSo)
{
    std::filesystem::create_directory(PathOf("folder.vkt"));
    std::filesystem::create_directory(PathOf("folder.gltf"));
    WriteFile("empty.vkt", "");
    WriteFile("empty.gltf", "");
    const auto expect = [&](const std::vector<std::string>& arguments, const std::string& error, int status) {
        const ToolResult result = Run(arguments);
        EXPECT_EQ(result.status, status) << arguments[0];
        EXPECT_EQ(result.out, "") << arguments[0];
        EXPECT_EQ(result.err, "vkt: " + error + "\n") << arguments[0];
    };
    for (const std::string command : {"info", "tree", "validate"}) {
        expect({command, "folder.vkt"}, "\"folder.vkt\" is a folder", 3);
        expect({command, "empty.vkt"}, "\"empty.vkt\" is empty", 5);
        expect({command, "missing.vkt"}, "\"missing.vkt\" cannot be opened: no such file or directory", 3);
    }
    expect({"diff", "folder.vkt", "empty.vkt"}, "\"folder.vkt\" is a folder", 3);
    expect({"diff", "empty.vkt", "folder.vkt"}, "\"empty.vkt\" is empty", 5);
    expect({"convert", "folder.vkt", "out.vkt"}, "\"folder.vkt\" is a folder", 3);
    expect({"convert", "empty.vkt", "out.vkt"}, "\"empty.vkt\" is empty", 5);
    expect({"curves", "folder.vkt", "-o", "out.svg"}, "\"folder.vkt\" is a folder", 3);
    expect({"curves", "empty.vkt", "-o", "out.svg"}, "\"empty.vkt\" is empty", 5);
    expect({"export", "folder.gltf", "out.vkt"}, "\"folder.gltf\" is a folder", 1);
    expect({"export", "empty.gltf", "out.vkt"}, "\"empty.gltf\" is empty", 1);
}

TEST_F(Usage, AnUnknownWordIsNamed)
{
    EXPECT_NE(Run({"frobnicate"}).err.find("frobnicate"), std::string::npos);
    EXPECT_NE(Run({"convert", "a.vkt", "b.txt"}).err.find("must end in .vkt or .xld: b.txt"),
              std::string::npos);
}

}  // namespace
