#include "VKT/geometry/Mesh.h"

#include "VKT/deformers/NonLinearWave.h"
#include "VKT/geometry/MeshVertexColours.h"
#include "VKT/hierarchy/Bone.h"
#include "VKT/support/NodeTest.h"

using namespace VKT;
using namespace VKT::Test;

namespace {

class Mesh : public NodeTest {
protected:
    XMesh& New() { return *m_Model.CreateNode<XMesh>(); }
    // A mesh whose bytes begin without a name.
    XMesh m_Mesh{&m_Model};
};

constexpr const char kText[] =
    "\tpoints 0\n"
    "\tdeformer_queue 0\n"
    "\tintermediate_object 0\n"
    "\tnormal_count 1\n"
    "\tnum_uv_sets 2\n"
    "\tface_count 1\n"
    "\tnormals\n"
    "\t\t1 2 3\n"
    "\ttex_coords \"a\" 2\n"
    "\t\t4 5\n"
    "\t\t6 7\n"
    "\ttex_coords \"bc\" 0\n"
    "\tFACE 3\n"
    "\t\t8 9 10 -1\n"
    "\t\t11 12 13 14\n"
    "\t\t15 16 17 18\n";
constexpr const char kBytes[] =
    "00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 "
    "01 00 00 00 00 00 80 3f 00 00 00 40 00 00 40 40 "
    "02 00 "
    "02 00 00 00 01 00 61 02 00 62 63 "
    "02 00 00 00 00 00 80 40 00 00 a0 40 00 00 c0 40 00 00 e0 40 "
    "00 00 00 00 "
    "01 00 "
    "03 00 "
    "08 00 00 00 09 00 00 00 02 00 00 00 0a 00 00 00 ff ff ff ff "
    "0b 00 00 00 0c 00 00 00 02 00 00 00 0d 00 00 00 0e 00 00 00 "
    "0f 00 00 00 10 00 00 00 02 00 00 00 11 00 00 00 12 00 00 00";

TEST_F(Mesh, FreshOneHasNoNormalsAndNoKeyOfThem)
{
    EXPECT_EQ(ChunkOf(New()),
              "MESH node1\n"
              "{\n"
              "\tid 1\n"
              "\tpoints 0\n"
              "\tdeformer_queue 0\n"
              "\tintermediate_object 0\n"
              "\tnormal_count 0\n"
              "\tnum_uv_sets 0\n"
              "\tface_count 0\n"
              "}\n");
    EXPECT_EQ(m_Mesh.GetDataSize(), 14u + 9 + 8 + 2 + 2);
    for (const u32 type : {28u, 26u, 25u, 0u})
        EXPECT_EQ(m_Mesh.HasFn(type), &m_Mesh) << type;
    EXPECT_EQ(m_Mesh.HasFn(166), nullptr);
    EXPECT_EQ(XMesh::ClassProperties(), XGeometry::ClassProperties());
}

TEST_F(Mesh, TextReadsBack)
{
    EXPECT_TRUE(ReadText(m_Mesh, kText));
    EXPECT_EQ(TextOf(m_Mesh), kText);
    EXPECT_EQ(m_Mesh.GetNormals(), (XVector3Array{{1, 2, 3, 0}}));
    EXPECT_EQ(m_Mesh.GetUvSetNames(), (XStringList{"a", "bc"}));
    EXPECT_EQ(m_Mesh.GetTexCoords(0), (XMesh::XTexCoords{{4, 5}, {6, 7}}));
    ASSERT_EQ(m_Mesh.GetNumFaces(), 1u);
    EXPECT_EQ(m_Mesh.GetFaces()[0].GetNumVertices(), 3u);
    EXPECT_EQ(m_Mesh.GetFaces()[0].GetPoint(1), 11u);
    EXPECT_EQ(m_Mesh.GetFaces()[0].GetVertices()[2].m_Normal, 16u);
    EXPECT_EQ(m_Mesh.GetFaces()[0].GetVertices()[0].m_UvIndices, (XIntList{10, -1}));
    EXPECT_TRUE(m_Mesh.HasUvSet("bc"));
    EXPECT_FALSE(m_Mesh.HasUvSet("b"));
}

TEST_F(Mesh, BytesReadBack)
{
    EXPECT_TRUE(ReadBody(m_Mesh, Bytes(kBytes)));
    EXPECT_EQ(TextOf(m_Mesh), kText);
    EXPECT_EQ(Hex(BodyOf(m_Mesh)), kBytes);
    EXPECT_EQ(m_Mesh.GetDataSize(), 23u + 8 + 12 + (2 + 1) + (2 + 2) + (4 + 16) + 4 + 2 + 2 + 3 * 20 + 2);
    EXPECT_TRUE(ReadText(m_Mesh, kText));  // replaces what was there
    EXPECT_EQ(TextOf(m_Mesh), kText);
    EXPECT_TRUE(ReadBody(m_Mesh, Bytes(kBytes)));
    EXPECT_EQ(TextOf(m_Mesh), kText);
    EXPECT_EQ(m_Log.Text(), "");
}

TEST_F(Mesh, OnlyTheGeometryIsGated)
{
    MakeOlder();
    EXPECT_TRUE(ReadText(m_Mesh, Replaced(kText, "\tintermediate_object 0\n", "")));
    EXPECT_EQ(TextOf(m_Mesh), kText);
    EXPECT_TRUE(ReadBody(m_Mesh, Bytes(kBytes)));
    EXPECT_EQ(TextOf(m_Mesh), kText);
}

TEST_F(Mesh, BuiltByHand)
{
    m_Mesh.GetNormals() = {{1, 2, 3, 0}};
    m_Mesh.SetNumUvSets(2);
    m_Mesh.GetUvSetNames() = {"a", "bc"};
    m_Mesh.SetTexCoords(0, {{4, 5}, {6, 7}});
    XFace& face = m_Mesh.GetFaces().emplace_back();
    face.SetNumVertices(3);
    const u32 corners[3][4] = {{8, 9, 10, 0xFFFFFFFF}, {11, 12, 13, 14}, {15, 16, 17, 18}};
    for (u32 i = 0; i < 3; ++i) {
        face.SetPoint(i, corners[i][0]);
        face.GetVertices()[i].m_Normal = corners[i][1];
        face.GetVertices()[i].m_UvIndices.resize(2);
        face.SetUvIndex(i, corners[i][2], 0);
        face.SetUvIndex(i, corners[i][3], 1);
    }
    EXPECT_EQ(TextOf(m_Mesh), kText);
    EXPECT_EQ(m_Mesh.GetTextPadding(), 0u);
}

TEST_F(Mesh, WrongKeysAreLogged)
{
    // Both lists go on from the keys in front of them.
    for (const auto& [name, row] :
         {std::pair{"normal_count", 1}, std::pair{"num_uv_sets", 2}, std::pair{"face_count", 3},
          std::pair{"normals", 4}, std::pair{"tex_coords", 5}, std::pair{"FACE", 5}}) {
        const std::string key = name;
        m_Log.Clear();
        EXPECT_FALSE(ReadText(m_Mesh, Replaced(kText, "\t" + key, "\tWrong")));
        const std::string wanted = key == "FACE" ? "face" : key;
        EXPECT_EQ(m_Log.Text(), "Error : Expected " + wanted +
                                    " got wrong [.\\src\\VKT\\Mesh:" + std::to_string(row) + "]\n");
    }
}

TEST_F(Mesh, FaceOfTwoCornersIsReadAsThree)
{
    EXPECT_TRUE(ReadText(m_Mesh, Replaced(kText, "FACE 3", "FACE 2")));
    EXPECT_EQ(TextOf(m_Mesh), kText);
    EXPECT_TRUE(ReadText(m_Mesh, Replaced(kText, "FACE 3", "FACE -7")));
    EXPECT_EQ(TextOf(m_Mesh), kText);
    // Where two corners follow, the reader loses step.
    EXPECT_FALSE(ReadText(m_Mesh, Replaced(Replaced(kText, "FACE 3", "FACE 2"), "\t\t15 16 17 18\n", "}")));
}

TEST_F(Mesh, CountsThatCannotBeTrueFailWithoutTakingMemory)
{
    for (const char* what : {"normal_count 1", "num_uv_sets 2", "face_count 1", "\"a\" 2", "FACE 3"}) {
        const std::string key(what, std::string(what).rfind(' ') + 1);
        EXPECT_FALSE(ReadText(m_Mesh, Replaced(kText, what, key + "2147483647"))) << what;
    }
    EXPECT_LT(m_Mesh.GetNormals().capacity() + m_Mesh.GetFaces().capacity(), 100u);
}

TEST_F(Mesh, EveryCutFails)
{
    const std::string bytes = Bytes(kBytes);
    for (std::size_t length = 0; length < bytes.size(); ++length)
        EXPECT_FALSE(ReadBody(m_Mesh, bytes.substr(0, length))) << length;
    const std::string text = kText;
    for (std::size_t length = 0; length < text.rfind("18"); ++length)
        EXPECT_FALSE(ReadText(m_Mesh, text.substr(0, length))) << length;
}

TEST_F(Mesh, SeventyThousandFacesAreWholeInTextAndCutInBytes)
{
    XMesh& mesh = New();
    mesh.GetFaces().resize(70000);
    for (XFace& face : mesh.GetFaces())
        face.SetNumVertices(3);
    XMesh& fromText = New();
    EXPECT_TRUE(ReadText(fromText, TextOf(mesh)));
    EXPECT_EQ(fromText.GetNumFaces(), 70000u);
    EXPECT_EQ(m_Log.Text(), "");

    const std::string body = BodyOf(mesh);
    EXPECT_EQ(m_Log.Text(),
              "Warning : mesh \"node1\" has more faces, corners or uv sets than the 65535 that a binary file "
              "can count: it will not read back\n");
    EXPECT_EQ(mesh.GetDataSize(), 8 + body.size());
    XMesh& fromBytes = New();
    EXPECT_TRUE(ReadBody(fromBytes, body));
    EXPECT_EQ(fromBytes.GetNumFaces(), 70000u % 65536);
}

TEST_F(Mesh, NamesOfUvSetsAreOneWordInText)
{
    ASSERT_TRUE(ReadText(m_Mesh, kText));
    m_Mesh.GetUvSetNames() = {"first map", ""};
    EXPECT_EQ(TextOf(m_Mesh), Replaced(Replaced(kText, "\"a\"", "\"first_map\""), "\"bc\"", "\"\""));
    EXPECT_EQ(m_Log.Text(),
              "Warning : the name \"first map\" is written as first_map: names in text files are one word\n");
    EXPECT_TRUE(ReadText(m_Mesh, TextOf(m_Mesh)));
    EXPECT_EQ(m_Mesh.GetUvSetNames(), (XStringList{"first_map", ""}));
}

// Only binary files can hold such faces: of two corners, with two indices for one uv set,
// and with none.
TEST_F(Mesh, IrregularFacesAreFilledUpInText)
{
    XMesh& mesh = New();
    mesh.SetNumUvSets(1);
    XFace& face = mesh.GetFaces().emplace_back();
    face.SetNumVertices(2);
    face.SetPoint(0, 4);
    face.SetPoint(1, 5);
    face.GetVertices()[0].m_UvIndices = {6, 7};
    mesh.GetFaces().emplace_back();
    EXPECT_EQ(mesh.GetTextPadding(), 3u + 1 + 3 * 3);
    const std::string text = TextOf(mesh);
    EXPECT_EQ(m_Log.Text(),
              "Warning : faces of mesh \"node1\" are written with at least three corners, and one index per "
              "corner and uv set\n");
    EXPECT_EQ(text.substr(text.find("\tFACE")),
              "\tFACE 3\n\t\t4 0 6\n\t\t5 0 0\n\t\t5 0 0\n"
              "\tFACE 3\n\t\t0 0 0\n\t\t0 0 0\n\t\t0 0 0\n");
    EXPECT_TRUE(ReadText(New(), text));
}

TEST_F(Mesh, TextOfAHostileMeshIsNotWritten)
{
    XMesh& mesh = New();
    mesh.SetNumUvSets(65535);
    mesh.GetFaces().resize(1);
    mesh.GetFaces()[0].SetNumVertices(300);  // without uv indices
    EXPECT_EQ(SaveText(m_Model), "");
    EXPECT_EQ(m_Log.Text(), "Error : the document's polygons claim more corners than its index sets hold\n");
}

TEST_F(Mesh, CloneHasFacesAndVertexColoursOfItsOwn)
{
    XMesh& mesh = New();
    ASSERT_TRUE(ReadText(mesh, kText));
    EXPECT_EQ(mesh.GetVertexColours(), nullptr);
    XMeshVertexColours& colours = *m_Model.CreateNode<XMeshVertexColours>();
    colours.AddColourSet("day").m_Colours = {{1, 2, 3, 4}};
    colours.SetMesh(&mesh);
    m_Model.GetCopyFlags().Clear(0xFFFFFFFF);
    const XMesh& copy = *XCast<XMesh>(mesh.Clone());
    EXPECT_EQ(TextOf(copy), kText);
    ASSERT_NE(copy.GetVertexColours(), nullptr);
    EXPECT_NE(copy.GetVertexColours(), &colours);
    EXPECT_EQ(copy.GetVertexColours()->GetMesh(), &copy);
    EXPECT_EQ(copy.GetVertexColours()->GetColourSet(0).m_Name, "day");
    EXPECT_EQ(mesh.GetVertexColours(), &colours);
    mesh.DoCopy(&mesh);
    EXPECT_EQ(TextOf(mesh), kText);
}

TEST_F(Mesh, DeathIsThatOfGeometry)
{
    XMesh& mesh = New();
    XNonLinearWave& wave = *m_Model.CreateNode<XNonLinearWave>();
    XBone& bone = *m_Model.CreateNode<XBone>();
    wave.AddAffected(&mesh);
    mesh.SetDeformerQueue({&wave});
    m_Model.CreateInstance(&bone, &mesh);
    std::set<u32> ids;
    mesh.PreDelete(ids);
    EXPECT_EQ(ids, (std::set<u32>{wave.GetID(), bone.GetID()}));
    EXPECT_TRUE(mesh.NodeDeath(wave.GetID()));
    EXPECT_TRUE(mesh.GetDeformerQueueIds().empty());
    EXPECT_FALSE(mesh.NodeDeath(bone.GetID()));
}

}  // namespace
