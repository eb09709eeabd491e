#pragma once

#include "VKT/geometry/ParametricCurve.h"

namespace VKT {

// A Bezier curve: its points and the kind of the curve are all of it.
class XBezierCurve final : public XNodeClass<XBezierCurve, XParametricCurve, kFnBezierCurve> {
public:
    using XNodeClass::XNodeClass;
};

}  // namespace VKT
