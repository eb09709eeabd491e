#include <numeric>

#include "VKT/deformers/Lattice.h"
#include "VKT/dynamics/ParticleShape.h"
#include "VKT/geometry/Mesh.h"
#include "VKT/geometry/MeshVertexColours.h"
#include "VKT/geometry/NurbsCurve.h"
#include "VKT/geometry/NurbsSurface.h"
#include "VKT/geometry/PolygonMesh.h"
#include "common/NodeNames.h"
#include "info/Summary.h"

namespace tool {
namespace {

void AddPolygons(GeometrySummary& out, const VKT::XPolygonMesh& mesh)
{
    const auto& counts = mesh.GetPolyCounts();
    out.sizes.polygons = counts.size();
    out.sizes.corners = std::accumulate(counts.begin(), counts.end(), VKT::u64{0});
    for (const auto& set : mesh.GetIndexSets())
        out.indexSets.push_back({set->GetName(), set->GetNumIndices()});
    for (const auto& set : mesh.GetVertexSets())
        out.vertexSets.push_back({set->GetName(), VKT::XVertexUsageName(set->GetUsage()),
                                  set->GetNumElements(), set->GetElementSize(), set->GetIndexSetName()});
}

void AddFaces(GeometrySummary& out, const VKT::XMesh& mesh)
{
    out.sizes.polygons = mesh.GetNumFaces();
    for (const VKT::XFace& face : mesh.GetFaces())
        out.sizes.corners += face.GetNumVertices();
    const VKT::XMeshVertexColours* const colours = mesh.GetVertexColours();
    out.moreSizes = {{"normals", mesh.GetNormals().size()},
                     {"colourSets", colours ? colours->GetNumColourSets() : 0}};
    const VKT::XStringList& names = mesh.GetUvSetNames();
    for (VKT::u32 set = 0; set < mesh.GetNumUvSets(); ++set)
        out.vertexSets.push_back({set < names.size() ? names[set] : VKT::XString(),
                                  VKT::XVertexUsageName(VKT::kTexCoord), mesh.GetTexCoords(set).size(), 2,
                                  ""});
}

void AddControlNet(GeometrySummary& out, const VKT::XParametricSurface& surface)
{
    const VKT::XTrimData* const trims = surface.GetTrimData();
    out.moreSizes = {{"controlPointsU", surface.GetNumCvsU()},
                     {"controlPointsV", surface.GetNumCvsV()},
                     {"trimRegions", trims ? trims->m_Regions.size() : 0}};
    if (const auto* nurbs = VKT::XCast<VKT::XNurbsSurface>(&surface))
        out.moreSizes.insert(out.moreSizes.end(), {{"degreeU", nurbs->GetDegreeU()},
                                                   {"degreeV", nurbs->GetDegreeV()},
                                                   {"knotsU", nurbs->GetKnotsU().size()},
                                                   {"knotsV", nurbs->GetKnotsV().size()}});
}

void AddDivisions(GeometrySummary& out, const VKT::XLattice& lattice)
{
    VKT::u32 s = 0;
    VKT::u32 t = 0;
    VKT::u32 u = 0;
    lattice.GetDivisions(s, t, u);
    out.moreSizes = {{"divisionsS", s}, {"divisionsT", t}, {"divisionsU", u}};
}

}  // namespace

GeometrySummary Summarise(const VKT::XGeometry& geometry)
{
    GeometrySummary out;
    out.name = geometry.GetName();
    out.type = TypeNameOf(geometry);
    out.sizes.points = geometry.GetNumPoints();
    if (const auto* polygons = VKT::XCast<VKT::XPolygonMesh>(&geometry))
        AddPolygons(out, *polygons);
    else if (const auto* mesh = VKT::XCast<VKT::XMesh>(&geometry))
        AddFaces(out, *mesh);
    else if (const auto* curve = VKT::XCast<VKT::XNurbsCurve>(&geometry))
        out.moreSizes = {{"degree", curve->GetDegree()}, {"knots", curve->GetKnots().size()}};
    else if (const auto* surface = VKT::XCast<VKT::XParametricSurface>(&geometry))
        AddControlNet(out, *surface);
    else if (const auto* lattice = VKT::XCast<VKT::XLattice>(&geometry))
        AddDivisions(out, *lattice);
    else if (const auto* particles = VKT::XCast<VKT::XParticleShape>(&geometry))
        out.moreSizes = {{"fields", particles->GetNumFields()}, {"emitters", particles->GetNumEmitters()}};
    return out;
}

}  // namespace tool
