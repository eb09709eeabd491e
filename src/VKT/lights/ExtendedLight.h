#pragma once

#include "VKT/lights/Light.h"

namespace VKT {

// A light with a place or a direction: shadows and decay. All values are stored as
// they stand, without a unit of the format.
class XExtendedLight : public XNodeClass<XExtendedLight, XLight, kFnExtendedLight> {
public:
    using XNodeClass::XNodeClass;

    bool UsesDepthMapShadows() const { return m_UseDepthMapShadows; }
    void SetUseDepthMapShadows(bool use) { m_UseDepthMapShadows = use; }
    bool CastsSoftShadows() const { return m_CastSoftShadows; }
    void SetCastSoftShadows(bool cast) { m_CastSoftShadows = cast; }
    f32 GetShadowRadius() const { return m_ShadowRadius; }
    void SetShadowRadius(f32 radius) { m_ShadowRadius = radius; }
    f32 GetDecayRate() const { return m_DecayRate; }
    void SetDecayRate(f32 rate) { m_DecayRate = rate; }
    f32 GetDepthMapFilterSize() const { return m_DepthMapFilterSize; }
    void SetDepthMapFilterSize(f32 size) { m_DepthMapFilterSize = size; }
    f32 GetDepthMapResolution() const { return m_DepthMapResolution; }
    void SetDepthMapResolution(f32 resolution) { m_DepthMapResolution = resolution; }
    f32 GetDepthMapBias() const { return m_DepthMapBias; }
    void SetDepthMapBias(f32 bias) { m_DepthMapBias = bias; }

    static XBodyTable TextBody();
    static XBodyTable BinaryBody() { return TextBody(); }
    static XPropertyTable Properties();

private:
    bool m_UseDepthMapShadows = false;
    bool m_CastSoftShadows = false;
    f32 m_ShadowRadius = 0.0f;
    f32 m_DecayRate = 0.0f;
    f32 m_DepthMapFilterSize = 1.0f;
    f32 m_DepthMapResolution = 512.0f;
    f32 m_DepthMapBias = 0.01f;
};

}  // namespace VKT
