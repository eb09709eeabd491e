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
    void SetReference(int i, RefTargetHandle target) override
    {
        SetSubTexmap(i, static_cast<Texmap*>(target));
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

    Color GetAmbient(int, BOOL) override { return m_ambient; }
    Color GetDiffuse(int, BOOL) override { return m_diffuse; }
    Color GetSpecular(int, BOOL) override { return m_specular; }
    float GetShininess(int, BOOL) override { return m_shininess; }
    float GetShinStr(int, BOOL) override { return m_shininessStrength; }
    float GetXParency(int, BOOL) override { return 1.0f - m_opacity; }
    BOOL GetSelfIllumColorOn(int, BOOL) override { return m_selfIllumColourOn; }
    float GetSelfIllum(int, BOOL) override { return m_selfIllum; }
    Color GetSelfIllumColor(int, BOOL) override { return m_selfIllumColour; }

    Color GetAmbient(TimeValue) override { return m_ambient; }
    Color GetDiffuse(TimeValue) override { return m_diffuse; }
    Color GetSpecular(TimeValue) override { return m_specular; }
    float GetShininess(TimeValue) override { return m_shininess; }
    float GetShinStr(TimeValue) override { return m_shininessStrength; }
    float GetSelfIllum(TimeValue) override { return m_selfIllum; }
    float GetOpacity(TimeValue) override { return m_opacity; }

    void SetAmbient(Color colour, TimeValue) override { m_ambient = colour; }
    void SetDiffuse(Color colour, TimeValue) override { m_diffuse = colour; }
    void SetSpecular(Color colour, TimeValue) override { m_specular = colour; }
    void SetShininess(float value, TimeValue) override { m_shininess = value; }
    void SetShinStr(float value, TimeValue) override { m_shininessStrength = value; }
    void SetSelfIllum(float value, TimeValue) override { m_selfIllum = value; }
    void SetSelfIllumColorOn(BOOL on) override { m_selfIllumColourOn = on; }
    void SetSelfIllumColor(Color colour, TimeValue) override { m_selfIllumColour = colour; }
    void SetOpacity(float value, TimeValue) override { m_opacity = value; }
    void SetShading(int shading) override { m_shading = shading; }
    int GetShading() override { return m_shading; }

private:
    struct Slot {
        explicit Slot(ReferenceMaker& maker) : map(maker) {}
        Reference<Texmap> map;
        float amount = 1.0f;
        BOOL on = FALSE;
    };
    Slot& At(int slot) { return m_slots[static_cast<std::size_t>(slot)]; }

    std::array<Slot, NTEXMAPS> m_slots;
    Color m_ambient = Color(0.588f, 0.588f, 0.588f);
    Color m_diffuse = Color(0.588f, 0.588f, 0.588f);
    Color m_specular = Color(0.9f, 0.9f, 0.9f);
    Color m_selfIllumColour = Color(0.0f, 0.0f, 0.0f);
    float m_shininess = 0.1f;
    float m_shininessStrength = 0.0f;
    float m_selfIllum = 0.0f;
    float m_opacity = 1.0f;
    int m_shading = SHADE_BLINN;
    BOOL m_selfIllumColourOn = FALSE;
};

}  // namespace maxhost
