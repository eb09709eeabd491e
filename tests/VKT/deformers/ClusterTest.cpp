#include "VKT/deformers/Cluster.h"

#include "VKT/deformers/JointCluster.h"
#include "VKT/geometry/PolygonMesh.h"
#include "VKT/hierarchy/Bone.h"
#include "VKT/support/NodeTest.h"

// Both kinds of cluster: they share their members and differ in what a dying or deleted
// bone means to them.

using namespace VKT;
using namespace VKT::Test;

namespace {

struct Kind {
    const char* name;
    u32 type;
    const char* source;  // the class in messages
};
constexpr Kind kKinds[] = {
    {"Cluster", 117, ".\\src\\VKT\\Cluster"},
    {"JointCluster", 121, ".\\src\\VKT\\JointCluster"},
};

constexpr const char kText[] =
    "\taffected 1 3\n"
    "\tenvelope_weight 0.5\n"
    "\tjoint_id 2\n"
    "\t\tnum_weights 3\n"
    "\t\t\t7 0.25\n"
    "\t\t\t0 0.75\n"
    "\t\t\t4 1\n";
constexpr const char kBytes[] =
    "05 00 6e 6f 64 65 31 01 00 00 00 "
    "01 00 00 00 03 00 00 00 00 00 00 3f "
    "02 00 00 00 "
    "03 00 00 00 07 00 00 00 00 00 00 00 04 00 00 00 "
    "03 00 00 00 00 00 80 3e 00 00 40 3f 00 00 80 3f";

class Clusters : public NodeTest, public testing::WithParamInterface<Kind> {
protected:
    XPointCluster& New() { return static_cast<XPointCluster&>(*m_Model.CreateNode(GetParam().type)); }
    std::string At(int line) const
    {
        return std::string(" [") + GetParam().source + ":" + std::to_string(line) + "]\n";
    }

