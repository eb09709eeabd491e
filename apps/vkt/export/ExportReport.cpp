#include "export/ExportReport.h"

#include <max.h>
#include <mnmesh.h>
#include <polyobj.h>
#include <triobj.h>

#include <algorithm>
#include <unordered_map>

#include "VKT/document/Model.h"
#include "VKT/geometry/PolygonMesh.h"
#include "VKT/hierarchy/Bone.h"
#include "common/TerminalText.h"
#include "export/BoneMatch.h"
#include "export/TransformLoss.h"

namespace tool {
namespace {

constexpr std::size_t kShownLines = 10;

Object* ShownObject(INode& node)
{
    return node.EvalWorldState(0).obj;
}

bool HasNoPoints(Object& object)
{
    if (object.ClassID() == triObjectClassID)
        return static_cast<TriObject&>(object).mesh.getNumVerts() == 0;
    return object.ClassID() == polyObjectClassID && static_cast<PolyObject&>(object).mm.numv == 0;
}

// What a node shows; empty when that is nothing that could be a shape. Whatever the reason,
// a node without a shape does not show it any more.
std::string LeftOut(Object& object)
{
    switch (object.SuperClassID()) {
        case GEOMOBJECT_CLASS_ID:
            if (object.IsSubClassOf(BONE_OBJ_CLASSID))
                return {};
            return HasNoPoints(object) ? "its object has no points" : "its geometry is left out";
        case SHAPE_CLASS_ID:
            return "its spline is left out";
        case CAMERA_CLASS_ID:
            return "its camera is left out";
        case LIGHT_CLASS_ID:
            return "its light is left out";
        default:
            return {};
    }
}

ExportLoss FindSkipped(const std::vector<PlacedNode>& nodes)
{
    std::unordered_map<Object*, INode*> shapeNodes;
    for (const PlacedNode& placed : nodes)
        if (!placed.bone->GetInstanceIds().empty())
            shapeNodes.emplace(ShownObject(*placed.node), placed.node);
    ExportLoss out{"nodes without a shape"};
    for (const PlacedNode& placed : nodes) {
        Object* const object = ShownObject(*placed.node);
        if (!object || !placed.bone->GetInstanceIds().empty())
            continue;
        const auto shared = shapeNodes.find(object);
        const std::string reason =
            shared == shapeNodes.end()
                ? LeftOut(*object)
                : "shares the object of " + Quoted(shared->second->GetName()) + ", which has the shape";
        if (!reason.empty())
            out.Add(Quoted(placed.node->GetName()) + ": " + reason);
    }
    return out;
}

ExportLoss FindBentTransforms(const std::vector<PlacedNode>& nodes)
{
    constexpr const char* reasons[] = {"", ": a node above it is scaled to nothing",
                                       ": a node above it is mirrored", ": is sheared"};
    const std::vector<TransformLoss> losses = FindTransformLosses(nodes);
    ExportLoss out{"transforms that the format cannot carry"};
    for (std::size_t i = 0; i < nodes.size(); ++i)
        if (losses[i] != TransformLoss::None)
            out.Add(Quoted(nodes[i].node->GetName()) + reasons[static_cast<int>(losses[i])]);
    return out;
}

}  // namespace

std::vector<ExportLoss> FindLosses(INode& root, const VKT::XModel& document, bool selectedOnly)
{
    const BoneMatch match = MatchBones(root, document, selectedOnly);
    ExportLoss missing{"nodes that the document does not hold"};
    for (INode* node : match.missing)
        missing.Add(Quoted(node->GetName()));
    return {std::move(missing), FindSkipped(match.nodes), FindBentTransforms(match.nodes)};
}

ExportLoss FindAbsent(const SceneContent& content, const VKT::XModel& document)
{
    ExportLoss out{"kinds that were not exported"};
    const auto check = [&](std::size_t count, std::size_t exported, const char* what) {
        if (exported == 0 && count > 0)
            out.Add(Counted(count, what));
        else if (exported < count)
            out.Add(std::to_string(count - exported) + " of " + Counted(count, what));
    };
    VKT::XNodeList materials;
    document.List(materials, VKT::kFnMaterial);
    VKT::XNodeList takes;
    document.List(takes, VKT::kFnAnimationTake);
    check(content.materials, materials.size(), "material");
    // A take holds all that moves in the host, of however many animations.
    check(content.animations, takes.empty() ? 0 : content.animations, "animation");
    return out;
}

std::string DescribeDocument(const VKT::XModel& document)
{
    VKT::XNodeList bones, joints, shapes;
    document.List(bones, VKT::kFnBone);
    document.List(joints, VKT::kFnJoint);
    document.List(shapes, VKT::kFnShape);
    std::size_t points = 0;
    std::size_t polygons = 0;
    for (const VKT::XBase* shape : shapes) {
        if (const auto* geometry = VKT::XCast<VKT::XGeometry>(shape))
            points += geometry->GetNumPoints();
        if (const auto* mesh = VKT::XCast<VKT::XPolygonMesh>(shape))
            polygons += mesh->GetNumPolys();
    }
    return Counted(bones.size(), "node") + " (" + Counted(joints.size(), "joint") + "), " +
           Counted(shapes.size(), "shape") + ", " + Counted(points, "point") + ", " +
           Counted(polygons, "polygon");
}

std::string ToText(const ExportLoss& finding, bool complete)
{
    std::string out = CleanText(finding.title) + ": " + std::to_string(finding.count) + "\n";
    const std::size_t shown = complete ? finding.lines.size() : std::min(kShownLines, finding.lines.size());
    for (std::size_t i = 0; i < shown; ++i)
        out += "  " + CleanText(finding.lines[i]) + "\n";
    if (shown < finding.lines.size())
        out += "  ... and " + std::to_string(finding.lines.size() - shown) + " more (--verbose lists them)\n";
    return out;
}

}  // namespace tool
