#include "VKT/document/NewNode.h"

#include "VKT/node/Attribute.h"
#include "VKT/registry/UserNode.h"
#include "VKT/support/BinaryFile.h"
#include "VKT/support/NodeTest.h"

using namespace VKT;
using namespace VKT::Test;

namespace {

constexpr char kHeader[] = "|VKT_004A#0000#00000000|\n";

std::string Definition(const std::string& family, const std::string& key)
{
    return "NEW_NODE\n{\n\tbase_type " + family + "\n\ttype_name " + key + "Type\n\theader " + key + "\n}\n";
}

class NewNode : public NodeTest {
protected:
    XFileResult LoadQuietly(std::string_view text)
    {
        m_Log.Clear();
        const XFileResult result = LoadText(m_Model, text);
        m_Said = m_Log.Text();
        return result;
    }
    void ExpectSameText(const std::string& text)
    {
        ASSERT_EQ(LoadQuietly(text), FileOk) << m_Said;
        EXPECT_EQ(m_Said, "");
        EXPECT_EQ(SaveText(m_Model), text);
    }
    template <class Node>
    const XString& DataOf(const char* name)
    {
        const Node* node = XCast<Node>(m_Model.FindNode(name));
        static const XString none = "no such node";
        return node ? node->GetData() : none;
    }

