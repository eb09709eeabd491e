#include "VKT/FnRegistry.h"

#include <gtest/gtest.h>

#include <memory>
#include <tuple>

#include "VKT/Bone.h"
#include "VKT/LogCatcher.h"
#include "VKT/TestModel.h"

namespace VKT {
namespace {

using Test::RegistryScope;

// A class that a developer adds.
class TestInfo final : public XFnInfo {
public:
    TestInfo(u32 type, XString typeName, XString chunkName = "TEST")
        : m_Type(type), m_TypeName(std::move(typeName)), m_ChunkName(std::move(chunkName))
    {
    }
    u32 GetType() const override { return m_Type; }
    XString GetTypeName() const override { return m_TypeName; }
    XString GetChunkName() const override { return m_ChunkName; }
    XBase* Create(XModel* model) const override { return new XBone(model); }

private:
    u32 m_Type;
    XString m_TypeName;
    XString m_ChunkName;
};

class FnRegistryTest : public testing::Test {
protected:
    LogCatcher m_Log;
    RegistryScope m_Registry;
    XModel m_Model;
};

struct Row {
    u32 type;
    const char* typeName;
    const char* chunkName;  // empty for an abstract class
};

// clang-format off
constexpr Row kRows[] = {
    {0,   "base",                 ""},
    {91,  "constraint",           ""},
    {103, "field",                ""},
    {114, "deformer",             ""},
    {122, "nonLinear",            ""},
    {168, "shadingNode",          ""},
    {7,   "material",             ""},
    {25,  "shape",                ""},
    {52,  "collisionObject",      ""},
    {26,  "geometry",             ""},
    {30,  "parametricBase",       ""},
    {31,  "parametricCurve",      ""},
    {36,  "parametricSurface",    ""},
    {76,  "light",                ""},
    {78,  "extendedLight",        ""},
    {44,  "volumeObject",         ""},
    {2,   "texture",              "TEXTURE"},
    {4,   "envMap",               ""},
    {167, "nodeCollection",       ""},
    {92,  "aimConstraint",        "AIM_CONSTRAINT"},
    {77,  "ambientLight",         "AMBIENT_LIGHT"},
    {8,   "anisotropic",          "ANISOTROPIC"},
    {133, "animCycle",            "ANIM_CYCLE"},
    {165, "animationTake",        "ANIMATION_TAKE"},
    {105, "air",                  "AIR_FIELD"},
    {79,  "areaLight",            "AREA_LIGHT"},
    {48,  "baseLattice",          "BASE_LATTICE"},
    {86,  "bone",                 "BONE"},
    {32,  "bezierCurve",          "BEZIER_CURVE"},
    {37,  "bezierPatch",          "BEZIER_PATCH"},
    {9,   "blinn",                "BLINN"},
    {116, "blendShape",           "BLEND_SHAPE"},
    {3,   "bumpMap",              "BUMP_MAP"},
    {43,  "camera",               "CAMERA"},
    {117, "cluster",              "CLUSTER"},
    {53,  "collisionBox",         "COLLISION_BOX"},
    {55,  "collisionCone",        "COLLISION_CONE"},
    {54,  "collisionCapsule",     "COLLISION_CAPSULE"},
    {56,  "collisionCylinder",    "COLLISION_CYLINDER"},
    {57,  "collisionMesh",        "COLLISION_MESH"},
    {59,  "collisionSphere",      "COLLISION_SPHERE"},
    {5,   "cubeMap",              "CUBE_MAP"},
    {81,  "directionalLight",     "DIRECTIONAL_LIGHT"},
    {20,  "displayLayer",         "DISPLAY_LAYER"},
    {106, "drag",                 "DRAG_FIELD"},
    {101, "emitter",              "EMITTER"},
    {118, "ffd",                  "FFD"},
    {93,  "geometryConstraint",   "GEOMETRY_CONSTRAINT"},
    {107, "gravity",              "GRAVITY_FIELD"},
    {33,  "hermiteCurve",         "HERMITE_CURVE"},
    {38,  "hermitePatch",         "HERMITE_PATCH"},
    {18,  "hwShader",             "HW_SHADER"},
    {23,  "ikChain",              "IK_CHAIN"},
    {87,  "joint",                "JOINT"},
    {120, "jiggleDeformer",       "JIGGLE_DEFORMER"},
    {121, "jointCluster",         "JOINT_CLUSTER"},
    {10,  "lambert",              "LAMBERT"},
    {27,  "lattice",              "LATTICE"},
    {14,  "layeredShader",        "LAYERED_SHADER"},
    {170, "layeredTexture",       "LAYERED_TEXTURE"},
    {49,  "locator",              "LOCATOR"},
    {171, "lookAt",               "LOOK_AT_CONSTRAINT"},
    {28,  "mesh",                 "MESH"},
    {163, "mv",                   "MESH_VTX_COLOURS"},
    {108, "newton",               "NEWTON_FIELD"},
    {123, "nonLinearBend",        "NONLINEAR_BEND"},
    {124, "nonLinearFlare",       "NONLINEAR_FLARE"},
    {125, "nonLinearSine",        "NONLINEAR_SINE"},
    {126, "nonLinearSquash",      "NONLINEAR_SQUASH"},
    {127, "nonLinearTwist",       "NONLINEAR_TWIST"},
    {128, "nonLinearWave",        "NONLINEAR_WAVE"},
    {94,  "normalConstraint",     "NORMAL_CONSTRAINT"},
    {34,  "nurbsCurve",           "NURBS_CURVE"},
    {39,  "nurbsSurface",         "NURBS_SURFACE"},
    {22,  "objectSet",            "OBJECT_SET"},
    {95,  "orientConstraint",     "ORIENT_CONSTRAINT"},
    {96,  "parentConstraint",     "PARENT_CONSTRAINT"},
    {40,  "particleShape",        "PARTICLE"},
    {11,  "phong",                "PHONG"},
    {12,  "phongE",               "PHONGE"},
    {97,  "pointConstraint",      "POINT_CONSTRAINT"},
    {80,  "pointLight",           "POINT_LIGHT"},
    {172, "poleVectorConstraint", "POLE_VECTOR_CONSTRAINT"},
    {166, "polygonMesh",          "POLYGON_MESH"},
    {15,  "rampShader",           "RAMP_SHADER"},
    {109, "radial",               "RADIAL_FIELD"},
    {21,  "renderLayer",          "RENDER_LAYER"},
    {98,  "scaleConstraint",      "SCALE_CONSTRAINT"},
    {131, "sculptDeformer",       "SCULPT_DEFORMER"},
    {119, "skinCluster",          "SKIN"},
    {169, "specular",             ""},
    {6,   "sphereMap",            "SPHERE_MAP"},
    {82,  "spotLight",            "SPOT_LIGHT"},
    {13,  "surfaceShader",        "SURFACE_SHADER"},
    {99,  "tangentConstraint",    "TANGENT_CONSTRAINT"},
    {89,  "texturePlacement2D",   "TEXTURE_2D"},
    {90,  "texturePlacement3D",   "TEXTURE_PLACEMENT_3D"},
    {110, "turbulence",           "TURBULENCE_FIELD"},
    {111, "uniformField",         "UNIFORM_FIELD"},
    {16,  "useBackground",        "USE_BACKGROUND"},
    {112, "volumeAxis",           "VOLUME_AXIS_FIELD"},
    {46,  "volumeBox",            "VOLUME_BOX"},
    {47,  "volumeCone",           "VOLUME_CONE"},
    {164, "volumeCylinder",       "VOLUME_CYLINDER"},
    {45,  "volumeSphere",         "VOLUME_SPHERE"},
    {83,  "volumeLight",          "VOLUME_LIGHT"},
    {113, "vortex",               "VORTEX_FIELD"},
    {129, "wireDeformer",         "WIRE_DEFORMER"},
    {130, "wrapDeformer",         "WRAP_DEFORMER"},
};
// clang-format on

TEST_F(FnRegistryTest, TheTable)
{
    const std::vector<const XFnInfo*> types = XFnListTypes();
    ASSERT_EQ(types.size(), std::size(kRows));
    for (std::size_t i = 0; i < types.size(); ++i) {
        EXPECT_EQ(types[i]->GetType(), kRows[i].type) << i;
        EXPECT_EQ(types[i]->GetTypeName(), kRows[i].typeName) << i;
        EXPECT_EQ(types[i]->GetChunkName(), kRows[i].chunkName) << i;
    }
    EXPECT_EQ(m_Log.Text(), "");
}

TEST_F(FnRegistryTest, EveryRowIsFoundByEachOfItsColumns)
{
    for (const Row& row : kRows) {
        SCOPED_TRACE(row.typeName);
        EXPECT_EQ(XFnTypeName(row.type), row.typeName);
        EXPECT_EQ(XFnChunkName(row.type), row.chunkName);
        ASSERT_NE(XFnFindByName(row.typeName), nullptr);
        EXPECT_EQ(XFnFindByName(row.typeName)->GetType(), row.type);
        const std::unique_ptr<XBase> byType(XFnCreate(row.type, &m_Model));
        EXPECT_EQ(byType == nullptr, *row.chunkName == '\0');
        if (!byType)
            continue;
        EXPECT_EQ(byType->GetApiType(), row.type);
        EXPECT_EQ(byType->GetID(), 0u);
        EXPECT_FALSE(m_Model.Holds(*byType));
        EXPECT_EQ(XFnTypeFromChunk(row.chunkName), row.type);
        const std::unique_ptr<XBase> byChunk(XFnCreateFromChunk(row.chunkName, &m_Model));
        ASSERT_NE(byChunk, nullptr);
        EXPECT_EQ(byChunk->GetApiType(), row.type);
    }
}

TEST_F(FnRegistryTest, InfoHasAChunkKeyAndNoEntry)
{
    EXPECT_EQ(XFnChunkName(162), "INFO");
    EXPECT_EQ(XFnTypeName(162), "");
    EXPECT_EQ(XFnTypeFromChunk("INFO"), 0u);
    EXPECT_EQ(XFnCreate(162, &m_Model), nullptr);
}

TEST_F(FnRegistryTest, AbstractAndUnknownTypesCreateNothing)
{
    EXPECT_EQ(XFnChunkName(25), "");
    EXPECT_EQ(XFnCreate(25, &m_Model), nullptr);
    EXPECT_EQ(XFnCreate(1, &m_Model), nullptr);
    EXPECT_EQ(XFnChunkName(1), "");
    EXPECT_EQ(XFnTypeName(1), "");
    EXPECT_EQ(XFnCreateFromChunk("", &m_Model), nullptr);  // the first abstract entry has this key
    EXPECT_EQ(XFnCreateFromChunk("NO_SUCH_CHUNK", &m_Model), nullptr);
    EXPECT_EQ(XFnCreateFromChunk("bone", &m_Model), nullptr);  // keys are exact
    EXPECT_EQ(XFnTypeFromChunk("NO_SUCH_CHUNK"), 0u);
    EXPECT_EQ(XFnTypeFromChunk(""), 0u);
    EXPECT_EQ(XFnFindByName("BONE"), nullptr);
    EXPECT_EQ(XFnFindByName(""), nullptr);
    EXPECT_EQ(m_Log.Text(), "");
}

TEST_F(FnRegistryTest, ATypeOfItsOwnIsTakenBehindTheOthers)
{
    XFnInfo* const info = new TestInfo(1000, "mine", "MINE");
    ASSERT_TRUE(XFnRegister(info));
    EXPECT_EQ(XFnListTypes().back(), info);
    EXPECT_EQ(XFnTypeFromChunk("MINE"), 1000u);
    EXPECT_EQ(XFnFindByName("mine"), info);
    EXPECT_EQ(std::unique_ptr<XBase>(XFnCreate(1000, &m_Model))->GetApiType(), kFnBone);
}

TEST_F(FnRegistryTest, ATypeWithAnIdOrANameThatExistsIsRefused)
{
    TestInfo sameName(1000, "bone");
    EXPECT_FALSE(XFnRegister(&sameName));
    EXPECT_EQ(m_Log.Text(), "Error : Type info clashes with previous entry \n");
    m_Log.Clear();
    TestInfo sameId(86, "anotherBone");
    EXPECT_FALSE(XFnRegister(&sameId));
    EXPECT_EQ(m_Log.Text(), "Error : Type info clashes with previous entry \n");
    EXPECT_EQ(XFnListTypes().size(), std::size(kRows));
    EXPECT_EQ(XFnTypeName(86), "bone");
}

TEST_F(FnRegistryTest, ChunkKeysMayClashAndTheFirstEntryCounts)
{
    ASSERT_TRUE(XFnRegister(new TestInfo(1000, "mine", "BONE")));
    EXPECT_EQ(XFnTypeFromChunk("BONE"), 86u);
    EXPECT_EQ(XFnChunkName(1000), "BONE");
}

TEST_F(FnRegistryTest, RegisteringAgainStartsAfresh)
{
    ASSERT_TRUE(XFnRegister(new TestInfo(1000, "mine")));
    EXPECT_TRUE(XRegisterTypes(&m_Log));
    EXPECT_EQ(XFnListTypes().size(), std::size(kRows));
    EXPECT_EQ(XFnFindByName("mine"), nullptr);
    EXPECT_EQ(m_Log.Text(), "");
}

TEST_F(FnRegistryTest, AnEmptyRegistryKnowsNoType)
{
    XFnInitialise(&m_Log);
    EXPECT_TRUE(XFnListTypes().empty());
    EXPECT_EQ(XFnTypeName(86), "");
    EXPECT_EQ(XFnTypeFromChunk("BONE"), 0u);
    EXPECT_EQ(XFnCreate(86, &m_Model), nullptr);
}

TEST_F(FnRegistryTest, WithoutARegistryLookUpsAnswerInvalid)
{
    EXPECT_TRUE(XFnShutdown());
    EXPECT_TRUE(XFnShutdown());  // once more does no harm
    EXPECT_EQ(XFnTypeFromChunk("BONE"), 173u);
    EXPECT_EQ(XFnChunkName(86), "invalid");
    EXPECT_EQ(XFnChunkName(162), "invalid");
    EXPECT_EQ(XFnTypeName(86), "invalid");
    EXPECT_EQ(XFnCreate(86, &m_Model), nullptr);
    EXPECT_EQ(XFnCreateFromChunk("BONE", &m_Model), nullptr);
    EXPECT_EQ(XFnFindByName("bone"), nullptr);
    TestInfo info(1000, "mine");
    EXPECT_FALSE(XFnRegister(&info));
    EXPECT_FALSE(XTranslatorLoad("scene.obj", &m_Model));
    EXPECT_EQ(m_Log.Text(), "");
}

TEST_F(FnRegistryTest, TheLoggerStaysThroughAShutdown)
{
    XLogger other;
    XFnInitialise(&other);
    EXPECT_EQ(GetLogger(), &other);
    XFnShutdown();
    EXPECT_EQ(GetLogger(), &other);
    XFnInitialise(nullptr);
    EXPECT_NE(GetLogger(), &other);
    SetLogger(&m_Log);
}

TEST_F(FnRegistryTest, TheSecondHalfOfTheHeader)
{
    EXPECT_EQ(XFileHeaderTail(), "0000#00000000|");
}

TEST_F(FnRegistryTest, NoForeignFileIsLoaded)
{
    EXPECT_FALSE(XTranslatorLoad("scene.obj", &m_Model));
    EXPECT_FALSE(XTranslatorLoad("", &m_Model));
}

TEST_F(FnRegistryTest, TheExtensionIsTheLastThreeCharactersInLowerCase)
{
    EXPECT_EQ(LowerCaseExtension("/a/scene.VkT"), "vkt");
    EXPECT_EQ(LowerCaseExtension("xvkt"), "vkt");
    EXPECT_EQ(LowerCaseExtension("KT"), "kt");
    EXPECT_EQ(LowerCaseExtension(""), "");
}

}  // namespace
}  // namespace VKT
