#include "VKT/support/PropertyValue.h"

#include <algorithm>
#include <bit>
#include <set>
#include <string>

#include "VKT/geometry/Geometry.h"
#include "VKT/support/NodeTest.h"
#include "VKT/support/Vocabulary.h"

// Every attribute of every class through the typed operations.

using namespace VKT;
using namespace VKT::Test;

namespace {

struct Attribute {
    const char* type;  // the class that brings it
    const char* name;

    bool Is(const VocabularyRow& row) const
    {
        return std::string_view(row.type) == type && std::string_view(row.name) == name;
    }
};

template <class List>
bool Holds(const List& attributes, const VocabularyRow& row)
{
    return std::ranges::any_of(attributes, [&](const Attribute& attribute) { return attribute.Is(row); });
}

// clang-format off

// Attributes that go by another type than their row reports, or ask for other nodes.
constexpr struct {
    Attribute attribute;
    u32 valueType;
    u32 nodeType;
} kOtherThanReported[] = {
    {{"material",          "hardwareShader"},  kNode,   kFnHwShader},
    {{"blendShape",        "targets"},         kNodes,  kFnGeometry},
    {{"blendShape",        "base_shape"},      kNode,   kFnGeometry},
    {{"jointCluster",      "indices"},         kInts,   0},
    {{"jointCluster",      "influence_joint"}, kNode,   kFnBone},
    {{"parametricSurface", "num_cvs_u"},       kInt,    0},
    {{"parametricSurface", "num_cvs_v"},       kInt,    0},
    {{"field",             "volume_offset"},   kVector, 0},
    {{"field",             "section_radius"},  kFloat,  0},
    {{"field",             "sweep_angle"},     kFloat,  0},
    {{"field",             "volume_type"},     kInt,    0},
    {{"constraint",        "targets"},         kNodes,  0},
    {{"constraint",        "constrained"},     kNode,   0},
};

// Those that only the rows in front of them answer for, by number and type.
constexpr Attribute kHidden[] = {{"wireDeformer", "base_wires"}};

// Those that say how long other lists must be; they are set first.
constexpr Attribute kLengths[] = {
    {"constraint",    "targets"},
    {"blendShape",    "targets"},
    {"wireDeformer",  "wires"},
    {"layeredShader", "num_layers"},
};

// Those that change along with another one. A bone's `has_min_` and `has_max_` attributes go
// with their limits.
constexpr struct {
    Attribute set;
    const char* changes;
} kChangedAlong[] = {
    {{"constraint",    "targets"},    "weights"},
    {{"blendShape",    "targets"},    "weights"},
    {{"blendShape",    "base_shape"}, "affected"},
    {{"deformer",      "affected"},   "base_shape"},
    {{"deformer",      "affected"},   "affected"},  // the other one of a skin
    {{"skinCluster",   "affected"},   "affected"},
    {{"skinCluster",   "indices"},    "weights"},
    {{"skinCluster",   "indices"},    "joint_indices"},
    {{"wireDeformer",  "wires"},      "wire_scale"},
    {{"wireDeformer",  "wires"},      "wire_dropoff_distance"},
    {{"layeredShader", "num_layers"}, "glow_layers"},
    {{"layeredShader", "num_layers"}, "transparency_layers"},
    {{"layeredShader", "num_layers"}, "colour_layers"},
};

// Lists that have as many entries as another one.
constexpr Attribute kOfGivenLength[] = {
    {"constraint",    "weights"},
    {"blendShape",    "weights"},
    {"skinCluster",   "weights"},
    {"skinCluster",   "joint_indices"},
    {"wireDeformer",  "wire_scale"},
    {"wireDeformer",  "wire_dropoff_distance"},
    {"layeredShader", "glow_layers"},
    {"layeredShader", "transparency_layers"},
    {"layeredShader", "colour_layers"},
};

// Those that take no null, and the lists that take one among their nodes; one leaves it out.
constexpr Attribute kNeverNull[] = {
    {"material",    "hardwareShader"},
    {"lambert",     "bump_map"},
    {"lambert",     "env_map"},
    {"deformer",    "affected"},
    {"skinCluster", "affected"},
    {"blendShape",  "base_shape"},
};
constexpr Attribute kWithoutNulls = {"skinCluster", "influences"};
constexpr Attribute kWithNulls[] = {
    {"wireDeformer",  "wires"},
    kWithoutNulls,
    {"layeredShader", "glow_layers"},
    {"layeredShader", "transparency_layers"},
    {"layeredShader", "colour_layers"},
};

// A class that can be created, for one that nodes must answer to and that cannot.
constexpr struct {
    u32 asked;
    u32 created;
} kStandIns[] = {
    {kFnBase,     kFnBone},
    {kFnEnvMap,   kFnSphereMap},
    {kFnMaterial, kFnLambert},
    {kFnShape,    kFnCamera},
    {kFnGeometry, kFnPolygonMesh},
    {kFnField,    kFnAir},
    {kFnDeformer, kFnFFD},
};

// clang-format on

bool IsHidden(const VocabularyRow& row)
{
    return Holds(kHidden, row);
}

bool IsReadOnly(const VocabularyRow& row)
{
    return (row.flags & kReadOnly) != 0;
}

// The rows of a class with the types and nodes that they really go by.
std::vector<VocabularyRow> ListAttributes(const XFnInfo& info)
{
    std::vector<VocabularyRow> rows = ListVocabulary(info.GetTypeName());
    std::erase_if(rows, IsHidden);
    for (VocabularyRow& row : rows)
        for (const auto& [attribute, valueType, nodeType] : kOtherThanReported)
            if (attribute.Is(row)) {
                row.valueType = valueType;
                row.nodeType = nodeType;
            }
    return rows;
}

// Equal; the sentinels of open limits are no numbers, and are compared as words.
bool IsSame(const PropertyValue& a, const PropertyValue& b)
{
    const f32* const first = std::get_if<f32>(&a);
    const f32* const second = std::get_if<f32>(&b);
    return first && second ? std::bit_cast<u32>(*first) == std::bit_cast<u32>(*second) : a == b;
}

class PropertyValues : public NodeTest {
protected:
    static std::vector<const XFnInfo*> ConcreteTypes()
    {
        std::vector<const XFnInfo*> types = XFnListTypes();
        std::erase_if(types, [](const XFnInfo* info) { return info->GetChunkName().empty(); });
        return types;
    }

