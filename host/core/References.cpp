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
    if (target == m_target)
        return;
    ReferenceTarget* former = m_target;
    if (former)
        Unlink();
    if (target)
        Link(target);
    if (former && m_hold == Hold::Share && !IsShared(*former))
        SceneObjects::Condemn(*former);
}

bool ReferenceSlot::IsShared(const ReferenceTarget& target)
{
    const ReferenceSlot* slot = target.m_slots;
    while (slot && slot->m_hold == Hold::Watch)
        slot = slot->m_next;
    return slot != nullptr;
}

void ReferenceSlot::Link(ReferenceTarget* target)
{
    m_target = target;
    m_next = target->m_slots;
    if (m_next)
        m_next->m_previous = this;
    target->m_slots = this;
}

void ReferenceSlot::Unlink()
{
    (m_previous ? m_previous->m_next : m_target->m_slots) = m_next;
    if (m_next)
        m_next->m_previous = m_previous;
    m_target = nullptr;
    m_previous = nullptr;
    m_next = nullptr;
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
    object.m_next = g_firstObject;
    if (g_firstObject)
        g_firstObject->m_previous = &object;
    g_firstObject = &object;
    ++g_objectCount;
}

void SceneObjects::Leave(ReferenceTarget& object)
{
    if (!IsEntered(object))
        return;
    (object.m_previous ? object.m_previous->m_next : g_firstObject) = object.m_next;
    if (object.m_next)
        object.m_next->m_previous = object.m_previous;
    object.m_previous = nullptr;
    object.m_next = nullptr;
    --g_objectCount;
}

bool SceneObjects::IsEntered(const ReferenceTarget& object)
{
    return object.m_previous || object.m_next || g_firstObject == &object;
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

RefResult ReferenceMaker::ReplaceReference(int which, RefTargetHandle target)
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
    while (m_slots)
        m_slots->Unlink();
    maxhost::SceneObjects::Leave(*this);
}

RefResult ReferenceTarget::NotifyDependents(const Interval& changed, PartID part, RefMessage message)
{
    for (maxhost::ReferenceSlot* slot = m_slots; slot;) {
        maxhost::ReferenceSlot* next = slot->m_next;
        slot->m_maker.NotifyRefChanged(changed, this, part, message);
        slot = next;
    }
    return REF_SUCCEED;
}
