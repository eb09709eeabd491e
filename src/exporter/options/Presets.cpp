#include "exporter/options/Presets.h"

#include "exporter/options/OptionTable.h"

namespace VKTMax {
namespace {

void ApplyPreset(std::optional<i32> ExportOption::*preset)
{
    for (const ExportOption& option : ListExportOptions()) {
        const std::optional<i32> value = option.*preset;
        if (!value)
            continue;
        const auto store = [value]<class T>(OptionAccess<T> access) {
            (GetExportOptions().*access.set)(static_cast<T>(*value));
        };
        std::visit(store, option.access);
    }
}

}  // namespace

void ApplyRigPreset()
{
    ApplyPreset(&ExportOption::rig);
}

void ApplyAnimationPreset()
{
    ApplyPreset(&ExportOption::animation);
}

}  // namespace VKTMax
