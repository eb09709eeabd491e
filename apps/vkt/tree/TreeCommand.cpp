#include <CLI/CLI.hpp>
#include <memory>
#include <string>

#include "VKT/document/Model.h"
#include "common/Command.h"
#include "common/Log.h"
#include "common/Output.h"
#include "common/SceneFile.h"
#include "tree/TreeText.h"

namespace tool {
namespace {

struct TreeRequest {
    std::string file;
    bool verbose = false;
};

int ShowTree(const TreeRequest& request, Log& log)
{
    log.SetVerbose(request.verbose);
    VKT::XModel model;
    if (const int failure = LoadScene(model, request.file, log))
        return failure;
    log.Flush();
    return WriteResult(DrawTree(model)) ? kSuccess : kFailure;
}

}  // namespace

void AddTreeCommand(CLI::App& program, Run& run)
{
    CLI::App* const command =
        program.add_subcommand("tree", "Show the hierarchy of a scene file, its shapes and materials");
    const auto request = std::make_shared<TreeRequest>();
    command->add_option("FILE", request->file, "A .vkt or .xld file, text or binary")->required();
    command->add_flag("--verbose", request->verbose, "Show each message of the library");
    command->footer("Example:\n  vkt tree robot.vkt");
    command->callback([request, &run] { run = [request](Log& log) { return ShowTree(*request, log); }; });
}

}  // namespace tool
