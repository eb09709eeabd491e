#pragma once

#include "animtbl.h"

class ReferenceTarget;
using RefTargetHandle = ReferenceTarget*;

enum RefResult {
    REF_FAIL = 0,
    REF_HALT = 0,
    REF_SUCCEED = 1,
    REF_DONTCARE = 2,
    REF_STOP = 3,
    REF_INVALID = 4
};

// The one message of the host so far: the sender's values changed.
#define REFMSG_CHANGE 0x00000050
// Every channel, and the parts that are none: sign-extended where a PartID is 64 bits.
#define PART_ALL PartID(INT_PTR(INT(0x800037FF)))

namespace maxhost {
class ReferenceSlot;
class SceneObjects;
}  // namespace maxhost

// What refers to others, by number.
class CoreExport ReferenceMaker : public Animatable {
public:
    virtual int NumRefs() { return 0; }
    virtual RefTargetHandle GetReference(int) { return nullptr; }
    // The only way to set a reference from outside. The former target goes when nothing
    // else refers to it, whatever `deleteOld` says.
    RefResult ReplaceReference(int which, RefTargetHandle target, BOOL deleteOld = TRUE);

    // Drops all references and, when nothing refers to it, deletes the object.
    void DeleteMe();

protected:
    ReferenceMaker() = default;
    ~ReferenceMaker() override = default;
    virtual void SetReference(int, RefTargetHandle) {}
    // Told by a target that this one refers to.
    virtual RefResult NotifyRefChanged(Interval changed, RefTargetHandle target, PartID& part,
                                       RefMessage message) = 0;

    friend class ReferenceTarget;  // which passes messages on
};

// What can be referred to. Dies with the last reference to it, or by DeleteMe.
class CoreExport ReferenceTarget : public ReferenceMaker {
public:
    BOOL HasDependents() const { return m_Slots != nullptr; }
    // Passes a message to all that refer to this, or to those of one super class. It
    // speaks for `target` where one is given.
    virtual RefResult NotifyDependents(const Interval& changed, PartID part, RefMessage message,
                                       SClass_ID superClass = ~SClass_ID(0), BOOL propagate = TRUE,
                                       RefTargetHandle target = nullptr);

protected:
    ReferenceTarget() = default;
    ~ReferenceTarget() override;

private:
    // Each class answers for itself.
    RefResult NotifyRefChanged(Interval changed, RefTargetHandle target, PartID& part,
                               RefMessage message) override = 0;

    // The host's bookkeeping: who refers to this, and its place among the objects
    // that the scene frees when it closes.
    friend class maxhost::ReferenceSlot;
    friend class maxhost::SceneObjects;
    maxhost::ReferenceSlot* m_Slots = nullptr;
    ReferenceTarget* m_Previous = nullptr;
    ReferenceTarget* m_Next = nullptr;
};
