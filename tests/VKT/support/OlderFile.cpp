#include "VKT/support/OlderFile.h"

#include <algorithm>
#include <bit>
#include <iterator>
#include <map>
#include <sstream>
#include <stdexcept>
#include <vector>

#include "VKT/samples/OlderSample.h"
#include "VKT/support/BinaryFile.h"

namespace VKT::Test {
namespace {

std::string Int(u32 value)
{
    return Word(value, 4);
}

std::string Float(f32 value)
{
    return Int(std::bit_cast<u32>(value));
}

std::string Counted(const std::string& text)
{
    return Word(text.size(), 2) + text;
}

// The text chunk of a node, as words.
class Node {
public:
    // Takes what stands between the key and the closing brace.
    explicit Node(std::istream& in)
    {
        in >> m_Name;
        int depth = 0;
        std::string word;
        do {
            if (!(in >> word))
                throw std::runtime_error("no closing brace: " + m_Name);
            depth += word == "{" ? 1 : word == "}" ? -1 : 0;
            m_Words.push_back(word);
        } while (depth > 0);
    }

    const std::string& Name() const { return m_Name; }
    bool Has(const std::string& key) const { return std::ranges::count(m_Words, key) != 0; }

    // The words behind the first `key`.
    std::istringstream Behind(const std::string& key) const
    {
        auto word = std::ranges::find(m_Words, key);
        if (word == m_Words.end())
            throw std::runtime_error(m_Name + " has no " + key);
        std::string words;
        while (++word != m_Words.end())
            words += *word + ' ';
        return std::istringstream(words);
    }

    std::string Bytes(const std::string& key, int bytes) const
    {
        u32 value = 0;
        Behind(key) >> value;
        return Word(value, bytes);
    }
    std::string Int(const std::string& key) const { return Bytes(key, 4); }
    std::string Bool(const std::string& key) const { return Bytes(key, 1); }
    std::string Float(const std::string& key, u32 count = 1) const
    {
        std::istringstream in = Behind(key);
        return Floats(in, count);
    }
    // A count, and `width` floats for each.
    std::string FloatList(const std::string& key, u32 width = 1) const
    {
        std::istringstream in = Behind(key);
        u32 count = 0;
        in >> count;
        return Test::Int(count) + Floats(in, count * width);
    }
    std::string IntList(const std::string& key) const
    {
        std::istringstream in = Behind(key);
        return Ints(in);
    }
    // What feeds a material: the id, the colour, the name.
    std::string Input(const std::string& key) const
    {
        std::istringstream in = Behind(key);
        const std::string colour = Floats(in, 4);
        std::string tex;
        u32 id = 0;
        in >> tex >> id;
        return Test::Int(id) + colour + Counted(key);
    }

