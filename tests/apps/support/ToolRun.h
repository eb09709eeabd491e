#pragma once

#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <vector>

// Runs the built program as a user does: arguments in, streams, exit status and files out.

struct ToolResult {
    int status = -1;  // exit status; 128 + signal when a signal ended it
    std::string out;
    std::string err;
};

struct ToolOptions {
    std::string folder = {};          // to run in, the tests' own when empty
    std::string temporaryFiles = {};  // TMPDIR, unchanged when empty
    bool terminal = false;            // standard error is a terminal
    bool obeysPermissions = false;    // also when the tests are run by a superuser
};

ToolResult RunProgram(const std::string& program, const std::vector<std::string>& arguments,
                      const ToolOptions& options = {});

// A test with a folder of its own.
class ToolTest : public ::testing::Test {
protected:
    void SetUp() override;
    void TearDown() override;

    std::string PathOf(const std::string& name) const { return (m_Folder / name).string(); }
    // Answers the path.
    std::string WriteFile(const std::string& name, const std::string& bytes) const;
    std::string ReadFile(const std::string& name) const;
    bool HasFile(const std::string& name) const { return std::filesystem::exists(m_Folder / name); }
    // The names in the folder, sorted, with a blank behind each.
    std::string ListFiles() const;

    // The tool, in that folder, so that files go by their names.
    ToolResult Run(const std::vector<std::string>& arguments, ToolOptions options = {}) const;

private:
    std::filesystem::path m_Folder;
};
