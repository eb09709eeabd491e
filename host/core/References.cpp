#include "host/core/References.h"

namespace maxhost {

namespace {

ReferenceTarget* g_firstObject = nullptr;
std::size_t g_objectCount = 0;
std::vector<ReferenceTarget*> g_condemned;
bool g_deleting = false;

}  // namespace

void ReferenceSlot::SetTarget(ReferenceTarget* target)
{
    if (target == m_Target)
        return;
    ReferenceTarget* former = m_Target;
    if (former)
        Unlink();
    if (target)
        Link(target);
    if (former && m_Hold == Hold::Share && !IsShared(*former))
        SceneObjects::Condemn(*former);
}

bool ReferenceSlot::IsShared(const ReferenceTarget& target)
{
    const ReferenceSlot* slot = target.m_Slots;
    while (slot && slot->m_Hold == Hold::Watch)
        slot = slot->m_Next;
    return slot != nullptr;
}

void ReferenceSlot::Link(ReferenceTarget* target)
{
    m_Target = target;
    m_Next = target->m_Slots;
    if (m_Next)
        m_Next->m_Previous = this;
    target->m_Slots = this;
}

void ReferenceSlot::Unlink()
{
    (m_Previous ? m_Previous->m_Next : m_Target->m_Slots) = m_Next;
    if (m_Next)
        m_Next->m_Previous = m_Previous;
    m_Target = nullptr;
    m_Previous = nullptr;
    m_Next = nullptr;
}

std::size_t SceneObjects::Count()
{
    return g_objectCount;
}

void SceneObjects::FreeAll()
{
    while (g_firstObject)
        Condemn(*g_firstObject);
}

void SceneObjects::Enter(ReferenceTarget& object)
{
    if (IsEntered(object))
        return;
    object.m_Next = g_firstObject;
    if (g_firstObject)
        g_firstObject->m_Previous = &object;
    g_firstObject = &object;
    ++g_objectCount;
}

void SceneObjects::Leave(ReferenceTarget& object)
{
    if (!IsEntered(object))
        return;
    (object.m_Previous ? object.m_Previous->m_Next : g_firstObject) = object.m_Next;
    if (object.m_Next)
        object.m_Next->m_Previous = object.m_Previous;
    object.m_Previous = nullptr;
    object.m_Next = nullptr;
    --g_objectCount;
}

bool SceneObjects::IsEntered(const ReferenceTarget& object)
{
    return object.m_Previous || object.m_Next || g_firstObject == &object;
}

void SceneObjects::Condemn(ReferenceTarget& object)
{
    g_condemned.push_back(&object);
    if (g_deleting)
        return;
    g_deleting = true;
    while (!g_condemned.empty()) {
        ReferenceTarget* next = g_condemned.back();
        g_condemned.pop_back();
        next->DeleteThis();
    }
    g_deleting = false;
}

}  // namespace maxhost

RefResult ReferenceMaker::ReplaceReference(int which, RefTargetHandle target, BOOL)
{
    if (which < 0 || which >= NumRefs())
        return REF_INVALID;
    SetReference(which, target);
    return REF_SUCCEED;
}

void ReferenceMaker::DeleteMe()
{
    const ReferenceTarget* target = dynamic_cast<ReferenceTarget*>(this);
    if (!target || !maxhost::ReferenceSlot::IsShared(*target))
        DeleteThis();
}

ReferenceTarget::~ReferenceTarget()
{
    while (m_Slots)
        m_Slots->Unlink();
    maxhost::SceneObjects::Leave(*this);
}

RefResult ReferenceTarget::NotifyDependents(const Interval& changed, PartID part, RefMessage message,
                                            SClass_ID superClass, BOOL, RefTargetHandle target)
{
    const bool all = superClass == ~SClass_ID(0);
    for (maxhost::ReferenceSlot* slot = m_Slots; slot;) {
        maxhost::ReferenceSlot* next = slot->m_Next;
        if (all || slot->m_Maker.SuperClassID() == superClass)
            slot->m_Maker.NotifyRefChanged(changed, target ? target : this, part, message);
        slot = next;
    }
    return REF_SUCCEED;
}
