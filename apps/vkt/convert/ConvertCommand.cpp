#include <CLI/CLI.hpp>
#include <algorithm>
#include <memory>
#include <string>

#include "VKT/document/Model.h"
#include "common/Command.h"
#include "common/Log.h"
#include "common/OutputFile.h"
#include "common/SceneFile.h"
#include "common/TerminalText.h"

namespace tool {
namespace {

struct ConvertRequest {
    std::string in;
    std::string out;
    bool ascii = false;
    bool binary = false;
    bool noCycles = false;
    bool strict = false;
    bool verbose = false;
};

FileForm FormFor(const ConvertRequest& request)
{
    if (request.ascii || request.binary)
        return request.ascii ? FileForm::Text : FileForm::Binary;
    return FormOf(request.in).value_or(FileForm::Text);
}

template <class Dropped>
void SayDropped(const std::string& path, const char* what, const VKT::XDroppedList<Dropped>& dropped,
                Log& log)
{
    const VKT::u32 count = dropped.GetCount();
    const auto& listed = dropped.GetFirst();
    if (count == 0)
        return;
    constexpr std::size_t kShown = 10;
    log.Say(Quoted(path) + ": " + Counted(count, what) + (count == 1 ? " was" : " were") + " dropped");
    const std::size_t shown = log.IsVerbose() ? listed.size() : std::min(listed.size(), kShown);
    for (std::size_t i = 0; i < shown; ++i)
        log.Say("  " + DescribeDropped(listed[i]));
    if (shown < count)
        log.Say("  ... and " + std::to_string(count - shown) + " more" +
                (log.IsVerbose() ? "" : " (--verbose lists them)"));
}

int Save(VKT::XModel& model, const OutputFile& out, Log& log)
{
    log.ShowProgress("writing " + out.GetPath());
    return out.Replace(log, [&](const std::string& path) {
        const VKT::XFileResult result = model.Save(path.c_str());
        return result == VKT::FileOk ? kSuccess : out.SayWriteFailed(path, result, log);
    });
}

int Convert(const ConvertRequest& request, Log& log)
{
    log.SetVerbose(request.verbose);
    const OutputFile out(request.out);
    if (const int refusal = out.Check(request.in, true, log))
        return refusal;
    const FileForm form = FormFor(request);
    VKT::XModel model;
    if (const int failure = LoadScene(model, request.in, log, !request.noCycles))
        return failure;
    const VKT::XLoadReport& report = model.GetLoadReport();
    SayDropped(request.in, "chunk", report.GetChunks(), log);
    SayDropped(request.in, "reference", report.GetReferences(), log);
    if (request.strict && report.GetChunks().GetCount() + report.GetReferences().GetCount() > 0)
        return kFailure;
    if (form == FileForm::Text) {
        model.GetSaveFlags().Set(VKT::SaveAscii);
        if (!model.GetImages().empty())
            log.Say("the images of " + Quoted(request.in) + " are left out: a text file holds none");
    } else {
        model.GetSaveFlags().Clear(VKT::SaveAscii);
    }
    return Save(model, out, log);
}

}  // namespace

void AddConvertCommand(CLI::App& program, Run& run)
{
    CLI::App* const command =
        program.add_subcommand("convert", "Write a scene file in its text or binary form");
    const auto request = std::make_shared<ConvertRequest>();
    command->add_option("IN", request->in, "The file to read")->required();
    command->add_option("OUT", request->out, "The file to write; ends in .vkt or .xld")
        ->required()
        ->check(IsScenePath());
    CLI::Option* const ascii = command->add_flag("--ascii", request->ascii, "Write text");
    command->add_flag("--binary", request->binary, "Write binary")->excludes(ascii);
    command->add_flag("--no-cycles", request->noCycles, "Leave animation cycles and takes out");
    command->add_flag("--strict", request->strict, "Write nothing when a part of IN cannot be used");
    command->add_flag("--verbose", request->verbose, "Show each message of the library");
    command->footer(
        "Without --ascii or --binary, OUT has the form of IN.\n\n"
        "Example:\n  vkt convert robot.vkt robot-binary.vkt --binary");
    command->callback([request, &run] { run = [request](Log& log) { return Convert(*request, log); }; });
}

}  // namespace tool
