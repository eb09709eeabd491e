#pragma once

#include "VKT/rigging/Constraint.h"

namespace VKT {

// Keeps the constrained node on the surface of its targets.
class XGeometryConstraint final : public XNodeClass<XGeometryConstraint, XConstraint, kFnGeometryConstraint> {
public:
    using XNodeClass::XNodeClass;
};

}  // namespace VKT
