#pragma once

#include "VKT/deformers/NonLinearDeformer.h"

namespace VKT {

// A twist around the handle. Bounds are in the handle's space, angles are stored as they
// come.
class XNonLinearTwist : public XNodeClass<XNonLinearTwist, XNonLinearDeformer, kFnNonLinearTwist> {
public:
    using XNodeClass::XNodeClass;

    f32 GetLowBound() const { return m_LowBound; }
    void SetLowBound(f32 bound) { m_LowBound = bound; }
    f32 GetHighBound() const { return m_HighBound; }
    void SetHighBound(f32 bound) { m_HighBound = bound; }
    f32 GetStartAngle() const { return m_StartAngle; }
    void SetStartAngle(f32 angle) { m_StartAngle = angle; }
    f32 GetEndAngle() const { return m_EndAngle; }
    void SetEndAngle(f32 angle) { m_EndAngle = angle; }

    static XBodyTable TextBody();
    static XBodyTable BinaryBody() { return TextBody(); }
    static XPropertyTable Properties();

private:
    f32 m_LowBound = -1.0f;
    f32 m_HighBound = 1.0f;
    f32 m_StartAngle = 0.0f;
    f32 m_EndAngle = 0.0f;
};

}  // namespace VKT
