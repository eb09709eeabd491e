#pragma once

#include <string>

#include "max/HostTypes.h"

namespace VKTMax {

// What the host asks of one export.
struct ExportRequest {
    std::string path;              // of the file, as the host writes paths
    bool suppressPrompts = false;  // no dialog may be shown
    bool selectedOnly = false;
};

// Exports the scene of the application, or its selection, from the options dialog to the
// saved file. False only when the node types can't be registered: a cancelled dialog and a
// failed save are successes, too.
bool RunExport(Interface* application, const ExportRequest& request);

}  // namespace VKTMax