    static std::string Floats(std::istream& in, u32 count)
    {
        std::string bytes;
        for (f32 value = 0; count > 0 && in >> value; --count)
            bytes += Test::Float(value);
        return bytes;
    }
    static std::string Ints(std::istream& in)
    {
        u32 count = 0;
        in >> count;
        std::string bytes = Test::Int(count);
        for (u32 value = 0; count > 0 && in >> value; --count)
            bytes += Test::Int(value);
        return bytes;
    }

private:
    std::string m_Name;
    std::vector<std::string> m_Words;
};

std::string Placement(const Node& node)
{
    return node.Int("image") + node.Float("translate_frame", 2) + node.Float("rotate_frame") +
           node.Bool("mirror_u") + node.Bool("mirror_v") + node.Bool("stagger") + node.Bool("wrap_u") +
           node.Bool("wrap_v") + node.Float("repeat_uv", 2) + node.Float("offset_uv", 2) +
           node.Float("rotate_uv") + node.Float("noise_uv", 2);
}

constexpr f32 kShininess = 9.5f;

// All materials had one layout, whatever their class had a use for.
std::string Material(const Node& node, f32 shininess = kShininess)
{
    const std::string specular = "specular_color";
    return node.Input("ambient_color") + node.Input("color") +
           (node.Has(specular) ? node.Input(specular) : Int(0) + std::string(16, '\0') + Counted(specular)) +
           node.Input("incandescence") + node.Input("transparency") + Float(shininess) +
           node.Int("bump_map") + node.Int("env_map") + node.Int("hw_shader");
}

std::string Anisotropic(const Node& node)
{
    return Material(node) + node.Float("tangentu", 4) + node.Float("tangentv", 4) +
           node.Float("correlation_x") + node.Float("correlation_y") + node.Float("roughness") +
           node.Float("rotate_angle") + node.Float("refractive_index") +
           node.Bool("anisotropic_reflectivity");
}

std::string Plain(const Node& node)
{
    return Material(node);
}

std::string Blinn(const Node& node)
{
    return Material(node) + node.Float("eccentricity") + node.Float("specular_roll_off");
}

std::string Phong(const Node& node)
{
    f32 shininess = 0;
    node.Behind("shininess") >> shininess;
    return Material(node, shininess);
}

std::string PhongE(const Node& node)
{
    return Material(node) + node.Float("highlight_size") + node.Float("roughness");
}

std::string Layered(const Node& node)
{
    return Material(node) + node.IntList("colour_inputs") + node.IntList("transparency_inputs") +
           node.IntList("glow_inputs") + node.Int("compositing_flag");
}

std::string AmbientLight(const Node& node)
{
    return node.Float("colour", 3) + node.Float("intensity") + node.Float("shadow_colour", 3) +
           node.Float("ambient_shade") + node.Bool("cast_soft_shadows") + node.Float("shadow_radius");
}

std::string Nothing(const Node&)
{
    return {};
}

std::string Geometry(const Node& node)
{
    return node.FloatList("points", 3) + node.IntList("deformer_queue") + Word(1, 1);
}

std::string Particles(const Node& node)
{
    const std::string points = Int(1) + Float(13.1f) + Float(13.2f) + Float(13.3f);
    const std::string deformers = Int(1) + Int(31);
    return points + deformers + Word(1, 1) + node.IntList("fields");
}

std::string NurbsCurve(const Node& node)
{
    return Geometry(node) + node.Bytes("degree", 2) + node.FloatList("knots");
}

std::string Lattice(const Node& node)
{
    return Geometry(node) + node.Int("divisions_s") + node.Int("divisions_t") + node.Int("divisions_u");
}

// Each with one material, or with groups of faces.
std::string Instances(const Node& node)
{
    std::istringstream in = node.Behind("INSTANCE_LIST");
    std::string instances;
    std::string word;
    u32 count = 0;
    for (in >> word; in >> word && word == "INSTANCE"; ++count) {
        std::string name;
        u32 shape = 0;
        in >> name >> word >> word >> shape;
        std::string groups;
        u32 numGroups = 0;
        u32 material = 0;
        while (in >> word && word != "}") {
            if (word == "material") {
                in >> material;
                continue;
            }
            in >> word >> word >> material >> word;
            groups += Int(material) + Node::Ints(in);
            in >> word;
            ++numGroups;
        }
        instances += Counted(name) + Int(shape);
        instances += numGroups > 0 ? Word(1, 1) + Int(numGroups) + groups : Word(0, 1) + Int(material);
    }
    return Int(count) + instances;
}

std::string Bone(const Node& node)
{
    return node.Float("rotation", 4) + node.Float("translate", 3) + node.Float("scale", 3) +
           node.Bool("visible") + node.Float("scale_pivot", 3) + node.Float("rotate_pivot", 3) +
           node.Float("min_bound", 3) + node.Float("max_bound", 3) + node.Float("rotation_orient", 4) +
           node.Float("joint_orient", 4) + node.Float("bind_pose_matrix", 16) + node.Int("parent") +
           node.IntList("child_joints") + Instances(node);
}

std::string Emitter(const Node& node)
{
    return Bone(node) + node.Int("shape") + node.Float("rate") + node.Float("max_distance") +
           node.Float("min_distance") + node.Float("direction", 3) + node.Float("spread") +
           node.Float("particle_colour", 3) + Float(0.25f);
}

std::string Turbulence(const Node& node)
{
    return Bone(node) + node.Float("magnitude") + node.Float("attenuation") + node.Float("max_distance") +
           node.Bool("use_max_distance") + node.Bool("per_vertex") + node.Float("frequency") +
           node.Float("phase");
}

// The names of all targets, then the points of each.
std::string BlendShape(const Node& node)
{
    std::istringstream in = node.Behind("num_shapes");
    u32 count = 0;
    in >> count;
    std::string names;
    std::string points;
    for (u32 i = 0; i < count; ++i) {
        std::string name;
        std::string word;
        u32 numPoints = 0;
        in >> name >> word >> numPoints;
        names += Counted(name);
        points += Int(numPoints) + Node::Floats(in, 3 * numPoints);
    }
    return node.IntList("affected") + Int(count) + names + Int(count) + points;
}

// All points, then all weights.
std::string Cluster(const Node& node)
{
    std::istringstream in = node.Behind("num_weights");
    u32 count = 0;
    in >> count;
    std::string points = Int(count);
    std::string weights = Int(count);
    for (u32 i = 0, point = 0; i < count && in >> point; ++i) {
        points += Int(point);
        weights += Node::Floats(in, 1);
    }
    return node.IntList("affected") + node.Int("joint_id") + points + weights;
}

// All wires, then the numbers of each, one list for each kind.
std::string WireDeformer(const Node& node)
{
    std::istringstream in = node.Behind("num_wires");
    u32 count = 0;
    in >> count;
    std::string wires = Int(count);
    std::string first = Int(count);
    std::string second = Int(count);
    for (u32 i = 0, wire = 0; i < count && in >> wire; ++i) {
        wires += Int(wire);
        first += Node::Floats(in, 1);
        second += Node::Floats(in, 1);
    }
    return node.IntList("affected") + wires + first + second + node.Float("crossing_effect") +
           node.Float("local_intensity") + node.Float("rotation");
}

struct Connections {
    std::string inputs = Int(0);
    std::string outputs = Int(0);
};

// Floats and lists of messages, which have no more than a count; connections to one element.
std::string Attributes(const Node& node, u32 version)
{
    std::map<std::string, Connections> connections;
    std::istringstream in = node.Behind("CONNECTIONS");
    std::string word;
    for (in >> word; in >> word && word == "ATTR";) {
        std::string name;
        u32 element = 0;
        in >> name >> element >> word >> word;
        const auto read = [&] {
            u32 id = 0;
            std::string attribute;
            in >> id;
            if (id == 0)
                return std::string();
            in >> attribute;
            return Int(id) + Int(element) + Counted(attribute);
        };
        if (const std::string input = read(); !input.empty())
            connections[name].inputs = Int(1) + input;
        u32 count = 0;
        in >> word >> count;
        std::string& outputs = connections[name].outputs;
        outputs = Int(count);
        for (u32 i = 0; i < count; ++i)
            outputs += read();
        in >> word;
    }

    in = node.Behind("EXTRA_ATTRIBUTES");
    std::string bytes;
    u32 count = 0;
    std::string name;
    for (in >> word; in >> name && name != "}"; ++count) {
        in >> word;
        if (word == "float") {
            bytes += Int(138) + Counted(name) + Node::Floats(in, 1);
        } else {
            u32 size = 0;
            in >> size;
            bytes += Int(160) + Counted(name) + (version < 3 ? "" : Int(size));
        }
        if (version >= 3)
            bytes += connections[name].inputs + connections[name].outputs;
    }
    return Int(count) + bytes;
}

constexpr struct {
    const char* key;
    u16 type;
    std::string (*body)(const Node& node);
} kLayouts[] = {
    {"ANISOTROPIC", 8, Anisotropic},
    {"BLINN", 9, Blinn},
    {"LAMBERT", 10, Plain},
    {"PHONG", 11, Phong},
    {"PHONGE", 12, PhongE},
    {"SURFACE_SHADER", 13, Plain},
    {"LAYERED_SHADER", 14, Layered},
    {"RAMP_SHADER", 15, Plain},
    {"USE_BACKGROUND", 16, Plain},
    {"LATTICE", 27, Lattice},
    {"NURBS_CURVE", 34, NurbsCurve},
    {"PARTICLE", 40, Particles},
    {"BASE_LATTICE", 48, Nothing},
    {"AMBIENT_LIGHT", 77, AmbientLight},
    {"BONE", 86, Bone},
    {"JOINT", 87, Bone},
    {"TEXTURE_2D", 89, Placement},
    {"EMITTER", 101, Emitter},
    {"TURBULENCE_FIELD", 110, Turbulence},
    {"BLEND_SHAPE", 116, BlendShape},
    {"CLUSTER", 117, Cluster},
    {"WIRE_DEFORMER", 129, WireDeformer},
};

std::string Header(u32 version, char form)
{
    return "|VKT_00" + std::to_string(version) + form + "#0000#00000000|";
}

}  // namespace

std::string OlderText(u32 version)
{
    const std::string header = Header(version, 'A');
    return header + (kOlderSample + header.size());
}

std::string OlderBinary(u32 version)
{
    std::istringstream in(kOlderSample);
    std::string key;
    in >> key;
    std::string bytes = Header(version, 'B') + Word(0, 2);  // no images
    while (in >> key) {
        const Node node(in);
        const auto layout =
            std::ranges::find(kLayouts, key, [](const auto& entry) { return std::string(entry.key); });
        if (layout == std::end(kLayouts))
            throw std::runtime_error("no layout of " + key);
        const bool hasAttributes = node.Has("EXTRA_ATTRIBUTES");
        bytes += Chunk(layout->type,
                       Counted(node.Name()) + node.Int("id") +
                           (hasAttributes ? Attributes(node, version) : "") + layout->body(node),
                       kTrueSize, hasAttributes);
    }
    return bytes;
}

}  // namespace VKT::Test
