#include "VKT/deformers/NonLinearWave.h"

#include "VKT/geometry/PolygonMesh.h"
#include "VKT/hierarchy/Bone.h"
#include "VKT/support/NodeTest.h"

using namespace VKT;
using namespace VKT::Test;

namespace {

class NonLinearWave : public NodeTest {
protected:
    XNonLinearWave& New() { return *m_Model.CreateNode<XNonLinearWave>(); }
    XNonLinearWave& m_Wave = New();
};

constexpr const char kText[] =
    "\taffected 2 1 2\n"
    "\tenvelope_weight 3\n"
    "\thandle 4\n"
    "\tmax_radius 5\n"
    "\tmin_radius 6\n"
    "\tamplitude 7\n"
    "\twavelength 8\n"
    "\tdropoff 9\n"
    "\tdropoff_position 10\n"
    "\toffset 11\n";
constexpr const char kBytes[] =
    "05 00 6e 6f 64 65 31 01 00 00 00 "
    "02 00 00 00 01 00 00 00 02 00 00 00 00 00 40 40 "
    "04 00 00 00 "
    "00 00 a0 40 00 00 c0 40 00 00 e0 40 00 00 00 41 00 00 10 41 00 00 20 41 00 00 30 41";

TEST_F(NonLinearWave, FreshOneWritesItsDefaults)
{
    EXPECT_EQ(ChunkOf(m_Wave),
              "NONLINEAR_WAVE node1\n"
              "{\n"
              "\tid 1\n"
              "\taffected 0 \n"
              "\tenvelope_weight 1\n"
              "\thandle 0\n"
              "\tmax_radius 1\n"
              "\tmin_radius 0\n"
              "\tamplitude 0\n"
              "\twavelength 1\n"
              "\tdropoff 0\n"
              "\tdropoff_position 0\n"
              "\toffset 0\n"
              "}\n");
    EXPECT_EQ(m_Wave.GetDataSize(), 14u + 5 + 8 + 32);
}

TEST_F(NonLinearWave, AnswersForItsFamily)
{
    for (const u32 type : {128u, 122u, 114u, 0u})
        EXPECT_EQ(m_Wave.HasFn(type), &m_Wave) << type;
    for (const u32 type : {123u, 127u, 86u})
        EXPECT_EQ(m_Wave.HasFn(type), nullptr) << type;
    EXPECT_EQ(m_Wave.GetApiType(), 128u);
}

TEST_F(NonLinearWave, TextReadsBackWithRadiiUnswapped)
{
    EXPECT_TRUE(ReadText(m_Wave, kText));
    EXPECT_EQ(TextOf(m_Wave), kText);
    EXPECT_EQ(m_Wave.GetMaxRadius(), 5);
    EXPECT_EQ(m_Wave.GetMinRadius(), 6);
    EXPECT_EQ(m_Wave.GetAmplitude(), 7);
    EXPECT_EQ(m_Wave.GetWavelength(), 8);
    EXPECT_EQ(m_Wave.GetDropoff(), 9);
    EXPECT_EQ(m_Wave.GetDropoffPosition(), 10);
    EXPECT_EQ(m_Wave.GetOffset(), 11);
}

TEST_F(NonLinearWave, BytesReadBackWithRadiiUnswapped)
{
    EXPECT_TRUE(ReadBody(m_Wave, Bytes(kBytes)));
    EXPECT_EQ(TextOf(m_Wave), kText);
    EXPECT_EQ(Hex(BodyOf(m_Wave)), kBytes);
}

TEST_F(NonLinearWave, SettersReachTheirFields)
{
    ASSERT_TRUE(ReadText(m_Wave, Replaced(kText, "handle 4", "handle 0")));
    XNonLinearWave& other = New();
    EXPECT_TRUE(ReadText(other, Replaced(TextOf(other), "affected 0", "affected 2 1 2")));
    other.SetEnvelopeWeight(3);
    other.SetMaxRadius(5);
    other.SetMinRadius(6);
    other.SetAmplitude(7);
    other.SetWavelength(8);
    other.SetDropoff(9);
    other.SetDropoffPosition(10);
    other.SetOffset(11);
    EXPECT_EQ(TextOf(other), TextOf(m_Wave));
}

TEST_F(NonLinearWave, OnlyTheWeightOfTheDeformerIsGated)
{
    MakeOlder();
    XNonLinearWave& text = New();
    EXPECT_TRUE(ReadText(text, Replaced(kText, "\tenvelope_weight 3\n", "")));
    EXPECT_EQ(TextOf(text), Replaced(kText, "weight 3", "weight 1"));
    XNonLinearWave& bytes = New();
    EXPECT_TRUE(ReadBody(bytes, Bytes(Replaced(kBytes, "00 00 40 40 ", ""))));
    EXPECT_EQ(TextOf(bytes), Replaced(kText, "weight 3", "weight 1"));
}

TEST_F(NonLinearWave, WrongKeysAreLoggedWithTheFamilysName)
{
    const char* const keys[] = {"max_radius", "min_radius",       "amplitude", "wavelength",
                                "dropoff",    "dropoff_position", "offset"};
    int row = 0;
    for (const std::string key : keys) {
        m_Log.Clear();
        EXPECT_FALSE(ReadText(New(), Replaced(kText, "\t" + key + " ", "\tWrong ")));
        EXPECT_EQ(m_Log.Text(), "Error : Expected " + key + " got wrong [.\\src\\VKT\\NonLinearDeformer:" +
                                    std::to_string(++row) + "]\n");
    }
    m_Log.Clear();
    EXPECT_FALSE(ReadText(New(), Replaced(kText, "handle", "grip")));
    EXPECT_EQ(m_Log.Text(), "Error : Expected handle got grip [.\\src\\VKT\\NonLinearDeformer:1]\n");
}

TEST_F(NonLinearWave, EveryCutOfTheBytesFails)
{
    const std::string bytes = Bytes(kBytes);
    for (std::size_t length = 0; length < bytes.size(); ++length)
        EXPECT_FALSE(ReadBody(New(), bytes.substr(0, length))) << length;
}

TEST_F(NonLinearWave, HandleIsABoneOrNone)
{
    XBone& bone = *m_Model.CreateNode<XBone>();
    EXPECT_EQ(m_Wave.GetHandle(), nullptr);
    m_Wave.SetHandle(&bone);
    EXPECT_EQ(m_Wave.GetHandle(), &bone);
    m_Wave.SetHandle(nullptr);
    EXPECT_EQ(m_Wave.GetHandle(), nullptr);
    ASSERT_TRUE(ReadText(m_Wave, Replaced(kText, "handle 4", "handle 1")));  // a wave
    EXPECT_EQ(m_Wave.GetHandle(), nullptr);
    XBase* handle = &bone;
    EXPECT_TRUE(m_Wave.GetNodeProperties()->GetNode(&m_Wave, 3, handle));
    EXPECT_EQ(handle, nullptr);
}

TEST_F(NonLinearWave, DeathOfTheHandleLeavesTheDeformer)
{
    XBone& bone = *m_Model.CreateNode<XBone>();
    XPolygonMesh& mesh = *m_Model.CreateNode<XPolygonMesh>();
    m_Wave.SetHandle(&bone);
    m_Wave.AddAffected(&mesh);
    EXPECT_TRUE(m_Wave.NodeDeath(bone.GetID()));
    EXPECT_EQ(TextOf(m_Wave).find("\thandle 0\n"), TextOf(m_Wave).find("\thandle"));
    EXPECT_FALSE(m_Wave.NodeDeath(mesh.GetID()));
}

TEST_F(NonLinearWave, CloneHasAllValues)
{
    ASSERT_TRUE(ReadText(m_Wave, kText));
    EXPECT_EQ(TextOf(*m_Wave.Clone()), kText);
}

TEST_F(NonLinearWave, PropertiesReachTheFields)
{
    XBone& bone = *m_Model.CreateNode<XBone>();
    const XNodeProperties& properties = *m_Wave.GetNodeProperties();
    EXPECT_TRUE(properties.SetNode(&m_Wave, 3, &bone));
    for (u32 id = 4; id <= 10; ++id)
        EXPECT_TRUE(properties.SetFloat(&m_Wave, id, static_cast<f32>(id)));
    EXPECT_EQ(m_Wave.GetHandle(), &bone);
    EXPECT_EQ(m_Wave.GetMinRadius(), 4);
    EXPECT_EQ(m_Wave.GetMaxRadius(), 5);
    EXPECT_EQ(m_Wave.GetAmplitude(), 6);
    EXPECT_EQ(m_Wave.GetWavelength(), 7);
    EXPECT_EQ(m_Wave.GetDropoff(), 8);
    EXPECT_EQ(m_Wave.GetDropoffPosition(), 9);
    EXPECT_EQ(m_Wave.GetOffset(), 10);
    XBase* handle = nullptr;
    EXPECT_TRUE(properties.GetNode(&m_Wave, 3, handle));
    EXPECT_EQ(handle, &bone);
    XModel other;
    EXPECT_FALSE(properties.SetNode(&m_Wave, 3, &m_Wave));
    EXPECT_FALSE(properties.SetNode(&m_Wave, 3, other.CreateNode(kFnBone)));
    EXPECT_EQ(m_Wave.GetHandle(), &bone);
    EXPECT_TRUE(properties.SetNode(&m_Wave, 3, nullptr));
    EXPECT_EQ(m_Wave.GetHandle(), nullptr);
}

}  // namespace
