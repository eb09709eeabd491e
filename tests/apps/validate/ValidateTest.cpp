#include "apps/validate/ValidateRun.h"

namespace {

using Validate = ValidateTest;

TEST_F(Validate, CleanDocumentGivesNoFinding)
{
    EXPECT_EQ(FindingsIn(kPlate), "");
    const std::string groups =
        "\t\t\tMATERIAL_GROUP {\n\t\t\t\tmaterial_id 4\n\t\t\t\tnum_face_indices 2\n\t\t\t\t\t0 1 "
        "\n\t\t\t}\n";
    const std::string scene =
        kHeader + Lambert("red", 4) + Mesh("flag", 2, {5}) +
        Bone("pole", 1, 0, {3}, Instance("flag", 2, groups)) +
        Bone("twin", 3, 1, {}, Instance("flag", 2, "\t\t\tmaterial 4\n")) + Wave("wind", 5, {2}) +
        "ANIMATION_TAKE walk\n{\n\tid 6\n\tstart_time 0\n\tend_time 1\n\tfps 25\n\tcurrent_time 0\n"
        "\tnum_animated_nodes 1\n\tnum_event_tracks 0\n\tANIM_NODE 3\n\t{\n\t\tnum_animated_attrs 1\n"
        "\t\tnum_animated_attrs_user 0\n\t\tATTR translate\n\t\t{\n\t\t\tnum_streams 1\n"
        "\t\t\telements_per_sample 3\n\t\t\tSAMPLED_KEYS\n\t\t\t{\n\n\t\t\t\t0 0 0 \n\t\t\t\t1 0 0 \n"
        "\t\t\t}\n\t\t}\n\t}\n}\n";
    EXPECT_EQ(FindingsIn(scene), "");
    EXPECT_EQ(FindingsIn(Binary(scene)), "");
}

TEST_F(Validate, ChunksThatReadersSkip)
{
    EXPECT_EQ(FindingsIn(PlateWithUnknownChunk()),
              "error: chunk FLAVOUR \"sweet\": is of no known type; readers skip it\n");
}

TEST_F(Validate, InstancesAndMaterialsThatReadersDrop)
{
    const std::string text =
        kHeader + Mesh("flag", 2) +
        Bone("pole", 1, 0, {},
             Instance("flag", 7) + Instance("flag", 2, "\t\t\tmaterial 9\n") + Instance("self", 1)) +
        Lambert("late", 9);
    EXPECT_EQ(
        FindingsIn(text),
        "error: bone \"pole\": instance \"flag\": no shape of id 7 stands ahead of it; readers drop the "
        "instance\n"
        "error: bone \"pole\": instance \"flag\": no material of id 9 stands ahead of it; readers drop "
        "the reference\n"
        "error: bone \"pole\": instance \"self\": no shape of id 1 stands ahead of it; readers drop the "
        "instance\n");
}

TEST_F(Validate, IdsThatLeadElsewhere)
{
    EXPECT_EQ(FindingsIn(kHeader + Bone("a", 1, 0) + Bone("b", 1, 0)),
              "error: b (bone): its id 1 is that of a (bone) too; readers take references to it for that "
              "node\n");
    // A text file holds no node of id 0 that a tool has written, and a hand may write one.
    EXPECT_EQ(FindingsIn(kHeader + Bone("a", 0, 0)),
              "error: a (bone): its id is 0; no node can refer to it, and text saves leave it out\n");
}

TEST_F(Validate, NamesOfSeveralNodes)
{
    EXPECT_EQ(FindingsIn(kHeader + Bone("a", 1, 0) + Bone("a", 2, 0) + Lambert("a", 3) + Bone("b", 4, 0)),
              "warning: a (bone): 3 nodes have this name; readers that look for it find this one\n");
}

TEST_F(Validate, DeclaredTypesThatLeadNowhere)
{
    const std::string text = Binary(kHeader + "INHERITED_NODE\n{\n\tbase_type BONE\n\theader HOOK\n}\n" +
                                    "INHERITED_NODE\n{\n\tbase_type BONE\n\theader CLAW\n}\n");
    const std::string bone = Word(86);
    // Definitions count from 53248: the first is based on itself, the second on the first.
    EXPECT_EQ(FindingsIn(With(text, bone, Word(53248))),
              "error: type HOOK: its base leads to no class; readers skip its nodes\n");
    EXPECT_EQ(FindingsIn(With(text, bone, Word(53249))),
              "error: type HOOK: its base is a declared type, which text saves cannot say; readers of the "
              "text form skip its nodes\n");
}

TEST_F(Validate, ReferencesToMissingNodes)
{
    EXPECT_EQ(FindingsIn(kHeader + Wave("wind", 5, {7, 8})),
              "error: wind (nonLinearWave): affected: node 7 is missing (and 1 more); readers find nothing "
              "there\n");
    EXPECT_EQ(FindingsIn(kHeader + With(Lambert("red", 4), "input 0", "input 77")),
              "error: red (lambert): colour: node 77 is missing; readers find nothing there\n");
    // A name that looks like what stands for a missing node.
    EXPECT_EQ(FindingsIn(kHeader + Mesh("flag", 2) + Bone("a", 1, 0, {7}, Instance("<missing:x>", 2)) +
                         Wave("wind", 5, {7})),
              "error: a (bone): child_joints: node 7 is missing; readers skip it\n"
              "error: wind (nonLinearWave): affected: node 7 is missing; readers find nothing there\n");
    std::string bone = Bone("b", 1, 0);
    bone.insert(bone.size() - 2,
                "\tEXTRA_ATTRIBUTES\n\t{\n\t\tsize float 1.5\n\t}\n\tCONNECTIONS\n\t{\n\t\tATTR size 0\n"
                "\t\t{\n\t\t\tinput 5 x\n\t\t\toutput 0\n\t\t}\n\t}\n");
    EXPECT_EQ(FindingsIn(kHeader + bone),
              "error: b (bone): CONNECTIONS / ATTR size / input: node 5 is missing; readers find nothing "
              "there\n");
}

TEST_F(Validate, ImagesWithoutPixels)
{
    // Records: id, log2 of both sizes, channels less one, name, path, pixels.
    const auto image = [](char id, char sizes, char channels, const std::string& name, std::size_t pixels) {
        std::string bytes{id, '\0', sizes, channels, static_cast<char>(name.size()), '\0'};
        return bytes + name + (name.empty() ? "" : std::string("\x01\0/", 3)) + std::string(pixels, 'x');
    };
    const auto file = [](const std::string& images, char count) {
        return "|VKT_004B#0000#00000000|" + std::string{count, '\0'} + images;
    };
    EXPECT_EQ(FindingsIn(file(image(7, 0x22, 1, "dot", 32), 1)), "");
    EXPECT_EQ(FindingsIn(file(image(7, 0x20, 1, "odd", 0) + image(8, 0x22, 0, "grey", 0) +
                                  image(7, 0x11, 3, "twin", 16) + image(9, 0x22, 1, "", 0) +
                                  image(10, 0x22, 1, "cut", 5),
                              5)),
              "error: image \"odd\": 1 x 4, 2 channels; files hold no pixels of such a size, and readers get "
              "none\n"
              "error: image \"grey\": 4 x 4, 1 channel; files hold no pixels of such a size, and readers get "
              "none\n"
              "warning: image \"twin\": its id 7 is that of an image ahead of it; readers find that one\n"
              "error: image 9 has no name; readers get neither its path nor its pixels\n"
              "error: image \"cut\": its pixels are cut off; readers get none\n");
}

TEST_F(Validate, NamesDoNotSteerTheTerminal)
{
    EXPECT_EQ(FindingsIn(kHeader + Bone("\x1b[2J", 1, 0, {9})),
              "error: \\x1b[2J (bone): child_joints: node 9 is missing; readers skip it\n");
}

TEST_F(Validate, FailedLoadsAnswerTheirResult)
{
    WriteFile("new.vkt", "|VKT_009B#0000#00000000|");
    WriteFile("cut.vkt", kPlate.substr(0, 200));
    EXPECT_EQ(Run({"validate", "new.vkt"}).status, 2);
    EXPECT_EQ(Run({"validate", "missing.vkt"}).status, 3);
    const ToolResult cut = Run({"validate", "cut.vkt"});
    EXPECT_EQ(cut.status, 4);
    EXPECT_EQ(cut.out, "");
}

}  // namespace
