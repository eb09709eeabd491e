#include "apps/validate/ValidateRun.h"

// What the text form cannot carry. Most of it comes from binary files.

namespace {

using ValidateTextForm = ValidateTest;

const std::string kNaN = Word(0x7FC00000);
const std::string kInfinity = Word(0x7F800000);

TEST_F(ValidateTextForm, NumbersThatAreNotFinite)
{
    const std::string bytes = Binary(kPlate);
    const std::string lastPoint = Word(0) + Word(0x3F800000) + Word(0x3F000000);
    EXPECT_EQ(FindingsIn(With(bytes, lastPoint, kNaN + kNaN + Word(0x3F000000))),
              "error: plateShape (polygonMesh): points[3] is nan (and 1 more); readers of a text file fail "
              "there\n");
    const std::string translate = Word(0) + Word(0x40200000) + Word(0);
    EXPECT_EQ(FindingsIn(With(bytes, translate, Word(0) + kInfinity + Word(0))),
              "error: plate (bone): translate is inf; readers of a text file fail there\n"
              "error: plate (bone): bind_pose_matrix[3] is inf; readers of a text file fail there\n");
}

TEST_F(ValidateTextForm, NamesThatAreNotOneWord)
{
    const std::string bytes = Binary(kPlate);
    EXPECT_EQ(
        FindingsIn(With(bytes, "plateShape", "plate\tShap")),
        "warning: plate\\x09Shap (polygonMesh): the name \"plate\\x09Shap\" is written as plate_Shap: names "
        "in text files are one word; readers of a text file get that\n");
    // The second time it is the name of the instance.
    std::string instance = bytes;
    instance.replace(instance.rfind("plateShape"), 10, "plate Shap");
    EXPECT_EQ(
        FindingsIn(instance),
        "warning: plate (bone): the name \"plate Shap\" is written as plate_Shap: names in text files are "
        "one word; readers of a text file get that\n");
}

TEST_F(ValidateTextForm, AnnotationsOfSeveralWords)
{
    const std::string bytes =
        Binary(kHeader + "OBJECT_SET props\n{\n\tid 1\n\tnum_items 0\n\tannotation \"all_loose\"\n}\n");
    EXPECT_EQ(
        FindingsIn(With(bytes, "all_loose", "all loose")),
        "warning: props (objectSet): annotation is \"all loose\"; readers of a text file get what stands "
        "ahead of the first blank\n");
}

TEST_F(ValidateTextForm, TextsThatDoNotReadBack)
{
    // A quote in the name of a set ends it early.
    std::string bytes = Binary(kPlate);
    for (std::size_t at = 0; (at = bytes.find("uvset1")) != std::string::npos;)
        bytes.replace(at, 6, "uv\"et1");
    EXPECT_EQ(FindingsIn(bytes),
              "error: plateShape (polygonMesh): its text does not read back (Expected { got et1\" "
              "[.\\src\\VKT\\PolygonMesh:7]); readers of a text file fail there\n");
}

// The number of its length runs into the key.
TEST_F(ValidateTextForm, CollisionCapsules)
{
    EXPECT_EQ(
        FindingsIn(
            kHeader +
            "COLLISION_CAPSULE limb\n{\n\tid 1\n\tgravity_scale 7\n\tmass 8\n\tradius 9\n\tlength 10\n}\n"),
        "error: limb (collisionCapsule): its text does not read back (Expected length got length10 "
        "[.\\src\\VKT\\CollisionCapsule:2]); readers of a text file fail there\n");
}

// Their chunks have no key.
TEST_F(ValidateTextForm, UserDefinedLights)
{
    const std::string light =
        "NEW_NODE\n{\n\tbase_type light\n\ttype_name glow\n\theader GLOW\n}\n"
        "GLOW lamp\n{\n\tid 1\n\tcolour\t\t1 1 1\n\tintensity\t1\n\tshadow_colour\t0 0 0\n\temit_ambient "
        "1\n\temit_diffuse 1\n\temit_specular 1\n}\n";
    EXPECT_EQ(
        FindingsIn(kHeader + light),
        "error: lamp (GLOW): its text does not read back (Missing Bracket '{' after chunk name); readers "
        "of a text file fail there\n");
}

TEST_F(ValidateTextForm, DeclaredTypesReadBack)
{
    const std::string hook = With(Bone("left", 1, 0), "BONE", "HOOK");
    EXPECT_EQ(FindingsIn(kHeader + "INHERITED_NODE\n{\n\tbase_type BONE\n\theader HOOK\n}\n" + hook), "");
    EXPECT_EQ(FindingsIn(kHeader + "NEW_NODE\n{\n\tbase_type none\n\ttype_name cloud\n\theader CLOUD\n}\n"
                                   "CLOUD fluffy\n{\n\tid 1\n\tdrops 12\n\tshape {\n\t\twide 3\n\t}\n}\n"),
              "");
}

}  // namespace
