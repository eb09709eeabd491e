// The vocabulary of a skin. It has the weights as three parallel lists with one entry for
// each weight, point after point: `indices`, the numbers of the points, `joint_indices`,
// those of the influences, and `weights`.

#include <algorithm>

#include "VKT/deformers/SkinCluster.h"
#include "VKT/document/Model.h"
#include "VKT/geometry/Geometry.h"
#include "VKT/hierarchy/Bone.h"

namespace VKT {
namespace {

// Calls `visit` with the number of the point and the weight, for all weights.
template <class Table, class Visit>
void ForEachWeight(Table& table, Visit visit)
{
    for (u32 point = 0; point < table.GetNumPoints(); ++point)
        for (auto& weight : table[point])
            visit(point, weight);
}

std::size_t CountWeights(const XWeightTable& table)
{
    std::size_t count = 0;
    for (u32 point = 0; point < table.GetNumPoints(); ++point)
        count += table[point].size();
    return count;
}

// Lays the table out anew, for weights of these points. Each takes over the weight of its
// place in the lists; those behind the last one are 0, of influence 0. False when a point
// is out of range, or when they don't ascend, which is how the lists go.
bool SetPointsOfWeights(XWeightTable& table, const XIntList& points)
{
    const u32 numPoints = table.GetNumPoints();
    if (!std::is_sorted(points.begin(), points.end()))
        return false;
    if (!points.empty() && (points.front() < 0 || static_cast<u32>(points.back()) >= numPoints))
        return false;
    XWeightList weights;
    ForEachWeight(table, [&](u32, const XBoneWeight& weight) { weights.push_back(weight); });
    weights.resize(points.size(), {0, 0});
    table.Clear();
    table.Resize(numPoints);
    for (std::size_t i = 0; i < points.size(); ++i)
        table.Append(static_cast<u32>(points[i]), weights[i]);
    return true;
}

}  // namespace

XPropertyTable XSkinCluster::Properties()
{
    // Null stands for a bone that the document lost: `joint_indices` count through it.
    static constexpr auto getInfluences = [](const XBase& node, XNodeList& value) {
        const XSkinCluster& skin = As<XSkinCluster>(node);
        value.clear();
        for (u32 i = 0; i < skin.GetNumInfluences(); ++i)
            value.push_back(skin.GetInfluence(i));
        return true;
    };
    static constexpr auto setInfluences = [](XBase& node, const XNodeList& value) {
        XBoneList bones;
        for (XBase* bone : value) {
            if (!AcceptsNode(node, bone, kFnBone))
                return false;
            bones.push_back(XCast<XBone>(bone));
        }
        As<XSkinCluster>(node).SetInfluences(bones);
        return true;
    };
    static constexpr auto getAffected = [](const XBase& node, XBase*& value) {
        value = As<XSkinCluster>(node).GetAffected(0);
        return true;
    };
    // The only geometry from then on.
    static constexpr auto setAffected = [](XBase& node, XBase* const& value) {
        if (!value || !AcceptsNode(node, value, kFnGeometry))
            return false;
        As<XSkinCluster>(node).m_Affected.clear();
        return As<XSkinCluster>(node).SetAffected(XCast<XGeometry>(value));
    };
    static constexpr auto getPoints = [](const XBase& node, XIntList& value) {
        value.clear();
        ForEachWeight(As<XSkinCluster>(node).m_Weights,
                      [&](u32 point, const XBoneWeight&) { value.push_back(static_cast<i32>(point)); });
        return true;
    };
    static constexpr auto setPoints = [](XBase& node, const XIntList& value) {
        return SetPointsOfWeights(As<XSkinCluster>(node).m_Weights, value);
    };
    static constexpr auto getWeights = [](const XBase& node, XFloatArray& value) {
        value.clear();
        ForEachWeight(As<XSkinCluster>(node).m_Weights,
                      [&](u32, const XBoneWeight& weight) { value.push_back(weight.m_Weight); });
        return true;
    };
    static constexpr auto setWeights = [](XBase& node, const XFloatArray& value) {
        XWeightTable& table = As<XSkinCluster>(node).m_Weights;
        if (value.size() != CountWeights(table))
            return false;
        ForEachWeight(
            table, [next = value.begin()](u32, XBoneWeight& weight) mutable { weight.m_Weight = *next++; });
        return true;
    };
    static constexpr auto getJoints = [](const XBase& node, XIntList& value) {
        value.clear();
        ForEachWeight(As<XSkinCluster>(node).m_Weights, [&](u32, const XBoneWeight& weight) {
            value.push_back(static_cast<i32>(weight.m_Influence));
        });
        return true;
    };
    static constexpr auto setJoints = [](XBase& node, const XIntList& value) {
        XWeightTable& table = As<XSkinCluster>(node).m_Weights;
        const u32 numInfluences = As<XSkinCluster>(node).GetNumInfluences();
        if (value.size() != CountWeights(table) || std::any_of(value.begin(), value.end(), [=](i32 joint) {
                return static_cast<u32>(joint) >= numInfluences;
            }))
            return false;
        ForEachWeight(table, [next = value.begin()](u32, XBoneWeight& weight) mutable {
            weight.m_Influence = static_cast<u32>(*next++);
        });
        return true;
    };
    // Kept on purpose: `affected` stands in front of the property of that name that all
    // deformers have.
    static constexpr XPropertyInfo rows[] = {
        Computed<XNodeList>(3, "influences", 0, getInfluences, setInfluences, kFnBone),
        Computed<XBase*>(4, "affected", 0, getAffected, setAffected, kFnGeometry),
        Computed<XIntList>(5, "indices", 0, getPoints, setPoints),
        Computed<XFloatArray>(6, "weights", 0, getWeights, setWeights),
        Computed<XIntList>(7, "joint_indices", 0, getJoints, setJoints),
    };
    return rows;
}

}  // namespace VKT
