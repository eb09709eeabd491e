#include <CLI/CLI.hpp>
#include <memory>

#include "common/Command.h"
#include "common/Log.h"
#include "common/Output.h"
#include "types/TypeList.h"

namespace tool {
namespace {

struct TypesRequest {
    bool json = false;
    bool markdown = false;
    bool verbose = false;
};

int ShowTypes(const TypesRequest& request, Log& log)
{
    log.SetVerbose(request.verbose);
    const TypeList types = DescribeTypes();
    const std::string text = request.json       ? ToJson(types)
                             : request.markdown ? ToMarkdown(types)
                                                : ToText(types);
    return WriteResult(text) ? kSuccess : kFailure;
}

}  // namespace

void AddTypesCommand(CLI::App& program, Run& run)
{
    CLI::App* const command =
        program.add_subcommand("types", "Show the node classes, their fields and properties");
    const auto request = std::make_shared<TypesRequest>();
    CLI::Option* const json =
        command->add_flag("--json", request->json, "Print one JSON object instead of text");
    command->add_flag("--markdown", request->markdown, "Print the tables of docs/file-format.md")
        ->excludes(json);
    command->add_flag("--verbose", request->verbose, "Show each message of the library");
    command->footer("Example:\n  vkt types --json");
    command->callback([request, &run] { run = [request](Log& log) { return ShowTypes(*request, log); }; });
}

}  // namespace tool
