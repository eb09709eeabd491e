#pragma once

#include <string>

#include "object.h"

namespace maxhost {

// A modifier of which the scene needs no more than what it is: it leaves the object as
// it finds it.
class IdentityModifier final : public Modifier {
public:
    IdentityModifier(std::string name, SClass_ID, Class_ID classID)
        : m_ClassName(std::move(name)), m_ClassID(classID)
    {
    }

    Class_ID ClassID() override { return m_ClassID; }
    void GetClassName(MSTR& name) override { name = m_ClassName.c_str(); }
    void ModifyObject(TimeValue, ModContext&, ObjectState*, INode*) override {}
    RefResult NotifyRefChanged(Interval, RefTargetHandle, PartID&, RefMessage) override
    {
        return REF_SUCCEED;
    }

private:
    std::string m_ClassName;
    Class_ID m_ClassID;
};

}  // namespace maxhost
