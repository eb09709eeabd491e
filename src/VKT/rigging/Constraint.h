#pragma once

#include "VKT/hierarchy/Bone.h"

namespace VKT {

// The base of constraints: a transform, the constrained node, follows others, its targets,
// each with a weight. A constraint is a transform itself. The library carries constraints
// and solves none.
class XConstraint : public XNodeClass<XConstraint, XBone, kFnConstraint> {
public:
    using XNodeClass::XNodeClass;

    // The node that follows, null for none. Neither it nor a target need be a transform.
    XBase* GetConstrained() const;
    void SetConstrained(const XBase* node);

    u32 GetNumTargets() const { return static_cast<u32>(m_Targets.size()); }
    // Names the attribute of the target that is followed. False for null and for a node of
    // another document.
    bool AddTarget(const XBase* target, const XString& name, f32 weight);
    // Out of range: null, an empty name, the weight 0; a weight is not set.
    XBase* GetTarget(u32 i) const;
    XString GetTargetName(u32 i) const { return i < GetNumTargets() ? m_TargetNames[i] : XString(); }
    f32 GetWeight(u32 i) const { return i < GetNumTargets() ? m_Weights[i] : 0.0f; }
    bool SetWeight(u32 i, f32 weight);

    bool NodeDeath(u32 id) override;
    bool DoData(XFileIO& file) override;
    void DoCopy(const XBase* source) override;
    bool WriteChunk(XTextWriter& out) const override;
    bool ReadFields(XTextReader& in) override;

    static XPropertyTable Properties();

private:
    bool SetTargets(const XNodeList& targets);
    bool SetWeights(const XFloatArray& weights);
    void MatchTargets();

    u32 m_Constrained = 0;
    // One entry per target in each.
    XIndexList m_Targets;
    XStringList m_TargetNames;
    XRealList m_Weights;
};

}  // namespace VKT
