#pragma once

#include <functional>

namespace CLI {
class App;
}

namespace tool {

class Log;

// Exit statuses besides 2 to 5, which are the `XFileResult` of the load or save that
// failed.
enum ExitStatus : int { kSuccess = 0, kFailure = 1, kWrongUsage = 64 };

// What a command line asks for. Answers the exit status.
using Run = std::function<int(Log&)>;

// Each adds one command to the program. When the command line holds it, parsing sets
// `run`, whose target outlives the parser.
void AddInfoCommand(CLI::App& program, Run& run);
void AddTreeCommand(CLI::App& program, Run& run);
void AddDiffCommand(CLI::App& program, Run& run);
void AddValidateCommand(CLI::App& program, Run& run);
void AddConvertCommand(CLI::App& program, Run& run);
void AddExportCommand(CLI::App& program, Run& run);
void AddCurvesCommand(CLI::App& program, Run& run);
void AddTypesCommand(CLI::App& program, Run& run);

}  // namespace tool
