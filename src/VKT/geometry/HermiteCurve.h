#pragma once

#include "VKT/geometry/ParametricCurve.h"

namespace VKT {

// A Hermite curve: its points and the kind of the curve are all of it.
class XHermiteCurve final : public XNodeClass<XHermiteCurve, XParametricCurve, kFnHermiteCurve> {
public:
    using XNodeClass::XNodeClass;
};

}  // namespace VKT
