#pragma once

#include <functional>

namespace VKTMax {

// How the options dialog ended. The numbers are what the dialog answers.
enum DialogResult { kDialogAccepted = 0, kDialogCancelled = 1 };

// Reads the configuration file into the store, as every opening of the dialog does, and
// runs the dialog on it. `parent` is the window that it stands before (a HWND).
//
// There is no dialog yet, on no system: until one is set, the options are taken as they
// stand and the answer is `kDialogAccepted`.
DialogResult ShowExportOptions(void* parent);

// What runs as the dialog, over the store that has been read; none accepts at once.
using OptionsDialog = std::function<DialogResult(void* parent)>;
void SetOptionsDialog(OptionsDialog dialog);

}  // namespace VKTMax
