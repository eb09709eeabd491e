#include "apps/validate/ValidateRun.h"

namespace {

using ValidateHierarchy = ValidateTest;

TEST_F(ValidateHierarchy, ChildrenThatAreNoBones)
{
    EXPECT_EQ(FindingsIn(kHeader + Lambert("red", 4) + Bone("a", 1, 0, {7, 4})),
              "error: a (bone): child_joints: node 7 is missing (and 1 more); readers skip it\n");
    EXPECT_EQ(FindingsIn(kHeader + Lambert("red", 4) + Bone("a", 1, 0, {4})),
              "error: a (bone): child_joints: red (lambert) is no bone; readers skip it\n");
}

TEST_F(ValidateHierarchy, ChildrenThatAreListedTwice)
{
    EXPECT_EQ(FindingsIn(kHeader + Bone("a", 1, 0, {2, 2}) + Bone("b", 2, 1)),
              "warning: a (bone): child_joints: lists b (bone) twice; readers take it once\n");
}

TEST_F(ValidateHierarchy, ChildrenOfOtherParents)
{
    EXPECT_EQ(
        FindingsIn(kHeader + Bone("a", 1, 0, {3}) + Bone("b", 2, 0, {3}) + Bone("c", 3, 1)),
        "error: c (bone): b (bone) lists it as a child, and its parent is a (bone); readers place it by "
        "the lists alone, the last one that names it\n");
    EXPECT_EQ(
        FindingsIn(kHeader + Bone("a", 1, 0, {2}) + Bone("b", 2, 0)),
        "error: b (bone): a (bone) lists it as a child, and its parent is none; readers place it by the "
        "lists alone, the last one that names it\n");
}

TEST_F(ValidateHierarchy, BonesThatNoRootLeadsTo)
{
    EXPECT_EQ(
        FindingsIn(kHeader + Lambert("red", 4) + Bone("a", 1, 99, {2}) + Bone("b", 2, 1) + Bone("c", 3, 5) +
                   Bone("d", 5, 0) + Bone("e", 6, 4)),
        "error: a (bone): its parent is the missing node 99; no root leads to it, and readers leave its "
        "matrices at the identity\n"
        "error: c (bone): its parent d (bone) does not list it; no root leads to it, and readers leave "
        "its matrices at the identity\n"
        "error: e (bone): its parent is red (lambert), no bone; no root leads to it, and readers leave "
        "its matrices at the identity\n");
}

TEST_F(ValidateHierarchy, Rings)
{
    EXPECT_EQ(FindingsIn(kHeader + Bone("a", 1, 3, {2}) + Bone("b", 2, 1, {3}) + Bone("c", 3, 2, {1}) +
                         Bone("own", 4, 4, {4})),
              "error: a (bone): stands below itself: a > b > c > a; readers that don't look for rings never "
              "end, and others stop at a bone that they know\n"
              "error: a (bone): it stands in a ring or below one; no root leads to it, and readers leave its "
              "matrices at "
              "the identity\n"
              "error: own (bone): stands below itself: own > own; readers that don't look for rings never "
              "end, and others stop at a bone that they know\n"
              "error: own (bone): it stands in a ring or below one; no root leads to it, and readers leave "
              "its matrices at "
              "the identity\n");
}

// Neither recursion nor long lines; a ring of many nodes is told by its first ones.
TEST_F(ValidateHierarchy, LongRing)
{
    constexpr int length = 100'000;
    std::string text = kHeader;
    for (int i = 1; i <= length; ++i)
        text +=
            Bone(std::string(1, 'b').append(std::to_string(i)), i, i == 1 ? length : i - 1, {i % length + 1});
    EXPECT_EQ(FindingsIn(text),
              "error: b1 (bone): stands below itself: b1 > b2 > b3 > b4 > b5 > b6 > ... > b1 (100000 nodes); "
              "readers that don't look for rings never end, and others stop at a bone that they know\n"
              "error: b1 (bone): it stands in a ring or below one; no root leads to it, and readers leave "
              "its matrices at "
              "the identity\n");
}

TEST_F(ValidateHierarchy, MaterialsThatFeedThemselves)
{
    EXPECT_EQ(
        FindingsIn(kHeader + With(Lambert("red", 4), "input 0", "input 5") +
                   With(Lambert("sky", 5), "input 0", "input 4")),
        "error: red (lambert): feeds itself: red > sky > red; readers that follow inputs must stop where "
        "they have been\n");
}

// Both ends of a connection name the other one.
TEST_F(ValidateHierarchy, ConnectionsAreNoRings)
{
    const auto connected = [](const std::string& name, int id, const std::string& ends) {
        std::string text = Lambert(name, id);
        return text.insert(
            text.size() - 2,
            "\tEXTRA_ATTRIBUTES\n\t{\n\t\tsize float 1\n\t}\n\tCONNECTIONS\n\t{\n\t\tATTR size 0\n"
            "\t\t{\n" +
                ends + "\t\t}\n\t}\n");
    };
    EXPECT_EQ(FindingsIn(kHeader + connected("red", 4, "\t\t\tinput 0\n\t\t\toutput 1 5 size\n") +
                         connected("sky", 5, "\t\t\tinput 4 size\n\t\t\toutput 0\n")),
              "");
}

TEST_F(ValidateHierarchy, SetsThatHoldThemselves)
{
    const auto set = [](const std::string& name, int id, int member) {
        return "OBJECT_SET " + name + "\n{\n\tid " + std::to_string(id) + "\n\tnum_items 1\n\t\t" +
               std::to_string(member) + "\n\tannotation \"\"\n}\n";
    };
    EXPECT_EQ(FindingsIn(kHeader + set("inner", 1, 2) + set("outer", 2, 1)),
              "error: inner (objectSet): is a member of itself: inner > outer > inner; readers that open "
              "collections must stop where they have been\n");
}

TEST_F(ValidateHierarchy, GeometryThatDrivesItself)
{
    const auto wrap = [](int affected, int driver) {
        return "WRAP_DEFORMER wrap\n{\n\tid 5\n\taffected 1 " + std::to_string(affected) +
               " \n\tenvelope_weight 1\n\tdropoff 4\n\tsmoothness 0\n\tweight_threshold 0\n\tmax_distance 0\n"
               "\tinfluence_type 2\n\tnurbs_samples 10\n\tdriver_geometry " +
               std::to_string(driver) + "\n}\n";
    };
    EXPECT_EQ(FindingsIn(kHeader + Mesh("a", 1, {5}) + Mesh("b", 2) + wrap(1, 2)), "");
    EXPECT_EQ(
        FindingsIn(kHeader + Mesh("a", 1, {5}) + wrap(1, 1)),
        "error: a (polygonMesh): is deformed by way of itself: a > wrap > a; no order of evaluation fits "
        "it, and readers choose one\n");
}

TEST_F(ValidateHierarchy, ConstraintsThatFollowEachOther)
{
    const auto constraint = [](const std::string& name, int id, int constrained, int target) {
        std::string text = With(Bone(name, id, 0), "BONE", "POINT_CONSTRAINT");
        return text.insert(text.size() - 2, "\taffected " + std::to_string(constrained) +
                                                "\n\tnum_targets 1\n\t\t" + std::to_string(target) +
                                                " t 1\n\toffset 0 0 0\n");
    };
    const std::string bones = kHeader + Bone("a", 1, 0) + Bone("b", 2, 0);
    EXPECT_EQ(FindingsIn(bones + constraint("k", 3, 1, 2)), "");
    EXPECT_EQ(FindingsIn(bones + constraint("k", 3, 1, 2) + constraint("l", 4, 2, 1)),
              "error: a (bone): follows itself by its constraints: a > b > a; readers that solve constraints "
              "find no order for it\n");
}

}  // namespace
