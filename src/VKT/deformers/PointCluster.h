#pragma once

#include "VKT/geometry/Deformer.h"

namespace VKT {

class XBone;

// What the two kinds of cluster share: a transform that drives some points of the
// geometry, each with a weight. It has no type id of its own.
class XPointCluster : public XDeformer {
public:
    using XDeformer::XDeformer;

    // The transform that drives the points, null for none.
    XBone* GetBone() const;
    void SetBone(const XBone* bone);

    // Numbers of points in the affected geometry, and a weight for each. The two lists
    // belong together; nothing forces them to be of one length.
    const XU32Array& GetPoints() const { return m_Points; }
    void GetPoints(XU32Array& out) const { out = m_Points; }
    void SetPoints(const XU32Array& points) { m_Points = points; }
    const XFloatArray& GetWeights() const { return m_Weights; }
    void GetWeights(XFloatArray& out) const { out = m_Weights; }
    void SetWeights(const XFloatArray& weights) { m_Weights = weights; }

    bool DoData(XFileIO& file) override;
    // `source` is a node of the class of this one: the classes below have asked.
    void DoCopy(const XBase* source) override;
    // Kept on purpose: without affected geometry nothing at all is written, and such a
    // body does not read back.
    bool WriteChunk(XTextWriter& out) const override;

    static XBodyTable BinaryBody();

protected:
    // The lines behind those of the deformer; `sourceName` names the class in messages.
    bool ReadPoints(XTextReader& in, const char* sourceName);

    u32 m_JointId = 0;
    XU32Array m_Points;
    XFloatArray m_Weights;
};

}  // namespace VKT
