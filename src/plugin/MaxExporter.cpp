#include "plugin/MaxExporter.h"

#include "exporter/driver/ExportDriver.h"
#include "max/Text.h"

namespace VKTMax {

int VKTMaxExporter::DoExport(const MCHAR* name, ExpInterface*, Interface* i, BOOL suppressPrompts,
                             DWORD options)
{
    const ExportRequest request{.path = TextOrEmpty(name),
                                .suppressPrompts = suppressPrompts != FALSE,
                                .selectedOnly = (options & SCENE_EXPORT_SELECTED) != 0};
    return RunExport(i, request) ? IMPEXP_SUCCESS : IMPEXP_FAIL;
}

}  // namespace VKTMax
