#include "host/core/ClassDirectory.h"

#include <algorithm>

namespace maxhost {

void ClassDirectory::AddBuiltIn(std::unique_ptr<ClassDesc> desc)
{
    if (Add(*desc))
        m_BuiltIn.push_back(std::move(desc));
}

bool ClassDirectory::Add(ClassDesc& desc)
{
    if (!m_ById.try_emplace({desc.SuperClassID(), desc.ClassID()}, &desc).second)
        return false;
    m_Order.push_back(&desc);
    return true;
}

void ClassDirectory::Remove(ClassDesc& desc)
{
    if (Find(desc.SuperClassID(), desc.ClassID()) != &desc)
        return;
    m_ById.erase({desc.SuperClassID(), desc.ClassID()});
    std::erase(m_Order, &desc);
}

ClassDesc* ClassDirectory::Find(SClass_ID superClass, Class_ID classID) const
{
    const auto found = m_ById.find({superClass, classID});
    return found != m_ById.end() ? found->second : nullptr;
}

std::vector<ClassDesc*> ClassDirectory::FindAll(SClass_ID superClass) const
{
    std::vector<ClassDesc*> found;
    std::copy_if(m_Order.begin(), m_Order.end(), std::back_inserter(found),
                 [=](ClassDesc* desc) { return desc->SuperClassID() == superClass; });
    return found;
}

void* ClassDirectory::Create(SClass_ID superClass, Class_ID classID) const
{
    ClassDesc* desc = Find(superClass, classID);
    return desc ? desc->Create(FALSE) : nullptr;
}

}  // namespace maxhost
