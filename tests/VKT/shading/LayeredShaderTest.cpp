#include "VKT/shading/LayeredShader.h"

#include "VKT/hierarchy/Bone.h"
#include "VKT/shading/Lambert.h"
#include "VKT/support/NodeTest.h"

using namespace VKT;
using namespace VKT::Test;

namespace {

class LayeredShader : public NodeTest {
protected:
    XLayeredShader& New() { return *m_Model.CreateNode<XLayeredShader>(); }

    XLayeredShader& m_Shader = New();
};

constexpr const char kBase[] =
    "\thw_shader 1\n"
    "\tcolour 2 3 4 5 input 6\n"
    "\ttransparency 7 8 9 10 input 11\n";
constexpr const char kText[] =
    "\thw_shader 1\n"
    "\tcolour 2 3 4 5 input 6\n"
    "\ttransparency 7 8 9 10 input 11\n"
    "compositing_flag 12\n"
    "inputs 2\n"
    "\t\tcolour 13 14 15 16 input 17\n"
    "\t\ttransparency 18 19 20 21 input 22\n"
    "\t\tglow 23 24 25 26 input 27\n"
    "\n"
    "\t\tcolour 28 29 30 31 input 32\n"
    "\t\ttransparency 33 34 35 36 input 37\n"
    "\t\tglow 38 39 40 41 input 42\n";
constexpr const char kBytes[] =
    "05 00 6e 6f 64 65 31 01 00 00 00 "
    "01 00 00 00 "
    "06 00 00 00 00 00 00 40 00 00 40 40 00 00 80 40 00 00 a0 40 06 00 63 6f 6c 6f 75 72 "
    "0b 00 00 00 00 00 e0 40 00 00 00 41 00 00 10 41 00 00 20 41 "
    "0c 00 74 72 61 6e 73 70 61 72 65 6e 63 79 "
    "0c 00 00 00 "
    "02 00 00 00 "
    "11 00 00 00 00 00 50 41 00 00 60 41 00 00 70 41 00 00 80 41 06 00 63 6f 6c 6f 75 72 "
    "16 00 00 00 00 00 90 41 00 00 98 41 00 00 a0 41 00 00 a8 41 "
    "0c 00 74 72 61 6e 73 70 61 72 65 6e 63 79 "
    "1b 00 00 00 00 00 b8 41 00 00 c0 41 00 00 c8 41 00 00 d0 41 04 00 67 6c 6f 77 "
    "20 00 00 00 00 00 e0 41 00 00 e8 41 00 00 f0 41 00 00 f8 41 06 00 63 6f 6c 6f 75 72 "
    "25 00 00 00 00 00 04 42 00 00 08 42 00 00 0c 42 00 00 10 42 "
    "0c 00 74 72 61 6e 73 70 61 72 65 6e 63 79 "
    "2a 00 00 00 00 00 18 42 00 00 1c 42 00 00 20 42 00 00 24 42 04 00 67 6c 6f 77";

TEST_F(LayeredShader, FreshOneHasNoLayers)
{
    EXPECT_EQ(ChunkOf(m_Shader),
              "LAYERED_SHADER node1\n"
              "{\n"
              "\tid 1\n"
              "\thw_shader 0\n"
              "\tcolour 0.65 0.65 0.65 1 input 0\n"
              "\ttransparency 0 0 0 1 input 0\n"
              "compositing_flag 0\n"
              "inputs 0\n"
              "}\n");
    EXPECT_EQ(m_Shader.GetDataSize(), 14u + 5 + 4 + (22 + 6) + (22 + 12) + 8);
    const std::string text = TextOf(m_Shader);
    EXPECT_TRUE(ReadText(New(), text));
}

TEST_F(LayeredShader, AnswersForItsBases)
{
    for (const u32 type : {14u, 13u, 7u, 168u, 0u})
        EXPECT_EQ(m_Shader.HasFn(type), &m_Shader) << type;
    EXPECT_EQ(m_Shader.HasFn(10), nullptr);
}

TEST_F(LayeredShader, EitherFormReadsBack)
{
    EXPECT_TRUE(ReadText(m_Shader, kText));
    EXPECT_EQ(TextOf(m_Shader), kText);
    EXPECT_EQ(Hex(BodyOf(m_Shader)), kBytes);
    EXPECT_EQ(m_Shader.GetDataSize(), 8 + Bytes(kBytes).size());
    XLayeredShader& fromBytes = New();
    EXPECT_TRUE(ReadBody(fromBytes, Bytes(kBytes)));
    EXPECT_EQ(TextOf(fromBytes), kText);
    EXPECT_EQ(fromBytes.GetNumLayers(), 2u);
    EXPECT_EQ(fromBytes.GetInput(1, XLayeredShader::kTransparency)->colour, (XColour{33, 34, 35, 36}));
    EXPECT_EQ(fromBytes.GetInput(0, XLayeredShader::kGlow)->input, 27u);
}

TEST_F(LayeredShader, ReadReplacesTheLayers)
{
    m_Shader.SetNumLayers(5);
    EXPECT_TRUE(ReadText(m_Shader, kText));
    EXPECT_EQ(TextOf(m_Shader), kText);
    EXPECT_TRUE(ReadBody(m_Shader, Bytes(kBytes)));
    EXPECT_EQ(TextOf(m_Shader), kText);
    EXPECT_EQ(m_Shader.GetInputs().size(), 2u + 6);
}

TEST_F(LayeredShader, EachWrongKeyIsLoggedWithItsClassAndRow)
{
    const struct {
        const char* key;
        int row;
    } cases[] = {{"compositing_flag", 1}, {"inputs", 2}, {"glow", 5}};
    for (const auto& [key, row] : cases) {
        m_Log.Clear();
        EXPECT_FALSE(ReadText(New(), Replaced(kText, key, "wrong")));
        EXPECT_EQ(m_Log.Text(), std::string("Error : Expected ") + key +
                                    " got wrong [.\\src\\VKT\\LayeredShader:" + std::to_string(row) + "]\n");
    }
}

TEST_F(LayeredShader, ClaimsThatCannotBeTrueFail)
{
    EXPECT_FALSE(ReadText(m_Shader, Replaced(kText, "inputs 2", "inputs 4294967295")));
    EXPECT_EQ(m_Shader.GetNumLayers(), 3u);  // what came, and one that did not
    EXPECT_FALSE(
        ReadBody(New(), Bytes(Replaced(kBytes, "0c 00 00 00 02 00 00 00", "0c 00 00 00 ff ff ff ff"))));
}

TEST_F(LayeredShader, EveryCutFails)
{
    const std::string bytes = Bytes(kBytes);
    for (std::size_t length = 0; length < bytes.size(); ++length)
        EXPECT_FALSE(ReadBody(New(), bytes.substr(0, length))) << length;
    const std::string text = kText;
    for (std::size_t length = 0; length < text.size() - 3; ++length)
        EXPECT_FALSE(ReadText(New(), text.substr(0, length))) << length;
}

TEST_F(LayeredShader, CloneHasLayersOfItsOwn)
{
    ASSERT_TRUE(ReadText(m_Shader, kText));
    const XBase& clone = *m_Shader.Clone();
    m_Shader.SetNumLayers(0);
    EXPECT_EQ(TextOf(clone), kText);
    m_Shader.DoCopy(&clone);
    EXPECT_EQ(TextOf(m_Shader), kText);
    m_Shader.DoCopy(&m_Shader);
    m_Shader.DoCopy(m_Model.CreateNode(kFnLambert));
    EXPECT_EQ(TextOf(m_Shader), kText);
}

TEST_F(LayeredShader, LayersAreConnectedAllAtOnce)
{
    XLambert& clay = *m_Model.CreateNode<XLambert>();
    XLayeredShader& other = New();
    XModel foreign;
    const XShadingNode* stranger = foreign.CreateNode<XLambert>();
    m_Shader.AddLayer();
    m_Shader.AddLayer();
    EXPECT_TRUE(m_Shader.SetLayer(1, &clay, &other, &clay));
    EXPECT_EQ(m_Shader.GetNode(1, XLayeredShader::kColour), &clay);
    EXPECT_EQ(m_Shader.GetNode(1, XLayeredShader::kTransparency), &other);
    EXPECT_EQ(m_Shader.GetNode(1, XLayeredShader::kGlow), &clay);
    EXPECT_EQ(m_Shader.GetNode(0, XLayeredShader::kColour), nullptr);
    EXPECT_FALSE(m_Shader.SetLayer(1, nullptr, nullptr, stranger));
    EXPECT_EQ(m_Shader.GetNode(1, XLayeredShader::kColour), &clay);
    EXPECT_TRUE(m_Shader.SetLayer(1, &clay, &other, nullptr));
    EXPECT_EQ(m_Shader.GetInput(1, XLayeredShader::kGlow)->input, 0u);
    EXPECT_EQ(m_Log.Text(), "");
}

TEST_F(LayeredShader, LayerThatIsNoneIsLogged)
{
    m_Shader.AddLayer();
    EXPECT_FALSE(m_Shader.SetLayer(1, nullptr, nullptr, nullptr));
    EXPECT_EQ(m_Log.Text(), "Error : invalid layer_index specified\n");
    m_Log.Clear();
    EXPECT_EQ(m_Shader.GetInput(1, XLayeredShader::kColour), nullptr);
    EXPECT_EQ(std::as_const(m_Shader).GetInput(2, XLayeredShader::kGlow), nullptr);
    EXPECT_EQ(m_Shader.GetNode(0xFFFFFFFF, XLayeredShader::kColour), nullptr);
    EXPECT_EQ(m_Log.Text(),
              "Error : invalid layer_index specified\n"
              "Error : invalid layer_index specified\n"
              "Error : invalid layer_index specified\n");
}

TEST_F(LayeredShader, DeathOfTheFeedingNodeReachesTheLayers)
{
    XLambert& clay = *m_Model.CreateNode<XLambert>();
    m_Shader.AddLayer();
    m_Shader.SetLayer(0, &clay, nullptr, &clay);
    EXPECT_TRUE(m_Shader.NodeDeath(clay.GetID()));
    EXPECT_EQ(m_Shader.GetInput(0, XLayeredShader::kColour)->input, 0u);
    EXPECT_EQ(m_Shader.GetInput(0, XLayeredShader::kGlow)->input, 0u);
}

TEST_F(LayeredShader, DeletionTakesTheMaterialsOfItsLayersAlong)
{
    XLambert& clay = *m_Model.CreateNode<XLambert>();
    XLambert& gold = *m_Model.CreateNode<XLambert>();
    XLayeredShader& other = New();
    m_Shader.SetNumLayers(2);
    m_Shader.SetLayer(0, &clay, &clay, &gold);
    m_Shader.SetLayer(1, &clay, &gold, nullptr);
    other.SetNumLayers(1);
    other.SetLayer(0, nullptr, &gold, nullptr);
    std::set<u32> ids;
    m_Shader.PreDelete(ids);
    EXPECT_EQ(ids, std::set<u32>{clay.GetID()});
}

TEST_F(LayeredShader, ManyLayersAreDeletedInTime)
{
    const XLambert& clay = *m_Model.CreateNode<XLambert>();
    XLayeredShader& other = New();
    for (XLayeredShader* shader : {&m_Shader, &other}) {
        shader->SetNumLayers(100000);
        for (u32 layer = 0; layer < shader->GetNumLayers(); ++layer)
            shader->SetLayer(layer, &clay, &other, &m_Shader);
    }
    EXPECT_EQ(m_Model.DeleteNodes({m_Shader.GetID(), other.GetID()}), 2u);
}

// Files below version 4.

constexpr const char kOldText[] =
    "\tambient_color 91 91 91 91 tex 91\n"
    "\tcolor 2 3 4 5 tex 6\n"
    "\tspecular_color 92 92 92 92 tex 92\n"
    "\tincandescence 93 93 93 93 tex 93\n"
    "\ttransparency 7 8 9 10 tex 11\n"
    "\tbump_map 94\n"
    "\tenv_map 95\n"
    "\thw_shader 1\n"
    "colour_inputs 2 12 13\n"
    "transparency_inputs 2 14 15\n"
    "glow_inputs 2 16 17\n"
    "compositing_flag 18\n";
constexpr const char kOldBytes[] =
    "05 00 6e 6f 64 65 31 01 00 00 00 "
    "63 00 00 00 00 00 c6 42 00 00 c6 42 00 00 c6 42 00 00 c6 42 "
    "0d 00 61 6d 62 69 65 6e 74 5f 63 6f 6c 6f 72 "
    "06 00 00 00 00 00 00 40 00 00 40 40 00 00 80 40 00 00 a0 40 05 00 63 6f 6c 6f 72 "
    "63 00 00 00 00 00 c6 42 00 00 c6 42 00 00 c6 42 00 00 c6 42 "
    "0e 00 73 70 65 63 75 6c 61 72 5f 63 6f 6c 6f 72 "
    "63 00 00 00 00 00 c6 42 00 00 c6 42 00 00 c6 42 00 00 c6 42 "
    "0d 00 69 6e 63 61 6e 64 65 73 63 65 6e 63 65 "
    "0b 00 00 00 00 00 e0 40 00 00 00 41 00 00 10 41 00 00 20 41 "
    "0c 00 74 72 61 6e 73 70 61 72 65 6e 63 79 "
    "00 00 c6 42 "
    "63 00 00 00 63 00 00 00 01 00 00 00 "
    "02 00 00 00 0c 00 00 00 0d 00 00 00 "
    "02 00 00 00 0e 00 00 00 0f 00 00 00 "
    "02 00 00 00 10 00 00 00 11 00 00 00 "
    "12 00 00 00";
const std::string kTextOfOld = std::string(kBase) +
                               "compositing_flag 18\n"
                               "inputs 2\n"
                               "\t\tcolour 0 0 0 1 input 12\n"
                               "\t\ttransparency 0 0 0 1 input 14\n"
                               "\t\tglow 0 0 0 1 input 16\n"
                               "\n"
                               "\t\tcolour 0 0 0 1 input 13\n"
                               "\t\ttransparency 0 0 0 1 input 15\n"
                               "\t\tglow 0 0 0 1 input 17\n";
constexpr const char kInvalid[] =
    "Error : Layered Shader inputs are invalid. Aborting the reading of the layered shader\n";

TEST_F(LayeredShader, OldFilesHoldListsOfIds)
{
    MakeOlder();
    XLayeredShader& fromText = New();
    EXPECT_TRUE(ReadText(fromText, kOldText));
    EXPECT_EQ(TextOf(fromText), kTextOfOld);
    XLayeredShader& fromBytes = New();
    EXPECT_TRUE(ReadBody(fromBytes, Bytes(kOldBytes)));
    EXPECT_EQ(TextOf(fromBytes), kTextOfOld);
    EXPECT_EQ(m_Log.Text(), "");
}

TEST_F(LayeredShader, OldListsOfDifferentLengthsFail)
{
    MakeOlder();
    EXPECT_FALSE(
        ReadText(New(), Replaced(kOldText, "transparency_inputs 2 14 15", "transparency_inputs 1 14")));
    EXPECT_FALSE(ReadText(New(), Replaced(kOldText, "glow_inputs 2 16 17", "glow_inputs 3 16 17 18")));
    EXPECT_FALSE(ReadBody(
        New(), Bytes(Replaced(kOldBytes, "02 00 00 00 0e 00 00 00 0f 00 00 00", "01 00 00 00 0e 00 00 00"))));
    EXPECT_FALSE(
        ReadBody(New(), Bytes(Replaced(kOldBytes, "02 00 00 00 10 00 00 00 11 00 00 00", "00 00 00 00"))));
    EXPECT_EQ(m_Log.Text(), std::string(kInvalid) + kInvalid + kInvalid + kInvalid);
}

// A count is compared before its list is read: what the list lacks is not looked at.
TEST_F(LayeredShader, OldCountsAreComparedAsSoonAsTheyAreThere)
{
    MakeOlder();
    for (const char* lists :
         {"transparency_inputs 3 14 15\nglow_inputs 2 16 17\n", "transparency_inputs 3 14",
          "transparency_inputs 4294967295 14 15", "transparency_inputs many",
          "transparency_inputs 2 14 15\nglow_inputs 3 16 17\n"}) {
        m_Log.Clear();
        const std::string text = kOldText;
        EXPECT_FALSE(ReadText(New(), text.substr(0, text.find("transparency_inputs")) + lists));
        EXPECT_EQ(m_Log.Text(), kInvalid) << lists;
    }
    for (const char* lists : {"ff ff ff ff 0e 00 00 00", "03 00 00 00", "00 00 00 00",
                              "02 00 00 00 0e 00 00 00 0f 00 00 00 ff ff ff ff"}) {
        m_Log.Clear();
        const std::string bytes = kOldBytes;
        EXPECT_FALSE(ReadBody(New(), Bytes(bytes.substr(0, bytes.find("02 00 00 00 0e")) + lists)));
        EXPECT_EQ(m_Log.Text(), kInvalid) << lists;
    }
}

TEST_F(LayeredShader, OldListsOfOneLengthMustCome)
{
    MakeOlder();
    EXPECT_FALSE(
        ReadText(New(), Replaced(kOldText, "transparency_inputs 2 14 15", "transparency_inputs 2 14")));
    EXPECT_EQ(m_Log.Text(), "Error : Expected glow_inputs got  [.\\src\\VKT\\LayeredShader:4]\n");
    m_Log.Clear();
    const std::string bytes = kOldBytes;
    EXPECT_FALSE(ReadBody(New(), Bytes(bytes.substr(0, bytes.find(" 0f 00 00 00")))));
    EXPECT_EQ(m_Log.Text(), "Error : XFileIO::DoData : expected to read/write 2 elements got 1\n");
}

TEST_F(LayeredShader, OldFileWithoutLayersIsRead)
{
    MakeOlder();
    const std::string text = kOldText;
    XLayeredShader& fromText = New();
    EXPECT_TRUE(
        ReadText(fromText, text.substr(0, text.find("colour_inputs")) +
                               "colour_inputs 0 transparency_inputs 0 glow_inputs 0 compositing_flag 18"));
    EXPECT_EQ(TextOf(fromText), std::string(kBase) + "compositing_flag 18\ninputs 0\n");
    const std::string bytes = kOldBytes;
    XLayeredShader& fromBytes = New();
    EXPECT_TRUE(ReadBody(fromBytes, Bytes(bytes.substr(0, bytes.find("02 00 00 00 0c")) +
                                          "00 00 00 00 00 00 00 00 00 00 00 00 12 00 00 00")));
    EXPECT_EQ(TextOf(fromBytes), TextOf(fromText));
}

TEST_F(LayeredShader, OldFileWithListsOfDifferentLengthsFails)
{
    const std::string text = Replaced(kOldText, "transparency_inputs 2 14 15", "transparency_inputs 1 14");
    EXPECT_EQ(LoadText(m_Model, "|VKT_003A#0000#00000000|\nLAYERED_SHADER a\n{\n\tid 1\n" + text + "}\n"),
              FileCorrupt);
    EXPECT_NE(m_Log.Text().find(kInvalid), std::string::npos);
}

TEST_F(LayeredShader, OldKeysAreChecked)
{
    MakeOlder();
    const struct {
        const char* key;
        int row;
    } cases[] = {
        {"colour_inputs", 2}, {"transparency_inputs", 3}, {"glow_inputs", 4}, {"compositing_flag", 5}};
    for (const auto& [key, row] : cases) {
        m_Log.Clear();
        EXPECT_FALSE(ReadText(New(), Replaced(kOldText, key, "wrong")));
        EXPECT_EQ(m_Log.Text(), std::string("Error : Expected ") + key +
                                    " got wrong [.\\src\\VKT\\LayeredShader:" + std::to_string(row) + "]\n");
    }
    EXPECT_FALSE(ReadText(New(), Replaced(kOldText, "colour_inputs 2", "colour_inputs 4294967295")));
    const std::string bytes = Bytes(kOldBytes);
    for (std::size_t length = 0; length < bytes.size(); ++length)
        EXPECT_FALSE(ReadBody(New(), bytes.substr(0, length))) << length;
}

// The vocabulary.

TEST_F(LayeredShader, VocabularyGoesOnFromThatOfMaterials)
{
    const XNodeProperties& properties = *m_Shader.GetNodeProperties();
    EXPECT_EQ(properties.GetNumProperties(), 7u);
    EXPECT_EQ(properties.GetBase(), XMaterial::ClassProperties());
    EXPECT_EQ(m_Shader.GetPropertyId("transparency"), 0u);
    const char* const names[] = {"num_layers", "glow_layers", "transparency_layers", "colour_layers",
                                 "is_texture"};
    const XPropertyType types[] = {kPropertyInteger, kPropertyNodeArray, kPropertyNodeArray,
                                   kPropertyNodeArray, kPropertyBool};
    for (u32 i = 0; i < 5; ++i) {
        EXPECT_EQ(m_Shader.GetPropertyId(names[i]), 3 + i);
        EXPECT_EQ(m_Shader.GetPropertyType(3 + i), types[i]) << names[i];
        EXPECT_EQ(properties.GetPropertyFlags(3 + i), 0u) << names[i];
        EXPECT_EQ(properties.GetPropertyNodeType(3 + i), types[i] == kPropertyNodeArray ? 7u : 0u);
    }
}

TEST_F(LayeredShader, PropertiesReachTheLayers)
{
    const XNodeProperties& properties = *m_Shader.GetNodeProperties();
    EXPECT_TRUE(properties.SetInteger(&m_Shader, 3, 2));
    EXPECT_FALSE(properties.SetInteger(&m_Shader, 3, -1));
    i32 layers = 0;
    EXPECT_TRUE(properties.GetInteger(&m_Shader, 3, layers));
    EXPECT_EQ(layers, 2);
    EXPECT_EQ(m_Log.Text(), "");

    XBase* const clay = m_Model.CreateNode(kFnLambert);
    XBase* const gold = m_Model.CreateNode(kFnLambert);
    XBase* const bone = m_Model.CreateNode(kFnBone);
    EXPECT_TRUE(properties.SetNodeArray(&m_Shader, 4, {clay, gold}));
    EXPECT_TRUE(properties.SetNodeArray(&m_Shader, 5, {gold, nullptr}));
    EXPECT_TRUE(properties.SetNodeArray(&m_Shader, 6, {nullptr, clay}));
    EXPECT_EQ(m_Shader.GetNode(0, XLayeredShader::kGlow), clay);
    EXPECT_EQ(m_Shader.GetNode(0, XLayeredShader::kTransparency), gold);
    EXPECT_EQ(m_Shader.GetNode(1, XLayeredShader::kColour), clay);
    EXPECT_FALSE(properties.SetNodeArray(&m_Shader, 4, {clay}));
    EXPECT_FALSE(properties.SetNodeArray(&m_Shader, 4, {clay, bone}));
    XNodeList nodes{bone};
    EXPECT_TRUE(properties.GetNodeArray(&m_Shader, 4, nodes));
    EXPECT_EQ(nodes, (XNodeList{clay, gold}));
    EXPECT_TRUE(properties.GetNodeArray(&m_Shader, 6, nodes));
    EXPECT_EQ(nodes, (XNodeList{nullptr, clay}));

    bool isTexture = true;
    EXPECT_TRUE(properties.GetBool(&m_Shader, 7, isTexture));
    EXPECT_FALSE(isTexture);
    EXPECT_TRUE(properties.SetBool(&m_Shader, 7, true));
    EXPECT_EQ(m_Shader.GetCompositingFlag(), 1u);
    m_Shader.SetCompositingFlag(9);
    EXPECT_TRUE(properties.GetBool(&m_Shader, 7, isTexture));
    EXPECT_TRUE(isTexture);
}

TEST_F(LayeredShader, MoreLayersThanMemoryHoldsAreRefused)
{
    ASSERT_TRUE(ReadText(m_Shader, kText));
    const XNodeProperties& properties = *m_Shader.GetNodeProperties();
    EXPECT_FALSE(properties.SetInteger(&m_Shader, 3, 2147483647));
    EXPECT_FALSE(m_Shader.SetNumLayers(131073));
    EXPECT_EQ(m_Log.Text(),
              "Error : num_layers 2147483647 of \"node1\" is more than can be set, which is 131072\n"
              "Error : num_layers 131073 of \"node1\" is more than can be set, which is 131072\n");
    EXPECT_EQ(TextOf(m_Shader), kText);
    // What is there may stay, and become less.
    EXPECT_TRUE(m_Shader.SetNumLayers(131072));
    m_Shader.AddLayer();
    m_Shader.AddLayer();
    EXPECT_TRUE(m_Shader.SetNumLayers(131073));
    EXPECT_EQ(m_Shader.GetNumLayers(), 131073u);
    EXPECT_TRUE(properties.SetInteger(&m_Shader, 3, 2));
    EXPECT_EQ(TextOf(m_Shader), kText);
}

}  // namespace
