#pragma once

#include "object.h"

extern CoreExport Class_ID derivObjClassID;

// An object below a list of modifiers. Index 0 is the top, the last to be evaluated.
class CoreExport IDerivedObject : public Object {
public:
    SClass_ID SuperClassID() override { return GEN_DERIVOB_CLASS_ID; }
    Class_ID ClassID() override { return derivObjClassID; }

    // Puts it above number `before`: 0 on top, NumModifiers() at the bottom. A context
    // that is given is copied.
    virtual void AddModifier(Modifier* modifier, ModContext* context = nullptr, int before = 0) = 0;
    virtual void DeleteModifier(int index = 0) = 0;
    virtual int NumModifiers() = 0;
    virtual Modifier* GetModifier(int index) = 0;
    virtual void SetModifier(int index, Modifier* modifier) = 0;
    virtual ModContext* GetModContext(int index) = 0;

    virtual Object* GetObjRef() = 0;
    virtual RefResult ReferenceObject(Object* object) = 0;

    ObjectState Eval(TimeValue t) override { return Eval(t, 0); }
    // As seen below the modifiers in front of `modIndex`.
    virtual ObjectState Eval(TimeValue t, int modIndex) = 0;
};

CoreExport IDerivedObject* CreateDerivedObject(Object* object = nullptr);
