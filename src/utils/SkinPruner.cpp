#include "utils/SkinPruner.h"

#include <algorithm>
#include <cmath>
#include <unordered_map>
#include <unordered_set>

#include "VKT/deformers/JointCluster.h"
#include "VKT/deformers/SkinCluster.h"
#include "VKT/geometry/Geometry.h"
#include "VKT/hierarchy/Bone.h"

using namespace VKT;

namespace VKU {
namespace {

// Sharing out the weights of a list takes the square of its length. Lists of more weights,
// which only a damaged file holds, lose their smallest ones unshared.
constexpr std::size_t kMostShared = 1024;

// By weight alone. What is no number counts as heaviest, so that there is an order.
bool IsLighter(const XBoneWeight& a, const XBoneWeight& b)
{
    return a.m_Weight < b.m_Weight || (std::isnan(b.m_Weight) && !std::isnan(a.m_Weight));
}

// Shares the first weight of an ascending list out among the others, in proportion to
// their size, and drops it; again until no more than `most` are left.
//
// The arithmetic is in single precision and in this order: other tools expect its results.
// A first weight of 1 divides by zero.
std::span<XBoneWeight> ShareOut(std::span<XBoneWeight> weights, std::size_t most)
{
    while (weights.size() > most) {
        const f32 smallest = weights.front().m_Weight;
        const f32 rest = 1.0f - smallest;
        for (XBoneWeight& weight : weights)
            weight.m_Weight = weight.m_Weight + (weight.m_Weight / rest) * smallest;
        weights = weights.subspan(1);
    }
    return weights;
}

// Spreads what the sum lacks to 1 evenly over the weights.
void FillUp(std::span<XBoneWeight> weights)
{
    f32 sum = 0;
    for (const XBoneWeight& weight : weights)
        sum += weight.m_Weight;
    if (sum >= 1.0f)
        return;
    const f32 share = (1.0f - sum) / static_cast<f32>(weights.size());
    for (XBoneWeight& weight : weights)
        weight.m_Weight += share;
}

}  // namespace

XSkinPruner::XSkinPruner(const XGeometry* geometry, u16 maxInfluences)
{
    XDeformerList queue;
    geometry->GetDeformerQueue(queue);
    m_Weights.Resize(geometry->GetNumPoints());
    AddSkin(queue);
    AddJointClusters(queue);
    const std::size_t mostShared = std::max<std::size_t>(kMostShared, maxInfluences);
    for (u32 point = 0; point < m_Weights.GetNumPoints(); ++point) {
        std::span<XBoneWeight> weights = m_Weights[point];
        std::sort(weights.begin(), weights.end(), IsLighter);
        weights = ShareOut(weights.last(std::min(weights.size(), mostShared)), maxInfluences);
        FillUp(weights);
        m_Weights.KeepLast(point, weights.size());
    }
    DropUnusedInfluences();
}

void XSkinPruner::AddSkin(const XDeformerList& queue)
{
    const XSkinCluster* skin = nullptr;  // the first one
    for (auto deformer = queue.begin(); deformer != queue.end() && !skin; ++deformer)
        skin = XCast<XSkinCluster>(*deformer);
    if (!skin)
        return;
    for (u32 i = 0; i < skin->GetNumInfluences(); ++i) {
        const XBone* const bone = skin->GetInfluence(i);
        m_Influences.push_back(bone ? bone->GetID() : 0);
    }
    const u32 numPoints = m_Weights.GetNumPoints();
    m_Weights = skin->GetWeights();
    m_Weights.Resize(numPoints);
}

// Each cluster counts once, however often the queue names it. A cluster without a bone is
// left out, and so are points that the geometry does not have.
void XSkinPruner::AddJointClusters(const XDeformerList& queue)
{
    std::unordered_map<u32, u32> places;  // in m_Influences, by the bone's id
    for (u32 i = 0; i < GetNumInfluences(); ++i)
        places.try_emplace(m_Influences[i], i);
    std::unordered_set<const XJointCluster*> seen;
    for (const XDeformer* deformer : queue) {
        const XJointCluster* const cluster = XCast<XJointCluster>(deformer);
        const XBone* const bone = cluster && seen.insert(cluster).second ? cluster->GetBone() : nullptr;
        if (!bone)
            continue;
        const auto [place, isNew] = places.try_emplace(bone->GetID(), GetNumInfluences());
        if (isNew)
            m_Influences.push_back(bone->GetID());
        const XU32Array& points = cluster->GetPoints();
        const XFloatArray& weights = cluster->GetWeights();
        for (std::size_t i = 0; i < std::min(points.size(), weights.size()); ++i)
            if (points[i] < m_Weights.GetNumPoints())
                m_Weights.Append(points[i], {weights[i], place->second});
    }
}

// Closes the gaps that influences without a weight leave. A number that no influence has,
// from a damaged file, stays as far behind the last one as it was.
void XSkinPruner::DropUnusedInfluences()
{
    const u32 count = GetNumInfluences();
    XVector<u8> isUsed(count, 0);
    for (u32 point = 0; point < m_Weights.GetNumPoints(); ++point)
        for (const XBoneWeight& weight : m_Weights[point])
            if (weight.m_Influence < count)
                isUsed[weight.m_Influence] = 1;
    XU32Array renumbered(count);
    u32 kept = 0;
    for (u32 i = 0; i < count; ++i) {
        renumbered[i] = kept;
        if (isUsed[i])
            m_Influences[kept++] = m_Influences[i];
    }
    m_Influences.resize(kept);
    for (u32 point = 0; point < m_Weights.GetNumPoints(); ++point)
        for (XBoneWeight& weight : m_Weights[point])
            weight.m_Influence = weight.m_Influence < count ? renumbered[weight.m_Influence]
                                                            : weight.m_Influence - (count - kept);
}

void XSkinPruner::GetWeights(u32 point, XWeightList& out) const
{
    if (point >= m_Weights.GetNumPoints())
        return;
    const std::span<const XBoneWeight> weights = m_Weights[point];
    out.assign(weights.begin(), weights.end());
}

}  // namespace VKU
