#pragma once

#include "control.h"
#include "ifnpub.h"

// Kinds of tangent: the in-tangent in bits 7 to 9 of the flags, the out-tangent in
// bits 10 to 12.
#define BEZKEY_NUMTYPEBITS 3
#define BEZKEY_TYPEMASK 7
#define BEZKEY_SMOOTH 0
#define BEZKEY_LINEAR 1
#define BEZKEY_STEP 2
#define BEZKEY_FAST 3
#define BEZKEY_SLOW 4
#define BEZKEY_USER 5
#define BEZKEY_FLAT 6
// The setters are blocks: statements without a value, and no branch before an else.
#define GetInTanType(f) (int(((f) >> 7) & BEZKEY_TYPEMASK))
#define GetOutTanType(f) (int(((f) >> 10) & BEZKEY_TYPEMASK))
#define SetInTanType(f, t)                                            \
    {                                                                 \
        (f) = ((f) & ~DWORD(BEZKEY_TYPEMASK << 7)) | DWORD((t) << 7); \
    }
#define SetOutTanType(f, t)                                             \
    {                                                                   \
        (f) = ((f) & ~DWORD(BEZKEY_TYPEMASK << 10)) | DWORD((t) << 10); \
    }

class IKey {
public:
    TimeValue time = 0;
    DWORD flags = 0;
};

// What a key holds beyond its time and its flags is unset until it is given.
class ILinFloatKey : public IKey {
public:
    ILinFloatKey() {}

    float val;
};

// Tangents in value per tick, away from the key on either side; lengths as parts of
// the segment.
class IBezFloatKey : public IKey {
public:
    IBezFloatKey() {}

    float intan, outtan;
    float val;
    float inLength, outLength;
};

class IBezPoint3Key : public IKey {
public:
    Point3 intan, outtan;
    Point3 val;
    Point3 inLength, outLength;
};

class IBezScaleKey : public IKey {
public:
    Point3 intan, outtan;
    ScaleValue val;
    Point3 inLength, outLength;
};

// Room for a key of any controller.
class AnyKey {
public:
    operator IKey*() { return reinterpret_cast<IKey*>(m_Data); }

private:
    alignas(8) char m_Data[128] = {};
};

// The keys of a controller, had by GetInterface(I_KEYCONTROL). Keys are of the
// controller's own kind, whatever it is given: read into an AnyKey.
class CoreExport IKeyControl {
public:
    virtual int GetNumKeys() = 0;
    virtual void SetNumKeys(int n) = 0;
    virtual void GetKey(int i, IKey* key) = 0;
    virtual void SetKey(int i, IKey* key) = 0;
    virtual int AppendKey(IKey* key) = 0;
    // To be called after keys were set or appended out of order.
    virtual void SortKeys() = 0;
    virtual DWORD& GetTrackFlags() = 0;
    virtual int GetKeySize() { return 128; }

protected:
    ~IKeyControl() = default;  // not virtual: nobody deletes a controller through it
};
