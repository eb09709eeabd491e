#include "VKT/shading/Lambert.h"

#include "VKT/geometry/PolygonMesh.h"
#include "VKT/hierarchy/Bone.h"
#include "VKT/lights/SpotLight.h"
#include "VKT/shading/BumpMap.h"
#include "VKT/shading/HwShader.h"
#include "VKT/shading/SphereMap.h"
#include "VKT/support/NodeTest.h"

using namespace VKT;
using namespace VKT::Test;

namespace {

class Lambert : public NodeTest {
protected:
    XLambert& New() { return *m_Model.CreateNode<XLambert>(); }

    XLambert& m_Clay = New();
};

constexpr const char kText[] =
    "\thw_shader 1\n"
    "\tcolour 2 3 4 5 input 6\n"
    "\tambient_colour 7 8 9 10 input 11\n"
    "\tincandescence 12 13 14 15 input 16\n"
    "\ttransparency 17 18 19 20 input 21\n"
    "\tbump_map 22\n"
    "\tenv_map 23\n";
constexpr const char kBytes[] =
    "05 00 6e 6f 64 65 31 01 00 00 00 "
    "01 00 00 00 "
    "06 00 00 00 00 00 00 40 00 00 40 40 00 00 80 40 00 00 a0 40 06 00 63 6f 6c 6f 75 72 "
    "0b 00 00 00 00 00 e0 40 00 00 00 41 00 00 10 41 00 00 20 41 "
    "0e 00 61 6d 62 69 65 6e 74 5f 63 6f 6c 6f 75 72 "
    "10 00 00 00 00 00 40 41 00 00 50 41 00 00 60 41 00 00 70 41 "
    "0d 00 69 6e 63 61 6e 64 65 73 63 65 6e 63 65 "
    "15 00 00 00 00 00 88 41 00 00 90 41 00 00 98 41 00 00 a0 41 "
    "0c 00 74 72 61 6e 73 70 61 72 65 6e 63 79 "
    "16 00 00 00 17 00 00 00";

TEST_F(Lambert, FreshOneWritesItsDefaults)
{
    EXPECT_EQ(ChunkOf(m_Clay),
              "LAMBERT node1\n"
              "{\n"
              "\tid 1\n"
              "\thw_shader 0\n"
              "\tcolour 0.65 0.65 0.65 1 input 0\n"
              "\tambient_colour 0.2 0.2 0.2 1 input 0\n"
              "\tincandescence 0 0 0 1 input 0\n"
              "\ttransparency 0 0 0 1 input 0\n"
              "\tbump_map 0\n"
              "\tenv_map 0\n"
              "}\n");
    EXPECT_EQ(m_Clay.GetDataSize(), 14u + 5 + (4 + 22 + 6) + (22 + 14) + (22 + 13) + (22 + 12) + 8);
}

TEST_F(Lambert, AnswersForItsBases)
{
    for (const u32 type : {10u, 7u, 168u, 0u})
        EXPECT_EQ(m_Clay.HasFn(type), &m_Clay) << type;
    for (const u32 type : {9u, 13u, 169u})
        EXPECT_EQ(m_Clay.HasFn(type), nullptr) << type;
    EXPECT_EQ(m_Clay.GetApiType(), 10u);
}

TEST_F(Lambert, TextReadsBack)
{
    EXPECT_TRUE(ReadText(m_Clay, kText));
    EXPECT_EQ(TextOf(m_Clay), kText);
    EXPECT_EQ(m_Clay.GetColour().colour, (XColour{2, 3, 4, 5}));
    EXPECT_EQ(m_Clay.GetAmbientColour().input, 11u);
    EXPECT_EQ(m_Clay.GetIncandescence().colour, (XColour{12, 13, 14, 15}));
    EXPECT_EQ(m_Clay.GetTransparency().colour, (XColour{17, 18, 19, 20}));
}

TEST_F(Lambert, BytesReadBack)
{
    EXPECT_TRUE(ReadBody(m_Clay, Bytes(kBytes)));
    EXPECT_EQ(TextOf(m_Clay), kText);
    EXPECT_EQ(Hex(BodyOf(m_Clay)), kBytes);
}

TEST_F(Lambert, EachWrongKeyIsLoggedWithItsClassAndRow)
{
    const struct {
        const char* key;
        const char* place;
    } cases[] = {{"hw_shader", "Material:1"},     {"colour", "Material:2"},
                 {"ambient_colour", "Lambert:1"}, {"incandescence", "Lambert:2"},
                 {"transparency", "Lambert:3"},   {"bump_map", "Lambert:4"},
                 {"env_map", "Lambert:5"}};
    for (const auto& [key, place] : cases) {
        m_Log.Clear();
        EXPECT_FALSE(ReadText(New(), Replaced(kText, std::string("\t") + key, "\tWrong")));
        EXPECT_EQ(m_Log.Text(),
                  std::string("Error : Expected ") + key + " got wrong [.\\src\\VKT\\" + place + "]\n");
    }
}

TEST_F(Lambert, IdsOfInputsFollowTheirWord)
{
    EXPECT_FALSE(ReadText(m_Clay, Replaced(kText, " input 6", " tex 6")));
    EXPECT_EQ(m_Log.Text(), "Error : Expected input got tex [.\\src\\VKT\\Material:2]\n");
}

TEST_F(Lambert, NumberThatDoesNotComeAtTheEndFailsInSilence)
{
    EXPECT_FALSE(ReadText(m_Clay, Replaced(kText, "env_map 23", "env_map x")));
    EXPECT_EQ(m_Log.Text(), "");
}

TEST_F(Lambert, ValuesAreTakenAsTheyStand)
{
    const std::string text = Replaced(kText, "colour 2 3 4 5 input 6", "colour -2 1e+10 0 1 input 999");
    EXPECT_TRUE(ReadText(m_Clay, text));
    EXPECT_EQ(TextOf(m_Clay), text);
}

TEST_F(Lambert, EveryCutOfTheBytesFails)
{
    const std::string bytes = Bytes(kBytes);
    for (std::size_t length = 0; length < bytes.size(); ++length)
        EXPECT_FALSE(ReadBody(New(), bytes.substr(0, length))) << length;
}

TEST_F(Lambert, CloneHasAllValues)
{
    ASSERT_TRUE(ReadText(m_Clay, kText));
    EXPECT_EQ(TextOf(*m_Clay.Clone()), kText);
}

TEST_F(Lambert, RefersToNodesOfTheWantedClassesAlone)
{
    XHwShader& shader = *m_Model.CreateNode<XHwShader>();
    XBumpMap& bump = *m_Model.CreateNode<XBumpMap>();
    XEnvMap& env = *m_Model.CreateNode<XSphereMap>();
    XModel other;
    const XHwShader foreignShader(&other);
    const XBumpMap foreignBump(&other);
    EXPECT_TRUE(m_Clay.SetHwShader(&shader));
    EXPECT_TRUE(m_Clay.SetBumpMap(&bump));
    EXPECT_TRUE(m_Clay.SetEnvMap(&env));
    for (const XBase* node : {static_cast<const XBase*>(nullptr), static_cast<const XBase*>(&m_Clay)}) {
        EXPECT_FALSE(m_Clay.SetHwShader(node));
        EXPECT_FALSE(m_Clay.SetBumpMap(node));
        EXPECT_FALSE(m_Clay.SetEnvMap(node));
    }
    EXPECT_FALSE(m_Clay.SetHwShader(&foreignShader));
    EXPECT_FALSE(m_Clay.SetBumpMap(&foreignBump));
    EXPECT_EQ(m_Clay.GetHwShader(), &shader);
    EXPECT_EQ(m_Clay.GetBumpMap(), &bump);
    EXPECT_EQ(m_Clay.GetEnvMap(), &env);

    // A file may name any node.
    ASSERT_TRUE(ReadText(m_Clay,
                         "hw_shader 3 colour 0 0 0 0 input 0 ambient_colour 0 0 0 0 input 0 incandescence "
                         "0 0 0 0 input 0 transparency 0 0 0 0 input 0 bump_map 4 env_map 2"));
    EXPECT_EQ(m_Clay.GetHwShader(), nullptr);
    EXPECT_EQ(m_Clay.GetBumpMap(), nullptr);
    EXPECT_EQ(m_Clay.GetEnvMap(), nullptr);
}

TEST_F(Lambert, PropertiesReachTheFields)
{
    XHwShader& shader = *m_Model.CreateNode<XHwShader>();
    XBumpMap& bump = *m_Model.CreateNode<XBumpMap>();
    XEnvMap& env = *m_Model.CreateNode<XSphereMap>();
    const XNodeProperties& properties = *m_Clay.GetNodeProperties();
    EXPECT_TRUE(properties.SetColour(&m_Clay, 2, {1, 2, 3, 4}));
    EXPECT_TRUE(properties.SetColour(&m_Clay, 3, {5, 6, 7, 8}));
    EXPECT_TRUE(properties.SetColour(&m_Clay, 4, {9, 10, 11, 12}));
    EXPECT_TRUE(properties.SetColour(&m_Clay, 5, {13, 14, 15, 16}));
    EXPECT_TRUE(properties.SetNode(&m_Clay, 1, &shader));
    EXPECT_TRUE(properties.SetNode(&m_Clay, 6, &bump));
    EXPECT_TRUE(properties.SetNode(&m_Clay, 7, &env));
    EXPECT_EQ(TextOf(m_Clay),
              "\thw_shader 2\n"
              "\tcolour 1 2 3 4 input 0\n"
              "\tambient_colour 5 6 7 8 input 0\n"
              "\tincandescence 9 10 11 12 input 0\n"
              "\ttransparency 13 14 15 16 input 0\n"
              "\tbump_map 3\n"
              "\tenv_map 4\n");
    // What the class's own setters refuse is refused here too.
    for (const u32 id : {1u, 6u, 7u}) {
        EXPECT_FALSE(properties.SetNode(&m_Clay, id, nullptr)) << id;
        EXPECT_FALSE(properties.SetNode(&m_Clay, id, &m_Clay)) << id;
    }
    XBase* node = nullptr;
    EXPECT_TRUE(properties.GetNode(&m_Clay, 1, node));
    EXPECT_EQ(node, &shader);
    EXPECT_TRUE(properties.GetNode(&m_Clay, 6, node));
    EXPECT_EQ(node, &bump);
    EXPECT_TRUE(properties.GetNode(&m_Clay, 7, node));
    EXPECT_EQ(node, &env);
    XColour colour;
    EXPECT_TRUE(properties.GetColour(&m_Clay, 4, colour));
    EXPECT_EQ(colour, (XColour{9, 10, 11, 12}));
}

TEST_F(Lambert, UsersAreTheShapesThatItCovers)
{
    XBone& bone = *m_Model.CreateNode<XBone>();
    XBone& other = *m_Model.CreateNode<XBone>();
    XShape& light = *m_Model.CreateNode<XSpotLight>();
    XShape& mesh = *m_Model.CreateNode<XPolygonMesh>();
    EXPECT_EQ(m_Clay.GetNumUsers(), 0u);
    m_Model.CreateInstance(&bone, &light)->SetMaterial(m_Clay.GetID());
    m_Model.CreateInstance(&other, &light)->SetMaterial(m_Clay.GetID());
    EXPECT_EQ(m_Clay.GetNumUsers(), 1u);
    XInstance& grouped = *m_Model.CreateInstance(&bone, &mesh);
    grouped.SetNumMaterialGroups(2);
    grouped.SetMaterial(m_Clay.GetID(), 1);
    EXPECT_EQ(m_Clay.GetNumUsers(), 2u);
}

// Files below version 4.

constexpr const char kOldText[] =
    "\tambient_color 7 8 9 10 tex 11\n"
    "\tcolor 2 3 4 5 tex 6\n"
    "\tincandescence 12 13 14 15 tex 16\n"
    "\ttransparency 17 18 19 20 tex 21\n"
    "\tbump_map 22\n"
    "\tenv_map 23\n"
    "\thw_shader 1\n";
constexpr const char kOldBytes[] =
    "05 00 6e 6f 64 65 31 01 00 00 00 "
    "0b 00 00 00 00 00 e0 40 00 00 00 41 00 00 10 41 00 00 20 41 "
    "0d 00 61 6d 62 69 65 6e 74 5f 63 6f 6c 6f 72 "
    "06 00 00 00 00 00 00 40 00 00 40 40 00 00 80 40 00 00 a0 40 05 00 63 6f 6c 6f 72 "
    "63 00 00 00 00 00 c6 42 00 00 c6 42 00 00 c6 42 00 00 c6 42 "
    "0e 00 73 70 65 63 75 6c 61 72 5f 63 6f 6c 6f 72 "
    "10 00 00 00 00 00 40 41 00 00 50 41 00 00 60 41 00 00 70 41 "
    "0d 00 69 6e 63 61 6e 64 65 73 63 65 6e 63 65 "
    "15 00 00 00 00 00 88 41 00 00 90 41 00 00 98 41 00 00 a0 41 "
    "0c 00 74 72 61 6e 73 70 61 72 65 6e 63 79 "
    "00 00 c6 42 "
    "16 00 00 00 17 00 00 00 01 00 00 00";

TEST_F(Lambert, OldTextIsReadWithItsSpellings)
{
    MakeOlder();
    XLambert& clay = New();
    EXPECT_TRUE(ReadText(clay, kOldText));
    EXPECT_EQ(TextOf(clay), kText);
    EXPECT_FALSE(ReadText(New(), kText));
    EXPECT_EQ(m_Log.Text(), "Error : Expected ambient_color got hw_shader [.\\src\\VKT\\Lambert:1]\n");
    m_Log.Clear();
    EXPECT_FALSE(ReadText(New(), Replaced(kOldText, " tex 11", " input 11")));
    EXPECT_EQ(m_Log.Text(), "Error : Expected tex got input [.\\src\\VKT\\Lambert:1]\n");
}

TEST_F(Lambert, OldTextHasNoSpecularColour)
{
    MakeOlder();
    EXPECT_FALSE(ReadText(
        New(), Replaced(kOldText, "\tincandescence", "\tspecular_color 1 1 1 1 tex 0\n\tincandescence")));
    EXPECT_EQ(m_Log.Text(), "Error : Expected incandescence got specular_color [.\\src\\VKT\\Lambert:3]\n");
}

TEST_F(Lambert, OldBytesAreReadWithTheirSpellingsAndTheRestDropped)
{
    MakeOlder();
    XLambert& clay = New();
    EXPECT_TRUE(ReadBody(clay, Bytes(kOldBytes)));
    EXPECT_EQ(TextOf(clay), kText);
    EXPECT_EQ(Hex(BodyOf(clay)), kBytes);
}

TEST_F(Lambert, OldBytesWithAnotherNameAreRefusedInSilence)
{
    MakeOlder();
    const struct {
        const char* name;
        const char* other;
    } cases[] = {
        {"0d 00 61 6d 62 69 65 6e 74 5f 63 6f 6c 6f 72", "0e 00 61 6d 62 69 65 6e 74 5f 63 6f 6c 6f 75 72"},
        {"05 00 63 6f 6c 6f 72", "06 00 63 6f 6c 6f 75 72"},
        {"0e 00 73 70 65 63 75 6c 61 72 5f 63 6f 6c 6f 72",
         "0f 00 73 70 65 63 75 6c 61 72 5f 63 6f 6c 6f 75 72"},
    };
    for (const auto& [name, other] : cases)
        EXPECT_FALSE(ReadBody(New(), Bytes(Replaced(kOldBytes, name, other)))) << name;
    EXPECT_EQ(m_Log.Text(), "");
}

TEST_F(Lambert, EveryCutOfTheOldBytesFails)
{
    MakeOlder();
    const std::string bytes = Bytes(kOldBytes);
    for (std::size_t length = 0; length < bytes.size(); ++length)
        EXPECT_FALSE(ReadBody(New(), bytes.substr(0, length))) << length;
}

// A binary file without images, whose chunks hold these bodies.
std::string OldBinaryFile(const std::vector<std::string>& bodies)
{
    std::string file = "|VKT_003B#0000#00000000|" + Bytes("00 00");
    for (const std::string& body : bodies) {
        file += Bytes("0a 00 00 00");
        const auto size = static_cast<u32>(body.size() + 8);
        for (int shift = 0; shift < 32; shift += 8)
            file += static_cast<char>(size >> shift);
        file += body;
    }
    return file;
}

// The file loads without it.
TEST_F(Lambert, OneWithTheNewSpellingInAnOldBinaryFileIsRefusedInSilence)
{
    const std::string renamed = Replaced(kOldBytes, "0d 00 61 6d 62 69 65 6e 74 5f 63 6f 6c 6f 72",
                                         "0e 00 61 6d 62 69 65 6e 74 5f 63 6f 6c 6f 75 72");
    const std::string behind = Replaced(kOldBytes, "6e 6f 64 65 31 01", "6e 6f 64 65 32 02");
    ASSERT_EQ(LoadBytes(m_Model, OldBinaryFile({Bytes(renamed), Bytes(behind)})), FileOk);
    EXPECT_EQ(m_Model.FindNode("node1"), nullptr);
    EXPECT_EQ(m_Model.GetLoadReport().GetChunks().GetCount(), 1u);
    ASSERT_NE(m_Model.FindNode("node2"), nullptr);
    EXPECT_EQ(TextOf(*m_Model.FindNode("node2")), kText);
    EXPECT_EQ(m_Log.Text().find("Error"), std::string::npos) << m_Log.Text();
}

TEST_F(Lambert, OldFileOfEitherFormIsSavedWithTheNewNames)
{
    const std::string text =
        std::string("|VKT_003A#0000#00000000|\nLAMBERT node1\n{\n\tid 1\n") + kOldText + "}\n\n";
    const std::string binary = OldBinaryFile({Bytes(kOldBytes)});
    for (const std::string& file : {text, binary}) {
        ASSERT_EQ(LoadBytes(m_Model, file), FileOk);
        EXPECT_EQ(m_Model.GetVersion(), 3u);
        EXPECT_EQ(SaveText(m_Model),
                  std::string("|VKT_004A#0000#00000000|\nLAMBERT node1\n{\n\tid 1\n") + kText + "}\n");
        EXPECT_EQ(m_Model.GetVersion(), 4u);
        EXPECT_EQ(Hex(SaveBinaryBytes(m_Model).substr(24)),
                  std::string("00 00 0a 00 00 00 ") +
                      Hex(std::string{static_cast<char>(Bytes(kBytes).size() + 8)}) + " 00 00 00 " + kBytes);
    }
}

}  // namespace
