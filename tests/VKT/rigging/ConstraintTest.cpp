#include "VKT/rigging/Constraint.h"

#include "VKT/rigging/AimConstraint.h"
#include "VKT/rigging/GeometryConstraint.h"
#include "VKT/rigging/LookAtConstraint.h"
#include "VKT/rigging/NormalConstraint.h"
#include "VKT/rigging/OrientConstraint.h"
#include "VKT/rigging/ParentConstraint.h"
#include "VKT/rigging/PointConstraint.h"
#include "VKT/rigging/PoleVectorConstraint.h"
#include "VKT/rigging/ScaleConstraint.h"
#include "VKT/rigging/TangentConstraint.h"
#include "VKT/support/NodeTest.h"
#include "VKT/support/PropertyRows.h"

using namespace VKT;
using namespace VKT::Test;

namespace {

class Constraint : public NodeTest {
protected:
    // What a constraint stores behind the body of a bone.
    static std::string OwnText(const XBase& node)
    {
        const std::string text = TextOf(node);
        return text.substr(text.find("\taffected"));
    }
    std::string OwnBytes(XBase& node) { return Hex(std::string(BodyOf(node)).substr(BoneBytes(node))); }
    // Name, id and the fields of a bone without children and instances.
    std::size_t BoneBytes(const XBase& node)
    {
        XBone bone(&m_Model);
        return BodyOf(bone).size() + std::string(node.GetName()).size();
    }
    std::string BoneText()
    {
        XBone bone(&m_Model);
        return TextOf(bone);
    }

