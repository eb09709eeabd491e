#include "utils/SkinPruner.h"

#include <cmath>
#include <initializer_list>
#include <limits>

#include "VKT/deformers/JointCluster.h"
#include "VKT/deformers/SkinCluster.h"
#include "VKT/geometry/PolygonMesh.h"
#include "VKT/hierarchy/Bone.h"
#include "VKT/support/NodeTest.h"

using namespace VKT;
using namespace VKT::Test;
using VKU::XSkinPruner;

namespace {

class SkinPruner : public NodeTest {
protected:
    SkinPruner() { m_Mesh.SetPoints(XVector3Array(4, XVector3{})); }

    XBone& NewBone() { return *m_Model.CreateNode<XBone>(); }
    XSkinCluster& NewSkin(const XBoneList& bones)
    {
        XSkinCluster& skin = *m_Model.CreateNode<XSkinCluster>();
        skin.SetAffected(&m_Mesh);
        skin.SetInfluences(bones);
        Queue(skin);
        return skin;
    }
    XJointCluster& NewJointCluster(const XBone* bone, const XU32Array& points, const XFloatArray& weights)
    {
        XJointCluster& cluster = *m_Model.CreateNode<XJointCluster>();
        cluster.AddAffected(&m_Mesh);
        cluster.SetBone(bone);
        cluster.SetPoints(points);
        cluster.SetWeights(weights);
        Queue(cluster);
        return cluster;
    }
    void Queue(XDeformer& deformer)
    {
        m_Queue.push_back(&deformer);
        m_Mesh.SetDeformerQueue(m_Queue);
    }

    static XWeightList WeightsOf(const XSkinPruner& pruner, u32 point)
    {
        XWeightList weights{{9, 9}};
        pruner.GetWeights(point, weights);
        return weights;
    }
    static XIndexList InfluencesOf(const XSkinPruner& pruner)
    {
        XIndexList ids;
        for (u32 i = 0; i < pruner.GetNumInfluences(); ++i)
            ids.push_back(pruner.GetInfluence(i));
        return ids;
    }
    // The first point of a skin with these weights, one for each influence, pruned.
    XWeightList Pruned(const XFloatArray& weights, u16 most)
    {
        XBoneList bones;
        for (std::size_t i = 0; i < weights.size(); ++i)
            bones.push_back(&NewBone());
        XSkinCluster& skin = NewSkin(bones);
        for (u32 i = 0; i < weights.size(); ++i)
            skin.SetWeight(0, i, weights[i]);
        const XSkinPruner pruner(&m_Mesh, most);
        return WeightsOf(pruner, 0);
    }
    static void ExpectWeights(const XWeightList& weights, std::initializer_list<XBoneWeight> expected)
    {
        ASSERT_EQ(weights.size(), expected.size());
        for (std::size_t i = 0; i < weights.size(); ++i) {
            EXPECT_FLOAT_EQ(weights[i].m_Weight, expected.begin()[i].m_Weight) << i;
            EXPECT_EQ(weights[i].m_Influence, expected.begin()[i].m_Influence) << i;
        }
    }