    // A new node that answers to `type`; geometry has two points.
    static XBase* CreateFor(XModel& model, u32 type)
    {
        for (const auto& [asked, created] : kStandIns)
            if (asked == type)
                type = created;
        XBase* const node = model.CreateNode(type);
        if (XGeometry* geometry = XCast<XGeometry>(node))
            geometry->GetNodeProperties()->SetVectorArray(geometry, 1, {{1, 2, 3, 0}, {4, 5, 6, 0}});
        return node;
    }

    f32 Next() { return static_cast<f32>(m_Next++); }

    // A value of that type other than those before; lists have two entries.
    PropertyValue NewValue(u32 valueType, u32 nodeType)
    {
        switch (valueType) {
            case kBool:
                return true;
            case kFloat:
                return Next() + 0.5f;
            case kUInt:
                return static_cast<u32>(Next());
            case kInt:
                return static_cast<i32>(Next());
            case kVector:
                return XVector3{Next(), Next(), Next(), 0};
            case kMatrix: {
                XMatrix matrix;
                std::ranges::generate(matrix.m, [this] { return Next(); });
                return matrix;
            }
            case kColour:
                return XColour{Next(), Next(), Next(), Next()};
            case kString:
                return XString("text") + std::to_string(m_Next++);
            case kNode:
                return CreateFor(m_Model, nodeType);
            case kQuat:
                return XQuaternion{Next(), Next(), Next(), Next()};
            case kFloats:
                return XFloatArray{Next() + 0.5f, Next() + 0.5f};
            case kVectors:
                return XVector3Array{{Next(), Next(), Next(), 0}, {Next(), Next(), Next(), 0}};
            case kInts:
                return XIntList{static_cast<i32>(Next()), static_cast<i32>(Next())};
            default:
                return XNodeList{CreateFor(m_Model, nodeType), CreateFor(m_Model, nodeType)};
        }
    }

