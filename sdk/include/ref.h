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
#define PART_ALL PartID(0xffffffff)

namespace maxhost {
class ReferenceSlot;
class SceneObjects;
}  // namespace maxhost

// What refers to others, by number.
class CoreExport ReferenceMaker : public Animatable {
public:
    virtual int NumRefs() { return 0; }
    virtual RefTargetHandle GetReference(int) { return nullptr; }
    virtual void SetReference(int, RefTargetHandle) {}
    RefResult ReplaceReference(int which, RefTargetHandle target);

    // Told by a target that this one refers to.
    virtual RefResult NotifyRefChanged(Interval, RefTargetHandle, PartID&, RefMessage)
    {
        return REF_DONTCARE;
    }

    // Drops all references and, when nothing refers to it, deletes the object.
    void DeleteMe();
};

// What can be referred to. Dies with the last reference to it, or by DeleteMe.
class CoreExport ReferenceTarget : public ReferenceMaker {
public:
    ReferenceTarget() = default;
    ReferenceTarget(const ReferenceTarget&) {}  // references are not copied
    ReferenceTarget& operator=(const ReferenceTarget&) { return *this; }
    ~ReferenceTarget() override;

    BOOL HasReferences() const { return m_Slots != nullptr; }
    // Passes a message to all that refer to this.
    RefResult NotifyDependents(const Interval& changed, PartID part, RefMessage message);

private:
    // The host's bookkeeping: who refers to this, and its place among the objects
    // that the scene frees when it closes.
    friend class maxhost::ReferenceSlot;
    friend class maxhost::SceneObjects;
    maxhost::ReferenceSlot* m_Slots = nullptr;
    ReferenceTarget* m_Previous = nullptr;
    ReferenceTarget* m_Next = nullptr;
};
