#pragma once

#include <cstddef>
#include <vector>

#include "ref.h"

namespace maxhost {

// One reference from a maker to a target. The target knows all slots that point at
// it: it can tell them of changes, it dies with the last slot that holds it, and when
// it dies by other means they become null. Linking and unlinking take constant time,
// however many share a target.
class CoreExport ReferenceSlot {
public:
    // A slot that shares keeps its target alive; one that watches only follows it, as
    // references to nodes do.
    enum class Hold { Share, Watch };

    explicit ReferenceSlot(ReferenceMaker& maker, Hold hold = Hold::Share) : m_Maker(maker), m_Hold(hold) {}
    ReferenceSlot(const ReferenceSlot&) = delete;
    ReferenceSlot& operator=(const ReferenceSlot&) = delete;
    ~ReferenceSlot() { SetTarget(nullptr); }

    ReferenceTarget* GetTarget() const { return m_Target; }
    void SetTarget(ReferenceTarget* target);

    static bool IsShared(const ReferenceTarget& target);

private:
    friend class ::ReferenceTarget;
    void Link(ReferenceTarget* target);
    void Unlink();

    ReferenceMaker& m_Maker;
    Hold m_Hold;
    ReferenceTarget* m_Target = nullptr;
    ReferenceSlot* m_Previous = nullptr;
    ReferenceSlot* m_Next = nullptr;
};

// A slot for targets of one class.
template <class T>
class Reference {
public:
    explicit Reference(ReferenceMaker& maker, ReferenceSlot::Hold hold = ReferenceSlot::Hold::Share)
        : m_Slot(maker, hold)
    {
    }
    Reference(ReferenceMaker& maker, T* target) : m_Slot(maker) { Set(target); }

    T* Get() const { return static_cast<T*>(m_Slot.GetTarget()); }
    T* operator->() const { return Get(); }
    explicit operator bool() const { return m_Slot.GetTarget() != nullptr; }
    void Set(T* target) { m_Slot.SetTarget(target); }

private:
    ReferenceSlot m_Slot;
};

// The objects that the host made on somebody's behalf: conversions, instances of
// classes, results of evaluations. They die as usual, by DeleteMe or with the last
// reference; those that nobody ended are freed when the scene closes.
class CoreExport SceneObjects {
public:
    // Answers its argument.
    template <class T>
    static T* Adopt(T* object)
    {
        Enter(*object);
        return object;
    }
    static std::size_t Count();
    static void FreeAll();

private:
    friend class ::ReferenceTarget;
    friend class ReferenceSlot;
    static void Enter(ReferenceTarget& object);
    static void Leave(ReferenceTarget& object);
    static bool IsEntered(const ReferenceTarget& object);
    // Deletes what nothing refers to any more. What goes with it is deleted after it,
    // not inside, so that chains of any length end without recursion.
    static void Condemn(ReferenceTarget& object);
};

}  // namespace maxhost
