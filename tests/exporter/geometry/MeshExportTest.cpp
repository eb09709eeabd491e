#include "exporter/geometry/MeshExport.h"

#include <gmock/gmock.h>
#include <modstack.h>

#include "exporter/walk/SceneWalk.h"
#include "scenes/ExportScenes.h"

namespace VKTMax {
namespace {

using namespace export_scenes;
using maxhost::MakeNode;
using Names = std::vector<std::string>;

const Class_ID kSkinClass(0x95C723, 0x15666);
const Class_ID kPhysiqueClass(0x100, 0);
const Class_ID kMorpherClass(0x17BB6854, 0xA5CBA2A3);
const Class_ID kOtherClass(0x7777, 0);

// Moves every vertex, so that what lies above and below it can be told apart.
class Mover final : public Modifier {
public:
    explicit Mover(float distance) : m_Distance(distance) {}
    Class_ID ClassID() override { return kOtherClass; }
    RefResult NotifyRefChanged(Interval, RefTargetHandle, PartID&, RefMessage) override
    {
        return REF_SUCCEED;
    }
    void ModifyObject(TimeValue, ModContext&, ObjectState* state, INode*) override
    {
        Mesh& mesh = static_cast<TriObject*>(state->obj)->mesh;
        for (int i = 0; i < mesh.numVerts; ++i)
            mesh.verts[i].x += m_Distance;
    }

private:
    float m_Distance;
};

Names NamesOfSets(const VKT::XPolygonMesh& mesh)
{
    Names names;
    for (const auto& set : mesh.GetVertexSets())
        names.push_back(set->GetName());
    return names;
}

class MeshExportTest : public ExportTest {
protected:
    // The points of the mesh below a bone.
    VKT::XVector3Array PointsOf(const std::string& name)
    {
        const VKT::XPolygonMesh* mesh = MeshOf(name);
        EXPECT_NE(mesh, nullptr) << name;
        return mesh ? mesh->GetPoints() : VKT::XVector3Array();
    }
    void AddModifier(INode* node, Modifier* modifier)
    {
        maxhost::AddModifier(*node, *maxhost::SceneObjects::Adopt(modifier));
    }
};

using Points = VKT::XVector3Array;

TEST_F(MeshExportTest, TrianglesKeepPointsAndWinding)
{
    MakeNode("a", maxhost::MakeTriangles({Point3(1, 2, 3), Point3(4, 5, 6), Point3(7, 8, 9), Point3(0, 0, 1)},
                                         {{2, 0, 1}, {3, 1, 0}}));
    ExportScene();
    const VKT::XPolygonMesh* mesh = MeshOf("a");
    ASSERT_NE(mesh, nullptr);
    EXPECT_STREQ(mesh->GetName(), "aShape");
    EXPECT_EQ(mesh->GetPoints(), (Points{{1, 2, 3, 0}, {4, 5, 6, 0}, {7, 8, 9, 0}, {0, 0, 1, 0}}));
    EXPECT_EQ(mesh->GetPolyCounts(), (VKT::XU32Array{3, 3}));
    ASSERT_NE(mesh->GetPointIndexSet(), nullptr);
    EXPECT_EQ(mesh->GetPointIndexSet()->GetIndices(), (VKT::XIntList{2, 0, 1, 3, 1, 0}));
}

TEST_F(MeshExportTest, PolygonsAreTriangulated)
{
    MakeNode("box", maxhost::MakeBox(Point3(2, 4, 6)));
    ExportScene();
    const VKT::XPolygonMesh* mesh = MeshOf("box");
    ASSERT_NE(mesh, nullptr);
    EXPECT_EQ(mesh->GetNumPoints(), 8u);
    EXPECT_EQ(mesh->GetPolyCounts(), VKT::XU32Array(12, 3));
}

TEST_F(MeshExportTest, ParametricObjectIsConverted)
{
    MakeNode("box", maxhost::MakeObject(GEOMOBJECT_CLASS_ID, Class_ID(BOXOBJ_CLASS_ID, 0)));
    ExportScene();
    EXPECT_NE(MeshOf("box"), nullptr);
}

TEST_F(MeshExportTest, ConversionOfPolygonsLeavesNoObjectBehind)
{
    MakeNode("box", maxhost::MakeBox(Point3(1, 1, 1)));
    const std::size_t before = maxhost::SceneObjects::Count();
    ExportScene();
    EXPECT_EQ(maxhost::SceneObjects::Count(), before);
}

TEST_F(MeshExportTest, MeshWithoutVerticesGivesNoShape)
{
    MakeNode("empty", maxhost::MakeTriangles({}, {}));
    ExportScene();
    EXPECT_EQ(model.FindNode("emptyShape"), nullptr);
    VKT::XInstanceList instances;
    EXPECT_FALSE(model.ListInstances(instances));
}

TEST_F(MeshExportTest, VerticesWithoutFacesAreAMesh)
{
    MakeNode("cloud", maxhost::MakeTriangles({Point3(1, 2, 3)}, {}));
    ExportScene();
    EXPECT_EQ(PointsOf("cloud"), (Points{{1, 2, 3, 0}}));
}

TEST_F(MeshExportTest, BipedPartNeedsItsOwnOption)
{
    MakeNode("a", MakeOddMesh(Class_ID(0x9125, 0)));
    options.SetIncludeMeshes(true);
    ExportScene();
    EXPECT_EQ(MeshOf("a"), nullptr);

    model.Clear();
    options.SetIncludeMeshes(false);
    options.SetIncludeBipedMeshes(true);
    ExportScene();
    EXPECT_NE(MeshOf("a"), nullptr);
}

TEST_F(MeshExportTest, BoneObjectIsNoMesh)
{
    MakeNode("a", MakeOddMesh(Class_ID(0x28BF6E8D, 0x2ECCA840)));
    options.SetIncludeBipedMeshes(true);
    ExportScene();
    EXPECT_EQ(MeshOf("a"), nullptr);
}

TEST_F(MeshExportTest, WithoutMeshesGeometryIsPassedOver)
{
    MakeNode("a", MakeTriangle());
    MakeNode("box", maxhost::MakeBox(Point3(1, 1, 1)));
    options.SetIncludeMeshes(false);
    ExportScene();
    EXPECT_EQ(MeshOf("a"), nullptr);
    EXPECT_EQ(MeshOf("box"), nullptr);
}

// Converts to a mesh, but is of a class that is left out.
class Excluded final : public GeomObject {
public:
    explicit Excluded(Class_ID type) : m_Type(type) {}
    Class_ID ClassID() override { return m_Type; }
    RefResult NotifyRefChanged(Interval, RefTargetHandle, PartID&, RefMessage) override
    {
        return REF_SUCCEED;
    }
    ObjectState Eval(TimeValue) override { return ObjectState(this); }
    int CanConvertToType(Class_ID type) override { return type == triObjectClassID; }
    Object* ConvertToType(TimeValue, Class_ID) override
    {
        ++conversions;
        return MakeTriangle();
    }
    static inline int conversions = 0;

private:
    Class_ID m_Type;
};

TEST_F(MeshExportTest, TwoClassesNeverBecomeMeshes)
{
    Excluded::conversions = 0;
    MakeNode("a", maxhost::SceneObjects::Adopt(new Excluded(Class_ID(0x1030, 0))));
    MakeNode("b", maxhost::SceneObjects::Adopt(new Excluded(Class_ID(0x40, 0))));
    MakeNode("c", maxhost::SceneObjects::Adopt(new Excluded(Class_ID(0x41, 0))));
    ExportScene();
    EXPECT_EQ(MeshOf("a"), nullptr);
    EXPECT_EQ(MeshOf("b"), nullptr);
    EXPECT_NE(MeshOf("c"), nullptr);
    EXPECT_EQ(Excluded::conversions, 1);
}

TEST_F(MeshExportTest, OldMeshFormatIsRefusedWithAWarning)
{
    MakeNode("a", MakeTriangle());
    options.SetUseXMesh(true);
    VKTExportCore core(model, false);
    ASSERT_TRUE(ExportAllNodes(core, Root(), {}));
    EXPECT_EQ(MeshOf("a"), nullptr);
    EXPECT_THAT(log.Text(), testing::EndsWith("Warning : The mesh of \"a\" is left out: "
                                              "the old mesh format is not exported yet\n"));
}

TEST_F(MeshExportTest, ObjectOffsetIsBakedIntoThePoints)
{
    INode* node = MakeNode("a", MakeTriangle());
    node->SetObjOffsetPos(Point3(10, 20, 30));
    node->SetObjOffsetScale(ScaleValue(Point3(2, 3, 4)));
    ExportScene();
    // Scaled first, moved last.
    EXPECT_EQ(PointsOf("a"), (Points{{10, 20, 30, 0}, {12, 20, 30, 0}, {10, 23, 30, 0}}));
}

TEST_F(MeshExportTest, CurrentPoseLeavesTheOffsetOut)
{
    INode* node = MakeNode("a", MakeTriangle());
    node->SetObjOffsetPos(Point3(10, 20, 30));
    maxhost::SetScale(*node, Point3(2, 2, 2));
    options.SetUseCurrentPoseAsBindpose(true);
    ExportScene();
    EXPECT_EQ(PointsOf("a"), (Points{{0, 0, 0, 0}, {2, 0, 0, 0}, {0, 2, 0, 0}}));
}

TEST_F(MeshExportTest, ScaleOfTheNodeGoesIntoThePoints)
{
    INode* parent = MakeNode("parent");
    maxhost::SetScale(*parent, Point3(10, 10, 10));
    INode* node = MakeNode("a", MakeTriangle(), parent);
    maxhost::SetScale(*node, Point3(2, 3, 4));
    options.SetScaleFactor(0.5f);
    ExportScene();
    EXPECT_EQ(PointsOf("a"), (Points{{0, 0, 0, 0}, {10, 0, 0, 0}, {0, 15, 0, 0}}));
}

TEST_F(MeshExportTest, KeptScaleStaysInTheBone)
{
    INode* node = MakeNode("a", MakeTriangle());
    maxhost::SetScale(*node, Point3(2, 3, 4));
    options.SetRemoveScale(false);
    options.SetScaleFactor(0.5f);
    ExportScene();
    EXPECT_EQ(PointsOf("a"), (Points{{0, 0, 0, 0}, {0.5f, 0, 0, 0}, {0, 0.5f, 0, 0}}));
    EXPECT_EQ(BoneOf("a")->GetScale(true), (VKT::XVector3{2, 3, 4, 0}));
}

TEST_F(MeshExportTest, MirroredNodeHasItsXNegatedAndAProperRotation)
{
    INode* node = MakeNode("a", MakeTriangle());
    maxhost::SetScale(*node, Point3(-1, 1, 1));
    ExportScene();
    EXPECT_EQ(PointsOf("a"), (Points{{0, 0, 0, 0}, {-1, 0, 0, 0}, {0, 1, 0, 0}}));
    EXPECT_EQ(BoneOf("a")->GetRotation(true), (VKT::XQuaternion{0, 0, 0, 1}));
    EXPECT_EQ(BoneOf("a")->GetScale(true), (VKT::XVector3{1, 1, 1, 0}));
}

TEST_F(MeshExportTest, FactorOfZeroCollapsesEverything)
{
    INode* node = MakeNode("a", MakeTriangle({Point3(1, 2, 3), Point3(4, 5, 6), Point3(7, 8, 9)}));
    maxhost::SetPosition(*node, Point3(1, 2, 3));
    options.SetScaleFactor(0.0f);
    ExportScene();
    EXPECT_EQ(PointsOf("a"), Points(3, {0, 0, 0, 0}));
    EXPECT_EQ(BoneOf("a")->GetTranslate(true), (VKT::XVector3{0, 0, 0, 0}));
}

TEST_F(MeshExportTest, ChannelsAreNumberedByTheOrderInWhichTheMeshHasThem)
{
    TriObject* object = MakeTriangle();
    maxhost::SetMapChannel(*object, 1, {UVVert(0.0f, 0.25f, 9.0f), UVVert(0.5f, 0.75f, 9.0f)}, {{1, 0, 1}});
    maxhost::SetMapChannel(*object, 3, {UVVert(1.0f, 2.0f, 3.0f)}, {{0, 0, 0}});
    MakeNode("a", object);
    ExportScene();
    const VKT::XPolygonMesh& mesh = *MeshOf("a");
    ASSERT_EQ(NamesOfSets(mesh), (Names{"uvset1", "uvset2"}));
    const VKT::XVertexSet& first = *mesh.GetVertexSets()[0];
    EXPECT_EQ(first.GetElements(), (VKT::XRealList{0.0f, 0.25f, 0.5f, 0.75f}));
    EXPECT_EQ(first.GetElementSize(), 2u);
    EXPECT_EQ(first.GetUsage(), VKT::kTexCoord);
    EXPECT_EQ(first.GetIndexSetName(), "uvset1");
    EXPECT_EQ(mesh.FindIndexSet("uvset1")->GetIndices(), (VKT::XIntList{1, 0, 1}));
    EXPECT_EQ(mesh.GetVertexSets()[1]->GetElements(), (VKT::XRealList{1.0f, 2.0f}));
}

TEST_F(MeshExportTest, EmptyChannelTakesANumberAllTheSame)
{
    TriObject* object = MakeTriangle();
    object->mesh.setMapSupport(1, TRUE);
    object->mesh.setNumMapVerts(1, 0);
    maxhost::SetMapChannel(*object, 3, {UVVert(1.0f, 2.0f, 3.0f)}, {{0, 0, 0}});
    MakeNode("a", object);
    ExportScene();
    EXPECT_EQ(NamesOfSets(*MeshOf("a")), (Names{"uvset2"}));
}

TEST_F(MeshExportTest, ChannelNinetyNineIsNotLookedAt)
{
    TriObject* object = MakeTriangle();
    maxhost::SetMapChannel(*object, 98, {UVVert(0, 0, 0)}, {{0, 0, 0}});
    maxhost::SetMapChannel(*object, 99, {UVVert(0, 0, 0)}, {{0, 0, 0}});
    MakeNode("a", object);
    ExportScene();
    EXPECT_EQ(NamesOfSets(*MeshOf("a")), (Names{"uvset1"}));
}

TEST_F(MeshExportTest, VertexColoursAreASetOfThreeFloats)
{
    TriObject* object = MakeTriangle();
    maxhost::SetMapChannel(*object, 0, {UVVert(0.25f, 0.5f, 0.75f), UVVert(1, 0, 0)}, {{0, 1, 0}});
    MakeNode("a", object);
    ExportScene();
    const VKT::XPolygonMesh& mesh = *MeshOf("a");
    ASSERT_EQ(NamesOfSets(mesh), (Names{"colours"}));
    const VKT::XVertexSet& colours = *mesh.GetVertexSets()[0];
    EXPECT_EQ(colours.GetElements(), (VKT::XRealList{0.25f, 0.5f, 0.75f, 1, 0, 0}));
    EXPECT_EQ(colours.GetUsage(), VKT::kColour);
    EXPECT_EQ(colours.GetIndexSetName(), "colours");
    EXPECT_EQ(mesh.FindIndexSet("colours")->GetIndices(), (VKT::XIntList{0, 1, 0}));
}

TEST_F(MeshExportTest, ColoursThatNoFaceRefersToAreIndexedByZeros)
{
    TriObject* object = MakeTriangle();
    object->mesh.setNumVertCol(1);
    object->mesh.vertCol[0] = VertColor(1, 0, 0);
    object->mesh.setNumVCFaces(0);
    MakeNode("a", object);
    ExportScene();
    EXPECT_EQ(MeshOf("a")->FindIndexSet("colours")->GetIndices(), (VKT::XIntList{0, 0, 0}));
}

TEST_F(MeshExportTest, OptionsLeaveUvsAndColoursOut)
{
    TriObject* object = MakeTriangle();
    maxhost::SetMapChannel(*object, 0, {UVVert(1, 1, 1)}, {{0, 0, 0}});
    maxhost::SetMapChannel(*object, 1, {UVVert(1, 1, 1)}, {{0, 0, 0}});
    MakeNode("a", object);
    options.SetIncludeTexCoords(false);
    ExportScene();
    EXPECT_EQ(NamesOfSets(*MeshOf("a")), (Names{"colours"}));

    model.Clear();
    options.SetIncludeTexCoords(true);
    options.SetIncludeVertexColours(false);
    ExportScene();
    EXPECT_EQ(NamesOfSets(*MeshOf("a")), (Names{"uvset1"}));
}

TEST_F(MeshExportTest, MeshIsReadBeneathADeformingModifier)
{
    for (const Class_ID deformer : {kSkinClass, kPhysiqueClass, kMorpherClass}) {
        model.Clear();
        host.Reset();
        INode* node = MakeNode("a", MakeTriangle());
        AddModifier(node, new NamedModifier(deformer));
        AddModifier(node, new Mover(100.0f));
        ExportScene();
        EXPECT_EQ(PointsOf("a"), (Points{{0, 0, 0, 0}, {1, 0, 0, 0}, {0, 1, 0, 0}}));
    }
}

TEST_F(MeshExportTest, WithoutADeformingModifierAllModifiersAreApplied)
{
    INode* node = MakeNode("a", MakeTriangle());
    AddModifier(node, new NamedModifier(kOtherClass));
    AddModifier(node, new Mover(100.0f));
    ExportScene();
    EXPECT_EQ(PointsOf("a"), (Points{{100, 0, 0, 0}, {101, 0, 0, 0}, {100, 1, 0, 0}}));
}

TEST_F(MeshExportTest, ShapeIsKnownByTheEvaluatedObject)
{
    INode* node = MakeNode("a", MakeTriangle());
    AddModifier(node, new NamedModifier(kSkinClass));
    VKTExportCore core(model, false);
    ASSERT_TRUE(ExportAllNodes(core, Root(), {}));
    ASSERT_NE(model.FindNode("aShape"), nullptr);
    EXPECT_EQ(core.FindShape(node->EvalWorldState(0).obj), model.FindNode("aShape"));
    EXPECT_EQ(core.FindShape(node->GetObjectRef()), nullptr);
}

// Chained derived objects: the lowest that holds a deforming modifier wins.
TEST_F(MeshExportTest, LowestDeformingModifierOfChainedStacksWins)
{
    TriObject* base = MakeTriangle();
    IDerivedObject* lower = CreateDerivedObject(base);
    lower->AddModifier(maxhost::SceneObjects::Adopt(new NamedModifier(kMorpherClass)));
    IDerivedObject* upper = CreateDerivedObject(lower);
    upper->AddModifier(maxhost::SceneObjects::Adopt(new NamedModifier(kSkinClass)));
    INode* node = MakeNode("a", upper);
    EXPECT_EQ(FindUndeformedObject(ReadNode(node)).handle, base);
}

TEST_F(MeshExportTest, OnlyTheUpperStackDeforming)
{
    TriObject* base = MakeTriangle();
    IDerivedObject* lower = CreateDerivedObject(base);
    lower->AddModifier(maxhost::SceneObjects::Adopt(new NamedModifier(kOtherClass)));
    IDerivedObject* upper = CreateDerivedObject(lower);
    upper->AddModifier(maxhost::SceneObjects::Adopt(new NamedModifier(kSkinClass)));
    INode* node = MakeNode("a", upper);
    EXPECT_EQ(FindUndeformedObject(ReadNode(node)).handle, lower);
}

}  // namespace
}  // namespace VKTMax
