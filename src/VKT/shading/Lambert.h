#pragma once

#include "VKT/shading/Material.h"

namespace VKT {

class XBumpMap;
class XEnvMap;

// A matte material.
class XLambert : public XNodeClass<XLambert, XMaterial, kFnLambert> {
public:
    explicit XLambert(XModel* model);

    XShaderInput& GetAmbientColour() { return m_AmbientColour; }
    const XShaderInput& GetAmbientColour() const { return m_AmbientColour; }
    XShaderInput& GetIncandescence() { return m_Incandescence; }
    const XShaderInput& GetIncandescence() const { return m_Incandescence; }
    XShaderInput& GetTransparency() { return m_Transparency; }
    const XShaderInput& GetTransparency() const { return m_Transparency; }

    // A bump map and an environment map; a node of another class is refused.
    bool SetBumpMap(const XBase* node);
    XBumpMap* GetBumpMap() const;
    bool SetEnvMap(const XBase* node);
    XEnvMap* GetEnvMap() const;

    static XBodyTable TextBody();
    static XBodyTable BinaryBody() { return TextBody(); }
    static XBodyTable OldTextBody();
    static XBodyTable OldBinaryBody();
    static XPropertyTable Properties();

protected:
    XShaderInput m_AmbientColour{"ambient_colour", XColour{0.2f, 0.2f, 0.2f, 1.0f}};
    XShaderInput m_Incandescence{"incandescence"};
    XShaderInput m_Transparency{"transparency"};
    XShaderInput m_BumpMap{"bump_map"};  // of these two only the connected node is stored
    XShaderInput m_EnvMap{"env_map"};
};

}  // namespace VKT
