#pragma once

#include "VKT/geometry/Geometry.h"

namespace VKT {

// The base of curves and surfaces. Their control vertices are the points of the geometry.
// The library stores the description and evaluates nothing.
class XParametricBase : public XNodeClass<XParametricBase, XGeometry, kFnParametricBase> {
public:
    using XNodeClass::XNodeClass;
};

}  // namespace VKT
