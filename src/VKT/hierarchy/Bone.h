#pragma once

#include "VKT/node/NodeClass.h"
#include "VKT/stream/LimitPair.h"

namespace VKT {

// The transform node: everything that has a place in the hierarchy is a bone or derives
// from one. Shapes are hung under a bone through an `XInstance`.
//
// A bone has a current pose and a bind pose; accessors take a bool that picks the bind
// pose. Files hold the bind pose alone, and a load makes both equal. Lengths are in
// scene units, rotations are quaternions (x, y, z, w), matrices act on column vectors.
class XBone : public XNodeClass<XBone, XBase, kFnBone> {
public:
    using XNodeClass::XNodeClass;

    // Hierarchy. A child is refused, with a logged error, when it is below this bone
    // already or above it; silently when it is null, this bone, or of no document.
    bool AddChild(XBone* child);
    // Replaces the list of children. False, and nothing changed, when one of them is
    // null or not in the document. The children's parent ids stay.
    bool AddChildren(const XBoneList& children);
    // Whether `bone` is below this one, at any depth.
    bool HasDescendant(const XBone* bone) const;
    XBone* GetParent() const;
    u32 GetParentId() const { return m_Parent; }
    const XIndexList& GetChildIds() const { return m_Children; }
    // Fills `out` with what the document still holds. Answers whether there is anything.
    bool ListChildren(XBoneList& out) const;
    bool ListInstances(XInstanceList& out) const;
    const XIndexList& GetInstanceIds() const { return m_Instances; }

    // Poses.
    const XQuaternion& GetRotation(bool bind) const { return bind ? m_BindRotation : m_Rotation; }
    const XVector3& GetTranslate(bool bind) const { return bind ? m_BindTranslate : m_Translate; }
    const XVector3& GetScale(bool bind) const { return bind ? m_BindScale : m_Scale; }
    void SetRotation(const XQuaternion& rotation, bool bind = false)
    {
        (bind ? m_BindRotation : m_Rotation) = rotation;
    }
    void SetTranslate(const XVector3& translate, bool bind = false)
    {
        (bind ? m_BindTranslate : m_Translate) = translate;
    }
    void SetScale(const XVector3& scale, bool bind = false) { (bind ? m_BindScale : m_Scale) = scale; }
    const XMatrix& GetWorld(bool bind) const { return bind ? m_BindWorld : m_World; }
    const XMatrix& GetLocal(bool bind) const { return bind ? m_BindLocal : m_Local; }
    const XMatrix& GetInverseWorld(bool bind) const { return bind ? m_BindInverseWorld : m_InverseWorld; }
    const XMatrix& GetInverseTransposeWorld(bool bind) const
    {
        return bind ? m_BindInverseTransposeWorld : m_InverseTransposeWorld;
    }

    // Builds the current matrices from the current pose below `parent`. With `recursive`
    // the bones below follow, depth first, children in order, each edge once: a child
    // under two parents ends with the matrix of its last visit, and a ring ends.
    virtual void UpdateWorldMatrix(const XMatrix& parent, bool recursive);
    // The same for this bone alone, whatever a class makes of it for those below.
    void UpdateOwnMatrices(const XMatrix& parent);
    // Whether the current world matrix has an inverse. Without one the inverses stay as they
    // were.
    bool HasInverse() const { return m_HasInverse; }
    // The current pose becomes that of a fresh bone.
    void ResetCurrent();
    void CopyBindToCurrent();
    // The bind pose becomes the current one, and both local matrices the plain scale,
    // rotation, translation of it: pivots, orients and shearing take no part.
    void SetBindFromCurrent();
    void CopyMatricesToBind();

