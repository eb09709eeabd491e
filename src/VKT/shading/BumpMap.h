#pragma once

#include "VKT/shading/Texture.h"

namespace VKT {

// A texture that makes a surface look uneven. The depth is stored as it stands, without a
// unit of the format.
class XBumpMap : public XNodeClass<XBumpMap, XTexture, kFnBumpMap> {
public:
    explicit XBumpMap(XModel* model);

    f32 GetBumpDepth() const { return m_BumpDepth; }
    void SetBumpDepth(f32 depth) { m_BumpDepth = depth; }
    // The id of the image of heights.
    u32 GetTextureId() const { return GetImage(0); }
    void SetTextureId(u32 id) { SetImage(0, id); }

    static XBodyTable TextBody();
    static XBodyTable BinaryBody();
    static XPropertyTable Properties();

private:
    f32 m_BumpDepth = 0.0f;
};

}  // namespace VKT
