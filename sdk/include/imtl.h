#pragma once

#include "color.h"
#include "plugapi.h"
#include "ref.h"

class Texmap;
class UVGen;

// Which two of a map channel's three components stand for the picture's axes.
#define AXIS_UV 0
#define AXIS_VW 1
#define AXIS_WU 2

// Flags of texture tiling.
#define U_WRAP (1 << 0)
#define V_WRAP (1 << 1)
#define U_MIRROR (1 << 2)
#define V_MIRROR (1 << 3)

// What has map slots.
class CoreExport ISubMap {
public:
    virtual ~ISubMap() = default;
    virtual int NumSubTexmaps() { return 0; }
    virtual Texmap* GetSubTexmap(int) { return nullptr; }
    virtual void SetSubTexmap(int, Texmap*) {}
    virtual int SubTexmapOn(int) { return 1; }
};

class CoreExport MtlBase : public ReferenceTarget, public ISubMap {
public:
    MSTR& GetName() { return m_Name; }
    void SetName(MSTR name) { m_Name = name; }
    virtual BOOL IsMultiMtl() { return FALSE; }
    void* GetInterface(ULONG id) override
    {
        return id == I_SUBMAP ? static_cast<ISubMap*>(this) : ReferenceTarget::GetInterface(id);
    }
    using ReferenceTarget::GetInterface;
    // Brings what the getters answer to time `t`.
    virtual void Update(TimeValue t, Interval& valid) = 0;

private:
    MSTR m_Name;
};

// A material. The getters answer the values of the last Update.
class CoreExport Mtl : public MtlBase {
public:
    SClass_ID SuperClassID() override { return MATERIAL_CLASS_ID; }

    virtual Color GetAmbient(int mtlNum = 0, BOOL backFace = FALSE) = 0;
    virtual Color GetDiffuse(int mtlNum = 0, BOOL backFace = FALSE) = 0;
    virtual Color GetSpecular(int mtlNum = 0, BOOL backFace = FALSE) = 0;
    virtual float GetShininess(int mtlNum = 0, BOOL backFace = FALSE) = 0;  // 0 to 1
    virtual float GetShinStr(int mtlNum = 0, BOOL backFace = FALSE) = 0;
    virtual float GetXParency(int mtlNum = 0, BOOL backFace = FALSE) = 0;  // 0 opaque, 1 clear
    virtual BOOL GetSelfIllumColorOn(int = 0, BOOL = FALSE) { return TRUE; }
    virtual float GetSelfIllum(int = 0, BOOL = FALSE) { return 0.0f; }
    virtual Color GetSelfIllumColor(int = 0, BOOL = FALSE) { return Color(0.0f, 0.0f, 0.0f); }

    virtual void SetAmbient(Color colour, TimeValue t) = 0;
    virtual void SetDiffuse(Color colour, TimeValue t) = 0;
    virtual void SetSpecular(Color colour, TimeValue t) = 0;
    virtual void SetShininess(float value, TimeValue t) = 0;

    virtual int NumSubMtls() { return 0; }
    virtual Mtl* GetSubMtl(int) { return nullptr; }
    virtual void SetSubMtl(int, Mtl*) {}
};

class CoreExport Texmap : public MtlBase {
public:
    SClass_ID SuperClassID() override { return TEXMAP_CLASS_ID; }
    virtual UVGen* GetTheUVGen() { return nullptr; }
};

// How a map lies on a surface.
class CoreExport UVGen : public MtlBase {
public:
    SClass_ID SuperClassID() override { return UVGEN_CLASS_ID; }
    virtual int GetTextureTiling() = 0;
    virtual int GetAxis() = 0;
    virtual int GetMapChannel() { return 1; }
    virtual BOOL IsStdUVGen() { return FALSE; }
};
