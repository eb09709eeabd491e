#include <CLI/CLI.hpp>
#include <algorithm>
#include <filesystem>
#include <iterator>
#include <memory>
#include <set>
#include <string>
#include <vector>

#include "VKT/document/Model.h"
#include "common/Command.h"
#include "common/Log.h"
#include "common/Output.h"
#include "common/ReplacedFile.h"
#include "common/SceneFile.h"
#include "common/TerminalText.h"
#include "export/ExportReport.h"
#include "export/HostSession.h"
#include "host/app/HeadlessHost.h"
#include "host/io/BuildScene.h"
#include "host/io/SceneReader.h"

namespace tool {
namespace {

namespace io = maxhost::io;
using maxhost::HeadlessHost;

struct ExportRequest {
    std::string scene;
    std::string out;
    std::vector<std::string> selected;
    std::string plugin;
    bool verbose = false;
};

// What a scene file holds beside the host's scene that was built of it.
struct SceneContent {
    ExportLoss warnings;
    std::size_t materials = 0;
    std::size_t animations = 0;
};

// Reads the file into the host's scene. False after a message.
bool OpenScene(const std::string& path, SceneContent& content, Log& log)
{
    log.ShowProgress("reading " + path);
    io::ReadResult read = io::ReadSceneFile(path);
    if (!read.Succeeded()) {
        log.Say(read.error);
        return false;
    }
    io::BuildReport built = io::BuildScene(read.scene);
    content.warnings = {"warnings of the reader", std::move(read.scene.warnings)};
    std::move(built.warnings.begin(), built.warnings.end(), std::back_inserter(content.warnings.lines));
    content.materials = read.scene.materials.size();
    content.animations = read.scene.animations.size();
    return true;
}

// Selects the nodes of those names, all of a name where several bear it. False after a
// message when there is none of a name.
bool SelectNodes(const std::vector<std::string>& names, Log& log)
{
    Interface& host = HeadlessHost::Get().GetInterface();
    std::set<std::string> missing(names.begin(), names.end());
    const std::set<std::string> wanted = missing;
    std::vector<INode*> pending{host.GetRootNode()};
    while (!pending.empty()) {
        INode* const node = pending.back();
        pending.pop_back();
        if (!node->IsRootNode() && wanted.contains(node->GetName())) {
            host.SelectNode(node, FALSE);
            missing.erase(node->GetName());
        }
        for (int i = 0; i < node->NumberOfChildren(); ++i)
            pending.push_back(node->GetChildNode(i));
    }
    for (const std::string& name : missing)
        log.Say("the scene has no node " + Quoted(name));
    return missing.empty();
}

// What a document's file came to is known by reading it alone.
int LoadResult(const ReplacedFile& file, const std::string& out, VKT::XModel& document, Log& log)
{
    log.ShowProgress("checking " + out);
    const VKT::XFileResult result = document.Load(file.GetWorkingPath().c_str());
    return result == VKT::FileOk ? kSuccess : log.SaySaveFailed(out, result);
}

// Kinds of things that the scene holds and the document does not at all.
ExportLoss FindAbsent(const SceneContent& content, const VKT::XModel& document)
{
    ExportLoss out{"kinds that were not exported", {}};
    const auto check = [&](std::size_t count, VKT::u32 type, const char* what) {
        VKT::XNodeList exported;
        if (count > 0 && !document.List(exported, type))
            out.lines.push_back(Counted(count, what));
    };
    check(content.materials, VKT::kFnMaterial, "material");
    check(content.animations, VKT::kFnAnimationTake, "animation");
    return out;
}

std::string Report(const ExportRequest& request, const VKT::XModel& document, const SceneContent& content)
{
    std::string out = CleanText(request.out) + ": " + DescribeDocument(document) + "\n";
    std::vector<ExportLoss> findings =
        FindLosses(*HeadlessHost::Get().GetInterface().GetRootNode(), document, !request.selected.empty());
    findings.push_back(FindAbsent(content, document));
    findings.push_back(content.warnings);
    for (const ExportLoss& finding : findings)
        if (!finding.lines.empty())
            out += ToText(finding, request.verbose);
    return out;
}

// On systems with `/` the plug-in takes a `\` in a path for one.
bool CanPluginName(const std::string& path)
{
    return std::filesystem::path::preferred_separator == '\\' || path.find('\\') == std::string::npos;
}

int Export(const ExportRequest& request, Log& log)
{
    log.SetVerbose(request.verbose);
    HostSession session(log);
    SceneContent content;
    if (!session.LoadPlugin(request.plugin) || !OpenScene(request.scene, content, log) ||
        !SelectNodes(request.selected, log))
        return kFailure;

    ReplacedFile file(request.out);
    if (!file.Create())
        return log.SaySaveFailed(request.out, VKT::FileOpenFailed);
    if (!CanPluginName(file.GetWorkingPath())) {
        log.Say("the plug-in cannot write to a folder with \\ in its name: " + file.GetWorkingPath());
        return kFailure;
    }
    log.ShowProgress("exporting " + request.out);
    if (!session.Export(file.GetWorkingPath(), !request.selected.empty()))
        return kFailure;
    VKT::XModel document;
    if (const int status = LoadResult(file, request.out, document, log); status != kSuccess)
        return status;
    if (!file.Commit()) {
        log.Say(Quoted(request.out) + " cannot be replaced");
        return kFailure;
    }
    log.Flush();
    return WriteResult(Report(request, document, content)) ? kSuccess : kFailure;
}

}  // namespace

void AddExportCommand(CLI::App& program, Run& run)
{
    CLI::App* const command =
        program.add_subcommand("export", "Export a scene of another format through the plug-in");
    const auto request = std::make_shared<ExportRequest>();
    command->add_option("SCENE", request->scene, "A .gltf, .glb, .fbx, .dae, .obj, .bvh or .3ds file")
        ->required();
    command->add_option("OUT", request->out, "The file to write; ends in .vkt or .xld")
        ->required()
        ->check(IsScenePath());
    command->add_option("--select", request->selected, "Export nodes of this name alone; repeatable")
        ->allow_extra_args(false);
    command->add_option("--plugin", request->plugin, "The plug-in module, when not beside the program");
    command->add_flag("--verbose", request->verbose, "Show each message, and all of what was left out");
    command->footer("Example:\n  vkt export robot.gltf robot.vkt --select body --select head");
    command->callback([request, &run] { run = [request](Log& log) { return Export(*request, log); }; });
}

}  // namespace tool
