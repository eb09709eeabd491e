#include "exporter/options/OptionsDialog.h"

#include <utility>

#include "exporter/options/ExportConfig.h"

namespace VKTMax {
namespace {

OptionsDialog& InstalledDialog()
{
    static OptionsDialog dialog;
    return dialog;
}

}  // namespace

DialogResult ShowExportOptions(void* parent)
{
    ReadExportConfig(ExportConfigPath());
    return InstalledDialog() ? InstalledDialog()(parent) : kDialogAccepted;
}

void SetOptionsDialog(OptionsDialog dialog)
{
    InstalledDialog() = std::move(dialog);
}

}  // namespace VKTMax
