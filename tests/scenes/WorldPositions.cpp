#include "scenes/WorldPositions.h"

#include <modstack.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>
#include <map>
#include <memory>
#include <set>

#include "VKT/geometry/Geometry.h"
#include "VKT/hierarchy/Bone.h"

// An own model of how transforms come out, in double precision and written apart from the
// exporter: rotations stay rows and no quaternion is made.
namespace world_positions {
namespace {

struct Vec {
    double x = 0, y = 0, z = 0;
};

Vec operator+(Vec a, Vec b)
{
    return {a.x + b.x, a.y + b.y, a.z + b.z};
}
Vec operator-(Vec a, Vec b)
{
    return {a.x - b.x, a.y - b.y, a.z - b.z};
}
Vec operator*(Vec a, double f)
{
    return {a.x * f, a.y * f, a.z * f};
}
Vec Scaled(Vec a, Vec b)
{
    return {a.x * b.x, a.y * b.y, a.z * b.z};
}
double Dot(Vec a, Vec b)
{
    return a.x * b.x + a.y * b.y + a.z * b.z;
}
double Length(Vec a)
{
    return std::sqrt(Dot(a, a));
}
Vec Cross(Vec a, Vec b)
{
    return {a.y * b.z - a.z * b.y, a.z * b.x - a.x * b.z, a.x * b.y - a.y * b.x};
}

// Row vectors: three axes and an origin.
struct Frame {
    Vec axis[3] = {{1, 0, 0}, {0, 1, 0}, {0, 0, 1}};
    Vec origin;
};

Vec Turn(Vec v, const Frame& f)
{
    return f.axis[0] * v.x + f.axis[1] * v.y + f.axis[2] * v.z;
}
Vec Move(Vec p, const Frame& f)
{
    return Turn(p, f) + f.origin;
}

// `first` acts first.
Frame Then(const Frame& first, const Frame& second)
{
    Frame out;
    for (int i = 0; i < 3; ++i)
        out.axis[i] = Turn(first.axis[i], second);
    out.origin = Move(first.origin, second);
    return out;
}

Frame Diagonal(Vec s)
{
    return {{{s.x, 0, 0}, {0, s.y, 0}, {0, 0, s.z}}, {}};
}

double Volume(const Frame& f)
{
    return Dot(f.axis[0], Cross(f.axis[1], f.axis[2]));
}

Frame Inverted(const Frame& f)
{
    const double volume = Volume(f);
    if (volume == 0.0)
        return {};
    // Columns of the inverse are the reciprocal axes.
    const Vec c[3] = {Cross(f.axis[1], f.axis[2]) * (1 / volume), Cross(f.axis[2], f.axis[0]) * (1 / volume),
                      Cross(f.axis[0], f.axis[1]) * (1 / volume)};
    Frame out{{{c[0].x, c[1].x, c[2].x}, {c[0].y, c[1].y, c[2].y}, {c[0].z, c[1].z, c[2].z}}, {}};
    out.origin = Turn(f.origin, out) * -1.0;
    return out;
}

Frame FrameOf(const Matrix3& m)
{
    const auto row = [&m](int i) { return Vec{m.GetRow(i).x, m.GetRow(i).y, m.GetRow(i).z}; };
    return {{row(0), row(1), row(2)}, row(3)};
}

Vec Lengths(const Frame& f)
{
    return {Length(f.axis[0]), Length(f.axis[1]), Length(f.axis[2])};
}

Vec SinglePrecisionLengths(const Frame& f)
{
    const auto length = [](Vec v) {
        const float x = static_cast<float>(v.x), y = static_cast<float>(v.y), z = static_cast<float>(v.z);
        return static_cast<double>(std::sqrt(x * x + y * y + z * z));
    };
    return {length(f.axis[0]), length(f.axis[1]), length(f.axis[2])};
}

// Rotation by Gram-Schmidt. False when an axis has no direction of its own, or when the
// quaternion that bones store could not be made from it: the rule that picks its leading
// component can pick one that is as good as zero.
bool MakeRotation(Frame& f)
{
    constexpr double kNothing = 1e-8;
    for (int i = 0; i < 2; ++i) {
        const double before = Length(f.axis[i]);
        if (i == 1)
            f.axis[1] = f.axis[1] - f.axis[0] * Dot(f.axis[1], f.axis[0]);
        const double length = Length(f.axis[i]);
        if (!(length > kNothing * before))
            return false;
        f.axis[i] = f.axis[i] * (1 / length);
    }
    f.axis[2] = Cross(f.axis[0], f.axis[1]);
    const double xx = f.axis[0].x, yy = f.axis[1].y, zz = f.axis[2].z;
    const bool zIsPicked = xx + yy + zz <= 0.0 && zz > yy;
    return !(zIsPicked && zz < xx && zz - xx - yy + 1 < 1e-10);
}

// Scale and rotation without shear. Noise is what products of single-precision matrices
// leave.
bool HasSquareAxes(const Frame& f)
{
    constexpr double kNoise = 1e-6;
    for (int i = 0; i < 3; ++i) {
        const Vec a = f.axis[i], b = f.axis[(i + 1) % 3];
        if (!(Length(a) > 0.0) || !(std::abs(Dot(a, b)) <= kNoise * Length(a) * Length(b)))
            return false;
    }
    return true;
}

bool AreEqual(const Frame& a, const Frame& b)
{
    double difference = Length(a.origin - b.origin);
    for (int i = 0; i < 3; ++i)
        difference += Length(a.axis[i] - b.axis[i]);
    return difference == 0.0;
}

// A node, its bone, and what the rules make of it.
struct Entry {
    INode* node;
    VKT::XBone* bone;
    Frame nodeWorld;  // as the host has it at time 0
    Frame bindWorld;  // as bones were posed by
    Frame boneWorld;
    Vec boneScale{1, 1, 1};
    bool exact = true;  // this bone can stand exactly where its node does
    bool mirroredAbove = false;
    bool degenerate = false;
};

Entry MakeEntry(INode* node, VKT::XBone* bone, const Entry* parent, const Rules& rules)
{
    Entry entry{node, bone, FrameOf(node->GetNodeTM(0)), {}, {}};
    entry.bindWorld = rules.bindMatrix ? FrameOf(rules.bindMatrix(node)) : entry.nodeWorld;
    const Frame parentBind = parent ? parent->bindWorld : Frame();

    Frame local = Then(entry.bindWorld, Inverted(parentBind));
    const bool squareLocal = HasSquareAxes(local);
    const bool mirroredLocal = Volume(local) < 0.0;
    Vec scale = Lengths(local);
    if (mirroredLocal)
        local.axis[0] = local.axis[0] * -1.0;
    local.origin = local.origin * rules.factor;
    if (rules.removeScale) {
        local.origin = Scaled(local.origin, SinglePrecisionLengths(parentBind));
        scale = {1, 1, 1};
    }
    entry.degenerate = !MakeRotation(local) || (parent && parent->degenerate);
    entry.boneScale = scale;

    const bool isJoint = bone->GetApiType() == VKT::kFnJoint;
    Frame above = local;
    if (isJoint && parent && parent->boneScale.x * parent->boneScale.y * parent->boneScale.z != 0.0) {
        const Vec s = parent->boneScale;  // a joint undoes the scale of its parent
        above.origin = {};
        above = Then(above, Diagonal({1 / s.x, 1 / s.y, 1 / s.z}));
        above.origin = local.origin;
    }
    entry.boneWorld = Then(Diagonal(scale), above);
    if (parent)
        entry.boneWorld = Then(entry.boneWorld, parent->boneWorld);

    const bool undoesScale = isJoint && parent && Length(parent->boneScale - Vec{1, 1, 1}) > 1e-6;
    entry.mirroredAbove = parent && (parent->mirroredAbove || Volume(parent->nodeWorld) < 0.0);
    entry.exact = (!parent || parent->exact) && squareLocal && AreEqual(entry.nodeWorld, entry.bindWorld) &&
                  (rules.removeScale ? HasSquareAxes(entry.nodeWorld) && !entry.mirroredAbove
                                     : !mirroredLocal && !undoesScale);
    return entry;
}

Frame ObjectOffset(INode* node)
{
    Matrix3 offset(TRUE);
    offset.PreTranslate(node->GetObjOffsetPos());
    PreRotateMatrix(offset, node->GetObjOffsetRot());
    ApplyScaling(offset, node->GetObjOffsetScale());
    return FrameOf(offset);
}

// Vertices of the object that deforming modifiers start from.
std::vector<Vec> VerticesOf(INode* node)
{
    Object* source = node->EvalWorldState(0).obj;
    Object* object = node->GetObjectRef();
    while (object && object->SuperClassID() == GEN_DERIVOB_CLASS_ID) {
        IDerivedObject* derived = static_cast<IDerivedObject*>(object);
        object = derived->GetObjRef();
        for (int i = 0; i < derived->NumModifiers(); ++i) {
            const Class_ID type = derived->GetModifier(i)->ClassID();
            if (type == Class_ID(0x100, 0) || type == Class_ID(0x95C723, 0x15666) ||
                type == Class_ID(0x17BB6854, 0xA5CBA2A3))
                source = object;
        }
    }
    std::vector<Vec> out;
    Object* converted = source ? source->ConvertToType(0, triObjectClassID) : nullptr;
    if (!converted)
        return out;
    const Mesh& mesh = static_cast<TriObject*>(converted)->mesh;
    for (int i = 0; i < mesh.numVerts; ++i)
        out.push_back({mesh.verts[i].x, mesh.verts[i].y, mesh.verts[i].z});
    if (converted != source)
        converted->DeleteMe();
    return out;
}

const VKT::XGeometry* GeometryOf(const VKT::XBone& bone)
{
    VKT::XInstanceList instances;
    bone.ListInstances(instances);
    for (const VKT::XInstance* instance : instances)
        if (const auto* geometry = VKT::XCast<VKT::XGeometry>(instance->GetShape()))
            return geometry;
    return nullptr;
}

// The walk makes the bone of the scene's root first.
VKT::XBone* FirstRootBone(const VKT::XModel& model)
{
    VKT::XBoneList roots;
    model.ListRootBones(roots);
    const auto first = std::min_element(roots.begin(), roots.end(),
                                        [](auto* a, auto* b) { return a->GetID() < b->GetID(); });
    return first == roots.end() ? nullptr : *first;
}

// Bones of child nodes come first among the children of a bone, in the host's order.
std::vector<std::unique_ptr<Entry>> MatchNodes(INode* root, VKT::XModel& model, const Rules& rules,
                                               Report& report)
{
    std::vector<std::unique_ptr<Entry>> entries;
    std::map<INode*, Entry*> byNode;
    std::vector<std::pair<INode*, VKT::XBone*>> pending{{root, FirstRootBone(model)}};
    while (!pending.empty()) {
        const auto [node, bone] = pending.back();
        pending.pop_back();
        if (!bone) {
            report.problems.push_back(std::string("no bone for ") + node->GetName());
            continue;
        }
        const auto parent = byNode.find(node->GetParentNode());
        entries.push_back(std::make_unique<Entry>(
            MakeEntry(node, bone, parent == byNode.end() ? nullptr : parent->second, rules)));
        byNode[node] = entries.back().get();

        VKT::XBoneList children;
        bone->ListChildren(children);
        for (int i = 0; i < node->NumberOfChildren(); ++i) {
            const auto place = static_cast<std::size_t>(i);
            pending.emplace_back(node->GetChildNode(i), place < children.size() ? children[place] : nullptr);
        }
    }
    return entries;
}

// The scene's measure, grown by each point.
struct Bounds {
    Vec low{std::numeric_limits<double>::max(), std::numeric_limits<double>::max(),
            std::numeric_limits<double>::max()};
    Vec high = low * -1.0;

