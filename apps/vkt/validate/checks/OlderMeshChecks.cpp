#include <algorithm>
#include <limits>

#include "VKT/document/Model.h"
#include "VKT/geometry/Mesh.h"
#include "VKT/geometry/MeshVertexColours.h"
#include "common/TerminalText.h"
#include "validate/checks/Checks.h"

namespace tool {
namespace {

constexpr const char* kThen = "; readers that don't check read beyond the table";

void Note(VKT::i64 index, std::size_t size, std::size_t face, const char* what, BadValues& outside)
{
    if (index >= 0 && static_cast<VKT::u64>(index) < size)
        return;
    outside.Add([&] {
        return "face " + std::to_string(face) + ": " + what + " " + std::to_string(index) + " of " +
               std::to_string(size);
    });
}

void CheckIndices(const VKT::XMesh& mesh, Findings& findings)
{
    BadValues points;
    BadValues normals;
    BadValues uvs;
    const auto& faces = mesh.GetFaces();
    for (std::size_t face = 0; face < faces.size(); ++face)
        for (const VKT::XFaceVertex& corner : faces[face].GetVertices()) {
            Note(corner.m_Point, mesh.GetNumPoints(), face, "point", points);
            if (!mesh.GetNormals().empty())
                Note(corner.m_Normal, mesh.GetNormals().size(), face, "normal", normals);
            for (std::size_t set = 0; set < corner.m_UvIndices.size(); ++set)
                Note(corner.m_UvIndices[set],
                     set < mesh.GetNumUvSets() ? mesh.GetTexCoords(static_cast<VKT::u32>(set)).size() : 0,
                     face, "uv", uvs);
        }
    for (const BadValues* outside : {&points, &normals, &uvs})
        if (outside->Count() > 0)
            findings.Fail(&mesh, outside->Text() + kThen);
}

// Binary files count with 16 bits here.
void CheckCounts(const VKT::XMesh& mesh, Findings& findings)
{
    constexpr std::size_t most = std::numeric_limits<VKT::u16>::max();
    std::size_t corners = 0;
    for (const VKT::XFace& face : mesh.GetFaces())
        corners = std::max(corners, face.GetVertices().size());
    const auto check = [&](std::size_t count, const char* what) {
        if (count > most)
            findings.Fail(&mesh, "has " + Counted(count, what) +
                                     "; a binary file counts 65535 at most, and readers lose the rest of it");
    };
    check(mesh.GetFaces().size(), "face");
    check(mesh.GetNumUvSets(), "uv set");
    check(corners, "corner");
}

}  // namespace

void CheckOlderMesh(const VKT::XBase& node, Findings& findings)
{
    const auto* mesh = VKT::XCast<VKT::XMesh>(&node);
    if (!mesh)
        return;
    CheckIndices(*mesh, findings);
    CheckCounts(*mesh, findings);
}

void CheckVertexColours(const VKT::XBase& node, Findings& findings)
{
    const auto* colours = VKT::XCast<VKT::XMeshVertexColours>(&node);
    if (!colours)
        return;
    for (VKT::u32 i = 0; i < colours->GetNumColourSets(); ++i) {
        const VKT::XColourSet& set = colours->GetColourSet(i);
        BadValues outside;
        for (std::size_t face = 0; face < set.m_FaceIndices.size(); ++face)
            for (const VKT::i32 index : set.m_FaceIndices[face])
                Note(index, set.m_Colours.size(), face, "colour", outside);
        if (outside.Count() > 0)
            findings.Fail(colours, "colour set " + Quoted(set.m_Name) + ": " + outside.Text() + kThen);
        const VKT::XMesh* mesh = colours->GetMesh();
        if (mesh && set.m_FaceIndices.size() != mesh->GetNumFaces())
            findings.Fail(colours, "colour set " + Quoted(set.m_Name) + " covers " +
                                       Counted(set.m_FaceIndices.size(), "face") + " of " +
                                       std::to_string(mesh->GetNumFaces()) +
                                       "; readers find no colours for the others");
    }
}

}  // namespace tool
