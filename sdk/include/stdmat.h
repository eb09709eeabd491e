#pragma once

#include "ifnpub.h"
#include "imtl.h"

#define SHADE_CONST 0
#define SHADE_PHONG 1
#define SHADE_METAL 2
#define SHADE_BLINN 3

// Map slots of the standard material.
#define ID_AM 0
#define ID_DI 1
#define ID_SP 2
#define ID_SH 3
#define ID_SS 4
#define ID_SI 5
#define ID_OP 6
#define ID_FI 7
#define ID_BU 8
#define ID_RL 9
#define ID_RR 10
#define ID_DP 11
#define NTEXMAPS 12

// The usual placement: offset, tiling and turn about the three axes, in radians.
class CoreExport StdUVGen : public UVGen {
public:
    Class_ID ClassID() override { return Class_ID(STDUV_CLASS_ID, 0); }
    BOOL IsStdUVGen() override { return TRUE; }

    virtual float GetUOffs(TimeValue t) = 0;
    virtual float GetVOffs(TimeValue t) = 0;
    virtual float GetUScl(TimeValue t) = 0;
    virtual float GetVScl(TimeValue t) = 0;
    virtual float GetAng(TimeValue t) = 0;  // about W
    virtual float GetUAng(TimeValue t) = 0;
    virtual float GetVAng(TimeValue t) = 0;
    virtual float GetWAng(TimeValue t) = 0;
    virtual void SetUOffs(float value, TimeValue t) = 0;
    virtual void SetVOffs(float value, TimeValue t) = 0;
    virtual void SetUScl(float value, TimeValue t) = 0;
    virtual void SetVScl(float value, TimeValue t) = 0;
    virtual void SetAng(float value, TimeValue t) = 0;
    virtual void SetUAng(float value, TimeValue t) = 0;
    virtual void SetVAng(float value, TimeValue t) = 0;
    virtual void SetWAng(float value, TimeValue t) = 0;
};

class CoreExport BitmapTex : public Texmap, public FPMixinInterface {
public:
    void* GetInterface(ULONG id) override { return Texmap::GetInterface(id); }
    BaseInterface* GetInterface(Interface_ID id) override { return Texmap::GetInterface(id); }
    Class_ID ClassID() override { return Class_ID(BMTEX_CLASS_ID, 0); }
    virtual MCHAR* GetMapName() = 0;  // the file's name; may be ""
    virtual void SetMapName(const MCHAR* name) = 0;
    virtual StdUVGen* GetUVGen() = 0;
};

// Its getters with a time hide those of Mtl: call these through a Mtl*.
class CoreExport StdMat : public Mtl {
public:
    Class_ID ClassID() override { return Class_ID(DMTL_CLASS_ID, 0); }

    virtual Color GetAmbient(TimeValue t) = 0;
    virtual Color GetDiffuse(TimeValue t) = 0;
    virtual Color GetSpecular(TimeValue t) = 0;
    virtual float GetShininess(TimeValue t) = 0;
    virtual float GetShinStr(TimeValue t) = 0;
    virtual float GetSelfIllum(TimeValue t) = 0;
    virtual float GetOpacity(TimeValue t) = 0;  // 0 clear, 1 opaque
    virtual void SetOpacity(float value, TimeValue t) = 0;
    virtual void SetShinStr(float value, TimeValue t) = 0;
    virtual void SetSelfIllum(float value, TimeValue t) = 0;
    virtual void SetShading(int shading) = 0;
    virtual int GetShading() = 0;
    virtual void EnableMap(int slot, BOOL on) = 0;
    virtual BOOL MapEnabled(int slot) = 0;
    virtual void SetTexmapAmt(int slot, float amount, TimeValue t) = 0;
    virtual float GetTexmapAmt(int slot, TimeValue t) = 0;
};

class CoreExport StdMat2 : public StdMat {
public:
    virtual void SetSelfIllumColorOn(BOOL on) = 0;
    virtual void SetSelfIllumColor(Color colour, TimeValue t) = 0;
};

// Materials by face number; entries may be null. Face numbers count modulo their number.
class CoreExport MultiMtl : public Mtl {
public:
    Class_ID ClassID() override { return Class_ID(MULTI_CLASS_ID, 0); }
    BOOL IsMultiMtl() override { return TRUE; }
    virtual void SetNumSubMtls(int count) = 0;
};

CoreExport StdMat2* NewDefaultStdMat();
CoreExport BitmapTex* NewDefaultBitmapTex();
CoreExport MultiMtl* NewDefaultMultiMtl();
