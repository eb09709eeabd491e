#pragma once

#include "VKT/shading/Specular.h"

namespace VKT {

// A glossy material whose highlight is the power of a cosine: the only one whose files
// hold the shininess.
class XPhong : public XNodeClass<XPhong, XSpecular, kFnPhong> {
public:
    using XNodeClass::XNodeClass;

    static XBodyTable TextBody();
    static XBodyTable BinaryBody();
};

}  // namespace VKT
