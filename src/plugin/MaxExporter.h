#pragma once

#include <max.h>

namespace VKTMax {

// The file format as the host's export command sees it. The host makes one for each
// export, through the class's descriptor, and deletes it.
class VKTMaxExporter final : public SceneExport {
public:
    int ExtCount() override { return 1; }
    const MCHAR* Ext(int) override { return "vkt"; }
    const MCHAR* LongDesc() override { return "VKT file exporter"; }
    const MCHAR* ShortDesc() override { return "VKT"; }
    const MCHAR* AuthorName() override { return "VKT developers"; }
    const MCHAR* CopyrightMessage() override { return "Copyright VKT developers"; }
    const MCHAR* OtherMessage1() override { return ""; }
    const MCHAR* OtherMessage2() override { return ""; }
    unsigned int Version() override { return 400; }
    void ShowAbout(HWND) override {}
    // Every option of the host is welcome, so that it offers to export the selection.
    BOOL SupportsOptions(int, DWORD) override { return TRUE; }

    // Exports the scene, or with bit 0 of `options` its selection, to the file. Unless
    // prompts are suppressed the options dialog comes first. Fails only when the node
    // types can't be registered: a cancelled dialog and a failed save are successes, too.
    int DoExport(const MCHAR* name, ExpInterface* ei, Interface* i, BOOL suppressPrompts,
                 DWORD options) override;
};

}  // namespace VKTMax
