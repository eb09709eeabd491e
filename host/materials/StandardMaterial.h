#pragma once

#include <array>

#include "host/core/References.h"
#include "stdmat.h"

namespace maxhost {

// The standard material. Its values are the same at all times.
class StandardMaterial final : public StdMat2 {
public:
    StandardMaterial();

    void GetClassName(MSTR& name) override { name = "Standard"; }
    void Update(TimeValue, Interval&) override {}
    int NumRefs() override { return NTEXMAPS; }
    RefTargetHandle GetReference(int i) override { return GetSubTexmap(i); }
    RefResult NotifyRefChanged(Interval, RefTargetHandle, PartID&, RefMessage) override
    {
        return REF_SUCCEED;
    }

    int NumSubTexmaps() override { return NTEXMAPS; }
    Texmap* GetSubTexmap(int slot) override { return At(slot).map.Get(); }
    // Switches the slot on.
    void SetSubTexmap(int slot, Texmap* map) override;
    int SubTexmapOn(int slot) override { return MapEnabled(slot); }
    void EnableMap(int slot, BOOL on) override { At(slot).on = on; }
    BOOL MapEnabled(int slot) override { return At(slot).on; }
    void SetTexmapAmt(int slot, float amount, TimeValue) override { At(slot).amount = amount; }
    float GetTexmapAmt(int slot, TimeValue) override { return At(slot).amount; }

    Color GetAmbient(int, BOOL) override { return m_Ambient; }
    Color GetDiffuse(int, BOOL) override { return m_Diffuse; }
    Color GetSpecular(int, BOOL) override { return m_Specular; }
    float GetShininess(int, BOOL) override { return m_Shininess; }
    float GetShinStr(int, BOOL) override { return m_ShininessStrength; }
    float GetXParency(int, BOOL) override { return 1.0f - m_Opacity; }
    BOOL GetSelfIllumColorOn(int, BOOL) override { return m_SelfIllumColourOn; }
    float GetSelfIllum(int, BOOL) override { return m_SelfIllum; }
    Color GetSelfIllumColor(int, BOOL) override { return m_SelfIllumColour; }

    Color GetAmbient(TimeValue) override { return m_Ambient; }
    Color GetDiffuse(TimeValue) override { return m_Diffuse; }
    Color GetSpecular(TimeValue) override { return m_Specular; }
    float GetShininess(TimeValue) override { return m_Shininess; }
    float GetShinStr(TimeValue) override { return m_ShininessStrength; }
    float GetSelfIllum(TimeValue) override { return m_SelfIllum; }
    float GetOpacity(TimeValue) override { return m_Opacity; }

    void SetAmbient(Color colour, TimeValue) override { m_Ambient = colour; }
    void SetDiffuse(Color colour, TimeValue) override { m_Diffuse = colour; }
    void SetSpecular(Color colour, TimeValue) override { m_Specular = colour; }
    void SetShininess(float value, TimeValue) override { m_Shininess = value; }
    void SetShinStr(float value, TimeValue) override { m_ShininessStrength = value; }
    void SetSelfIllum(float value, TimeValue) override { m_SelfIllum = value; }
    void SetSelfIllumColorOn(BOOL on) override { m_SelfIllumColourOn = on; }
    void SetSelfIllumColor(Color colour, TimeValue) override { m_SelfIllumColour = colour; }
    void SetOpacity(float value, TimeValue) override { m_Opacity = value; }
    void SetShading(int shading) override { m_Shading = shading; }
    int GetShading() override { return m_Shading; }

private:
    void SetReference(int i, RefTargetHandle target) override
    {
        SetSubTexmap(i, static_cast<Texmap*>(target));
    }

    struct Slot {
        explicit Slot(ReferenceMaker& maker) : map(maker) {}
        Reference<Texmap> map;
        float amount = 1.0f;
        BOOL on = FALSE;
    };
    Slot& At(int slot) { return m_Slots[static_cast<std::size_t>(slot)]; }

    std::array<Slot, NTEXMAPS> m_Slots;
    Color m_Ambient = Color(0.588f, 0.588f, 0.588f);
    Color m_Diffuse = Color(0.588f, 0.588f, 0.588f);
    Color m_Specular = Color(0.9f, 0.9f, 0.9f);
    Color m_SelfIllumColour = Color(0.0f, 0.0f, 0.0f);
    float m_Shininess = 0.1f;
    float m_ShininessStrength = 0.0f;
    float m_SelfIllum = 0.0f;
    float m_Opacity = 1.0f;
    int m_Shading = SHADE_BLINN;
    BOOL m_SelfIllumColourOn = FALSE;
};

}  // namespace maxhost
