#pragma once

#include "VKT/hierarchy/Shape.h"

namespace VKT {

// The base of analytic volumes that hang under a transform.
class XVolumeObject : public XNodeClass<XVolumeObject, XShape, kFnVolumeObject> {
public:
    using XNodeClass::XNodeClass;
};

}  // namespace VKT
