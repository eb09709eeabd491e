#include <CLI/CLI.hpp>
#include <exception>
#include <iostream>

#include "VKT/node/FnRegistry.h"
#include "common/Command.h"
#include "common/Log.h"

namespace {

// Prints what the parser stopped for. Help and version are no failures, unless they can't be
// printed.
int StopParsing(const CLI::App& program, const CLI::ParseError& reason)
{
    if (program.exit(reason, std::cout, std::cerr) != 0)
        return tool::kWrongUsage;
    return std::cout.flush() ? tool::kSuccess : tool::kFailure;
}

}  // namespace

int main(int argc, char** argv)
{
    CLI::App program("Reads, writes and makes scene files (.vkt, .xld)", "vkt");
    program.set_version_flag("--version", "vkt " VKT_VERSION);
    program.require_subcommand(0,
                               1);  // without one, below: the parser would not name a word it does not know
    program.footer("vkt COMMAND --help tells more.\n\nExample:\n  vkt export robot.gltf robot.vkt");
    tool::Run run;
    tool::AddInfoCommand(program, run);
    tool::AddTreeCommand(program, run);
    tool::AddDiffCommand(program, run);
    tool::AddValidateCommand(program, run);
    tool::AddConvertCommand(program, run);
    tool::AddCurvesCommand(program, run);
    tool::AddExportCommand(program, run);
    tool::AddTypesCommand(program, run);
    try {
        program.parse(argc, argv);
    } catch (const CLI::ParseError& reason) {
        return StopParsing(program, reason);
    }
    if (!run) {
        std::cerr << program.help();
        return tool::kWrongUsage;
    }

    tool::Log log;
    VKT::XRegisterTypes(&log);
    int status = tool::kFailure;
    try {
        status = run(log);
    } catch (const std::exception& error) {
        log.Say(error.what());
    }
    VKT::XFnShutdown();
    VKT::SetLogger(nullptr);
    return status;
}