    std::string m_Said;
};

TEST_F(NewNode, TheBodyIsCarriedAsItStands)
{
    ExpectSameText(kHeader + Definition("none", "FOG") +
                   "FOG mist\n{\n\tid 3\n\tdensity 0.5  {\n\t\t{ 1 } \"}{\" \n\t}\n  # odd\tblanks \n}\n");
    EXPECT_EQ(DataOf<XNewBase>("mist"), "\tdensity 0.5  {\n\t\t{ 1 } \"}{\" \n\t}\n  # odd\tblanks \n");
    const XNewNode& definition = *m_Model.FindNode(3)->GetUserDefinition();
    EXPECT_EQ(definition.GetTypeName(), "FOGType");
    EXPECT_EQ(definition.GetFamily(), kFamilyNone);
}

TEST_F(NewNode, EveryFamilyKeepsItsBodyBehindThatOfItsClass)
{
    const std::string raw = "\traw {\n\t\t7\n\t}\n";
    struct Case {
        const char* word;
        u32 family;
        u32 type;
        u32 base;
    };
    for (const Case& c : {
             Case{"none", 0, 1, kFnBase},
             Case{"material", 1, 17, kFnMaterial},
             Case{"object", 2, 85, kFnShape},
             Case{"transform", 4, 88, kFnBone},
             Case{"emitter", 5, 102, kFnEmitter},
             Case{"field", 6, 104, kFnField},
             Case{"deformer", 8, 115, kFnDeformer},
             Case{"hw_shader", 10, 19, kFnHwShader},
         }) {
        SCOPED_TRACE(c.word);
        m_Model.Clear();
        XBase* node = m_Model.CreateNode(*m_Model.AddNewNode(c.family, "kind", "KIND"));
        ASSERT_NE(node, nullptr);
        EXPECT_EQ(node->GetApiType(), c.type);
        EXPECT_EQ(node->HasFn(c.base), node);
        const std::string empty = SaveText(m_Model);
        const std::string full = empty.substr(0, empty.size() - 2) + raw + "}\n";
        EXPECT_NE(full.find(std::string("\tbase_type ") + c.word + "\n"), std::string::npos);
        ExpectSameText(empty);
        ExpectSameText(full);
        ASSERT_NE(m_Model.FindNode("node1"), nullptr);
        EXPECT_EQ(m_Model.FindNode("node1")->GetApiType(), c.type);
    }
}

// Kept on purpose: these two have no chunk key.
TEST_F(NewNode, LightsAndAnimationNodesAreWrittenWithoutAKey)
{
    for (const auto& [family, type, base] :
         {std::tuple{kFamilyLight, kFnNewLight, kFnLight}, std::tuple{kFamilyAnim, kFnNewAnim, kFnBase}}) {
        m_Model.Clear();
        const XBase* node = m_Model.CreateNode(*m_Model.AddNewNode(family, "kind", "KIND"));
        ASSERT_NE(node, nullptr);
        EXPECT_EQ(node->GetApiType(), type);
        EXPECT_EQ(node->HasFn(base), node);
        EXPECT_EQ(ChunkOf(*node).substr(0, 9), " node1\n{\n");
        XModel model;
        EXPECT_EQ(LoadText(model, SaveText(m_Model)), FileCorrupt);
    }
}

TEST_F(NewNode, FamiliesReadFromEveryWord)
{
    XIndexList families;
    for (const char* word : {"material", "object", "light", "transform", "emitter", "field", "deformer",
                             "anim", "hw_shader", "unknownword"}) {
        ASSERT_EQ(LoadQuietly(kHeader + Definition(word, "KIND")), FileOk);
        families.push_back(m_Model.GetNewNodes().at("KIND")->GetFamily());
    }
    EXPECT_EQ(families, (XIndexList{1, 2, 3, 4, 5, 6, 8, 9, 10, 0}));
}

TEST_F(NewNode, TheTypeNameIsOneWordInText)
{
    ASSERT_NE(m_Model.AddNewNode(kFamilyNone, "", "FOG"), nullptr);
    ASSERT_NE(m_Model.AddNewNode(kFamilyNone, "thin smoke", "SMOKE"), nullptr);
    const std::string text = SaveText(m_Model);
    EXPECT_EQ(text, std::string(kHeader) +
                        "NEW_NODE\n{\n\tbase_type none\n\ttype_name _\n\theader FOG\n}\n"
                        "NEW_NODE\n{\n\tbase_type none\n\ttype_name thin_smoke\n\theader SMOKE\n}\n");
    EXPECT_EQ(LoadQuietly(text), FileOk);
}

TEST_F(NewNode, TheFamilySevenHasNoInstances)
{
    EXPECT_EQ(m_Model.CreateNode(*m_Model.AddNewNode(7, "kind", "KIND")), nullptr);
    XTextWriter out;
    m_Model.GetNewNodes().at("KIND")->Write(out);
    EXPECT_EQ(out.TakeText(), "NEW_NODE\n{\n\tbase_type none\n\ttype_name kind\n\theader KIND\n}\n");
}

TEST_F(NewNode, WrongKeysAreLogged)
{
    for (const auto& [text, said] : {
             std::pair{"base none", "Expected base_type got base [.\\src\\VKT\\NewNode:1]"},
             std::pair{"base_type none x y", "Expected type_name got x [.\\src\\VKT\\NewNode:2]"},
             std::pair{"base_type none type_name t k", "Expected header got k [.\\src\\VKT\\NewNode:3]"},
             std::pair{"base_type none type_name t header K id",
                       "Expected } got id [.\\src\\VKT\\NewNode:4]"},
         }) {
        EXPECT_EQ(LoadQuietly(std::string(kHeader) + "NEW_NODE { " + text + " "), FileCorrupt);
        EXPECT_EQ(m_Said, std::string("Error : ") + said + "\n");
        EXPECT_TRUE(m_Model.GetNewNodes().empty());
    }
}

TEST_F(NewNode, ASecondDefinitionOfAKeyIsDropped)
{
    ASSERT_EQ(LoadQuietly(kHeader + Definition("transform", "KIND") + Definition("object", "KIND")), FileOk);
    ASSERT_EQ(m_Model.GetNewNodes().size(), 1u);
    EXPECT_EQ(m_Model.GetNewNodes().at("KIND")->GetFamily(), kFamilyTransform);
}

TEST_F(NewNode, InheritedDefinitionsComeFirst)
{
    ASSERT_EQ(LoadQuietly(kHeader + Definition("none", "KIND") +
                          "INHERITED_NODE\n{\n\tbase_type SPOT_LIGHT\n\theader KIND\n}\n"
                          "NEW_NODE\n{\n\tbase_type none\n\ttype_name t\n\theader BONE\n}\n"),
              FileOk);
    XBase* light = m_Model.CreateNode(*m_Model.GetInheritedNodes()[0]);
    const std::string text = SaveText(m_Model);
    ASSERT_EQ(LoadQuietly(text), FileOk);
    EXPECT_EQ(m_Model.FindNode(1u)->GetApiType(), kFnSpotLight);
    EXPECT_NE(light, nullptr);
    // Built-in keys come before both.
    XModel bones;
    bones.CreateNode(kFnBone);
    const std::string bone = SaveText(bones).substr(sizeof kHeader - 1);
    ASSERT_EQ(LoadQuietly(text + bone), FileOk);
    EXPECT_EQ(m_Model.GetNodes().size(), 2u);
}

TEST_F(NewNode, ExtraAttributesEndTheBody)
{
    ExpectSameText(kHeader + Definition("none", "FOG") +
                   "FOG mist\n{\n\tid 1\n\tdensity 1\n\tEXTRA_ATTRIBUTES\n\t{\n\t\tcount int 3\n\t}\n"
                   "\tCONNECTIONS\n\t{\n\t\tATTR count 0\n\t\t{\n\t\t\tinput 1 count\n\t\t\toutput 0\n"
                   "\t\t}\n\t}\n}\n");
    EXPECT_EQ(DataOf<XNewBase>("mist"), "\tdensity 1\n");
    EXPECT_NE(m_Model.FindNode(1u)->GetExtraAttribute("count"), nullptr);
}

TEST_F(NewNode, ExtraAttributesEndTheBodyAtAnyDepth)
{
    ASSERT_EQ(LoadQuietly(kHeader + Definition("none", "FOG") +
                          "FOG mist\n{\n\tid 1\n\ta {\n\tEXTRA_ATTRIBUTES\n\t{\n\t}\n}\n"),
              FileOk);
    EXPECT_EQ(DataOf<XNewBase>("mist"), "\ta {\n");
    EXPECT_NE(m_Model.FindNode("mist")->GetExtraAttributes(), nullptr);
}

TEST_F(NewNode, ExtraAttributesMayFollowTheClassAtOnce)
{
    ExpectSameText(kHeader + Definition("none", "FOG") +
                   "FOG mist\n{\n\tid 1\n\tEXTRA_ATTRIBUTES\n\t{\n\t\tcount int 3\n\t}\n}\n");
    EXPECT_EQ(DataOf<XNewBase>("mist"), "");
}

TEST_F(NewNode, TheLastLineIsEnded)
{
    ASSERT_EQ(LoadQuietly(kHeader + Definition("none", "FOG") + "FOG mist { id 1 a {b} c}FOG next { id 2 }"),
              FileOk);
    EXPECT_EQ(m_Said, "");
    EXPECT_EQ(DataOf<XNewBase>("mist"), " a {b} c");
    EXPECT_EQ(DataOf<XNewBase>("next"), "");
    EXPECT_EQ(ChunkOf(*m_Model.FindNode("mist")), "FOG mist\n{\n\tid 1\n a {b} c\n}\n");
}

TEST_F(NewNode, LineEndsOfOtherSystemsStandInTheBodyAlone)
{
    ASSERT_EQ(LoadQuietly(kHeader + Definition("none", "FOG") + "FOG mist\r\n{\r\n\tid 1\r\n\ta\r\n}\r\n"),
              FileOk);
    EXPECT_EQ(DataOf<XNewBase>("mist"), "\ta\r\n");
}

TEST_F(NewNode, EmptyLinesOfTheBodyStay)
{
    ExpectSameText(kHeader + Definition("none", "FOG") + "FOG mist\n{\n\tid 1\n\n\n\ta\n\n}\n");
    ExpectSameText(kHeader + Definition("none", "FOG") + "FOG mist\n{\n\tid 1\n\n}\n");
}

TEST_F(NewNode, ABodyThatIsCutOffFailsTheLoad)
{
    const std::string text = kHeader + Definition("none", "FOG") + "FOG mist\n{\n\tid 1\n\ta { b }\n\tc\n}\n";
    for (std::size_t length = text.find("FOG mist") + 19; length + 2 < text.size(); ++length)
        EXPECT_EQ(LoadQuietly(text.substr(0, length)), FileCorrupt) << length;
    EXPECT_EQ(LoadQuietly(text.substr(0, text.size() - 1)), FileOk);
}

TEST_F(NewNode, ALongBodyPassesTheWindowOfTheReader)
{
    std::string raw;
    for (int i = 0; i < 40'000; ++i)
        raw += "\tline {" + std::to_string(i) + "}\n";
    ExpectSameText(kHeader + Definition("none", "FOG") + "FOG mist\n{\n\tid 1\n" + raw + "}\n");
}

TEST_F(NewNode, BinaryFilesKeepDefinitionsAndDropInstances)
{
    ASSERT_EQ(LoadQuietly(kHeader + Definition("transform", "LIMB")), FileOk);
    m_Model.CreateNode(*m_Model.GetNewNodes().at("LIMB"));
    const std::string bytes = SaveBinaryBytes(m_Model);
    EXPECT_EQ(bytes.substr(26, 28), Chunk(kChunkNewNode, Word(4, 2) + "LIMB" + Word(8, 2) + "LIMBType" +
                                                             Word(kFamilyTransform, 4)));
    EXPECT_EQ(Hex(bytes.substr(26 + 28, 2)), "58 00");
    ASSERT_EQ(LoadBytes(m_Model, bytes), FileOk);
    EXPECT_TRUE(m_Model.GetNodes().empty());
    EXPECT_EQ(m_Model.GetLoadReport().GetChunks().GetCount(), 1u);
    EXPECT_EQ(m_Model.GetNewNodes().at("LIMB")->GetTypeName(), "LIMBType");
}

TEST_F(NewNode, ACutDefinitionEndsABinaryLoad)
{
    const std::string file = Start() + Chunk(kChunkNewNode, Word(9, 2) + "LIMB", 30);
    EXPECT_EQ(LoadBytes(m_Model, file), FileCorrupt);
}

TEST_F(NewNode, DataSizeIsThatOfTheClass)
{
    auto* node = XCast<XNewBase>(m_Model.CreateNode(*m_Model.AddNewNode(kFamilyNone, "fog", "FOG")));
    node->SetData("\tdensity 1\n");
    EXPECT_EQ(node->GetDataSize(), 8 + BodyOf(*node).size());
    EXPECT_EQ(node->GetDataSize(), 14u + 5u);
}

TEST_F(NewNode, InstancesCannotBeCloned)
{
    XBase* node = m_Model.CreateNode(*m_Model.AddNewNode(kFamilyNone, "fog", "FOG"));
    EXPECT_EQ(node->Clone(), nullptr);
}

TEST_F(NewNode, ACreatorAloneDecides)
{
    XNewNode* definition = m_Model.AddNewNode(kFamilyNone, "fog", "FOG");
    definition->SetCreator([](const XNewNode&, XModel* model) -> std::unique_ptr<XBase> {
        return std::make_unique<XBone>(model);
    });
    EXPECT_EQ(m_Model.CreateNode(*definition)->GetApiType(), kFnBone);
    definition->SetCreator([](const XNewNode&, XModel*) -> std::unique_ptr<XBase> { return nullptr; });
    EXPECT_EQ(m_Model.CreateNode(*definition), nullptr);
}

// A class of a user of the library that understands its body.
class Fog final : public XNewBase {
public:
    using XNewBase::XNewBase;
    bool WriteBody(XTextWriter& out) const override
    {
        out << "\tdensity " << m_Density << '\n';
        return out.IsGood();
    }
    bool ReadBody(XTextReader& in) override
    {
        XString key;
        in.ReadToken(key);
        in.Read(m_Density);
        return in.IsGood();
    }
    f32 m_Density = 0;
};

TEST_F(NewNode, AClassMayReadItsBodyItself)
{
    XNewNode* definition = m_Model.AddNewNode(kFamilyNone, "fog", "FOG");
    Fog fog(&m_Model, *definition);
    XTextReader in("{ id 4 density 0.5 }");
    EXPECT_TRUE(fog.Read(in));
    EXPECT_EQ(fog.m_Density, 0.5f);
    EXPECT_EQ(ChunkOf(fog), "FOG _\n{\n\tid 4\n\tdensity 0.5\n}\n");
}

}  // namespace
