#include "VKT/deformers/SkinCluster.h"

#include <algorithm>
#include <unordered_map>

#include "VKT/base/Logger.h"
#include "VKT/document/Model.h"
#include "VKT/geometry/Geometry.h"
#include "VKT/hierarchy/Bone.h"

namespace VKT {
namespace {

// What the weights of a point may sum up to.
constexpr f32 kLeastSum = 0.99999f;
constexpr f32 kGreatestSum = 1.00001f;

f32 SumOf(std::span<const XBoneWeight> weights)
{
    f32 sum = 0;
    for (const XBoneWeight& weight : weights)
        sum += weight.m_Weight;
    return sum;
}

bool IsWhole(f32 sum)
{
    return sum >= kLeastSum && sum <= kGreatestSum;
}

}  // namespace

XBone* XSkinCluster::GetInfluence(u32 i) const
{
    return i < m_Influences.size() ? XCast<XBone>(GetModel()->FindNode(m_Influences[i])) : nullptr;
}

void XSkinCluster::GetInfluences(XBoneList& out) const
{
    out.clear();
    for (u32 i = 0; i < GetNumInfluences(); ++i)
        if (XBone* bone = GetInfluence(i))
            out.push_back(bone);
}

void XSkinCluster::SetInfluences(const XBoneList& bones)
{
    const XIndexList old = std::move(m_Influences);
    m_Influences.clear();
    std::unordered_map<u32, u32> places;  // the first of each bone
    for (const XBone* bone : bones)
        if (bone) {
            places.try_emplace(bone->GetID(), GetNumInfluences());
            m_Influences.push_back(bone->GetID());
        }
    XIndexList renumbered(old.size());
    std::transform(old.begin(), old.end(), renumbered.begin(), [&](u32 id) {
        const auto found = places.find(id);
        return found == places.end() ? 0 : found->second;
    });
    for (std::size_t point = 0; point < m_Weights.GetNumPoints(); ++point)
        for (XBoneWeight& weight : m_Weights[point])
            weight.m_Influence = weight.m_Influence < renumbered.size() ? renumbered[weight.m_Influence] : 0;
}

bool XSkinCluster::SetWeight(u32 point, u32 influence, f32 weight)
{
    if (influence >= m_Influences.size() || point >= m_Weights.GetNumPoints())
        return false;
    const std::span<XBoneWeight> weights = m_Weights[point];
    const auto found = std::find_if(weights.begin(), weights.end(),
                                    [=](const XBoneWeight& entry) { return entry.m_Influence == influence; });
    if (found != weights.end())
        found->m_Weight = weight;
    else
        m_Weights.Append(point, {weight, influence});
    return true;
}

bool XSkinCluster::SetAffected(XGeometry* geometry)
{
    if (!geometry)
        return false;
    if (!AddAffected(geometry)) {
        GetLogger()->Log(kWarning, "XSkinCluster::SetAffected: adding geometry that is already affected");
        return false;
    }
    m_Weights.Resize(geometry->GetNumPoints());
    return true;
}

bool XSkinCluster::CheckWeights(XU32Array& badPoints) const
{
    for (u32 point = 0; point < m_Weights.GetNumPoints(); ++point)
        if (m_Weights[point].empty() || !IsWhole(SumOf(m_Weights[point])))
            badPoints.push_back(point);
    return badPoints.empty();
}

// Weights that sum up to 0 stay: nothing tells their shares.
void XSkinCluster::Normalise(std::span<XBoneWeight> weights)
{
    const f32 sum = SumOf(weights);
    if (sum == 0.0f || IsWhole(sum))
        return;
    const f32 factor = 1.0f / sum;
    for (XBoneWeight& weight : weights)
        weight.m_Weight *= factor;
}

bool XSkinCluster::NodeDeath(u32 id)
{
    EraseFirst(m_Influences, id);
    return XDeformer::NodeDeath(id);
}

void XSkinCluster::DoCopy(const XBase* source)
{
    const XSkinCluster* other = XCast<XSkinCluster>(source);
    if (!other)
        return;
    m_Influences = other->m_Influences;
    m_Weights = other->m_Weights;
    XNodeClass::DoCopy(source);
}

}  // namespace VKT
