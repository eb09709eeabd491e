#pragma once

#include "VKT/node/NodeClass.h"

namespace VKT {

// The base of every node that displaces points: the geometries that it affects and how
// strongly. The order in which deformers act stands on the other side, in the deformer
// queue of `XGeometry`; nothing forces the two to agree.
class XDeformer : public XNodeClass<XDeformer, XBase, kFnDeformer> {
public:
    using XNodeClass::XNodeClass;

    u32 GetNumAffected() const { return static_cast<u32>(m_Affected.size()); }
    // The i-th affected geometry; null out of range or when the document lost it.
    XBase* GetAffected(u32 i) const;
    // False for null, for a node that is no geometry, and for one that is listed.
    bool AddAffected(XBase* geometry);
    // False out of range.
    bool RemoveAffected(u32 i);
    // Overall strength, 1 for all of it.
    f32 GetEnvelopeWeight() const { return m_EnvelopeWeight; }
    void SetEnvelopeWeight(f32 weight) { m_EnvelopeWeight = weight; }

    // False when no affected geometry is left.
    bool NodeDeath(u32 id) override;

    static XBodyTable TextBody();
    static XBodyTable BinaryBody() { return TextBody(); }
    static XPropertyTable Properties();

protected:
    XIndexList m_Affected;

private:
    f32 m_EnvelopeWeight = 1.0f;
};

}  // namespace VKT
