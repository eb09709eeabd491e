#include "exporter/deformers/ModifierTable.h"

#include <algorithm>

namespace VKTMax {
namespace {

struct ModifierRow {
    HostClass type;
};

// The modifiers that the exporter knows. All of them deform.
constexpr ModifierRow kModifiers[] = {{kPhysique}, {kSkin}, {kMorpher}};

}  // namespace

bool IsDeforming(HostClass modifier)
{
    return std::ranges::find(kModifiers, modifier, &ModifierRow::type) != std::end(kModifiers);
}

}  // namespace VKTMax
