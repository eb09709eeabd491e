#include "host/modifiers/DerivedObject.h"

#include "triobj.h"

Class_ID derivObjClassID(DERIVOB_CLASS_ID, 0);

IDerivedObject* CreateDerivedObject(Object* object)
{
    return maxhost::SceneObjects::Adopt(new maxhost::DerivedObject(object));
}

namespace maxhost {

DerivedObject::Layer::Layer(ReferenceMaker& maker, Modifier* added, const ModContext* given)
    : modifier(maker, added), context(given ? *given : ModContext())
{
}

DerivedObject::DerivedObject(Object* object) : m_Object(*this, object) {}

DerivedObject::~DerivedObject()
{
    for (const std::unique_ptr<Result>& result : m_Results)
        if (Object* object = result->object.Get())
            object->DeleteMe();
}

RefTargetHandle DerivedObject::GetReference(int i)
{
    return i == 0 ? static_cast<ReferenceTarget*>(GetObjRef()) : GetModifier(i - 1);
}

void DerivedObject::SetReference(int i, RefTargetHandle target)
{
    if (i == 0)
        ReferenceObject(static_cast<Object*>(target));
    else
        SetModifier(i - 1, static_cast<Modifier*>(target));
}

RefResult DerivedObject::NotifyRefChanged(Interval, RefTargetHandle, PartID&, RefMessage message)
{
    if (message == REFMSG_CHANGE)
        Changed();
    return REF_SUCCEED;
}

void DerivedObject::AddModifier(Modifier* modifier, ModContext* context, int before)
{
    m_Modifiers.insert(m_Modifiers.begin() + before, std::make_unique<Layer>(*this, modifier, context));
    Changed();
}

void DerivedObject::DeleteModifier(int index)
{
    m_Modifiers.erase(m_Modifiers.begin() + index);
    Changed();
}

void DerivedObject::SetModifier(int index, Modifier* modifier)
{
    At(index).modifier.Set(modifier);
    Changed();
}

RefResult DerivedObject::ReferenceObject(Object* object)
{
    m_Object.Set(object);
    Changed();
    return REF_SUCCEED;
}

ObjectState DerivedObject::Eval(TimeValue t, int modIndex)
{
    ObjectState state = m_Object ? m_Object->Eval(t) : ObjectState();
    if (!state.obj || !HasEnabledModifier(modIndex))
        return state;
    Result& result = ResultFrom(modIndex);
    if (result.object && result.valid.InInterval(t))
        return ObjectState(result.object.Get());

    Object* copy = BroughtUpToDate(result.object.Get(), state.obj, t);
    if (!copy)
        return state;
    result.object.Set(copy);
    result.valid = m_Object->ObjectValidity(t);
    state.obj = copy;
    for (int i = NumModifiers() - 1; i >= modIndex; --i) {
        Modifier* modifier = GetModifier(i);
        if (!modifier || !modifier->IsEnabled())
            continue;
        modifier->ModifyObject(t, At(i).context, &state, nullptr);
        result.valid &= modifier->LocalValidity(t);
    }
    return ObjectState(copy);
}

// Geometry made from parameters is turned into triangles first. Null for what has no
// geometry: modifiers then find nothing to work on.
Object* DerivedObject::BroughtUpToDate(Object* copy, Object* source, TimeValue t)
{
    Object* fresh = nullptr;
    if (!copy || copy->ClassID() != source->ClassID()) {
        fresh = source->MakeShallowCopy(ALL_CHANNELS);
        if (!fresh && source->CanConvertToType(triObjectClassID))
            fresh = source->ConvertToType(t, triObjectClassID);
        if (!fresh || !copy || copy->ClassID() != fresh->ClassID())
            return fresh;
    }
    copy->ShallowCopy(fresh ? fresh : source, ALL_CHANNELS);
    if (fresh)
        fresh->DeleteMe();
    return copy;
}

Interval DerivedObject::ObjectValidity(TimeValue t)
{
    if (!m_Object)
        return FOREVER;
    Eval(t, 0);
    return HasEnabledModifier(0) && ResultFrom(0).object ? ResultFrom(0).valid : m_Object->ObjectValidity(t);
}

int DerivedObject::CanConvertToType(Class_ID classID)
{
    if (classID == derivObjClassID)
        return TRUE;
    Object* evaluated = Eval(0, 0).obj;
    return evaluated && evaluated->CanConvertToType(classID);
}

Object* DerivedObject::ConvertToType(TimeValue t, Class_ID classID)
{
    if (classID == derivObjClassID)
        return this;
    Object* evaluated = Eval(t, 0).obj;
    Object* converted = evaluated ? evaluated->ConvertToType(t, classID) : nullptr;
    return converted && converted == evaluated ? evaluated->MakeShallowCopy(ALL_CHANNELS) : converted;
}

bool DerivedObject::HasEnabledModifier(int from)
{
    for (int i = from; i < NumModifiers(); ++i)
        if (GetModifier(i) && GetModifier(i)->IsEnabled())
            return true;
    return false;
}

DerivedObject::Result& DerivedObject::ResultFrom(int modIndex)
{
    while (m_Results.size() <= static_cast<std::size_t>(modIndex))
        m_Results.push_back(std::make_unique<Result>(*this));
    return *m_Results[static_cast<std::size_t>(modIndex)];
}

void DerivedObject::Changed()
{
    for (const std::unique_ptr<Result>& result : m_Results)
        result->valid.SetEmpty();
    NotifyDependents(FOREVER, PART_ALL, REFMSG_CHANGE);
}

}  // namespace maxhost
