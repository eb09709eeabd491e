#pragma once

#include "VKT/deformers/NonLinearDeformer.h"

namespace VKT {

// A sine wave along the handle. Bounds and lengths are in the handle's space.
class XNonLinearSine : public XNodeClass<XNonLinearSine, XNonLinearDeformer, kFnNonLinearSine> {
public:
    using XNodeClass::XNodeClass;

    f32 GetLowBound() const { return m_LowBound; }
    void SetLowBound(f32 bound) { m_LowBound = bound; }
    f32 GetHighBound() const { return m_HighBound; }
    void SetHighBound(f32 bound) { m_HighBound = bound; }
    f32 GetAmplitude() const { return m_Amplitude; }
    void SetAmplitude(f32 amplitude) { m_Amplitude = amplitude; }
    f32 GetWavelength() const { return m_Wavelength; }
    void SetWavelength(f32 wavelength) { m_Wavelength = wavelength; }
    f32 GetDropoff() const { return m_Dropoff; }
    void SetDropoff(f32 dropoff) { m_Dropoff = dropoff; }
    f32 GetOffset() const { return m_Offset; }
    void SetOffset(f32 offset) { m_Offset = offset; }

    static XBodyTable TextBody();
    static XBodyTable BinaryBody() { return TextBody(); }
    static XPropertyTable Properties();

private:
    f32 m_LowBound = -1.0f;
    f32 m_HighBound = 1.0f;
    f32 m_Amplitude = 0.0f;
    f32 m_Wavelength = 2.0f;
    f32 m_Dropoff = 0.0f;
    f32 m_Offset = 0.0f;
};

}  // namespace VKT
