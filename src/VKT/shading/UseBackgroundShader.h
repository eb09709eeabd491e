#pragma once

#include "VKT/shading/Material.h"

namespace VKT {

// A material that shows the background behind it, to catch shadows.
class XUseBackgroundShader : public XNodeClass<XUseBackgroundShader, XMaterial, kFnUseBackgroundShader> {
public:
    using XNodeClass::XNodeClass;

    static XBodyTable OldTextBody();
    static XBodyTable OldBinaryBody();
};

}  // namespace VKT
