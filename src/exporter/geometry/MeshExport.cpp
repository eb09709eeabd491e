#include "exporter/geometry/MeshExport.h"

#include "VKT/base/Logger.h"
#include "VKT/document/Model.h"
#include "VKT/geometry/PolygonMesh.h"
#include "exporter/deformers/ModifierTable.h"
#include "exporter/geometry/ShapePlacement.h"
#include "exporter/options/ExportOptions.h"
#include "exporter/walk/Pose.h"
#include "max/Stack.h"

namespace VKTMax {

using VKT::XIntList;
using VKT::XPolygonMesh;
using VKT::XString;
using VKT::XVector3;
using VKT::XVector3Array;
using VKT::XVertexSet;

namespace {

// The host's channels for texture coordinates that are looked at; 0 holds the colours.
constexpr int kFirstChannel = 1;
constexpr int kLastChannel = 98;

// From the object's space into that of the bone: the object offset first, which is in no
// bone, then the scale that no bone carries. The pose as it stands leaves the offset out.
void MovePoints(XVector3Array& points, const HostNode& node)
{
    const RowMatrix offset =
        GetExportOptions().GetUseCurrentPoseAsBindpose() ? RowMatrix() : node.objectOffset;
    const Vector3d scale = VertexScale(node.world, CurrentScaleRules());
    for (XVector3& point : points) {
        const Vector3d moved = TransformPoint({point.x, point.y, point.z}, offset);
        point = {static_cast<f32>(moved.x * scale.x), static_cast<f32>(moved.y * scale.y),
                 static_cast<f32>(moved.z * scale.z), 0.0f};
    }
}

XVertexSet* AddSet(XPolygonMesh& mesh, const XString& name, u32 numElements, u32 elementSize,
                   VKT::XVertexUsage usage, const XIntList& corners)
{
    XVertexSet* values = mesh.AddVertexSet(name, numElements, elementSize, usage);
    VKT::XIndexSet* indices = mesh.AddIndexSet(name);
    indices->SetIndices(corners);
    values->SetIndexSet(indices);
    return values;
}

// Sets are numbered by the channels that the mesh has, those without values included.
void AddTexCoords(XPolygonMesh& out, const TriangleMesh& mesh)
{
    u32 number = 0;
    for (int channel = kFirstChannel; channel <= kLastChannel; ++channel) {
        if (!mesh.HasChannel(channel))
            continue;
        ++number;
        const XVector3Array values = mesh.GetChannelValues(channel);
        if (values.empty())
            continue;
        const u32 count = static_cast<u32>(values.size());
        XVertexSet* uvs = AddSet(out, "uvset" + std::to_string(number), count, 2, VKT::kTexCoord,
                                 mesh.GetChannelCorners(channel));
        for (u32 i = 0; i < count; ++i)
            uvs->SetElement(i, VKT::XVector2{values[i].x, values[i].y});
    }
}

void AddColours(XPolygonMesh& out, const TriangleMesh& mesh)
{
    const XVector3Array values = mesh.GetColours();
    if (values.empty())
        return;
    const u32 count = static_cast<u32>(values.size());
    XVertexSet* colours = AddSet(out, "colours", count, 3, VKT::kColour, mesh.GetColourCorners());
    for (u32 i = 0; i < count; ++i)
        colours->SetElement(i, values[i]);
}

}  // namespace

void ExportGeometry(VKTExportCore& core, const HostNode& node)
{
    const HostObject source = FindUndeformedObject(node);
    if (!source || !IsMeshWanted(source))
        return;
    const TriangleMesh mesh = TriangleMesh::Of(source, node.object);
    if (!mesh)
        return;
    if (GetExportOptions().GetUseXMesh()) {
        VKT::GetLogger()->LogFormat(VKT::kWarning,
                                    "The mesh of \"%s\" is left out: the old mesh format is not exported yet",
                                    node.name.c_str());
        return;
    }
    XPolygonMesh* shape = BuildPolygonMesh(core, mesh, node);
    if (!shape)
        return;
    PlaceShape(core, shape, node, mesh);
    core.Remember(node.object.handle, *shape);
}

HostObject FindUndeformedObject(const HostNode& node)
{
    HostObject source = node.object;
    for (const StackModifier& modifier : ReadStack(node.handle))
        if (IsDeforming(modifier.type))
            source = modifier.below;
    return source;
}

bool IsMeshWanted(const HostObject& object)
{
    if (object.isBipedPart)
        return GetExportOptions().GetIncludeBipedMeshes();
    return GetExportOptions().GetIncludeMeshes() && !object.isBoneObject;
}

XPolygonMesh* BuildPolygonMesh(const VKTExportCore& core, const TriangleMesh& mesh, const HostNode& node)
{
    XVector3Array points = mesh.GetPoints();
    if (points.empty())
        return nullptr;
    XPolygonMesh* out = core.GetModel().CreateNode<XPolygonMesh>();
    if (!out)
        return nullptr;
    out->SetName((node.name + "Shape").c_str());
    // The polygons come first: they clear the points.
    const VKT::XU32Array cornerCounts(mesh.GetNumFaces(), 3);
    out->SetPolygons(cornerCounts, mesh.GetCorners());
    MovePoints(points, node);
    out->SetPoints(points);
    if (GetExportOptions().GetIncludeTexCoords())
        AddTexCoords(*out, mesh);
    if (GetExportOptions().GetIncludeVertexColours())
        AddColours(*out, mesh);
    return out;
}

}  // namespace VKTMax
