#pragma once

#include "VKT/hierarchy/Bone.h"

namespace VKT {

// A place for textures in space: a bone whose transform is that of the texture.
class XTexPlacement3D : public XNodeClass<XTexPlacement3D, XBone, kFnTexPlacement3D> {
public:
    using XNodeClass::XNodeClass;
};

}  // namespace VKT
