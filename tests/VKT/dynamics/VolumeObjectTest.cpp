#include "VKT/dynamics/VolumeObject.h"

#include <bit>

#include "VKT/dynamics/VolumeBox.h"
#include "VKT/dynamics/VolumeCone.h"
#include "VKT/dynamics/VolumeCylinder.h"
#include "VKT/dynamics/VolumeSphere.h"
#include "VKT/hierarchy/Bone.h"
#include "VKT/support/NodeTest.h"
#include "VKT/support/PropertyRows.h"

using namespace VKT;
using namespace VKT::Test;

namespace {

class VolumeObject : public NodeTest {};

// Fresh, filled, bytes, vocabulary.
struct Case {
    u32 type;
    std::string fresh;
    std::string filled;
    std::string bytes;
    std::string rows;
};

const Case kFamily[] = {
    {kFnVolumeBox, "\tx_size 1\n\ty_size 1\n\tz_size 1\n", "\tx_size 3\n\ty_size 4\n\tz_size 5\n",
     "00 00 40 40 00 00 80 40 00 00 a0 40",
     "3 properties\nx_size float 1 a\ny_size float 2 a\nz_size float 3 a\n"},
    {kFnVolumeCone, "\tangle 0.785398\n\tcap 1\n", "\tangle 3\n\tcap 4\n", "00 00 40 40 00 00 80 40",
     "2 properties\nangle float 1 a\ncap float 2 a\n"},
    {kFnVolumeCylinder, "\tradius 1\n\theight 1\n", "\tradius 3\n\theight 4\n", "00 00 40 40 00 00 80 40",
     "2 properties\nradius float 1 a\nheight float 2 a\n"},
    {kFnVolumeSphere, "\tradius 1\n", "\tradius 3\n", "00 00 40 40", "1 properties\nradius float 1 a\n"},
};

TEST_F(VolumeObject, FamilyReadsBackFromEitherForm)
{
    for (const Case& c : kFamily) {
        SCOPED_TRACE(XFnTypeName(c.type));
        XBase& node = *m_Model.CreateNode(c.type);
        EXPECT_EQ(TextOf(node), c.fresh);
        EXPECT_TRUE(ReadText(node, c.filled));
        EXPECT_EQ(TextOf(node), c.filled);
        const std::string head = BodyOf(node).substr(0, 6 + std::string(node.GetName()).size());
        EXPECT_EQ(BodyOf(node), head + Bytes(c.bytes));
        XBase& other = *m_Model.CreateNode(c.type);
        EXPECT_TRUE(ReadBody(other, BodyOf(node)));
        EXPECT_EQ(TextOf(other), c.filled);
        EXPECT_EQ(TextOf(*node.Clone()), c.filled);
        EXPECT_EQ(RowsOf(node.GetNodeProperties()), c.rows);
        XBase& named = *m_Model.CreateNode(c.type);
        SetProperties(named, c.filled);
        EXPECT_EQ(TextOf(named), c.filled);
        for (const u32 type : {c.type, 44u, 25u, 0u})
            EXPECT_EQ(node.HasFn(type), &node) << type;
        m_Log.Clear();
        EXPECT_FALSE(ReadText(node, "wrong"));
        EXPECT_TRUE(
            m_Log.Text().ends_with(" got wrong [.\\src\\VKT\\V" + XFnTypeName(c.type).substr(1) + ":1]\n"));
    }
}

TEST_F(VolumeObject, OlderFilesHoldTheSame)
{
    MakeOlder();
    XVolumeSphere sphere(&m_Model);
    EXPECT_TRUE(ReadText(sphere, "\tradius 3\n"));
    EXPECT_TRUE(ReadBody(sphere, Bytes("00 00 00 00 00 00 00 00 80 40")));
    EXPECT_EQ(sphere.GetRadius(), 4);
}

TEST_F(VolumeObject, TheBaseHasNoChunkAndAddsNothing)
{
    EXPECT_EQ(XFnChunkName(kFnVolumeObject), "");
    EXPECT_EQ(m_Model.CreateNode(kFnVolumeObject), nullptr);
    XVolumeObject object(&m_Model);
    EXPECT_EQ(TextOf(object), "");
    EXPECT_EQ(object.GetNodeProperties()->GetNumProperties(), 0u);
}

TEST_F(VolumeObject, SettersReachTheirFields)
{
    XVolumeBox box(&m_Model);
    box.SetXSize(3);
    box.SetYSize(4);
    box.SetZSize(5);
    EXPECT_EQ(TextOf(box), kFamily[0].filled);
    EXPECT_EQ(box.GetXSize() * 100 + box.GetYSize() * 10 + box.GetZSize(), 345);
    XVolumeCone cone(&m_Model);
    EXPECT_EQ(std::bit_cast<u32>(cone.GetAngle()), 0x3F490FD8u);
    cone.SetAngle(3);
    cone.SetCap(4);
    EXPECT_EQ(cone.GetAngle() * 10 + cone.GetCap(), 34);
    XVolumeCylinder cylinder(&m_Model);
    cylinder.SetRadius(3);
    cylinder.SetHeight(4);
    EXPECT_EQ(cylinder.GetRadius() * 10 + cylinder.GetHeight(), 34);
    XVolumeSphere sphere(&m_Model);
    EXPECT_TRUE(sphere.GetNodeProperties()->SetFloat(&sphere, 1, 3));
    EXPECT_EQ(sphere.GetRadius(), 3);
    sphere.SetRadius(5);
    EXPECT_EQ(sphere.GetRadius(), 5);
}

TEST_F(VolumeObject, DiesWithItsOnlyBone)
{
    XVolumeBox& box = *m_Model.CreateNode<XVolumeBox>();
    XBone& bone = *m_Model.CreateNode<XBone>();
    m_Model.CreateInstance(&bone, &box);
    EXPECT_FALSE(box.NodeDeath(bone.GetID()));
}

}  // namespace
