#include "exporter/deformers/ModifierTable.h"

#include <algorithm>
#include <iterator>

namespace VKTMax {
namespace {

constexpr HostClass kDeforming[] = {kPhysique, kSkin, kMorpher};

}  // namespace

bool IsDeforming(HostClass modifier)
{
    return std::find(std::begin(kDeforming), std::end(kDeforming), modifier) != std::end(kDeforming);
}

}  // namespace VKTMax
