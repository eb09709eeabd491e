#pragma once

#include "VKT/lights/ExtendedLight.h"

namespace VKT {

// A rectangle of light, as large as the bone above it scales it.
class XAreaLight : public XNodeClass<XAreaLight, XExtendedLight, kFnAreaLight> {
public:
    using XNodeClass::XNodeClass;
};

}  // namespace VKT
