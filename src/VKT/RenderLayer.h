#pragma once

#include "VKT/NodeCollection.h"

namespace VKT {

// What is rendered together.
class XRenderLayer final : public XNodeClass<XRenderLayer, XNodeCollection, kFnRenderLayer> {
public:
    using XNodeClass::XNodeClass;
};

}  // namespace VKT
