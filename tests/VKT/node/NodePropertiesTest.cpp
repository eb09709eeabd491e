#include "VKT/node/NodeProperties.h"

#include <cstring>

#include "VKT/deformers/NonLinearWave.h"
#include "VKT/geometry/PolygonMesh.h"
#include "VKT/hierarchy/Joint.h"
#include "VKT/lights/SpotLight.h"
#include "VKT/node/NodeClass.h"
#include "VKT/shading/Lambert.h"
#include "VKT/support/NodeTest.h"

using namespace VKT;
using namespace VKT::Test;

namespace {

// The vocabulary, class by class: name, type, number, flags, class of a referred node.
struct Row {
    const char* name;
    u32 type;
    u32 id;
    u32 flags;
    u32 nodeType;
};

// clang-format off
constexpr Row kBoneRows[] = {
    { "rotation", 10, 1, kAnimatable, 0 },
    { "scale", 5, 2, kAnimatable, 0 },
    { "translate", 5, 3, kAnimatable, 0 },
    { "visible", 1, 4, kAnimatable, 0 },
    { "joint_orient", 10, 5, 0, 0 },
    { "rotation_orient", 10, 6, 0, 0 },
    { "rotate_pivot", 5, 7, 0, 0 },
    { "scale_pivot", 5, 8, 0, 0 },
    { "min_bound", 5, 9, kReadOnly, 0 },
    { "max_bound", 5, 10, kReadOnly, 0 },
    { "local", 6, 11, kReadOnly, 0 },
    { "world", 6, 12, kReadOnly, 0 },
    { "inverse", 6, 13, kReadOnly, 0 },
    { "inverse_transpose", 6, 14, kReadOnly, 0 },
    { "children", 14, 15, kList, 0x56 },
    { "parent", 9, 16, kReadOnly, 0x56 },
    { "shearing", 5, 17, kAnimatable, 0 },
    { "rotate_order", 4, 19, 0, 0 },
    { "inherits_transform", 1, 18, 0, 0 },
    { "has_min_translateX_limit", 1, 20, kReadOnly, 0 },
    { "has_min_translateY_limit", 1, 21, kReadOnly, 0 },
    { "has_min_translateZ_limit", 1, 22, kReadOnly, 0 },
    { "has_max_translateX_limit", 1, 29, kReadOnly, 0 },
    { "has_max_translateY_limit", 1, 30, kReadOnly, 0 },
    { "has_max_translateZ_limit", 1, 31, kReadOnly, 0 },
    { "has_min_rotateX_limit", 1, 26, kReadOnly, 0 },
    { "has_min_rotateY_limit", 1, 27, kReadOnly, 0 },
    { "has_min_rotateZ_limit", 1, 28, kReadOnly, 0 },
    { "has_max_rotateX_limit", 1, 35, kReadOnly, 0 },
    { "has_max_rotateY_limit", 1, 36, kReadOnly, 0 },
    { "has_max_rotateZ_limit", 1, 37, kReadOnly, 0 },
    { "has_min_scaleX_limit", 1, 23, kReadOnly, 0 },
    { "has_min_scaleY_limit", 1, 24, kReadOnly, 0 },
    { "has_min_scaleZ_limit", 1, 25, kReadOnly, 0 },
    { "has_max_scaleX_limit", 1, 32, kReadOnly, 0 },
    { "has_max_scaleY_limit", 1, 33, kReadOnly, 0 },
    { "has_max_scaleZ_limit", 1, 34, kReadOnly, 0 },
    { "min_translateX_limit", 2, 38, 0, 0 },
    { "min_translateY_limit", 2, 39, 0, 0 },
    { "min_translateZ_limit", 2, 40, 0, 0 },
    { "max_translateX_limit", 2, 47, 0, 0 },
    { "max_translateY_limit", 2, 48, 0, 0 },
    { "max_translateZ_limit", 2, 49, 0, 0 },
    { "min_rotateX_limit", 2, 44, 0, 0 },
    { "min_rotateY_limit", 2, 45, 0, 0 },
    { "min_rotateZ_limit", 2, 46, 0, 0 },
    { "max_rotateX_limit", 2, 53, 0, 0 },
    { "max_rotateY_limit", 2, 54, 0, 0 },
    { "max_rotateZ_limit", 2, 55, 0, 0 },
    { "min_scaleX_limit", 2, 41, 0, 0 },
    { "min_scaleY_limit", 2, 42, 0, 0 },
    { "min_scaleZ_limit", 2, 43, 0, 0 },
    { "max_scaleX_limit", 2, 50, 0, 0 },
    { "max_scaleY_limit", 2, 51, 0, 0 },
    { "max_scaleZ_limit", 2, 52, 0, 0 },
};
constexpr Row kJointRows[] = {
    { "segment_scale_compensate", 1, 56, 0, 0 },
};
constexpr Row kGeometryRows[] = {
    { "points", 12, 1, kAnimatable | kList, 0 },
    { "deformer_queue", 14, 2, kList, 0x72 },
    { "intermediate_object", 1, 3, 0, 0 },
};
constexpr Row kDeformerRows[] = {
    { "affected", 9, 1, 0, 0x1A },
    { "envelope_weight", 2, 2, kAnimatable, 0 },
};
constexpr Row kNonLinearDeformerRows[] = {
    { "handle", 9, 3, 0, 0x56 },
};
constexpr Row kNonLinearWaveRows[] = {
    { "min_radius", 2, 4, kAnimatable, 0 },
    { "max_radius", 2, 5, kAnimatable, 0 },
    { "amplitude", 2, 6, kAnimatable, 0 },
    { "wavelength", 2, 7, kAnimatable, 0 },
    { "dropoff", 2, 8, kAnimatable, 0 },
    { "dropoff_position", 2, 9, kAnimatable, 0 },
    { "offset", 2, 10, kAnimatable, 0 },
};
constexpr Row kMaterialRows[] = {
    { "hardwareShader", 9, 1, 0, 0 },
    { "diffuse", 7, 2, kAnimatable, 0 },
};
constexpr Row kLambertRows[] = {
    { "ambient", 7, 3, kAnimatable, 0 },
    { "emission", 7, 4, kAnimatable, 0 },
    { "transparency", 7, 5, kAnimatable, 0 },
    { "bump_map", 9, 6, 0, 0x03 },
    { "env_map", 9, 7, 0, 0x04 },
};
constexpr Row kLightRows[] = {
    { "intensity", 2, 1, kAnimatable, 0 },
    { "colour", 7, 2, kAnimatable, 0 },
    { "shadow_colour", 7, 3, kAnimatable, 0 },
    { "emit_ambient", 1, 4, 0, 0 },
    { "emit_diffuse", 1, 5, 0, 0 },
    { "emit_specular", 1, 6, 0, 0 },
};
constexpr Row kExtendedLightRows[] = {
    { "shadow_radius", 2, 7, kAnimatable, 0 },
    { "decay_rate", 2, 8, kAnimatable, 0 },
    { "depth_map_filter_size", 2, 9, kAnimatable, 0 },
    { "depth_map_resolution", 2, 10, kAnimatable, 0 },
    { "depth_map_bias", 2, 11, kAnimatable, 0 },
    { "use_depth_map_shadows", 1, 12, 0, 0 },
    { "casts_soft_shadows", 1, 13, 0, 0 },
};
constexpr Row kSpotLightRows[] = {
    { "cone_angle", 2, 14, kAnimatable, 0 },
    { "penumbra_angle", 2, 15, kAnimatable, 0 },
    { "drop_off", 2, 16, kAnimatable, 0 },
    { "left_barn_door_angle", 2, 17, kAnimatable, 0 },
    { "right_barn_door_angle", 2, 18, kAnimatable, 0 },
    { "top_barn_door_angle", 2, 19, kAnimatable, 0 },
    { "bottom_barn_door_angle", 2, 20, kAnimatable, 0 },
    { "has_barn_doors", 1, 21, 0, 0 },
    { "use_decay_regions", 1, 22, 0, 0 },
    { "first_decay_region_start", 2, 23, 0, 0 },
    { "first_decay_region_end", 2, 24, 0, 0 },
    { "second_decay_region_start", 2, 25, 0, 0 },
    { "second_decay_region_end", 2, 26, 0, 0 },
    { "third_decay_region_start", 2, 27, 0, 0 },
    { "third_decay_region_end", 2, 28, 0, 0 },
};
// clang-format on

void ExpectRows(const XNodeProperties* properties, std::span<const Row> rows, u32 total)
{
    ASSERT_NE(properties, nullptr);
    EXPECT_EQ(properties->GetNumProperties(), total);
    ASSERT_EQ(properties->GetRows().size(), rows.size());
    for (std::size_t i = 0; i < rows.size(); ++i) {
        const Row& row = rows[i];
        EXPECT_STREQ(properties->GetRows()[i].name, row.name) << "row " << i;
        EXPECT_EQ(properties->GetPropertyName(row.id), row.name);
        EXPECT_EQ(properties->GetPropertyId(row.name), row.id) << row.name;
        EXPECT_EQ(properties->GetPropertyType(row.id), row.type) << row.name;
        EXPECT_EQ(properties->GetPropertyFlags(row.id), row.flags) << row.name;
        EXPECT_EQ(properties->GetPropertyNodeType(row.id), row.nodeType) << row.name;
    }
}

TEST(NodeProperties, EachClassHasItsVocabulary)
{
    ExpectRows(XBone::ClassProperties(), kBoneRows, 55);
    ExpectRows(XJoint::ClassProperties(), kJointRows, 56);
    ExpectRows(XGeometry::ClassProperties(), kGeometryRows, 3);
    ExpectRows(XDeformer::ClassProperties(), kDeformerRows, 2);
    ExpectRows(XNonLinearDeformer::ClassProperties(), kNonLinearDeformerRows, 3);
    ExpectRows(XNonLinearWave::ClassProperties(), kNonLinearWaveRows, 10);
    ExpectRows(XMaterial::ClassProperties(), kMaterialRows, 2);
    ExpectRows(XLambert::ClassProperties(), kLambertRows, 7);
    ExpectRows(XLight::ClassProperties(), kLightRows, 6);
    ExpectRows(XExtendedLight::ClassProperties(), kExtendedLightRows, 13);
    ExpectRows(XSpotLight::ClassProperties(), kSpotLightRows, 28);
}

TEST(NodeProperties, ClassesWithoutRowsOfTheirOwnShareAnObject)
{
    EXPECT_EQ(XBase::ClassProperties(), XNodeProperties::Empty());
    EXPECT_EQ(XShape::ClassProperties(), XNodeProperties::Empty());
    EXPECT_EQ(XShadingNode::ClassProperties(), XNodeProperties::Empty());
    EXPECT_EQ(XPolygonMesh::ClassProperties(), XGeometry::ClassProperties());
}

TEST(NodeProperties, ChainsAreTheClassesWithRows)
{
    EXPECT_EQ(XJoint::ClassProperties()->GetBase(), XBone::ClassProperties());
    EXPECT_EQ(XSpotLight::ClassProperties()->GetBase(), XExtendedLight::ClassProperties());
    EXPECT_EQ(XExtendedLight::ClassProperties()->GetBase(), XLight::ClassProperties());
    EXPECT_EQ(XNonLinearWave::ClassProperties()->GetBase(), XNonLinearDeformer::ClassProperties());
    EXPECT_EQ(XNonLinearDeformer::ClassProperties()->GetBase(), XDeformer::ClassProperties());
    EXPECT_EQ(XLambert::ClassProperties()->GetBase(), XMaterial::ClassProperties());
    EXPECT_EQ(XBone::ClassProperties()->GetBase()->GetNumProperties(), 0u);
}

TEST(NodeProperties, EmptyObjectKnowsNothing)
{
    const XNodeProperties& empty = *XNodeProperties::Empty();
    EXPECT_EQ(empty.GetNumProperties(), 0u);
    EXPECT_EQ(empty.GetPropertyName(1), "");
    EXPECT_EQ(empty.GetPropertyType(1), kPropertyNone);
    EXPECT_EQ(empty.GetPropertyId("translate"), 0u);
    EXPECT_EQ(empty.GetPropertyFlags(1), 0u);
    EXPECT_EQ(empty.GetPropertyNodeType(1), 0u);
}

// Whether any of the 28 typed operations on that number answers true.
bool AnySet(const XNodeProperties& properties, XBase* node, u32 id)
{
    return properties.SetNodeArray(node, id, {}) || properties.SetNode(node, id, nullptr) ||
           properties.SetMatrix(node, id, kIdentityMatrix) || properties.SetUnsigned(node, id, 0) ||
           properties.SetInteger(node, id, 0) || properties.SetIntegerArray(node, id, {}) ||
           properties.SetVectorArray(node, id, {}) || properties.SetFloatArray(node, id, {}) ||
           properties.SetString(node, id, "") || properties.SetColour(node, id, {}) ||
           properties.SetFloat(node, id, 0) || properties.SetBool(node, id, false) ||
           properties.SetVector(node, id, {}) || properties.SetQuaternion(node, id, {});
}

// The types that a getter answers true for.
std::vector<u32> TypesGot(const XNodeProperties& properties, const XBase* node, u32 id)
{
    std::vector<u32> types;
    const auto note = [&](u32 type, bool got) {
        if (got)
            types.push_back(type);
    };
    bool flag;
    f32 real;
    u32 count;
    i32 number;
    XVector3 vector;
    XMatrix matrix;
    XColour colour;
    XString text;
    XBase* other;
    XQuaternion quaternion;
    XFloatArray reals;
    XVector3Array vectors;
    XIntList numbers;
    XNodeList nodes;
    note(kPropertyBool, properties.GetBool(node, id, flag));
    note(kPropertyFloat, properties.GetFloat(node, id, real));
    note(kPropertyUnsigned, properties.GetUnsigned(node, id, count));
    note(kPropertyInteger, properties.GetInteger(node, id, number));
    note(kPropertyVector, properties.GetVector(node, id, vector));
    note(kPropertyMatrix, properties.GetMatrix(node, id, matrix));
    note(kPropertyColour, properties.GetColour(node, id, colour));
    note(kPropertyString, properties.GetString(node, id, text));
    note(kPropertyNode, properties.GetNode(node, id, other));
    note(kPropertyQuaternion, properties.GetQuaternion(node, id, quaternion));
    note(kPropertyFloatArray, properties.GetFloatArray(node, id, reals));
    note(kPropertyVectorArray, properties.GetVectorArray(node, id, vectors));
    note(kPropertyIntegerArray, properties.GetIntegerArray(node, id, numbers));
    note(kPropertyNodeArray, properties.GetNodeArray(node, id, nodes));
    return types;
}

class Reflection : public NodeTest {};

TEST_F(Reflection, EmptyObjectSetsAndGetsNothing)
{
    XBase* bone = m_Model.CreateNode(kFnBone);
    for (u32 id = 0; id < 60; ++id) {
        EXPECT_FALSE(AnySet(*XNodeProperties::Empty(), bone, id));
        EXPECT_TRUE(TypesGot(*XNodeProperties::Empty(), bone, id).empty());
    }
}

TEST_F(Reflection, GetterOfThePropertysTypeAnswersAndNoOther)
{
    for (const u32 type : {kFnJoint, kFnPolygonMesh, kFnNonLinearWave, kFnLambert, kFnSpotLight}) {
        const XBase* node = m_Model.CreateNode(type);
        const XNodeProperties& properties = *node->GetNodeProperties();
        for (u32 id = 0; id < 60; ++id) {
            const u32 wanted = properties.GetPropertyType(id);
            const std::vector<u32> none;
            EXPECT_EQ(TypesGot(properties, node, id), wanted ? std::vector<u32>{wanted} : none)
                << properties.GetPropertyName(id);
        }
    }
}

TEST_F(Reflection, ReadOnlyPropertiesHaveNoSetter)
{
    XBase* joint = m_Model.CreateNode(kFnJoint);
    const XNodeProperties& properties = *joint->GetNodeProperties();
    u32 readOnly = 0;
    for (u32 id = 1; id <= 56; ++id)
        if (properties.GetPropertyFlags(id) & kReadOnly) {
            ++readOnly;
            EXPECT_FALSE(AnySet(properties, joint, id)) << properties.GetPropertyName(id);
        }
    EXPECT_EQ(readOnly, 25u);
    EXPECT_FALSE(joint->GetNodeProperties()->SetVector(joint, 9, {1, 2, 3, 0}));
    XVector3 bound;
    EXPECT_TRUE(joint->GetNodeProperties()->GetVector(joint, 9, bound));
    EXPECT_EQ(bound, (XVector3{0, 0, 0, 0}));
}

TEST_F(Reflection, SetterOfAnotherTypeIsRefused)
{
    XBase* bone = m_Model.CreateNode(kFnBone);
    const std::string before = TextOf(*bone);
    const XNodeProperties& properties = *bone->GetNodeProperties();
    EXPECT_FALSE(properties.SetFloat(bone, 3, 7));
    EXPECT_FALSE(properties.SetQuaternion(bone, 3, {1, 2, 3, 4}));
    EXPECT_FALSE(properties.SetUnsigned(bone, 19, 1));
    EXPECT_FALSE(properties.SetBool(bone, 0, true));
    EXPECT_FALSE(properties.SetBool(bone, 57, true));
    EXPECT_EQ(TextOf(*bone), before);
}

TEST_F(Reflection, NodeOfAForeignClassAndNoNodeAreRefused)
{
    XBase* bone = m_Model.CreateNode(kFnBone);
    const XNodeProperties& lights = *XSpotLight::ClassProperties();
    f32 angle;
    EXPECT_FALSE(lights.SetFloat(bone, 14, 1));
    EXPECT_FALSE(lights.GetFloat(bone, 14, angle));
    EXPECT_FALSE(lights.SetFloat(nullptr, 14, 1));
    EXPECT_FALSE(lights.GetFloat(nullptr, 14, angle));
    // A joint's object on a bone: not even the rows that a bone has.
    EXPECT_FALSE(XJoint::ClassProperties()->SetVector(bone, 3, {1, 2, 3, 0}));
}

TEST_F(Reflection, JointFindsRowsOfTheBoneThroughTheChain)
{
    XBase* joint = m_Model.CreateNode(kFnJoint);
    EXPECT_EQ(joint->GetPropertyId("translate"), 3u);
    EXPECT_EQ(joint->GetPropertyName(56), "segment_scale_compensate");
    EXPECT_EQ(joint->GetPropertyType(3), kPropertyVector);
    EXPECT_TRUE(joint->IsPropertyAnimated(3));
    EXPECT_FALSE(joint->IsPropertyAnimated(56));
    EXPECT_FALSE(joint->IsPropertyAnimated(1000));
    EXPECT_EQ(joint->GetPropertyName(57), "");
    EXPECT_EQ(joint->GetPropertyId("Translate"), 0u);
    EXPECT_TRUE(joint->GetNodeProperties()->SetVector(joint, 3, {1, 2, 3, 0}));
    XVector3 translate;
    EXPECT_TRUE(joint->GetNodeProperties()->GetVector(joint, 3, translate));
    EXPECT_EQ(translate, (XVector3{1, 2, 3, 0}));
}

// Rows that collide, of two classes in a chain.
class Base : public XNodeClass<Base, XBase, 1000> {
public:
    using XNodeClass::XNodeClass;
    static XPropertyTable Properties()
    {
        static constexpr XPropertyInfo rows[] = {
            Field<&Base::number>(1, "number"),
            Field<&Base::real>(2, "real"),
            Field<&Base::realAgain>(3, "real"),
        };
        return rows;
    }
    i32 number = 10;
    f32 real = 20;
    f32 realAgain = 30;
};

class Derived : public XNodeClass<Derived, Base, 1001> {
public:
    using XNodeClass::XNodeClass;
    static XPropertyTable Properties()
    {
        static constexpr XPropertyInfo rows[] = {
            Field<&Derived::flag>(1, "flag", kAnimatable),
            Field<&Derived::again>(1, "again"),
        };
        return rows;
    }
    bool flag = true;
    bool again = false;
};

TEST_F(Reflection, FirstRowOfANumberOrNameWins)
{
    const Derived node(&m_Model);
    EXPECT_EQ(node.GetPropertyName(1), "flag");
    EXPECT_EQ(node.GetPropertyType(1), kPropertyBool);
    EXPECT_TRUE(node.IsPropertyAnimated(1));
    EXPECT_EQ(node.GetPropertyId("again"), 1u);
    EXPECT_EQ(node.GetPropertyId("number"), 1u);
    EXPECT_EQ(node.GetPropertyId("real"), 2u);
    EXPECT_EQ(node.GetNodeProperties()->GetNumProperties(), 5u);
    bool flag = false;
    EXPECT_TRUE(node.GetNodeProperties()->GetBool(&node, 1, flag));
    EXPECT_TRUE(flag);
}

TEST_F(Reflection, NumberOfAnotherTypeFallsThroughToTheBase)
{
    Derived node(&m_Model);
    i32 number = 0;
    EXPECT_TRUE(node.GetNodeProperties()->GetInteger(&node, 1, number));
    EXPECT_EQ(number, 10);
    EXPECT_TRUE(node.GetNodeProperties()->SetInteger(&node, 1, 11));
    EXPECT_EQ(node.number, 11);
    EXPECT_TRUE(node.flag);
}

TEST_F(Reflection, TotalCanBeToldInsteadOfCounted)
{
    const XNodeProperties properties(1001, Derived::Properties(), Base::ClassProperties(), 64);
    EXPECT_EQ(properties.GetNumProperties(), 64u);
}

#if defined(__GNUC__) && defined(__x86_64__)

// In this compiler's member pointers a virtual operation is one more than its place in the
// table, in bytes. The destructor takes the first two places.
template <class Operation>
std::size_t PlaceOf(Operation operation)
{
    std::size_t word;
    std::memcpy(&word, &operation, sizeof word);
    return (word - 1) / sizeof(void*);
}

TEST(NodeProperties, OperationsStandInTheOrderThatCallersRelyOn)
{
    using P = XNodeProperties;
    const std::size_t places[] = {
        PlaceOf(&P::SetNodeArray),     PlaceOf(&P::SetNode),
        PlaceOf(&P::SetMatrix),        PlaceOf(&P::SetUnsigned),
        PlaceOf(&P::SetInteger),       PlaceOf(&P::SetIntegerArray),
        PlaceOf(&P::SetVectorArray),   PlaceOf(&P::SetFloatArray),
        PlaceOf(&P::SetString),        PlaceOf(&P::SetColour),
        PlaceOf(&P::SetFloat),         PlaceOf(&P::SetBool),
        PlaceOf(&P::SetVector),        PlaceOf(&P::SetQuaternion),
        PlaceOf(&P::GetNodeArray),     PlaceOf(&P::GetNode),
        PlaceOf(&P::GetMatrix),        PlaceOf(&P::GetUnsigned),
        PlaceOf(&P::GetInteger),       PlaceOf(&P::GetVectorArray),
        PlaceOf(&P::GetIntegerArray),  PlaceOf(&P::GetFloatArray),
        PlaceOf(&P::GetString),        PlaceOf(&P::GetColour),
        PlaceOf(&P::GetFloat),         PlaceOf(&P::GetBool),
        PlaceOf(&P::GetVector),        PlaceOf(&P::GetQuaternion),
        PlaceOf(&P::GetPropertyName),  PlaceOf(&P::GetPropertyType),
        PlaceOf(&P::GetPropertyId),    PlaceOf(&P::GetNumProperties),
        PlaceOf(&P::GetPropertyFlags), PlaceOf(&P::GetPropertyNodeType),
    };
    EXPECT_EQ(std::size(places), 34u);  // with the destructor 35
    for (std::size_t i = 0; i < std::size(places); ++i)
        EXPECT_EQ(places[i], 2 + i);
}

#endif

TEST(PropertyType, EachHasANameAndOtherNumbersHaveThatOfNone)
{
    EXPECT_STREQ(XPropertyTypeName(kPropertyBool), "bool");
    EXPECT_STREQ(XPropertyTypeName(kPropertyNode), "node");
    EXPECT_STREQ(XPropertyTypeName(kPropertyNodeArray), "nodeArray");
    EXPECT_STREQ(XPropertyTypeName(kPropertyNone), "none");
    EXPECT_STREQ(XPropertyTypeName(kPropertyNodeArray + 1), "none");
}

}  // namespace
