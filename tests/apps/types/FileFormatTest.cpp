#include <algorithm>
#include <cctype>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <nlohmann/json.hpp>
#include <regex>
#include <sstream>

#include "apps/support/ToolRun.h"

// The document of the file format, docs/file-format.md, against what the tool says and does.

namespace {

using Json = nlohmann::json;

std::string Between(const std::string& text, const std::string& begin, const std::string& end)
{
    const std::size_t from = text.find(begin);
    if (from == std::string::npos)
        return "";
    const std::size_t to = text.find(end, from + begin.size());
    return text.substr(from + begin.size(), to == std::string::npos ? to : to - from - begin.size());
}

std::string Document()
{
    std::ifstream file(VKT_DOCS "/file-format.md", std::ios::binary);
    return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
}

using FileFormat = ToolTest;

TEST_F(FileFormat, TablesAreThoseOfTheLibrary)
{
    const ToolResult run = Run({"types", "--markdown"});
    EXPECT_EQ(run.status, 0);
    const std::string document = Document();
    EXPECT_TRUE(Between(document, "<!-- generated: begin -->\n", "<!-- generated: end -->\n") == run.out)
        << "docs/file-format.md is stale: run scripts/update-file-format.sh";
}

TEST_F(FileFormat, ChaptersTellOfAllThatTablesDoNot)
{
    const std::string document = Document();
    const std::string byHand = Between(document, "\n## Kinds of fields\n", "\n## Classes by table\n");
    const Json all = Json::parse(Run({"types", "--json"}).out);
    ASSERT_EQ(all["types"].size(), 109u);
    for (const Json& type : all["types"]) {
        const std::string name = type["name"];
        std::string anchor = name;
        for (char& c : anchor)
            c = static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
        if (type["textCode"] == true || type["binaryCode"] == true) {
            EXPECT_NE(byHand.find("<a id=\"by-hand-" + anchor + "\"></a>"), std::string::npos) << name;
        }
        for (const char* form : {"text", "binary", "oldText", "oldBinary"})
            for (const Json& row : type[form]) {
                const std::string kind = row["kind"];
                EXPECT_NE(byHand.find('`' + kind + '`'), std::string::npos) << name << ' ' << kind;
                if (kind == "special") {
                    EXPECT_NE(byHand.find("\n| " + name + " |"), std::string::npos) << name;
                }
            }
    }
}

// A source that asks its stream for the version by itself is told of in the chapter of versions.
TEST_F(FileFormat, GatesByHandAreListed)
{
    const std::string versions = Between(Document(), "\n## Versions\n", "\n## ");
    const std::regex gate("(in|file)\\.IsBelow\\([0-9]");
    int numSources = 0;
    for (const auto& entry : std::filesystem::recursive_directory_iterator(VKT_DOCS "/../src/VKT")) {
        if (!entry.is_regular_file())
            continue;
        std::ifstream file(entry.path(), std::ios::binary);
        const std::string text{std::istreambuf_iterator<char>(file), {}};
        if (!std::regex_search(text, gate))
            continue;
        ++numSources;
        std::string name = std::regex_replace(entry.path().stem().string(), std::regex("(File|Text)$"), "");
        name[0] = static_cast<char>(std::tolower(static_cast<unsigned char>(name[0])));
        EXPECT_NE(versions.find("\n| `" + name + "` |"), std::string::npos) << name;
    }
    const auto lines = std::count(versions.begin(), versions.end(), '|') / 3;
    EXPECT_EQ(numSources + 2, lines) << "a row without a gate";  // two lines are the table's head
}

// The file of one locator that the document shows in both forms.
TEST_F(FileFormat, ExampleIsWhatTheToolWrites)
{
    const std::string document = Document();
    const std::string example = Between(document, "\n### An example\n", "\n## ");
    const std::string text = Between(example, "As text:\n\n```\n", "```");
    std::string bytes;
    std::istringstream lines(Between(example, "(hexadecimal):\n\n```\n", "```"));
    for (std::string line; std::getline(lines, line);) {
        std::istringstream words(line.substr(0, line.find("  ")));
        for (std::string word; words >> word;)
            bytes += static_cast<char>(std::stoi(word, nullptr, 16));
    }
    WriteFile("text.vkt", text);
    ASSERT_EQ(Run({"convert", "text.vkt", "binary.vkt", "--binary"}).status, 0);
    EXPECT_EQ(ReadFile("binary.vkt"), bytes);
    ASSERT_EQ(Run({"convert", "binary.vkt", "again.vkt", "--ascii"}).status, 0);
    EXPECT_EQ(ReadFile("again.vkt"), text);
}

}  // namespace
