#pragma once

#include "VKT/node/NodeClass.h"

namespace VKT {

class XBone;

// The setup of an inverse kinematics solver: the bones of a chain, the handle that its end
// follows, and the solver's settings. The library stores it and solves nothing.
class XIkChain final : public XNodeClass<XIkChain, XBase, kFnIkChain> {
public:
    using XNodeClass::XNodeClass;

    // Fills `out` with the bones that the document still holds, from the chain's begin to
    // its end. Answers whether there are any.
    bool GetChain(XBoneList& out) const;
    // False, and nothing changed, when one of them is null or of another document.
    bool SetChain(const XBoneList& chain);
    XBone* GetHandle() const;
    void SetHandle(const XBone* handle);
    // The node that the pole vector follows.
    XBone* GetPoleConstraint() const;
    void SetPoleConstraint(const XBone* constraint);

    i32 GetPriority() const { return m_Priority; }
    void SetPriority(i32 priority) { m_Priority = priority; }
    u32 GetMaxIterations() const { return m_MaxIterations; }
    void SetMaxIterations(u32 count) { m_MaxIterations = count; }
    // Of the position and of the orientation, 0 to 1.
    f32 GetWeight() const { return m_Weight; }
    void SetWeight(f32 weight) { m_Weight = weight; }
    f32 GetOrientationWeight() const { return m_OrientationWeight; }
    void SetOrientationWeight(f32 weight) { m_OrientationWeight = weight; }
    // Distance from the goal at which the solver stops, in scene units.
    f32 GetTolerance() const { return m_Tolerance; }
    void SetTolerance(f32 tolerance) { m_Tolerance = tolerance; }
    // Stored as it stands.
    f32 GetStickiness() const { return m_Stickiness; }
    void SetStickiness(f32 stickiness) { m_Stickiness = stickiness; }
    const XVector3& GetPoleVector() const { return m_PoleVector; }
    void SetPoleVector(const XVector3& vector) { m_PoleVector = vector; }

    bool NodeDeath(u32 id) override;

    static XBodyTable TextBody();
    static XBodyTable BinaryBody() { return TextBody(); }
    static XPropertyTable Properties();

private:
    u32 m_Handle = 0;
    i32 m_Priority = 1;
    u32 m_MaxIterations = 0x7FFFFFFF;
    f32 m_Weight = 1.0f;
    f32 m_OrientationWeight = 1.0f;
    f32 m_Tolerance = 0.00001f;
    f32 m_Stickiness = 0.0f;
    XVector3 m_PoleVector{};
    u32 m_PoleConstraint = 0;
    XIndexList m_Chain;
};

}  // namespace VKT
