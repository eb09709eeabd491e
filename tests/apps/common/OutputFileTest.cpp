#include <fcntl.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>
#include <unistd.h>

#include "apps/support/Documents.h"
#include "apps/support/ToolRun.h"

namespace {

namespace fs = std::filesystem;

// Where commands write. Each test runs all that do.
class OutputFile : public ToolTest {
protected:
    struct Command {
        std::string name;
        std::string input;
        std::string extension;
    };
    const std::vector<Command> kCommands = {
        {"convert", "plate.vkt", ".vkt"}, {"export", "scene.gltf", ".vkt"}, {"curves", "take.vkt", ".svg"}};

    void SetUp() override
    {
        ToolTest::SetUp();
        WriteFile("plate.vkt", kPlate);
        fs::copy_file(VKT_DOCS "/../examples/walk.vkt", PathOf("take.vkt"));
        fs::copy_file(VKT_TEST_DATA "/losses.gltf", PathOf("scene.gltf"));
    }
    ToolResult Write(const Command& command, const std::string& out, ToolOptions options = {}) const
    {
        if (command.name == "curves")
            return Run({"curves", command.input, "-o", out}, options);
        return Run({command.name, command.input, out}, options);
    }
    // One that is refused: with that reason alone, and nothing but OUT in the folder is new.
    void ExpectRefused(const std::string& stem, const std::string& reason, ToolOptions options = {}) const
    {
        const std::string before = ListFiles();
        for (const Command& command : kCommands) {
            const std::string out = stem + command.extension;
            const ToolResult result = Write(command, out, options);
            EXPECT_EQ(result.status, 3) << command.name;
            EXPECT_EQ(result.out, "");
            EXPECT_EQ(result.err, "vkt: \"" + out + "\" cannot be written: " + reason + "\n");
        }
        EXPECT_EQ(ListFiles(), before);
    }
    // For both extensions.
    template <class Make>
    void MakeBoth(const std::string& stem, Make make) const
    {
        for (const char* extension : {".vkt", ".svg"})
            make(PathOf(stem + extension));
    }
    void MakeLinks(const std::string& stem, const std::string& target) const
    {
        MakeBoth(stem, [&](const std::string& path) { fs::create_symlink(target, path); });
    }
};

TEST_F(OutputFile, WhatIsNoRegularFileIsRefused)
{
    MakeBoth("folder", [](const std::string& path) { fs::create_directory(path); });
    ExpectRefused("folder", "it is a folder");
    MakeBoth("pipe", [](const std::string& path) { ASSERT_EQ(mkfifo(path.c_str(), 0600), 0); });
    ExpectRefused("pipe", "it is a pipe");
    MakeBoth("socket", [](const std::string& path) {
        sockaddr_un address = {};
        address.sun_family = AF_UNIX;
        path.copy(address.sun_path, sizeof address.sun_path - 1);
        const int socketNumber = socket(AF_UNIX, SOCK_STREAM, 0);
        ASSERT_EQ(bind(socketNumber, reinterpret_cast<sockaddr*>(&address), sizeof address), 0);
        close(socketNumber);
    });
    ExpectRefused("socket", "it is a socket");
    EXPECT_TRUE(fs::is_fifo(PathOf("pipe.vkt")));
}

TEST_F(OutputFile, NorIsWhatALinkLeadsToSpared)
{
    MakeLinks("device", "/dev/full");
    ExpectRefused("device", "it leads to a device");
    MakeLinks("folder", ".");
    ExpectRefused("folder", "it leads to a folder");
    EXPECT_TRUE(fs::is_symlink(PathOf("device.vkt")));
}

TEST_F(OutputFile, InputUnderAnotherNameIsRefused)
{
    for (const Command& command : kCommands) {
        const std::string before = ReadFile(command.input);
        fs::create_symlink(command.input, PathOf("link" + command.extension));
        fs::create_hard_link(PathOf(command.input), PathOf("hard" + command.extension));
        for (const std::string stem : {"link", "hard"}) {
            const ToolResult result = Write(command, stem + command.extension);
            EXPECT_EQ(result.status, 3) << command.name;
            EXPECT_EQ(result.err, "vkt: \"" + stem + command.extension +
                                      "\" cannot be written: it is the input \"" + command.input +
                                      "\" under another name\n");
        }
        EXPECT_EQ(ReadFile(command.input), before);
        fs::remove(PathOf("link" + command.extension));
        fs::remove(PathOf("hard" + command.extension));
    }
}

// The mode says it, so that this holds for a superuser too.
TEST_F(OutputFile, WriteProtectedFilesAreRefused)
{
    MakeBoth("out", [](const std::string& path) {
        close(open(path.c_str(), O_CREAT | O_WRONLY, 0644));
        ASSERT_EQ(chmod(path.c_str(), 0444), 0);
    });
    ExpectRefused("out", "it is write-protected");
    EXPECT_EQ(ReadFile("out.vkt"), "");
}

TEST_F(OutputFile, FoldersThatTakeNoFileAreRefused)
{
    ExpectRefused("nowhere/out", "there is no folder \"nowhere\"");
    fs::create_directory(PathOf("locked"));
    ASSERT_EQ(chmod(PathOf("locked").c_str(), 0555), 0);
    ExpectRefused("locked/out", "its folder cannot be changed: permission denied",
                  {.obeysPermissions = true});
    ASSERT_EQ(chmod(PathOf("locked").c_str(), 0755), 0);
}

TEST_F(OutputFile, FilesThatTheUserMayNotWriteAreRefused)
{
    MakeBoth("out", [](const std::string& path) {
        close(open(path.c_str(), O_CREAT | O_WRONLY, 0644));
        ASSERT_EQ(chmod(path.c_str(), 0020), 0);  // others may
    });
    ExpectRefused("out", "permission denied", {.obeysPermissions = true});
}

TEST_F(OutputFile, LinksStayAndTheirTargetIsReplacedOrCreated)
{
    WriteFile("old", "old");
    fs::create_directory(PathOf("below"));
    for (const std::string target : {"old", "new", "below/new"}) {
        MakeLinks("link", target);
        for (const Command& command : kCommands) {
            if (target != "old")
                fs::remove(PathOf(target));
            const ToolResult result = Write(command, "link" + command.extension);
            EXPECT_EQ(result.status, 0) << command.name << target << result.err;
            EXPECT_TRUE(fs::is_symlink(PathOf("link" + command.extension)));
            EXPECT_GT(ReadFile(target).size(), 100u);
        }
        MakeBoth("link", [](const std::string& path) { fs::remove(path); });
    }
    EXPECT_EQ(ListFiles(), "below new old plate.vkt scene.gltf take.vkt ");
}

TEST_F(OutputFile, LinksInARingAreRefused)
{
    MakeLinks("one", "two");
    fs::create_symlink("two", PathOf("two"));
    ExpectRefused("one", "too many levels of symbolic links");
}

}  // namespace
