#include "VKT/geometry/MeshVertexColours.h"

#include "VKT/geometry/Mesh.h"
#include "VKT/support/NodeTest.h"

using namespace VKT;
using namespace VKT::Test;

namespace {

class MeshVertexColours : public NodeTest {
protected:
    XMeshVertexColours& New() { return *m_Model.CreateNode<XMeshVertexColours>(); }
    XMeshVertexColours m_Colours{&m_Model};
};

constexpr const char kText[] =
    "\tmesh_id 7\n"
    "\tnum_colour_sets 2\n"
    "\tcolour_set \"day\" 1\n"
    "\t\t1 2 3 4\n"
    "\tfaces 2\n"
    "\t\t3 5 -6 7 \n"
    "\t\t0 \n"
    "\tcolour_set \"n\" 0\n"
    "\tfaces 0\n";
constexpr const char kBytes[] =
    "00 00 00 00 00 00 "
    "07 00 00 00 02 00 00 00 "
    "03 00 64 61 79 "
    "01 00 00 00 00 00 80 3f 00 00 00 40 00 00 40 40 00 00 80 40 "
    "02 00 00 00 03 00 00 00 05 00 00 00 fa ff ff ff 07 00 00 00 00 00 00 00 "
    "01 00 6e 00 00 00 00 00 00 00 00";

TEST_F(MeshVertexColours, FreshOneWritesItsDefaults)
{
    EXPECT_EQ(ChunkOf(New()),
              "MESH_VTX_COLOURS node1\n"
              "{\n"
              "\tid 1\n"
              "\tmesh_id 0\n"
              "\tnum_colour_sets 0\n"
              "}\n");
    EXPECT_EQ(m_Colours.GetDataSize(), 14u + 8);
    EXPECT_EQ(m_Colours.HasFn(163), &m_Colours);
    EXPECT_EQ(m_Colours.HasFn(0), &m_Colours);
    EXPECT_EQ(m_Colours.HasFn(25), nullptr);
    EXPECT_EQ(XMeshVertexColours::ClassProperties(), XNodeProperties::Empty());
}

TEST_F(MeshVertexColours, TextReadsBack)
{
    EXPECT_TRUE(ReadText(m_Colours, kText));
    EXPECT_EQ(TextOf(m_Colours), kText);
    EXPECT_EQ(m_Colours.GetMeshId(), 7u);
    ASSERT_EQ(m_Colours.GetNumColourSets(), 2u);
    const XColourSet& day = m_Colours.GetColourSet(0);
    EXPECT_EQ(day.m_Name, "day");
    EXPECT_EQ(day.m_Colours, (XColourArray{{1, 2, 3, 4}}));
    EXPECT_EQ(day.m_FaceIndices, (XVector<XIntList>{{5, -6, 7}, {}}));
}

TEST_F(MeshVertexColours, BytesReadBack)
{
    EXPECT_TRUE(ReadBody(m_Colours, Bytes(kBytes)));
    EXPECT_EQ(TextOf(m_Colours), kText);
    EXPECT_EQ(Hex(BodyOf(m_Colours)), kBytes);
    EXPECT_EQ(m_Colours.GetDataSize(), 22u + (10 + 3 + 16 + (4 + 12) + 4) + (10 + 1));
    EXPECT_TRUE(ReadBody(m_Colours, Bytes(kBytes)));  // replaces what was there
    EXPECT_EQ(TextOf(m_Colours), kText);
}

TEST_F(MeshVertexColours, OlderFilesHoldTheSame)
{
    MakeOlder();
    EXPECT_TRUE(ReadText(m_Colours, kText));
    EXPECT_EQ(TextOf(m_Colours), kText);
    EXPECT_TRUE(ReadBody(m_Colours, Bytes(kBytes)));
    EXPECT_EQ(TextOf(m_Colours), kText);
}

TEST_F(MeshVertexColours, SetWithoutColoursHasItsKeys)
{
    m_Colours.AddColourSet("empty");
    EXPECT_EQ(TextOf(m_Colours), "\tmesh_id 0\n\tnum_colour_sets 1\n\tcolour_set \"empty\" 0\n\tfaces 0\n");
    EXPECT_TRUE(ReadText(New(), TextOf(m_Colours)));
}

TEST_F(MeshVertexColours, NamesOfSetsAreOneWordInText)
{
    m_Colours.AddColourSet("late night");
    m_Colours.AddColourSet("");
    const std::string text = TextOf(m_Colours);
    EXPECT_EQ(
        m_Log.Text(),
        "Warning : the name \"late night\" is written as late_night: names in text files are one word\n");
    EXPECT_TRUE(ReadText(m_Colours, text));
    EXPECT_EQ(m_Colours.GetColourSet(0).m_Name, "late_night");
    EXPECT_EQ(m_Colours.GetColourSet(1).m_Name, "");
    // The characters in the places of the quotes go, whatever they are.
    for (const auto& [word, name] : {std::pair{"abc", "b"}, std::pair{"ab", ""}, std::pair{"a", ""}}) {
        EXPECT_TRUE(ReadText(m_Colours, Replaced(text, "\"late_night\"", word)));
        EXPECT_EQ(m_Colours.GetColourSet(0).m_Name, name);
    }
}

TEST_F(MeshVertexColours, WrongKeysAreLogged)
{
    int row = 0;
    for (const std::string key : {"mesh_id", "num_colour_sets", "colour_set", "faces"}) {
        m_Log.Clear();
        EXPECT_FALSE(ReadText(m_Colours, Replaced(kText, "\t" + key, "\tWrong")));
        EXPECT_EQ(m_Log.Text(), "Error : Expected " + key + " got wrong [.\\src\\VKT\\MeshVertexColours:" +
                                    std::to_string(++row) + "]\n");
    }
}

TEST_F(MeshVertexColours, CountsThatCannotBeTrueFail)
{
    for (const char* what : {"sets 2", "\"day\" 1", "faces 2", "\t\t3", "faces 0"}) {
        const std::string key(what, std::string(what).find_last_of(" \t") + 1);
        EXPECT_FALSE(ReadText(m_Colours, Replaced(kText, what, key + "4294967295"))) << what;
    }
    const std::string bytes = Bytes(kBytes);
    for (const std::size_t count : {10u, 19u, 39u, 43u}) {
        std::string hostile = bytes;
        hostile.replace(count, 4, "\xFF\xFF\xFF\xFF");
        EXPECT_FALSE(ReadBody(m_Colours, hostile)) << count;
    }
}

TEST_F(MeshVertexColours, EveryCutFails)
{
    const std::string bytes = Bytes(kBytes);
    for (std::size_t length = 0; length < bytes.size(); ++length)
        EXPECT_FALSE(ReadBody(m_Colours, bytes.substr(0, length))) << length;
    const std::string text = kText;
    for (std::size_t length = 0; length < text.rfind('0'); ++length)
        EXPECT_FALSE(ReadText(m_Colours, text.substr(0, length))) << length;
}

TEST_F(MeshVertexColours, GoWithTheirMesh)
{
    XMesh& mesh = *m_Model.CreateNode<XMesh>();
    XMeshVertexColours& colours = New();
    colours.SetMesh(&mesh);
    EXPECT_EQ(colours.GetMesh(), &mesh);
    EXPECT_TRUE(colours.NodeDeath(99));
    EXPECT_FALSE(colours.NodeDeath(mesh.GetID()));
    std::set<u32> ids;
    colours.PreDelete(ids);
    EXPECT_TRUE(ids.empty());
}

TEST_F(MeshVertexColours, MeshFindsTheFirstByName)
{
    XMesh& mesh = *m_Model.CreateNode<XMesh>();
    XMesh& other = *m_Model.CreateNode<XMesh>();
    XMeshVertexColours& second = New();
    XMeshVertexColours& first = New();
    m_Model.SetName(&second, "b");
    m_Model.SetName(&first, "a");
    second.SetMesh(&mesh);
    EXPECT_EQ(mesh.GetVertexColours(), &second);
    first.SetMesh(&mesh);
    EXPECT_EQ(mesh.GetVertexColours(), &first);
    first.SetMesh(&other);
    EXPECT_EQ(mesh.GetVertexColours(), &second);
    EXPECT_EQ(other.GetVertexColours(), &first);
    first.SetMesh(nullptr);
    EXPECT_EQ(other.GetVertexColours(), nullptr);
    EXPECT_EQ(first.GetMesh(), nullptr);
}

TEST_F(MeshVertexColours, MeshForgetsThoseThatAreDeleted)
{
    XMesh& mesh = *m_Model.CreateNode<XMesh>();
    XMeshVertexColours& colours = New();
    XMeshVertexColours& others = New();
    const u32 dying = colours.GetID();
    colours.SetMesh(&mesh);
    others.SetMesh(&mesh);
    XIndexList named;
    mesh.ListReferences(named);
    EXPECT_EQ(named, (XIndexList{dying, others.GetID()}));
    EXPECT_TRUE(m_Model.DeleteNode(dying));
    named.clear();
    mesh.ListReferences(named);
    EXPECT_EQ(named, XIndexList{others.GetID()});
    EXPECT_EQ(mesh.GetVertexColours(), &others);
    EXPECT_TRUE(m_Model.DeleteNode(mesh.GetID()));
    EXPECT_EQ(m_Model.GetNodes().size(), 0u);
}

TEST_F(MeshVertexColours, LoadLinksThemToTheirMeshWhereverItStands)
{
    const std::string mesh =
        "MESH m\n{\n\tid 2\n\tpoints 0\n\tdeformer_queue 0\n\tintermediate_object 0\n"
        "\tnormal_count 0\n\tnum_uv_sets 0\n\tface_count 0\n}\n";
    const std::string colours = "MESH_VTX_COLOURS c\n{\n\tid 3\n\tmesh_id 2\n\tnum_colour_sets 0\n}\n";
    for (const std::string& text : {mesh + colours, colours + mesh}) {
        ASSERT_EQ(LoadText(m_Model, "|VKT_004A#0000#00000000|\n" + text), FileOk);
        XModel fromBytes;
        ASSERT_EQ(LoadBytes(fromBytes, SaveBinaryBytes(m_Model)), FileOk);
        for (const XModel* model : {&m_Model, &fromBytes}) {
            XBase* found = XCast<XMesh>(model->FindNode(2))->GetVertexColours();
            EXPECT_NE(found, nullptr);
            EXPECT_EQ(found, model->FindNode(3));
        }
    }
}

TEST_F(MeshVertexColours, CloneHasSetsOfItsOwnAndTheSameMesh)
{
    XMeshVertexColours& colours = New();
    ASSERT_TRUE(ReadText(colours, kText));
    XMeshVertexColours& copy = *XCast<XMeshVertexColours>(colours.Clone());
    EXPECT_EQ(TextOf(copy), kText);
    copy.GetColourSet(0).m_Colours[0].r = 9;
    EXPECT_EQ(TextOf(colours), kText);
    copy.DoCopy(&copy);
    EXPECT_EQ(copy.GetNumColourSets(), 2u);
}

}  // namespace
