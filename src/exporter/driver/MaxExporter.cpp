#include "exporter/driver/MaxExporter.h"

#include <cstdio>
#include <filesystem>
#include <string>

#include "VKT/node/FnRegistry.h"
#include "exporter/options/ExportConfig.h"
#include "exporter/options/ExportOptions.h"
#include "exporter/options/OptionsDialog.h"
#include "exporter/walk/ExportCore.h"
#include "max/NativePath.h"

namespace VKTMax {
namespace {

void DeleteFileOf(const std::string& path)
{
    std::error_code ignored;
    if (!std::filesystem::is_directory(path, ignored))
        std::remove(path.c_str());
}

void WalkScene(VKTExportCore& core, INode* root, bool selectedOnly)
{
    const ExportOptions& store = GetExportOptions();
    const WalkScope scope{.modifiers = store.GetIncludeModifiers(),
                          .materials = store.GetIncludeMaterials(),
                          .textures = store.GetIncludeTextures()};
    if (selectedOnly)
        core.ExportSelectedNodes(root, scope);
    else
        core.ExportAllNodes(root, scope);
}

void FixPose(VKTExportCore& core)
{
    if (GetExportOptions().GetUseCurrentPoseAsBindpose())
        core.RebuildBindPoseFromCurrent();
    else
        core.ApplyBindPose();
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

int VKTMaxExporter::DoExport(const MCHAR* name, ExpInterface*, Interface* i, BOOL suppressPrompts,
                             DWORD options)
{
    if (!suppressPrompts && ShowExportOptions(ActiveWindow()) == kDialogCancelled)
        return IMPEXP_SUCCESS;
    const std::string path = NativePath(name);
    DeleteFileOf(path);
    // Registering anew keeps whatever logger is in use.
    if (!VKT::XRegisterTypes(VKT::GetLogger()))
        return IMPEXP_FAIL;

    VKT::XModel model;
    const bool selectedOnly = (options & SCENE_EXPORT_SELECTED) != 0;
    VKTExportCore core(model, selectedOnly);
    WalkScene(core, RootNodeOf(i), selectedOnly);
    FixPose(core);
    // Animation is not exported yet, whatever `IncludeAnimation` says.
    Save(model, path);
    WriteExportConfig(ExportConfigPath());
    VKT::XFnShutdown();
    return IMPEXP_SUCCESS;
}

}  // namespace VKTMax
