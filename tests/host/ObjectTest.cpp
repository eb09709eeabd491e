#include "HostTest.h"

#include "cs/bipexp.h"
#include "host/core/References.h"
#include "iskin.h"

namespace {

using maxhost::MakeNode;
using maxhost::MakeObject;

class ObjectTest : public HostTest {};

TEST_F(ObjectTest, ConversionToItsOwnTypeIsTheObjectItself)
{
    TriObject* tri = CreateNewTriObject();
    EXPECT_EQ(tri->ConvertToType(0, triObjectClassID), tri);
    EXPECT_TRUE(tri->IsSubClassOf(Class_ID(0x9, 0)));
    EXPECT_FALSE(tri->IsSubClassOf(polyObjectClassID));
    EXPECT_FALSE(tri->CanConvertToType(Class_ID(0x1030, 0)));
    EXPECT_EQ(tri->ConvertToType(0, Class_ID(0x1030, 0)), nullptr);
}

TEST_F(ObjectTest, EveryConversionOfAnotherTypeIsANewObject)
{
    PolyObject* poly = maxhost::MakeBox(Point3(1, 1, 1));
    Object* first = poly->ConvertToType(0, triObjectClassID);
    Object* second = poly->ConvertToType(0, triObjectClassID);
    EXPECT_NE(first, second);
    const std::size_t before = maxhost::SceneObjects::Count();
    first->DeleteMe();
    EXPECT_EQ(maxhost::SceneObjects::Count(), before - 1);
}

TEST_F(ObjectTest, BonesAndBipedPartsAreGeometryOfTheirOwnClass)
{
    for (const Class_ID& id : {BONE_OBJ_CLASSID, SKELOBJ_CLASS_ID, Class_ID(BOXOBJ_CLASS_ID, 0)}) {
        Object* object = MakeObject(GEOMOBJECT_CLASS_ID, id);
        ASSERT_NE(object, nullptr);
        EXPECT_EQ(object->SuperClassID(), 0x10u);
        EXPECT_TRUE(object->IsSubClassOf(id));
        EXPECT_FALSE(object->IsSubClassOf(triObjectClassID));
        ASSERT_TRUE(object->CanConvertToType(triObjectClassID));
        auto* tri = static_cast<TriObject*>(object->ConvertToType(0, triObjectClassID));
        EXPECT_EQ(tri->mesh.numFaces, 12);
    }
}

TEST_F(ObjectTest, OtherObjectsAreKnownByTheirSuperClass)
{
    const struct {
        SClass_ID superClass;
        ULONG classID;
    } known[] = {{HELPER_CLASS_ID, 0x876234}, {HELPER_CLASS_ID, 0x2013}, {CAMERA_CLASS_ID, 0x1001},
                 {LIGHT_CLASS_ID, 0x1011},    {SHAPE_CLASS_ID, 0xa},     {GEOMOBJECT_CLASS_ID, 0x1030}};
    for (const auto& one : known) {
        Object* object = MakeObject(one.superClass, Class_ID(one.classID, 0));
        ASSERT_NE(object, nullptr) << one.classID;
        EXPECT_EQ(object->SuperClassID(), one.superClass);
        EXPECT_TRUE(object->ClassID() == Class_ID(one.classID, 0));
        EXPECT_FALSE(object->CanConvertToType(triObjectClassID));
    }
    EXPECT_EQ(MakeObject(GEOMOBJECT_CLASS_ID, Class_ID(0x12345, 0x6789)), nullptr);
}

TEST_F(ObjectTest, AnObjectWithoutModifiersEvaluatesToItself)
{
    TriObject* tri = CreateNewTriObject();
    INode* node = MakeNode("n", tri);
    EXPECT_EQ(node->EvalWorldState(0).obj, tri);
    EXPECT_EQ(node->GetObjectRef(), tri);
}

// Moves all points, and notes what it met.
class MoveModifier final : public Modifier {
public:
    explicit MoveModifier(std::vector<const Modifier*>* order = nullptr, Point3 by = Point3(1, 0, 0))
        : m_Order(order), m_By(by)
    {
    }
    Class_ID ClassID() override { return Class_ID(0x7e57, 0x1); }
    void GetClassName(MSTR& name) override { name = "Move"; }
    RefResult NotifyRefChanged(Interval, RefTargetHandle, PartID&, RefMessage) override
    {
        return REF_SUCCEED;
    }
    void ModifyObject(TimeValue, ModContext& context, ObjectState* state, INode*) override
    {
        if (m_Order)
            m_Order->push_back(this);
        PolyObject* poly = static_cast<PolyObject*>(state->obj);
        for (int i = 0; i < poly->mm.numv; ++i)
            poly->mm.P(i) += context.tm ? VectorTransform(m_By, *context.tm) : m_By;
    }

private:
    std::vector<const Modifier*>* m_Order;
    Point3 m_By;
};

class StackTest : public HostTest {
protected:
    static Point3 CornerOf(INode& node, TimeValue t = 0)
    {
        return static_cast<PolyObject*>(node.EvalWorldState(t).obj)->mm.P(0);
    }
};

TEST_F(StackTest, IsWalkedFromTheTopDownToTheBaseObject)
{
    PolyObject* box = maxhost::MakeBox(Point3(2, 2, 2));
    INode* node = MakeNode("n", box);
    Modifier* skin = maxhost::AddModifier(*node, SKIN_CLASSID);
    Modifier* bend = maxhost::AddModifier(*node, Class_ID(0x10, 0));
    ASSERT_NE(skin, nullptr);

    Object* object = node->GetObjectRef();
    ASSERT_EQ(object->SuperClassID(), static_cast<SClass_ID>(GEN_DERIVOB_CLASS_ID));
    auto* derived = static_cast<IDerivedObject*>(object);
    ASSERT_EQ(derived->NumModifiers(), 2);
    EXPECT_EQ(derived->GetModifier(0), bend);
    EXPECT_EQ(derived->GetModifier(1), skin);
    EXPECT_EQ(derived->GetObjRef(), box);
    EXPECT_EQ(derived->FindBaseObject(), box);
    EXPECT_STREQ(bend->GetName().data(), "Bend");
    bend->SetName("My bend");
    EXPECT_STREQ(bend->GetName().data(), "My bend");
    EXPECT_NE(derived->GetModContext(0), nullptr);
    EXPECT_EQ(derived->GetModContext(0)->tm, nullptr);
}

TEST_F(StackTest, EvaluatesFromTheBottomUpAndSkipsWhatIsSwitchedOff)
{
    std::vector<const Modifier*> order;
    INode* node = MakeNode("n", maxhost::MakeBox(Point3(2, 2, 2)));
    Modifier* bottom = new MoveModifier(&order);
    Modifier* middle = new MoveModifier(&order);
    Modifier* top = new MoveModifier(&order);
    maxhost::AddModifier(*node, *bottom);
    maxhost::AddModifier(*node, *middle);
    maxhost::AddModifier(*node, *top);
    middle->DisableMod();
    ExpectNear(CornerOf(*node), Point3(1, -1, -1));
    EXPECT_EQ(order, (std::vector<const Modifier*>{bottom, top}));
    middle->EnableMod();
    ExpectNear(CornerOf(*node), Point3(2, -1, -1));
}

TEST_F(StackTest, KeepsTheBaseObjectUntouchedAndItsResultInOnePlace)
{
    PolyObject* box = maxhost::MakeBox(Point3(2, 2, 2));
    INode* node = MakeNode("n", box);
    Modifier* modifier = new MoveModifier;
    maxhost::AddModifier(*node, *modifier);
    Object* evaluated = node->EvalWorldState(0).obj;
    EXPECT_NE(evaluated, box);
    ExpectNear(box->mm.P(0), Point3(-1, -1, -1));

    for (TimeValue t : {0, 160, 320, 0})
        EXPECT_EQ(node->EvalWorldState(t).obj, evaluated);
    maxhost::AddModifier(*node, *new MoveModifier);
    EXPECT_EQ(node->EvalWorldState(0).obj, evaluated);
    ExpectNear(CornerOf(*node), Point3(1, -1, -1));
    static_cast<IDerivedObject*>(node->GetObjectRef())->DeleteModifier(0);
    EXPECT_EQ(node->EvalWorldState(0).obj, evaluated);
    ExpectNear(CornerOf(*node), Point3(0, -1, -1));
}

TEST_F(StackTest, AnAddressDoesNotComeBackAsAnotherObject)
{
    INode* node = MakeNode("n", maxhost::MakeBox(Point3(2, 2, 2)));
    maxhost::AddModifier(*node, SKIN_CLASSID);
    Object* first = node->EvalWorldState(0).obj;
    auto* derived = static_cast<IDerivedObject*>(node->GetObjectRef());
    derived->ReferenceObject(CreateNewTriObject());
    Object* second = node->EvalWorldState(0).obj;
    EXPECT_NE(second, first);
    EXPECT_TRUE(second->ClassID() == triObjectClassID);
    for (int i = 0; i < 100; ++i) {
        INode* other = MakeNode("n", maxhost::MakeBox(Point3(1, 1, 1)));
        maxhost::AddModifier(*other, SKIN_CLASSID);
        EXPECT_NE(other->EvalWorldState(0).obj, first);
    }
}

TEST_F(StackTest, InstancesShareOneEvaluatedObject)
{
    INode* node = MakeNode("n", maxhost::MakeBox(Point3(2, 2, 2)));
    maxhost::AddModifier(*node, SKIN_CLASSID);
    INode* instance = MakeNode("i", node->GetObjectRef());
    EXPECT_EQ(instance->EvalWorldState(0).obj, node->EvalWorldState(0).obj);
}

TEST_F(StackTest, SwitchedOffAltogetherItPassesTheBaseObjectOn)
{
    PolyObject* box = maxhost::MakeBox(Point3(2, 2, 2));
    INode* node = MakeNode("n", box);
    maxhost::AddModifier(*node, SKIN_CLASSID)->DisableMod();
    EXPECT_EQ(node->EvalWorldState(0).obj, box);
}

TEST_F(StackTest, GeometryMadeOfParametersIsTurnedIntoAMesh)
{
    INode* node = MakeNode("n", MakeObject(GEOMOBJECT_CLASS_ID, Class_ID(BOXOBJ_CLASS_ID, 0)));
    maxhost::AddModifier(*node, Class_ID(0x10, 0));
    Object* evaluated = node->EvalWorldState(0).obj;
    EXPECT_TRUE(evaluated->IsSubClassOf(triObjectClassID));
    EXPECT_EQ(node->EvalWorldState(160).obj, evaluated);
}

TEST_F(StackTest, WhatHasNoGeometryPassesThrough)
{
    Object* dummy = MakeObject(HELPER_CLASS_ID, dummyClassID);
    INode* node = MakeNode("n", dummy);
    maxhost::AddModifier(*node, Class_ID(0x10, 0));
    EXPECT_EQ(node->EvalWorldState(0).obj, dummy);
}

TEST_F(StackTest, DerivedObjectsCanBeChained)
{
    PolyObject* box = maxhost::MakeBox(Point3(2, 2, 2));
    IDerivedObject* lower = CreateDerivedObject(box);
    lower->AddModifier(new MoveModifier);
    IDerivedObject* upper = CreateDerivedObject(lower);
    upper->AddModifier(new MoveModifier(nullptr, Point3(0, 5, 0)));
    INode* node = MakeNode("n", upper);
    ExpectNear(CornerOf(*node), Point3(0, 4, -1));
    EXPECT_EQ(upper->FindBaseObject(), box);
    lower->GetModifier(0)->DisableMod();
    ExpectNear(CornerOf(*node), Point3(-1, 4, -1));
}

TEST_F(StackTest, AContextIsCopiedForItsModifier)
{
    INode* node = MakeNode("n", maxhost::MakeBox(Point3(2, 2, 2)));
    Matrix3 turn = RotateZMatrix(1.57079633f);
    ModContext context(&turn, nullptr, nullptr);
    maxhost::AddModifier(*node, *new MoveModifier, &context);
    ModContext* kept = static_cast<IDerivedObject*>(node->GetObjectRef())->GetModContext(0);
    ASSERT_NE(kept->tm, nullptr);
    EXPECT_NE(kept->tm, context.tm);
    ExpectNear(CornerOf(*node), Point3(-1, 0, -1));
}

TEST_F(StackTest, WhatItConvertsToBelongsToTheCaller)
{
    PolyObject* box = maxhost::MakeBox(Point3(2, 2, 2));
    INode* node = MakeNode("n", box);
    maxhost::AddModifier(*node, SKIN_CLASSID);
    Object* derived = node->GetObjectRef();
    ASSERT_TRUE(derived->CanConvertToType(polyObjectClassID));
    Object* converted = derived->ConvertToType(0, polyObjectClassID);
    EXPECT_NE(converted, node->EvalWorldState(0).obj);
    converted->DeleteMe();
    EXPECT_EQ(CornerOf(*node).x, -1.0f);
}

}  // namespace
