#pragma once

#include "VKT/rigging/NodeCollection.h"

namespace VKT {

// What is rendered together.
class XRenderLayer final : public XNodeClass<XRenderLayer, XNodeCollection, kFnRenderLayer> {
public:
    using XNodeClass::XNodeClass;
};

}  // namespace VKT
