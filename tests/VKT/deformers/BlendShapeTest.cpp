#include "VKT/deformers/BlendShape.h"

#include "VKT/geometry/PolygonMesh.h"
#include "VKT/hierarchy/Bone.h"
#include "VKT/support/NodeTest.h"

using namespace VKT;
using namespace VKT::Test;

namespace {

class BlendShape : public NodeTest {
protected:
    XBlendShape& New() { return *m_Model.CreateNode<XBlendShape>(); }
    XBlendShape& m_Shape = New();
    XPolygonMesh& m_Base = *m_Model.CreateNode<XPolygonMesh>();
    XPolygonMesh& m_Smile = *m_Model.CreateNode<XPolygonMesh>();
};

constexpr const char kText[] =
    "\taffected 1 2\n"
    "\tenvelope_weight 0.5\n"
    "\tnum_shapes 2\n"
    "\tsmile 3 0.25\n"
    "\t\tpoints 2\n"
    "\t\t1 2 3\n"
    "\t\t4 5 6\n"
    "\tfrown 7 0.75\n"
    "\t\tpoints 1\n"
    "\t\t8 9 10\n";
constexpr const char kBytes[] =
    "05 00 6e 6f 64 65 31 01 00 00 00 01 00 00 00 02 00 00 00 00 00 00 3f "
    "02 00 00 00 "
    "05 00 73 6d 69 6c 65 03 00 00 00 00 00 80 3e 02 00 00 00 "
    "00 00 80 3f 00 00 00 40 00 00 40 40 00 00 80 40 00 00 a0 40 00 00 c0 40 "
    "05 00 66 72 6f 77 6e 07 00 00 00 00 00 40 3f 01 00 00 00 "
    "00 00 00 41 00 00 10 41 00 00 20 41";
// Below version 4: all names, and then the points of each target.
constexpr const char kOldText[] =
    "\taffected 1 2\n"
    "\tnum_shapes 2\n"
    "\tsmile\n"
    "\t\tpoints 2\n"
    "\t\t1 2 3\n"
    "\t\t4 5 6\n"
    "\tfrown\n"
    "\t\tpoints 1\n"
    "\t\t8 9 10\n";
constexpr const char kOldBytes[] =
    "05 00 6e 6f 64 65 31 01 00 00 00 01 00 00 00 02 00 00 00 "
    "02 00 00 00 05 00 73 6d 69 6c 65 05 00 66 72 6f 77 6e "
    "02 00 00 00 "
    "02 00 00 00 00 00 80 3f 00 00 00 40 00 00 40 40 00 00 80 40 00 00 a0 40 00 00 c0 40 "
    "01 00 00 00 00 00 00 41 00 00 10 41 00 00 20 41";
constexpr const char kTextFromOld[] =
    "\taffected 1 2\n"
    "\tenvelope_weight 1\n"
    "\tnum_shapes 2\n"
    "\tsmile 0 0\n"
    "\t\tpoints 2\n"
    "\t\t1 2 3\n"
    "\t\t4 5 6\n"
    "\tfrown 0 0\n"
    "\t\tpoints 1\n"
    "\t\t8 9 10\n";

TEST_F(BlendShape, FreshOneWritesItsDefaults)
{
    EXPECT_EQ(ChunkOf(m_Shape),
              "BLEND_SHAPE node1\n"
              "{\n"
              "\tid 1\n"
              "\taffected 0 \n"
              "\tenvelope_weight 1\n"
              "\tnum_shapes 0\n"
              "}\n");
    EXPECT_EQ(m_Shape.GetDataSize(), 14u + 5 + 8 + 4);
    EXPECT_EQ(m_Shape.HasFn(114), &m_Shape);
}

TEST_F(BlendShape, BothFormsReadBack)
{
    EXPECT_TRUE(ReadText(m_Shape, kText));
    EXPECT_EQ(TextOf(m_Shape), kText);
    EXPECT_EQ(Hex(BodyOf(m_Shape)), kBytes);
    EXPECT_EQ(m_Shape.GetDataSize(), 14u + 5 + 8 + 4 + 4 + 2 * (14 + 5) + 3 * 12);
    XBlendShape& other = New();
    EXPECT_TRUE(ReadBody(other, Bytes(kBytes)));
    EXPECT_EQ(TextOf(other), kText);
    EXPECT_TRUE(ReadBody(other, Bytes(kBytes)));  // a read replaces the targets
    EXPECT_EQ(TextOf(other), kText);
}

TEST_F(BlendShape, OlderFormsHaveNeitherIdsNorWeights)
{
    MakeOlder();
    XBlendShape& text = New();
    EXPECT_TRUE(ReadText(text, kOldText));
    EXPECT_EQ(TextOf(text), kTextFromOld);
    XBlendShape& bytes = New();
    EXPECT_TRUE(ReadBody(bytes, Bytes(kOldBytes)));
    EXPECT_EQ(TextOf(bytes), kTextFromOld);
    EXPECT_EQ(Hex(BodyOf(bytes)), kOldBytes);
    EXPECT_EQ(bytes.GetDataSize(), 14u + 5 + 8 + 4 + 4 + 2 * (14 + 5) + 3 * 12);  // that of a save
    const std::string old = Bytes(kOldBytes);
    for (std::size_t length = 0; length < old.size(); ++length)
        EXPECT_FALSE(ReadBody(New(), old.substr(0, length))) << length;
}

TEST_F(BlendShape, OlderTargetWithoutANameHasNone)
{
    MakeOlder();
    XBlendShape& shape = New();
    EXPECT_TRUE(ReadBody(shape, Bytes("00 00 00 00 00 00 00 00 00 00 "
                                      "01 00 00 00 01 00 61 "
                                      "02 00 00 00 00 00 00 00 00 00 00 00")));
    XString name;
    EXPECT_TRUE(shape.GetTargetName(0, name));
    EXPECT_EQ(name, "a");
    EXPECT_TRUE(shape.GetTargetName(1, name));
    EXPECT_EQ(name, "");
}

TEST_F(BlendShape, WrongKeysAreLogged)
{
    EXPECT_FALSE(ReadText(New(), Replaced(kText, "num_shapes", "shapes")));
    XBlendShape& shape = New();
    EXPECT_FALSE(ReadText(shape, Replaced(kText, "points 1", "vertices 1")));
    EXPECT_EQ(m_Log.Text(),
              "Error : Expected num_shapes got shapes [.\\src\\VKT\\BlendShape:1]\n"
              "Error : Expected points got vertices [.\\src\\VKT\\BlendShape:2]\n");
    EXPECT_EQ(shape.GetNumTargets(), 2u);  // what was read stays
    EXPECT_EQ(shape.GetWeight(1), 0.75f);
}

// At the key behind them, which the last point has none of.
TEST_F(BlendShape, NumbersThatAreNoneAreLogged)
{
    const char* const message = "Error : Expected points got  [.\\src\\VKT\\BlendShape:2]\n";
    for (const char* const what : {"3 0.25", "0.25", "2\n\t\t1", "1 2 3", "4 5 6", "7 0.75"}) {
        m_Log.Clear();
        XBlendShape& shape = New();
        EXPECT_FALSE(ReadText(shape, Replaced(kText, what, "x"))) << what;
        EXPECT_EQ(m_Log.Text(), message) << what;
    }
    m_Log.Clear();
    EXPECT_FALSE(ReadText(New(), Replaced(kText, "8 9 10", "8 x 10")));
    EXPECT_EQ(m_Log.Text(), "");
}

TEST_F(BlendShape, ClaimsThatCannotBeTrueFail)
{
    EXPECT_FALSE(ReadText(New(), Replaced(kText, "num_shapes 2", "num_shapes 4294967295")));
    XBlendShape& shape = New();
    EXPECT_FALSE(ReadText(shape, Replaced(kText, "points 2", "points 4294967295")));
    EXPECT_LT(shape.GetTargetRecord(0)->m_Points.capacity(), 100u);
    EXPECT_FALSE(ReadBody(New(), Bytes("00 00 00 00 00 00 00 00 00 00 00 00 00 00 ff ff ff ff")));
    const std::string bytes = Bytes(kBytes);
    for (std::size_t length = 0; length < bytes.size(); ++length)
        EXPECT_FALSE(ReadBody(New(), bytes.substr(0, length))) << length;
}

TEST_F(BlendShape, BaseIsTheOnlyGeometryAffected)
{
    EXPECT_EQ(m_Shape.GetBase(), nullptr);
    m_Shape.AddAffected(&m_Smile);
    m_Shape.AddAffected(&m_Base);
    EXPECT_TRUE(m_Shape.SetBase(&m_Base));
    EXPECT_EQ(m_Shape.GetNumAffected(), 1u);
    EXPECT_EQ(m_Shape.GetBase(), &m_Base);
    XModel other;
    EXPECT_FALSE(m_Shape.SetBase(nullptr));
    EXPECT_FALSE(m_Shape.SetBase(m_Model.CreateNode<XBone>()));
    EXPECT_FALSE(m_Shape.SetBase(other.CreateNode<XPolygonMesh>()));
    EXPECT_EQ(m_Log.Text(), "");
    EXPECT_EQ(m_Shape.GetBase(), &m_Base);
    ASSERT_TRUE(ReadText(m_Shape, Replaced(kText, "affected 1 2", "affected 1 99")));
    EXPECT_EQ(m_Shape.GetBase(), nullptr);
}

TEST_F(BlendShape, TargetsAreAddedOnceByName)
{
    EXPECT_TRUE(m_Shape.AddTarget({{1, 2, 3, 0}, {4, 5, 6, 0}}, "smile"));
    EXPECT_TRUE(m_Shape.AddTarget({{8, 9, 10, 0}}, "frown"));
    EXPECT_FALSE(m_Shape.AddTarget({}, "smile"));
    EXPECT_EQ(m_Log.Text(), "");
    EXPECT_EQ(m_Shape.GetNumTargets(), 2u);
    m_Shape.SetBase(&m_Base);
    EXPECT_EQ(TextOf(m_Shape), kTextFromOld);
    XString name = "kept";
    EXPECT_FALSE(m_Shape.GetTargetName(2, name));
    EXPECT_EQ(name, "kept");
    EXPECT_TRUE(m_Shape.GetTargetName(1, name));
    EXPECT_EQ(name, "frown");
    m_Shape.SetWeight(1, 0.5f);
    m_Shape.SetWeight(2, 0.5f);
    EXPECT_EQ(m_Shape.GetWeight(0), 0);
    EXPECT_EQ(m_Shape.GetWeight(1), 0.5f);
    EXPECT_EQ(m_Shape.GetWeight(2), 0);
    EXPECT_EQ(m_Shape.GetTargetRecord(0)->m_Points.size(), 2u);
    EXPECT_EQ(m_Shape.GetTargetRecord(2), nullptr);
    EXPECT_EQ(static_cast<const XBlendShape&>(m_Shape).GetTargetRecord(2), nullptr);
}

TEST_F(BlendShape, TargetIsFoundByIdOrElseByName)
{
    m_Smile.SetName("smile");
    m_Shape.AddTarget({}, "smile");
    EXPECT_EQ(m_Shape.GetTarget(0), &m_Smile);  // id 0
    XBlendTarget& target = *m_Shape.GetTargetRecord(0);
    target.m_TargetId = 99;
    EXPECT_EQ(m_Shape.GetTarget(0), &m_Smile);  // an id that the document lost
    target.m_TargetId = m_Base.GetID();
    EXPECT_EQ(m_Shape.GetTarget(0), &m_Base);
    target.m_TargetId = m_Shape.GetID();
    EXPECT_EQ(m_Shape.GetTarget(0), nullptr);  // no geometry
    target = {0, {}, "nobody", 0};
    EXPECT_EQ(m_Shape.GetTarget(0), nullptr);
    EXPECT_EQ(m_Shape.GetTarget(1), nullptr);
}

TEST_F(BlendShape, NameThatIsNoWordIsWrittenAsOneWithAWarning)
{
    m_Shape.AddTarget({}, "big smile");
    EXPECT_NE(TextOf(m_Shape).find("\tbig_smile 0 0\n"), std::string::npos);
    EXPECT_EQ(m_Log.Text(),
              "Warning : the name \"big smile\" is written as big_smile: names in text files are one word\n");
    XBlendShape& other = New();
    EXPECT_TRUE(ReadBody(other, BodyOf(m_Shape)));
    XString name;
    other.GetTargetName(0, name);
    EXPECT_EQ(name, "big smile");
}

TEST_F(BlendShape, CopyHasTargetsOfItsOwn)
{
    ASSERT_TRUE(ReadText(m_Shape, kText));
    XBlendShape& copy = *XCast<XBlendShape>(m_Shape.Clone());
    EXPECT_EQ(TextOf(copy), kText);
    copy.SetWeight(0, 1);
    EXPECT_EQ(TextOf(m_Shape), kText);
    m_Shape.DoCopy(&m_Shape);
    m_Shape.DoCopy(&m_Base);
    EXPECT_EQ(TextOf(m_Shape), kText);
    copy.AddTarget({}, "third");
    copy.DoCopy(&m_Shape);
    EXPECT_EQ(TextOf(copy), kText);
}

TEST_F(BlendShape, DeathOfATargetLeavesItsId)
{
    ASSERT_TRUE(ReadText(m_Shape, kText));
    EXPECT_TRUE(m_Shape.NodeDeath(3));
    EXPECT_EQ(TextOf(m_Shape), kText);
    EXPECT_FALSE(m_Shape.NodeDeath(2));
    std::set<u32> ids;
    m_Shape.PreDelete(ids);
    EXPECT_TRUE(ids.empty());
}

TEST_F(BlendShape, PropertiesReachTheTargets)
{
    const XNodeProperties& properties = *m_Shape.GetNodeProperties();
    EXPECT_EQ(properties.GetNumProperties(), 5u);
    for (const u32 id : {3u, 4u, 5u})
        EXPECT_EQ(properties.GetPropertyType(id), kPropertyFloatArray) << id;
    EXPECT_EQ(properties.GetPropertyFlags(3), kAnimatable);
    EXPECT_EQ(properties.GetPropertyFlags(4), kList);

    EXPECT_TRUE(properties.SetNode(&m_Shape, 5, &m_Base));
    EXPECT_FALSE(properties.SetNode(&m_Shape, 5, nullptr));
    XBase* base = nullptr;
    EXPECT_TRUE(properties.GetNode(&m_Shape, 5, base));
    EXPECT_EQ(base, &m_Base);

    m_Smile.SetName("smile");
    m_Smile.SetPoints({{1, 2, 3, 0}});
    EXPECT_TRUE(properties.SetNodeArray(&m_Shape, 4, {&m_Smile, &m_Base}));
    EXPECT_FALSE(properties.SetNodeArray(&m_Shape, 4, {&m_Smile, nullptr}));
    EXPECT_EQ(m_Shape.GetNumTargets(), 2u);
    XNodeList targets;
    EXPECT_TRUE(properties.GetNodeArray(&m_Shape, 4, targets));
    EXPECT_EQ(targets, (XNodeList{&m_Smile, &m_Base}));
    EXPECT_TRUE(properties.SetFloatArray(&m_Shape, 3, {0.25f, 0.5f}));
    EXPECT_FALSE(properties.SetFloatArray(&m_Shape, 3, {1}));
    XFloatArray weights;
    EXPECT_TRUE(properties.GetFloatArray(&m_Shape, 3, weights));
    EXPECT_EQ(weights, (XFloatArray{0.25f, 0.5f}));
    EXPECT_EQ(TextOf(m_Shape),
              "\taffected 1 2\n"
              "\tenvelope_weight 1\n"
              "\tnum_shapes 2\n"
              "\tsmile 3 0.25\n"
              "\t\tpoints 1\n"
              "\t\t1 2 3\n"
              "\tnode2 2 0.5\n"
              "\t\tpoints 0\n");
    EXPECT_EQ(m_Log.Text(), "");
}

}  // namespace
