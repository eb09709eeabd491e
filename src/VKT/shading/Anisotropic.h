#pragma once

#include "VKT/shading/Specular.h"

namespace VKT {

// A glossy material with grooves, such as brushed metal: its highlight is stretched.
// All values are stored as they stand, without a unit or range of the format.
class XAnisotropic : public XNodeClass<XAnisotropic, XSpecular, kFnAnisotropic> {
public:
    using XNodeClass::XNodeClass;

    // The directions of the grooves, four floats each.
    const XColour& GetTangentU() const { return m_TangentU; }
    void SetTangentU(const XColour& tangent) { m_TangentU = tangent; }
    const XColour& GetTangentV() const { return m_TangentV; }
    void SetTangentV(const XColour& tangent) { m_TangentV = tangent; }
    f32 GetCorrelationX() const { return m_CorrelationX; }
    void SetCorrelationX(f32 correlation) { m_CorrelationX = correlation; }
    f32 GetCorrelationY() const { return m_CorrelationY; }
    void SetCorrelationY(f32 correlation) { m_CorrelationY = correlation; }
    f32 GetRoughness() const { return m_Roughness; }
    void SetRoughness(f32 roughness) { m_Roughness = roughness; }
    f32 GetRotateAngle() const { return m_RotateAngle; }
    void SetRotateAngle(f32 angle) { m_RotateAngle = angle; }
    f32 GetRefractiveIndex() const { return m_RefractiveIndex; }
    void SetRefractiveIndex(f32 index) { m_RefractiveIndex = index; }
    bool HasAnisotropicReflectivity() const { return m_AnisotropicReflectivity; }
    void SetAnisotropicReflectivity(bool has) { m_AnisotropicReflectivity = has; }

    static XBodyTable TextBody();
    static XBodyTable BinaryBody() { return TextBody(); }
    static XPropertyTable Properties();

private:
    XColour m_TangentU{};
    XColour m_TangentV{};
    f32 m_CorrelationX = 0.0f;
    f32 m_CorrelationY = 0.0f;
    f32 m_Roughness = 0.0f;
    f32 m_RotateAngle = 0.0f;
    f32 m_RefractiveIndex = 0.0f;
    bool m_AnisotropicReflectivity = false;
};

}  // namespace VKT
