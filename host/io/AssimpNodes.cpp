#include "host/io/AssimpNodes.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <string_view>

namespace maxhost::io {

namespace {

constexpr std::string_view kHelperMark = "_$AssimpFbx$_";

// What follows the mark in a helper's name; empty for a node of the file.
std::string_view HelperKind(const aiNode& node)
{
    const std::string_view name(node.mName.data, node.mName.length);
    const std::size_t mark = name.rfind(kHelperMark);
    return mark == std::string_view::npos ? std::string_view() : name.substr(mark + kHelperMark.size());
}

// Metadata that every FBX node has or that belongs to its cameras and settings;
// the rest was put there by a user.
constexpr std::array<std::string_view, 24> kFbxOwn{
    "UserProperties",
    "IsNull",
    "DefaultAttributeIndex",
    "InheritType",
    "RotationActive",
    "ScalingMax",
    "ScalingMaxX",
    "ScalingMaxY",
    "ScalingMaxZ",
    "ScalingMin",
    "MaxHandle",
    "currentUVSet",
    "Show",
    "Visibility",
    "Visibility Inheritance",
    "ResolutionMode",
    "ViewFrustum",
    "BackgroundMode",
    "AspectW",
    "AspectH",
    "Freeze",
    "LODBox",
    "ForegroundTransparent",
    "UDP3DSMAX",
};

const aiMetadataEntry* Entry(const aiMetadata* metadata, std::string_view key)
{
    for (unsigned i = 0; metadata && i < metadata->mNumProperties; ++i)
        if (key == metadata->mKeys[i].C_Str())
            return &metadata->mValues[i];
    return nullptr;
}

template <class T>
T ValueOf(const aiMetadataEntry& entry)
{
    return *static_cast<const T*>(entry.mData);
}

std::optional<PropertyValue> ToProperty(const aiMetadataEntry& entry)
{
    switch (entry.mType) {
        case AI_BOOL:
            return ValueOf<bool>(entry);
        case AI_INT32:
            return std::int64_t{ValueOf<std::int32_t>(entry)};
        case AI_UINT64:
            return static_cast<std::int64_t>(ValueOf<std::uint64_t>(entry));
        case AI_FLOAT:
            return double{ValueOf<float>(entry)};
        case AI_DOUBLE:
            return ValueOf<double>(entry);
        case AI_AISTRING:
            return std::string(static_cast<const aiString*>(entry.mData)->C_Str());
        case AI_AIVECTOR3D: {
            const auto& v = *static_cast<const aiVector3D*>(entry.mData);
            return std::to_string(v.x) + " " + std::to_string(v.y) + " " + std::to_string(v.z);
        }
        default:
            return std::nullopt;
    }
}

double NumberOf(const aiMetadata* metadata, std::string_view key, double otherwise)
{
    const aiMetadataEntry* entry = Entry(metadata, key);
    const auto value = entry ? ToProperty(*entry) : std::nullopt;
    if (!value)
        return otherwise;
    if (const bool* truth = std::get_if<bool>(&*value))
        return *truth ? 1.0 : 0.0;
    if (const std::int64_t* whole = std::get_if<std::int64_t>(&*value))
        return static_cast<double>(*whole);
    const double* number = std::get_if<double>(&*value);
    return number ? *number : otherwise;
}

void ReadProperties(const aiNode& node, NeutralNode& result, std::vector<std::string>& warnings)
{
    const aiMetadata* metadata = node.mMetaData;
    for (unsigned i = 0; metadata && i < metadata->mNumProperties; ++i) {
        const std::string key = metadata->mKeys[i].C_Str();
        if (std::ranges::find(kFbxOwn, key) != kFbxOwn.end())
            continue;
        if (auto value = ToProperty(metadata->mValues[i]))
            result.properties.emplace_back(key, std::move(*value));
        else
            warnings.push_back("node \"" + result.name + "\": the property \"" + key +
                               "\" is no single value and is left out");
    }
    // The whole user property text of a node, as exporters of the host write it.
    if (const aiMetadataEntry* text = Entry(metadata, "UDP3DSMAX"); text && text->mType == AI_AISTRING)
        result.propertyText = static_cast<const aiString*>(text->mData)->C_Str();
    result.visible = NumberOf(metadata, "Show", 1.0) != 0.0 && NumberOf(metadata, "Visibility", 1.0) != 0.0;
}

bool IsScaled(const Transform& t)
{
    const auto differs = [](double s) { return std::abs(s - 1.0) > 1e-4; };
    return differs(t.scale.x) || differs(t.scale.y) || differs(t.scale.z);
}

// Transform modes of FBX that Assimp does not apply.
void ReportFbxModes(const AssimpNode& entry, const NeutralNode& node, NeutralScene& scene)
{
    const aiMetadata* metadata = entry.node->mMetaData;
    if (!Entry(metadata, "IsNull"))
        return;  // not of an FBX file
    const bool inheritsAll = NumberOf(metadata, "InheritType", 0.0) == 1.0;
    if (!inheritsAll && node.parent >= 0 &&
        IsScaled(scene.nodes[static_cast<std::size_t>(node.parent)].local))
        scene.warnings.push_back("node \"" + node.name +
                                 "\" inherits its parent's scale in a way that is not applied");
    const bool preRotated = std::ranges::any_of(
        entry.helpers, [](const aiNode* helper) { return HelperKind(*helper) == "PreRotation"; });
    if (preRotated && NumberOf(metadata, "RotationActive", 0.0) == 0.0)
        scene.warnings.push_back("node \"" + node.name +
                                 "\" has a pre-rotation that is switched off and is applied all the same");
}

}  // namespace

Matrix ToMatrix(const aiMatrix4x4& m)
{
    return {{m.a1, m.b1, m.c1}, {m.a2, m.b2, m.c2}, {m.a3, m.b3, m.c3}, {m.a4, m.b4, m.c4}};
}

AssimpNodes::AssimpNodes(const aiNode& root, bool keepRoot, NeutralScene& scene)
{
    // `above` is the chain of helpers that leads to a node that is still to come.
    struct Step {
        const aiNode* node;
        int parent;
        AssimpNode above;
    };
    std::vector<Step> pending;
    const auto pushChildren = [&](const aiNode& node, int parent, const AssimpNode& above) {
        for (unsigned i = node.mNumChildren; i > 0; --i)
            if (node.mChildren[i - 1])
                pending.push_back({node.mChildren[i - 1], parent, above});
    };
    if (keepRoot)
        pending.push_back({&root, -1, {}});
    else
        pushChildren(root, -1, {});

    while (!pending.empty()) {
        Step step = std::move(pending.back());
        pending.pop_back();
        AssimpNode& above = step.above;
        const std::string_view kind = HelperKind(*step.node);
        if (!kind.empty()) {
            // The inverse of a geometric offset shields the children from it; here
            // they never meet it.
            if (!kind.starts_with("Geometric"))
                above.helpers.push_back(step.node);
            else if (!kind.ends_with("Inverse"))
                above.geometric = above.geometric * ToMatrix(step.node->mTransformation);
            pushChildren(*step.node, step.parent, above);
            continue;
        }
        const int index = static_cast<int>(m_Nodes.size());
        above.node = step.node;
        NeutralNode node;
        node.name = step.node->mName.C_Str();
        node.parent = step.parent;
        Matrix local;
        for (const aiNode* helper : above.helpers) {
            local = local * ToMatrix(helper->mTransformation);
            m_ByHelper.emplace(helper->mName.C_Str(), index);
        }
        node.local = ToTransform(local * ToMatrix(step.node->mTransformation));
        node.objectOffset = ToTransform(above.geometric);
        ReadProperties(*step.node, node, scene.warnings);
        ReportFbxModes(above, node, scene);
        m_ByName[node.name].push_back(index);
        scene.nodes.push_back(std::move(node));
        m_Nodes.push_back(std::move(above));
        pushChildren(*step.node, index, {});
    }
}

int AssimpNodes::Find(const aiString& name, NeutralScene& scene)
{
    const auto found = m_ByName.find(name.C_Str());
    if (found == m_ByName.end())
        return -1;
    std::vector<int>& nodes = found->second;
    if (nodes.size() > 1) {
        scene.warnings.push_back("the file refers to \"" + found->first + "\", a name that " +
                                 std::to_string(nodes.size()) + " nodes bear; the first is taken");
        nodes.resize(1);
    }
    return nodes.front();
}

int AssimpNodes::FindByHelper(const aiString& name) const
{
    const auto found = m_ByHelper.find(name.C_Str());
    return found == m_ByHelper.end() ? -1 : found->second;
}

}  // namespace maxhost::io
