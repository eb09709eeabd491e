#include <CLI/CLI.hpp>
#include <algorithm>
#include <memory>
#include <string>

#include "VKT/document/Model.h"
#include "common/Command.h"
#include "common/Log.h"
#include "common/Output.h"
#include "common/SceneFile.h"
#include "validate/Validation.h"

namespace tool {
namespace {

struct ValidateRequest {
    std::string file;
    bool verbose = false;
};

int ShowFindings(const ValidateRequest& request, Log& log)
{
    log.SetVerbose(request.verbose);
    VKT::XModel model;
    if (const int failure = LoadScene(model, request.file, log))
        return failure;
    log.ShowProgress("checking");
    const std::vector<Finding> findings = Validate(model);
    log.Flush();
    const bool isSound = std::none_of(findings.begin(), findings.end(), [](const Finding& finding) {
        return finding.severity == Severity::kError;
    });
    return WriteResult(ToText(findings)) && isSound ? kSuccess : kFailure;
}

}  // namespace

void AddValidateCommand(CLI::App& program, Run& run)
{
    CLI::App* const command =
        program.add_subcommand("validate", "Show what is suspicious or broken in a scene file");
    const auto request = std::make_shared<ValidateRequest>();
    command->add_option("FILE", request->file, "A .vkt or .xld file, text or binary")->required();
    command->add_flag("--verbose", request->verbose, "Show each message of the library");
    command->footer(
        "Each line names a node, what is wrong with it, and what readers do about it.\n"
        "Exit status 1 when anything is an error.\n\n"
        "Example:\n  vkt validate robot.vkt");
    command->callback([request, &run] { run = [request](Log& log) { return ShowFindings(*request, log); }; });
}

}  // namespace tool
