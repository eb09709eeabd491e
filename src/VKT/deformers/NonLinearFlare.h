#pragma once

#include "VKT/deformers/NonLinearDeformer.h"

namespace VKT {

// Scales the geometry across the handle's axis, from one factor per side at the low bound
// to another at the high one. Bounds are in the handle's space.
class XNonLinearFlare : public XNodeClass<XNonLinearFlare, XNonLinearDeformer, kFnNonLinearFlare> {
public:
    using XNodeClass::XNodeClass;

    f32 GetLowBound() const { return m_LowBound; }
    void SetLowBound(f32 bound) { m_LowBound = bound; }
    f32 GetHighBound() const { return m_HighBound; }
    void SetHighBound(f32 bound) { m_HighBound = bound; }
    f32 GetStartFlareX() const { return m_StartFlareX; }
    void SetStartFlareX(f32 factor) { m_StartFlareX = factor; }
    f32 GetStartFlareZ() const { return m_StartFlareZ; }
    void SetStartFlareZ(f32 factor) { m_StartFlareZ = factor; }
    f32 GetEndFlareX() const { return m_EndFlareX; }
    void SetEndFlareX(f32 factor) { m_EndFlareX = factor; }
    f32 GetEndFlareZ() const { return m_EndFlareZ; }
    void SetEndFlareZ(f32 factor) { m_EndFlareZ = factor; }
    f32 GetCurve() const { return m_Curve; }
    void SetCurve(f32 curve) { m_Curve = curve; }

    static XBodyTable TextBody();
    static XBodyTable BinaryBody() { return TextBody(); }
    static XPropertyTable Properties();

private:
    f32 m_LowBound = -1.0f;
    f32 m_HighBound = 1.0f;
    f32 m_StartFlareX = 1.0f;
    f32 m_StartFlareZ = 1.0f;
    f32 m_EndFlareX = 1.0f;
    f32 m_EndFlareZ = 1.0f;
    f32 m_Curve = 0.0f;
};

}  // namespace VKT
