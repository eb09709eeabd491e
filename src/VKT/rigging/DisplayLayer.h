#pragma once

#include "VKT/rigging/NodeCollection.h"

namespace VKT {

// What is shown or hidden together.
class XDisplayLayer final : public XNodeClass<XDisplayLayer, XNodeCollection, kFnDisplayLayer> {
public:
    using XNodeClass::XNodeClass;
};

}  // namespace VKT
