#pragma once

#include "VKT/deformers/NonLinearDeformer.h"

namespace VKT {

// Squashes or stretches the geometry along the handle. Bounds are in the handle's space.
class XNonLinearSquash : public XNodeClass<XNonLinearSquash, XNonLinearDeformer, kFnNonLinearSquash> {
public:
    using XNodeClass::XNodeClass;

    f32 GetLowBound() const { return m_LowBound; }
    void SetLowBound(f32 bound) { m_LowBound = bound; }
    f32 GetHighBound() const { return m_HighBound; }
    void SetHighBound(f32 bound) { m_HighBound = bound; }
    f32 GetStartSmoothness() const { return m_StartSmoothness; }
    void SetStartSmoothness(f32 smoothness) { m_StartSmoothness = smoothness; }
    f32 GetEndSmoothness() const { return m_EndSmoothness; }
    void SetEndSmoothness(f32 smoothness) { m_EndSmoothness = smoothness; }
    f32 GetMaxExpandPosition() const { return m_MaxExpandPosition; }
    void SetMaxExpandPosition(f32 position) { m_MaxExpandPosition = position; }
    f32 GetExpand() const { return m_Expand; }
    void SetExpand(f32 expand) { m_Expand = expand; }
    f32 GetFactor() const { return m_Factor; }
    void SetFactor(f32 factor) { m_Factor = factor; }

    static XBodyTable TextBody();
    static XBodyTable BinaryBody() { return TextBody(); }
    static XPropertyTable Properties();

private:
    f32 m_LowBound = -1.0f;
    f32 m_HighBound = 1.0f;
    f32 m_StartSmoothness = 0.0f;
    f32 m_EndSmoothness = 0.0f;
    f32 m_MaxExpandPosition = 0.5f;
    f32 m_Expand = 1.0f;
    f32 m_Factor = 0.0f;
};

}  // namespace VKT
