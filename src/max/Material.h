#pragma once

#include <vector>

#include "max/HostTypes.h"

namespace VKTMax {

// A material of the host. A multi-material is the list of its sub-materials, which may
// have gaps (null) and may be empty.
struct HostMaterial {
    Mtl* handle = nullptr;
    bool isMulti = false;
    std::vector<Mtl*> subMaterials;

    explicit operator bool() const { return handle != nullptr; }
};

// Empty for null.
HostMaterial ReadMaterial(Mtl* material);

}  // namespace VKTMax
