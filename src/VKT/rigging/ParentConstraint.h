#pragma once

#include "VKT/rigging/Constraint.h"

namespace VKT {

// Moves and turns the constrained node as a child of its targets.
class XParentConstraint final : public XNodeClass<XParentConstraint, XConstraint, kFnParentConstraint> {
public:
    using XNodeClass::XNodeClass;
};

}  // namespace VKT
