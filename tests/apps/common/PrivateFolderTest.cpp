#include <fcntl.h>
#include <signal.h>
#include <spawn.h>
#include <sys/file.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <nlohmann/json.hpp>
#include <thread>

#include "apps/support/ToolRun.h"

namespace {

namespace fs = std::filesystem;

// Runs that end before their time. An export stands still in the middle, as nobody reads the
// messages that it has for each of its nodes.
class PrivateFolder : public ToolTest {
protected:
    void SetUp() override
    {
        ToolTest::SetUp();
        nlohmann::json scene = {{"asset", {{"version", "2.0"}}}, {"scene", 0}};
        for (int i = 0; i < 3000; ++i) {
            scene["nodes"].push_back({{"name", "a node of this scene, number " + std::to_string(i)}});
            scene["scenes"][0]["nodes"].push_back(i);
        }
        WriteFile("scene.gltf", scene.dump());
        WriteFile("out.vkt", "old");
        fs::create_directory(PathOf("temporary"));
        ASSERT_EQ(pipe(m_Messages), 0);
    }
    void TearDown() override
    {
        for (const int end : m_Messages)
            close(end);
        ToolTest::TearDown();
    }

    int Count(const std::string& folder) const
    {
        int found = 0;
        for (const auto& entry : fs::directory_iterator(PathOf(folder)))
            found += entry.path().filename().string().rfind(".vkt-run-", 0) == 0;
        return found;
    }
    // Answers when the export is at work on OUT.
    pid_t Start(bool ignoresHangUp = false) const
    {
        const std::string command = std::string(ignoresHangUp ? "trap '' HUP; " : "") + "TMPDIR='" +
                                    PathOf("temporary") + "' exec " VKT_TOOL_PATH " export '" +
                                    PathOf("scene.gltf") + "' '" + PathOf("out.vkt") + "' --verbose";
        std::string shell = "/bin/bash", flag = "-c", text = command;
        char* arguments[] = {shell.data(), flag.data(), text.data(), nullptr};
        posix_spawn_file_actions_t actions;
        posix_spawn_file_actions_init(&actions);
        posix_spawn_file_actions_adddup2(&actions, m_Messages[1], STDERR_FILENO);
        posix_spawn_file_actions_addclose(&actions, m_Messages[0]);
        posix_spawn_file_actions_addclose(&actions, m_Messages[1]);
        // Whoever runs the tests in the background may ignore them.
        posix_spawnattr_t attributes;
        posix_spawnattr_init(&attributes);
        sigset_t heeded;
        sigemptyset(&heeded);
        for (const int number : {SIGINT, SIGTERM, SIGHUP})
            sigaddset(&heeded, number);
        posix_spawnattr_setsigdefault(&attributes, &heeded);
        posix_spawnattr_setflags(&attributes, POSIX_SPAWN_SETSIGDEF);
        pid_t child = -1;
        EXPECT_EQ(posix_spawn(&child, shell.c_str(), &actions, &attributes, arguments, environ), 0);
        posix_spawnattr_destroy(&attributes);
        posix_spawn_file_actions_destroy(&actions);
        for (int i = 0; i < 6000 && Count("") == 0; ++i)
            std::this_thread::sleep_for(std::chrono::milliseconds(10));
        EXPECT_EQ(Count(""), 1);
        EXPECT_EQ(Count("temporary"), 1);
        return child;
    }
    static int End(pid_t child, int signalNumber)
    {
        kill(child, signalNumber);
        int status = 0;
        waitpid(child, &status, 0);
        return WIFSIGNALED(status) ? WTERMSIG(status) : 0;
    }

    int m_Messages[2] = {-1, -1};
};

TEST_F(PrivateFolder, SignalsLeaveTheOldFileAlone)
{
    for (const int number : {SIGINT, SIGTERM, SIGHUP}) {
        EXPECT_EQ(End(Start(), number), number);
        EXPECT_EQ(ListFiles(), "out.vkt scene.gltf temporary ");
        EXPECT_EQ(ReadFile("out.vkt"), "old");
        EXPECT_TRUE(fs::is_empty(PathOf("temporary")));
    }
}

TEST_F(PrivateFolder, SignalsThatAreIgnoredStayIgnored)
{
    const pid_t child = Start(true);
    kill(child, SIGHUP);
    std::this_thread::sleep_for(std::chrono::milliseconds(200));
    EXPECT_EQ(Count(""), 1);
    EXPECT_EQ(End(child, SIGTERM), SIGTERM);
}

TEST_F(PrivateFolder, WhatAKilledRunLeavesTheNextOneRemoves)
{
    EXPECT_EQ(End(Start(), SIGKILL), SIGKILL);
    EXPECT_EQ(Count(""), 1);
    EXPECT_EQ(Count("temporary"), 1);
    ASSERT_EQ(Run({"export", "scene.gltf", "out.vkt"}, {.temporaryFiles = PathOf("temporary")}).status, 0);
    EXPECT_EQ(ListFiles(), "out.vkt scene.gltf temporary ");
    EXPECT_TRUE(fs::is_empty(PathOf("temporary")));
}

TEST_F(PrivateFolder, ARunThatIsAliveIsLeftAlone)
{
    const pid_t child = Start();
    ASSERT_EQ(Run({"export", "scene.gltf", "other.vkt"}, {.temporaryFiles = PathOf("temporary")}).status, 0);
    EXPECT_EQ(Count(""), 1);
    EXPECT_EQ(Count("temporary"), 1);
    EXPECT_EQ(End(child, SIGTERM), SIGTERM);
}

TEST_F(PrivateFolder, LinksUnderItsNameAreNoLeftovers)
{
    fs::create_directory(PathOf("kept"));
    WriteFile("kept/file", "");
    fs::create_symlink("kept", PathOf(".vkt-run-12345678"));
    ASSERT_EQ(Run({"export", "scene.gltf", "out.vkt"}).status, 0);
    EXPECT_EQ(ListFiles(), ".vkt-run-12345678 kept out.vkt scene.gltf temporary ");
    EXPECT_TRUE(HasFile("kept/file"));
}

}  // namespace
