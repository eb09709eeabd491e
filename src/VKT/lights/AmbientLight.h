#pragma once

#include "VKT/lights/Light.h"

namespace VKT {

// Light from everywhere. Its shadows are its own, with another default radius than those
// of lights that have a place.
class XAmbientLight : public XNodeClass<XAmbientLight, XLight, kFnAmbientLight> {
public:
    using XNodeClass::XNodeClass;

    // 0: from all sides, 1: from the light's place.
    f32 GetAmbientShade() const { return m_AmbientShade; }
    void SetAmbientShade(f32 shade) { m_AmbientShade = shade; }
    bool CastsSoftShadows() const { return m_CastSoftShadows; }
    void SetCastSoftShadows(bool cast) { m_CastSoftShadows = cast; }
    f32 GetShadowRadius() const { return m_ShadowRadius; }
    void SetShadowRadius(f32 radius) { m_ShadowRadius = radius; }

    static XBodyTable TextBody();
    static XBodyTable BinaryBody() { return TextBody(); }
    static XPropertyTable Properties();

private:
    f32 m_AmbientShade = 0.0f;
    bool m_CastSoftShadows = false;
    f32 m_ShadowRadius = 100.0f;
};

}  // namespace VKT
