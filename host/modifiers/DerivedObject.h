#pragma once

#include <memory>
#include <vector>

#include "host/core/References.h"
#include "modstack.h"

namespace maxhost {

// An object and the modifiers on it.
//
// The evaluated object is a copy of what lies below, made once, brought up to date in
// place and kept as long as this one lives: whoever keys tables by evaluated objects
// meets one address for one stack. Only a change of the object's class asks for another
// copy; the former one then stays, out of use, until the scene closes, so that its
// address doesn't come back as something else.
class DerivedObject final : public IDerivedObject {
public:
    explicit DerivedObject(Object* object);
    ~DerivedObject() override;

    void GetClassName(MSTR& name) override { name = "Derived Object"; }
    int NumRefs() override { return 1 + NumModifiers(); }
    RefTargetHandle GetReference(int i) override;
    RefResult NotifyRefChanged(Interval changed, RefTargetHandle, PartID& part, RefMessage message) override;

    void AddModifier(Modifier* modifier, ModContext* context, int before) override;
    void DeleteModifier(int index) override;
    int NumModifiers() override { return static_cast<int>(m_Modifiers.size()); }
    Modifier* GetModifier(int index) override { return At(index).modifier.Get(); }
    void SetModifier(int index, Modifier* modifier) override;
    ModContext* GetModContext(int index) override { return &At(index).context; }
    Object* GetObjRef() override { return m_Object.Get(); }
    RefResult ReferenceObject(Object* object) override;

    using IDerivedObject::Eval;
    ObjectState Eval(TimeValue t, int modIndex) override;
    Interval ObjectValidity(TimeValue t) override;
    int IsSubClassOf(Class_ID classID) override { return classID == derivObjClassID; }
    // Of the evaluated object. What is answered is always the caller's.
    int CanConvertToType(Class_ID classID) override;
    Object* ConvertToType(TimeValue t, Class_ID classID) override;
    Object* FindBaseObject() override { return m_Object ? m_Object->FindBaseObject() : nullptr; }

private:
    void SetReference(int i, RefTargetHandle target) override;
    struct Layer {
        Layer(ReferenceMaker& maker, Modifier* modifier, const ModContext* given);
        Reference<Modifier> modifier;
        ModContext context;
    };
    // What a stack evaluates to from one of its modifiers downwards.
    struct Result {
        explicit Result(ReferenceMaker& maker) : object(maker, ReferenceSlot::Hold::Watch) {}
        Reference<Object> object;
        Interval valid;
    };

    Layer& At(int index) { return *m_Modifiers[static_cast<std::size_t>(index)]; }
    bool HasEnabledModifier(int from);
    Result& ResultFrom(int modIndex);
    Object* BroughtUpToDate(Object* copy, Object* source, TimeValue t);
    void Changed();

    Reference<Object> m_Object;
    std::vector<std::unique_ptr<Layer>> m_Modifiers;
    std::vector<std::unique_ptr<Result>> m_Results;  // by modifier index
};

}  // namespace maxhost