    // The same, where a rule bounds what an attribute takes.
    PropertyValue NewValue(const XBase* node, const VocabularyRow& row)
    {
        if (Attribute{"layeredShader", "num_layers"}.Is(row))
            return i32{2};
        if (Attribute{"skinCluster", "indices"}.Is(row))
            return XIntList{0, 1};  // the points that the geometry has
        if (Attribute{"skinCluster", "joint_indices"}.Is(row))
            return XIntList{1, 0};
        if (Attribute{"bumpMap", "placement"}.Is(row))
            return Next();  // an id, as a float
        if (row.valueType == kBool)
            return !std::get<bool>(Value(node, row));
        return NewValue(row.valueType, row.nodeType);
    }

    // What an attribute answers once `value` was set.
    static PropertyValue Answer(const VocabularyRow& row, PropertyValue value)
    {
        if (Attribute{"light", "colour"}.Is(row))
            std::get<XColour>(value).a = 1;
        if (Attribute{"light", "shadow_colour"}.Is(row))
            std::get<XColour>(value).a = 0;
        return value;
    }

    PropertyValue Value(const XBase* node, const VocabularyRow& row)
    {
        PropertyValue value = m_Samples[row.valueType];
        EXPECT_TRUE(GetValue(*node->GetNodeProperties(), node, row.id, value)) << row.name;
        return value;
    }

    std::vector<PropertyValue> Values(const XBase* node, const std::vector<VocabularyRow>& rows)
    {
        std::vector<PropertyValue> values;
        for (const VocabularyRow& row : rows)
            values.push_back(Value(node, row));
        return values;
    }