    bool IsVisible() const { return m_Visible; }
    void SetVisible(bool visible) { m_Visible = visible; }
    bool InheritsTransform() const { return m_InheritsTransform; }
    void SetInheritsTransform(bool inherits) { m_InheritsTransform = inherits; }
    // 0 to 5: xyz, xzy, yxz, yzx, zxy, zyx.
    u32 GetRotationOrder() const { return m_RotationOrder; }
    void SetRotationOrder(u32 order) { m_RotationOrder = order; }
    const XQuaternion& GetJointOrient() const { return m_JointOrient; }
    void SetJointOrient(const XQuaternion& orient) { m_JointOrient = orient; }
    const XQuaternion& GetRotationOrient() const { return m_RotationOrient; }
    void SetRotationOrient(const XQuaternion& orient) { m_RotationOrient = orient; }
    const XVector3& GetMinBound() const { return m_MinBound; }
    void SetMinBound(const XVector3& bound) { m_MinBound = bound; }
    const XVector3& GetMaxBound() const { return m_MaxBound; }
    void SetMaxBound(const XVector3& bound) { m_MaxBound = bound; }
    const XVector3& GetScalePivot() const { return m_ScalePivot; }
    void SetScalePivot(const XVector3& pivot) { m_ScalePivot = pivot; }
    const XVector3& GetRotatePivot() const { return m_RotatePivot; }
    void SetRotatePivot(const XVector3& pivot) { m_RotatePivot = pivot; }
    const XVector3& GetScalePivotTranslate() const { return m_ScalePivotTranslate; }
    void SetScalePivotTranslate(const XVector3& translate) { m_ScalePivotTranslate = translate; }
    const XVector3& GetRotatePivotTranslate() const { return m_RotatePivotTranslate; }
    void SetRotatePivotTranslate(const XVector3& translate) { m_RotatePivotTranslate = translate; }
    // xy, xz, yz.
    const XVector3& GetShearing() const { return m_Shearing; }
    void SetShearing(const XVector3& shearing) { m_Shearing = shearing; }

    // The limits by index, 18 of them; the table in Bone.cpp has their order, in which
    // one limit stands twice and the upper limit of rotate x has no place. An index
    // above 17 answers true, answers 0, and does nothing.
    bool HasLimit(u32 index) const;
    f32 GetLimit(u32 index) const;
    void SetLimit(u32 index, f32 value);

    bool NodeDeath(u32 id) override;
    void PreDelete(std::set<u32>& ids) override;
    bool DoData(XFileIO& file) override;
    void DoCopy(const XBase* source) override;

    static XBodyTable TextBody();
    static XBodyTable BinaryBody();
    static XPropertyTable Properties();

protected:
    // The local matrix of the current pose.
    virtual XMatrix BuildLocal() const;

private:
    friend class XBoneWalk;
    friend class XInstanceTable;

    f32* FindLimit(u32 index);
    bool DoInstances(XFileIO& file);
    void WriteInstances(XTextWriter& out) const;
    bool ReadInstances(XTextReader& in);
    void CopyHierarchy(const XBone& source);
    void CopyBelow(const XBone& source);
    void CopyInstancesOf(const XBone& source);

    u32 m_Parent = 0;
    XIndexList m_Children;
    XIndexList m_Instances;
    XVector3 m_MinBound{};
    XVector3 m_MaxBound{};
    XVector3 m_ScalePivot{};
    XVector3 m_RotatePivot{};
    XVector3 m_ScalePivotTranslate{};
    XVector3 m_RotatePivotTranslate{};
    XVector3 m_Shearing{};
    XLimitPair m_TranslateLimitX, m_TranslateLimitY, m_TranslateLimitZ;
    XLimitPair m_RotateLimitX, m_RotateLimitY, m_RotateLimitZ;
    XLimitPair m_ScaleLimitX, m_ScaleLimitY, m_ScaleLimitZ;
    u32 m_RotationOrder = 0;
    XQuaternion m_JointOrient = kIdentityQuaternion;
    XQuaternion m_RotationOrient = kIdentityQuaternion;
    XQuaternion m_Rotation = kIdentityQuaternion;
    XVector3 m_Translate{};
    XVector3 m_Scale{1, 1, 1, 0};
    XQuaternion m_BindRotation = kIdentityQuaternion;
    XVector3 m_BindTranslate{};
    XVector3 m_BindScale{1, 1, 1, 0};
    XMatrix m_World = kIdentityMatrix;
    XMatrix m_Local = kIdentityMatrix;
    XMatrix m_InverseWorld = kIdentityMatrix;
    XMatrix m_InverseTransposeWorld = kIdentityMatrix;
    XMatrix m_BindWorld = kIdentityMatrix;
    XMatrix m_BindLocal = kIdentityMatrix;
    XMatrix m_BindInverseWorld = kIdentityMatrix;
    XMatrix m_BindInverseTransposeWorld = kIdentityMatrix;
    bool m_Visible = true;
    bool m_InheritsTransform = true;
    bool m_HasInverse = true;
    bool m_SharesInstances = false;  // some may be of the bone that this one was copied from
    u32 m_Walk = 0;                  // the last walk that came here, and from which bone first
    u32 m_WalkedFrom = 0;
};

}  // namespace VKT
