#include "apps/support/Documents.h"
#include "apps/support/ToolRun.h"

namespace {

using Tree = ToolTest;

TEST_F(Tree, ShapesHangUnderTheirBones)
{
    WriteFile("plate.vkt", kPlate);
    const ToolResult tree = Run({"tree", "plate.vkt"});
    EXPECT_EQ(tree.status, 0);
    EXPECT_EQ(tree.out,
              "plate (bone)\n"
              "  shape plateShape (polygonMesh)\n");
    EXPECT_EQ(tree.err, "Info : loading \"plate.vkt\"\n");
}

TEST_F(Tree, ChildrenStandBelowTheirParents)
{
    WriteFile("bones.vkt", kHeader + Bone("hips", 1, 0, {3, 2}) + Bone("leg", 2, 1, {4}) +
                               Bone("spine", 3, 1) + Bone("foot", 4, 2) + Bone("floor", 5, 0));
    EXPECT_EQ(Run({"tree", "bones.vkt"}).out,
              "floor (bone)\n"
              "hips (bone)\n"
              "  spine (bone)\n"
              "  leg (bone)\n"
              "    foot (bone)\n");
}

TEST_F(Tree, MaterialsAndDeformersAreShown)
{
    const std::string groups =
        "\t\t\tMATERIAL_GROUP {\n\t\t\t\tmaterial_id 4\n\t\t\t\tnum_face_indices 1\n\t\t\t\t\t0 \n\t\t\t}\n"
        "\t\t\tMATERIAL_GROUP {\n\t\t\t\tmaterial_id 0\n\t\t\t\tnum_face_indices 2\n\t\t\t\t\t1 1 "
        "\n\t\t\t}\n";
    WriteFile("scene.vkt", kHeader + Lambert("red", 4) + Lambert("unused", 6) + Mesh("flag", 2, {5, 7}) +
                               Bone("pole", 1, 0, {3}, Instance("flag", 2, "\t\t\tmaterial 4\n")) +
                               Bone("twin", 3, 1, {}, Instance("flag", 2, groups)) + Wave("wind", 5, {2}));
    EXPECT_EQ(Run({"tree", "scene.vkt"}).out,
              "pole (bone)\n"
              "  shape flag (polygonMesh), material red\n"
              "    deformer wind (nonLinearWave)\n"
              "  twin (bone)\n"
              "    shape flag (polygonMesh), materials red on 1 face, none on 2 faces\n"
              "outside of the hierarchy:\n"
              "  red (lambert)\n"
              "  unused (lambert)\n");
}

TEST_F(Tree, RingsAndLostBonesAreShownOnce)
{
    WriteFile("ring.vkt", kHeader + Bone("a", 1, 3, {2}) + Bone("b", 2, 1, {3}) + Bone("c", 3, 2, {1}) +
                              Bone("own", 4, 4, {4}) + Bone("adopted", 5, 99, {6}) + Bone("above", 6, 5) +
                              Bone("root", 7, 0, {8, 8}) + Bone("twice", 8, 7));
    EXPECT_EQ(Run({"tree", "ring.vkt"}).out,
              "root (bone)\n"
              "  twice (bone)\n"
              "  twice (bone), shown above\n"
              "reached from no root:\n"
              "  adopted (bone)\n"
              "    above (bone)\n"
              "  a (bone)\n"
              "    b (bone)\n"
              "      c (bone)\n"
              "        a (bone), shown above\n"
              "  own (bone)\n"
              "    own (bone), shown above\n");
}

// Neither recursion nor indentation grows with the depth.
TEST_F(Tree, DeepChainIsShown)
{
    constexpr int depth = 100'000;
    std::string text = kHeader;
    for (int i = 1; i <= depth; ++i)
        text += Bone(std::string(1, 'b').append(std::to_string(i)), i, i - 1, {i % depth + 1});
    WriteFile("deep.vkt", text);
    const ToolResult tree = Run({"tree", "deep.vkt"});
    EXPECT_EQ(tree.status, 0);
    EXPECT_NE(tree.out.find("\n" + std::string(64, ' ') + "b33 (bone)\n" + std::string(64, ' ') +
                            "[33] b34 (bone)\n"),
              std::string::npos);
    EXPECT_NE(tree.out.find("[99999] b100000 (bone)\n"), std::string::npos);
    EXPECT_LT(tree.out.size(), std::size_t{100} * depth);
}

TEST_F(Tree, NamesDoNotSteerTheTerminal)
{
    WriteFile("name.vkt", kHeader + Bone("\x1b[2Jroot", 1, 0));
    EXPECT_EQ(Run({"tree", "name.vkt"}).out, "\\x1b[2Jroot (bone)\n");
}

TEST_F(Tree, FailedLoadsAnswerTheirResult)
{
    WriteFile("other.vkt", "Hello, world. This is no scene.\n");
    EXPECT_EQ(Run({"tree", "missing.vkt"}).status, 3);
    const ToolResult tree = Run({"tree", "other.vkt"});
    EXPECT_EQ(tree.status, 5);
    EXPECT_EQ(tree.out, "");
}

TEST_F(Tree, DocumentWithoutNodesIsEmpty)
{
    WriteFile("empty.vkt", kHeader);
    const ToolResult tree = Run({"tree", "empty.vkt"});
    EXPECT_EQ(tree.status, 0);
    EXPECT_EQ(tree.out, "");
}

}  // namespace
