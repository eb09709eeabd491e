#pragma once

#include "VKT/geometry/Deformer.h"

namespace VKT {

// Makes points swing behind the motion of their geometry. The library never applies the
// values: forces, stiffness, damping, weight and bias are stored as they stand, without a
// unit or range of the format.
class XJiggleDeformer : public XNodeClass<XJiggleDeformer, XDeformer, kFnJiggleDeformer> {
public:
    using XNodeClass::XNodeClass;

    // 0 for off; what other numbers mean is the modeller's business.
    i32 GetEnable() const { return m_Enable; }
    void SetEnable(i32 enable) { m_Enable = enable; }
    bool IgnoresTransform() const { return m_IgnoreTransform; }
    void SetIgnoreTransform(bool ignore) { m_IgnoreTransform = ignore; }
    f32 GetForceAlongNormal() const { return m_ForceAlongNormal; }
    void SetForceAlongNormal(f32 force) { m_ForceAlongNormal = force; }
    f32 GetForceOnTangent() const { return m_ForceOnTangent; }
    void SetForceOnTangent(f32 force) { m_ForceOnTangent = force; }
    f32 GetMotionMultiplier() const { return m_MotionMultiplier; }
    void SetMotionMultiplier(f32 factor) { m_MotionMultiplier = factor; }
    f32 GetStiffness() const { return m_Stiffness; }
    void SetStiffness(f32 stiffness) { m_Stiffness = stiffness; }
    f32 GetDamping() const { return m_Damping; }
    void SetDamping(f32 damping) { m_Damping = damping; }
    f32 GetJiggleWeight() const { return m_JiggleWeight; }
    void SetJiggleWeight(f32 weight) { m_JiggleWeight = weight; }
    f32 GetDirectionBias() const { return m_DirectionBias; }
    void SetDirectionBias(f32 bias) { m_DirectionBias = bias; }
    // Numbers of the points that swing.
    const XIntList& GetPointIndices() const { return m_PointIndices; }
    void SetPointIndices(const XIntList& indices) { m_PointIndices = indices; }

    static XBodyTable TextBody();
    static XBodyTable BinaryBody();
    static XPropertyTable Properties();

private:
    static void WritePointIndices(const XBase& node, XTextWriter& out);
    static bool ReadPointIndices(XBase& node, XTextReader& in);

    i32 m_Enable = 0;
    bool m_IgnoreTransform = false;
    f32 m_ForceAlongNormal = 1.0f;
    f32 m_ForceOnTangent = 1.0f;
    f32 m_MotionMultiplier = 1.0f;
    f32 m_Stiffness = 0.5f;
    f32 m_Damping = 0.5f;
    f32 m_JiggleWeight = 1.0f;
    f32 m_DirectionBias = 0.0f;
    XIntList m_PointIndices;
};

}  // namespace VKT
