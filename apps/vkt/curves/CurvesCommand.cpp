#include <CLI/CLI.hpp>
#include <cstdio>
#include <filesystem>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "VKT/animation/AnimCycle.h"
#include "VKT/animation/AnimationTake.h"
#include "VKT/document/Model.h"
#include "common/Command.h"
#include "common/Log.h"
#include "common/Output.h"
#include "common/OutputFile.h"
#include "common/SceneFile.h"
#include "common/TerminalText.h"
#include "curves/Plot.h"

namespace tool {
namespace {

struct CurvesRequest {
    std::string file;
    std::optional<std::string> take;
    std::optional<std::string> node;
    std::string out;
    bool verbose = false;
};

using Takes = std::vector<const VKT::XAnimationTake*>;

Takes TakesOf(const VKT::XModel& model)
{
    Takes out;
    for (const auto& [name, node] : model.GetNodes())
        if (const auto* take = VKT::XCast<VKT::XAnimationTake>(node))
            out.push_back(take);
    return out;
}

std::string NamesOf(const Takes& takes)
{
    constexpr std::size_t kShown = 10;
    std::string out;
    for (std::size_t i = 0; i < std::min(takes.size(), kShown); ++i)
        out += (i == 0 ? "" : ", ") + Quoted(takes[i]->GetName());
    return takes.size() > kShown ? out + ", ..." : out;
}

// The take to draw, the first one unless another is asked for. Null when there is none,
// and the reason is said.
const VKT::XAnimationTake* ChooseTake(const VKT::XModel& model, const CurvesRequest& request, Log& log)
{
    const Takes takes = TakesOf(model);
    if (takes.empty()) {
        const std::size_t cycles = model.GetCycles().size();
        log.Say(Quoted(request.file) + " holds no take" + (cycles > 0 ? ", and cycles are not drawn" : ""));
        return nullptr;
    }
    if (!request.take) {
        if (takes.size() > 1)
            log.Say(Quoted(takes[0]->GetName()) + " is drawn; the takes are " + NamesOf(takes));
        return takes[0];
    }
    for (const VKT::XAnimationTake* take : takes)
        if (*request.take == take->GetName())
            return take;
    log.Say(Quoted(request.file) + " holds no take " + Quoted(*request.take) + "; the takes are " +
            NamesOf(takes));
    return nullptr;
}

// Why a take has nothing to draw.
std::string EmptinessOf(const VKT::XModel& model, const CurvesRequest& request,
                        const VKT::XAnimationTake& take)
{
    const std::string name = "take " + Quoted(take.GetName());
    if (!request.node)
        return name + " animates nothing";
    if (!model.FindNode(*request.node))
        return Quoted(request.file) + " holds no node " + Quoted(*request.node);
    return name + " does not animate " + Quoted(*request.node);
}

int Write(const std::string& text, const OutputFile& out, Log& log)
{
    return out.Replace(log, [&](const std::string& path) {
        std::FILE* const stream = std::fopen(path.c_str(), "wb");
        bool isWhole = stream && std::fwrite(text.data(), 1, text.size(), stream) == text.size();
        isWhole = stream && std::fclose(stream) == 0 && isWhole;
        return isWhole ? kSuccess : out.SayWriteFailed(path, VKT::FileCorrupt, log);
    });
}

int DrawCurves(const CurvesRequest& request, Log& log)
{
    log.SetVerbose(request.verbose);
    const OutputFile out(request.out);
    if (const int refusal = out.Check(request.file, false, log))
        return refusal;
    VKT::XModel model;
    if (const int failure = LoadScene(model, request.file, log))
        return failure;
    const VKT::XAnimationTake* const take = ChooseTake(model, request, log);
    if (!take)
        return kFailure;
    log.ShowProgress("drawing " + Quoted(take->GetName()));
    const Plot plot = PlotTake(*take, request.node);
    if (plot.panels.empty()) {
        log.Say(EmptinessOf(model, request, *take));
        return kFailure;
    }
    if (plot.numHiddenPanels > 0)
        log.Say("the first " + std::to_string(plot.panels.size()) + " of " +
                Counted(plot.panels.size() + plot.numHiddenPanels, "attribute") +
                " are drawn (--node draws those of one node)");
    log.Flush();
    return Write(ToSvg(plot), out, log);
}

CLI::Validator IsSvgPath()
{
    const auto check = [](const std::string& path) {
        return std::filesystem::path(path).extension() == ".svg" ? "" : "must end in .svg: " + path;
    };
    return CLI::Validator(check, "", "SvgPath");
}

}  // namespace

void AddCurvesCommand(CLI::App& program, Run& run)
{
    CLI::App* const command = program.add_subcommand("curves", "Draw the animation of a take");
    const auto request = std::make_shared<CurvesRequest>();
    command->add_option("FILE", request->file, "A .vkt or .xld file, text or binary")->required();
    command->add_option("--take", request->take, "The take to draw; by default the first by name");
    command->add_option("--node", request->node, "Draw what is animated of this node alone");
    command->add_option("-o", request->out, "The picture to write; ends in .svg")
        ->required()
        ->check(IsSvgPath());
    command->add_flag("--verbose", request->verbose, "Show each message of the library");
    command->footer("Example:\n  vkt curves robot.vkt --take walk -o walk.svg");
    command->callback([request, &run] { run = [request](Log& log) { return DrawCurves(*request, log); }; });
}

}  // namespace tool
