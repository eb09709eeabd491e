#include "VKT/document/Model.h"

#include <algorithm>
#include <charconv>
#include <limits>

#include "VKT/animation/AnimCycle.h"
#include "VKT/hierarchy/BoneWalk.h"
#include "VKT/hierarchy/Shape.h"
#include "VKT/node/FnRegistry.h"

namespace VKT {
namespace {

u64 PlaceKey(u32 bone, u32 shape)
{
    return u64{bone} << 32 | shape;
}

XString Numbered(std::string_view stem, u32 number)
{
    return XString(stem) + std::to_string(number);
}

// Instance ids stand in ascending order wherever they are listed.
void EraseId(XIndexList& ids, u32 id)
{
    const auto found = std::lower_bound(ids.begin(), ids.end(), id);
    if (found != ids.end() && *found == id)
        ids.erase(found);
}

}  // namespace

XModel::XModel() = default;

XModel::~XModel()
{
    Clear();
}

void XModel::Clear()
{
    m_Instances.clear();
    m_DeadInstances = 0;
    m_InstancesByPlace.clear();
    m_InstancesByShape.clear();
    for (const auto& [name, node] : m_Nodes)
        delete node;
    m_Nodes.clear();
    m_NodesById.Clear();
    m_NextNumber.clear();
    m_BoneLinks = {};
    m_Cycles.clear();
    m_SamplePadding = 0;
    m_Images.clear();
    m_InheritedByHeader.clear();
    m_BuiltInTypes.clear();
    m_InheritedNodes.clear();
    m_NewNodes.clear();
    m_Info.reset();
    m_LastInstanceId = 0;
    m_LastId = 0;
    m_FirstFreeId = 1;
}

XBase* XModel::CreateNode(u32 type)
{
    std::unique_ptr<XBase> node(XFnCreate(type, this));
    if (!node) {
        GetLogger()->LogFormat(
            kError, "Could not create type %s. This is either because the type is abstract, or invalid...",
            XFnTypeName(type).c_str());
        return nullptr;
    }
    return Adopt(std::move(node));
}

// Takes a new node over, under the next id and the first free name.
XBase* XModel::Adopt(std::unique_ptr<XBase> node)
{
    if (!node)
        return nullptr;
    node->m_ID = NextId();
    XBase* const adopted = node.get();
    const bool isCycle = node->HasFn(kFnAnimCycle) != nullptr;
    Enter(std::move(node), isCycle ? XString() : FirstFreeName("node"));
    return adopted;
}

// Ids run on; behind the last one that a u32 holds, the lowest that is free.
u32 XModel::NextId()
{
    if (m_LastId != std::numeric_limits<u32>::max())
        return ++m_LastId;
    while (m_NodesById.Find(m_FirstFreeId))
        ++m_FirstFreeId;
    return m_FirstFreeId++;
}

XBase* XModel::FindNode(std::string_view name) const
{
    const auto found = m_Nodes.lower_bound(name);
    return found != m_Nodes.end() && found->first == name ? found->second : nullptr;
}

bool XModel::IsValid(const XBase* node) const
{
    return std::any_of(m_Nodes.begin(), m_Nodes.end(),
                       [=](const auto& entry) { return entry.second == node; }) ||
           std::any_of(m_Cycles.begin(), m_Cycles.end(),
                       [=](const auto& cycle) { return cycle.get() == node; });
}

bool XModel::List(XNodeList& out, u32 type, bool exact) const
{
    out.clear();
    for (const auto& [name, node] : m_Nodes)
        if (node->HasFn(type) && (!exact || node->GetApiType() == type))
            out.push_back(node);
    return !out.empty();
}

bool XModel::ListRootBones(XBoneList& out) const
{
    out.clear();
    for (const auto& [name, node] : m_Nodes)
        if (XBone* bone = XCast<XBone>(node); bone && bone->GetParentId() == 0)
            out.push_back(bone);
    return !out.empty();
}

// Takes the node over under a name that need not be unique. Files come in the order of
// names, so the end is tried first. Cycles stand apart.
void XModel::Enter(std::unique_ptr<XBase> node, std::string_view name)
{
    node->m_Name = name;
    if (XCast<XAnimCycle>(node.get())) {
        m_Cycles.emplace_back(static_cast<XAnimCycle*>(node.release()));
        return;
    }
    const bool isLast = m_Nodes.empty() || m_Nodes.rbegin()->first <= name;
    const XNameMap::value_type entry(node->m_Name, node.get());
    node->m_NameEntry = isLast ? m_Nodes.insert(m_Nodes.end(), entry) : m_Nodes.insert(entry);
    XBase* const owned = node.release();
    m_NodesById.Insert(owned->m_ID, owned);
    m_LastId = std::max(m_LastId, owned->m_ID);
}

XString XModel::SetName(XBase* node, std::string_view requested)
{
    if (!node)
        return {};
    XString name(requested);
    std::replace(name.begin(), name.end(), ' ', '_');
    std::replace(name.begin(), name.end(), '\t', '_');
    if (m_Nodes.contains(name))
        name = FirstFreeName(name);
    Rename(*node, name);
    return name;
}

// Gives the node the name as it is.
void XModel::Rename(XBase& node, XString name)
{
    if (Holds(node)) {
        ForgetNumber(node.m_Name);
        auto entry = m_Nodes.extract(node.m_NameEntry);
        node.m_Name = std::move(name);
        entry.key() = node.m_Name;
        node.m_NameEntry = m_Nodes.insert(std::move(entry));
    } else {
        node.m_Name = std::move(name);
    }
}

// The stem with the first number from 1 that is not taken. The numbers found taken are
// remembered, so that a million equal names are numbered in one pass.
XString XModel::FirstFreeName(std::string_view stem)
{
    u32& next = m_NextNumber.try_emplace(XString(stem), 1).first->second;
    XString name = Numbered(stem, next);
    while (m_Nodes.contains(name))
        name = Numbered(stem, ++next);
    return name;
}

// A name that goes frees its number for every stem that it can be read as.
void XModel::ForgetNumber(const XString& name)
{
    u64 number = 0;
    u64 place = 1;
    for (std::size_t begin = name.size(); begin > 0 && place <= 1'000'000'000; place *= 10) {
        const char digit = name[--begin];
        if (digit < '0' || digit > '9')
            return;
        number += place * static_cast<u64>(digit - '0');
        if (digit == '0')
            continue;  // no number is written with a leading zero
        const auto found = m_NextNumber.find(name.substr(0, begin));
        if (found != m_NextNumber.end() && number < found->second)
            found->second = static_cast<u32>(number);
    }
}

XInstance* XModel::CreateInstance(XBone* bone, XShape* shape)
{
    if (!bone || !shape)
        return nullptr;
    if (XInstance* instance = FindInstance(*bone, *shape))
        return instance;
    auto instance = std::make_unique<XInstance>(this);
    instance->m_Name = shape->GetName();
    instance->m_Object = shape->GetID();
    instance->m_Parent = bone->GetID();
    XInstance* const created = AddInstance(std::move(instance));
    bone->m_Instances.push_back(created->m_ID);
    shape->m_Instances.push_back(created->m_ID);
    return created;
}

// Takes the instance over under the next id.
XInstance* XModel::AddInstance(std::unique_ptr<XInstance> instance)
{
    instance->m_ID = ++m_LastInstanceId;
    ++m_InstancesByPlace
          .try_emplace(PlaceKey(instance->m_Parent, instance->m_Object), Place{instance->m_ID, 0})
          .first->second.count;
    m_InstancesByShape[instance->m_Object].push_back(instance->m_ID);
    return m_Instances.emplace_back(std::move(instance)).get();
}

// The next instance of that shape under that bone becomes the first one.
void XModel::LeavePlace(const XInstance& instance)
{
    const auto place = m_InstancesByPlace.find(PlaceKey(instance.m_Parent, instance.m_Object));
    if (place == m_InstancesByPlace.end())
        return;
    if (--place->second.count == 0) {
        m_InstancesByPlace.erase(place);
    } else if (place->second.first == instance.m_ID) {
        const XIndexList& rest = m_InstancesByShape[instance.m_Object];
        const auto next = std::find_if(rest.begin(), rest.end(), [&](u32 id) {
            const XInstance* const other = FindInstance(id);
            return other && other->m_Parent == instance.m_Parent;
        });
        place->second.first = next == rest.end() ? 0 : *next;
    }
}

bool XModel::DeleteInstance(u32 id)
{
    const auto found = PlaceOf(id);
    if (found == m_Instances.end())
        return false;
    XInstance& instance = **found;
    if (XBone* bone = instance.GetParent())
        EraseId(bone->m_Instances, id);
    EraseId(m_InstancesByShape[instance.m_Object], id);
    LeavePlace(instance);
    instance.m_IsDead = true;
    if (2 * ++m_DeadInstances > m_Instances.size()) {
        std::erase_if(m_Instances, [](const auto& each) { return each->m_IsDead; });
        m_DeadInstances = 0;
    }
    return true;
}

// Instances stand by ascending id.
XVector<std::unique_ptr<XInstance>>::const_iterator XModel::PlaceOf(u32 id) const
{
    const auto found =
        std::lower_bound(m_Instances.begin(), m_Instances.end(), id,
                         [](const auto& instance, u32 wanted) { return instance->m_ID < wanted; });
    return found != m_Instances.end() && (*found)->m_ID == id && !(*found)->m_IsDead ? found
                                                                                     : m_Instances.end();
}

XInstance* XModel::FindInstance(u32 id) const
{
    const auto found = PlaceOf(id);
    return found == m_Instances.end() ? nullptr : found->get();
}

XInstance* XModel::FindInstance(const XBone& bone, const XShape& shape) const
{
    const XIndexList& own = bone.GetInstanceIds();  // ascending
    const auto isOwn = [&](u32 id) { return std::binary_search(own.begin(), own.end(), id); };
    const auto place = m_InstancesByPlace.find(PlaceKey(bone.GetID(), shape.GetID()));
    if (place != m_InstancesByPlace.end() && isOwn(place->second.first))
        return FindInstance(place->second.first);
    if (place == m_InstancesByPlace.end() && !bone.m_SharesInstances)
        return nullptr;
    // A bone of an id that another one has, or one that shares the instances of its source.
    const auto ofShape = m_InstancesByShape.find(shape.GetID());
    if (ofShape == m_InstancesByShape.end())
        return nullptr;
    const auto found = std::find_if(ofShape->second.begin(), ofShape->second.end(), isOwn);
    return found == ofShape->second.end() ? nullptr : FindInstance(*found);
}

bool XModel::ListInstances(XInstanceList& out) const
{
    out.clear();
    for (const auto& instance : m_Instances)
        if (!instance->m_IsDead)
            out.push_back(instance.get());
    return !out.empty();
}

void XModel::ListInstancesOf(u32 shape, XIndexList& ids) const
{
    const auto found = m_InstancesByShape.find(shape);
    ids = found == m_InstancesByShape.end() ? XIndexList() : found->second;
}

void XModel::UpdateWorldMatrices()
{
    XBoneList roots;
    ListRootBones(roots);
    XBoneWalk walk(*this);  // one for all roots: a damaged file may hang one tree under many
    for (XBone* root : roots) {
        root->UpdateOwnMatrices(kIdentityMatrix);
        walk.Below(*root, [](XBone& bone, const XBone& above) { bone.UpdateOwnMatrices(above.m_World); });
    }
}

}  // namespace VKT
