#include <algorithm>
#include <map>
#include <numeric>
#include <unordered_set>

#include "VKT/document/Model.h"
#include "VKT/geometry/PolygonMesh.h"
#include "common/TerminalText.h"
#include "validate/checks/Checks.h"

namespace tool {
namespace {

using VKT::XIndexSet;
using VKT::XPolygonMesh;
using VKT::XVertexSet;

std::string NameOf(const XIndexSet& set)
{
    return "index set " + Quoted(set.GetName());
}

std::string NameOf(const XVertexSet& set)
{
    return "vertex set " + Quoted(set.GetName());
}

// An index set with its least and its greatest index, found once for all the tables that it
// indexes.
struct Indices {
    explicit Indices(const XIndexSet& indexSet) : set(&indexSet)
    {
        const auto [low, high] = std::minmax_element(set->GetIndices().begin(), set->GetIndices().end());
        least = static_cast<std::size_t>(low - set->GetIndices().begin());
        greatest = static_cast<std::size_t>(high - set->GetIndices().begin());
    }

    const XIndexSet* set;
    std::size_t least;  // where they stand
    std::size_t greatest;
};

void CheckRange(const XPolygonMesh& mesh, const Indices& indices, VKT::u64 size, const std::string& table,
                Findings& findings)
{
    const auto& numbers = indices.set->GetIndices();
    if (numbers.empty())
        return;
    const VKT::i32 greatest = numbers[indices.greatest];
    const std::size_t place =
        greatest >= 0 && static_cast<VKT::u64>(greatest) >= size ? indices.greatest : indices.least;
    if (numbers[place] < 0 || static_cast<VKT::u64>(numbers[place]) >= size)
        findings.Fail(&mesh, NameOf(*indices.set) + Bracketed(place) + " is " +
                                 std::to_string(numbers[place]) + ", of " + table +
                                 "; readers that don't check read beyond the table");
}

void CheckLength(const XPolygonMesh& mesh, const XIndexSet& set, VKT::u64 corners, Findings& findings)
{
    if (set.GetNumIndices() != corners)
        findings.Fail(&mesh,
                      NameOf(set) + " holds " + std::to_string(set.GetNumIndices()) + " indices for " +
                          Counted(corners, "corner") +
                          "; readers take 0 for those that it lacks, and text saves fill it up or cut it");
}

void CheckPoints(const XPolygonMesh& mesh, Findings& findings)
{
    const XIndexSet* points = mesh.GetPointIndexSet();
    if (points)
        CheckRange(mesh, Indices(*points), mesh.GetNumPoints(), Counted(mesh.GetNumPoints(), "point"),
                   findings);
    else if (mesh.GetNumPolys() > 0)
        findings.Fail(&mesh,
                      "no index set indexes its points; readers take the corners as they are numbered");
}

// A text that claims such a polygon is refused.
void CheckPolygons(const XPolygonMesh& mesh, Findings& findings)
{
    const auto& counts = mesh.GetPolyCounts();
    BadValues small;
    for (std::size_t i = 0; i < counts.size(); ++i)
        if (counts[i] < 3)
            small.Add([&] { return std::to_string(i) + " has " + Counted(counts[i], "corner"); });
    if (small.Count() > 0)
        findings.Fail(&mesh, "polygon " + small.Text() + "; readers of a text file refuse the mesh");
}

void CheckVertexSet(const XPolygonMesh& mesh, const XVertexSet& set,
                    const std::map<std::string_view, Indices>& indexSets, Findings& findings)
{
    const VKT::u64 claimed = VKT::u64{set.GetNumElements()} * set.GetElementSize();
    if (claimed != set.GetElements().size())
        findings.Fail(&mesh, NameOf(set) + " claims " + Counted(claimed, "float") + " and holds " +
                                 std::to_string(set.GetElements().size()) +
                                 "; readers of a binary file must not read beyond them");
    const auto found = indexSets.find(set.GetIndexSetName());
    if (found != indexSets.end())
        CheckRange(mesh, found->second, set.GetNumElements(),
                   Counted(set.GetNumElements(), "element") + " of " + NameOf(set), findings);
    else if (!set.GetIndexSetName().empty())
        findings.Fail(&mesh, NameOf(set) + " is indexed by " + Quoted(set.GetIndexSetName()) +
                                 ", which the mesh lacks; readers cannot use it");
}

template <class Sets>
void CheckSetNames(const XPolygonMesh& mesh, const Sets& sets, Findings& findings)
{
    std::unordered_set<std::string_view> names;
    for (const auto& set : sets)
        if (!names.insert(set->GetName()).second)
            findings.Warn(&mesh,
                          NameOf(*set) + " stands there twice; readers that look for it find the first");
}

}  // namespace

void CheckPolygonMesh(const VKT::XBase& node, Findings& findings)
{
    const auto* mesh = VKT::XCast<XPolygonMesh>(&node);
    if (!mesh)
        return;
    CheckPoints(*mesh, findings);
    CheckPolygons(*mesh, findings);
    CheckSetNames(*mesh, mesh->GetIndexSets(), findings);
    CheckSetNames(*mesh, mesh->GetVertexSets(), findings);
    const auto& counts = mesh->GetPolyCounts();
    const VKT::u64 corners = std::accumulate(counts.begin(), counts.end(), VKT::u64{0});
    std::map<std::string_view, Indices> indexSets;
    for (const auto& set : mesh->GetIndexSets()) {
        CheckLength(*mesh, *set, corners, findings);
        indexSets.emplace(set->GetName(), Indices(*set));
    }
    for (const auto& set : mesh->GetVertexSets())
        CheckVertexSet(*mesh, *set, indexSets, findings);
}

}  // namespace tool
