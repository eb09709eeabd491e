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
    RefResult NotifyRefChanged(Interval, RefTargetHandle, PartID&, RefMessage) override
    {
        return REF_SUCCEED;
    }

    int GetTextureTiling() override { return m_Tiling; }
    int GetAxis() override { return m_Axis; }
    int GetMapChannel() override { return m_MapChannel; }
    // Dialogs set these in the real host.
    void SetTextureTiling(int flags) { m_Tiling = flags; }
    void SetAxis(int axis) { m_Axis = axis; }
    void SetMapChannel(int channel) { m_MapChannel = channel; }

    float GetUOffs(TimeValue) override { return m_OffsetU; }
    float GetVOffs(TimeValue) override { return m_OffsetV; }
    float GetUScl(TimeValue) override { return m_ScaleU; }
    float GetVScl(TimeValue) override { return m_ScaleV; }
    float GetAng(TimeValue) override { return m_AngleW; }
    float GetUAng(TimeValue) override { return m_AngleU; }
    float GetVAng(TimeValue) override { return m_AngleV; }
    float GetWAng(TimeValue) override { return m_AngleW; }
    void SetUOffs(float value, TimeValue) override { m_OffsetU = value; }
    void SetVOffs(float value, TimeValue) override { m_OffsetV = value; }
    void SetUScl(float value, TimeValue) override { m_ScaleU = value; }
    void SetVScl(float value, TimeValue) override { m_ScaleV = value; }
    void SetAng(float value, TimeValue) override { m_AngleW = value; }
    void SetUAng(float value, TimeValue) override { m_AngleU = value; }
    void SetVAng(float value, TimeValue) override { m_AngleV = value; }
    void SetWAng(float value, TimeValue) override { m_AngleW = value; }

private:
    float m_OffsetU = 0.0f;
    float m_OffsetV = 0.0f;
    float m_ScaleU = 1.0f;
    float m_ScaleV = 1.0f;
    float m_AngleU = 0.0f;
    float m_AngleV = 0.0f;
    float m_AngleW = 0.0f;
    int m_Tiling = U_WRAP | V_WRAP;
    int m_Axis = AXIS_UV;
    int m_MapChannel = 1;
};

// A picture file as a map. The file isn't opened.
class BitmapTexture final : public BitmapTex {
public:
    BitmapTexture() : m_Placement(*this, new UVGenerator) {}

    void GetClassName(MSTR& name) override { name = "Bitmap"; }
    FPInterfaceDesc* GetDesc() override { return nullptr; }  // publishes nothing
    void Update(TimeValue, Interval&) override {}
    int NumRefs() override { return 1; }
    RefTargetHandle GetReference(int) override { return m_Placement.Get(); }
    RefResult NotifyRefChanged(Interval, RefTargetHandle, PartID&, RefMessage) override
    {
        return REF_SUCCEED;
    }

    MCHAR* GetMapName() override { return m_FileName.data(); }
    void SetMapName(const MCHAR* name) override { m_FileName = name ? name : ""; }
    StdUVGen* GetUVGen() override { return m_Placement.Get(); }
    UVGen* GetTheUVGen() override { return m_Placement.Get(); }
    UVGenerator* GetPlacement() { return m_Placement.Get(); }

private:
    void SetReference(int, RefTargetHandle target) override
    {
        m_Placement.Set(static_cast<UVGenerator*>(target));
    }

    std::string m_FileName;
    Reference<UVGenerator> m_Placement;
};

}  // namespace maxhost
