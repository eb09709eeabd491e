#pragma once

#include "VKT/deformers/NonLinearDeformer.h"

namespace VKT {

// Circular waves around the handle. Radii and lengths are in the handle's space.
class XNonLinearWave : public XNodeClass<XNonLinearWave, XNonLinearDeformer, kFnNonLinearWave> {
public:
    using XNodeClass::XNodeClass;

    f32 GetMinRadius() const { return m_MinRadius; }
    void SetMinRadius(f32 radius) { m_MinRadius = radius; }
    f32 GetMaxRadius() const { return m_MaxRadius; }
    void SetMaxRadius(f32 radius) { m_MaxRadius = radius; }
    f32 GetAmplitude() const { return m_Amplitude; }
    void SetAmplitude(f32 amplitude) { m_Amplitude = amplitude; }
    f32 GetWavelength() const { return m_Wavelength; }
    void SetWavelength(f32 wavelength) { m_Wavelength = wavelength; }
    f32 GetDropoff() const { return m_Dropoff; }
    void SetDropoff(f32 dropoff) { m_Dropoff = dropoff; }
    f32 GetDropoffPosition() const { return m_DropoffPosition; }
    void SetDropoffPosition(f32 position) { m_DropoffPosition = position; }
    f32 GetOffset() const { return m_Offset; }
    void SetOffset(f32 offset) { m_Offset = offset; }

    static XBodyTable TextBody();
    static XBodyTable BinaryBody() { return TextBody(); }
    static XPropertyTable Properties();

private:
    f32 m_MinRadius = 0.0f;
    f32 m_MaxRadius = 1.0f;
    f32 m_Amplitude = 0.0f;
    f32 m_Wavelength = 1.0f;
    f32 m_Dropoff = 0.0f;
    f32 m_DropoffPosition = 0.0f;
    f32 m_Offset = 0.0f;
};

}  // namespace VKT
