#include "VKT/hierarchy/Bone.h"

#include <algorithm>
#include <unordered_set>

#include "VKT/base/FlagScope.h"
#include "VKT/base/Logger.h"
#include "VKT/document/Model.h"
#include "VKT/hierarchy/BoneWalk.h"
#include "VKT/hierarchy/Shape.h"

namespace VKT {

XBone* XBone::GetParent() const
{
    return XCast<XBone>(GetModel()->FindNode(m_Parent));
}

bool XBone::ListChildren(XBoneList& out) const
{
    out.clear();
    for (const u32 id : m_Children)
        if (XBone* child = XCast<XBone>(GetModel()->FindNode(id)))
            out.push_back(child);
    return !out.empty();
}

bool XBone::ListInstances(XInstanceList& out) const
{
    out.clear();
    for (const u32 id : m_Instances)
        if (XInstance* instance = GetModel()->FindInstance(id))
            out.push_back(instance);
    return !out.empty();
}

// Walks the bones below, each once, so that rings from damaged files end.
bool XBone::HasDescendant(const XBone* bone) const
{
    if (!bone || !GetModel()->Holds(*bone) || m_Children.empty())
        return false;
    std::unordered_set<u32, XIdHash> seen;
    XIndexList pending = m_Children;
    while (!pending.empty()) {
        const u32 id = pending.back();
        pending.pop_back();
        if (id == bone->GetID())
            return true;
        const XBone* below = seen.insert(id).second ? XCast<XBone>(GetModel()->FindNode(id)) : nullptr;
        if (below)
            pending.insert(pending.end(), below->m_Children.begin(), below->m_Children.end());
    }
    return false;
}

bool XBone::AddChild(XBone* child)
{
    if (!child || child == this || !GetModel()->Holds(*child))
        return false;
    XBoneLinks& links = GetModel()->GetBoneLinks();
    if (links.IsBelow(*GetModel(), *child, *this)) {
        GetLogger()->LogFormat(
            kError,
            "Cannot add \"%s\" as a child, since it is already a child of \"%s\" or one of it's children....",
            child->GetName(), GetName());
        return false;
    }
    // Nothing is below a child without children, so that long chains build from the top
    // without a walk for each bone.
    if (!child->m_Children.empty() && links.IsBelow(*GetModel(), *this, *child)) {
        GetLogger()->LogFormat(kError,
                               "Cannot add \"%s\" as a child, since it is a parent of this node \"%s\" or "
                               "one of it's children....",
                               child->GetName(), GetName());
        return false;
    }
    links.Move(*GetModel(), *child);
    m_Children.push_back(child->GetID());
    child->m_Parent = GetID();
    return true;
}

bool XBone::AddChildren(const XBoneList& children)
{
    for (const XBone* child : children)
        if (!child || !GetModel()->Holds(*child))
            return false;
    XIndexList ids(children.size());
    std::transform(children.begin(), children.end(), ids.begin(),
                   [](const XBone* child) { return child->GetID(); });
    GetModel()->GetBoneLinks().Relist(*GetModel(), *this, m_Children, ids);
    m_Children = std::move(ids);
    return true;
}

void XBone::CopyBindToCurrent()
{
    m_Rotation = m_BindRotation;
    m_Translate = m_BindTranslate;
    m_Scale = m_BindScale;
}

void XBone::ResetCurrent()
{
    m_Rotation = kIdentityQuaternion;
    m_Translate = {};
    m_Scale = {1, 1, 1, 0};
}

void XBone::SetBindFromCurrent()
{
    m_BindRotation = m_Rotation;
    m_BindTranslate = m_Translate;
    m_BindScale = m_Scale;
    m_Local = TranslationMatrix(m_Translate) * RotationMatrix(m_Rotation) * ScaleMatrix(m_Scale);
    m_BindLocal = m_Local;
}

void XBone::CopyMatricesToBind()
{
    m_BindWorld = m_World;
    m_BindLocal = m_Local;
    m_BindInverseWorld = m_InverseWorld;
    m_BindInverseTransposeWorld = m_InverseTransposeWorld;
}

// T x Rt x Rp x R x Ro x Rp^-1 x St x Sp x Sh x S x Sp^-1.
XMatrix XBone::BuildLocal() const
{
    XMatrix shear = kIdentityMatrix;
    shear[4] = m_Shearing.x;
    shear[8] = m_Shearing.y;
    shear[9] = m_Shearing.z;
    return TranslationMatrix(m_Translate) * TranslationMatrix(m_RotatePivotTranslate) *
           TranslationMatrix(m_RotatePivot) * RotationMatrix(m_Rotation) * RotationMatrix(m_RotationOrient) *
           TranslationMatrix(-m_RotatePivot) * TranslationMatrix(m_ScalePivotTranslate) *
           TranslationMatrix(m_ScalePivot) * shear * ScaleMatrix(m_Scale) * TranslationMatrix(-m_ScalePivot);
}

void XBone::UpdateOwnMatrices(const XMatrix& parent)
{
    m_Local = BuildLocal();
    m_World = m_InheritsTransform ? parent * m_Local : m_Local;
    m_HasInverse = XMatrixInverse(m_InverseWorld, m_World);
    m_InverseTransposeWorld = Transposed(m_InverseWorld);
}

void XBone::UpdateWorldMatrix(const XMatrix& parent, bool recursive)
{
    UpdateOwnMatrices(parent);
    if (!recursive)
        return;
    XBoneWalk(*GetModel()).Below(*this, [](XBone& bone, const XBone& above) {
        bone.UpdateOwnMatrices(above.m_World);
    });
}

namespace {

// The limits by index. Index 6 names the upper limit of scale x once more, where the
// upper limit of rotate x would be looked for. Kept on purpose: callers know the numbers.
struct LimitPlace {
    enum Channel {
        kTranslateX,
        kTranslateY,
        kTranslateZ,
        kRotateX,
        kRotateY,
        kRotateZ,
        kScaleX,
        kScaleY,
        kScaleZ
    };
    Channel channel;
    bool upper;
};
constexpr LimitPlace kLimitPlaces[] = {
    {LimitPlace::kScaleX, true},     {LimitPlace::kScaleX, false},      //
    {LimitPlace::kScaleY, true},     {LimitPlace::kScaleY, false},      //
    {LimitPlace::kScaleZ, true},     {LimitPlace::kScaleZ, false},      //
    {LimitPlace::kScaleX, true},     {LimitPlace::kRotateX, false},     //
    {LimitPlace::kRotateY, true},    {LimitPlace::kRotateY, false},     //
    {LimitPlace::kRotateZ, true},    {LimitPlace::kRotateZ, false},     //
    {LimitPlace::kTranslateX, true}, {LimitPlace::kTranslateX, false},  //
    {LimitPlace::kTranslateY, true}, {LimitPlace::kTranslateY, false},  //
    {LimitPlace::kTranslateZ, true}, {LimitPlace::kTranslateZ, false},
};

bool IsSentinel(f32 limit)
{
    return IsNoLowerLimit(limit) || IsNoUpperLimit(limit);
}

}  // namespace

f32* XBone::FindLimit(u32 index)
{
    static constexpr XLimitPair XBone::*channels[] = {
        &XBone::m_TranslateLimitX, &XBone::m_TranslateLimitY, &XBone::m_TranslateLimitZ,
        &XBone::m_RotateLimitX,    &XBone::m_RotateLimitY,    &XBone::m_RotateLimitZ,
        &XBone::m_ScaleLimitX,     &XBone::m_ScaleLimitY,     &XBone::m_ScaleLimitZ,
    };
    if (index >= std::size(kLimitPlaces))
        return nullptr;
    const LimitPlace& place = kLimitPlaces[index];
    XLimitPair& limits = this->*channels[place.channel];
    return place.upper ? &limits.upper : &limits.lower;
}

bool XBone::HasLimit(u32 index) const
{
    const f32* limit = const_cast<XBone*>(this)->FindLimit(index);
    return !limit || !IsSentinel(*limit);
}

f32 XBone::GetLimit(u32 index) const
{
    const f32* limit = const_cast<XBone*>(this)->FindLimit(index);
    return limit ? *limit : 0.0f;
}

void XBone::SetLimit(u32 index, f32 value)
{
    if (f32* limit = FindLimit(index))
        *limit = value;
}

bool XBone::NodeDeath(u32 id)
{
    for (const u32 instanceId : XIndexList(m_Instances)) {
        XInstance* instance = GetModel()->FindInstance(instanceId);
        if (!instance)
            continue;
        if (instance->GetShapeId() == id) {
            GetModel()->DeleteInstance(instanceId);
            break;
        }
        instance->DropMaterial(id);
    }
    if (EraseFirst(m_Children, id) || m_Parent == id)
        GetModel()->GetBoneLinks().Invalidate();
    if (m_Parent == id)
        m_Parent = 0;
    return XBase::NodeDeath(id);
}

void XBone::PreDelete(std::set<u32>& ids)
{
    XBase::PreDelete(ids);
    XFlagStack& flags = GetModel()->GetDeleteFlags();
    if (flags.Test(DeleteChildren))
        ids.insert(m_Children.begin(), m_Children.end());
    if (!flags.Test(DeleteShapes))
        return;
    XInstanceList instances;
    ListInstances(instances);
    for (const XInstance* instance : instances)
        ids.insert(instance->GetShapeId());
}

void XBone::DoCopy(const XBase* source)
{
    const XBone* other = XCast<XBone>(source);
    if (!other || other == this)
        return;
    if (m_Parent != 0 || !m_Children.empty())
        GetModel()->GetBoneLinks().Invalidate();
    XNodeClass::DoCopy(source);
    m_Rotation = other->m_Rotation;
    m_Translate = other->m_Translate;
    m_Scale = other->m_Scale;
    m_World = other->m_World;
    m_Local = other->m_Local;
    m_InverseWorld = other->m_InverseWorld;
    m_InverseTransposeWorld = other->m_InverseTransposeWorld;
    m_BindWorld = other->m_BindWorld;
    m_BindInverseWorld = other->m_BindInverseWorld;
    m_BindInverseTransposeWorld = other->m_BindInverseTransposeWorld;
    CopyHierarchy(*other);
}

// What the copy flags say of parent, children and instances.
void XBone::CopyHierarchy(const XBone& source)
{
    const XFlagStack& flags = GetModel()->GetCopyFlags();
    m_Parent = 0;
    m_Children.clear();
    XBone* const parent = source.GetParent();
    if (parent && flags.Test(CopyParent))
        parent->AddChild(this);
    if (flags.Test(CopyChildren))
        CopyBelow(source);
    CopyInstancesOf(source);
}

namespace {

// A clone without what the walk below sees to.
XBone* CloneAlone(const XBone& bone)
{
    XFlagStack& flags = bone.GetModel()->GetCopyFlags();
    const XFlagScope scope(flags);
    flags.Clear(CopyParent | CopyChildren | CopyInstances);
    return XCast<XBone>(bone.Clone());
}

}  // namespace

// Clones the bones below `source` and hangs the clones below this bone, depth first; a
// branch is hung up, and gets its instances, once it is whole. Each bone is cloned once,
// so that rings from damaged files end.
void XBone::CopyBelow(const XBone& source)
{
    struct Step {
        const XBone* source;
        XBone* copy;
        std::size_t next;
    };
    XVector<Step> pending(1, {&source, this, 0});
    std::unordered_set<u32, XIdHash> cloned{source.GetID(), GetID()};
    for (;;) {
        const auto [from, copy, next] = pending.back();
        if (next == from->m_Children.size()) {
            pending.pop_back();
            if (pending.empty())
                return;  // the caller goes on with this bone's instances
            copy->CopyInstancesOf(*from);
            pending.back().copy->AddChild(copy);
            continue;
        }
        ++pending.back().next;
        const XBone* child = XCast<XBone>(GetModel()->FindNode(from->m_Children[next]));
        if (!child || !cloned.insert(child->GetID()).second)
            continue;
        if (XBone* const clone = CloneAlone(*child))
            pending.push_back({child, clone, 0});
    }
}

void XBone::CopyInstancesOf(const XBone& source)
{
    const XFlagStack& flags = GetModel()->GetCopyFlags();
    if (!flags.Test(CopyInstances))
        return;
    if (flags.Test(CopyShareInstances)) {
        m_Instances = source.m_Instances;
        m_SharesInstances = true;
        return;
    }
    XInstanceList instances;
    source.ListInstances(instances);
    for (const XInstance* instance : instances)
        if (XInstance* copy = GetModel()->CreateInstance(this, instance->GetShape()))
            copy->CopyBindings(*instance);
}

}  // namespace VKT
