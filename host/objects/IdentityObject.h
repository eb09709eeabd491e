#pragma once

#include <string>

#include "object.h"

namespace maxhost {

// An object of which the scene needs no more than what it is.
class IdentityObject final : public Object {
public:
    IdentityObject(std::string name, SClass_ID superClass, Class_ID classID)
        : m_Name(std::move(name)), m_SuperClass(superClass), m_ClassID(classID)
    {
    }

    SClass_ID SuperClassID() override { return m_SuperClass; }
    Class_ID ClassID() override { return m_ClassID; }
    void GetClassName(MSTR& name) override { name = m_Name.c_str(); }
    ObjectState Eval(TimeValue) override { return ObjectState(this); }
    RefResult NotifyRefChanged(Interval, RefTargetHandle, PartID&, RefMessage) override
    {
        return REF_SUCCEED;
    }

private:
    std::string m_Name;
    SClass_ID m_SuperClass;
    Class_ID m_ClassID;
};

}  // namespace maxhost
