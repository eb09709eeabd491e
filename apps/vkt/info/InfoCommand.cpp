#include <CLI/CLI.hpp>
#include <memory>
#include <string>

#include "VKT/document/Model.h"
#include "common/Command.h"
#include "common/Log.h"
#include "common/Output.h"
#include "common/SceneFile.h"
#include "info/Summary.h"

namespace tool {
namespace {

struct InfoRequest {
    std::string file;
    bool json = false;
    bool verbose = false;
};

int ShowInfo(const InfoRequest& request, Log& log)
{
    log.SetVerbose(request.verbose);
    VKT::XModel model;
    if (const int failure = LoadScene(model, request.file, log))
        return failure;
    log.Flush();
    const Summary summary = Summarise(model, request.file);
    return WriteResult(request.json ? ToJson(summary) : ToText(summary)) ? kSuccess : kFailure;
}

}  // namespace

void AddInfoCommand(CLI::App& program, Run& run)
{
    CLI::App* const command = program.add_subcommand("info", "Show what a scene file holds");
    const auto request = std::make_shared<InfoRequest>();
    command->add_option("FILE", request->file, "A .vkt or .xld file, text or binary")->required();
    command->add_flag("--json", request->json, "Print one JSON object instead of text");
    command->add_flag("--verbose", request->verbose, "Show each message of the library");
    command->footer("Example:\n  vkt info robot.vkt --json");
    command->callback([request, &run] { run = [request](Log& log) { return ShowInfo(*request, log); }; });
}

}  // namespace tool
