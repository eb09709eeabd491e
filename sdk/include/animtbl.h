#pragma once

#include "baseinterface.h"
#include "interval.h"
#include "strclass.h"

// A system header's macro, which would rename the member of Animatable.
#undef GetClassName

class IParamBlock2;
class Interface;

// Numbers for Animatable::GetInterface(ULONG). The result is cast to the class that
// the number names and to no other.
#define I_CONTROL 0x00001001
#define I_MASTER 0x00001010
#define I_BASEOBJECT 0x00001040
#define I_WSMOBJECT 0x00001041
#define I_DERIVEDOBJECT 0x00001042
#define I_OBJECT 0x00001043
#define I_KEYCONTROL 0x00001060
#define I_KEYCONTROL2 0x00001061
#define I_SUBMAP 0x00001150

// What has an identity and may have parts that change over time. It is never copied,
// and ends by DeleteThis or DeleteMe: only itself may delete it.
class CoreExport Animatable : public InterfaceServer {
public:
    Animatable(const Animatable&) = delete;
    Animatable& operator=(const Animatable&) = delete;

    virtual void DeleteThis() { delete this; }
    virtual void GetClassName(MSTR& name) { name = "Animatable"; }
    virtual SClass_ID SuperClassID() = 0;
    virtual Class_ID ClassID() { return Class_ID(0, 0); }

    virtual void* GetInterface(ULONG) { return nullptr; }
    using InterfaceServer::GetInterface;

    // The parts, by number and display name. A part may be null.
    virtual int NumSubs() { return 0; }
    virtual Animatable* SubAnim(int) { return nullptr; }
    virtual MSTR SubAnimName(int) { return MSTR(); }

    virtual BOOL IsSubClassOf(Class_ID classID) { return classID == ClassID(); }

    virtual int NumParamBlocks() { return 0; }
    virtual IParamBlock2* GetParamBlock(int) { return nullptr; }
    virtual IParamBlock2* GetParamBlockByID(BlockID) { return nullptr; }

protected:
    Animatable() = default;
    ~Animatable() override = default;
};

// The running host.
CoreExport Interface* GetCOREInterface();
