#include <CLI/CLI.hpp>
#include <algorithm>
#include <filesystem>
#include <iterator>
#include <memory>
#include <optional>
#include <set>
#include <string>
#include <vector>

#include "VKT/document/Model.h"
#include "common/Command.h"
#include "common/Log.h"
#include "common/MessageCatcher.h"
#include "common/Output.h"
#include "common/OutputFile.h"
#include "common/SceneFile.h"
#include "common/TerminalText.h"
#include "export/ExportReport.h"
#include "export/HostSession.h"
#include "export/ReaderWarnings.h"
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

// Reads the file into the host's scene. None after a message.
std::optional<SceneContent> OpenScene(const std::string& path, Log& log)
{
    log.ShowProgress("reading " + path);
    io::ReadResult read = io::ReadSceneFile(path);
    if (!read.Succeeded()) {
        log.Say(read.error);
        return std::nullopt;
    }
    io::BuildReport built = io::BuildScene(read.scene);
    SceneContent content{.warnings = std::move(read.scene.warnings),
                         .materials = read.scene.materials.size(),
                         .animations = read.scene.animations.size()};
    std::move(built.warnings.begin(), built.warnings.end(), std::back_inserter(content.warnings));
    return content;
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

// Reads the written file: what an export came to is known by that alone. Of a file that a
// full disk cut off, the disk is told, not all that the cut brings about.
int Load(VKT::XModel& document, const OutputFile& out, const std::string& path, Log& log)
{
    log.ShowProgress("checking " + out.GetPath());
    MessageCatcher messages;
    const VKT::XFileResult result = document.Load(path.c_str());
    const bool isDiskFull = result != VKT::FileOk && OutputFile::TryMore(path);
    for (const auto& [level, text] : messages.Messages())
        if (log.IsVerbose() || (level != VKT::kInfo && !isDiskFull))
            log.LogString(level, text);
    return result == VKT::FileOk ? kSuccess : out.SayWriteFailed(path, result, log);
}

std::string Report(const ExportRequest& request, const VKT::XModel& document, const SceneContent& content)
{
    std::string out = CleanText(request.out) + ": " + DescribeDocument(document) + "\n";
    std::vector<ExportLoss> findings =
        FindLosses(*HeadlessHost::Get().GetInterface().GetRootNode(), document, !request.selected.empty());
    findings.push_back(FindAbsent(content, document));
    findings.push_back({"warnings of the reader", content.warnings.size(),
                        request.verbose ? content.warnings : FoldWarnings(content.warnings)});
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

int Write(HostSession& session, const ExportRequest& request, const OutputFile& out, VKT::XModel& document,
          Log& log)
{
    return out.Replace(log, [&](const std::string& path) {
        if (!CanPluginName(path)) {
            log.Say("the plug-in cannot write to a folder with \\ in its name: " + Quoted(request.out));
            return static_cast<int>(kFailure);
        }
        log.ShowProgress("exporting " + request.out);
        if (!session.Export(path, !request.selected.empty()))
            return static_cast<int>(kFailure);
        return Load(document, out, path, log);
    });
}

int Export(const ExportRequest& request, Log& log)
{
    log.SetVerbose(request.verbose);
    const OutputFile out(request.out);
    if (const int refusal = out.Check(request.scene, false, log))
        return refusal;
    if (CheckInput(request.scene, log) != 0)
        return kFailure;
    HostSession session(log);
    if (!session.LoadPlugin(request.plugin))
        return kFailure;
    const std::optional<SceneContent> content = OpenScene(request.scene, log);
    if (!content || !SelectNodes(request.selected, log))
        return kFailure;
    VKT::XModel document;
    if (const int status = Write(session, request, out, document, log))
        return status;
    log.Flush();
    return WriteResult(Report(request, document, *content)) ? kSuccess : kFailure;
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
