#include <CLI/CLI.hpp>
#include <memory>
#include <string>

#include "VKT/document/Model.h"
#include "common/Command.h"
#include "common/Log.h"
#include "common/Output.h"
#include "common/SceneFile.h"
#include "common/TerminalText.h"
#include "diff/Differences.h"

namespace tool {
namespace {

struct DiffRequest {
    std::string a;
    std::string b;
    double tolerance = 0.0;
    bool json = false;
    bool verbose = false;
};

// Answers the exit status.
int Load(VKT::XModel& model, const std::string& path, Log& log)
{
    if (const int failure = LoadScene(model, path, log))
        return failure;
    if (const VKT::u32 count = model.GetLoadReport().GetChunks().GetCount())
        log.Say(Quoted(path) + ": " + Counted(count, "chunk") + " cannot be read and " +
                (count == 1 ? "is" : "are") + " not compared");
    if (!model.CanSaveAsText()) {
        log.Say(Quoted(path) + " cannot be compared");
        return kFailure;
    }
    return kSuccess;
}

int Diff(const DiffRequest& request, Log& log)
{
    log.SetVerbose(request.verbose);
    VKT::XModel a;
    VKT::XModel b;
    if (const int status = Load(a, request.a, log); status != kSuccess)
        return status;
    if (const int status = Load(b, request.b, log); status != kSuccess)
        return status;
    log.ShowProgress("comparing");
    const std::vector<Difference> differences = FindDifferences(a, b, request.tolerance);
    log.Flush();
    const std::string result = request.json ? ToJson(differences, request.a, request.b, request.tolerance)
                                            : ToText(differences, request.a, request.b);
    return WriteResult(result) && differences.empty() ? kSuccess : kFailure;
}

}  // namespace

void AddDiffCommand(CLI::App& program, Run& run)
{
    CLI::App* const command = program.add_subcommand("diff", "Show where two scene files differ in content");
    const auto request = std::make_shared<DiffRequest>();
    command->add_option("A", request->a, "A .vkt or .xld file, text or binary")->required();
    command->add_option("B", request->b, "The file to compare it with")->required();
    command->add_option("--tolerance", request->tolerance, "How far numbers may differ; 0 by default")
        ->check(CLI::NonNegativeNumber);
    command->add_flag("--json", request->json, "Print one JSON object instead of text");
    command->add_flag("--verbose", request->verbose, "Show each message of the library");
    command->footer(
        "Nodes are matched by name and type. Exit status 1 when the files differ.\n\n"
        "Example:\n  vkt diff robot.vkt robot-binary.vkt --tolerance 1e-5");
    command->callback([request, &run] { run = [request](Log& log) { return Diff(*request, log); }; });
}

}  // namespace tool
