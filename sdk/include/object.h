#pragma once

#include "box3.h"
#include "control.h"
#include "iparamb.h"
#include "plugapi.h"
#include "ref.h"

class INode;
class ModContext;
class Object;

#define ALL_CHANNELS ChannelMask(0x800027FF)

// The result of a pipeline. The object belongs to the host.
class CoreExport ObjectState {
public:
    Object* obj = nullptr;

    ObjectState() = default;
    ObjectState(Object* object) : obj(object) {}
};

class CoreExport BaseObject : public ReferenceTarget {
public:
    void* GetInterface(ULONG id) override
    {
        return id == I_BASEOBJECT ? this : ReferenceTarget::GetInterface(id);
    }
    using ReferenceTarget::GetInterface;

    // The old-style parameters. Hides Animatable::GetParamBlock(int), which is to be
    // called through an Animatable*.
    virtual IParamArray* GetParamBlock() { return nullptr; }
    virtual int GetParamBlockIndex(int) { return -1; }
    virtual MCHAR* GetObjectName()
    {
        static MCHAR name[] = "Object";
        return name;
    }
};

class CoreExport Object : public BaseObject {
public:
    virtual ObjectState Eval(TimeValue t) = 0;

    // Whoever converts owns a result that is another object, and ends it by DeleteMe.
    // Null when there is no such conversion.
    virtual int CanConvertToType(Class_ID classID) { return classID == ClassID(); }
    virtual Object* ConvertToType(TimeValue, Class_ID classID)
    {
        return classID == ClassID() ? this : nullptr;
    }
    // For how long the result of Eval stays true.
    virtual Interval ObjectValidity(TimeValue) { return FOREVER; }
    // Below all modifiers.
    virtual Object* FindBaseObject() { return this; }

    // What modifiers work on: a copy of the geometry, null when there is none to copy,
    // and the copying of another object of the same class into this one.
    virtual Object* MakeShallowCopy(ChannelMask) { return nullptr; }
    virtual void ShallowCopy(Object*, ChannelMask) {}
};

class CoreExport GeomObject : public Object {
public:
    SClass_ID SuperClassID() override { return GEOMOBJECT_CLASS_ID; }
};

class CoreExport ShapeObject : public GeomObject {
public:
    SClass_ID SuperClassID() override { return SHAPE_CLASS_ID; }
};

class CoreExport HelperObject : public Object {
public:
    SClass_ID SuperClassID() override { return HELPER_CLASS_ID; }
};

class CoreExport CameraObject : public Object {
public:
    SClass_ID SuperClassID() override { return CAMERA_CLASS_ID; }
};

class CoreExport LightObject : public Object {
public:
    SClass_ID SuperClassID() override { return LIGHT_CLASS_ID; }
};

// What a modifier keeps about one object that it works on.
class CoreExport LocalModData : public InterfaceServer {
public:
    virtual LocalModData* Clone() = 0;
};

// How one object stands in the space of one modifier. All parts may be null; they
// belong to the context.
class CoreExport ModContext : public BaseInterfaceServer {
public:
    Matrix3* tm = nullptr;  // from object space to that of the modifier; null: identity
    Box3* box = nullptr;
    LocalModData* localData = nullptr;

    ModContext() = default;
    ModContext(const ModContext& other);
    ModContext(Matrix3* tm, Box3* box, LocalModData* localData);  // copies all three
    ModContext& operator=(const ModContext&) = delete;
    ~ModContext() override;
};

class CoreExport Modifier : public BaseObject {
public:
    SClass_ID SuperClassID() override { return OSM_CLASS_ID; }

    // The class's name until the user gives another.
    virtual MSTR GetName();
    virtual void SetName(MSTR name) { m_Name = name; }
    int IsEnabled() { return m_Enabled; }
    void EnableMod();
    void DisableMod();

    // Works on the object of the state, in place. `node` is the one evaluated for.
    virtual void ModifyObject(TimeValue t, ModContext& context, ObjectState* state, INode* node) = 0;
    // For how long what it did stays true.
    virtual Interval LocalValidity(TimeValue) { return FOREVER; }

private:
    MSTR m_Name;
    BOOL m_Enabled = TRUE;
};
