#include "VKT/lights/Camera.h"

#include <bit>

#include "VKT/hierarchy/Bone.h"
#include "VKT/support/NodeTest.h"

using namespace VKT;
using namespace VKT::Test;

namespace {

class Camera : public NodeTest {
protected:
    XCamera& New() { return *m_Model.CreateNode<XCamera>(); }
    XCamera& m_Camera = New();
};

constexpr const char kText[] =
    "\taspect 1\n"
    "\tnear 2\n"
    "\tfar 3\n"
    "\thoriz_aspect 4\n"
    "\tvert_aspect 5\n";
constexpr const char kBytes[] =
    "05 00 6e 6f 64 65 31 01 00 00 00 "
    "00 00 80 3f 00 00 00 40 00 00 40 40 00 00 80 40 00 00 a0 40";

TEST_F(Camera, FreshOneWritesItsDefaults)
{
    EXPECT_EQ(ChunkOf(m_Camera),
              "CAMERA node1\n"
              "{\n"
              "\tid 1\n"
              "\taspect 1.5\n"
              "\tnear 0.1\n"
              "\tfar 1000\n"
              "\thoriz_aspect 0.950022\n"
              "\tvert_aspect 0.660595\n"
              "}\n");
    EXPECT_EQ(std::bit_cast<u32>(m_Camera.GetHorizontalAspect()), 0x3F7334A4u);
    EXPECT_EQ(std::bit_cast<u32>(m_Camera.GetVerticalAspect()), 0x3F291CC1u);
    EXPECT_EQ(m_Camera.GetDataSize(), 14u + 5 + 20);
}

TEST_F(Camera, AnswersForItsBases)
{
    for (const u32 type : {43u, 25u, 0u})
        EXPECT_EQ(m_Camera.HasFn(type), &m_Camera) << type;
    for (const u32 type : {26u, 76u})
        EXPECT_EQ(m_Camera.HasFn(type), nullptr) << type;
    EXPECT_EQ(m_Camera.GetApiType(), 0x2Bu);
}

TEST_F(Camera, TextReadsBackToItsPlaces)
{
    EXPECT_TRUE(ReadText(m_Camera, kText));
    EXPECT_EQ(TextOf(m_Camera), kText);
    EXPECT_EQ(m_Camera.GetAspect(), 1);
    EXPECT_EQ(m_Camera.GetNear(), 2);
    EXPECT_EQ(m_Camera.GetFar(), 3);
    EXPECT_EQ(m_Camera.GetHorizontalAspect(), 4);
    EXPECT_EQ(m_Camera.GetVerticalAspect(), 5);
}

TEST_F(Camera, SettersReachTheirFields)
{
    m_Camera.SetAspect(1);
    m_Camera.SetNear(2);
    m_Camera.SetFar(3);
    m_Camera.SetHorizontalAspect(4);
    m_Camera.SetVerticalAspect(5);
    EXPECT_EQ(TextOf(m_Camera), kText);
}

TEST_F(Camera, BytesReadBackToTheSameText)
{
    EXPECT_TRUE(ReadBody(m_Camera, Bytes(kBytes)));
    EXPECT_EQ(TextOf(m_Camera), kText);
    EXPECT_EQ(Hex(BodyOf(m_Camera)), kBytes);
}

TEST_F(Camera, OlderFilesHoldTheSame)
{
    MakeOlder();
    XCamera& fromText = New();
    EXPECT_TRUE(ReadText(fromText, kText));
    EXPECT_EQ(TextOf(fromText), kText);
    XCamera& fromBytes = New();
    EXPECT_TRUE(ReadBody(fromBytes, Bytes(kBytes)));
    EXPECT_EQ(TextOf(fromBytes), kText);
}

TEST_F(Camera, NearPlaneBehindTheFarOneStands)
{
    const std::string text = Replaced(kText, "near 2", "near 2000");
    EXPECT_TRUE(ReadText(m_Camera, text));
    EXPECT_EQ(TextOf(m_Camera), text);
}

TEST_F(Camera, EachWrongKeyIsLoggedWithItsClassAndRow)
{
    int row = 0;
    for (const std::string key : {"aspect", "near", "far", "horiz_aspect", "vert_aspect"}) {
        m_Log.Clear();
        EXPECT_FALSE(ReadText(New(), Replaced(kText, "\t" + key, "\tWrong")));
        EXPECT_EQ(m_Log.Text(), "Error : Expected " + key +
                                    " got wrong [.\\src\\VKT\\Camera:" + std::to_string(++row) + "]\n");
    }
}

TEST_F(Camera, EveryCutOfTheBytesFails)
{
    const std::string bytes = Bytes(kBytes);
    for (std::size_t length = 0; length < bytes.size(); ++length)
        EXPECT_FALSE(ReadBody(New(), bytes.substr(0, length))) << length;
    EXPECT_NE(m_Log.Text().find("Error : XFileIO::DoData : expected to read/write 1 elements got 0\n"),
              std::string::npos);
}

TEST_F(Camera, CloneHasAllValues)
{
    ASSERT_TRUE(ReadText(m_Camera, kText));
    EXPECT_EQ(TextOf(*m_Camera.Clone()), kText);
}

TEST_F(Camera, EachPropertyReachesItsOwnField)
{
    const XNodeProperties& properties = *m_Camera.GetNodeProperties();
    EXPECT_EQ(properties.GetNumProperties(), 5u);
    const char* const names[] = {"aspect", "near", "far", "horiz_aspect", "vert_aspect"};
    for (u32 id = 1; id <= 5; ++id) {
        EXPECT_EQ(properties.GetPropertyName(id), names[id - 1]);
        EXPECT_EQ(properties.GetPropertyFlags(id), kAnimatable);
        EXPECT_TRUE(properties.SetFloat(&m_Camera, id, static_cast<f32>(id)));
    }
    EXPECT_EQ(TextOf(m_Camera), kText);
    EXPECT_FALSE(properties.SetBool(&m_Camera, 1, true));
}

TEST_F(Camera, IsLinkedToItsBonesAfterALoadOfEitherForm)
{
    m_Camera.SetName("lens");
    m_Model.CreateInstance(m_Model.CreateNode<XBone>(), &m_Camera);
    for (const std::string& file : {SaveText(m_Model), SaveBinaryBytes(m_Model)}) {
        XModel model;
        ASSERT_EQ(LoadBytes(model, file), FileOk);
        XInstanceList shown;
        EXPECT_TRUE(XCast<XCamera>(model.FindNode("lens"))->GetObjectInstances(shown));
        ASSERT_EQ(shown.size(), 1u);
        EXPECT_EQ(shown[0]->GetShape(), model.FindNode("lens"));
    }
}

TEST_F(Camera, DiesWithItsLastBoneAndTakesBonesAlong)
{
    XBone& bone = *m_Model.CreateNode<XBone>();
    m_Model.CreateInstance(&bone, &m_Camera);
    std::set<u32> ids;
    m_Camera.PreDelete(ids);
    EXPECT_EQ(ids, std::set<u32>{bone.GetID()});
    EXPECT_FALSE(m_Camera.NodeDeath(bone.GetID()));
}

}  // namespace
