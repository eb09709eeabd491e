#pragma once

#include "VKT/dynamics/VolumeObject.h"

namespace VKT {

// A cylinder. Sizes in scene units.
class XVolumeCylinder final : public XNodeClass<XVolumeCylinder, XVolumeObject, kFnVolumeCylinder> {
public:
    using XNodeClass::XNodeClass;

    f32 GetRadius() const { return m_Radius; }
    void SetRadius(f32 radius) { m_Radius = radius; }
    f32 GetHeight() const { return m_Height; }
    void SetHeight(f32 height) { m_Height = height; }

    static XBodyTable TextBody();
    static XBodyTable BinaryBody() { return TextBody(); }
    static XPropertyTable Properties();

private:
    f32 m_Radius = 1.0f;
    f32 m_Height = 1.0f;
};

}  // namespace VKT
