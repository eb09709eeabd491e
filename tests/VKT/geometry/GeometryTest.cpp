#include "VKT/geometry/Geometry.h"

#include "VKT/deformers/NonLinearWave.h"
#include "VKT/dynamics/ParticleShape.h"
#include "VKT/geometry/PolygonMesh.h"
#include "VKT/hierarchy/Bone.h"
#include "VKT/support/NodeTest.h"

using namespace VKT;
using namespace VKT::Test;

namespace {

class Geometry : public NodeTest {
protected:
    XGeometry m_Geometry{&m_Model};  // the class alone, of no document
    XPolygonMesh& m_Mesh = *m_Model.CreateNode<XPolygonMesh>();
    XPolygonMesh& m_Other = *m_Model.CreateNode<XPolygonMesh>();
    XNonLinearWave& m_First = *m_Model.CreateNode<XNonLinearWave>();
    XNonLinearWave& m_Second = *m_Model.CreateNode<XNonLinearWave>();
};

constexpr const char kText[] =
    "\tpoints 2\n"
    "\t\t1 2 3\n"
    "\t\t4 -5.5 1e-05\n"
    "\tdeformer_queue 3 4 9 3\n"
    "\tintermediate_object 1\n";
constexpr const char kBytes[] =
    "00 00 00 00 00 00 "
    "02 00 00 00 "
    "00 00 80 3f 00 00 00 40 00 00 40 40 "
    "00 00 80 40 00 00 b0 c0 ac c5 27 37 "
    "03 00 00 00 04 00 00 00 09 00 00 00 03 00 00 00 "
    "01";

TEST_F(Geometry, FreshOneWritesItsDefaults)
{
    EXPECT_EQ(TextOf(m_Geometry),
              "\tpoints 0\n"
              "\tdeformer_queue 0\n"
              "\tintermediate_object 0\n");
    EXPECT_EQ(Hex(BodyOf(m_Geometry)), "00 00 00 00 00 00 00 00 00 00 00 00 00 00 00");
    EXPECT_EQ(m_Geometry.GetDataSize(), 14u + 4 + 4 + 1);
    EXPECT_EQ(m_Geometry.GetApiType(), 26u);
    EXPECT_EQ(m_Mesh.HasFn(26), &m_Mesh);
    EXPECT_EQ(m_Mesh.HasFn(25), &m_Mesh);
}

TEST_F(Geometry, TextReadsBack)
{
    EXPECT_TRUE(ReadText(m_Geometry, kText));
    EXPECT_EQ(TextOf(m_Geometry), kText);
    EXPECT_EQ(m_Geometry.GetPoints(), (XVector3Array{{1, 2, 3, 0}, {4, -5.5f, 1e-5f, 0}}));
    EXPECT_EQ(m_Geometry.GetDeformerQueueIds(), (XIndexList{4, 9, 3}));
    EXPECT_TRUE(m_Geometry.IsIntermediateObject());
}

TEST_F(Geometry, BytesReadBack)
{
    ASSERT_TRUE(ReadText(m_Geometry, kText));
    EXPECT_EQ(Hex(BodyOf(m_Geometry)), kBytes);
    EXPECT_EQ(m_Geometry.GetDataSize(), 14u + 4 + 12 * 2 + 4 + 4 * 3 + 1);
    XGeometry other(&m_Model);
    EXPECT_TRUE(ReadBody(other, Bytes(kBytes)));
    EXPECT_EQ(TextOf(other), kText);
    EXPECT_EQ(other.GetPoints()[1].w, 0);
}

TEST_F(Geometry, NoPointsLeaveTheArrayAsItWas)
{
    XGeometry empty(&m_Model);
    EXPECT_TRUE(ReadText(empty, "points 0 deformer_queue 0 intermediate_object 0"));
    EXPECT_EQ(empty.GetNumPoints(), 0u);
    m_Geometry.SetPoints({{1, 2, 3, 0}});
    for (const char* count : {"0", "-1"}) {
        EXPECT_TRUE(
            ReadText(m_Geometry, std::string("points ") + count + " deformer_queue 0 intermediate_object 0"));
        EXPECT_EQ(m_Geometry.GetPoints(), (XVector3Array{{1, 2, 3, 0}}));
    }
}

TEST_F(Geometry, OlderTextHasNoFlagAndGainsItWhenWritten)
{
    MakeOlder();
    XGeometry geometry(&m_Model);
    const std::string older = Replaced(kText, "\tintermediate_object 1\n", "");
    EXPECT_TRUE(ReadText(geometry, older));
    EXPECT_EQ(TextOf(geometry), older + "\tintermediate_object 0\n");
}

TEST_F(Geometry, OlderBytesHoldTheFlagToo)
{
    MakeOlder();
    XGeometry geometry(&m_Model);
    EXPECT_TRUE(ReadBody(geometry, Bytes(kBytes)));
    EXPECT_EQ(TextOf(geometry), kText);
    EXPECT_EQ(Hex(BodyOf(geometry)), kBytes);
}

TEST_F(Geometry, OlderParticleShapesHadNeitherPointsNorDeformers)
{
    XParticleShape current(&m_Model);
    EXPECT_FALSE(ReadText(current, "fields 0"));
    EXPECT_EQ(m_Log.Text(), "Error : Expected points got fields [.\\src\\VKT\\Geometry:1]\n");
    MakeOlder();
    XParticleShape older(&m_Model);
    EXPECT_TRUE(ReadText(older, "fields 0"));
    EXPECT_TRUE(ReadBody(older, Bytes(kBytes + std::string(" 00 00 00 00"))));
    EXPECT_EQ(older.GetNumPoints(), 2u);
}

TEST_F(Geometry, WrongKeysAreLogged)
{
    EXPECT_FALSE(ReadText(m_Geometry, Replaced(kText, "points", "Vertices")));
    EXPECT_FALSE(ReadText(m_Geometry, Replaced(kText, "deformer_queue", "queue")));
    EXPECT_FALSE(ReadText(m_Geometry, Replaced(kText, "intermediate_object", "hidden")));
    EXPECT_EQ(m_Log.Text(),
              "Error : Expected points got vertices [.\\src\\VKT\\Geometry:1]\n"
              "Error : Expected deformer_queue got queue [.\\src\\VKT\\Geometry:2]\n"
              "Error : Expected intermediate_object got hidden [.\\src\\VKT\\Geometry:3]\n");
}

TEST_F(Geometry, PointsThatDoNotComeAreLogged)
{
    for (const char* count : {"points 3", "points 2147483647"}) {
        m_Log.Clear();
        EXPECT_FALSE(ReadText(m_Geometry, Replaced(kText, "points 2", count)));
        EXPECT_EQ(m_Log.Text(), "Error : UnExpected file-IO error\n");
        EXPECT_LT(m_Geometry.GetPoints().capacity(), 100u);
    }
}

TEST_F(Geometry, DeformersThatDoNotComeFailAtTheNextKey)
{
    for (const char* count : {"queue 4", "queue 4294967295"}) {
        m_Log.Clear();
        EXPECT_FALSE(ReadText(m_Geometry, Replaced(kText, "queue 3", count)));
        EXPECT_EQ(m_Log.Text(), "Error : Expected intermediate_object got  [.\\src\\VKT\\Geometry:3]\n");
    }
}

TEST_F(Geometry, ShortBytesAreLogged)
{
    EXPECT_FALSE(ReadBody(m_Geometry, Bytes(Replaced(kBytes, "02 00 00 00 00", "ff ff ff ff 00"))));
    EXPECT_FALSE(ReadBody(m_Geometry, Bytes(Replaced(kBytes, "03 00 00 00 04", "05 00 00 00 04"))));
    EXPECT_TRUE(m_Log.Text().starts_with("Error : XFileIO::DoData : expected to read/write "));
    const std::string bytes = Bytes(kBytes);
    for (std::size_t length = 0; length < bytes.size(); ++length)
        EXPECT_FALSE(ReadBody(m_Geometry, bytes.substr(0, length))) << length;
}

TEST_F(Geometry, WithoutDeformersTheQueueIsWrittenEmpty)
{
    ASSERT_TRUE(ReadText(m_Geometry, kText));
    m_Model.GetSaveFlags().Clear(SaveDeformers);
    EXPECT_EQ(TextOf(m_Geometry), Replaced(kText, "3 4 9 3", "0"));
    EXPECT_EQ(Hex(BodyOf(m_Geometry)),
              Replaced(kBytes, "03 00 00 00 04 00 00 00 09 00 00 00 03 00 00 00", "00 00 00 00"));
    EXPECT_EQ(m_Geometry.GetDataSize(), 14u + 4 + 12 * 2 + 4 + 1);
    EXPECT_EQ(m_Geometry.GetDeformerQueueIds().size(), 3u);
    // Reading takes what is there.
    XGeometry other(&m_Model);
    EXPECT_TRUE(ReadText(other, kText));
    EXPECT_EQ(other.GetDeformerQueueIds().size(), 3u);
    EXPECT_TRUE(ReadBody(other, Bytes(kBytes)));
    EXPECT_EQ(other.GetDeformerQueueIds().size(), 3u);
}

TEST_F(Geometry, QueueIsListedWithoutWhatIsNotThere)
{
    ASSERT_TRUE(ReadText(m_Geometry, Replaced(kText, "3 4 9 3", "4 4 9 1 3")));
    XDeformerList queue{nullptr};
    EXPECT_TRUE(m_Geometry.GetDeformerQueue(queue));
    EXPECT_EQ(queue, (XDeformerList{nullptr, &m_Second, &m_First}));  // appended
    EXPECT_NE(TextOf(m_Geometry).find("\tdeformer_queue 4 4 9 1 3\n"), std::string::npos);

    XGeometry empty(&m_Model);
    EXPECT_TRUE(empty.GetDeformerQueue(queue));  // of what stood there
    queue.clear();
    EXPECT_FALSE(empty.GetDeformerQueue(queue));
    empty.SetDeformerQueue({&m_Second, &m_First});
    EXPECT_EQ(empty.GetDeformerQueueIds(), (XIndexList{4, 3}));
}

TEST_F(Geometry, NullInAQueueIsPassedOver)
{
    m_Geometry.SetDeformerQueue({nullptr, &m_Second, nullptr, &m_First});
    EXPECT_EQ(m_Geometry.GetDeformerQueueIds(), (XIndexList{m_Second.GetID(), m_First.GetID()}));
}

TEST_F(Geometry, PointsAreCopiedInAndOut)
{
    const XVector3Array points{{1, 2, 3, 0}, {4, 5, 6, 0}};
    m_Geometry.SetPoints(points);
    XVector3Array out{{9, 9, 9, 0}};
    m_Geometry.GetPoints(out);
    EXPECT_EQ(out, points);
    m_Geometry.SetPoints(m_Geometry.GetPoints());
    EXPECT_EQ(m_Geometry.GetPoints(), points);
}

TEST_F(Geometry, DeathOfADeformerRemovesOneEntry)
{
    m_Mesh.SetDeformerQueue({&m_First, &m_Second, &m_First});
    EXPECT_TRUE(m_Mesh.NodeDeath(m_First.GetID()));
    EXPECT_EQ(m_Mesh.GetDeformerQueueIds(), (XIndexList{m_Second.GetID(), m_First.GetID()}));
}

TEST_F(Geometry, DeathOfItsOnlyTransformLeavesNoReasonToLive)
{
    XBone& bone = *m_Model.CreateNode<XBone>();
    m_Model.CreateInstance(&bone, &m_Mesh);
    EXPECT_FALSE(m_Mesh.NodeDeath(bone.GetID()));
    XInstanceList instances;
    EXPECT_FALSE(m_Model.ListInstances(instances));
}

TEST_F(Geometry, DeletingTakesDeformersOfItsOwn)
{
    m_Mesh.SetDeformerQueue({&m_First, &m_Second});
    m_First.AddAffected(&m_Mesh);
    m_Second.AddAffected(&m_Mesh);
    m_Second.AddAffected(&m_Other);
    std::set<u32> ids;
    m_Mesh.PreDelete(ids);
    EXPECT_EQ(ids, std::set<u32>{m_First.GetID()});
    m_Model.GetDeleteFlags().Clear(DeleteDeformers);
    ids.clear();
    m_Mesh.PreDelete(ids);
    EXPECT_TRUE(ids.empty());
}

TEST_F(Geometry, CloneClonesDeformersWhenAsked)
{
    m_Mesh.SetPoints({{1, 2, 3, 0}});
    m_Mesh.SetIntermediateObject(true);
    m_Mesh.SetDeformerQueue({&m_Second, &m_First});
    m_First.AddAffected(&m_Mesh);
    m_First.SetOffset(5);
    const XPolygonMesh& copy = *XCast<XPolygonMesh>(m_Mesh.Clone());
    EXPECT_EQ(copy.GetPoints(), m_Mesh.GetPoints());
    EXPECT_TRUE(copy.IsIntermediateObject());
    XDeformerList queue;
    EXPECT_TRUE(copy.GetDeformerQueue(queue));
    ASSERT_EQ(queue.size(), 2u);
    EXPECT_NE(queue[1], &m_First);
    EXPECT_EQ(XCast<XNonLinearWave>(queue[1])->GetOffset(), 5);
    // The clone affects what its source does, and the copy.
    EXPECT_EQ(queue[1]->GetNumAffected(), 2u);
    EXPECT_EQ(queue[1]->GetAffected(0), &m_Mesh);
    EXPECT_EQ(queue[1]->GetAffected(1), &copy);
    EXPECT_EQ(m_Mesh.GetDeformerQueueIds(), (XIndexList{m_Second.GetID(), m_First.GetID()}));
}

TEST_F(Geometry, CloneHasNoDeformersOtherwise)
{
    m_Mesh.SetDeformerQueue({&m_First});
    m_Model.GetCopyFlags().Clear(CopyDeformers);
    EXPECT_TRUE(XCast<XPolygonMesh>(m_Mesh.Clone())->GetDeformerQueueIds().empty());
}

TEST_F(Geometry, PropertiesReachTheFields)
{
    const XNodeProperties& properties = *m_Mesh.GetNodeProperties();
    EXPECT_TRUE(properties.SetVectorArray(&m_Mesh, 1, {{1, 2, 3, 0}}));
    EXPECT_TRUE(properties.SetNodeArray(&m_Mesh, 2, {&m_Second, &m_First}));
    EXPECT_TRUE(properties.SetBool(&m_Mesh, 3, true));
    EXPECT_EQ(m_Mesh.GetPoints(), (XVector3Array{{1, 2, 3, 0}}));
    EXPECT_EQ(m_Mesh.GetDeformerQueueIds(), (XIndexList{m_Second.GetID(), m_First.GetID()}));
    EXPECT_TRUE(m_Mesh.IsIntermediateObject());
    XNodeList queue;
    EXPECT_TRUE(properties.GetNodeArray(&m_Mesh, 2, queue));
    EXPECT_EQ(queue, (XNodeList{&m_Second, &m_First}));

    // Only deformers, of this document.
    XModel other;
    EXPECT_FALSE(properties.SetNodeArray(&m_Mesh, 2, {&m_First, &m_Other}));
    EXPECT_FALSE(properties.SetNodeArray(&m_Mesh, 2, {nullptr}));
    EXPECT_FALSE(properties.SetNodeArray(&m_Mesh, 2, {other.CreateNode(kFnNonLinearWave)}));
    EXPECT_EQ(m_Mesh.GetDeformerQueueIds(), (XIndexList{m_Second.GetID(), m_First.GetID()}));
}

}  // namespace