    XPolygonMesh& m_Mesh = *m_Model.CreateNode<XPolygonMesh>();
    XBone& m_Hip = NewBone();
    XBone& m_Knee = NewBone();
    XBone& m_Foot = NewBone();
    XDeformerList m_Queue;
};

TEST_F(SkinPruner, GeometryWithoutSkinHasEmptyTables)
{
    const XSkinPruner pruner(&m_Mesh, 4);
    EXPECT_EQ(pruner.GetNumInfluences(), 0u);
    EXPECT_EQ(pruner.GetInfluence(0), 0u);
    EXPECT_TRUE(WeightsOf(pruner, 3).empty());
    EXPECT_EQ(WeightsOf(pruner, 4), (XWeightList{{9, 9}}));  // out of range: as it was
}

TEST_F(SkinPruner, WeightOfNothingGoesAndTheRestStays)
{
    // The influence that is left without a weight goes too, and the others move up.
    EXPECT_EQ(Pruned({0.1f, 0.2f, 0.0f, 0.3f, 0.4f}, 4),
              (XWeightList{{0.1f, 0}, {0.2f, 1}, {0.3f, 2}, {0.4f, 3}}));
}

TEST_F(SkinPruner, ListsComeOutAscending)
{
    EXPECT_EQ(Pruned({0.5f, 0.125f, 0.375f}, 4), (XWeightList{{0.125f, 1}, {0.375f, 2}, {0.5f, 0}}));
}

TEST_F(SkinPruner, SmallestWeightIsSharedOutInProportion)
{
    ExpectWeights(Pruned({0.5f, 0.2f, 0.3f}, 2), {{0.375f, 1}, {0.625f, 0}});
}

TEST_F(SkinPruner, OneWeightAfterTheOtherIsSharedOut)
{
    ExpectWeights(Pruned({0.5f, 0.2f, 0.3f}, 1), {{1.0f, 0}});
}

TEST_F(SkinPruner, ShortfallIsSpreadEvenlyAndExcessStays)
{
    ExpectWeights(Pruned({0.1f, 0.3f}, 4), {{0.4f, 0}, {0.6f, 1}});
    m_Queue.clear();
    EXPECT_EQ(Pruned({0.75f, 0.875f}, 4), (XWeightList{{0.75f, 0}, {0.875f, 1}}));
}

TEST_F(SkinPruner, LimitOfNoneLeavesNothing)
{
    EXPECT_TRUE(Pruned({0.25f, 0.75f}, 0).empty());
    EXPECT_EQ(XSkinPruner(&m_Mesh, 0).GetNumInfluences(), 0u);
}

TEST_F(SkinPruner, SmallestWeightOfOneDividesByZero)
{
    const XWeightList weights = Pruned({1, 1}, 1);
    ASSERT_EQ(weights.size(), 1u);
    EXPECT_TRUE(std::isinf(weights[0].m_Weight));
}

TEST_F(SkinPruner, WeightsThatAreNoNumbersAreTaken)
{
    const f32 nan = std::numeric_limits<f32>::quiet_NaN();
    EXPECT_EQ(Pruned(XFloatArray{nan, 0.5f, nan, 0.25f, nan, 0.125f}, 4).size(), 4u);
}

TEST_F(SkinPruner, UnusedInfluencesGoAndLaterNumbersMoveUp)
{
    XSkinCluster& skin = NewSkin({&m_Hip, &m_Knee, &m_Foot});
    skin.SetWeight(0, 0, 0.25f);
    skin.SetWeight(0, 2, 0.75f);
    skin.SetWeight(3, 2, 1);
    const XSkinPruner pruner(&m_Mesh, 4);
    EXPECT_EQ(InfluencesOf(pruner), (XIndexList{m_Hip.GetID(), m_Foot.GetID()}));
    EXPECT_EQ(WeightsOf(pruner, 0), (XWeightList{{0.25f, 0}, {0.75f, 1}}));
    EXPECT_TRUE(WeightsOf(pruner, 1).empty());
    EXPECT_EQ(WeightsOf(pruner, 3), (XWeightList{{1, 1}}));
}

TEST_F(SkinPruner, NumbersThatNoInfluenceHasStayBehindTheLast)
{
    XSkinCluster& skin = NewSkin({&m_Hip, &m_Knee});
    skin.SetWeight(0, 1, 1);
    skin.GetWeights().Append(1, {1, 2});
    skin.GetWeights().Append(2, {1, 4294967295});
    const XSkinPruner pruner(&m_Mesh, 4);
    EXPECT_EQ(InfluencesOf(pruner), (XIndexList{m_Knee.GetID()}));
    EXPECT_EQ(WeightsOf(pruner, 0), (XWeightList{{1, 0}}));
    EXPECT_EQ(WeightsOf(pruner, 1), (XWeightList{{1, 1}}));
    EXPECT_EQ(WeightsOf(pruner, 2), (XWeightList{{1, 4294967294}}));
}

TEST_F(SkinPruner, LostBoneCountsAsZero)
{
    XSkinCluster& skin = NewSkin({&m_Hip, &m_Knee});
    ASSERT_TRUE(ReadText(skin,
                         "affected 1 1 envelope_weight 1 num_influences 2 99 3 num_points 1 "
                         "weights 2 0 0.25 1 0.75"));
    const XSkinPruner pruner(&m_Mesh, 4);
    EXPECT_EQ(InfluencesOf(pruner), (XIndexList{0, m_Knee.GetID()}));
    EXPECT_EQ(WeightsOf(pruner, 0), (XWeightList{{0.25f, 0}, {0.75f, 1}}));
    EXPECT_TRUE(WeightsOf(pruner, 3).empty());  // the skin has fewer points
}

TEST_F(SkinPruner, OnlyTheFirstSkinCounts)
{
    NewJointCluster(&m_Hip, {}, {});
    NewSkin({&m_Hip}).SetWeight(0, 0, 1);
    NewSkin({&m_Knee}).SetWeight(0, 0, 1);
    const XSkinPruner pruner(&m_Mesh, 4);
    EXPECT_EQ(InfluencesOf(pruner), (XIndexList{m_Hip.GetID()}));
    EXPECT_EQ(WeightsOf(pruner, 0), (XWeightList{{1, 0}}));
}

TEST_F(SkinPruner, PointsBehindThoseOfTheGeometryAreLeftOut)
{
    XSkinCluster& skin = NewSkin({&m_Hip, &m_Knee});
    skin.GetWeights().Resize(5);
    skin.SetWeight(3, 0, 1);
    skin.SetWeight(4, 1, 1);
    const XSkinPruner pruner(&m_Mesh, 4);
    EXPECT_EQ(InfluencesOf(pruner), (XIndexList{m_Hip.GetID()}));
    EXPECT_EQ(WeightsOf(pruner, 4), (XWeightList{{9, 9}}));
}

TEST_F(SkinPruner, JointClustersAddToTheSkinWithoutMerging)
{
    NewJointCluster(&m_Foot, {1, 0}, {0.5f, 0.125f});  // ahead of the skin, which comes first all the same
    XSkinCluster& skin = NewSkin({&m_Hip, &m_Knee});
    skin.SetWeight(0, 0, 0.25f);
    skin.SetWeight(0, 1, 0.375f);
    NewJointCluster(&m_Hip, {0, 2}, {0.75f, 1});
    const XSkinPruner pruner(&m_Mesh, 4);
    EXPECT_EQ(InfluencesOf(pruner), (XIndexList{m_Hip.GetID(), m_Knee.GetID(), m_Foot.GetID()}));
    EXPECT_EQ(WeightsOf(pruner, 0), (XWeightList{{0.125f, 2}, {0.25f, 0}, {0.375f, 1}, {0.75f, 0}}));
    EXPECT_EQ(WeightsOf(pruner, 1), (XWeightList{{1, 2}}));  // the shortfall of 0.5
    EXPECT_EQ(WeightsOf(pruner, 2), (XWeightList{{1, 0}}));
}

TEST_F(SkinPruner, JointClustersAloneAreASkin)
{
    NewJointCluster(&m_Hip, {0, 1}, {0.25f, 1});
    NewJointCluster(&m_Knee, {0}, {0.75f});
    const XSkinPruner pruner(&m_Mesh, 4);
    EXPECT_EQ(InfluencesOf(pruner), (XIndexList{m_Hip.GetID(), m_Knee.GetID()}));
    EXPECT_EQ(WeightsOf(pruner, 0), (XWeightList{{0.25f, 0}, {0.75f, 1}}));
    EXPECT_EQ(WeightsOf(pruner, 1), (XWeightList{{1, 0}}));
}

TEST_F(SkinPruner, JointClustersMayNameWhatIsNotThere)
{
    NewJointCluster(nullptr, {0}, {1});                      // no bone
    NewJointCluster(&m_Hip, {0, 4, 4294967295}, {1, 1, 1});  // points out of range
    NewJointCluster(&m_Knee, {1, 2}, {1});                   // a point without a weight
    Queue(*m_Queue[1]);                                      // a cluster named twice counts once
    const XSkinPruner pruner(&m_Mesh, 4);
    EXPECT_EQ(InfluencesOf(pruner), (XIndexList{m_Hip.GetID(), m_Knee.GetID()}));
    EXPECT_EQ(WeightsOf(pruner, 0), (XWeightList{{1, 0}}));
    EXPECT_EQ(WeightsOf(pruner, 1), (XWeightList{{1, 1}}));
    EXPECT_TRUE(WeightsOf(pruner, 2).empty());
}

TEST_F(SkinPruner, EndlessListEndsSoon)
{
    XSkinCluster& skin = NewSkin({&m_Hip, &m_Knee});
    constexpr u32 kCount = 1000000;
    for (XBoneWeight& weight : skin.GetWeights().Grow(0, kCount))
        weight = {0.25f / kCount, 0};
    skin.SetWeight(0, 1, 0.75f);
    const XSkinPruner pruner(&m_Mesh, 2);
    ASSERT_EQ(WeightsOf(pruner, 0).size(), 2u);
    EXPECT_EQ(WeightsOf(pruner, 0)[1].m_Influence, 1u);
}

TEST_F(SkinPruner, SceneIsOnlyRead)
{
    XSkinCluster& skin = NewSkin({&m_Hip, &m_Knee, &m_Foot});
    for (u32 i = 0; i < 3; ++i)
        skin.SetWeight(0, i, 0.25f);
    NewJointCluster(&m_Foot, {0}, {0.5f});
    const std::string before = SaveText(m_Model);
    const XSkinPruner pruner(&m_Mesh, 1);
    EXPECT_EQ(WeightsOf(pruner, 0).size(), 1u);
    EXPECT_EQ(SaveText(m_Model), before);
    EXPECT_EQ(m_Log.Text(), "");
}

}  // namespace
