#pragma once

#include "VKT/hierarchy/Shape.h"

namespace VKT {

// A shape without an extent: it marks the place of a helper.
class XLocator final : public XNodeClass<XLocator, XShape, kFnLocator> {
public:
    using XNodeClass::XNodeClass;
};

}  // namespace VKT
