#pragma once

#include <optional>
#include <span>
#include <variant>

#include "exporter/options/ExportOptions.h"

namespace VKTMax {

// The four doors to the store, one row for each option: configuration file, presets,
// options dialog and script properties. What deviates from the table (boxes that open
// unticked, a box that shows another option after a preset) stands with its door.

// How one option is read and set, whatever its type.
template <class T>
struct OptionAccess {
    T (ExportOptions::*get)() const;
    void (ExportOptions::*set)(T);
};

// The control of the options dialog that shows an option.
enum class ControlKind {
    None,     // the dialog does not show it
    Check,    // `id` is a check box
    Radio,    // `id` is the button for on, `partner` the one for off
    Spinner,  // `id` is the spinner, `partner` its edit field; `low` and `high` its range
    List,     // `id` is a drop list; the option is the index of its item
};
struct DialogControl {
    ControlKind kind = ControlKind::None;
    i32 id = 0;
    i32 partner = 0;
    f32 low = 0.0f;
    f32 high = 0.0f;

    bool operator==(const DialogControl&) const = default;
};

// A property of the script interface: the numbers of its functions, and its type by the
// host's number for it.
enum class PropertyType : i32 { Float = 0, Int = 1, TimeValue = 12, Bool = 46 };
struct ScriptProperty {
    i32 get;
    i32 set;
    PropertyType type;

    bool operator==(const ScriptProperty&) const = default;
};

// What there is to know of one option beside its meaning and default.
struct ExportOption {
    const char* name;  // also that of the script property
    std::variant<OptionAccess<bool>, OptionAccess<i32>, OptionAccess<f32>> access;
    i32 since;                     // first version of the configuration file that holds it, or kNotInFile
    std::optional<i32> rig;        // what the rig preset sets; none leaves the option alone
    std::optional<i32> animation;  // the same of the animation preset
    DialogControl control;
    std::optional<ScriptProperty> property;  // none: scripts reach it by configuration files alone
};
inline constexpr i32 kNotInFile = 0;

// All options. Those that the configuration file holds come first, in its order.
std::span<const ExportOption> ListExportOptions();

}  // namespace VKTMax
