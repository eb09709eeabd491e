#pragma once

#include "VKT/deformers/NonLinearDeformer.h"

namespace VKT {

// A bend of the geometry around the handle. Bounds are in the handle's space, the
// curvature is stored as it comes.
class XNonLinearBend : public XNodeClass<XNonLinearBend, XNonLinearDeformer, kFnNonLinearBend> {
public:
    using XNodeClass::XNodeClass;

    f32 GetLowBound() const { return m_LowBound; }
    void SetLowBound(f32 bound) { m_LowBound = bound; }
    f32 GetHighBound() const { return m_HighBound; }
    void SetHighBound(f32 bound) { m_HighBound = bound; }
    f32 GetCurvature() const { return m_Curvature; }
    void SetCurvature(f32 curvature) { m_Curvature = curvature; }

    static XBodyTable TextBody();
    static XBodyTable BinaryBody() { return TextBody(); }
    static XPropertyTable Properties();

private:
    f32 m_LowBound = -1.0f;
    f32 m_HighBound = 1.0f;
    f32 m_Curvature = 0.0f;
};

}  // namespace VKT
