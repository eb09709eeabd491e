#include "apps/validate/ValidateRun.h"

namespace {

using ValidateAnimation = ValidateTest;

TEST_F(ValidateAnimation, QueuesThatDeformersDoNotKnow)
{
    EXPECT_EQ(FindingsIn(kHeader + Mesh("flag", 2, {5}) + Mesh("sail", 3, {5}) + Wave("wind", 5, {2})),
              "warning: sail (polygonMesh): its queue holds wind (nonLinearWave), which does not list it as "
              "affected; readers go by one of the two\n");
}

std::string Cluster(const std::string& affected, const std::string& weights)
{
    return "JOINT_CLUSTER grip\n{\n\tid 5\n\taffected " + affected +
           "\n\tenvelope_weight 1\n\tjoint_id 1\n\t\tnum_weights " + weights + "}\n";
}

TEST_F(ValidateAnimation, WeightsOfClusters)
{
    const std::string scene = kHeader + Mesh("flag", 2, {5}) + Bone("hand", 1, 0);
    const std::string good = "2\n\t\t\t0 0.5\n\t\t\t3 1\n";
    EXPECT_EQ(FindingsIn(scene + Cluster("1 2 ", good)), "");
    EXPECT_EQ(
        FindingsIn(scene + Cluster("1 2 ", "3\n\t\t\t0 0.5\n\t\t\t4 -1\n\t\t\t5 -2\n")),
        "error: grip (jointCluster): weighs point 4 (and 1 more), of 4 of flag (polygonMesh); readers pass "
        "over it\n"
        "warning: grip (jointCluster): weight 1 (and 1 more) is below 0; readers that use it push the "
        "point the other way\n");
    // Two points and two weights become one and three.
    const std::string lists = Word(2) + Word(0) + Word(3) + Word(2) + Word(0x3F000000) + Word(0x3F800000);
    const std::string other = Word(1) + Word(0) + Word(3) + Word(0x3F000000) + Word(0x3F000000) + Word(0);
    EXPECT_EQ(
        FindingsIn(With(Binary(scene + Cluster("1 2 ", good)), lists, other)),
        "error: grip (jointCluster): has 1 point and 3 weights; text saves give the others the weight 0, "
        "or leave weights out\n");
}

// Such a cluster writes nothing, not even its joint.
TEST_F(ValidateAnimation, ClusterWithoutGeometry)
{
    EXPECT_EQ(FindingsIn(kHeader + Cluster("0 ", "0\n")),
              "error: grip (jointCluster): node 1 is missing; readers find nothing there\n"
              "error: grip (jointCluster): its text does not read back (Expected affected got } "
              "[.\\src\\VKT\\Deformer:1]); readers of a text file fail there\n");
}

std::string Skin(const std::string& weights)
{
    return "SKIN skin\n{\n\tid 5\n\taffected 1 2 \n\tenvelope_weight 1\n\tnum_influences 2\n\t\t1 3 \n" +
           weights + "}\n";
}

TEST_F(ValidateAnimation, WeightsOfSkins)
{
    const std::string scene = kHeader + Mesh("flag", 2, {5}) + Bone("hand", 1, 0) + Bone("foot", 3, 0);
    const std::string good =
        "\tnum_points 4\n\tweights\n\t\t1\t 0 1\n\t\t2\t 0 0.25 1 0.75\n\t\t1\t 1 1\n\t\t1\t 1 1\n";
    EXPECT_EQ(FindingsIn(scene + Skin(good)), "");
    EXPECT_EQ(FindingsIn(scene + Skin(With(good, "2\t 0 0.25 1 0.75", "0\t"))),
              "warning: skin (skinCluster): point 1 has no weights; readers move it with no bone\n");
    EXPECT_EQ(
        FindingsIn(scene + Skin(With(good, "2\t 0 0.25 1 0.75", "2\t 0 -0.25 2 1.25"))),
        "error: skin (skinCluster): point 1: influence 2, of 2; readers find no bone there\n"
        "warning: skin (skinCluster): point 1: influence 0 has a weight below 0; readers that use it push "
        "the point the other way\n");
    EXPECT_EQ(
        FindingsIn(scene + Skin("\tnum_points 1\n\tweights\n\t\t1\t 0 1\n")),
        "error: skin (skinCluster): holds weights of 1 point, and flag (polygonMesh) has 4; readers must "
        "not go beyond the fewer of the two\n");
    const std::string bytes = Binary(scene + Skin(good));
    EXPECT_EQ(
        FindingsIn(With(bytes, Word(0x3F400000), Word(0x3F800000))),
        "warning: skin (skinCluster): the weights of point 1 sum up to 1.25; readers of a binary file take "
        "them as they are, and those of a text file scale a sum to 1 that is not 0\n");
}

TEST_F(ValidateAnimation, TargetsOfBlendShapes)
{
    const std::string blend =
        "BLEND_SHAPE face\n{\n\tid 5\n\taffected 1 2 \n\tenvelope_weight 1\n\tnum_shapes 2\n\tsmile 0 1\n"
        "\t\tpoints 4\n\t\t0 0 0\n\t\t0 0 0\n\t\t0 0 0\n\t\t0 0 0\n\tfrown 9 0\n\t\tpoints 1\n\t\t0 0 0\n}\n";
    EXPECT_EQ(
        FindingsIn(kHeader + Mesh("flag", 2, {5}) + blend),
        "error: face (blendShape): target \"frown\" has 1 point, its base 4; readers must not go beyond "
        "the shorter of the two\n"
        "warning: face (blendShape): target \"frown\": node 9 is missing; readers take the points that the "
        "target carries\n");
}

std::string Take(const std::string& range, const std::string& nodes, int count)
{
    return "ANIMATION_TAKE walk\n{\n\tid 6\n" + range + "\tcurrent_time 0\n\tnum_animated_nodes " +
           std::to_string(count) + "\n\tnum_event_tracks 0\n" + nodes + "}\n";
}
std::string Animated(int node, const std::string& attributes = "", int count = 0)
{
    return "\tANIM_NODE " + std::to_string(node) + "\n\t{\n\t\tnum_animated_attrs " + std::to_string(count) +
           "\n\t\tnum_animated_attrs_user 0\n" + attributes + "\t}\n";
}
const std::string kRange = "\tstart_time 0\n\tend_time 1\n\tfps 25\n";

TEST_F(ValidateAnimation, TakesOfMissingNodes)
{
    const std::string bone = kHeader + Bone("hips", 1, 0);
    EXPECT_EQ(FindingsIn(bone + Take(kRange, Animated(1) + Animated(7) + Animated(8) + Animated(1), 4)),
              "error: walk (animationTake): animates node 7 (and 1 more), which is missing; readers find "
              "nothing to animate, and text saves leave that out\n"
              "warning: walk (animationTake): animates hips (bone) twice; readers that look for it find the "
              "first\n");
}

TEST_F(ValidateAnimation, TakesWithoutTime)
{
    EXPECT_EQ(FindingsIn(kHeader + Take("\tstart_time 5\n\tend_time 1\n\tfps 0\n", "", 0)),
              "warning: walk (animationTake): ends before it starts; readers find no frames in it\n"
              "warning: walk (animationTake): has no frame rate above 0; readers cannot tell its frames in "
              "seconds\n");
}

TEST_F(ValidateAnimation, AttributesThatNodesLack)
{
    const std::string attribute =
        "\t\tATTR colour\n\t\t{\n\t\t\tnum_streams 0\n\t\t\telements_per_sample 1\n\t\t}\n";
    EXPECT_EQ(
        FindingsIn(kHeader + Bone("hips", 1, 0) + Take(kRange, Animated(1, attribute, 1), 1)),
        "error: walk (animationTake): animates attribute 0 of hips (bone), which has none of that number; "
        "readers find nothing to animate, and text saves leave that out\n");
}

TEST_F(ValidateAnimation, KeysThatGoBackInTime)
{
    const std::string attribute =
        "\t\tATTR translate\n\t\t{\n\t\t\tnum_streams 1\n\t\t\telements_per_sample 3\n\t\t\tFCURVE_STREAM\n"
        "\t\t\t{\n\t\t\t\tnum_fcurves 1\n\t\t\t\tANIM_CURVE \n\t\t\t\t{\n\t\t\t\t\tinterpolation LINEAR\n"
        "\t\t\t\t\tnum_keys 3\n\t\t\t\t\tpre_infinity kInfinityConstant\n"
        "\t\t\t\t\tpost_infinity kInfinityConstant\n\t\t\t\t\tcomponent 0\n\t\t\t\t\tindex -1\n"
        "\t\t\t\t\t\t0 0 \n\t\t\t\t\t\t2 0 \n\t\t\t\t\t\t1 0 \n\t\t\t\t}\n\t\t\t}\n\t\t}\n";
    EXPECT_EQ(FindingsIn(kHeader + Bone("hips", 1, 0) + Take(kRange, Animated(1, attribute, 1), 1)),
              "warning: walk (animationTake): hips (bone): translate: key 2 of a curve is ahead of the one "
              "before; readers that search for a time miss it\n");
}

TEST_F(ValidateAnimation, Cycles)
{
    const std::string cycle =
        "ANIM_CYCLE \"run\"\n{\n\tnum_bones 1\n\tstart 0\n\tend 1\n\tnum_frames 1\n\tfps 25\n"
        "\tBONE_ANIM 1\n\t{\n\t\t0 0 0 1 0 0 0 1 1 1\n\t}\n\tANIM_CURVE_LIST blend\n\t{\n\t\tnode 1\n"
        "\t\tnum_curves 0\n\t}\n}\n";
    const std::string scene = kHeader + Bone("hips", 1, 0);
    EXPECT_EQ(FindingsIn(scene + cycle), "");
    EXPECT_EQ(
        FindingsIn(scene + With(With(cycle, "BONE_ANIM 1", "BONE_ANIM 7"), "node 1", "node 8")),
        "error: run (animCycle): animates bone 7 (and 1 more), which is missing; readers find nothing to "
        "animate\n");
    // The number of frames stands in front of the rate.
    const std::string frames = Word(1) + Word(0x41C80000);
    EXPECT_EQ(FindingsIn(With(Binary(scene + cycle), frames, Word(3) + Word(0x41C80000))),
              "error: run (animCycle): bone 1 has 1 frame of 3; text saves give it poses at rest for the "
              "others\n");
    EXPECT_EQ(
        FindingsIn(With(Binary(scene + cycle), Word(0x41C80000), Word(0x7FC00000))),
        "warning: run (animCycle): has no frame rate above 0; readers cannot tell its frames in seconds\n"
        "error: run (animCycle): fps is nan; readers of a text file fail there\n");
    EXPECT_EQ(FindingsIn(With(Binary(scene + cycle), "blend", "bl nd")),
              "warning: run (animCycle): the name \"bl nd\" is written as bl_nd: names in text files are one "
              "word; readers of a text file get that\n");
}

}  // namespace
