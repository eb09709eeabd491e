#include "VKT/dynamics/ParticleShape.h"

#include "VKT/deformers/NonLinearWave.h"
#include "VKT/dynamics/Emitter.h"
#include "VKT/dynamics/Gravity.h"
#include "VKT/hierarchy/Bone.h"
#include "VKT/shading/Lambert.h"
#include "VKT/support/NodeTest.h"
#include "VKT/support/PropertyRows.h"

using namespace VKT;
using namespace VKT::Test;

namespace {

class ParticleShape : public NodeTest {
protected:
    XParticleShape& New() { return *m_Model.CreateNode<XParticleShape>(); }
    XParticleShape& m_Particles = New();  // id 1
    XGravity& m_Field = *m_Model.CreateNode<XGravity>();
    XGravity& m_Other = *m_Model.CreateNode<XGravity>();
};

const std::string kGeometry = "\tpoints 0\n\tdeformer_queue 0\n\tintermediate_object 0\n";
const std::string kText = kGeometry +
                          "\tfields 2\n"
                          "\t\t3\n"
                          "\t\t2\n"
                          "\tdepth_sort 1\n"
                          "\tlifespan_type RANDOM\n"
                          "\tlifespan 4\n"
                          "\tlifespan_random 5\n"
                          "\tparticle_type SPRITES\n"
                          "\t material 7\n";  // a tab and a blank
const std::string kOlderBytes =
    "05 00 6e 6f 64 65 31 01 00 00 00 00 00 00 00 00 00 00 00 00 "
    "02 00 00 00 03 00 00 00 02 00 00 00";
const std::string kBytes = kOlderBytes + " 01 02 00 00 00 00 00 80 40 00 00 a0 40 06 00 00 00";

TEST_F(ParticleShape, FreshOneWritesItsDefaults)
{
    EXPECT_EQ(ChunkOf(m_Particles), "PARTICLE node1\n{\n\tid 1\n" + kGeometry +
                                        "\tfields 0\n"
                                        "\tdepth_sort 0\n"
                                        "\tlifespan_type LIVE_FOREVER\n"
                                        "\tlifespan 1\n"
                                        "\tlifespan_random 0\n"
                                        "\tparticle_type POINT\n"
                                        "\t material 0\n"
                                        "}\n");
    EXPECT_EQ(m_Particles.GetDataSize(), 14u + 5 + 9 + 4 + 1 + 4 * 4);
    for (const u32 type : {40u, 26u, 25u, 0u})
        EXPECT_EQ(m_Particles.HasFn(type), &m_Particles) << type;
}

TEST_F(ParticleShape, TextReadsBack)
{
    EXPECT_TRUE(ReadText(m_Particles, kText));
    EXPECT_EQ(TextOf(m_Particles), kText);
    EXPECT_EQ(m_Particles.GetNumFields(), 2u);
    EXPECT_EQ(m_Particles.GetField(0), &m_Other);
    EXPECT_EQ(m_Particles.GetField(1), &m_Field);
    EXPECT_EQ(m_Particles.GetField(2), nullptr);
    EXPECT_TRUE(m_Particles.GetDepthSort());
    EXPECT_EQ(m_Particles.GetLifespanType(), kLifespanRandom);
    EXPECT_EQ(m_Particles.GetParticleType(), kParticleSprites);
}

TEST_F(ParticleShape, BytesReadBackWithoutTheMaterial)
{
    ASSERT_TRUE(ReadText(m_Particles, kText));
    EXPECT_EQ(Hex(BodyOf(m_Particles)), kBytes);
    EXPECT_EQ(m_Particles.GetDataSize(), 14u + 5 + 9 + 4 + 8 + 1 + 4 * 4);
    XParticleShape& other = New();
    EXPECT_TRUE(ReadBody(other, Bytes(kBytes)));
    EXPECT_EQ(TextOf(other), Replaced(kText, "material 7", "material 0"));
    const std::string bytes = Bytes(kBytes);
    for (std::size_t length = 0; length < bytes.size(); ++length)
        EXPECT_FALSE(ReadBody(other, bytes.substr(0, length))) << length;
}

TEST_F(ParticleShape, OlderFilesHaveFieldsAlone)
{
    MakeOlder();
    XParticleShape text(&m_Model);
    EXPECT_TRUE(ReadText(text, "\tfields 2\n\t\t3\n\t\t2\n"));  // neither points nor deformers
    const std::string expected = kGeometry +
                                 "\tfields 2\n\t\t3\n\t\t2\n\tdepth_sort 0\n\tlifespan_type LIVE_FOREVER\n"
                                 "\tlifespan 1\n\tlifespan_random 0\n\tparticle_type POINT\n\t material 0\n";
    EXPECT_EQ(TextOf(text), expected);
    XParticleShape bytes(&m_Model);
    EXPECT_TRUE(ReadBody(bytes, Bytes(kOlderBytes)));
    EXPECT_EQ(TextOf(bytes), expected);
    EXPECT_EQ(Hex(BodyOf(bytes)), kOlderBytes);
}

TEST_F(ParticleShape, EachWordHasItsNumber)
{
    u32 lifespan = 0;
    for (const char* word : {"LIVE_FOREVER", "CONSTANT", "RANDOM"}) {
        EXPECT_TRUE(ReadText(m_Particles, Replaced(kText, "RANDOM", word)));
        EXPECT_EQ(m_Particles.GetLifespanType(), lifespan++);
        EXPECT_EQ(TextOf(m_Particles), Replaced(kText, "RANDOM", word));
    }
    u32 type = 0;
    for (const char* word : {"POINT", "POINT_SPRITES", "STREAK", "SPHERE", "MULTI_POINT", "MULTI_STREAK",
                             "SPRITES", "NUMERIC"}) {
        EXPECT_TRUE(ReadText(m_Particles, Replaced(kText, "SPRITES", word)));
        EXPECT_EQ(m_Particles.GetParticleType(), type++);
        EXPECT_EQ(TextOf(m_Particles), Replaced(kText, "SPRITES", word));
    }
    EXPECT_EQ(m_Log.Text(), "");
}

TEST_F(ParticleShape, PointsReadsAsPoint)
{
    m_Particles.SetParticleType(kParticleStreak);
    EXPECT_TRUE(ReadText(m_Particles, Replaced(kText, "SPRITES", "POINTS")));
    EXPECT_EQ(TextOf(m_Particles), Replaced(kText, "SPRITES", "POINT"));
    EXPECT_EQ(m_Log.Text(), "");
}

TEST_F(ParticleShape, UnknownWordsWarnAndBecomeTheFirst)
{
    m_Particles.SetLifespanType(kLifespanConstant);
    m_Particles.SetParticleType(kParticleStreak);
    EXPECT_TRUE(ReadText(m_Particles, Replaced(Replaced(kText, "RANDOM", "SHORT"), "SPRITES", "CLOUD")));
    EXPECT_EQ(
        m_Log.Text(),
        "Warning : Unknown lifespan type when loading XParticleShape \"node1\". Defaulting to "
        "kLiveForever\n"
        "Warning : Unknown lifespan type when loading XParticleShape \"node1\". Defaulting to kPoint\n");
    EXPECT_EQ(TextOf(m_Particles), Replaced(Replaced(kText, "RANDOM", "LIVE_FOREVER"), "SPRITES", "POINT"));
}

TEST_F(ParticleShape, WrongKeysAreLogged)
{
    int row = 0;
    for (const std::string key : {"fields", "depth_sort", "lifespan_type", "lifespan", "lifespan_random",
                                  "particle_type", "material"}) {
        m_Log.Clear();
        EXPECT_FALSE(ReadText(m_Particles, Replaced(kText, key + " ", "Wrong ")));
        EXPECT_EQ(m_Log.Text(), "Error : Expected " + key + " got wrong [.\\src\\VKT\\ParticleShape:" +
                                    std::to_string(++row) + "]\n");
    }
    EXPECT_FALSE(ReadText(m_Particles, Replaced(kText, "fields 2", "fields 4294967295")));
}

TEST_F(ParticleShape, FieldsListTheShapeInTurn)
{
    EXPECT_TRUE(m_Particles.AddField(&m_Field));
    EXPECT_TRUE(m_Particles.AddField(&m_Other));
    EXPECT_TRUE(m_Particles.AddField(&m_Field));
    XNodeList shapes;
    EXPECT_TRUE(m_Field.GetShapes(shapes));
    EXPECT_EQ(shapes, (XNodeList{&m_Particles}));
    m_Particles.RemoveField(&m_Field);
    EXPECT_EQ(m_Particles.GetNumFields(), 1u);
    EXPECT_EQ(m_Particles.GetField(0), &m_Other);
    EXPECT_FALSE(m_Field.GetShapes(shapes));
    m_Particles.RemoveField(nullptr);
    // However the shapes of a field are added, each counts once.
    XParticleShape& second = New();
    for (XParticleShape* shape : {&m_Particles, &second, &m_Particles})
        shape->AddField(&m_Field);
    EXPECT_TRUE(m_Field.GetShapes(shapes));
    EXPECT_EQ(shapes, (XNodeList{&m_Particles, &second}));
    XModel other;
    EXPECT_FALSE(m_Particles.AddField(nullptr));
    EXPECT_FALSE(m_Particles.AddField(other.CreateNode<XGravity>()));
}

TEST_F(ParticleShape, EmittersFeedIt)
{
    XEmitter& emitter = *m_Model.CreateNode<XEmitter>();
    EXPECT_TRUE(m_Particles.AddEmitter(&emitter));
    EXPECT_FALSE(m_Particles.AddEmitter(nullptr));
    EXPECT_EQ(emitter.GetShape(), &m_Particles);
    EXPECT_EQ(m_Particles.GetNumEmitters(), 1u);
    EXPECT_EQ(m_Particles.GetEmitter(0), &emitter);
    EXPECT_EQ(m_Particles.GetEmitter(1), nullptr);
}

TEST_F(ParticleShape, MaterialIsAMaterialOrNone)
{
    XLambert& lambert = *m_Model.CreateNode<XLambert>();
    EXPECT_TRUE(m_Particles.SetMaterial(&lambert));
    EXPECT_EQ(m_Particles.GetMaterial(), &lambert);
    EXPECT_FALSE(m_Particles.SetMaterial(&m_Field));
    EXPECT_TRUE(m_Particles.SetMaterial(nullptr));
    EXPECT_EQ(m_Particles.GetMaterial(), nullptr);
}

TEST_F(ParticleShape, LoadLinksFieldsAndEmittersInTheOrderOfNames)
{
    XParticleShape& second = New();
    m_Model.SetName(&second, "a");
    for (XParticleShape* shape : {&m_Particles, &second}) {
        shape->AddField(&m_Field);
        shape->AddField(&m_Field);
    }
    m_Particles.AddField(&m_Other);
    for (const char* name : {"z", "b"}) {
        XEmitter& emitter = *m_Model.CreateNode<XEmitter>();
        m_Model.SetName(&emitter, name);
        emitter.SetShape(&m_Particles);
    }
    const std::string text = SaveText(m_Model);
    for (const std::string& file : {text, SaveBinaryBytes(m_Model)}) {
        ASSERT_EQ(LoadBytes(m_Model, file), FileOk);
        const XParticleShape& shape = *XCast<XParticleShape>(m_Model.FindNode("node1"));
        ASSERT_EQ(shape.GetNumEmitters(), 2u);
        EXPECT_EQ(shape.GetEmitter(0), m_Model.FindNode("b"));
        EXPECT_EQ(shape.GetEmitter(1), m_Model.FindNode("z"));
        XNodeList shapes;
        EXPECT_TRUE(XCast<XField>(m_Model.FindNode("node2"))->GetShapes(shapes));
        EXPECT_EQ(shapes, (XNodeList{m_Model.FindNode("a"), m_Model.FindNode("node1")}));
        EXPECT_EQ(SaveText(m_Model), text);
    }
}

TEST_F(ParticleShape, DeathRemovesTheFirstEntryOfEach)
{
    XEmitter& emitter = *m_Model.CreateNode<XEmitter>();
    XNonLinearWave& wave = *m_Model.CreateNode<XNonLinearWave>();
    m_Particles.AddEmitter(&emitter);
    m_Particles.AddField(&m_Field);
    m_Particles.AddField(&m_Other);
    m_Particles.AddField(&m_Field);
    m_Particles.SetDeformerQueue({&wave});
    EXPECT_TRUE(m_Particles.NodeDeath(m_Field.GetID()));
    EXPECT_EQ(m_Particles.GetField(0), &m_Other);
    EXPECT_EQ(m_Particles.GetField(1), &m_Field);
    EXPECT_TRUE(m_Particles.NodeDeath(emitter.GetID()));
    EXPECT_EQ(m_Particles.GetNumEmitters(), 0u);
    EXPECT_TRUE(m_Particles.NodeDeath(wave.GetID()));
    EXPECT_TRUE(m_Particles.GetDeformerQueueIds().empty());
}

TEST_F(ParticleShape, DeletingTakesNeitherEmittersNorFieldsAlong)
{
    m_Particles.AddEmitter(m_Model.CreateNode<XEmitter>());
    m_Particles.AddField(&m_Field);
    std::set<u32> ids;
    m_Particles.PreDelete(ids);
    EXPECT_TRUE(ids.empty());
}

TEST_F(ParticleShape, DeletedOnesAreMissedByThoseThatListThem)
{
    XEmitter& first = *m_Model.CreateNode<XEmitter>();
    XEmitter& second = *m_Model.CreateNode<XEmitter>();
    XParticleShape& other = New();
    for (XParticleShape* shape : {&m_Particles, &other}) {
        shape->AddField(&m_Field);
        shape->AddField(&m_Other);
    }
    m_Particles.AddEmitter(&first);
    m_Particles.AddEmitter(&second);
    EXPECT_TRUE(m_Model.DeleteNode(first.GetID()));
    ASSERT_EQ(m_Particles.GetNumEmitters(), 1u);
    EXPECT_EQ(m_Particles.GetEmitter(0), &second);
    EXPECT_TRUE(m_Model.DeleteNode(m_Field.GetID()));
    ASSERT_EQ(m_Particles.GetNumFields(), 1u);
    EXPECT_EQ(m_Particles.GetField(0), &m_Other);
    EXPECT_EQ(m_Other.GetNumShapes(), 2u);
    // The emitter goes along, since it does not outlive what it feeds.
    EXPECT_EQ(m_Model.DeleteNodes({m_Particles.GetID()}), 2u);
    XNodeList shapes;
    EXPECT_EQ(m_Other.GetNumShapes(), 1u);
    EXPECT_TRUE(m_Other.GetShapes(shapes));
    EXPECT_EQ(shapes, (XNodeList{&other}));
}

// Kept on purpose.
TEST_F(ParticleShape, MaterialOutlivesItsNode)
{
    XLambert& lambert = *m_Model.CreateNode<XLambert>();
    const std::string id = std::to_string(lambert.GetID());
    m_Particles.SetMaterial(&lambert);
    EXPECT_TRUE(m_Model.DeleteNode(lambert.GetID()));
    EXPECT_EQ(m_Particles.GetMaterial(), nullptr);
    EXPECT_NE(TextOf(m_Particles).find("\t material " + id + "\n"), std::string::npos);
}

TEST_F(ParticleShape, CloneHasLinksWhereTheyAreAskedFor)
{
    XEmitter& emitter = *m_Model.CreateNode<XEmitter>();
    ASSERT_TRUE(ReadText(m_Particles, kText));
    m_Particles.AddEmitter(&emitter);
    const XParticleShape& linked = *XCast<XParticleShape>(m_Particles.Clone());
    EXPECT_EQ(TextOf(linked), kText);
    EXPECT_EQ(linked.GetEmitter(0), &emitter);
    EXPECT_EQ(emitter.GetShape(), &m_Particles);
    XNodeList shapes;
    EXPECT_TRUE(m_Field.GetShapes(shapes));
    EXPECT_EQ(shapes, (XNodeList{m_Model.FindNode(linked.GetID())}));

    m_Model.GetCopyFlags().Clear(CopyParticleLinks);
    const XParticleShape& bare = *XCast<XParticleShape>(m_Particles.Clone());
    EXPECT_EQ(TextOf(bare), Replaced(kText, "fields 2\n\t\t3\n\t\t2", "fields 0"));
    EXPECT_EQ(bare.GetNumEmitters(), 0u);
    m_Particles.DoCopy(&m_Particles);
    EXPECT_EQ(TextOf(m_Particles), kText);
}

TEST_F(ParticleShape, PropertiesReachTheFields)
{
    EXPECT_EQ(RowsOf(XParticleShape::ClassProperties()),
              "10 properties\n"
              "emitters nodes 4 l of 101\n"
              "fields nodes 5 l of 103\n"
              "depth_sort bool 6\n"
              "lifespan_type int 7\n"
              "lifespan float 8\n"
              "lifespan_random float 9\n"
              "particle_type int 10\n");
    const XNodeProperties& properties = *m_Particles.GetNodeProperties();
    EXPECT_TRUE(properties.SetNodeArray(&m_Particles, 5, {&m_Field}));
    EXPECT_TRUE(properties.SetNodeArray(&m_Particles, 5, {&m_Other, &m_Field}));
    EXPECT_TRUE(properties.SetBool(&m_Particles, 6, true));
    EXPECT_TRUE(properties.SetInteger(&m_Particles, 7, 2));
    EXPECT_TRUE(properties.SetFloat(&m_Particles, 8, 4));
    EXPECT_TRUE(properties.SetFloat(&m_Particles, 9, 5));
    EXPECT_TRUE(properties.SetInteger(&m_Particles, 10, 6));
    EXPECT_EQ(TextOf(m_Particles), Replaced(kText, "material 7", "material 0"));
    EXPECT_EQ(m_Field.GetNumShapes(), 1u);
    XNodeList nodes;
    EXPECT_TRUE(properties.GetNodeArray(&m_Particles, 5, nodes));
    EXPECT_EQ(nodes, (XNodeList{&m_Other, &m_Field}));
    EXPECT_FALSE(properties.SetNodeArray(&m_Particles, 5, {&m_Particles}));
    EXPECT_FALSE(properties.SetNodeArray(&m_Particles, 4, {&m_Field}));
    EXPECT_TRUE(properties.SetNodeArray(&m_Particles, 5, {}));
    EXPECT_EQ(m_Field.GetNumShapes(), 0u);

    XEmitter& first = *m_Model.CreateNode<XEmitter>();
    XEmitter& second = *m_Model.CreateNode<XEmitter>();
    EXPECT_TRUE(properties.SetNodeArray(&m_Particles, 4, {&first}));
    EXPECT_TRUE(properties.SetNodeArray(&m_Particles, 4, {&second}));
    EXPECT_EQ(first.GetShape(), nullptr);
    EXPECT_TRUE(properties.GetNodeArray(&m_Particles, 4, nodes));
    EXPECT_EQ(nodes, (XNodeList{&second}));
}

// Setters that nothing above names.
TEST_F(ParticleShape, SettersReachTheirFields)
{
    m_Particles.SetDepthSort(true);
    m_Particles.SetLifespan(4);
    m_Particles.SetLifespanRandom(5);
    EXPECT_TRUE(m_Particles.GetDepthSort());
    EXPECT_EQ(m_Particles.GetLifespan(), 4);
    EXPECT_EQ(m_Particles.GetLifespanRandom(), 5);
    m_Particles.SetLifespanType(3);
    m_Particles.SetParticleType(8);
    EXPECT_NE(TextOf(m_Particles).find("\tlifespan_type LIVE_FOREVER\n"), std::string::npos);
    EXPECT_NE(TextOf(m_Particles).find("\tparticle_type POINT\n"), std::string::npos);
}

}  // namespace
