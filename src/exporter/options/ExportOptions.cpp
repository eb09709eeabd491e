#include "exporter/options/ExportOptions.h"

namespace VKTMax {

ExportOptions& GetExportOptions()
{
    static ExportOptions options;
    return options;
}

}  // namespace VKTMax
