#pragma once

#include "VKT/shading/Texture.h"

namespace VKT {

// The base of textures that show the surroundings of a surface. Text files hold the
// placement where the derived classes say.
class XEnvMap : public XNodeClass<XEnvMap, XTexture, kFnEnvMap> {
public:
    using XNodeClass::XNodeClass;

    // The id of the 3D placement, 0 for none.
    u32 GetPlacement() const { return m_Placement; }
    void SetPlacement(u32 id) { m_Placement = id; }

    bool NodeDeath(u32 id) override;

    static XBodyTable BinaryBody();
    static XPropertyTable Properties();

protected:
    u32 m_Placement = 0;
};

}  // namespace VKT
