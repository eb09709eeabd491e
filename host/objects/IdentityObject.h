#pragma once

#include <string>

#include "object.h"

namespace maxhost {

// An object of which the scene needs no more than what it is.
class IdentityObject final : public Object {
public:
    IdentityObject(std::string name, SClass_ID superClass, Class_ID classID)
        : m_name(std::move(name)), m_superClass(superClass), m_classID(classID)
    {
    }

    SClass_ID SuperClassID() override { return m_superClass; }
    Class_ID ClassID() override { return m_classID; }
    void GetClassName(MSTR& name) override { name = m_name.c_str(); }
    ObjectState Eval(TimeValue) override { return ObjectState(this); }

private:
    std::string m_name;
    SClass_ID m_superClass;
    Class_ID m_classID;
};

}  // namespace maxhost
