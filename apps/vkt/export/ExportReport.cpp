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
#include "export/TransformLoss.h"

namespace tool {
namespace {

constexpr std::size_t kShownLines = 10;

using VKT::XBone;

// The nodes that an export covers, depth first, children in order, parents first.
std::vector<PlacedNode> ListExported(INode& root, bool selectedOnly)
{
    std::vector<PlacedNode> out;
    std::vector<PlacedNode> pending{{&root, -1}};
    while (!pending.empty()) {
        const PlacedNode next = pending.back();
        pending.pop_back();
        int place = -1;
        if (!selectedOnly || next.node->Selected()) {
            place = static_cast<int>(out.size());
            out.push_back(next);
        }
        for (int i = next.node->NumberOfChildren() - 1; i >= 0; --i)
            pending.push_back({next.node->GetChildNode(i), place});
    }
    return out;
}

// The bones by place of their nodes. The exporter makes them in the order of the list, so
// that their ids ascend with it; empty when the document does not look like that.
std::vector<const XBone*> MatchBones(const std::vector<PlacedNode>& nodes, const VKT::XModel& document)
{
    VKT::XNodeList listed;
    document.List(listed, VKT::kFnBone);
    std::vector<const XBone*> bones;
    for (const VKT::XBase* node : listed)
        bones.push_back(VKT::XCast<XBone>(node));
    std::sort(bones.begin(), bones.end(),
              [](const XBone* a, const XBone* b) { return a->GetID() < b->GetID(); });
    if (bones.size() != nodes.size())
        return {};
    for (std::size_t i = 0; i < nodes.size(); ++i) {
        const int parent = nodes[i].parent;
        if (bones[i]->GetParentId() != (parent < 0 ? 0 : bones[static_cast<std::size_t>(parent)]->GetID()))
            return {};
    }
    return bones;
}

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

// Why a node without a shape has none; empty when it shows nothing that could be one.
std::string ReasonFor(Object* object, const std::unordered_map<Object*, INode*>& shapeNodes)
{
    if (!object)
        return {};
    if (const auto shared = shapeNodes.find(object); shared != shapeNodes.end())
        return "shares the object of " + Quoted(shared->second->GetName()) + ", which has the shape";
    switch (object->SuperClassID()) {
        case GEOMOBJECT_CLASS_ID:
            if (object->IsSubClassOf(BONE_OBJ_CLASSID))
                return {};
            return HasNoPoints(*object) ? "its object has no points" : "its kind of geometry is not exported";
        case SHAPE_CLASS_ID:
            return "splines are not exported";
        case CAMERA_CLASS_ID:
            return "its camera is not exported";
        case LIGHT_CLASS_ID:
            return "its light is not exported";
        default:
            return {};
    }
}

ExportLoss FindSkipped(const std::vector<PlacedNode>& nodes, const std::vector<const XBone*>& bones)
{
    std::unordered_map<Object*, INode*> shapeNodes;
    for (std::size_t i = 0; i < nodes.size(); ++i)
        if (!bones[i]->GetInstanceIds().empty())
            shapeNodes.emplace(ShownObject(*nodes[i].node), nodes[i].node);
    ExportLoss out{"nodes without a shape", {}};
    for (std::size_t i = 0; i < nodes.size(); ++i) {
        if (!bones[i]->GetInstanceIds().empty())
            continue;
        const std::string reason = ReasonFor(ShownObject(*nodes[i].node), shapeNodes);
        if (!reason.empty())
            out.lines.push_back(Quoted(nodes[i].node->GetName()) + ": " + reason);
    }
    return out;
}

ExportLoss FindBentTransforms(const std::vector<PlacedNode>& nodes)
{
    constexpr const char* reasons[] = {"", ": a node above it is scaled to nothing",
                                       ": a node above it is mirrored", ": is sheared"};
    const std::vector<TransformLoss> losses = FindTransformLosses(nodes);
    ExportLoss out{"transforms that the format cannot carry", {}};
    for (std::size_t i = 0; i < nodes.size(); ++i)
        if (losses[i] != TransformLoss::None)
            out.lines.push_back(Quoted(nodes[i].node->GetName()) + reasons[static_cast<int>(losses[i])]);
    return out;
}

}  // namespace

std::vector<ExportLoss> FindLosses(INode& root, const VKT::XModel& document, bool selectedOnly)
{
    const std::vector<PlacedNode> nodes = ListExported(root, selectedOnly);
    const std::vector<const XBone*> bones = MatchBones(nodes, document);
    std::vector<ExportLoss> out;
    if (bones.size() == nodes.size())
        out.push_back(FindSkipped(nodes, bones));
    else
        out.push_back({"the hierarchy of the document differs from that of the scene",
                       {"what was skipped cannot be told"}});
    out.push_back(FindBentTransforms(nodes));
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
    std::string out = CleanText(finding.title) + ": " + std::to_string(finding.lines.size()) + "\n";
    const std::size_t shown = complete ? finding.lines.size() : std::min(kShownLines, finding.lines.size());
    for (std::size_t i = 0; i < shown; ++i)
        out += "  " + CleanText(finding.lines[i]) + "\n";
    if (shown < finding.lines.size())
        out += "  ... and " + std::to_string(finding.lines.size() - shown) + " more (--verbose lists them)\n";
    return out;
}

}  // namespace tool
