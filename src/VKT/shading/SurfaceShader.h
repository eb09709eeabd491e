#pragma once

#include "VKT/shading/Material.h"

namespace VKT {

// A material without shading: it shows its colour as it is. The base of shaders that are
// made of others.
class XSurfaceShader : public XNodeClass<XSurfaceShader, XMaterial, kFnSurfaceShader> {
public:
    explicit XSurfaceShader(XModel* model);

    XShaderInput& GetTransparency() { return m_Transparency; }
    const XShaderInput& GetTransparency() const { return m_Transparency; }

    static XBodyTable TextBody();
    static XBodyTable BinaryBody() { return TextBody(); }
    static XBodyTable OldTextBody();
    static XBodyTable OldBinaryBody();
    static XPropertyTable Properties();

protected:
    XShaderInput m_Transparency{"transparency"};
};

}  // namespace VKT