    XBone& m_Hand = *m_Model.CreateNode<XBone>();  // id 1
    XBone& m_Foot = *m_Model.CreateNode<XBone>();
    XBone& m_Head = *m_Model.CreateNode<XBone>();
    XParentConstraint m_Constraint{&m_Model};  // the class alone, of no document
};

constexpr const char kText[] =
    "\taffected 3\n"
    "\tnum_targets 2\n"
    "\t\t1 hand 0.25\n"
    "\t\t2 foot 2\n";
constexpr const char kBytes[] =
    "03 00 00 00 "
    "02 00 00 00 01 00 00 00 02 00 00 00 "
    "02 00 00 00 00 00 80 3e 00 00 00 40 "
    "02 00 00 00 04 00 68 61 6e 64 04 00 66 6f 6f 74";

TEST_F(Constraint, OneWithoutTargetsWritesACountAndNoLine)
{
    EXPECT_EQ(TextOf(m_Constraint), BoneText() + "\taffected 0\n\tnum_targets 0\n");
    EXPECT_EQ(OwnBytes(m_Constraint), "00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00");
    EXPECT_EQ(m_Constraint.GetNumTargets(), 0u);
    EXPECT_EQ(m_Constraint.GetConstrained(), nullptr);
}

TEST_F(Constraint, TextReadsBack)
{
    EXPECT_TRUE(ReadText(m_Constraint, BoneText() + kText));
    EXPECT_EQ(OwnText(m_Constraint), kText);
    EXPECT_EQ(m_Constraint.GetConstrained(), &m_Head);
    ASSERT_EQ(m_Constraint.GetNumTargets(), 2u);
    EXPECT_EQ(m_Constraint.GetTarget(1), &m_Foot);
    EXPECT_EQ(m_Constraint.GetTargetName(1), "foot");
    EXPECT_EQ(m_Constraint.GetWeight(0), 0.25f);
    EXPECT_TRUE(ReadText(m_Constraint, BoneText() + kText));  // replaces what was there
    EXPECT_EQ(OwnText(m_Constraint), kText);
}

TEST_F(Constraint, BytesReadBack)
{
    const std::string body = BodyOf(m_Constraint).substr(0, BoneBytes(m_Constraint)) + Bytes(kBytes);
    EXPECT_TRUE(ReadBody(m_Constraint, body));
    EXPECT_EQ(OwnText(m_Constraint), kText);
    EXPECT_EQ(OwnBytes(m_Constraint), kBytes);
    EXPECT_EQ(m_Constraint.GetDataSize(), 8 + body.size());
    EXPECT_EQ(m_Log.Text(), "");
    for (std::size_t length = BoneBytes(m_Constraint); length < body.size(); ++length)
        EXPECT_FALSE(ReadBody(m_Constraint, body.substr(0, length))) << length;
}

TEST_F(Constraint, OnlyTheBoneIsGated)
{
    MakeOlder();
    XPointConstraint point(&m_Model);
    const std::string full = TextOf(point);
    const std::size_t gated = full.find("\trotation_order");
    const std::string older = full.substr(0, gated) + full.substr(full.find("\tparent"));
    EXPECT_TRUE(ReadText(point, Replaced(older, "\toffset 0 0 0", "\toffset 1 2 3")));
    EXPECT_EQ(point.GetOffset(), (XVector3{1, 2, 3, 0}));
    XPointConstraint bytes(&m_Model);
    EXPECT_TRUE(ReadBody(bytes, BodyOf(point)));
    EXPECT_EQ(TextOf(bytes), TextOf(point));
}

TEST_F(Constraint, TargetsAreAddedAndReadByIndex)
{
    XParentConstraint& constraint = *m_Model.CreateNode<XParentConstraint>();
    constraint.SetConstrained(&m_Head);
    EXPECT_TRUE(constraint.AddTarget(&m_Hand, "hand", 0.25f));
    EXPECT_TRUE(constraint.AddTarget(&m_Foot, "foot", 1));
    EXPECT_TRUE(constraint.SetWeight(1, 2));
    EXPECT_EQ(OwnText(constraint), kText);

    XModel other;
    EXPECT_FALSE(constraint.AddTarget(nullptr, "", 1));
    EXPECT_FALSE(constraint.AddTarget(other.CreateNode(kFnBone), "", 1));
    EXPECT_FALSE(constraint.SetWeight(2, 1));
    EXPECT_EQ(constraint.GetTarget(2), nullptr);
    EXPECT_EQ(constraint.GetTargetName(2), "");
    EXPECT_EQ(constraint.GetWeight(2), 0);
    EXPECT_EQ(OwnText(constraint), kText);
    // Targets need not be transforms.
    EXPECT_TRUE(constraint.AddTarget(m_Model.CreateNode(kFnMesh), "mesh", 1));
    EXPECT_NE(constraint.GetTarget(2), nullptr);
    constraint.SetConstrained(nullptr);
    EXPECT_EQ(constraint.GetConstrained(), nullptr);
}

TEST_F(Constraint, DeathOfATargetClosesTheGap)
{
    XParentConstraint& constraint = *m_Model.CreateNode<XParentConstraint>();
    constraint.AddTarget(&m_Hand, "hand", 1);
    constraint.AddTarget(&m_Foot, "foot", 2);
    constraint.AddTarget(&m_Head, "head", 3);
    constraint.AddTarget(&m_Foot, "foot again", 4);
    constraint.SetConstrained(&m_Foot);
    EXPECT_TRUE(constraint.NodeDeath(m_Foot.GetID()));
    EXPECT_EQ(OwnText(constraint), "\taffected 0\n\tnum_targets 2\n\t\t1 hand 1\n\t\t3 head 3\n");
    EXPECT_TRUE(constraint.NodeDeath(99));
    EXPECT_EQ(constraint.GetNumTargets(), 2u);
}

TEST_F(Constraint, DeathAndDeletionAreThoseOfABone)
{
    XParentConstraint& constraint = *m_Model.CreateNode<XParentConstraint>();
    constraint.AddChild(&m_Hand);
    constraint.AddTarget(&m_Foot, "foot", 1);
    std::set<u32> ids;
    constraint.PreDelete(ids);
    EXPECT_EQ(ids, (std::set<u32>{m_Hand.GetID()}));
    constraint.NodeDeath(m_Hand.GetID());
    EXPECT_TRUE(constraint.GetChildIds().empty());
}

TEST_F(Constraint, NamesOfTargetsAreOneWordInText)
{
    m_Constraint.AddTarget(&m_Hand, "left hand", 1);
    m_Constraint.AddTarget(&m_Hand, "", 1);
    EXPECT_EQ(OwnText(m_Constraint), "\taffected 0\n\tnum_targets 2\n\t\t1 left_hand 1\n\t\t1 _ 1\n");
    EXPECT_EQ(m_Log.Text(),
              "Warning : the name \"left hand\" is written as left_hand: names in text files are one word\n"
              "Warning : the name \"\" is written as _: names in text files are one word\n");
}

TEST_F(Constraint, ListsOfADamagedFileAreMadeToMatch)
{
    XParentConstraint& constraint = *m_Model.CreateNode<XParentConstraint>();
    const std::string bone = BodyOf(constraint).substr(0, BoneBytes(constraint));
    const std::string bytes =
        Replaced(kBytes, "02 00 00 00 00 00 80 3e 00 00 00 40", "01 00 00 00 00 00 80 3e");
    EXPECT_TRUE(ReadBody(constraint, bone + Bytes(bytes)));
    EXPECT_EQ(m_Log.Text(), "Warning : constraint \"node4\" has 2 targets, but 1 weights and 2 names\n");
    EXPECT_EQ(OwnText(constraint), Replaced(kText, "foot 2", "foot 0"));
}

TEST_F(Constraint, WrongKeysAreLogged)
{
    EXPECT_FALSE(ReadText(m_Constraint, BoneText() + Replaced(kText, "affected", "effected")));
    EXPECT_FALSE(ReadText(m_Constraint, BoneText() + Replaced(kText, "num_targets", "targets")));
    EXPECT_EQ(m_Log.Text(),
              "Error : Expected affected got effected [.\\src\\VKT\\Constraint:1]\n"
              "Error : Expected num_targets got targets [.\\src\\VKT\\Constraint:2]\n");
}

TEST_F(Constraint, TargetsThatDoNotComeFail)
{
    for (const char* count : {"targets 3", "targets 4294967295", "targets x"})
        EXPECT_FALSE(ReadText(m_Constraint, BoneText() + Replaced(kText, "targets 2", count)));
    EXPECT_FALSE(ReadText(m_Constraint, BoneText() + Replaced(kText, "0.25", "much")));
}

// One class of the family: what it writes behind the constraint, fresh and filled, and its
// bytes.
struct Case {
    u32 type;
    std::vector<u32> family;
    std::string fresh;
    std::string filled;
    std::string bytes;
    const char* source;
    std::vector<std::string> keys;  // in the order of the source's rows
};

const std::string kAxes = "\taim_vector 1 0 0\n\tup_vector 0 1 0\n";
const std::string kFilledAxes = "\taim_vector 1 2 3\n\tup_vector 4 5 6\n";
const std::string kAxesBytes = "00 00 80 3f 00 00 00 40 00 00 40 40 00 00 80 40 00 00 a0 40 00 00 c0 40";
const std::string kOffset = "\toffset 0 0 0\n";
const std::string kFilledOffset = "\toffset 7 8 9\n";
const std::string kOffsetBytes = "00 00 e0 40 00 00 00 41 00 00 10 41";

const Case kFamily[] = {
    {kFnAimConstraint,
     {92, 91, 86},
     kAxes + kOffset,
     kFilledAxes + kFilledOffset,
     kAxesBytes + " " + kOffsetBytes,
     "AimConstraint",
     {"aim_vector", "up_vector", "offset"}},
    {kFnLookAtConstraint,
     {171, 92, 91, 86},
     kAxes + kOffset + "\tdistance_between 0\n\ttwist 0\n",
     kFilledAxes + kFilledOffset + "\tdistance_between 10\n\ttwist 11\n",
     kAxesBytes + " " + kOffsetBytes + " 00 00 20 41 00 00 30 41",
     "LookAtConstraint",
     {"distance_between", "twist"}},
    {kFnNormalConstraint,
     {94, 91, 86},
     kAxes,
     kFilledAxes,
     kAxesBytes,
     "NormalConstraint",
     {"aim_vector", "up_vector"}},
    {kFnTangentConstraint,
     {99, 91, 86},
     kAxes,
     kFilledAxes,
     kAxesBytes,
     "TangentConstraint",
     {"aim_vector", "up_vector"}},
    {kFnOrientConstraint, {95, 91, 86}, kOffset, kFilledOffset, kOffsetBytes, "OrientConstraint", {"offset"}},
    {kFnPointConstraint, {97, 91, 86}, kOffset, kFilledOffset, kOffsetBytes, "PointConstraint", {"offset"}},
    {kFnScaleConstraint, {98, 91, 86}, kOffset, kFilledOffset, kOffsetBytes, "ScaleConstraint", {"offset"}},
    {kFnPoleVectorConstraint,
     {172, 97, 91, 86},
     kOffset + "\tpivot_space\n\t\t1 0 0 0\n\t\t0 1 0 0\n\t\t0 0 1 0\n\t\t0 0 0 1\n",
     kFilledOffset + "\tpivot_space\n\t\t2 0 0 0\n\t\t0 3 0 0\n\t\t0 0 4 0\n\t\t5 6 7 1\n",
     kOffsetBytes + " 00 00 00 40 00 00 00 00 00 00 00 00 00 00 00 00"
                    " 00 00 00 00 00 00 40 40 00 00 00 00 00 00 00 00"
                    " 00 00 00 00 00 00 00 00 00 00 80 40 00 00 00 00"
                    " 00 00 a0 40 00 00 c0 40 00 00 e0 40 00 00 80 3f",
     "PoleVectorConstraint",
     {"pivot_space"}},
    {kFnGeometryConstraint, {93, 91, 86}, "", "", "", "", {}},
    {kFnParentConstraint, {96, 91, 86}, "", "", "", "", {}},
};

TEST_F(Constraint, FamilyReadsBackFromEitherForm)
{
    const std::string plain = "\taffected 0\n\tnum_targets 0\n";
    for (const Case& c : kFamily) {
        SCOPED_TRACE(XFnTypeName(c.type));
        XBase& node = *m_Model.CreateNode(c.type);
        for (const u32 type : c.family)
            EXPECT_EQ(node.HasFn(type), &node) << type;
        EXPECT_EQ(OwnText(node), plain + c.fresh);
        EXPECT_TRUE(ReadText(node, BoneText() + plain + c.filled));
        EXPECT_EQ(OwnText(node), plain + c.filled);
        EXPECT_EQ(OwnBytes(node), Hex(std::string(16, '\0')) + (c.bytes.empty() ? "" : " ") + c.bytes);
        XBase& other = *m_Model.CreateNode(c.type);
        EXPECT_TRUE(ReadBody(other, BodyOf(node)));
        EXPECT_EQ(TextOf(other), TextOf(node));
        EXPECT_EQ(TextOf(*node.Clone()), TextOf(node));
        int row = 0;
        for (const std::string& key : c.keys) {
            m_Log.Clear();
            EXPECT_FALSE(ReadText(other, BoneText() + plain + Replaced(c.filled, key, "wrong")));
            EXPECT_EQ(m_Log.Text(), "Error : Expected " + key + " got wrong [.\\src\\VKT\\" + c.source + ":" +
                                        std::to_string(++row) + "]\n");
        }
    }
}

TEST_F(Constraint, CloneHasTargetsToo)
{
    XParentConstraint& constraint = *m_Model.CreateNode<XParentConstraint>();
    ASSERT_TRUE(ReadText(constraint, BoneText() + kText));
    EXPECT_EQ(OwnText(*constraint.Clone()), kText);
    constraint.DoCopy(&constraint);
    constraint.DoCopy(&m_Hand);
    EXPECT_EQ(OwnText(constraint), kText);
}

TEST_F(Constraint, Vocabulary)
{
    EXPECT_EQ(RowsOf(XConstraint::ClassProperties()),
              "58 properties\n"
              "weights floats 56 a\n"
              "targets nodes 57 l of 86\n"
              "constrained node 58 of 86\n");
    const std::string axes = "aim_vector vector 59\nup_vector vector 60\n";
    const std::string offset = "59 properties\noffset vector 59 a\n";
    EXPECT_EQ(RowsOf(XAimConstraint::ClassProperties()),
              "61 properties\noffset vector 59 a\naim_vector vector 60\nup_vector vector 61\n");
    EXPECT_EQ(RowsOf(XLookAtConstraint::ClassProperties()),
              "64 properties\ndistance_between float 62 a\ntwist float 63 a\n");  // of 63 rows
    EXPECT_EQ(RowsOf(XNormalConstraint::ClassProperties()), "60 properties\n" + axes);
    EXPECT_EQ(RowsOf(XTangentConstraint::ClassProperties()), "60 properties\n" + axes);
    EXPECT_EQ(RowsOf(XOrientConstraint::ClassProperties()), offset);
    EXPECT_EQ(RowsOf(XPointConstraint::ClassProperties()), offset);
    EXPECT_EQ(RowsOf(XScaleConstraint::ClassProperties()), offset);
    EXPECT_EQ(RowsOf(XPoleVectorConstraint::ClassProperties()), "60 properties\npivot_space matrix 60\n");
    EXPECT_EQ(XGeometryConstraint::ClassProperties(), XConstraint::ClassProperties());
    EXPECT_EQ(XParentConstraint::ClassProperties(), XConstraint::ClassProperties());
}

TEST_F(Constraint, WeightsMustMatchTheTargets)
{
    XParentConstraint& constraint = *m_Model.CreateNode<XParentConstraint>();
    const XNodeProperties& properties = *constraint.GetNodeProperties();
    constraint.AddTarget(&m_Hand, "hand", 1);
    EXPECT_TRUE(properties.SetFloatArray(&constraint, 56, {0.5f}));
    for (const XFloatArray& weights : {XFloatArray{1, 2}, XFloatArray{}}) {
        m_Log.Clear();
        EXPECT_FALSE(properties.SetFloatArray(&constraint, 56, weights));
        EXPECT_EQ(m_Log.Text(),
                  "Error : Number of target weights is not equal to the number of targets - node4.weights\n");
    }
    XFloatArray weights;
    EXPECT_TRUE(properties.GetFloatArray(&constraint, 56, weights));
    EXPECT_EQ(weights, (XFloatArray{0.5f}));
}

TEST_F(Constraint, PropertiesReachTargetsAndConstrained)
{
    XParentConstraint& constraint = *m_Model.CreateNode<XParentConstraint>();
    const XNodeProperties& properties = *constraint.GetNodeProperties();
    constraint.AddTarget(&m_Hand, "hand", 0.5f);
    EXPECT_TRUE(properties.SetNodeArray(&constraint, 57, {&m_Foot, &m_Hand}));
    EXPECT_TRUE(properties.SetNode(&constraint, 58, &m_Head));
    EXPECT_EQ(constraint.GetConstrained(), &m_Head);
    EXPECT_EQ(constraint.GetTarget(0), &m_Foot);
    EXPECT_EQ(constraint.GetTargetName(0), "hand");
    EXPECT_EQ(constraint.GetWeight(0), 0.5f);
    EXPECT_EQ(constraint.GetTargetName(1), "");
    EXPECT_EQ(constraint.GetWeight(1), 1);
    XNodeList targets;
    EXPECT_TRUE(properties.GetNodeArray(&constraint, 57, targets));
    EXPECT_EQ(targets, (XNodeList{&m_Foot, &m_Hand}));
    XBase* constrained = nullptr;
    EXPECT_TRUE(properties.GetNode(&constraint, 58, constrained));
    EXPECT_EQ(constrained, &m_Head);

    XModel other;
    EXPECT_FALSE(properties.SetNodeArray(&constraint, 57, {nullptr}));
    EXPECT_FALSE(properties.SetNodeArray(&constraint, 57, {other.CreateNode(kFnBone)}));
    EXPECT_FALSE(properties.SetNode(&constraint, 58, other.CreateNode(kFnBone)));
    EXPECT_EQ(constraint.GetNumTargets(), 2u);
    EXPECT_TRUE(properties.SetNode(&constraint, 58, nullptr));
    EXPECT_EQ(constraint.GetConstrained(), nullptr);
}

TEST_F(Constraint, SettersReachTheirFields)
{
    const XVector3 aim{1, 2, 3, 0};
    const XVector3 up{4, 5, 6, 0};
    const XVector3 offset{7, 8, 9, 0};
    XLookAtConstraint lookAt(&m_Model);
    lookAt.SetAimVector(aim);
    lookAt.SetUpVector(up);
    lookAt.SetOffset(offset);
    lookAt.SetDistanceBetween(10);
    lookAt.SetTwist(11);
    EXPECT_EQ(OwnText(lookAt), "\taffected 0\n\tnum_targets 0\n" + kFamily[1].filled);
    EXPECT_EQ(lookAt.GetAimVector(), aim);
    EXPECT_EQ(lookAt.GetUpVector(), up);
    EXPECT_EQ(lookAt.GetOffset(), offset);
    EXPECT_EQ(lookAt.GetDistanceBetween(), 10);
    EXPECT_EQ(lookAt.GetTwist(), 11);
    XNormalConstraint normal(&m_Model);
    XTangentConstraint tangent(&m_Model);
    normal.SetAimVector(aim);
    normal.SetUpVector(up);
    tangent.SetAimVector(normal.GetAimVector());
    tangent.SetUpVector(normal.GetUpVector());
    EXPECT_EQ(OwnText(tangent), "\taffected 0\n\tnum_targets 0\n" + kFilledAxes);
    XOrientConstraint orient(&m_Model);
    XScaleConstraint scale(&m_Model);
    XPoleVectorConstraint pole(&m_Model);
    orient.SetOffset(offset);
    scale.SetOffset(orient.GetOffset());
    pole.SetOffset(scale.GetOffset());
    XMatrix space = pole.GetPivotSpace();
    space[12] = 5;
    pole.SetPivotSpace(space);
    EXPECT_EQ(OwnText(pole), "\taffected 0\n\tnum_targets 0\n" + kFilledOffset +
                                 "\tpivot_space\n\t\t1 0 0 0\n\t\t0 1 0 0\n\t\t0 0 1 0\n\t\t5 0 0 1\n");
}

}  // namespace
