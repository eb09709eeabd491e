#include "VKT/document/InstanceTable.h"

#include <algorithm>

#include "VKT/hierarchy/Bone.h"
#include "VKT/hierarchy/Shape.h"

namespace VKT {
namespace {

u64 PlaceKey(u32 bone, u32 shape)
{
    return u64{bone} << 32 | shape;
}

// Instance ids stand in ascending order wherever they are listed.
void EraseId(XIndexList& ids, u32 id)
{
    const auto found = std::lower_bound(ids.begin(), ids.end(), id);
    if (found != ids.end() && *found == id)
        ids.erase(found);
}

}  // namespace

XInstance* XInstanceTable::Create(XModel& model, XBone& bone, XShape& shape)
{
    auto instance = std::make_unique<XInstance>(&model);
    instance->m_Name = shape.GetName();
    instance->m_Object = shape.GetID();
    instance->m_Parent = bone.GetID();
    XInstance* const created = Add(std::move(instance));
    bone.m_Instances.push_back(created->m_ID);
    shape.m_Instances.push_back(created->m_ID);
    return created;
}

XInstance* XInstanceTable::Add(std::unique_ptr<XInstance> instance)
{
    instance->m_ID = ++m_LastId;
    ++m_ByPlace.try_emplace(PlaceKey(instance->m_Parent, instance->m_Object), Place{instance->m_ID, 0})
          .first->second.count;
    m_ByShape[instance->m_Object].push_back(instance->m_ID);
    return m_Instances.emplace_back(std::move(instance)).get();
}

bool XInstanceTable::Delete(u32 id)
{
    const auto found = PlaceOf(id);
    if (found == m_Instances.end())
        return false;
    XInstance& instance = **found;
    if (XBone* bone = instance.GetParent())
        EraseId(bone->m_Instances, id);
    EraseId(m_ByShape[instance.m_Object], id);
    LeavePlace(instance);
    instance.m_IsDead = true;
    if (2 * ++m_Dead > m_Instances.size()) {
        std::erase_if(m_Instances, [](const auto& each) { return each->m_IsDead; });
        m_Dead = 0;
    }
    return true;
}

// The next instance of that shape under that bone becomes the first one.
void XInstanceTable::LeavePlace(const XInstance& instance)
{
    const auto place = m_ByPlace.find(PlaceKey(instance.m_Parent, instance.m_Object));
    if (place == m_ByPlace.end())
        return;
    if (--place->second.count == 0) {
        m_ByPlace.erase(place);
    } else if (place->second.first == instance.m_ID) {
        const XIndexList& rest = m_ByShape[instance.m_Object];
        const auto next = std::find_if(rest.begin(), rest.end(), [&](u32 id) {
            const XInstance* const other = Find(id);
            return other && other->m_Parent == instance.m_Parent;
        });
        place->second.first = next == rest.end() ? 0 : *next;
    }
}

XInstanceTable::Instances::const_iterator XInstanceTable::PlaceOf(u32 id) const
{
    const auto found =
        std::lower_bound(m_Instances.begin(), m_Instances.end(), id,
                         [](const auto& instance, u32 wanted) { return instance->m_ID < wanted; });
    return found != m_Instances.end() && (*found)->m_ID == id && !(*found)->m_IsDead ? found
                                                                                     : m_Instances.end();
}

XInstance* XInstanceTable::Find(u32 id) const
{
    const auto found = PlaceOf(id);
    return found == m_Instances.end() ? nullptr : found->get();
}

XInstance* XInstanceTable::Find(const XBone& bone, const XShape& shape) const
{
    const XIndexList& own = bone.GetInstanceIds();  // ascending
    const auto isOwn = [&](u32 id) { return std::binary_search(own.begin(), own.end(), id); };
    const auto place = m_ByPlace.find(PlaceKey(bone.GetID(), shape.GetID()));
    if (place != m_ByPlace.end() && isOwn(place->second.first))
        return Find(place->second.first);
    if (place == m_ByPlace.end() && !bone.m_SharesInstances)
        return nullptr;
    // A bone of an id that another one has, or one that shares the instances of its source.
    const auto ofShape = m_ByShape.find(shape.GetID());
    if (ofShape == m_ByShape.end())
        return nullptr;
    const auto found = std::find_if(ofShape->second.begin(), ofShape->second.end(), isOwn);
    return found == ofShape->second.end() ? nullptr : Find(*found);
}

bool XInstanceTable::List(XInstanceList& out) const
{
    out.clear();
    for (const auto& instance : m_Instances)
        if (!instance->m_IsDead)
            out.push_back(instance.get());
    return !out.empty();
}

void XInstanceTable::ListOf(u32 shape, XIndexList& ids) const
{
    const auto found = m_ByShape.find(shape);
    ids = found == m_ByShape.end() ? XIndexList() : found->second;
}

}  // namespace VKT
