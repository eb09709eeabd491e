#pragma once

#include "VKT/shading/ShadingNode.h"

namespace VKT {

class XHwShader;

// What covers a shape. Colours are red, green, blue and alpha, nominally 0 to 1; each
// can be fed by another shading node.
class XMaterial : public XNodeClass<XMaterial, XShadingNode, kFnMaterial> {
public:
    explicit XMaterial(XModel* model);

    XShaderInput& GetColour() { return m_Colour; }
    const XShaderInput& GetColour() const { return m_Colour; }

    // A hardware shader of the document; any other node is refused.
    bool SetHwShader(const XBase* node);
    XHwShader* GetHwShader() const;

    // Shapes of the document that an instance covers with this material.
    u32 GetNumUsers() const;

    bool NodeDeath(u32 id) override;

    static XBodyTable TextBody();
    static XBodyTable BinaryBody() { return TextBody(); }
    static XPropertyTable Properties();

protected:
    u32 m_HwShader = 0;
    XShaderInput m_Colour{"colour", XColour{0.65f, 0.65f, 0.65f, 1.0f}};
};

}  // namespace VKT
