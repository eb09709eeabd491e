#pragma once

#include "VKT/hierarchy/Shape.h"

namespace VKT {

// What all lights share. Colours are red, green and blue, nominally 0 to 1; angles of
// lights are radians, lengths scene units, unless a class says otherwise. The intensity is
// stored as it stands, 1 in a new light.
class XLight : public XNodeClass<XLight, XShape, kFnLight> {
public:
    using XNodeClass::XNodeClass;

    const XColour& GetColour() const { return m_Colour; }
    void SetColour(f32 r, f32 g, f32 b) { m_Colour = {r, g, b, 1.0f}; }
    void SetColour(const f32 (&rgb)[3]) { SetColour(rgb[0], rgb[1], rgb[2]); }
    f32 GetIntensity() const { return m_Intensity; }
    void SetIntensity(f32 intensity) { m_Intensity = intensity; }
    const XColour& GetShadowColour() const { return m_ShadowColour; }
    void SetShadowColour(f32 r, f32 g, f32 b) { m_ShadowColour = {r, g, b, 0.0f}; }
    void SetShadowColour(const f32 (&rgb)[3]) { SetShadowColour(rgb[0], rgb[1], rgb[2]); }
    bool EmitsAmbient() const { return m_EmitAmbient; }
    void SetEmitAmbient(bool emit) { m_EmitAmbient = emit; }
    bool EmitsDiffuse() const { return m_EmitDiffuse; }
    void SetEmitDiffuse(bool emit) { m_EmitDiffuse = emit; }
    bool EmitsSpecular() const { return m_EmitSpecular; }
    void SetEmitSpecular(bool emit) { m_EmitSpecular = emit; }

    static XBodyTable TextBody();
    static XBodyTable BinaryBody() { return TextBody(); }
    static XPropertyTable Properties();

private:
    XColour m_Colour{0.9f, 0.9f, 0.9f, 1.0f};  // the fourth floats are not stored
    f32 m_Intensity = 1.0f;
    XColour m_ShadowColour{};
    bool m_EmitAmbient = false;
    bool m_EmitDiffuse = false;
    bool m_EmitSpecular = false;
};

}  // namespace VKT
