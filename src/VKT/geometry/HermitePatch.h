#pragma once

#include "VKT/geometry/ParametricSurface.h"

namespace VKT {

// A Hermite patch.
//
// Kept on purpose: its text form lacks the numbers of control vertices and the kinds,
// which only the text of a NURBS surface has.
class XHermitePatch final : public XNodeClass<XHermitePatch, XParametricSurface, kFnHermitePatch> {
public:
    using XNodeClass::XNodeClass;
};

}  // namespace VKT
