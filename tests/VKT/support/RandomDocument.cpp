#include "VKT/support/RandomDocument.h"

#include <algorithm>
#include <map>
#include <regex>

#include "VKT/document/Instance.h"
#include "VKT/hierarchy/Bone.h"
#include "VKT/hierarchy/Shape.h"
#include "VKT/node/Attribute.h"
#include "VKT/node/FnRegistry.h"
#include "VKT/samples/Samples.h"
#include "VKT/support/NodeTest.h"

namespace VKT::Test {

namespace {

// The hierarchy and the instances of a bone come from elsewhere.
std::string WithoutRelatives(const std::string& body)
{
    static const std::regex relatives("\tparent [^]*?\tINSTANCE_LIST\n\t\\{\n[^]*?\n?\t\\}\n");
    return std::regex_replace(body, relatives, "\tparent 0\n\tchild_joints 0\n\tINSTANCE_LIST\n\t{\n\t}\n",
                              std::regex_constants::format_first_only);
}

// The placement of a bump map: a property of floats that holds an id.
bool IsIdAsFloat(const XPropertyInfo& row)
{
    return row.name == std::string_view("placement") && row.type == kPropertyFloat;
}

// Puts the blank in that two classes forget to write.
std::string Readable(const std::string& body)
{
    static const std::regex length("\tlength([0-9])");
    return std::regex_replace(body, length, "\tlength $1");
}

}  // namespace

std::string RandomDocument::Body(const XBase& sample, const XNodeList& nodes)
{
    std::map<u32, u32> names;
    std::set<u32> used;
    XTextWriter out;
    out.Describe([&](u32 id) {
        if (id != 0 && !names.contains(id)) {
            u32 other = 0;
            for (int attempt = 0; attempt < 4 && (other == 0 || used.contains(other)); ++attempt)
                other = Partner(sample.GetModel()->FindNode(id), nodes);
            used.insert(other);
            names[id] = other;
        }
        return std::to_string(id == 0 ? 0 : names[id]);
    });
    sample.WriteChunk(out);
    const std::string body = Readable(out.TakeText());
    return sample.HasFn(kFnBone) ? WithoutRelatives(body) : body;
}

// A node of the class of `sample`, if the document has one, else any.
u32 RandomDocument::Partner(const XBase* sample, const XNodeList& nodes)
{
    XNodeList fitting;
    for (XBase* node : nodes)
        if (sample && node->GetApiType() == sample->GetApiType())
            fitting.push_back(node);
    return AnyOf(fitting.empty() ? nodes : fitting)->GetID();
}

void RandomDocument::Fill(XModel& model, u32 count)
{
    std::map<u32, XNodeList> samples;
    std::vector<std::unique_ptr<XModel>> documents;
    for (const Sample& sample : kSamples) {
        documents.push_back(std::make_unique<XModel>());
        LoadText(*documents.back(), sample.text);
        XNodeList nodes;
        documents.back()->List(nodes, kFnBase);
        for (XBase* node : nodes)
            if (!m_Omitted.contains(node->GetApiType()))
                samples[node->GetApiType()].push_back(node);
    }
    XNodeList types;  // one sample for each class
    for (const auto& [type, nodes] : samples)
        types.push_back(nodes.front());

    XNodeList nodes;
    XNodeList sources;
    for (u32 i = 0; i < count; ++i) {
        const u32 type = Chance(25) ? kFnBone : AnyOf(types)->GetApiType();
        sources.push_back(AnyOf(samples[type]));
        nodes.push_back(model.CreateNode(type));
    }
    for (u32 i = 0; i < count; ++i) {
        EXPECT_TRUE(ReadText(*nodes[i], Body(*sources[i], nodes))) << XFnTypeName(nodes[i]->GetApiType());
        ChangeProperties(*nodes[i]);
        if (Chance(30))
            AddAttributes(*nodes[i], nodes);
    }
    BuildHierarchy(nodes);
    AddInstances(model, nodes);
}

void RandomDocument::ChangeProperties(XBase& node)
{
    const XNodeProperties* properties = node.GetNodeProperties();
    for (const XNodeProperties* own = properties; own; own = own->GetBase())
        for (const XPropertyInfo& row : own->GetRows())
            if (!(row.flags & kReadOnly) && !IsIdAsFloat(row) && Chance(50))
                ChangeProperty(node, row);
}

// Integers stay within the words of every enumeration.
void RandomDocument::ChangeProperty(XBase& node, const XPropertyInfo& row)
{
    const XNodeProperties& properties = *node.GetNodeProperties();
    switch (row.type) {
        case kPropertyBool:
            properties.SetBool(&node, row.id, Chance(50));
            break;
        case kPropertyFloat:
            properties.SetFloat(&node, row.id, Number());
            break;
        case kPropertyUnsigned:
            properties.SetUnsigned(&node, row.id, Below(2));
            break;
        case kPropertyInteger:
            properties.SetInteger(&node, row.id, static_cast<i32>(Below(2)));
            break;
        case kPropertyVector:
            properties.SetVector(&node, row.id, {Number(), Number(), Number(), 0});
            break;
        case kPropertyColour:
            properties.SetColour(&node, row.id, {Number(), Number(), Number(), Number()});
            break;
        case kPropertyQuaternion:
            properties.SetQuaternion(&node, row.id, {Number(), Number(), Number(), Number()});
            break;
        case kPropertyString:
            properties.SetString(&node, row.id, std::to_string(Below(100)) + "_text");
            break;
        default:
            break;  // matrices follow from the rest, arrays and nodes came with the sample
    }
}

namespace {

// Gives every alternative of an attribute's value a random content.
struct RandomValue {
    RandomDocument& random;

