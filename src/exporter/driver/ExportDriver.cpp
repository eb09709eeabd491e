#include "exporter/driver/ExportDriver.h"

#include <cstdio>
#include <filesystem>

#include "VKT/document/Model.h"
#include "VKT/node/FnRegistry.h"
#include "exporter/options/ExportConfig.h"
#include "exporter/options/ExportOptions.h"
#include "exporter/options/OptionsDialog.h"
#include "exporter/walk/BindPose.h"
#include "exporter/walk/SceneWalk.h"
#include "max/Application.h"
#include "max/NativePath.h"

namespace VKTMax {
namespace {

void DeleteFileOf(const std::string& path)
{
    std::error_code ignored;
    if (!std::filesystem::is_directory(path, ignored))
        std::remove(path.c_str());
}

void WalkScene(VKTExportCore& core, INode* root)
{
    const ExportOptions& store = GetExportOptions();
    const WalkScope scope{.modifiers = store.GetIncludeModifiers(),
                          .materials = store.GetIncludeMaterials(),
                          .textures = store.GetIncludeTextures()};
    if (core.IsSelectedOnly())
        ExportSelectedNodes(core, root, scope);
    else
        ExportAllNodes(core, root, scope);
}

void FixPose(VKTExportCore& core)
{
    if (GetExportOptions().GetUseCurrentPoseAsBindpose())
        RebuildBindPoseFromCurrent(core);
    else
        ApplyBindPose(core);
}

void Save(VKT::XModel& model, const std::string& path)
{
    if (GetExportOptions().GetExportAscii())
        model.GetSaveFlags().Set(VKT::SaveAscii);
    else
        model.GetSaveFlags().Clear(VKT::SaveAscii);
    model.Save(path.c_str());
}

}  // namespace

bool RunExport(Interface* application, const ExportRequest& request)
{
    if (!request.suppressPrompts && ShowExportOptions(ActiveWindow()) == kDialogCancelled)
        return true;
    const std::string path = NativePath(request.path);
    DeleteFileOf(path);
    // Registering anew keeps whatever logger is in use.
    if (!VKT::XRegisterTypes(VKT::GetLogger()))
        return false;

    VKT::XModel model;
    VKTExportCore core(model, request.selectedOnly);
    WalkScene(core, RootNodeOf(application));
    FixPose(core);
    // Animation is not exported yet, whatever `IncludeAnimation` says.
    Save(model, path);
    WriteExportConfig(ExportConfigPath());
    VKT::XFnShutdown();
    return true;
}

}  // namespace VKTMax
