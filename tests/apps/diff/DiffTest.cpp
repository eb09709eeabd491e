#include <nlohmann/json.hpp>

#include "apps/support/Documents.h"
#include "apps/support/ToolRun.h"

namespace {

using Json = nlohmann::json;

class Diff : public ToolTest {
protected:
    ToolResult Compare(const std::string& a, const std::string& b, std::vector<std::string> options = {})
    {
        WriteFile("a.vkt", a);
        WriteFile("b.vkt", b);
        options.insert(options.begin(), {"diff", "a.vkt", "b.vkt"});
        return Run(options);
    }
    // Standard output, of files that must differ.
    std::string Differences(const std::string& a, const std::string& b,
                            const std::vector<std::string>& options = {})
    {
        const ToolResult result = Compare(a, b, options);
        EXPECT_EQ(result.status, 1) << result.err;
        return result.out;
    }
};

TEST_F(Diff, AFileIsEqualToItself)
{
    const ToolResult result = Compare(kPlate, kPlate);
    EXPECT_EQ(result.status, 0);
    EXPECT_EQ(result.out, "");
    EXPECT_EQ(result.err, "Info : loading \"a.vkt\" (and 1 more like it, --verbose shows them)\n");
}

TEST_F(Diff, BothFormsOfADocumentAreEqual)
{
    WriteFile("plate.vkt", kPlate);
    ASSERT_EQ(Run({"convert", "plate.vkt", "binary.vkt", "--binary"}).status, 0);
    const ToolResult result = Run({"diff", "plate.vkt", "binary.vkt"});
    EXPECT_EQ(result.status, 0) << result.out;
    EXPECT_EQ(result.out, "");
}

TEST_F(Diff, FieldAndBothValuesAreNamed)
{
    EXPECT_EQ(Differences(kPlate, With(kPlate, "translate\t0 2.5 0", "translate\t0 -2.5 1")),
              "plate (bone): translate: 0 2.5 0 -> 0 -2.5 1\n"
              "plate (bone): bind_pose_matrix[3]: 0 2.5 0 1 -> 0 -2.5 1 1\n");
}

TEST_F(Diff, RowsAreNumberedAndCounted)
{
    std::string other = With(kPlate, "\t\t1 1 0\n\t\t0 1 0.5\n", "\t\t1 1 7\n\t\t0 1 0.25\n");
    other = With(other, "1 0.25 \n", "1 0.75 \n");
    EXPECT_EQ(Differences(kPlate, other),
              "plateShape (polygonMesh): points[2]: 1 1 0 -> 1 1 7 (and 1 more)\n"
              "plateShape (polygonMesh): VERTEX_SET \"uvset1\" / elements[1]: 1 0.25 -> 1 0.75\n");
}

// Eight digits tell floats apart, six stand in a text file.
TEST_F(Diff, AllDigitsCount)
{
    EXPECT_EQ(Differences(kPlate, With(kPlate, "0 1 0.5\n", "0 1 0.50000006\n")),
              "plateShape (polygonMesh): points[3]: 0 1 0.5 -> 0 1 0.50000006\n");
}

TEST_F(Diff, NumbersMayDifferByTheTolerance)
{
    const std::string other = With(kPlate, "0 1 0.5\n", "0 1 0.50001\n");
    EXPECT_EQ(Compare(kPlate, other, {"--tolerance", "1.1e-5"}).status, 0);
    EXPECT_EQ(Compare(kPlate, other, {"--tolerance", "0.9e-5"}).status, 1);
    // Of large numbers it is a part.
    const std::string large = With(kPlate, "0 1 0.5\n", "0 1 1000000\n");
    EXPECT_EQ(Compare(large, With(large, "0 1 1000000\n", "0 1 1000001\n"), {"--tolerance", "1.1e-6"}).status,
              0);
    EXPECT_EQ(Compare(large, With(large, "0 1 1000000\n", "0 1 1000001\n"), {"--tolerance", "0.9e-6"}).status,
              1);
}

TEST_F(Diff, InfinityIsNearToNothing)
{
    const std::string other = With(kPlate, "scale_limit_z -INF +INF", "scale_limit_z -INF 5");
    EXPECT_EQ(Differences(kPlate, other, {"--tolerance", "0.1"}),
              "plate (bone): scale_limit_z: -INF +INF -> -INF 5\n");
}

TEST_F(Diff, ZeroesAreEqualWhateverTheirSign)
{
    EXPECT_EQ(Compare(kPlate, With(kPlate, "0 1 0.5\n", "-0 1 0.5\n")).status, 0);
}

TEST_F(Diff, NeitherIdsNorTheOrderOfChunksMatter)
{
    const std::string materials = "\t\t\tmaterial 4\n";
    const std::string a = kHeader + Lambert("red", 4) + Mesh("flag", 2, {5}) +
                          Bone("pole", 1, 0, {3}, Instance("flag", 2, materials)) + Bone("top", 3, 1) +
                          Wave("wind", 5, {2});
    const std::string b = kHeader + Wave("wind", 10, {30}) + Lambert("red", 20) + Mesh("flag", 30, {10}) +
                          Bone("top", 3, 40) +
                          Bone("pole", 40, 0, {3}, Instance("flag", 30, "\t\t\tmaterial 20\n"));
    const ToolResult result = Compare(a, b);
    EXPECT_EQ(result.status, 0) << result.out;
}

TEST_F(Diff, ReferencesAreNamedByTheNodesThatTheyLeadTo)
{
    const std::string start = kHeader + Lambert("red", 4) + Lambert("blue", 6) + Mesh("flag", 2) +
                              Wave("wind", 5, {2}) + Bone("base", 9, 0, {1});
    const std::string a = start + Bone("pole", 1, 9, {}, Instance("flag", 2, "\t\t\tmaterial 4\n"));
    const std::string b = With(start, "affected 1 2", "affected 1 77") +
                          Bone("pole", 1, 0, {}, Instance("flag", 2, "\t\t\tmaterial 6\n"));
    EXPECT_EQ(Differences(a, b),
              "pole (bone): parent: \"base\" -> <none>\n"
              "pole (bone): INSTANCE_LIST / INSTANCE flag / material: \"red\" -> \"blue\"\n"
              "wind (nonLinearWave): affected: 1 \"flag\" -> 1 <missing>\n");
}

TEST_F(Diff, ReferencesTellNodesOfOneNameApart)
{
    const std::string nodes = kHeader + Bone("x", 1, 0) + Bone("x", 2, 0) + Lambert("x", 3);
    EXPECT_EQ(Differences(nodes + Bone("y", 4, 1), nodes + Bone("y", 4, 2)),
              "y (bone): parent: \"x\"(bone) -> \"x\"(bone)#1\n");
    EXPECT_EQ(Differences(nodes + Bone("y", 4, 1), nodes + Bone("y", 4, 3)),
              "y (bone): parent: \"x\"(bone) -> \"x\"(lambert)\n");
}

TEST_F(Diff, NodesOfOneDocumentAreNamed)
{
    const std::string both = kHeader + Bone("x", 1, 0);
    EXPECT_EQ(Differences(both + Bone("a", 2, 0) + Bone("x", 5, 0), both + Lambert("x", 3)),
              "a (bone): only in a.vkt\n"
              "x (bone) #1: only in a.vkt\n"
              "x (lambert): only in b.vkt\n");
}

TEST_F(Diff, FieldsOfOneDocumentAreNamedWithoutWhatIsBelow)
{
    std::string b = kPlate;
    const std::size_t begin = b.find("\tVERTEX_SET");
    b.erase(begin, b.find("}\nBONE") - begin);
    b = With(b, "num_vertex_sets 1", "num_vertex_sets 0");
    EXPECT_EQ(Differences(kPlate, b),
              "plateShape (polygonMesh): num_vertex_sets: 1 -> 0\n"
              "plateShape (polygonMesh): VERTEX_SET \"uvset1\": present -> <absent>\n");
    EXPECT_EQ(Differences(b, kPlate),
              "plateShape (polygonMesh): num_vertex_sets: 0 -> 1\n"
              "plateShape (polygonMesh): VERTEX_SET \"uvset1\": <absent> -> present\n");
}

TEST_F(Diff, OfLongRowsTheFirstValueIsNamed)
{
    const std::string row = "\t\t\t\t\t0 1 2 3 4 5 6 7 8 \n";
    const auto group = [](const std::string& faces) {
        return "\t\t\tMATERIAL_GROUP {\n\t\t\t\tmaterial_id 0\n\t\t\t\tnum_face_indices 9\n" + faces +
               "\t\t\t}\n";
    };
    const auto scene = [&](const std::string& faces) {
        return kHeader + Mesh("flag", 2) + Bone("pole", 1, 0, {}, Instance("flag", 2, group(faces)));
    };
    EXPECT_EQ(
        Differences(scene(row), scene(With(row, "5 6", "5 9"))),
        "pole (bone): INSTANCE_LIST / INSTANCE flag / MATERIAL_GROUP / num_face_indices[0][6]: 6 -> 9\n");
}

TEST_F(Diff, AttributesAndConnectionsAreCompared)
{
    const auto scene = [](const std::string& attributes) {
        std::string bone = Bone("b", 1, 0);
        bone.insert(bone.size() - 2, attributes);
        return kHeader + bone + Bone("c", 2, 0) + Bone("d", 3, 0);
    };
    const std::string a = scene(
        "\tEXTRA_ATTRIBUTES\n\t{\n\t\tsize float 1.5\n\t\tnote string \"red wine\"\n\t\tlist vector<int> 3 { "
        "1 2 "
        "3  }\n\t}\n\tCONNECTIONS\n\t{\n\t\tATTR size 0\n\t\t{\n\t\t\tinput 2 x\n\t\t\toutput "
        "0\n\t\t}\n\t}\n");
    EXPECT_EQ(
        Differences(a, With(With(With(a, "1.5", "2"), "red wine", "red \\\"wine"), "input 2", "input 3")),
        "b (bone): EXTRA_ATTRIBUTES / size: float 1.5 -> float 2\n"
        "b (bone): EXTRA_ATTRIBUTES / note: string \"red wine\" -> string \"red \\\"wine\"\n"
        "b (bone): CONNECTIONS / ATTR size / input: \"c\" x -> \"d\" x\n");
    EXPECT_EQ(Differences(a, With(a, "1 2 3", "1 2 4")),
              "b (bone): EXTRA_ATTRIBUTES / list: vector<int> 3 { 1 2 3 } -> vector<int> 3 { 1 2 4 }\n");
    EXPECT_EQ(Differences(a, With(a, "size float 1.5", "size int 1")),
              "b (bone): EXTRA_ATTRIBUTES / size: float 1.5 -> int 1\n");
}

TEST_F(Diff, RecordsAndDeclaredTypesAreCompared)
{
    const auto record = [](const std::string& application) {
        return "INFO info\n{\n\tuser \"ann\"\n\thost \"forge\"\n\ttexture_file \"none\"\n"
               "\tformat_version VKT_004A\n\tsend_bug_reports_to vkt-bugs@vkt.invalid\n"
               "\tapplication \"" +
               application + "\"\n\toriginal_file \"plate.max\"\n\tdate 31/6/3909\n\ttime 12.30:05\n}\n";
    };
    const std::string types =
        "NEW_NODE\n{\n\tbase_type object\n\ttype_name cloud\n\theader CLOUD\n}\n"
        "INHERITED_NODE\n{\n\tbase_type BONE\n\theader HOOK\n}\n";
    EXPECT_EQ(Differences(kHeader + record("one") + types, kHeader + record("two")),
              "record / application: one -> two\n"
              "type CLOUD: family 2, cloud -> <absent>\n"
              "type HOOK: bone -> <absent>\n");
    EXPECT_EQ(Differences(kHeader, kHeader + record("two")),
              "record / application: <absent> -> two\n"
              "record / original_file: <absent> -> plate.max\n");
}

TEST_F(Diff, BodiesOfDeclaredTypesAreCompared)
{
    const auto scene = [](const std::string& body) {
        return kHeader +
               "NEW_NODE\n{\n\tbase_type none\n\ttype_name cloud\n\theader CLOUD\n}\nCLOUD fluffy\n{\n\tid "
               "1\n" +
               body + "}\n";
    };
    EXPECT_EQ(Differences(scene("\tdrops 12\n\tshape {\n\t\twide 3\n\t}\n"),
                          scene("\tdrops 13\n\tshape {\n\t\twide 4\n\t}\n")),
              "fluffy (CLOUD): drops: 12 -> 13\n"
              "fluffy (CLOUD): shape / wide: 3 -> 4\n");
}

TEST_F(Diff, AnimationCyclesAreCompared)
{
    const auto scene = [](int bone, const std::string& frame) {
        const std::string id = std::to_string(bone);
        return kHeader + Bone("hips", bone, 0) +
               "ANIM_CYCLE \"walk\"\n{\n\tnum_bones 1\n\tstart 0\n\tend 1\n\tnum_frames 2\n\tfps 25\n"
               "\tBONE_ANIM " +
               id + "\n\t{\n\t\t0 0 0 1 1 2 3 1 1 1\n\t\t" + frame +
               "\n\t}\n\tANIM_CURVE_LIST blend\n\t{\n\t\tnode " + id +
               "\n\t\tnum_curves 1\n\t\tANIM_CURVE weight\n\t\t{\n\t\t\tattr_name visible\n"
               "\t\t\tnum_keys 1\n\t\t\t\ttime 0 value 1 in 0 out 0\n\t\t}\n\t}\n}\n";
    };
    const std::string a = scene(3, "0 0 0 1 4 5 6 1 1 1");
    EXPECT_EQ(Compare(a, scene(7, "0 0 0 1 4 5 6 1 1 1")).out, "");
    EXPECT_EQ(Differences(a, With(scene(3, "0 0 0 1 4 5 7 1 1 1"), "value 1", "value 2")),
              "walk (animCycle): BONE_ANIM \"hips\"[1][6]: 6 -> 7\n"
              "walk (animCycle): ANIM_CURVE_LIST blend / ANIM_CURVE weight / num_keys / time: 0 value 1 in 0 "
              "out 0 -> 0 "
              "value 2 in 0 out 0\n");
    EXPECT_EQ(Differences(a, kHeader + Bone("hips", 3, 0)), "walk (animCycle): only in a.vkt\n");
}

TEST_F(Diff, ImagesAreCompared)
{
    // One record: id 7, 4 by 4 of two channels, named "dot", from "/dot".
    const auto file = [](const std::string& path, char pixel) {
        return std::string("|VKT_004B#0000#00000000|") + std::string("\x01\x00\x07\x00\x22\x01\x03\x00", 8) +
               "dot" + std::string("\x04\x00", 2) + path + std::string(32, pixel);
    };
    EXPECT_EQ(Compare(file("/dot", 'x'), file("/dot", 'x')).status, 0);
    EXPECT_EQ(Differences(file("/dot", 'x'), file("/spo", 'y')),
              "image \"dot\" / path: /dot -> /spo\n"
              "image \"dot\" / pixels: checksum 9fa55ea5892d4da5 -> checksum 5590c704926c3685\n");
}

TEST_F(Diff, JsonHoldsTheSame)
{
    const std::string a = kPlate + Bone("old", 7, 0);
    const std::string b = With(With(kPlate, "\t\t1 1 0\n\t\t0 1 0.5\n", "\t\t1 1 7\n\t\t0 1 0.25\n"), "|\n",
                               "|\nINFO i\n{\n\tuser \"\"\n\thost "
                               "\"\"\n\ttexture_file \"\"\n\tformat_version VKT_004A\n\tsend_bug_reports_to "
                               "x\n\tapplication \"x\"\n\toriginal_file "
                               "\"y\"\n\tdate 31/6/3909\n\ttime 12.30:05\n}\n");
    const ToolResult result = Compare(a, b, {"--json", "--tolerance", "0.125"});
    EXPECT_EQ(result.status, 1);
    EXPECT_EQ(Json::parse(result.out), Json::parse(R"({
        "a": "a.vkt", "b": "b.vkt", "tolerance": 0.125, "equal": false,
        "differences": [
            {"node": null, "type": null, "place": 0, "field": "record / application", "a": null, "b": "x", "count": 1},
            {"node": null, "type": null, "place": 0, "field": "record / original_file", "a": null, "b": "y", "count": 1},
            {"node": "old", "type": "bone", "place": 0, "field": null, "a": "old", "b": null, "count": 1},
            {"node": "plateShape", "type": "polygonMesh", "place": 0, "field": "points[2]", "a": "1 1 0", "b": "1 1 7",
             "count": 2}
        ]})"));
    const ToolResult equal = Compare(kPlate, kPlate, {"--json"});
    EXPECT_EQ(equal.status, 0);
    EXPECT_EQ(Json::parse(equal.out),
              Json::parse(R"({"a": "a.vkt", "b": "b.vkt", "tolerance": 0.0, "equal": true,
                                                      "differences": []})"));
}

TEST_F(Diff, NamesDoNotSteerTheTerminal)
{
    EXPECT_EQ(Differences(kHeader + Bone("\x1b[2J", 1, 0), kHeader), "\\x1b[2J (bone): only in a.vkt\n");
}

TEST_F(Diff, FailedLoadsAnswerTheirResult)
{
    WriteFile("new.vkt", "|VKT_009B#0000#00000000|");
    EXPECT_EQ(Compare(kPlate, "Hello, world. This is no scene.\n").status, 5);
    EXPECT_EQ(Run({"diff", "new.vkt", "a.vkt"}).status, 2);
    EXPECT_EQ(Run({"diff", "a.vkt", "missing.vkt"}).status, 3);
}

TEST_F(Diff, DroppedChunksAreSaidNotToBeCompared)
{
    const ToolResult result = Compare(PlateWithUnknownChunk(), kPlate);
    EXPECT_EQ(result.status, 0);
    EXPECT_NE(result.err.find("vkt: \"a.vkt\": 1 chunk cannot be read and is not compared\n"),
              std::string::npos)
        << result.err;
}

// A damaged mesh of a few bytes must not be described in gigabytes.
TEST_F(Diff, MeshThatClaimsTooManyCornersIsRefused)
{
    WriteFile("plate.vkt", kPlate);
    ASSERT_EQ(Run({"convert", "plate.vkt", "binary.vkt", "--binary"}).status, 0);
    std::string bytes = ReadFile("binary.vkt");
    const std::size_t counts = bytes.find(std::string("\x03\0\0\0\x03\0\0\0", 8));
    ASSERT_NE(counts, std::string::npos);
    bytes[counts + 3] = '\x7F';
    const ToolResult result = Compare(kPlate, bytes);
    EXPECT_EQ(result.status, 1);
    EXPECT_EQ(result.out, "");
    EXPECT_NE(result.err.find("Error : the document's polygons claim more corners than its index sets hold\n"
                              "vkt: \"b.vkt\" cannot be compared\n"),
              std::string::npos)
        << result.err;
}

}  // namespace
