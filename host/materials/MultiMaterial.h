#pragma once

#include <memory>
#include <vector>

#include "host/core/References.h"
#include "stdmat.h"

namespace maxhost {

// Materials by face number. Its own colours are those of the entry asked for, and black
// where there is none.
class MultiMaterial final : public MultiMtl {
public:
    void GetClassName(MSTR& name) override { name = "Multi/Sub-Object"; }
    void Update(TimeValue t, Interval& valid) override;
    int NumRefs() override { return NumSubMtls(); }
    RefTargetHandle GetReference(int i) override { return GetSubMtl(i); }
    RefResult NotifyRefChanged(Interval, RefTargetHandle, PartID&, RefMessage) override
    {
        return REF_SUCCEED;
    }

    int NumSubMtls() override { return static_cast<int>(m_Materials.size()); }
    void SetNumSubMtls(int count) override;
    // Null outside the list.
    Mtl* GetSubMtl(int i) override;
    // The list grows to hold the entry.
    void SetSubMtl(int i, Mtl* material) override;

    Color GetAmbient(int i, BOOL) override;
    Color GetDiffuse(int i, BOOL) override;
    Color GetSpecular(int i, BOOL) override;
    float GetShininess(int i, BOOL) override;
    float GetShinStr(int i, BOOL) override;
    float GetXParency(int i, BOOL) override;
    void SetAmbient(Color, TimeValue) override {}
    void SetDiffuse(Color, TimeValue) override {}
    void SetSpecular(Color, TimeValue) override {}
    void SetShininess(float, TimeValue) override {}

private:
    void SetReference(int i, RefTargetHandle target) override { SetSubMtl(i, static_cast<Mtl*>(target)); }

    std::vector<std::unique_ptr<Reference<Mtl>>> m_Materials;
};

}  // namespace maxhost
