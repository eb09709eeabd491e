#pragma once

#include <cstdint>
#include <limits>
#include <optional>
#include <string>
#include <utility>
#include <variant>
#include <vector>

#include "host/io/Transform.h"

namespace maxhost::io {

// A scene between a file and the host: what readers fill, what the builder turns
// into host nodes and what writers will take, with no type of either side.
//
// Everything refers to everything by index into the lists of NeutralScene; -1
// stands for none. Units and axes are those of the file: `up` and `metresPerUnit`
// say which. Angles are radians, times seconds. Polygons are counter-clockwise
// seen from outside; the second texture coordinate grows from the image's lower
// edge to its upper one.

// Of positions, colours and texture coordinates: files and host hold no more.
struct Float3 {
    float x = 0.0f;
    float y = 0.0f;
    float z = 0.0f;

    bool operator==(const Float3&) const = default;
};

// Per-corner data with numbers of its own: `values` holds each value once.
struct MapChannel {
    std::vector<Float3> values;
    std::vector<std::uint32_t> corners;  // index into values; as long as NeutralMesh::corners
};

struct Influence {
    std::uint32_t joint = 0;  // index into NeutralSkin::joints
    float weight = 0.0f;

    bool operator==(const Influence&) const = default;
};

struct MorphTarget {
    std::string name;
    std::vector<Float3> deltas;  // one per point
    double weight = 0.0;         // where no track drives it; 1 is the full target
};

// Polygons over points that are welded: corners at one exact position share their
// point unless bone weights or morph deltas tell them apart.
struct NeutralMesh {
    std::string name;
    std::vector<Float3> points;
    std::vector<std::uint32_t> cornerCounts;  // per polygon, 3 at least
    std::vector<std::uint32_t> corners;       // index into points, polygon after polygon
    std::vector<int> materials;               // per polygon
    std::vector<MapChannel> uvs;
    std::optional<MapChannel> colours;  // red, green, blue
    // Those of point p are influences[influenceStarts[p]] up to influenceStarts[p + 1];
    // both lists are empty on a mesh without skin.
    std::vector<std::uint32_t> influenceStarts;
    std::vector<Influence> influences;
    std::vector<MorphTarget> targets;
};

struct Joint {
    int node = -1;
    Matrix boneFromMesh;  // in the bind pose
};

struct NeutralSkin {
    std::vector<Joint> joints;
};

// Identity and the plainest look; what else a material holds stays in the file.
struct NeutralMaterial {
    std::string name;
    std::optional<Float3> diffuse;
    std::string diffuseTexture;  // file name as the file has it; empty: none, or embedded
};

struct NeutralCamera {
    std::string name;
    Vector look{0.0, 0.0, -1.0};  // in the frame of its node
    Vector up{0.0, 1.0, 0.0};
};

enum class LightKind { Omni, Spot, Directional, Other };

struct NeutralLight {
    std::string name;
    LightKind kind = LightKind::Other;
    Vector look{0.0, 0.0, -1.0};  // in the frame of its node
};

using PropertyValue = std::variant<bool, std::int64_t, double, std::string>;
using Property = std::pair<std::string, PropertyValue>;

struct NeutralNode {
    std::string name;
    int parent = -1;  // stands before its children in NeutralScene::nodes
    Transform local;
    Transform objectOffset;  // of its mesh alone: children do not see it
    bool visible = true;
    bool isBone = false;
    int mesh = -1;
    int skin = -1;
    int camera = -1;
    int light = -1;
    std::vector<Property> properties;
    std::string propertyText;  // lines of "key = value" that a file carries as such
};

enum class TrackPath { Translation, Rotation, Scale, Weights };
enum class Interpolation { Step, Linear, Cubic };

// The keys of one component of one node. Rotations are unit quaternions x, y, z,
// w. Cubic keys hold in-tangent, value and out-tangent after one another, tangents
// as change per second (Hermite).
struct NeutralTrack {
    int node = -1;
    TrackPath path = TrackPath::Translation;
    Interpolation interpolation = Interpolation::Linear;
    std::uint32_t width = 3;     // numbers per value: 3, 4, or the number of morph targets
    std::vector<double> times;   // rising strictly
    std::vector<double> values;  // width of them per key, or three times as many
};

struct NeutralAnimation {
    std::string name;
    std::vector<NeutralTrack> tracks;
};

struct NeutralScene {
    std::vector<NeutralNode> nodes;
    std::vector<NeutralMesh> meshes;
    std::vector<NeutralSkin> skins;
    std::vector<NeutralMaterial> materials;
    std::vector<NeutralCamera> cameras;
    std::vector<NeutralLight> lights;
    std::vector<NeutralAnimation> animations;
    Vector up{0.0, 1.0, 0.0};  // a unit axis
    std::optional<double> metresPerUnit;
    std::optional<double> framesPerSecond;
    // What the file or its reader could not carry, each naming the thing it is about.
    std::vector<std::string> warnings;
};

// What a reader answers: a scene, or the reason why there is none.
struct ReadResult {
    NeutralScene scene;
    std::string error;  // empty when the scene was read

    bool Succeeded() const { return error.empty(); }
};

}  // namespace maxhost::io
