#pragma once

#include "VKT/hierarchy/Shape.h"

namespace VKT {

class XDeformer;

// What all deformable shapes share: points in object space, the deformers that act on
// them, and a flag for the hidden input of a deformer chain.
class XGeometry : public XNodeClass<XGeometry, XShape, kFnGeometry> {
public:
    using XNodeClass::XNodeClass;

    u32 GetNumPoints() const { return static_cast<u32>(m_Points.size()); }
    // Object-space positions in scene units.
    const XVector3Array& GetPoints() const { return m_Points; }
    void GetPoints(XVector3Array& out) const { out = m_Points; }
    void SetPoints(const XVector3Array& points) { m_Points = points; }

    // Appends the deformers of the queue in the order in which they act; entries that
    // the document no longer holds are skipped. Answers whether `out` holds any.
    bool GetDeformerQueue(XDeformerList& out) const;
    // Replaces the queue. Null entries are passed over.
    void SetDeformerQueue(const XDeformerList& queue);
    const XIndexList& GetDeformerQueueIds() const { return m_DeformerQueue; }

    bool IsIntermediateObject() const { return m_IntermediateObject; }
    void SetIntermediateObject(bool intermediate) { m_IntermediateObject = intermediate; }

    bool NodeDeath(u32 id) override;
    void PreDelete(std::set<u32>& ids) override;
    bool DoData(XFileIO& file) override;
    void DoCopy(const XBase* source) override;
    bool WriteChunk(XTextWriter& out) const override;
    bool ReadFields(XTextReader& in) override;

    static XPropertyTable Properties();

protected:
    XVector3Array m_Points;

private:
    XIndexList m_DeformerQueue;
    bool m_IntermediateObject = false;
};

}  // namespace VKT