    void operator()(bool& value) const { value = random.Chance(50); }
    void operator()(u8& value) const { value = random.Chance(50); }
    void operator()(f32& value) const { value = random.Number(); }
    void operator()(i32& value) const { value = static_cast<i32>(random.Below(2000)) - 1000; }
    void operator()(XColour& c) const { c = {Float(), Float(), Float(), Float()}; }
    void operator()(XVector2& v) const { v = {Float(), Float()}; }
    void operator()(XVector3& v) const { v = {Float(), Float(), Float(), 0}; }
    void operator()(XVector4& v) const { v = {Float(), Float(), Float(), Float()}; }
    void operator()(XMatrix& m) const
    {
        std::ranges::generate(m.m, [this] { return Float(); });
    }
    void operator()(XString& value) const { value = "a \"text\" of " + std::to_string(random.Below(100)); }
    void operator()(XMessage&) const {}
    void operator()(XMessageArray& value) const { value.count = static_cast<i32>(random.Below(4)); }
    template <std::size_t N>
    void operator()(std::array<i32, N>& values) const
    {
        for (i32& value : values)
            (*this)(value);
    }
    template <class T>
    void operator()(XVector<T>& list) const
    {
        list.resize(random.Below(4));
        for (T& value : list)
            (*this)(value);
    }

private:
    f32 Float() const { return random.Number(); }
};

// A random value of the type of that index.
template <std::size_t... Type>
void SetRandom(XAttribute& attribute, u32 type, const RandomValue& random, std::index_sequence<Type...>)
{
    const auto set = [&](auto value) {
        random(value);
        attribute.Set(std::move(value));
    };
    ((Type == type ? set(std::variant_alternative_t<Type, XAttributeValue>()) : void()), ...);
}

}  // namespace

void RandomDocument::AddAttributes(XBase& node, const XNodeList& nodes)
{
    for (u32 i = Below(4); i > 0; --i) {
        XAttribute& attribute = *node.CreateExtraAttribute(("user" + std::to_string(i)).c_str());
        constexpr u32 types = std::variant_size_v<XAttributeValue>;
        SetRandom(attribute, Below(types), {*this}, std::make_index_sequence<types>());
        if (attribute.Size() == 0 || Chance(50))
            continue;
        const u32 element = Below(attribute.Size());
        if (Chance(50))
            attribute.SetInput(element, AnyOf(nodes)->GetID(), "from");
        else
            attribute.AddOutput(element, AnyOf(nodes)->GetID(), "to");
    }
}

void RandomDocument::BuildHierarchy(const XNodeList& nodes)
{
    XVector<XBone*> bones;
    for (XBase* node : nodes)
        if (XBone* bone = XCast<XBone>(node)) {
            if (!bones.empty() && Chance(80))
                bones[Below(static_cast<u32>(bones.size()))]->AddChild(bone);
            bones.push_back(bone);
        }
}

void RandomDocument::AddInstances(XModel& model, const XNodeList& nodes)
{
    XNodeList bones;
    XNodeList materials;
    XNodeList textures;
    model.List(bones, kFnBone);
    model.List(materials, kFnMaterial);
    model.List(textures, kFnTexture);
    for (XBase* node : nodes) {
        XShape* shape = XCast<XShape>(node);
        for (u32 i = Below(3); shape && !bones.empty() && i > 0; --i) {
            XInstance* instance = model.CreateInstance(XCast<XBone>(AnyOf(bones)), shape);
            if (!instance)
                continue;
            if (!materials.empty() && Chance(50))
                instance->SetMaterial(AnyOf(materials)->GetID());
            if (!materials.empty() && Chance(30)) {
                instance->SetNumMaterialGroups(1);
                instance->SetMaterial(AnyOf(materials)->GetID(), 0);
                instance->AddFaces(0, {Below(9), Below(9)});
            }
            if (!textures.empty() && Chance(30))
                instance->AddUvSet(AnyOf(textures)->GetID(), "map1");
        }
    }
}

}  // namespace VKT::Test
