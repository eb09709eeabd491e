#pragma once

#include "VKT/geometry/ParametricSurface.h"

namespace VKT {

// A Bezier patch.
//
// Kept on purpose: its text form lacks the numbers of control vertices and the kinds,
// which only the text of a NURBS surface has.
class XBezierPatch final : public XNodeClass<XBezierPatch, XParametricSurface, kFnBezierPatch> {
public:
    using XNodeClass::XNodeClass;
};

}  // namespace VKT
