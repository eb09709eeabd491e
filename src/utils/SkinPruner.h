#pragma once

#include "VKT/base/Lists.h"
#include "VKT/deformers/WeightTable.h"

namespace VKT {
class XGeometry;
}

namespace VKU {

// The whole skinning of a geometry in one table, with at most so many influences for each
// point: its first skin cluster, merged with all its joint clusters, and pruned. The scene
// is only read.
//
// Weights come out ascending. They are made to sum up to at least 1; a sum above 1 stays.
class XSkinPruner {
public:
    XSkinPruner(const VKT::XGeometry* geometry, VKT::u16 maxInfluences);
    virtual ~XSkinPruner() = default;

    // The bones that any point is left with.
    VKT::u32 GetNumInfluences() const { return static_cast<VKT::u32>(m_Influences.size()); }
    // The id of a bone; 0 out of range, and for a bone that the document lost.
    VKT::u32 GetInfluence(VKT::u32 i) const { return i < m_Influences.size() ? m_Influences[i] : 0; }
    // Fills `out` with the weights of a point; out of range it stays as it is.
    void GetWeights(VKT::u32 point, VKT::XWeightList& out) const;

private:
    void AddSkin(const VKT::XDeformerList& queue);
    void AddJointClusters(const VKT::XDeformerList& queue);
    void DropUnusedInfluences();

    VKT::XIndexList m_Influences;
    VKT::XWeightTable m_Weights;
};

}  // namespace VKU
