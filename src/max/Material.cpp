#include "max/Material.h"

#include <max.h>
// The umbrella header leaves this out.
#include <imtl.h>

namespace VKTMax {

HostMaterial ReadMaterial(Mtl* material)
{
    HostMaterial out;
    out.handle = material;
    if (!material || !material->IsMultiMtl())
        return out;
    out.isMulti = true;
    const int count = material->NumSubMtls();
    for (int i = 0; i < count; ++i)
        out.subMaterials.push_back(material->GetSubMtl(i));
    return out;
}

}  // namespace VKTMax
