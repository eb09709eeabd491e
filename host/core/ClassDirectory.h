#pragma once

#include <map>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "host/core/References.h"
#include "plugapi.h"

namespace maxhost {

// Every class that the host can make instances of: its own and those of the loaded
// modules, told apart by super class and class id.
class CoreExport ClassDirectory {
public:
    // A class of the host. The directory keeps the descriptor.
    void AddBuiltIn(std::unique_ptr<ClassDesc> desc);
    // A class of a module, which keeps the descriptor. False when the place is taken.
    bool Add(ClassDesc& desc);
    void Remove(ClassDesc& desc);

    // Null when there is none.
    ClassDesc* Find(SClass_ID superClass, Class_ID classID) const;
    // All of a super class, in the order they came.
    std::vector<ClassDesc*> FindAll(SClass_ID superClass) const;
    // A new instance, to be cast to the base of the super class; null when the class
    // isn't known.
    void* Create(SClass_ID superClass, Class_ID classID) const;

private:
    std::vector<ClassDesc*> m_Order;
    std::map<std::pair<SClass_ID, Class_ID>, ClassDesc*> m_ById;
    std::vector<std::unique_ptr<ClassDesc>> m_BuiltIn;
};

// Describes class T of the host, whose instances are handed out as its Base.
template <class Base, class T = Base>
class BuiltInClass final : public ClassDesc {
public:
    BuiltInClass(std::string name, SClass_ID superClass, Class_ID classID)
        : m_Name(std::move(name)), m_SuperClass(superClass), m_ClassID(classID)
    {
    }

    int IsPublic() override { return TRUE; }
    void* Create(BOOL) override
    {
        if constexpr (std::is_constructible_v<T, const std::string&, SClass_ID, Class_ID>)
            return static_cast<Base*>(SceneObjects::Adopt(new T(m_Name, m_SuperClass, m_ClassID)));
        else
            return static_cast<Base*>(SceneObjects::Adopt(new T));
    }
    const MCHAR* ClassName() override { return m_Name.c_str(); }
    SClass_ID SuperClassID() override { return m_SuperClass; }
    Class_ID ClassID() override { return m_ClassID; }
    const MCHAR* Category() override { return "Standard"; }

private:
    std::string m_Name;
    SClass_ID m_SuperClass;
    Class_ID m_ClassID;
};

}  // namespace maxhost