    void Add(Vec p)
    {
        low = {std::min(low.x, p.x), std::min(low.y, p.y), std::min(low.z, p.z)};
        high = {std::max(high.x, p.x), std::max(high.y, p.y), std::max(high.z, p.z)};
    }
    double Size() const
    {
        if (low.x > high.x)
            return 0.0;
        const Vec extent = high - low;
        return std::max({extent.x, extent.y, extent.z, std::abs(low.x), std::abs(low.y), std::abs(low.z),
                         std::abs(high.x), std::abs(high.y), std::abs(high.z)});
    }
};

// Measures one node: distances of the document's points from `expected`.
double LargestDistance(const VKT::XBone& bone, const VKT::XGeometry& geometry,
                       const std::vector<Vec>& expected)
{
    const VKT::XMatrix& w = bone.GetWorld(false);
    const Frame world{{{w[0], w[1], w[2]}, {w[4], w[5], w[6]}, {w[8], w[9], w[10]}}, {w[12], w[13], w[14]}};
    double largest = 0.0;
    for (std::size_t i = 0; i < expected.size(); ++i) {
        const VKT::XVector3& p = geometry.GetPoints()[i];
        const double distance = Length(Move({p.x, p.y, p.z}, world) - expected[i]);
        if (std::isnan(distance))
            return std::numeric_limits<double>::infinity();
        largest = std::max(largest, distance);
    }
    return largest;
}

}  // namespace

Report Compare(INode* root, VKT::XModel& model, const Rules& rules)
{
    Report report;
    model.UpdateWorldMatrices();
    const auto entries = MatchNodes(root, model, rules, report);

    struct Measured {
        const Entry* entry;
        bool exact;
        double distance;
    };
    std::vector<Measured> measured;
    std::set<Object*> shown;
    Bounds bounds;
    for (const auto& entry : entries) {
        const VKT::XGeometry* geometry = GeometryOf(*entry->bone);
        if (!geometry)
            continue;
        shown.insert(entry->node->EvalWorldState(0).obj);
        const std::vector<Vec> vertices = VerticesOf(entry->node);
        if (vertices.size() != geometry->GetNumPoints()) {
            report.problems.push_back(std::string("number of points of ") + entry->node->GetName());
            continue;
        }
        const bool exact = entry->exact && !rules.currentPose;
        const Frame offset = ObjectOffset(entry->node);
        Vec vertexScale = Vec{1, 1, 1} * rules.factor;
        if (rules.removeScale)
            vertexScale = Scaled(vertexScale, Lengths(entry->nodeWorld));
        if (rules.removeScale && Volume(entry->nodeWorld) < 0.0)
            vertexScale.x = -vertexScale.x;

        std::vector<Vec> expected;
        for (const Vec& vertex : vertices) {
            const Vec inPivot = rules.currentPose ? vertex : Move(vertex, offset);
            const Vec truth = Move(inPivot, entry->nodeWorld) * rules.factor;
            const Vec byRules = Move(Scaled(inPivot, vertexScale), entry->boneWorld);
            bounds.Add(truth);
            expected.push_back(exact ? truth : byRules);
        }
        report.points += vertices.size();
        if (entry->degenerate)
            ++report.degenerateNodes;
        else
            measured.push_back({entry.get(), exact, LargestDistance(*entry->bone, *geometry, expected)});
    }
    for (const auto& entry : entries)
        if (!GeometryOf(*entry->bone) && shown.contains(entry->node->EvalWorldState(0).obj))
            ++report.sharedNodes;

    report.size = bounds.Size();
    for (const Measured& m : measured) {
        const double error = m.distance == 0.0 ? 0.0 : m.distance / report.size;
        ++(m.exact ? report.exactNodes : report.ruleNodes);
        double& largest = m.exact ? report.exactError : report.ruleError;
        if (error > largest) {
            largest = error;
            (m.exact ? report.exactWorst : report.ruleWorst) = m.entry->node->GetName();
        }
    }
    return report;
}

}  // namespace world_positions
