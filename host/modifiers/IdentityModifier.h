#pragma once

#include <string>

#include "object.h"

namespace maxhost {

// A modifier of which the scene needs no more than what it is: it leaves the object as
// it finds it.
class IdentityModifier final : public Modifier {
public:
    IdentityModifier(std::string name, SClass_ID, Class_ID classID)
        : m_className(std::move(name)), m_classID(classID)
    {
    }

    Class_ID ClassID() override { return m_classID; }
    void GetClassName(MSTR& name) override { name = m_className.c_str(); }
    void ModifyObject(TimeValue, ModContext&, ObjectState*, INode*) override {}

private:
    std::string m_className;
    Class_ID m_classID;
};

}  // namespace maxhost
