#pragma once

#include "VKT/deformers/WeightTable.h"
#include "VKT/geometry/Deformer.h"

namespace VKT {

class XBlockReader;
class XGeometry;

// Binds the points of a geometry to bones: a list of weights for each point, whose
// influences count through the list of bones.
class XSkinCluster : public XNodeClass<XSkinCluster, XDeformer, kFnSkinCluster> {
public:
    using XNodeClass::XNodeClass;

    u32 GetNumInfluences() const { return static_cast<u32>(m_Influences.size()); }
    // The bone of an influence; null out of range or when the document lost it.
    XBone* GetInfluence(u32 i) const;
    // Fills `out` with the influences that are bones of the document, in order: fewer than
    // there are when some are not.
    void GetInfluences(XBoneList& out) const;
    // Replaces the influences; null entries are left out. Weights stay with their bones,
    // and those of a bone that is gone go to the first new influence.
    void SetInfluences(const XBoneList& bones);

    // Sets the weight that an influence has on a point. False when there is no such
    // influence or point.
    bool SetWeight(u32 point, u32 influence, f32 weight);
    XWeightTable& GetWeights() { return m_Weights; }
    const XWeightTable& GetWeights() const { return m_Weights; }

    // Adds a geometry and cuts or extends the weights to its points. False for null, and,
    // with a warning, for a geometry that is affected already.
    bool SetAffected(XGeometry* geometry);
    // Appends the numbers of the points without weights, and of those whose weights don't
    // sum up to 1 within 0.00001. Answers whether `badPoints` is empty then.
    bool CheckWeights(XU32Array& badPoints) const;

    // Takes the bone from the influences.
    //
    // Kept on purpose: weights are left alone, so that those of later influences then
    // count one too far.
    bool NodeDeath(u32 id) override;
    bool DoData(XFileIO& file) override;
    void DoCopy(const XBase* source) override;
    bool WriteChunk(XTextWriter& out) const override;
    // Makes the weights of each point sum up to 1, which the binary form does not do.
    bool ReadFields(XTextReader& in) override;

    static XPropertyTable Properties();

private:
    bool DoWeights(XFileIO& file);
    bool ReadPoint(XFileIO& file);
    bool ReadWeights(XBlockReader& block);
    bool ReadPoint(XTextReader& in);
    static void Normalise(std::span<XBoneWeight> weights);

    XIndexList m_Influences;  // ids of bones
    XWeightTable m_Weights;
};

}  // namespace VKT
