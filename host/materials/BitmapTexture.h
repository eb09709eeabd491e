#pragma once

#include <string>

#include "host/core/References.h"
#include "stdmat.h"

namespace maxhost {

// Placement of a picture. Its values are the same at all times.
class UVGenerator final : public StdUVGen {
public:
    void GetClassName(MSTR& name) override { name = "Coordinates"; }
    void Update(TimeValue, Interval&) override {}

    int GetTextureTiling() override { return m_tiling; }
    int GetAxis() override { return m_axis; }
    int GetMapChannel() override { return m_mapChannel; }
    // Dialogs set these in the real host.
    void SetTextureTiling(int flags) { m_tiling = flags; }
    void SetAxis(int axis) { m_axis = axis; }
    void SetMapChannel(int channel) { m_mapChannel = channel; }

    float GetUOffs(TimeValue) override { return m_offsetU; }
    float GetVOffs(TimeValue) override { return m_offsetV; }
    float GetUScl(TimeValue) override { return m_scaleU; }
    float GetVScl(TimeValue) override { return m_scaleV; }
    float GetAng(TimeValue) override { return m_angleW; }
    float GetUAng(TimeValue) override { return m_angleU; }
    float GetVAng(TimeValue) override { return m_angleV; }
    float GetWAng(TimeValue) override { return m_angleW; }
    void SetUOffs(float value, TimeValue) override { m_offsetU = value; }
    void SetVOffs(float value, TimeValue) override { m_offsetV = value; }
    void SetUScl(float value, TimeValue) override { m_scaleU = value; }
    void SetVScl(float value, TimeValue) override { m_scaleV = value; }
    void SetAng(float value, TimeValue) override { m_angleW = value; }
    void SetUAng(float value, TimeValue) override { m_angleU = value; }
    void SetVAng(float value, TimeValue) override { m_angleV = value; }
    void SetWAng(float value, TimeValue) override { m_angleW = value; }

private:
    float m_offsetU = 0.0f;
    float m_offsetV = 0.0f;
    float m_scaleU = 1.0f;
    float m_scaleV = 1.0f;
    float m_angleU = 0.0f;
    float m_angleV = 0.0f;
    float m_angleW = 0.0f;
    int m_tiling = U_WRAP | V_WRAP;
    int m_axis = AXIS_UV;
    int m_mapChannel = 1;
};

// A picture file as a map. The file isn't opened.
class BitmapTexture final : public BitmapTex {
public:
    BitmapTexture() : m_placement(*this, new UVGenerator) {}

    void GetClassName(MSTR& name) override { name = "Bitmap"; }
    void Update(TimeValue, Interval&) override {}
    int NumRefs() override { return 1; }
    RefTargetHandle GetReference(int) override { return m_placement.Get(); }
    void SetReference(int, RefTargetHandle target) override
    {
        m_placement.Set(static_cast<UVGenerator*>(target));
    }

    const MCHAR* GetMapName() override { return m_fileName.c_str(); }
    void SetMapName(const MCHAR* name) override { m_fileName = name ? name : ""; }
    StdUVGen* GetUVGen() override { return m_placement.Get(); }
    UVGen* GetTheUVGen() override { return m_placement.Get(); }
    UVGenerator* GetPlacement() { return m_placement.Get(); }

private:
    std::string m_fileName;
    Reference<UVGenerator> m_placement;
};

}  // namespace maxhost
