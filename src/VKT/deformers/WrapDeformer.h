#pragma once

#include "VKT/geometry/Deformer.h"

namespace VKT {

class XGeometry;

// Lets geometry follow the shape of another one, the driver. The library stores the
// values as they stand and never applies them; only the distance has a unit.
class XWrapDeformer : public XNodeClass<XWrapDeformer, XDeformer, kFnWrapDeformer> {
public:
    using XNodeClass::XNodeClass;

    f32 GetDropoff() const { return m_Dropoff; }
    void SetDropoff(f32 dropoff) { m_Dropoff = dropoff; }
    f32 GetSmoothness() const { return m_Smoothness; }
    void SetSmoothness(f32 smoothness) { m_Smoothness = smoothness; }
    f32 GetWeightThreshold() const { return m_WeightThreshold; }
    void SetWeightThreshold(f32 threshold) { m_WeightThreshold = threshold; }
    // In scene units.
    f32 GetMaxDistance() const { return m_MaxDistance; }
    void SetMaxDistance(f32 distance) { m_MaxDistance = distance; }
    // A number of the modeller.
    u32 GetInfluenceType() const { return m_InfluenceType; }
    void SetInfluenceType(u32 type) { m_InfluenceType = type; }
    // How finely a driver that is a surface is sampled.
    u32 GetNurbsSamples() const { return m_NurbsSamples; }
    void SetNurbsSamples(u32 samples) { m_NurbsSamples = samples; }
    // Null for none.
    XGeometry* GetDriverGeometry() const;
    void SetDriverGeometry(const XGeometry* geometry);

    bool NodeDeath(u32 id) override;

    static XBodyTable TextBody();
    static XBodyTable BinaryBody() { return TextBody(); }
    static XPropertyTable Properties();

private:
    f32 m_Dropoff = 4.0f;
    f32 m_Smoothness = 0.0f;
    f32 m_WeightThreshold = 0.0f;
    f32 m_MaxDistance = 0.0f;
    u32 m_InfluenceType = 2;
    u32 m_NurbsSamples = 10;
    u32 m_DriverGeometry = 0;
};

}  // namespace VKT
