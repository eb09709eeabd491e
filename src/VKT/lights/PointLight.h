#pragma once

#include "VKT/lights/ExtendedLight.h"

namespace VKT {

// Light from one point to all sides.
class XPointLight : public XNodeClass<XPointLight, XExtendedLight, kFnPointLight> {
public:
    using XNodeClass::XNodeClass;
};

}  // namespace VKT