    u32 m_Next = 2;
    // One value of each type, by its number.
    std::vector<PropertyValue> m_Samples = [this] {
        std::vector<PropertyValue> samples(1);
        for (u32 type = kBool; type <= kNodes; ++type)
            samples.push_back(NewValue(type, kFnBase));
        return samples;
    }();
};

bool ChangesAlong(const VocabularyRow& set, const VocabularyRow& other)
{
    return std::string("has_") + set.name == other.name ||
           std::ranges::any_of(kChangedAlong, [&](const auto& entry) {
               return entry.set.Is(set) && std::string_view(entry.changes) == other.name;
           });
}

TEST_F(PropertyValues, WhatIsSetComesBackAndNothingElseChanges)
{
    std::set<std::pair<std::string, u32>> done;
    for (const XFnInfo* info : ConcreteTypes()) {
        SCOPED_TRACE(info->GetTypeName());
        m_Next = 100;  // some numbers are held as bytes
        XBase* const node = m_Model.CreateNode(info->GetType());
        std::vector<VocabularyRow> rows = ListAttributes(*info);
        std::stable_partition(rows.begin(), rows.end(),
                              [](const VocabularyRow& row) { return Holds(kLengths, row); });
        for (std::size_t i = 0; i < rows.size(); ++i) {
            if (IsReadOnly(rows[i]))
                continue;
            const PropertyValue value = NewValue(node, rows[i]);
            std::vector<PropertyValue> expected = Values(node, rows);
            EXPECT_FALSE(IsSame(expected[i], Answer(rows[i], value))) << rows[i].name;
            expected[i] = Answer(rows[i], value);
            EXPECT_TRUE(SetValue(*node->GetNodeProperties(), node, rows[i].id, value)) << rows[i].name;
            const std::vector<PropertyValue> values = Values(node, rows);
            for (std::size_t k = 0; k < rows.size(); ++k)
                EXPECT_TRUE(IsSame(values[k], expected[k]) || (k != i && ChangesAlong(rows[i], rows[k])))
                    << rows[k].name << " after " << rows[i].name;
            done.emplace(rows[i].type, rows[i].id);
        }
    }
    EXPECT_EQ(m_Log.Text(), "");
    EXPECT_EQ(done.size() + std::size(kHidden), 356u);
}

TEST_F(PropertyValues, ReadOnlyOnesAreReadAndNotSet)
{
    std::set<std::pair<std::string, std::string>> done;
    for (const XFnInfo* info : ConcreteTypes()) {
        XBase* const node = m_Model.CreateNode(info->GetType());
        for (const VocabularyRow& row : ListAttributes(*info)) {
            if (!IsReadOnly(row))
                continue;
            const PropertyValue before = Value(node, row);
            const PropertyValue value = NewValue(row.valueType, row.nodeType);
            EXPECT_FALSE(SetValue(*node->GetNodeProperties(), node, row.id, value)) << row.name;
            EXPECT_TRUE(IsSame(Value(node, row), before)) << row.name;
            done.emplace(row.type, row.name);
        }
    }
    EXPECT_EQ(done.size(), 27u);
}

TEST_F(PropertyValues, OperationsOfOtherTypesRefuse)
{
    for (const XFnInfo* info : ConcreteTypes()) {
        SCOPED_TRACE(info->GetTypeName());
        XBase* const node = m_Model.CreateNode(info->GetType());
        const std::string text = TextOf(*node);
        const XNodeProperties& properties = *node->GetNodeProperties();
        std::set<std::pair<u32, u32>> known;
        for (const VocabularyRow& row : ListAttributes(*info))
            known.emplace(row.id, row.valueType);
        for (u32 id = 0; id < 100; ++id)
            for (u32 type = kBool; type <= kNodes; ++type) {
                if (known.contains({id, type}))
                    continue;
                PropertyValue value = m_Samples[type];
                EXPECT_FALSE(SetValue(properties, node, id, value)) << id << " type " << type;
                EXPECT_FALSE(GetValue(properties, node, id, value)) << id << " type " << type;
                EXPECT_TRUE(value == m_Samples[type]) << id << " type " << type;
            }
        EXPECT_EQ(TextOf(*node), text);
    }
}

TEST_F(PropertyValues, NodesOfOtherClassesRefuse)
{
    std::vector<XBase*> nodes = {nullptr};
    for (const XFnInfo* info : ConcreteTypes())
        nodes.push_back(m_Model.CreateNode(info->GetType()));
    for (const XFnInfo* info : XFnListTypes()) {
        const XNodeProperties& properties = *info->GetTables().properties;
        const VocabularyTable* const table = FindVocabulary(info->GetTypeName());
        if (!table)
            continue;
        const u32 type = XFnFindByName(table->type)->GetType();
        for (XBase* node : nodes) {
            if (node && IsOfType(*node, type))
                continue;
            for (const VocabularyRow& row : ListAttributes(*info)) {
                PropertyValue value = m_Samples[row.valueType];
                ASSERT_FALSE(SetValue(properties, node, row.id, value)) << table->type << ' ' << row.name;
                ASSERT_FALSE(GetValue(properties, node, row.id, value)) << table->type << ' ' << row.name;
            }
        }
    }
    EXPECT_EQ(m_Log.Text(), "");
}

// Rows that name other nodes, of all classes.
class NodeValues : public PropertyValues {
protected:
    // A node or, for a row of lists, a list of it alone.
    static PropertyValue Naming(const VocabularyRow& row, XBase* node)
    {
        return row.valueType == kNode ? PropertyValue(node) : PropertyValue(XNodeList{node});
    }

