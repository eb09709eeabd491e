#pragma once

#include "VKT/lights/ExtendedLight.h"

namespace VKT {

// Parallel light, as that of the sun.
class XDirectionalLight : public XNodeClass<XDirectionalLight, XExtendedLight, kFnDirectionalLight> {
public:
    using XNodeClass::XNodeClass;

    // How far the light spreads, in radians: what makes shadows soft.
    f32 GetShadowAngle() const { return m_ShadowAngle; }
    void SetShadowAngle(f32 radians) { m_ShadowAngle = radians; }

    static XBodyTable TextBody();
    static XBodyTable BinaryBody() { return TextBody(); }
    static XPropertyTable Properties();

private:
    f32 m_ShadowAngle = 0.0f;
};

}  // namespace VKT