    XPointCluster& m_Cluster = New();
    XBone& m_Bone = *m_Model.CreateNode<XBone>();
    XPolygonMesh& m_Mesh = *m_Model.CreateNode<XPolygonMesh>();
};

INSTANTIATE_TEST_SUITE_P(All, Clusters, testing::ValuesIn(kKinds),
                         [](const auto& kind) { return std::string(kind.param.name); });

TEST_P(Clusters, WithoutAffectedGeometryTheBodyIsEmptyAndDoesNotReadBack)
{
    m_Cluster.SetPoints({1, 2});
    XTextWriter out;
    EXPECT_TRUE(m_Cluster.WriteChunk(out));
    EXPECT_EQ(out.TakeText(), "");
    EXPECT_FALSE(ReadText(New(), "}\n"));
    EXPECT_EQ(m_Log.Text(), "Error : Expected affected got } [.\\src\\VKT\\Deformer:1]\n");
}

TEST_P(Clusters, FreshOneWritesItsDefaults)
{
    EXPECT_EQ(Hex(BodyOf(m_Cluster)),
              "05 00 6e 6f 64 65 31 01 00 00 00 00 00 00 00 00 00 80 3f "
              "00 00 00 00 00 00 00 00 00 00 00 00");
    EXPECT_EQ(m_Cluster.GetDataSize(), 14u + 5 + 8 + 12);
    m_Cluster.AddAffected(&m_Mesh);
    EXPECT_EQ(TextOf(m_Cluster), "\taffected 1 3\n\tenvelope_weight 1\n\tjoint_id 0\n\t\tnum_weights 0\n");
}

TEST_P(Clusters, BothFormsReadBack)
{
    EXPECT_TRUE(ReadText(m_Cluster, kText));
    EXPECT_EQ(TextOf(m_Cluster), kText);
    EXPECT_EQ(Hex(BodyOf(m_Cluster)), kBytes);
    EXPECT_EQ(m_Cluster.GetDataSize(), 14u + 5 + 8 + 4 + 12 + 4 * 3 + 4 * 3);
    XPointCluster& other = New();
    EXPECT_TRUE(ReadBody(other, Bytes(kBytes)));
    EXPECT_EQ(TextOf(other), kText);
}

TEST_P(Clusters, OnlyTheWeightOfTheDeformerIsGated)
{
    MakeOlder();
    XPointCluster& text = New();
    EXPECT_TRUE(ReadText(text, Replaced(kText, "\tenvelope_weight 0.5\n", "")));
    EXPECT_EQ(TextOf(text), Replaced(kText, "weight 0.5", "weight 1"));
    XPointCluster& bytes = New();
    EXPECT_TRUE(ReadBody(bytes, Bytes(Replaced(kBytes, "00 00 00 3f ", ""))));
    EXPECT_EQ(TextOf(bytes), Replaced(kText, "weight 0.5", "weight 1"));
}

TEST_P(Clusters, ListsOfTwoLengthsAreWrittenAsPointsWithZeroes)
{
    m_Cluster.AddAffected(&m_Mesh);
    m_Cluster.SetPoints({5, 6});
    m_Cluster.SetWeights({0.5f});
    EXPECT_NE(TextOf(m_Cluster).find("\t\tnum_weights 2\n\t\t\t5 0.5\n\t\t\t6 0\n"), std::string::npos);
    m_Cluster.SetPoints({});
    EXPECT_NE(TextOf(m_Cluster).find("\t\tnum_weights 0\n"), std::string::npos);
    XPointCluster& other = New();
    EXPECT_TRUE(ReadBody(other, BodyOf(m_Cluster)));
    EXPECT_EQ(BodyOf(other), BodyOf(m_Cluster));  // the binary form keeps both lists
}

TEST_P(Clusters, WrongKeysAreLogged)
{
    EXPECT_FALSE(ReadText(New(), Replaced(kText, "joint_id", "bone")));
    EXPECT_FALSE(ReadText(New(), Replaced(kText, "num_weights", "weights")));
    EXPECT_EQ(m_Log.Text(), "Error : Expected joint_id got bone" + At(1) +
                                "Error : Expected num_weights got weights" + At(2));
}

TEST_P(Clusters, PairsThatDoNotComeFail)
{
    for (const char* const count : {"4", "4294967295"}) {
        XPointCluster& cluster = New();
        EXPECT_FALSE(
            ReadText(cluster, Replaced(kText, "num_weights 3", std::string("num_weights ") + count)));
        EXPECT_EQ(cluster.GetPoints(), (XU32Array{7, 0, 4}));
        EXPECT_EQ(cluster.GetWeights(), (XFloatArray{0.25f, 0.75f, 1}));
    }
    EXPECT_FALSE(ReadText(New(), Replaced(kText, "0.75", "heavy")));
}

TEST_P(Clusters, EveryCutOfTheBytesFails)
{
    const std::string bytes = Bytes(kBytes);
    for (std::size_t length = 0; length < bytes.size(); ++length)
        EXPECT_FALSE(ReadBody(New(), bytes.substr(0, length))) << length;
}

TEST_P(Clusters, AccessorsReachTheMembers)
{
    EXPECT_EQ(m_Cluster.GetBone(), nullptr);
    m_Cluster.SetBone(&m_Bone);
    m_Cluster.SetPoints({7, 0, 4});
    m_Cluster.SetWeights({0.25f, 0.75f, 1});
    m_Cluster.SetEnvelopeWeight(0.5f);
    m_Cluster.AddAffected(&m_Mesh);
    EXPECT_EQ(TextOf(m_Cluster), kText);
    EXPECT_EQ(m_Cluster.GetBone(), &m_Bone);
    XU32Array points{9, 9, 9, 9};
    m_Cluster.GetPoints(points);
    EXPECT_EQ(points, (XU32Array{7, 0, 4}));
    XFloatArray weights;
    m_Cluster.GetWeights(weights);
    EXPECT_EQ(weights, (XFloatArray{0.25f, 0.75f, 1}));
    m_Cluster.SetBone(nullptr);
    EXPECT_EQ(m_Cluster.GetBone(), nullptr);
    ASSERT_TRUE(ReadText(m_Cluster, Replaced(kText, "joint_id 2", "joint_id 3")));  // a mesh
    EXPECT_EQ(m_Cluster.GetBone(), nullptr);
}

TEST_P(Clusters, CopyTakesAllOfItsOwnKindAlone)
{
    ASSERT_TRUE(ReadText(m_Cluster, kText));
    EXPECT_EQ(TextOf(*m_Cluster.Clone()), kText);
    m_Cluster.DoCopy(&m_Cluster);
    XBase* const otherKind = m_Model.CreateNode(GetParam().type == 117 ? 121 : 117);
    m_Cluster.DoCopy(otherKind);
    EXPECT_EQ(TextOf(m_Cluster), kText);
}

TEST_P(Clusters, PropertiesReachTheMembers)
{
    const XNodeProperties& properties = *m_Cluster.GetNodeProperties();
    EXPECT_EQ(properties.GetNumProperties(), 5u);
    m_Cluster.AddAffected(&m_Mesh);
    m_Cluster.SetEnvelopeWeight(0.5f);
    EXPECT_TRUE(properties.SetFloatArray(&m_Cluster, 3, {0.25f, 0.75f, 1}));
    EXPECT_TRUE(properties.SetIntegerArray(&m_Cluster, 4, {7, 0, 4}));
    EXPECT_FALSE(properties.SetNode(&m_Cluster, 5, &m_Mesh));
    EXPECT_TRUE(properties.SetNode(&m_Cluster, 5, &m_Bone));
    EXPECT_EQ(TextOf(m_Cluster), kText);
    XFloatArray weights;
    XIntList indices;
    XBase* bone = nullptr;
    EXPECT_TRUE(properties.GetFloatArray(&m_Cluster, 3, weights));
    EXPECT_TRUE(properties.GetIntegerArray(&m_Cluster, 4, indices));
    EXPECT_TRUE(properties.GetNode(&m_Cluster, 5, bone));
    EXPECT_EQ(weights, (XFloatArray{0.25f, 0.75f, 1}));
    EXPECT_EQ(indices, (XIntList{7, 0, 4}));
    EXPECT_EQ(bone, &m_Bone);
}

TEST_P(Clusters, OnlyAClusterGoesWithItsBone)
{
    const bool isCluster = GetParam().type == 117;
    m_Cluster.AddAffected(&m_Mesh);
    EXPECT_TRUE(m_Cluster.NodeDeath(0));  // none is no bone
    m_Cluster.SetBone(&m_Bone);
    EXPECT_EQ(m_Cluster.NodeDeath(m_Bone.GetID()), !isCluster);
    EXPECT_EQ(m_Cluster.GetBone(), &m_Bone);
    EXPECT_FALSE(m_Cluster.NodeDeath(m_Mesh.GetID()));

    std::set<u32> ids;
    m_Model.GetDeleteFlags().Clear(DeleteDeformerInputs);
    m_Cluster.PreDelete(ids);
    EXPECT_TRUE(ids.empty());
    m_Model.GetDeleteFlags().Set(DeleteDeformerInputs);
    m_Cluster.PreDelete(ids);
    EXPECT_EQ(ids, isCluster ? std::set<u32>{2} : std::set<u32>{});
    m_Cluster.SetBone(nullptr);
    ids.clear();
    m_Cluster.PreDelete(ids);
    EXPECT_TRUE(ids.empty());
}

TEST(ClusterVocabulary, DiffersBetweenTheKinds)
{
    const XNodeProperties& cluster = *XCluster::ClassProperties();
    EXPECT_EQ(cluster.GetPropertyId("influence"), 5u);
    EXPECT_EQ(cluster.GetPropertyType(3), kPropertyFloatArray);
    EXPECT_EQ(cluster.GetPropertyFlags(3), kList);
    EXPECT_EQ(cluster.GetPropertyType(4), kPropertyIntegerArray);
    EXPECT_EQ(cluster.GetPropertyFlags(4), kList);
    EXPECT_EQ(cluster.GetPropertyType(5), kPropertyNode);
    EXPECT_EQ(cluster.GetPropertyNodeType(5), 0x56u);
    const XNodeProperties& joint = *XJointCluster::ClassProperties();
    EXPECT_EQ(joint.GetPropertyId("influence_joint"), 5u);
    for (const u32 id : {3u, 4u, 5u}) {
        EXPECT_EQ(joint.GetPropertyType(id), kPropertyFloatArray) << id;
        EXPECT_EQ(joint.GetPropertyFlags(id), 0u) << id;
        EXPECT_EQ(joint.GetPropertyNodeType(id), 0u) << id;
    }
}

}  // namespace
