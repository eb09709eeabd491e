#include "VKT/hierarchy/Joint.h"

#include "VKT/support/NodeTest.h"

using namespace VKT;
using namespace VKT::Test;

namespace {

class Joint : public NodeTest {
protected:
    XJoint& New() { return *m_Model.CreateNode<XJoint>(); }
};

TEST_F(Joint, OneLineBehindThoseOfABone)
{
    const std::string bone = TextOf(*m_Model.CreateNode(kFnBone));
    XJoint& joint = New();
    EXPECT_EQ(TextOf(joint), bone + "\tsegment_scale_compensate 1\n");
    EXPECT_TRUE(ChunkOf(joint).starts_with("JOINT node2\n{\n\tid 2\n\tvisible\t1\n"));
    joint.SetSegmentScaleCompensate(false);
    EXPECT_EQ(TextOf(joint), bone + "\tsegment_scale_compensate 0\n");
}

TEST_F(Joint, TextReadsBack)
{
    XJoint& joint = New();
    const std::string text = Replaced(TextOf(joint), "compensate 1", "compensate 0");
    EXPECT_TRUE(ReadText(joint, text));
    EXPECT_FALSE(joint.GetSegmentScaleCompensate());
    EXPECT_EQ(TextOf(joint), text);
}

TEST_F(Joint, WrongKeyIsLogged)
{
    XJoint& joint = New();
    EXPECT_FALSE(ReadText(joint, Replaced(TextOf(joint), "segment_scale_compensate", "compensate")));
    EXPECT_EQ(m_Log.Text(),
              "Error : Expected segment_scale_compensate got compensate [.\\src\\VKT\\Joint:1]\n");
}

TEST_F(Joint, OneByteBehindThoseOfABone)
{
    XJoint& joint = New();
    const std::string on = BodyOf(joint);
    EXPECT_EQ(on.back(), '\1');
    EXPECT_EQ(joint.GetDataSize(), 14u + 5 + 310 + 1);
    joint.SetSegmentScaleCompensate(false);
    const std::string off = BodyOf(joint);
    EXPECT_EQ(off.back(), '\0');
    EXPECT_EQ(off.substr(0, off.size() - 1), on.substr(0, on.size() - 1));
    XJoint& other = New();
    EXPECT_TRUE(ReadBody(other, off));
    EXPECT_FALSE(other.GetSegmentScaleCompensate());
    EXPECT_FALSE(ReadBody(other, off.substr(0, off.size() - 1)));
}

TEST_F(Joint, OlderFilesDoNotHoldIt)
{
    std::string text = TextOf(New());
    std::string bytes = BodyOf(New());
    text.erase(text.find("\trotation_order"), text.find("\tparent") - text.find("\trotation_order"));
    text = Replaced(text, "\tsegment_scale_compensate 1\n", "");
    // From the rotation order to the scale limits, and the last byte.
    bytes.erase(2 + 5 + 4 + 185, 4 + 1 + 36 + 72);
    bytes.pop_back();
    MakeOlder();
    EXPECT_TRUE(ReadText(New(), text));
    XJoint& joint = New();
    joint.SetSegmentScaleCompensate(false);
    EXPECT_TRUE(ReadBody(joint, bytes));
    EXPECT_FALSE(joint.GetSegmentScaleCompensate());
    // A write of whatever version has the byte.
    joint.SetSegmentScaleCompensate(true);
    EXPECT_EQ(BodyOf(joint), bytes + '\1');
}

TEST_F(Joint, PropertyIsTheField)
{
    XJoint& joint = New();
    EXPECT_TRUE(joint.GetNodeProperties()->SetBool(&joint, 56, false));
    EXPECT_FALSE(joint.GetSegmentScaleCompensate());
    bool compensates = true;
    EXPECT_TRUE(joint.GetNodeProperties()->GetBool(&joint, 56, compensates));
    EXPECT_FALSE(compensates);
}

}  // namespace
