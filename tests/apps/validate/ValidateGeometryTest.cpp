#include "apps/validate/ValidateRun.h"

namespace {

using ValidateGeometry = ValidateTest;

std::string Group(int material, const std::string& faces, int count)
{
    return "\t\t\tMATERIAL_GROUP {\n\t\t\t\tmaterial_id " + std::to_string(material) +
           "\n\t\t\t\tnum_face_indices " + std::to_string(count) + "\n\t\t\t\t\t" + faces + "\n\t\t\t}\n";
}

TEST_F(ValidateGeometry, InstancesOfMissingShapes)
{
    const std::string bytes = Binary(kHeader + Lambert("red", 4) + Mesh("flag", 2) +
                                     Bone("pole", 1, 0, {}, Instance("cloth", 2, "\t\t\tmaterial 4\n")));
    const std::string instance = std::string("cloth") + Word(2) + '\0' + Word(4);
    EXPECT_EQ(
        FindingsIn(With(bytes, instance, std::string("cloth") + Word(9) + '\0' + Word(4))),
        "error: pole (bone): instance \"cloth\": node 9 is missing; readers of a binary file show nothing "
        "there, and those of a text file drop the instance\n");
    EXPECT_EQ(
        FindingsIn(With(bytes, instance, std::string("cloth") + Word(4) + '\0' + Word(4))),
        "error: pole (bone): instance \"cloth\": node 4 is red (lambert), no shape; readers of a binary "
        "file show nothing there, and those of a text file drop the instance\n");
    EXPECT_EQ(FindingsIn(With(bytes, instance, std::string("cloth") + Word(2) + '\0' + Word(9))),
              "error: pole (bone): instance \"cloth\": node 9 is missing; readers take it for no material\n");
    EXPECT_EQ(
        FindingsIn(With(bytes, instance, std::string("cloth") + Word(2) + '\0' + Word(2))),
        "error: pole (bone): instance \"cloth\": node 2 is flag (polygonMesh), no material; readers take "
        "it for no material\n");
}

TEST_F(ValidateGeometry, InstancesThatTheFormsHoldOtherwise)
{
    const std::string scene = kHeader + Lambert("red", 4) + Mesh("flag", 2);
    EXPECT_EQ(FindingsIn(scene + Bone("pole", 1, 0, {},
                                      Instance("cloth", 2, "\t\t\tmaterial 4\n" + Group(4, "0 ", 1)))),
              "warning: pole (bone): instance \"cloth\": has a material and material groups; text saves keep "
              "the material, binary ones the groups\n");
    const std::string bytes =
        Binary(scene + Mesh("copy", 3) + Bone("pole", 1, 0, {}, Instance("one", 2) + Instance("two", 3)));
    EXPECT_EQ(
        FindingsIn(With(bytes, "two" + Word(3), "two" + Word(2))),
        "warning: pole (bone): instance \"two\": shows a shape that the bone shows already; readers of a "
        "text file take the two for one\n");
}

TEST_F(ValidateGeometry, FacesAndUvSetsThatShapesLack)
{
    const std::string scene = kHeader + Mesh("flag", 2);
    EXPECT_EQ(FindingsIn(scene + Bone("pole", 1, 0, {}, Instance("cloth", 2, Group(0, "1 2 7 ", 3)))),
              "error: pole (bone): instance \"cloth\": a material group covers face 2 (and 1 more) of 2; "
              "readers must pass over it\n");
    const std::string texture = "SPHERE_MAP dome\n{\n\tid 7\n\timage 0\n\tplacement 0\n}\n";
    const auto bound = [](const std::string& set) {
        return Bone("pole", 1, 0, {},
                    With(Instance("cloth", 2), "num_uv_sets 0\n", "num_uv_sets 1\n\t\t\t\t7 " + set + "\n"));
    };
    EXPECT_EQ(FindingsIn(scene + texture + bound("uvset1")), "");
    EXPECT_EQ(
        FindingsIn(scene + texture + bound("uvset2")),
        "error: pole (bone): instance \"cloth\": a texture uses uv set \"uvset2\", which the shape lacks; "
        "readers bind it and find no coordinates\n");
}

TEST_F(ValidateGeometry, IndicesOutOfRange)
{
    EXPECT_EQ(FindingsIn(With(kPlate, "0 1 2 \n\t\t0 2 3 \n", "0 1 2 \n\t\t0 4 -1 \n")),
              "error: plateShape (polygonMesh): index set \"points\"[4] is 4, of 4 points; readers "
              "that don't check read beyond the table\n");
    EXPECT_EQ(FindingsIn(With(kPlate, "0 1 0 \n\t\t1 0 1 \n", "0 1 0 \n\t\t1 0 2 \n")),
              "error: plateShape (polygonMesh): index set \"uvset1\"[5] is 2, of 2 elements of vertex set "
              "\"uvset1\"; readers that don't check read beyond the table\n");
}

TEST_F(ValidateGeometry, IndicesBelowZero)
{
    EXPECT_EQ(
        FindingsIn(With(kPlate, "0 1 2 \n\t\t0 2 3 \n", "0 1 2 \n\t\t0 -2 -1 \n")),
        "error: plateShape (polygonMesh): index set \"points\"[4] is -2, of 4 points; readers that don't "
        "check read beyond the table\n");
}

TEST_F(ValidateGeometry, SetsThatAreNotThere)
{
    EXPECT_EQ(FindingsIn(With(kPlate, "index_set \"uvset1\"", "index_set \"map\"")),
              "error: plateShape (polygonMesh): vertex set \"uvset1\" is indexed by \"map\", which the mesh "
              "lacks; readers cannot use it\n");
    EXPECT_EQ(FindingsIn(With(kPlate, "point_index_set \"points\"", "point_index_set \"none\"")),
              "error: plateShape (polygonMesh): no index set indexes its points; readers take the corners as "
              "they are numbered\n");
}

TEST_F(ValidateGeometry, SetsOfOneName)
{
    std::string text = With(kPlate, "INDEX_SET \"uvset1\"", "INDEX_SET \"points\"");
    text = With(text, "index_set \"uvset1\"", "index_set \"\"");
    EXPECT_EQ(FindingsIn(text),
              "warning: plateShape (polygonMesh): index set \"points\" stands there twice; readers that look "
              "for it find the first\n");
}

TEST_F(ValidateGeometry, TablesThatAreCutShort)
{
    const std::string bytes = Binary(kPlate);
    // Two elements of two floats become one of three.
    const std::string table = "uvset1" + Word(2) + Word(2) + Word(3);
    EXPECT_EQ(
        FindingsIn(With(bytes, table, "uvset1" + Word(2) + Word(3) + Word(3))),
        "error: plateShape (polygonMesh): vertex set \"uvset1\" claims 6 floats and holds 4; readers of a "
        "binary file must not read beyond them\n"
        "warning: plateShape (polygonMesh): vertex set \"uvset1\" holds 4 floats: written as 1 elements "
        "of 3; readers of a text file get that\n");
    // Polygons of 3 and 3 corners become 3 and 4, or 3 and 2.
    const std::string counts = Word(2) + Word(3) + Word(3);
    EXPECT_EQ(FindingsIn(With(bytes, counts, Word(2) + Word(3) + Word(4))),
              "error: plateShape (polygonMesh): index set \"points\" holds 6 indices for 7 corners; readers "
              "take 0 for those that it lacks, and text saves fill it up or cut it\n"
              "error: plateShape (polygonMesh): index set \"uvset1\" holds 6 indices for 7 corners; readers "
              "take 0 for those that it lacks, and text saves fill it up or cut it\n");
}

TEST_F(ValidateGeometry, PolygonsOfTwoCorners)
{
    const std::string bytes = Binary(kPlate);
    EXPECT_EQ(
        FindingsIn(With(bytes, Word(2) + Word(3) + Word(3), Word(2) + Word(2) + Word(4))),
        "error: plateShape (polygonMesh): polygon 0 has 2 corners; readers of a text file refuse the mesh\n"
        "error: plateShape (polygonMesh): its text does not read back (Poly count data contains a poly with "
        "less than 3 sides!); readers of a text file fail there\n");
}

TEST_F(ValidateGeometry, MeshThatClaimsTooMuch)
{
    const std::string bytes = Binary(kPlate);
    EXPECT_EQ(FindingsIn(With(bytes, Word(2) + Word(3) + Word(3), Word(2) + Word(3) + Word(0x70000000))),
              "error: the document's polygons claim more corners than its index sets hold; text saves are "
              "refused, and references, numbers and texts of nodes are not checked here\n"
              "error: plateShape (polygonMesh): index set \"points\" holds 6 indices for 1879048195 corners; "
              "readers take 0 for those that it lacks, and text saves fill it up or cut it\n"
              "error: plateShape (polygonMesh): index set \"uvset1\" holds 6 indices for 1879048195 corners; "
              "readers take 0 for those that it lacks, and text saves fill it up or cut it\n");
}

// An older mesh of one triangle, and its colours.
const std::string kOlderMesh =
    "MESH face\n{\n\tid 3\n\tpoints 3\n\t\t0 0 0\n\t\t1 0 0\n\t\t0 1 0\n\tdeformer_queue 0\n"
    "\tintermediate_object 0\n\tnormal_count 1\n\tnum_uv_sets 1\n\tface_count 1\n\tnormals\n\t\t0 0 1\n"
    "\ttex_coords \"map1\" 2\n\t\t0 0\n\t\t1 1\n\tFACE 3\n\t\t0 0 0\n\t\t1 0 1\n\t\t2 0 1\n}\n";
std::string Colours(const std::string& faces)
{
    return "MESH_VTX_COLOURS tints\n{\n\tid 8\n\tmesh_id 3\n\tnum_colour_sets 1\n\tcolour_set \"day\" 1\n"
           "\t\t1 0 0 1\n\tfaces " +
           faces + "}\n";
}

TEST_F(ValidateGeometry, OlderMeshes)
{
    EXPECT_EQ(FindingsIn(kHeader + kOlderMesh + Colours("1\n\t\t3 0 0 0 \n")), "");
    EXPECT_EQ(FindingsIn(kHeader + With(kOlderMesh, "2 0 1\n}", "3 1 2\n}")),
              "error: face (mesh): face 0: point 3 of 3; readers that don't check read beyond the table\n"
              "error: face (mesh): face 0: normal 1 of 1; readers that don't check read beyond the table\n"
              "error: face (mesh): face 0: uv 2 of 2; readers that don't check read beyond the table\n");
    EXPECT_EQ(FindingsIn(kHeader + kOlderMesh + Colours("2\n\t\t3 0 0 1 \n\t\t3 -1 0 0 \n")),
              "error: tints (mv): colour set \"day\": face 0: colour 1 of 1 (and 1 more); readers that don't "
              "check read beyond the table\n"
              "error: tints (mv): colour set \"day\" covers 2 faces of 1; readers find no colours for the "
              "others\n");
}

TEST_F(ValidateGeometry, OlderMeshThatABinaryFileCannotCount)
{
    std::string text = With(kOlderMesh, "face_count 1", "face_count 65536");
    for (int i = 1; i < 65536; ++i)
        text.insert(text.size() - 2, "\tFACE 3\n\t\t0 0 0\n\t\t1 0 1\n\t\t2 0 1\n");
    EXPECT_EQ(FindingsIn(kHeader + text),
              "error: face (mesh): has 65536 faces; a binary file counts 65535 at most, and readers lose the "
              "rest of it\n");
}

}  // namespace
