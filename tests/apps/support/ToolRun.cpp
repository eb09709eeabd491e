#include "apps/support/ToolRun.h"

#include <fcntl.h>
#include <linux/capability.h>
#include <poll.h>
#include <stdlib.h>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <fstream>
#include <set>
#include <sstream>

namespace {

namespace fs = std::filesystem;

struct Channel {
    int readEnd = -1;
    int writeEnd = -1;
};

Channel OpenPipe()
{
    int ends[2];
    if (pipe(ends) != 0)
        throw std::runtime_error("pipe");
    return {ends[0], ends[1]};
}

Channel OpenTerminal()
{
    const int master = posix_openpt(O_RDWR | O_NOCTTY);
    if (master < 0 || grantpt(master) != 0 || unlockpt(master) != 0)
        throw std::runtime_error("no terminal");
    return {master, open(ptsname(master), O_RDWR | O_NOCTTY)};
}

[[noreturn]] void BecomeProgram(const std::string& program, const std::vector<std::string>& arguments,
                                const ToolOptions& options)
{
    if (!options.folder.empty() && chdir(options.folder.c_str()) != 0)
        _exit(126);
    if (!options.temporaryFiles.empty())
        setenv("TMPDIR", options.temporaryFiles.c_str(), 1);
    // A superuser's program gets every capability that this set holds; others have none.
    if (options.obeysPermissions)
        prctl(PR_CAPBSET_DROP, CAP_DAC_OVERRIDE, 0, 0, 0);
    std::vector<char*> argv{const_cast<char*>(program.c_str())};
    for (const std::string& argument : arguments)
        argv.push_back(const_cast<char*>(argument.c_str()));
    argv.push_back(nullptr);
    execv(program.c_str(), argv.data());
    _exit(127);
}

// Reads both until nobody writes to them any more.
void ReadBoth(int outEnd, std::string& out, int errEnd, std::string& err)
{
    std::array<pollfd, 2> ends = {{{outEnd, POLLIN, 0}, {errEnd, POLLIN, 0}}};
    std::string* const texts[] = {&out, &err};
    for (int open = 2; open > 0;) {
        poll(ends.data(), ends.size(), -1);
        for (std::size_t i = 0; i < ends.size(); ++i) {
            if (ends[i].fd < 0 || ends[i].revents == 0)
                continue;
            char buffer[4096];
            const ssize_t got = read(ends[i].fd, buffer, sizeof buffer);  // -1 at a terminal's end
            if (got > 0) {
                texts[i]->append(buffer, static_cast<std::size_t>(got));
            } else {
                ends[i].fd = -1;
                --open;
            }
        }
    }
}

}  // namespace

ToolResult RunProgram(const std::string& program, const std::vector<std::string>& arguments,
                      const ToolOptions& options)
{
    const Channel out = OpenPipe();
    const Channel err = options.terminal ? OpenTerminal() : OpenPipe();
    const pid_t child = fork();
    if (child < 0)
        throw std::runtime_error("fork");
    if (child == 0) {
        dup2(out.writeEnd, STDOUT_FILENO);
        dup2(err.writeEnd, STDERR_FILENO);
        for (const int end : {out.readEnd, out.writeEnd, err.readEnd, err.writeEnd})
            close(end);
        BecomeProgram(program, arguments, options);
    }
    close(out.writeEnd);
    close(err.writeEnd);
    ToolResult result;
    ReadBoth(out.readEnd, result.out, err.readEnd, result.err);
    close(out.readEnd);
    close(err.readEnd);
    int status = 0;
    waitpid(child, &status, 0);
    result.status = WIFEXITED(status) ? WEXITSTATUS(status) : 128 + WTERMSIG(status);
    return result;
}

void ToolTest::SetUp()
{
    std::string pattern = (fs::temp_directory_path() / "vkt-tool-test-XXXXXX").string();
    ASSERT_NE(mkdtemp(pattern.data()), nullptr);
    m_Folder = pattern;
}

void ToolTest::TearDown()
{
    fs::remove_all(m_Folder);
}

std::string ToolTest::WriteFile(const std::string& name, const std::string& bytes) const
{
    std::ofstream(m_Folder / name, std::ios::binary) << bytes;
    return PathOf(name);
}

std::string ToolTest::ReadFile(const std::string& name) const
{
    std::ostringstream bytes;
    bytes << std::ifstream(m_Folder / name, std::ios::binary).rdbuf();
    return bytes.str();
}

std::string ToolTest::ListFiles() const
{
    std::set<std::string> names;
    for (const auto& entry : fs::directory_iterator(m_Folder))
        names.insert(entry.path().filename().string());
    std::string list;
    for (const std::string& name : names)
        list += name + " ";
    return list;
}

ToolResult ToolTest::Run(const std::vector<std::string>& arguments, ToolOptions options) const
{
    options.folder = m_Folder.string();
    return RunProgram(VKT_TOOL_PATH, arguments, options);
}