    template <class Check>
    void ForEachRow(Check check)
    {
        for (const XFnInfo* info : ConcreteTypes()) {
            SCOPED_TRACE(info->GetTypeName());
            XBase* const node = m_Model.CreateNode(info->GetType());
            if (info->GetType() == kFnLayeredShader)
                node->GetNodeProperties()->SetInteger(node, 3, 1);  // lists of one layer
            for (const VocabularyRow& row : ListAttributes(*info)) {
                if (IsReadOnly(row) || (row.valueType != kNode && row.valueType != kNodes))
                    continue;
                SCOPED_TRACE(row.name);
                const PropertyValue good = Naming(row, CreateFor(m_Model, row.nodeType));
                EXPECT_TRUE(SetValue(*node->GetNodeProperties(), node, row.id, good));
                check(node, row, good);
            }
        }
    }
};

TEST_F(NodeValues, NodeOfAnotherDocumentIsRefused)
{
    XModel other;
    ForEachRow([&](XBase* node, const VocabularyRow& row, const PropertyValue& good) {
        const PropertyValue foreign = Naming(row, CreateFor(other, row.nodeType));
        EXPECT_FALSE(SetValue(*node->GetNodeProperties(), node, row.id, foreign));
        EXPECT_TRUE(Value(node, row) == good);
    });
}

TEST_F(NodeValues, NodeOfTheWrongClassIsRefused)
{
    XBase* const cycle = m_Model.CreateNode(kFnAnimCycle);
    ForEachRow([&](XBase* node, const VocabularyRow& row, const PropertyValue& good) {
        const bool isAnyTaken = row.nodeType == kFnBase;
        EXPECT_EQ(SetValue(*node->GetNodeProperties(), node, row.id, Naming(row, cycle)), isAnyTaken);
        EXPECT_EQ(Value(node, row) == good, !isAnyTaken);
    });
}

TEST_F(NodeValues, NullIsTakenWhereNothingIsAnAnswer)
{
    ForEachRow([&](XBase* node, const VocabularyRow& row, const PropertyValue& good) {
        const bool isTaken = row.valueType == kNode ? !Holds(kNeverNull, row) : Holds(kWithNulls, row);
        const PropertyValue null = Naming(row, nullptr);
        EXPECT_EQ(SetValue(*node->GetNodeProperties(), node, row.id, null), isTaken);
        const PropertyValue answer = kWithoutNulls.Is(row) ? PropertyValue(XNodeList{}) : null;
        EXPECT_TRUE(Value(node, row) == (isTaken ? answer : good));
    });
}

TEST_F(PropertyValues, ListsOfAnotherLengthAreRefused)
{
    std::size_t done = 0;
    std::set<std::string> messages;
    for (const u32 type :
         {kFnPointConstraint, kFnBlendShape, kFnSkinCluster, kFnWireDeformer, kFnLayeredShader}) {
        XBase* const node = m_Model.CreateNode(type);
        m_Model.SetName(node, "it");
        const XNodeProperties& properties = *node->GetNodeProperties();
        std::vector<VocabularyRow> rows = ListAttributes(*XFnFindByName(XFnTypeName(type)));
        std::stable_partition(rows.begin(), rows.end(),
                              [](const VocabularyRow& row) { return Holds(kLengths, row); });
        for (const VocabularyRow& row : rows) {
            if (!IsReadOnly(row))
                SetValue(properties, node, row.id, NewValue(node, row));
            if (!Holds(kOfGivenLength, row))
                continue;
            ++done;
            const PropertyValue before = Value(node, row);
            for (const std::size_t length : {0, 1, 3}) {
                PropertyValue value = before;
                std::visit(
                    [=](auto& list) {
                        if constexpr (requires { list.resize(length, list[0]); })
                            list.resize(length, list[0]);
                    },
                    value);
                EXPECT_FALSE(SetValue(properties, node, row.id, value)) << row.name << ' ' << length;
                EXPECT_TRUE(Value(node, row) == before) << row.name;
            }
            messages.insert(m_Log.Text());
            m_Log.Clear();
        }
        m_Model.SetName(node, "done");
    }
    EXPECT_EQ(done, std::size(kOfGivenLength));
    const auto thrice = [](const std::string& line) { return line + line + line; };
    EXPECT_EQ(messages, (std::set<std::string>{
                            "",
                            thrice("Error : Number of target weights is not equal to the number of targets - "
                                   "it.weights\n"),
                            thrice("Error : cannot set the it.wireScale attr because the array provided does "
                                   "not match the number of wires\n"),
                            thrice("Error : cannot set the it.wireDropoffDistanc attr because the array "
                                   "provided does not match the number of wires\n"),
                        }));
}

}  // namespace
